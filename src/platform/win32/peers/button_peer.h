// Native push buttons.
#pragma once

#include "platform/controls/simple_controls.h"
#include "platform/win32/peers/native_control.h"

namespace platform::win32 {

class ButtonPeer : public controls::Peer, public NativeControl {
 public:
  ButtonPeer(WindowPeer& host, controls::CommandButton& button);
  void changed(controls::Change change) override;
  void orphaned() override { loseControl(); }
  void command(int id, WORD code) override;

 protected:
  /// For derived buttons, which attach themselves.
  ButtonPeer(WindowPeer& host, controls::CommandButton& button, DWORD style);
  std::optional<LRESULT> message(UINT message, WPARAM first, LPARAM second) override;

 private:
  controls::CommandButton& button_;
};

}  // namespace platform::win32
