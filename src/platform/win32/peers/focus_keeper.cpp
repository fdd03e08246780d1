#include "platform/win32/peers/focus_keeper.h"

#include <array>
#include <bit>
#include <string>

#include "platform/win32/peers/native_control.h"
#include "platform/win32/peers/own_messages.h"

namespace platform::win32 {

namespace {

std::wstring classOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

bool isIn(HWND control, HWND focus) {
  return focus != nullptr && (focus == control || IsChild(control, focus) != 0);
}

}  // namespace

bool FocusKeeper::usable(HWND control) const {
  constexpr LONG_PTR wanted = WS_VISIBLE | WS_TABSTOP;
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
  return IsChild(window_, control) != 0 && (style & wanted) == wanted && (style & WS_DISABLED) == 0;
}

HWND FocusKeeper::next(HWND from, bool backwards) const {
  const std::size_t count = controls_.size();
  std::size_t start = backwards ? 0 : count - 1;
  for (std::size_t i = 0; i < count; ++i) {
    if (isIn(controls_[i]->window(), from)) {
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

HWND FocusKeeper::first() const {
  // A window with a list is about that list, whatever comes before it.
  for (const auto& control : controls_) {
    if (usable(control->window()) && classOf(control->window()) == WC_LISTVIEWW) {
      return control->window();
    }
  }
  HWND const first = next(nullptr, false);
  // Not on a command: a key pressed too early must not run one.
  for (HWND candidate = first; candidate != nullptr;) {
    const std::wstring kind = classOf(candidate);
    if (kind != TOOLBARCLASSNAMEW && kind != WC_TABCONTROLW) {
      return candidate;
    }
    candidate = next(candidate, false);
    if (candidate == first) {
      break;
    }
  }
  return first;
}

void FocusKeeper::give(HWND control) {
  last_ = control;
  if (GetActiveWindow() == window_ && usable(control)) {
    SetFocus(control);
  }
}

void FocusKeeper::step(bool backwards) const {
  // From now on the marks that show the keyboard's place are wanted.
  SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  if (HWND const target = next(GetFocus(), backwards)) {
    SetFocus(target);
    if (classOf(target) == WC_EDITW) {
      SendMessageW(target, EM_SETSEL, 0, -1);
    }
  }
}

void FocusKeeper::aboutToLose(HWND control, bool staysInUse) {
  if (!staysInUse && isIn(control, GetFocus())) {
    last_ = control;
    requestCheck();
  }
}

void FocusKeeper::remember() {
  if (HWND const focus = GetFocus(); IsChild(window_, focus) != 0) {
    last_ = focus;
  }
}

void FocusKeeper::restore() {
  if (usable(last_)) {
    SetFocus(last_);
  } else {
    requestCheck();
  }
}

void FocusKeeper::restoreInDialog() const {
  HWND const target = usable(last_) ? last_ : next(nullptr, false);
  if (target != nullptr) {
    // The dialog's own way of moving the focus keeps the default button and selects texts.
    SendMessageW(window_, WM_NEXTDLGCTL, std::bit_cast<WPARAM>(target), TRUE);
  }
}

void FocusKeeper::requestCheck() {
  if (!checkRequested_) {
    checkRequested_ = true;
    PostMessageW(window_, own_message::focus, 0, 0);
  }
}

void FocusKeeper::check() {
  checkRequested_ = false;
  HWND const focus = GetFocus();
  if (GetActiveWindow() != window_ || (focus != window_ && usable(focus))) {
    return;
  }
  if (HWND const target = last_ == nullptr ? first() : substitute()) {
    SetFocus(target);
  }
}

HWND FocusKeeper::substitute() const {
  if (usable(last_)) {
    return last_;
  }
  // Another control of the same kind takes the place, as one list does for another.
  const std::wstring kind = classOf(last_);
  HWND target = next(last_, false);
  for (const auto& control : controls_) {
    if (usable(control->window()) && classOf(control->window()) == kind) {
      target = control->window();
    }
  }
  return target;
}

}  // namespace platform::win32
