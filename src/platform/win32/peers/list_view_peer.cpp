#include "platform/win32/peers/list_view_peer.h"

#include <algorithm>
#include <bit>
#include <string>
#include <utility>

#include "platform/geometry.h"
#include "platform/win32/dpi.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

using controls::Change;

namespace {

/// Item number that means "all items" or "none" in the native list's messages.
constexpr WPARAM allItems = static_cast<WPARAM>(-1);

}  // namespace

ListViewPeer::ListViewPeer(WindowPeer& host, controls::ListView& list)
    : NativeControl(host, list), list_(list) {
  create(WC_LISTVIEWW,
         WS_TABSTOP | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS |
             LVS_AUTOARRANGE | (report() ? LVS_REPORT : LVS_ICON) |
             (list.headersHidden() ? LVS_NOCOLUMNHEADER : 0U),
         WS_EX_CLIENTEDGE);
  constexpr DWORD look = LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP;
  send(LVM_SETEXTENDEDLISTVIEWSTYLE, look, look);
  takeColours();
  takeImages();
  spaceIcons();
  showColumns();
  showItems();
  showSorting();
  watchMessages();
  openForDrops();
  list_.attach(this);
}

std::wstring ListViewPeer::nativeText() const { return list_.accessibleName(); }

bool ListViewPeer::report() const { return list_.view() == controls::reportView; }

HWND ListViewPeer::header() const { return std::bit_cast<HWND>(send(LVM_GETHEADER)); }

void ListViewPeer::changed(Change change) {
  switch (change) {
    case Change::items:
      takeImages();
      showItems();
      break;
    case Change::selection:
      showSelection();
      if (const auto index = list_.selectedRow()) {
        send(LVM_ENSUREVISIBLE, *index, FALSE);
      }
      break;
    case Change::view:
      showView();
      break;
    case Change::columns:
      showColumns();
      break;
    case Change::sorting:
      showSorting();
      break;
    case Change::images:
      takeImages();
      break;
    case Change::remarks:
      describeRows();
      InvalidateRect(window(), nullptr, list_.rows() == 0 ? TRUE : FALSE);
      break;
    case Change::editor:
      showEditor();
      break;
    default:
      mirror(change);
      break;
  }
}

void ListViewPeer::refresh() {
  NativeControl::refresh();
  takeImages();
  spaceIcons();
  showColumns();
}

void ListViewPeer::takeImages() {
  const bool large = large_.refresh(list_.largeImages(), host().dpi(), [this](HIMAGELIST images) {
    send(LVM_SETIMAGELIST, LVSIL_NORMAL, parameterFrom(images));
    // The system resets the spacing with every image list.
    spaceIcons();
  });
  const bool small = small_.refresh(list_.smallImages(), host().dpi(), [this](HIMAGELIST images) {
    send(LVM_SETIMAGELIST, LVSIL_SMALL, parameterFrom(images));
  });
  if (large || small) {
    repaintItems();
  }
}

void ListViewPeer::spaceIcons() {
  // Wide enough for two lines of the longest name of a new-file item.
  constexpr Size least{112, 84};
  const int dpi = host().dpi();
  send(LVM_SETICONSPACING, 0,
       MAKELPARAM(std::max(systemMetric(SM_CXICONSPACING, dpi), scaled(least.width, dpi)),
                  std::max(systemMetric(SM_CYICONSPACING, dpi), scaled(least.height, dpi))));
}

void ListViewPeer::takeColours() {
  // The native list follows the system's text colour, but not its background colour.
  const COLORREF background = GetSysColor(COLOR_WINDOW);
  send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(background));
  send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(background));
  send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOWTEXT)));
}

void ListViewPeer::showView() {
  send(LVM_SETVIEW, static_cast<WPARAM>(report() ? LV_VIEW_DETAILS : LV_VIEW_ICON));
  if (report()) {
    // In icon view the native list refuses column widths, so they are set again.
    showColumns();
  } else {
    // The native list has spaced the icons like the rows.
    arrangeIcons();
  }
  if (const auto index = list_.focusedRow()) {
    send(LVM_ENSUREVISIBLE, *index, FALSE);
  }
}

void ListViewPeer::arrangeIcons() const {
  // Each icon that moves would be marked for painting by itself: hundreds of calls. A hidden list
  // must not be told to draw, because that shows it.
  const bool shown = (GetWindowLongPtrW(window(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (shown) {
    send(WM_SETREDRAW, FALSE);
  }
  send(LVM_ARRANGE, LVA_DEFAULT);
  // Not every system updates the scroll range when icons move, but all do when the count is set.
  send(LVM_SETITEMCOUNT, static_cast<WPARAM>(list_.rows()), LVSICF_NOINVALIDATEALL);
  if (shown) {
    send(WM_SETREDRAW, TRUE);
  }
}

int ListViewPeer::columnWidth(std::size_t index) const {
  return twipsToPixels(list_.columns()[index].widthTwips, host().dpi());
}

void ListViewPeer::showColumns() {
  changeStyle(LVS_NOCOLUMNHEADER, list_.headersHidden() ? LVS_NOCOLUMNHEADER : 0U);
  showing_ = true;
  for (int column = 0; column < shownColumns_; ++column) {
    const int width = columnWidth(static_cast<std::size_t>(column));
    if (width != static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)))) {
      send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
    }
  }
  const int count = static_cast<int>(list_.columns().size());
  for (; shownColumns_ < count; ++shownColumns_) {
    const auto index = static_cast<std::size_t>(shownColumns_);
    std::wstring text = list_.columns()[index].text;
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    column.fmt = LVCFMT_LEFT;
    column.cx = columnWidth(index);
    column.pszText = text.data();
    column.iSubItem = shownColumns_;
    send(LVM_INSERTCOLUMNW, index, parameterFrom(&column));
  }
  showing_ = false;
}

void ListViewPeer::showItems() {
  const int count = static_cast<int>(list_.rows());
  const std::size_t top = topIndex();
  POINT origin{};
  send(LVM_GETORIGIN, 0, parameterFrom(&origin));
  // Most reloads do not change the count. Setting it makes the native list measure itself and paint
  // its scroll bars, so it is set only when it changes. Row `open.tool` of ./bench includes this: a
  // tool that starts waits for what the program does meanwhile.
  if (count != static_cast<int>(send(LVM_GETITEMCOUNT))) {
    showing_ = true;
    // Without these flags the native list would scroll to the top and erase itself first.
    send(LVM_SETITEMCOUNT, static_cast<WPARAM>(count),
         LVSICF_NOINVALIDATEALL | (report() ? LVSICF_NOSCROLL : 0));
    if (!report()) {
      // The native list does not position new icons itself.
      arrangeIcons();
    }
    showing_ = false;
  }
  showSelection();
  // Neither a new count nor a moved focus mark may scroll the list.
  if (report()) {
    scrollTo(top);
  } else {
    POINT moved{};
    send(LVM_GETORIGIN, 0, parameterFrom(&moved));
    if (moved.y != origin.y) {
      send(LVM_SCROLL, 0, origin.y - moved.y);
    }
  }
  std::wstring now = inView();
  if (!report() || now != lastInView_) {
    repaintItems();
  }
  lastInView_ = std::move(now);
  describeRows();
  placeEditor();
}

RECT ListViewPeer::itemArea() const {
  RECT area{};
  GetClientRect(window(), &area);
  RECT headers{};
  if (HWND const headerWindow = header(); headerWindow != nullptr && report() &&
                                          IsWindowVisible(headerWindow) != 0 &&
                                          GetClientRect(headerWindow, &headers) != 0) {
    area.top = headers.bottom;
  }
  return area;
}

void ListViewPeer::repaintItems() const {
  // Otherwise the headers would be painted too, although they have not changed.
  const RECT area = itemArea();
  InvalidateRect(window(), &area, FALSE);
}

std::wstring ListViewPeer::inView() const {
  std::wstring all;
  if (!report()) {
    return all;
  }
  const std::size_t top = topIndex();
  // The last row may be partly visible.
  const auto rows = static_cast<std::size_t>(send(LVM_GETCOUNTPERPAGE)) + 1;
  all = std::to_wstring(top);
  if (list_.rows() == 0) {
    all += list_.emptyText();
  }
  for (std::size_t index = top; index < std::min(list_.rows(), top + rows); ++index) {
    all += L'\0' + list_.rowIcon(index);
    for (std::size_t column = 0; column < list_.columns().size(); ++column) {
      all += L'\0';
      all += list_.rowCell(index, column);
    }
  }
  return all;
}

int ListViewPeer::selectedNatively() const {
  return static_cast<int>(send(LVM_GETNEXTITEM, allItems, LVNI_SELECTED));
}

void ListViewPeer::showSelection() {
  const auto selected = list_.selectedRow();
  const auto focused = list_.focusedRow();
  const auto set = [this](WPARAM item, UINT state) {
    LVITEMW change{};
    change.state = state;
    change.stateMask = state;
    send(LVM_SETITEMSTATE, item, parameterFrom(&change));
  };
  showing_ = true;
  if (const int native = selectedNatively();
      native >= 0 && (!selected || static_cast<std::size_t>(native) != *selected)) {
    LVITEMW change{};
    change.stateMask = LVIS_SELECTED;
    // Not all items: under Wine that goes through each of them.
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(native), parameterFrom(&change));
  }
  if (focused && static_cast<int>(*focused) !=
                     static_cast<int>(send(LVM_GETNEXTITEM, allItems, LVNI_FOCUSED))) {
    set(*focused, LVIS_FOCUSED);
  }
  if (selected && static_cast<int>(*selected) != selectedNatively()) {
    set(*selected, LVIS_SELECTED);
  }
  showing_ = false;
}

void ListViewPeer::showSorting() {
  const int count = static_cast<int>(send(LVM_GETHEADER) == 0 ? 0 : shownColumns_);
  for (int column = 0; column < count; ++column) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    const auto index = static_cast<WPARAM>(column);
    if (SendMessageW(header(), HDM_GETITEMW, index, parameterFrom(&item)) == 0) {
      continue;
    }
    const int shown = item.fmt;
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (list_.ranking()) {
      item.fmt |= list_.ranking()->column == index ? HDF_SORTDOWN : 0;
    } else if (list_.sorted() && list_.sortKey() == column) {
      item.fmt |= list_.sortOrder() == controls::ascending ? HDF_SORTUP : HDF_SORTDOWN;
    }
    if (item.fmt == shown) {
      continue;  // setting a header item makes it paint
    }
    SendMessageW(header(), HDM_SETITEMW, index, parameterFrom(&item));
  }
}

int ListViewPeer::rowHeight() const {
  RECT row{};
  row.left = LVIR_BOUNDS;
  return list_.rows() > 0 && send(LVM_GETITEMRECT, 0, parameterFrom(&row)) != 0
             ? static_cast<int>(row.bottom - row.top)
             : 0;
}

std::size_t ListViewPeer::topIndex() const {
  if (report()) {
    return static_cast<std::size_t>(send(LVM_GETTOPINDEX));
  }
  // The icon view scrolls by pixels and has no first item; the one in the corner is used.
  LVHITTESTINFO spot{};
  RECT first{};
  first.left = LVIR_BOUNDS;
  if (list_.rows() == 0 || send(LVM_GETITEMRECT, 0, parameterFrom(&first)) == 0) {
    return 0;
  }
  spot.pt = {(first.left + first.right) / 2, (first.bottom - first.top) / 2};
  return static_cast<std::size_t>(
      std::max<LRESULT>(0, send(LVM_HITTEST, allItems, parameterFrom(&spot))));
}

controls::RowRange ListViewPeer::rowsInView() const {
  const std::size_t all = list_.rows();
  const std::size_t first = std::min(topIndex(), all);
  if (report()) {
    // The last one may be visible in part.
    const auto whole = static_cast<std::size_t>(send(LVM_GETCOUNTPERPAGE));
    return {first, std::min(all - first, whole + 1)};
  }
  RECT area{};
  GetClientRect(window(), &area);
  std::size_t end = first;
  for (; end < all; ++end) {
    RECT icon{};
    icon.left = LVIR_BOUNDS;
    if (send(LVM_GETITEMRECT, end, parameterFrom(&icon)) == 0 || icon.top >= area.bottom) {
      break;
    }
  }
  return {first, end - first};
}

void ListViewPeer::scrollTo(std::size_t index) {
  if (index >= list_.rows()) {
    return;
  }
  if (report()) {
    const auto distance =
        static_cast<std::ptrdiff_t>(index) - static_cast<std::ptrdiff_t>(topIndex());
    if (distance != 0) {
      send(LVM_SCROLL, 0, static_cast<LPARAM>(distance) * rowHeight());
    }
    return;
  }
  RECT first{};
  RECT wanted{};
  first.left = LVIR_BOUNDS;
  wanted.left = LVIR_BOUNDS;
  if (const std::size_t top = topIndex();
      top < list_.rows() && send(LVM_GETITEMRECT, top, parameterFrom(&first)) != 0 &&
      send(LVM_GETITEMRECT, index, parameterFrom(&wanted)) != 0 && wanted.top != first.top) {
    send(LVM_SCROLL, 0, wanted.top - first.top);
  }
}

bool ListViewPeer::hiddenColumn(int index) const {
  const auto& columns = list_.columns();
  return index >= 0 && static_cast<std::size_t>(index) < columns.size() &&
         columns[static_cast<std::size_t>(index)].widthTwips == 0;
}

}  // namespace platform::win32
