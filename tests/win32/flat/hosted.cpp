#include "hosted.h"

#include <bit>
#include <stdexcept>

#include "platform/geometry.h"
#include "platform/win32/dpi.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/parameters.h"

namespace flat_tests {

using platform::win32::dpiOf;
using platform::win32::handleFrom;
using platform::win32::menuFromId;

namespace {

constexpr const wchar_t* hostClass = L"flat_tests host";
constexpr UINT_PTR countId = 77;

void registerHost(WNDPROC procedure) {
  WNDCLASSEXW wanted{};
  wanted.cbSize = sizeof wanted;
  if (GetClassInfoExW(GetModuleHandleW(nullptr), hostClass, &wanted) != 0) {
    return;
  }
  wanted.lpfnWndProc = procedure;
  wanted.hInstance = GetModuleHandleW(nullptr);
  constexpr WORD arrow = 32512;
  wanted.hCursor = LoadCursorW(nullptr, platform::win32::nameFromNumber(arrow));
  wanted.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  wanted.lpszClassName = hostClass;
  if (RegisterClassExW(&wanted) == 0) {
    throw std::runtime_error("the host's class cannot be registered");
  }
}

HWND makeChild(HWND parent, const wchar_t* windowClass, const wchar_t* text, DWORD style,
               RECT place, int id) {
  HWND const made =
      CreateWindowExW(0, windowClass, text, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style,
                      place.left, place.top, place.right - place.left, place.bottom - place.top,
                      parent, menuFromId(id), GetModuleHandleW(nullptr), nullptr);
  if (made == nullptr) {
    throw std::runtime_error("a control cannot be made");
  }
  return made;
}

void fill(HWND comboBox, bool withImages) {
  for (const wchar_t* const line : {L"Low", L"Medium", L"High"}) {
    if (withImages) {
      std::wstring text = line;
      COMBOBOXEXITEMW item{};
      item.mask = CBEIF_TEXT;
      item.iItem = -1;
      item.pszText = text.data();
      SendMessageW(comboBox, CBEM_INSERTITEMW, 0, platform::win32::parameterFrom(&item));
    } else {
      SendMessageW(comboBox, CB_ADDSTRING, 0, platform::win32::parameterFrom(line));
    }
  }
}

bool isComboBox(const Kind& kind) { return kind.frame == Frame::combo; }

}  // namespace

Host::Host(bool clips) {
  registerHost(procedure);
  window_.reset(CreateWindowExW(0, hostClass, L"flat look",
                                WS_OVERLAPPEDWINDOW | (clips ? WS_CLIPCHILDREN : 0U), 100, 100, 600,
                                500, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
  if (!window_) {
    throw std::runtime_error("the host cannot be made");
  }
  SetWindowLongPtrW(window(), GWLP_USERDATA, std::bit_cast<LONG_PTR>(this));
  elsewhere_ = makeChild(window(), WC_BUTTONW, L"Elsewhere", BS_PUSHBUTTON | WS_TABSTOP,
                         {at(20), at(160), at(120), at(186)}, 1);
  lastFocus_ = elsewhere_;
}

Host::~Host() { SetWindowLongPtrW(window(), GWLP_USERDATA, 0); }

void Host::show() {
  ShowWindow(window(), SW_SHOW);
  UpdateWindow(window());
  const auto front = pumpUntil("the host is in front", [this] {
    SetForegroundWindow(window());
    return GetForegroundWindow() == window() && GetFocus() == elsewhere_;
  });
  if (!front) {
    throw std::runtime_error(front.message());
  }
}

int Host::at(int length) const { return platform::scaled(length, dpiOf(window())); }

LRESULT CALLBACK Host::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* const self = std::bit_cast<Host*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) {
    return DefWindowProcW(window, message, first, second);
  }
  switch (message) {
    case WM_ACTIVATE:
      if (LOWORD(first) == WA_INACTIVE) {
        if (HWND const focus = GetFocus(); IsChild(window, focus) != 0) {
          self->lastFocus_ = focus;
        }
      } else {
        SetFocus(self->lastFocus_);
      }
      return 0;
    case WM_COMMAND:
      if (self->reflected_ != nullptr && platform::win32::windowFrom(second) == self->reflected_) {
        return SendMessageW(self->reflected_, WM_COMMAND, first, second);
      }
      return 0;
    case WM_MEASUREITEM:
      platform::win32::pointerFrom<MEASUREITEMSTRUCT>(second)->itemHeight = 16;
      return TRUE;
    case WM_DRAWITEM: {
      const auto& request = *platform::win32::pointerFrom<const DRAWITEMSTRUCT>(second);
      FillRect(request.hDC, &request.rcItem, GetSysColorBrush(COLOR_WINDOW));
      return TRUE;
    }
    default:
      return DefWindowProcW(window, message, first, second);
  }
}

Hosted::Hosted(Host& host, const Kind& kind) : host_(host), kind_(kind) {
  // The height of a combo box includes its list.
  const int bottom = isComboBox(kind) ? 140 : 50;
  window_ = makeChild(host.window(), kind.windowClass, L"Plot 7", kind.style | WS_TABSTOP,
                      {host.at(20), host.at(20), host.at(180), host.at(bottom)}, 2);
  const bool withImages = std::wstring(kind.typeName) == L"ImageCombo";
  painted_ = withImages ? FindWindowExW(window_, nullptr, L"ComboBox", nullptr) : window_;
  if (isComboBox(kind)) {
    fill(window_, withImages);
  }
  if (std::wstring(kind.typeName) == L"OwnerDrawComboList") {
    host.reflectTo(window_);
  }
  SetWindowSubclass(painted_, count, countId, std::bit_cast<DWORD_PTR>(this));
  if (HWND const line = isComboBox(kind) ? GetWindow(painted_, GW_CHILD) : nullptr) {
    SetWindowSubclass(line, count, countId, std::bit_cast<DWORD_PTR>(this));
  }
}

Hosted::~Hosted() {
  host_.reflectTo(nullptr);
  if (IsWindow(window_) != 0) {
    DestroyWindow(window_);
  }
}

LRESULT CALLBACK Hosted::count(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR id,
                               DWORD_PTR self) {
  if (message == WM_MOUSEMOVE) {
    auto* const hosted = std::bit_cast<Hosted*>(self);
    hosted->mouseMoves_ += 1;
  } else if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(window, count, id);
  }
  return DefSubclassProc(window, message, first, second);
}

FlatTarget Hosted::target() const {
  HWND const window = window_;
  HWND const parent = host_.window();
  return {kind_.typeName, handleFrom(window), handleFrom(parent), [window, parent] {
            RECT place{};
            GetWindowRect(window, &place);
            MapWindowPoints(nullptr, parent, std::bit_cast<POINT*>(&place), 2);
            MoveWindow(window, place.left + 1, place.top + 1, place.right - place.left - 2,
                       place.bottom - place.top - 2, TRUE);
          }};
}

HWND Hosted::canvas() const { return kind_.frame == Frame::outer ? host_.window() : painted_; }

Edges Hosted::place() const {
  RECT place{};
  GetWindowRect(painted_, &place);
  MapWindowPoints(nullptr, host_.window(), std::bit_cast<POINT*>(&place), 2);
  return {place.left, place.top, place.right, place.bottom};
}

namespace {

using flatlook::test::line;
using flatlook::test::ring;
using Colours = DistinctColours;

constexpr COLORREF orange = RGB(255, 128, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr COLORREF black = RGB(0, 0, 0);

struct Border {
  COLORREF topLeft;
  COLORREF bottomRight;
};

Border borderOf(Look look) {
  return look == Look::idle ? Border{Colours::face, Colours::face}
                            : Border{Colours::shadow, Colours::highlight};
}

Pixels outerFrame(const Edges& place, Look look, bool enabled, bool inside) {
  const auto around = [&place](int by) {
    return Edges{place.left - by, place.top - by, place.right + by, place.bottom + by};
  };
  Pixels pixels;
  ring(pixels, around(2), borderOf(look).topLeft, borderOf(look).bottomRight);
  const COLORREF inner = enabled ? Colours::face : Colours::highlight;
  ring(pixels, around(1), inner, inner);
  if (inside && enabled && look != Look::idle) {
    for (const int by : {0, -1, -2}) {
      ring(pixels, around(by), Colours::highlight, Colours::highlight);
    }
  }
  return pixels;
}

Pixels comboFrame(int width, int height, int button, Look look, bool enabled) {
  Pixels pixels;
  ring(pixels, {0, 0, width, height}, borderOf(look).topLeft, borderOf(look).bottomRight);
  const COLORREF inner = enabled ? Colours::face : Colours::highlight;
  ring(pixels, {1, 1, width - 1, height - 1}, inner, inner);
  const int left = width - 2 - button;
  ring(pixels, {left, 2, width - 2, height - 2}, Colours::face, Colours::face);
  ring(pixels, {left + 1, 3, width - 3, height - 3}, Colours::face, Colours::face);
  if (!enabled) {
    return pixels;
  }
  switch (look) {
    case Look::idle:
      ring(pixels, {left + 1, 2, width - 3, height - 2}, Colours::highlight, Colours::highlight);
      line(pixels, left, 2, height - 2, Colours::background);
      break;
    case Look::hot:
      ring(pixels, {left + 1, 2, width - 2, height - 2}, Colours::highlight, Colours::shadow);
      break;
    case Look::down:
      ring(pixels, {left + 1, 2, width - 2, height - 2}, Colours::shadow, Colours::highlight);
      break;
  }
  return pixels;
}

Pixels buttonFrame(int width, int height, Look look, bool enabled) {
  Pixels pixels;
  ring(pixels, {0, 0, width, height}, borderOf(look).topLeft, borderOf(look).bottomRight);
  const COLORREF inner = enabled ? Colours::face : blue;
  ring(pixels, {1, 1, width - 1, height - 1}, inner, inner);
  if (enabled && look == Look::idle) {
    ring(pixels, {1, 0, width - 1, height}, orange, orange);
    line(pixels, 0, 0, height, Colours::background);
  } else if (enabled) {
    ring(pixels, {1, 0, width, height}, black, black);
  }
  return pixels;
}

}  // namespace

Pixels expectedFrame(const Hosted& control, Look look, bool inside) {
  const bool enabled = IsWindowEnabled(control.painted()) != 0;
  RECT client{};
  GetClientRect(control.painted(), &client);
  switch (control.kind().frame) {
    case Frame::outer:
      return outerFrame(control.place(), look, enabled, inside);
    case Frame::combo:
      return comboFrame(client.right, client.bottom,
                        platform::win32::systemMetric(SM_CXHTHUMB, dpiOf(control.painted())), look,
                        enabled);
    case Frame::button:
      return buttonFrame(client.right, client.bottom, look, enabled);
  }
  return {};
}

}  // namespace flat_tests
