// Keyboard and focus of windows.
#include <array>
#include <bit>

#include "platform/win32/keyboard.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

namespace {

std::wstring classOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

}  // namespace

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
  return frameKey(message.wParam);
}

bool WindowPeer::frameKey(WPARAM key) {
  if (key == VK_TAB && !held(VK_CONTROL)) {
    // From now on the marks that show the keyboard's place are wanted.
    SendMessageW(window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    if (HWND next = nextFocus(GetFocus(), held(VK_SHIFT))) {
      SetFocus(next);
      if (classOf(next) == WC_EDITW) {
        SendMessageW(next, EM_SETSEL, 0, -1);
      }
    }
    return true;
  }
  return window_->raiseKeyDown(strokeOf(key));
}

bool WindowPeer::usable(HWND control) const {
  constexpr LONG_PTR wanted = WS_VISIBLE | WS_TABSTOP;
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
  return IsChild(window(), control) != 0 && (style & wanted) == wanted &&
         (style & WS_DISABLED) == 0;
}

HWND WindowPeer::nextFocus(HWND from, bool backwards) const {
  const std::size_t count = controls_.size();
  std::size_t start = backwards ? 0 : count - 1;
  for (std::size_t i = 0; i < count; ++i) {
    HWND candidate = controls_[i]->window();
    if (candidate == from || (from != nullptr && IsChild(candidate, from) != 0)) {
      start = i;
    }
  }
  for (std::size_t step = 1; step <= count; ++step) {
    const std::size_t index = (start + (backwards ? count - step : step)) % count;
    if (usable(controls_[index]->window())) {
      return controls_[index]->window();
    }
  }
  return nullptr;
}

HWND WindowPeer::firstFocus() const {
  HWND first = nextFocus(nullptr, false);
  // Not on a command: a key pressed too early must not run one.
  for (HWND next = first; next != nullptr;) {
    const std::wstring kind = classOf(next);
    if (kind != TOOLBARCLASSNAMEW && kind != WC_TABCONTROLW) {
      return next;
    }
    next = nextFocus(next, false);
    if (next == first) {
      break;
    }
  }
  return first;
}

void WindowPeer::focus(HWND control) {
  lastFocus_ = control;
  if (shown_ && GetActiveWindow() == window() && usable(control)) {
    SetFocus(control);
  }
}

void WindowPeer::aboutToLose(HWND control, bool staysInUse) {
  HWND focus = GetFocus();
  if (!staysInUse && focus != nullptr && (focus == control || IsChild(control, focus) != 0)) {
    lastFocus_ = control;
    checkFocus();
  }
}

void WindowPeer::checkFocus() {
  if (!focusCheckRequested_) {
    focusCheckRequested_ = true;
    PostMessageW(window(), focusMessage, 0, 0);
  }
}

void WindowPeer::moveFocusOn() {
  HWND focus = GetFocus();
  if (GetActiveWindow() != window() || (focus != window() && usable(focus))) {
    return;
  }
  HWND target = lastFocus_;
  if (target == nullptr) {
    target = firstFocus();
  } else if (!usable(target)) {
    // Another control of the same kind takes the place, as one list does for another.
    const std::wstring kind = classOf(lastFocus_);
    target = nextFocus(lastFocus_, false);
    for (const auto& control : controls_) {
      if (usable(control->window()) && classOf(control->window()) == kind) {
        target = control->window();
      }
    }
  }
  if (target != nullptr) {
    SetFocus(target);
  }
}

void WindowPeer::restoreFocus() {
  if (kind_ == WindowKind::dialog) {
    HWND target = usable(lastFocus_) ? lastFocus_ : nextFocus(nullptr, false);
    if (target != nullptr) {
      // The dialog's own way of moving the focus keeps the default button and selects texts.
      SendMessageW(window(), WM_NEXTDLGCTL, std::bit_cast<WPARAM>(target), TRUE);
    }
    return;
  }
  if (usable(lastFocus_)) {
    SetFocus(lastFocus_);
  } else {
    checkFocus();
  }
}

}  // namespace platform::win32
