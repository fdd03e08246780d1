// Native labels.
#pragma once

#include "platform/controls/simple_controls.h"
#include "platform/win32/peers/native_control.h"

namespace platform::win32 {

/// A static control. Mouse clicks on it go to its window.
class LabelPeer final : public controls::Peer, public NativeControl {
 public:
  LabelPeer(WindowPeer& host, controls::Label& label);
  void changed(controls::Change change) override;
  void orphaned() override { loseControl(); }
  [[nodiscard]] bool redrawnWhenMoved() const override { return true; }
  bool colours(HDC dc) override;

 protected:
  [[nodiscard]] HFONT font() const override;

 private:
  [[nodiscard]] DWORD style() const;
  controls::Label& label_;
};

}  // namespace platform::win32
