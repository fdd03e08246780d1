// What the program draws on the native list: marks on rows with a remark, the frame of the selected
// row, and what an empty list says. And how the remarks are told.
#include <algorithm>
#include <string>

#include "platform/geometry.h"
#include "platform/win32/peers/list_view_peer.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

LRESULT ListViewPeer::customDraw(NMLVCUSTOMDRAW& stage) {
  if (stage.nmcd.dwDrawStage == CDDS_PREPAINT) {
    noteScrolling();
    return GetFocus() == window() && !list_.remark ? CDRF_DODEFAULT : CDRF_NOTIFYITEMDRAW;
  }
  return drawRow(stage);
}

LRESULT ListViewPeer::drawRow(NMLVCUSTOMDRAW& stage) {
  const auto row = static_cast<std::size_t>(stage.nmcd.dwItemSpec);
  const bool selected = list_.selectedRow() == row;
  const bool remarked = !list_.remarkOn(row).empty();
  const bool framed = selected && GetFocus() != window();
  if (stage.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
    if (remarked && !selected) {
      stage.clrText = GetSysColor(COLOR_GRAYTEXT);
    }
    return remarked || framed ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
  }
  if (stage.nmcd.dwDrawStage == CDDS_ITEMPOSTPAINT) {
    if (remarked) {
      drawMark(stage.nmcd.hdc, static_cast<int>(row));
    }
    if (framed) {
      frameSelected(stage.nmcd.hdc, static_cast<int>(row));
    }
  }
  return CDRF_DODEFAULT;
}

void ListViewPeer::frameSelected(HDC dc, int row) const {
  RECT label{};
  RECT whole{};
  if (ListView_GetItemRect(window(), row, &label, LVIR_LABEL) == 0 ||
      ListView_GetItemRect(window(), row, &whole, LVIR_BOUNDS) == 0) {
    return;
  }
  if (report()) {
    label.right = whole.right;
  }
  // On some systems the selection colour without the focus is hardly visible. A frame in the
  // selection colour with the focus always is.
  FrameRect(dc, &label, GetSysColorBrush(COLOR_HIGHLIGHT));
}

void ListViewPeer::drawMark(HDC dc, int row) {
  // A part of the small picture, and a smaller part of the large one.
  constexpr int onSmall = 9;
  constexpr int onLarge = 14;
  const int side = scaled(report() ? onSmall : onLarge, host().dpi());
  if (!mark_ || markSide_ != side) {
    mark_ = loadIcon(L"MISSING", {side, side});
    markSide_ = side;
  }
  RECT icon{};
  if (!mark_ || ListView_GetItemRect(window(), row, &icon, LVIR_ICON) == 0) {
    return;
  }
  // The rectangle of a large picture is wider than the picture.
  const int picture = scaled(report() ? 16 : 32, host().dpi());
  const auto space = std::max(0L, icon.right - icon.left - picture);
  const auto spaceBelow = std::max(0L, icon.bottom - icon.top - picture);
  const auto left = static_cast<int>(report() ? icon.left : icon.left + space / 2);
  const auto bottom = static_cast<int>(icon.bottom - spaceBelow / 2);
  DrawIconEx(dc, left, bottom - side, mark_.get(), side, side, 0, nullptr, DI_NORMAL);
}

void ListViewPeer::drawEmptyText() const {
  const std::wstring& text = list_.emptyText();
  if (list_.rows() > 0 || text.empty()) {
    return;
  }
  RECT area = itemArea();
  InflateRect(&area, -scaled(16, host().dpi()), 0);
  const WindowDc dc(window());
  if (!dc || area.right <= area.left) {
    return;
  }
  const Selection selected(dc.get(), font());
  SetTextColor(dc.get(), GetSysColor(COLOR_GRAYTEXT));
  SetBkColor(dc.get(), GetSysColor(COLOR_WINDOW));
  const auto length = static_cast<int>(text.size());
  constexpr UINT style = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX;
  RECT extent = area;
  DrawTextW(dc.get(), text.c_str(), length, &extent, style | DT_CALCRECT);
  area.top += std::max(0L, (area.bottom - area.top - (extent.bottom - extent.top)) / 2);
  DrawTextW(dc.get(), text.c_str(), length, &area, style);
}

void ListViewPeer::showTip(POINT point) {
  if (!list_.remark) {
    return;
  }
  LVHITTESTINFO spot{};
  spot.pt = point;
  const int row = ListView_HitTest(window(), &spot);
  std::wstring tip = row < 0 ? std::wstring() : list_.remarkOn(static_cast<std::size_t>(row));
  if (tip != tip_) {
    tip_ = std::move(tip);
    host().setToolTip(window(), tip_);
    // So that the tip counts from this movement on, the system's tips have to see it.
    PostMessageW(window(), WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
  }
}

void ListViewPeer::describeRows() {
  if (!descriptions_.isWanted()) {
    return;
  }
  std::map<int, std::wstring> texts;
  const controls::RowRange rows = list_.rowsInView();
  for (std::size_t row = rows.first; row < rows.first + rows.count; ++row) {
    if (std::wstring remark = list_.remarkOn(row); !remark.empty()) {
      texts.emplace(static_cast<int>(row) + 1, std::move(remark));  // children count from 1
    }
  }
  descriptions_.set(std::move(texts));
}

void ListViewPeer::noteScrolling() {
  if (const controls::RowRange rows = rowsInView(); rows != lastRows_) {
    lastRows_ = rows;
    describeRows();
    list_.fireScroll();
  }
}

}  // namespace platform::win32
