#include "platform/win32/peers/window_peer.h"
#include "platform/win32/peers/own_messages.h"

#include <bit>

#include "platform/subclass.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/window_table.h"

namespace platform::win32 {

using controls::Change;

WindowPeer::~WindowPeer() {
  detach();
  if (!handle_) {
    return;
  }
  if (kind_ == WindowKind::dialog) {
    subclass::removeHook(handleFrom(window()), watchDialog, dialogWatchId);
  } else {
    SetWindowLongPtrW(window(), GWLP_USERDATA, 0);
  }
}

void WindowPeer::detach() {
  if (window_ == nullptr) {
    return;
  }
  Window& window = *std::exchange(window_, nullptr);
  for (const auto& timer : timers_) {
    timer->detach();
  }
  timers_.clear();
  for (const auto& control : controls_) {
    control->detach();
  }
  if (menuBar_) {
    menuBar_->detach();
  }
  window.attach(nullptr);
  if (handle_) {
    keepForeground();
    ShowWindow(this->window(), SW_HIDE);
  }
}

void WindowPeer::keepForeground() const {
  // When the splash goes, the frame is not shown yet. The system would make a window of another
  // program the foremost one, and refuse to give that place to the frame afterwards.
  if (kind_ != WindowKind::bare || GetForegroundWindow() != window()) {
    return;
  }
  if (const WindowPeer* const frame = framePeer(); frame != nullptr) {
    SetForegroundWindow(frame->window());
  }
}

void WindowPeer::changed(Change change) {
  if (change == Change::caption) {
    SetWindowTextW(window(), window_->caption().c_str());
  } else if (change == Change::appearance) {
    applyExtendedStyle();
  }
}

void WindowPeer::show() {
  if (kind_ == WindowKind::hidden) {
    return;
  }
  finish();
  if (building_.show()) {
    layout();
    ShowWindow(window(), showMaximised_ ? SW_SHOWMAXIMIZED : SW_SHOW);
    applyExtendedStyle();
    UpdateWindow(window());
    if (kind_ == WindowKind::bare) {
      loadIcons();
    }
    if (WindowPeer* const frame = framePeer(); frame != nullptr && !frame->building_.started()) {
      // As soon as nothing else is to be done, painting this window included.
      SetTimer(frame->window(), finishTimer, 0, nullptr);
    }
  }
  activate();
  if (kind_ == WindowKind::bare) {
    SetFocus(window());
  } else if (kind_ == WindowKind::dialog) {
    focus_.restoreInDialog();
  } else {
    focus_.restore();
  }
}

void WindowPeer::activate() {
  if (IsIconic(window()) != 0) {
    ShowWindow(window(), SW_RESTORE);
  }
  BringWindowToTop(window());
  SetForegroundWindow(window());
}

void WindowPeer::layout() {
  if (!building_.completed() || window_ == nullptr || IsIconic(window()) != 0) {
    return;
  }
  layoutRequested_ = false;
  RECT client{};
  GetClientRect(window(), &client);
  moving_ = BeginDeferWindowPos(static_cast<int>(controls_.size()));
  window_->fireLayout({static_cast<int>(client.right), static_cast<int>(client.bottom)}, dpi_);
  if (moving_ != nullptr) {
    EndDeferWindowPos(std::exchange(moving_, nullptr));
  }
}

void WindowPeer::place(HWND control, const Rect& bounds, bool redraw) {
  const UINT flags =
      SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER | (redraw ? SWP_NOCOPYBITS : 0U);
  if (moving_ != nullptr) {
    moving_ = DeferWindowPos(moving_, control, nullptr, bounds.left, bounds.top, bounds.width,
                             bounds.height, flags);
  } else {
    SetWindowPos(control, nullptr, bounds.left, bounds.top, bounds.width, bounds.height, flags);
  }
}

void WindowPeer::requestLayout() {
  if (building_.completed() && !layoutRequested_) {
    layoutRequested_ = true;
    PostMessageW(window(), own_message::layout, 0, 0);
  }
}

void WindowPeer::refreshFonts() {
  // The former fonts live until every control has taken a new one.
  const auto former = fonts_.renew();
  toolTips_.renew();
  for (const auto& control : controls_) {
    control->refresh();
  }
}

}  // namespace platform::win32
