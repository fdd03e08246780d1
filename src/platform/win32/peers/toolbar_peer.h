// Native toolbars.
#pragma once

#include <cstddef>
#include <optional>

#include "platform/controls/bars.h"
#include "platform/win32/peers/native_control.h"
#include "platform/win32/pictures/image_resources.h"

namespace platform::win32 {

class ToolbarPeer final : public controls::Peer, public NativeControl {
 public:
  ToolbarPeer(WindowPeer& host, controls::Toolbar& toolbar);
  void changed(controls::Change change) override;
  void orphaned() override { loseControl(); }
  void command(int id, WORD code) override;
  std::optional<LRESULT> notification(NMHDR& header) override;
  void refresh() override;

 protected:
  std::optional<LRESULT> message(UINT message, WPARAM first, LPARAM second) override;

 private:
  using Button = controls::Toolbar::Button;
  void takeImages();
  void build();
  void showStates();
  void measure();
  void press(int command);
  bool key(WPARAM key);
  [[nodiscard]] std::optional<std::size_t> nextHot(int from, int step) const;
  [[nodiscard]] const Button* find(int command) const;

  controls::Toolbar& toolbar_;
  ImageCache images_;
};

}  // namespace platform::win32
