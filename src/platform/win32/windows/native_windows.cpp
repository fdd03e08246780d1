#include "platform/native_windows.h"

#include <windows.h>
// Needs <windows.h> first.
#include <olectl.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/controls/window.h"
#include "platform/win32/dpi.h"
#include "platform/win32/handles.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/peers/native_control.h"

namespace platform::native {

using win32::handleFrom;
using win32::windowFrom;

WindowHandle windowOf(const controls::Control& control) {
  return handleFrom(win32::windowOf(control));
}

WindowHandle windowOf(const controls::Window& window) {
  return window.peer() == nullptr ? WindowHandle::none
                                  : handleFrom(static_cast<HWND>(window.peer()->handle()));
}

std::uint32_t style(WindowHandle window) {
  return static_cast<std::uint32_t>(GetWindowLongPtrW(windowFrom(window), GWL_STYLE));
}

WindowHandle parent(WindowHandle window) { return handleFrom(GetParent(windowFrom(window))); }

WindowHandle firstChild(WindowHandle window) {
  return handleFrom(GetWindow(windowFrom(window), GW_CHILD));
}

WindowHandle childOfClass(WindowHandle window, const std::wstring& className) {
  // Without a parent window the search would go through the top-level windows.
  return IsWindow(windowFrom(window)) == 0
             ? WindowHandle::none
             : handleFrom(FindWindowExW(windowFrom(window), nullptr, className.c_str(), nullptr));
}

Edges windowRect(WindowHandle window) {
  RECT rect{};
  GetWindowRect(windowFrom(window), &rect);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

Edges clientRect(WindowHandle window) {
  RECT rect{};
  GetClientRect(windowFrom(window), &rect);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

Point toClient(WindowHandle window, Point screen) {
  POINT place{screen.x, screen.y};
  ScreenToClient(windowFrom(window), &place);
  return {place.x, place.y};
}

bool hasFocus(WindowHandle window) {
  HWND focus = GetFocus();
  return focus != nullptr && focus == windowFrom(window);
}

bool enabled(WindowHandle window) { return IsWindowEnabled(windowFrom(window)) != 0; }

bool listDropped(WindowHandle comboBox) {
  return SendMessageW(windowFrom(comboBox), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

int thumbWidth(WindowHandle window) {
  return win32::systemMetric(SM_CXHTHUMB, win32::dpiOf(windowFrom(window)));
}

Point cursor() {
  POINT place{};
  GetCursorPos(&place);
  return {place.x, place.y};
}

void setTimer(WindowHandle window, std::uintptr_t id, unsigned milliseconds) {
  // Without a window this would create a timer of the thread.
  if (IsWindow(windowFrom(window)) != 0) {
    SetTimer(windowFrom(window), id, milliseconds, nullptr);
  }
}

void killTimer(WindowHandle window, std::uintptr_t id) { KillTimer(windowFrom(window), id); }

std::optional<std::uint32_t> translateColour(std::uint32_t oleColour) {
  COLORREF colour = 0;
  if (FAILED(OleTranslateColor(oleColour, nullptr, &colour))) {
    return std::nullopt;
  }
  return colour;
}

// The device context belongs to the window and was obtained with GetDC, so it is released. Deleting
// it would leak it.
struct LineCanvas::State {
  explicit State(HWND window) : context(window), former(GetCurrentObject(context.get(), OBJ_PEN)) {}
  win32::WindowDc context;
  HGDIOBJ former;
  win32::PenHandle pen;
};

LineCanvas::LineCanvas(WindowHandle window) {
  // Without a window this would be the device context of the whole screen.
  if (IsWindow(windowFrom(window)) != 0) {
    state_ = std::make_unique<State>(windowFrom(window));
  }
}

LineCanvas::~LineCanvas() = default;

void LineCanvas::takePen(std::uint32_t colour) {
  if (state_ != nullptr) {
    state_->pen.reset(CreatePen(PS_SOLID, 1, colour));
    SelectObject(state_->context.get(), state_->pen.get());
  }
}

void LineCanvas::dropPen() {
  if (state_ != nullptr) {
    SelectObject(state_->context.get(), state_->former);
    state_->pen.reset();
  }
}

void LineCanvas::moveTo(Point place) {
  if (state_ != nullptr) {
    MoveToEx(state_->context.get(), place.x, place.y, nullptr);
  }
}

void LineCanvas::lineTo(Point place) {
  if (state_ != nullptr) {
    LineTo(state_->context.get(), place.x, place.y);
  }
}

}  // namespace platform::native
