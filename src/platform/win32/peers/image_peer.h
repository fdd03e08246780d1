// Native pictures.
#pragma once

#include "platform/controls/simple_controls.h"
#include "platform/win32/handles.h"
#include "platform/win32/peers/native_control.h"

namespace platform::win32 {

/// A static picture that shows an icon resource at the size of its bounds.
class ImagePeer final : public controls::Peer, public NativeControl {
 public:
  ImagePeer(WindowPeer& host, controls::Image& image);
  void changed(controls::Change change) override;
  void orphaned() override { loseControl(); }
  [[nodiscard]] bool redrawnWhenMoved() const override { return true; }

 private:
  void load();
  controls::Image& image_;
  Icon icon_;
};

}  // namespace platform::win32
