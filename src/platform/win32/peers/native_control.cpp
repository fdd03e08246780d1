#include "platform/win32/peers/native_control.h"

#include <bit>

#include "platform/run_time_error.h"
#include "platform/subclass.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

using controls::Change;

namespace {

constexpr UINT_PTR watchId = 1;

void changeBits(HWND window, int which, DWORD clear, DWORD set) {
  const auto former = static_cast<DWORD>(GetWindowLongPtrW(window, which));
  const DWORD wanted = (former & ~clear) | set;
  if (wanted != former) {
    SetWindowLongPtrW(window, which, static_cast<LONG_PTR>(wanted));
    SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

}  // namespace

NativeControl::NativeControl(WindowPeer& host, controls::Control& control)
    : host_(host), control_(control) {}

void NativeControl::create(const wchar_t* windowClass, DWORD style, DWORD extendedStyle) {
  DWORD all = style | WS_CHILD | WS_CLIPSIBLINGS;
  if (control_.visible()) {
    all |= WS_VISIBLE;
  }
  if (!control_.enabled()) {
    all |= WS_DISABLED;
  }
  const Rect& place = control_.bounds();
  window_.reset(CreateWindowExW(extendedStyle, windowClass, nativeText().c_str(), all, place.left,
                                place.top, place.width, place.height, host_.window(),
                                menuFromId(control_.id()), GetModuleHandleW(nullptr), nullptr));
  if (!window_) {
    throw RunTimeError(error::outOfMemory);
  }
  if (!control_.accessibleName().empty()) {
    watchMessages();
  }
  send(WM_SETFONT, firstParameterFrom(font()), FALSE);
  if (!control_.toolTip().empty()) {
    host_.setToolTip(window(), control_.toolTip());
  }
}

void NativeControl::watchMessages() {
  if (!subclass::addHook(handleFrom(window()), watch, watchId,
                         std::bit_cast<std::uintptr_t>(this))) {
    throw RunTimeError(error::outOfMemory);
  }
}

std::intptr_t NativeControl::watch(native::WindowHandle window, unsigned message,
                                   std::uintptr_t first, std::intptr_t second,
                                   std::uintptr_t self) {
  auto& control = *std::bit_cast<NativeControl*>(self);
  if (message == WM_NCDESTROY) {
    subclass::removeHook(window, watch, watchId);
  } else if (!control.detached_) {
    const WindowPeer::Busy busy(control.host_);
    if (message == WM_GETOBJECT) {
      // Given only now that somebody asks for it: most people's starts need not wait for the
      // service that keeps such names.
      control.accessibleName_.give(windowFrom(window), control.control_.accessibleName());
    }
    if (const auto result = control.message(message, first, second)) {
      return *result;
    }
  }
  return subclass::passOn(window, message, first, second);
}

void NativeControl::detach() {
  if (!detached_) {
    detached_ = true;
    control_.attach(nullptr);
  }
}

void NativeControl::refresh() { send(WM_SETFONT, firstParameterFrom(font()), TRUE); }

std::wstring NativeControl::nativeText() const {
  return control_.caption().empty() ? control_.accessibleName() : control_.caption();
}

HFONT NativeControl::font() const { return host_.fonts().get({}, host_.dpi()); }

void NativeControl::mirror(Change change) {
  switch (change) {
    case Change::caption:
      SetWindowTextW(window(), nativeText().c_str());
      break;
    case Change::enabled:
      host_.focus().aboutToLose(window(), control_.enabled());
      EnableWindow(window(), control_.enabled() ? TRUE : FALSE);
      break;
    case Change::visible:
      host_.focus().aboutToLose(window(), control_.visible());
      ShowWindow(window(), control_.visible() ? SW_SHOWNA : SW_HIDE);
      break;
    case Change::bounds:
      host_.place(window(), control_.bounds(), redrawnWhenMoved());
      break;
    case Change::toolTip:
      host_.setToolTip(window(), control_.toolTip());
      break;
    case Change::font:
      send(WM_SETFONT, firstParameterFrom(font()), TRUE);
      break;
    case Change::focus:
      host_.focus().give(window());
      break;
    default:
      break;
  }
}

void NativeControl::changeStyle(DWORD clear, DWORD set) const {
  changeBits(window(), GWL_STYLE, clear, set);
}

void NativeControl::changeExtendedStyle(DWORD clear, DWORD set) const {
  changeBits(window(), GWL_EXSTYLE, clear, set);
}

HWND windowOf(const controls::Control& control) {
  if (control.kind() == controls::Kind::label) {
    return nullptr;
  }
  const auto* const native = dynamic_cast<const NativeControl*>(control.peer());
  return native == nullptr ? nullptr : native->window();
}

}  // namespace platform::win32
