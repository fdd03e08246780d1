// Keys that a window takes before its controls see them.
#include "platform/win32/keyboard.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

bool WindowPeer::preTranslate(MSG& message) {
  toolTips_.see(message, window());
  if (kind_ == WindowKind::dialog) {
    const Busy busy(*this);
    return IsDialogMessageW(window(), &message) != 0;
  }
  if (kind_ != WindowKind::frame || message.message != WM_KEYDOWN ||
      GetActiveWindow() != window() ||
      (message.hwnd != window() && IsChild(window(), message.hwnd) == 0)) {
    return false;
  }
  const Busy busy(*this);
  if (message.wParam == VK_TAB && !held(VK_CONTROL)) {
    focus_.step(held(VK_SHIFT));
    return true;
  }
  return window_->fireKeyDown(strokeOf(message.wParam));
}

}  // namespace platform::win32
