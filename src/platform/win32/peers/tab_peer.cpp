#include "platform/win32/peers/tab_peer.h"

#include <algorithm>

#include "platform/geometry.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

using controls::Change;

namespace {

// Around a tab's caption, at 96 dpi.
constexpr int horizontalPadding = 8;
constexpr int verticalPadding = 3;

}  // namespace

TabPeer::TabPeer(WindowPeer& host, controls::TabControl& tab)
    : NativeControl(host, tab), tab_(tab) {
  create(WC_TABCONTROLW, WS_TABSTOP);
  fill();
  tab_.measureDisplayArea = [this](const Rect& bounds) { return displayArea(bounds); };
  tab_.attach(this);
}

void TabPeer::detach() {
  if (!detached()) {
    tab_.measureDisplayArea = nullptr;
  }
  NativeControl::detach();
}

void TabPeer::refresh() {
  NativeControl::refresh();
  fill();
}

void TabPeer::fill() {
  // The system's own padding of the captions does not scale with the dpi.
  send(TCM_SETPADDING, 0,
       MAKELPARAM(scaled(horizontalPadding, host().dpi()), scaled(verticalPadding, host().dpi())));
  send(TCM_DELETEALLITEMS);
  WPARAM index = 0;
  for (std::wstring caption : tab_.captions()) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    send(TCM_INSERTITEMW, index++, parameterFrom(&item));
  }
  send(TCM_SETCURSEL, static_cast<WPARAM>(tab_.current()));
}

Rect TabPeer::displayArea(const Rect& bounds) const {
  RECT area{bounds.left, bounds.top, bounds.right(), bounds.bottom()};
  send(TCM_ADJUSTRECT, FALSE, parameterFrom(&area));
  return {static_cast<int>(area.left), static_cast<int>(area.top),
          static_cast<int>(std::max(0L, area.right - area.left)),
          static_cast<int>(std::max(0L, area.bottom - area.top))};
}

void TabPeer::changed(Change change) {
  if (change == Change::structure) {
    fill();
  } else if (change == Change::value) {
    send(TCM_SETCURSEL, static_cast<WPARAM>(tab_.current()));
  } else {
    mirror(change);
  }
  if (change == Change::bounds || change == Change::appearance) {
    cutHole();
  }
}

void TabPeer::cutHole() {
  if (tab_.hole() == Rect{}) {
    return;
  }
  const Rect& whole = tab_.bounds();
  const Rect& hole = tab_.hole();
  RegionHandle region(CreateRectRgn(0, 0, whole.width, whole.height));
  const RegionHandle cut(CreateRectRgn(hole.left - whole.left, hole.top - whole.top,
                                       hole.right() - whole.left, hole.bottom() - whole.top));
  CombineRgn(region.get(), region.get(), cut.get(), RGN_DIFF);
  if (SetWindowRgn(window(), region.get(), TRUE) != 0) {
    static_cast<void>(region.release());  // the system's from now on
  }
}

std::optional<LRESULT> TabPeer::notification(NMHDR& header) {
  if (header.hwndFrom != window() || header.code != static_cast<UINT>(TCN_SELCHANGE)) {
    return std::nullopt;
  }
  tab_.fireSwitch(static_cast<int>(send(TCM_GETCURSEL)));
  if (!detached()) {
    // The native tab shows what the handler left, even if it failed or chose another tab.
    send(TCM_SETCURSEL, static_cast<WPARAM>(tab_.current()));
  }
  return 0;
}

}  // namespace platform::win32
