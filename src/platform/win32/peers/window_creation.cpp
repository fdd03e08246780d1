// Creation of native windows and their parts.
#include <bit>
#include <cstdint>

#include "platform/run_time_error.h"
#include "platform/subclass.h"
#include "platform/win32/dpi.h"
#include "platform/win32/modality.h"
#include "platform/win32/monitors.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/control_peers.h"
#include "platform/win32/peers/window_peer.h"
#include "platform/win32/peers/window_table.h"
#include "platform/win32/pictures/image_resources.h"

namespace platform::win32 {

namespace {

void requireClass(const std::wstring& name, WNDPROC procedure) {
  const HINSTANCE program = GetModuleHandleW(nullptr);
  WNDCLASSEXW known{};
  known.cbSize = sizeof known;
  if (GetClassInfoExW(program, name.c_str(), &known) != 0) {
    return;
  }
  WNDCLASSEXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.lpfnWndProc = procedure;
  wanted.hInstance = program;
  wanted.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  // The colour's number, not its brush of today: a change of the system's colours may replace that.
  wanted.hbrBackground = std::bit_cast<HBRUSH>(static_cast<std::uintptr_t>(COLOR_BTNFACE + 1));
  wanted.lpszClassName = name.c_str();
  if (RegisterClassExW(&wanted) == 0) {
    throw RunTimeError(error::outOfMemory);
  }
}

/// Work area of the screen that `window` is on, or of the main screen for a null window.
RECT workAreaAt(HWND window) {
  return monitorFacts(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY)).rcWork;
}

/// `size` in the middle of `anchor`, moved and if need be cut to stay inside `area`.
Rect centred(Size size, const RECT& anchor, const RECT& area) {
  const auto fit = [](long low, long high, long length, long from, long to) {
    const long fitted = std::min(length, to - from);
    const long start = low + (high - low - fitted) / 2;
    return std::pair(std::clamp(start, from, to - fitted), fitted);
  };
  const auto [left, width] = fit(anchor.left, anchor.right, size.width, area.left, area.right);
  const auto [top, height] = fit(anchor.top, anchor.bottom, size.height, area.top, area.bottom);
  return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(width),
          static_cast<int>(height)};
}

INT_PTR CALLBACK leaveToSystem(HWND /*dialog*/, UINT /*message*/, WPARAM /*first*/,
                               LPARAM /*second*/) {
  return FALSE;
}

}  // namespace

WindowPeer::WindowPeer(Window& window, WindowKind kind) : window_(&window), kind_(kind) {}

// The first constructor completes the object, so that a failure in the second runs the destructor,
// which detaches what was attached.
WindowPeer::WindowPeer(Window& window) : WindowPeer(window, window.kind()) {
  switch (kind_) {
    case WindowKind::frame:
      createWindow(WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN);
      break;
    case WindowKind::dialog:
      createDialog();
      break;
    case WindowKind::bare:
    case WindowKind::hidden:
      createWindow(WS_POPUP | WS_CLIPCHILDREN);
      break;
  }
  window.attach(this);
  focus_.serve(this->window());
  dpi_ = dpiOf(this->window());
  if (kind_ != WindowKind::frame) {
    finish();
  }
}

void WindowPeer::finish() {
  if (!building_.start()) {
    return;
  }
  KillTimer(window(), finishTimer);
  if (!window_->menuBar().empty()) {
    menuBar_ = std::make_unique<MenuBar>(window(), window_->menuBar());
  }
  if (kind_ != WindowKind::hidden) {
    placeAtStart();
    applyExtendedStyle();
    if (kind_ != WindowKind::bare) {
      loadIcons();  // a bare window shows none itself and gets them when it is on the screen
    }
    loadBackground();
  }
  createControls();
  building_.complete();
  layout();
}

void WindowPeer::createWindow(DWORD style) {
  requireClass(window_->name(), procedure);
  // One that is never shown needs no place among those that are.
  HWND const parent = kind_ == WindowKind::hidden ? HWND_MESSAGE : nullptr;
  handle_.reset(CreateWindowExW(window_->extendedStyle().value_or(0), window_->name().c_str(),
                                window_->caption().c_str(), style, 0, 0, 0, 0, parent, nullptr,
                                GetModuleHandleW(nullptr), nullptr));
  if (!handle_) {
    throw RunTimeError(error::outOfMemory);
  }
  SetWindowLongPtrW(window(), GWLP_USERDATA, std::bit_cast<LONG_PTR>(this));
}

void WindowPeer::createDialog() {
  struct Template {
    DLGTEMPLATE header;
    WORD menu;
    WORD windowClass;
    WORD title;
  };
  alignas(DWORD) Template empty{};
  empty.header.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | DS_MODALFRAME;
  HWND const owner = window_->owned() ? dialogOwner() : nullptr;
  handle_.reset(CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &empty.header, owner,
                                           leaveToSystem, 0));
  if (!handle_) {
    throw RunTimeError(error::outOfMemory);
  }
  leaveDialogScalingToProgram(window());
  SetWindowTextW(window(), window_->caption().c_str());
  if (!subclass::addHook(handleFrom(window()), watchDialog, dialogWatchId,
                         std::bit_cast<std::uintptr_t>(this))) {
    throw RunTimeError(error::outOfMemory);
  }
}

Size WindowPeer::nativeSizeFor(Size client) const {
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE));
  const auto extended = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_EXSTYLE));
  const RECT whole =
      windowAround({0, 0, client.width, client.height}, style, extended, menuBar_ != nullptr, dpi_);
  return {static_cast<int>(whole.right - whole.left), static_cast<int>(whole.bottom - whole.top)};
}

HWND WindowPeer::windowBefore() const {
  if (kind_ != WindowKind::dialog) {
    return nullptr;
  }
  const WindowPeer* const frame = framePeer();
  HWND const before = window_->owned()   ? GetWindow(window(), GW_OWNER)
                      : frame != nullptr ? frame->window()
                                         : nullptr;
  return before != nullptr && IsWindowVisible(before) != 0 && IsIconic(before) == 0 ? before
                                                                                    : nullptr;
}

void WindowPeer::placeAtStart() {
  if (const auto wish = building_.takeWish()) {
    moveTo(*wish);
    dpi_ = dpiOf(window());
    return;
  }
  HWND const before = windowBefore();
  const RECT area = workAreaAt(before);
  RECT anchor = area;
  if (before != nullptr) {
    GetWindowRect(before, &anchor);
    // On that window's screen first: the density there decides the size.
    SetWindowPos(window(), nullptr, anchor.left, anchor.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  dpi_ = dpiOf(window());
  const Rect place = centred(nativeSizeFor(window_->clientSize(dpi_)), anchor, area);
  SetWindowPos(window(), nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void WindowPeer::applyExtendedStyle() {
  auto native = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_EXSTYLE));
  if (const auto exact = window_->extendedStyle(); exact && *exact != native) {
    SetWindowLongPtrW(window(), GWL_EXSTYLE, static_cast<LONG_PTR>(*exact));
    native = *exact;
  }
  if (window_->opacity() && (native & WS_EX_LAYERED) != 0) {
    SetLayeredWindowAttributes(window(), 0, *window_->opacity(), LWA_ALPHA);
  }
}

void WindowPeer::loadIcons() {
  if (window_->owned()) {
    return;  // its owner stands for it on the task bar
  }
  const auto load = [this](int width, int height) {
    return loadProgramIcon({systemMetric(width, dpi_), systemMetric(height, dpi_)});
  };
  Icon large = load(SM_CXICON, SM_CYICON);
  Icon small = load(SM_CXSMICON, SM_CYSMICON);
  SendMessageW(window(), WM_SETICON, ICON_BIG, parameterFrom(large.get()));
  SendMessageW(window(), WM_SETICON, ICON_SMALL, parameterFrom(small.get()));
  largeIcon_ = std::move(large);
  smallIcon_ = std::move(small);
}

void WindowPeer::loadBackground() {
  if (window_->picture().empty()) {
    return;
  }
  RECT client{};
  GetClientRect(window(), &client);
  backgroundBrush_.reset();
  background_ = loadDrawing(window_->picture(),
                            {static_cast<int>(client.right), static_cast<int>(client.bottom)});
  if (background_) {
    // Labels paint their background with it, so that the picture shows through them.
    backgroundBrush_.reset(CreatePatternBrush(background_.get()));
  }
  InvalidateRect(window(), nullptr, TRUE);
}

void WindowPeer::createControls() {
  for (controls::Control* const control : window_->controls()) {
    if (auto peer = makePeer(*this, *control)) {
      controls_.push_back(std::move(peer));
    }
  }
  for (const auto& control : controls_) {
    if (control->beneathOthers()) {
      SetWindowPos(control->window(), HWND_BOTTOM, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
  }
  for (controls::Timer* const timer : window_->timers()) {
    timers_.push_back(std::make_unique<TimerPeer>(window(), *timer));
  }
}

}  // namespace platform::win32
