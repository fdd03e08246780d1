#include "platform/win32/peers/button_peer.h"

#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

ButtonPeer::ButtonPeer(WindowPeer& host, controls::CommandButton& button, DWORD style)
    : NativeControl(host, button), button_(button) {
  create(WC_BUTTONW, (button.tabStop ? WS_TABSTOP : 0U) | style);
  watchMessages();
  if (button_.isDefault && !host.isFrame()) {
    SendMessageW(host.window(), DM_SETDEFID, static_cast<WPARAM>(button_.id()), 0);
  }
}

ButtonPeer::ButtonPeer(WindowPeer& host, controls::CommandButton& button)
    : ButtonPeer(host, button, button.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) {
  button.attach(this);
}

void ButtonPeer::changed(controls::Change change) { mirror(change); }

void ButtonPeer::command(int /*id*/, WORD code) {
  // The second click of a double-click is a click too; owner-drawn buttons report it with another
  // code.
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) {
    button_.fireClick();
  }
}

std::optional<LRESULT> ButtonPeer::message(UINT message, WPARAM first, LPARAM second) {
  // A dialog handles Enter itself; in the main window the focused button has to. A key that is held
  // down counts as one click.
  if (message == WM_KEYDOWN && first == VK_RETURN && host().isFrame()) {
    if ((HIWORD(second) & KF_REPEAT) == 0) {
      button_.fireClick();
    }
    return 0;
  }
  return std::nullopt;
}

}  // namespace platform::win32
