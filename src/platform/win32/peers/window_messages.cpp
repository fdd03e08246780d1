// What a window does with its messages.
#include <windows.h>
// Needs <windows.h> first.
#include <dbt.h>

#include <algorithm>
#include <bit>

#include "platform/dispatcher.h"
#include "platform/subclass.h"
#include "platform/win32/dpi.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/own_messages.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

using controls::Kind;
using controls::UnloadMode;

LRESULT CALLBACK WindowPeer::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* const self = std::bit_cast<WindowPeer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self != nullptr && self->window_ != nullptr) {
    const Busy busy(*self);
    if (const auto result = self->handleSafely(message, first, second)) {
      return *result;
    }
  }
  return DefWindowProcW(window, message, first, second);
}

std::intptr_t WindowPeer::watchDialog(native::WindowHandle window, unsigned message,
                                      std::uintptr_t first, std::intptr_t second,
                                      std::uintptr_t self) {
  auto& peer = *std::bit_cast<WindowPeer*>(self);
  if (message == WM_NCDESTROY) {
    subclass::removeHook(window, watchDialog, dialogWatchId);
  } else if (peer.window_ != nullptr) {
    const Busy busy(peer);
    if (const auto result = peer.handleSafely(message, first, second)) {
      return *result;
    }
  }
  return subclass::passOn(window, message, first, second);
}

std::optional<LRESULT> WindowPeer::handleSafely(UINT message, WPARAM first, LPARAM second) {
  std::optional<LRESULT> result;
  platform::dispatch([&] { result = handle(message, first, second); });
  return result;
}

std::optional<LRESULT> WindowPeer::handle(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_CLOSE:
      close();
      return 0;
    case WM_QUERYENDSESSION:
      return window_->fireClose((second & (ENDSESSION_CRITICAL | ENDSESSION_CLOSEAPP)) != 0
                                    ? UnloadMode::forced
                                    : UnloadMode::sessionEnd)
                 ? TRUE
                 : FALSE;
    case WM_ENDSESSION:
      if (first != FALSE) {
        window_->fireSessionEnd();
      }
      return 0;
    case WM_ACTIVATE:
      activated(LOWORD(first) != WA_INACTIVE);
      return std::nullopt;
    case WM_SETFOCUS:
      if (kind_ == WindowKind::frame) {
        focus_.restore();
        return 0;
      }
      return std::nullopt;
    case WM_SIZE:
      if (first != SIZE_MINIMIZED) {
        layout();
      }
      return std::nullopt;
    case WM_DPICHANGED:
      changeDpi(HIWORD(first), *pointerFrom<const RECT>(second));
      return 0;
    case WM_GETMINMAXINFO:
      limitSize(*pointerFrom<MINMAXINFO>(second));
      return 0;
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      if (message == WM_THEMECHANGED || first == SPI_SETNONCLIENTMETRICS) {
        platform::dispatch([this] {
          refreshFonts();
          layout();
          repaintAll();
        });
      }
      return std::nullopt;
    case WM_INITMENU:
      window_->fireMenuOpening();
      return std::nullopt;
    case WM_MENUSELECT:
      menuMarked(LOWORD(first), HIWORD(first), second);
      return std::nullopt;
    case WM_DEVICECHANGE:
      if (first == DBT_DEVICEARRIVAL || first == DBT_DEVICEREMOVECOMPLETE) {
        window_->fireDrivesChanged();
      }
      return std::nullopt;
    case WM_SYSCOLORCHANGE:
      forwardToControls(message, first, second);
      return std::nullopt;
    case own_message::layout:
      layout();
      return 0;
    case own_message::focus:
      focus_.check();
      return 0;
    default:
      break;
  }
  if (kind_ == WindowKind::bare) {
    if (const auto result = handleBare(message, first)) {
      return result;
    }
  }
  return handleParts(message, first, second);
}

std::optional<LRESULT> WindowPeer::handleParts(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      command(LOWORD(first), HIWORD(first), windowFrom(second));
      return 0;
    case WM_NOTIFY:
      return notify(*pointerFrom<NMHDR>(second));
    case WM_DRAWITEM: {
      const auto& request = *pointerFrom<const DRAWITEMSTRUCT>(second);
      if (NativeControl* const control = find(request.hwndItem)) {
        control->draw(request);
        return TRUE;
      }
      return std::nullopt;
    }
    case WM_CTLCOLORSTATIC:
      return colourText(std::bit_cast<HDC>(first), windowFrom(second));
    case WM_TIMER:
      tick(first);
      return 0;
    default:
      return std::nullopt;
  }
}

std::optional<LRESULT> WindowPeer::handleBare(UINT message, WPARAM first) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      pressed_ = true;
      SetCapture(window());
      return 0;
    case WM_CAPTURECHANGED:
      pressed_ = false;
      return 0;
    case WM_LBUTTONUP:
      if (pressed_) {
        pressed_ = false;
        ReleaseCapture();
        window_->fireClick();
      }
      return 0;
    case WM_CHAR:
      window_->fireKeyPress(static_cast<wchar_t>(first));
      return 0;
    case WM_ERASEBKGND:
      if (backgroundBrush_) {
        RECT client{};
        GetClientRect(window(), &client);
        auto* const dc = std::bit_cast<HDC>(first);
        SetBrushOrgEx(dc, 0, 0, nullptr);
        FillRect(dc, &client, backgroundBrush_.get());
        return TRUE;
      }
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

void WindowPeer::forwardToControls(UINT message, WPARAM first, LPARAM second) {
  for (const auto& control : controls_) {
    SendMessageW(control->window(), message, first, second);
  }
}

void WindowPeer::activated(bool active) {
  if (active) {
    window_->fireActivate();
  } else if (kind_ == WindowKind::frame) {
    focus_.remember();
  }
}

void WindowPeer::tick(UINT_PTR timer) {
  if (timer == finishTimer) {
    platform::dispatch([this] {
      try {
        finish();
      } catch (...) {
        // Gone before the report is up: half a window must not get at any messages meanwhile.
        window_->giveUp();
        throw;
      }
    });
    return;
  }
  const auto found = std::find_if(timers_.begin(), timers_.end(),
                                  [timer](const auto& peer) { return peer->id() == timer; });
  if (found != timers_.end()) {
    (*found)->tick();
  }
}

NativeControl* WindowPeer::find(HWND control) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [control](const auto& peer) {
    return peer->window() == control;
  });
  return found == controls_.end() ? nullptr : found->get();
}

std::optional<LRESULT> WindowPeer::notify(NMHDR& header) {
  std::optional<LRESULT> result;
  if (NativeControl* const sender = find(header.hwndFrom)) {
    result = sender->notification(header);
  } else {
    // Tool tips of a control come from a window of their own.
    for (std::size_t i = 0; i < controls_.size() && !result; ++i) {
      result = controls_[i]->notification(header);
    }
  }
  if (result && kind_ == WindowKind::dialog) {
    SetWindowLongPtrW(window(), DWLP_MSGRESULT, *result);
  }
  return result;
}

void WindowPeer::command(int id, WORD code, HWND source) {
  if (NativeControl* const control = source == nullptr ? nullptr : find(source)) {
    control->command(id, code);
  } else if (controls::MenuItem* const item = menuItem(id)) {
    item->fireClick();
  } else if (kind_ == WindowKind::dialog && (id == IDOK || id == IDCANCEL)) {
    answerDialogKey(id);
  }
}

void WindowPeer::menuMarked(int id, UINT flags, LPARAM menu) {
  constexpr UINT closed = 0xFFFF;
  const bool entry =
      (flags & (MF_POPUP | MF_SYSMENU | MF_SEPARATOR)) == 0 && !(flags == closed && menu == 0);
  window_->fireMenuMarked(entry ? menuItem(id) : nullptr);
}

controls::MenuItem* WindowPeer::menuItem(int id) const {
  controls::MenuItem* const item = menuBar_ ? menuBar_->find(id) : nullptr;
  return item != nullptr || poppedUp_ == nullptr ? item : entryOf(*poppedUp_, id);
}

void WindowPeer::answerDialogKey(int id) {
  // Enter and Esc arrive under the standard ids, whatever the ids of the buttons are.
  for (controls::Control* const control : window_->controls()) {
    if (control->kind() != Kind::commandButton && control->kind() != Kind::imageButton) {
      continue;
    }
    auto& button = static_cast<controls::CommandButton&>(*control);
    if (id == IDOK ? button.isDefault : button.isCancel) {
      button.fireClick();
      return;
    }
  }
}

std::optional<LRESULT> WindowPeer::colourText(HDC dc, HWND control) const {
  NativeControl* const label = find(control);
  if (label == nullptr) {
    return std::nullopt;
  }
  const bool coloured = label->colours(dc);
  if (backgroundBrush_) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, window(), std::bit_cast<POINT*>(&place), 2);
    SetBrushOrgEx(dc, -static_cast<int>(place.left), -static_cast<int>(place.top), nullptr);
    SetBkMode(dc, TRANSPARENT);
    return std::bit_cast<LRESULT>(backgroundBrush_.get());
  }
  if (!coloured) {
    return std::nullopt;
  }
  SetBkMode(dc, TRANSPARENT);
  return std::bit_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

void WindowPeer::close() {
  // A request that arrives while the handlers are still asking about the first is not a second one.
  if (closing_ || IsWindowEnabled(window()) == 0) {
    return;
  }
  closing_ = true;
  window_->fireClose(UnloadMode::user);
  closing_ = false;
}

void WindowPeer::changeDpi(int dpi, const RECT& suggested) {
  if (!building_.completed()) {
    return;
  }
  platform::dispatch([this, dpi, &suggested] {
    dpi_ = dpi;
    loadIcons();
    refreshFonts();
    Size size{static_cast<int>(suggested.right - suggested.left),
              static_cast<int>(suggested.bottom - suggested.top)};
    if (kind_ != WindowKind::frame) {
      size = nativeSizeFor(window_->clientSize(dpi_));
    }
    SetWindowPos(window(), nullptr, suggested.left, suggested.top, size.width, size.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    loadBackground();
    layout();
    repaintAll();
  });
}

void WindowPeer::repaintAll() {
  RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void WindowPeer::limitSize(MINMAXINFO& limits) const {
  if (kind_ == WindowKind::frame && window_->minimumSize() != Size{}) {
    const Size least = nativeSizeFor(
        {scaled(window_->minimumSize().width, dpi_), scaled(window_->minimumSize().height, dpi_)});
    limits.ptMinTrackSize = {least.width, least.height};
  }
}

}  // namespace platform::win32
