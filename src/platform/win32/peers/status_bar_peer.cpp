#include "platform/win32/peers/status_bar_peer.h"

#include <algorithm>
#include <array>

#include "platform/geometry.h"
#include "platform/win32/dpi.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

using controls::Change;

namespace {

// At 96 dpi: the space beside a text, and the least width of the left part.
constexpr int padding = 8;
constexpr int leastLeft = 120;
// Of the bar that shows progress: its width, and the space above and below it.
constexpr int barWidth = 240;
constexpr int barGap = 3;

}  // namespace

StatusBarPeer::StatusBarPeer(WindowPeer& host, controls::StatusBar& bar)
    : NativeControl(host, bar), bar_(bar) {
  create(STATUSCLASSNAMEW, SBARS_SIZEGRIP | CCS_NOPARENTALIGN | CCS_NORESIZE);
  watchMessages();
  bar_.attach(this);
}

int StatusBarPeer::widthOf(const std::wstring& text) const {
  const WindowDc dc(window());
  if (!dc) {
    return 0;
  }
  const Selection selected(dc.get(), font());
  SIZE extent{};
  GetTextExtentPoint32W(dc.get(), text.c_str(), static_cast<int>(text.size()), &extent);
  return static_cast<int>(extent.cx);
}

void StatusBarPeer::showTexts() {
  const int dpi = host().dpi();
  RECT client{};
  GetClientRect(window(), &client);
  const int whole = static_cast<int>(client.right);
  const int space = scaled(padding, dpi);
  // The grip covers the end.
  const int grip = systemMetric(SM_CXVSCROLL, dpi);
  const bool simple = !bar_.note().empty();
  if ((send(SB_ISSIMPLE) != 0) != simple) {
    send(SB_SIMPLE, simple ? TRUE : FALSE);
  }
  if (simple) {
    progress_.reset();
    send(SB_SETTEXTW, SB_SIMPLEID | SBT_NOBORDERS, parameterFrom(bar_.note().c_str()));
    host().setToolTip(window(), {});
    return;
  }
  const int left = std::min(std::max(widthOf(bar_.left()) + 2 * space, scaled(leastLeft, dpi)),
                            std::max(1, whole * 2 / 3));
  const std::array<int, 2> edges{left, -1};
  send(SB_SETPARTS, edges.size(), parameterFrom(edges.data()));
  send(SB_SETTEXTW, SBT_NOBORDERS, parameterFrom(bar_.left().c_str()));
  const std::wstring shown =
      controls::shortenedInMiddle(bar_.right(), std::max(0, whole - left - grip - 2 * space),
                                  [this](const std::wstring& text) { return widthOf(text); });
  send(SB_SETTEXTW, 1 | SBT_NOBORDERS, parameterFrom(shown.c_str()));
  host().setToolTip(window(), shown == bar_.right() ? std::wstring() : bar_.right());
  showProgress(whole - grip - space);
}

void StatusBarPeer::showProgress(int end) {
  constexpr int thousandths = 1000;
  if (!bar_.progress()) {
    progress_.reset();
    return;
  }
  if (!progress_) {
    progress_.reset(CreateWindowExW(0, PROGRESS_CLASSW, L"Progress", WS_CHILD | WS_VISIBLE, 0, 0, 0,
                                    0, window(), nullptr, GetModuleHandleW(nullptr), nullptr));
    SendMessageW(progress_.get(), PBM_SETRANGE32, 0, thousandths);
  }
  RECT part{};
  send(SB_GETRECT, 1, parameterFrom(&part));
  const int gap = scaled(barGap, host().dpi());
  const int left = static_cast<int>(part.left) + scaled(padding, host().dpi());
  const int width = std::min(scaled(barWidth, host().dpi()), std::max(0, end - left));
  MoveWindow(progress_.get(), end - width, static_cast<int>(part.top) + gap, width,
             std::max(0, static_cast<int>(part.bottom - part.top) - 2 * gap), TRUE);
  SendMessageW(progress_.get(), PBM_SETPOS, static_cast<WPARAM>(*bar_.progress()), 0);
}

void StatusBarPeer::changed(Change change) {
  if (change == Change::value) {
    showTexts();
  } else {
    mirror(change);
  }
}

void StatusBarPeer::refresh() {
  NativeControl::refresh();
  showTexts();
}

std::optional<LRESULT> StatusBarPeer::message(UINT message, WPARAM /*first*/, LPARAM /*second*/) {
  if (message == WM_WINDOWPOSCHANGED && !detached()) {
    showTexts();
  }
  return std::nullopt;
}

}  // namespace platform::win32
