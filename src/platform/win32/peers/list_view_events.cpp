// Requests and notifications of the native list.
#include <windowsx.h>

#include <algorithm>

#include "platform/geometry.h"
#include "platform/subclass.h"
#include "platform/win32/keyboard.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/list_view_peer.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

namespace {

/// Posted to show the selection again after the native list has finished changing it.
constexpr UINT selectionMessage = WM_APP + 3;

/// The new width in pixels of a header column; nothing when another property changes.
std::optional<int> newWidth(const NMHEADERW& notice) {
  if (notice.pitem == nullptr || (notice.pitem->mask & HDI_WIDTH) == 0) {
    return std::nullopt;
  }
  return notice.pitem->cxy;
}

}  // namespace

std::optional<LRESULT> ListViewPeer::notification(NMHDR& header) {
  if (header.hwndFrom != window() || detached()) {
    return std::nullopt;
  }
  switch (static_cast<int>(header.code)) {
    case static_cast<int>(LVN_GETDISPINFOW):
      supply(reinterpret_cast<NMLVDISPINFOW&>(header).item);
      return 0;
    case static_cast<int>(LVN_ITEMCHANGED):
      accept(reinterpret_cast<const NMLISTVIEW&>(header));
      return 0;
    case static_cast<int>(LVN_ODFINDITEMW):
      return search(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case static_cast<int>(LVN_COLUMNCLICK):
      list_.fireColumnClick(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem + 1);
      return 0;
    case static_cast<int>(LVN_KEYDOWN):
      list_.fireKey(strokeOf(reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey));
      return 0;
    case static_cast<int>(NM_CLICK):
    case static_cast<int>(NM_RCLICK):
      showSelection();
      if (reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0) {
        // A click on the item that is already selected is a choice too.
        list_.adoptSelection();
      }
      return 0;
    case static_cast<int>(NM_DBLCLK):
      // Wherever the click was, it acts on the selected item.
      showSelection();
      list_.fireDoubleClick();
      return 0;
    case static_cast<int>(NM_RETURN):
      list_.fireDoubleClick();
      return 0;
    case static_cast<int>(NM_CUSTOMDRAW):
      return markUnfocused(reinterpret_cast<const NMLVCUSTOMDRAW&>(header));
    default:
      return std::nullopt;
  }
}

void ListViewPeer::supply(LVITEMW& item) const {
  const auto index = static_cast<std::size_t>(item.iItem);
  // While the list is refilled, the native count may still be the old one.
  const bool known = item.iItem >= 0 && index < list_.count();
  if ((item.mask & LVIF_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0) {
    const auto column = static_cast<std::size_t>(std::max(item.iSubItem, 0));
    std::size_t length = 0;
    if (known) {
      const std::wstring_view text = list_.cell(index, column);
      length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
      std::copy_n(text.begin(), length, item.pszText);
    }
    item.pszText[length] = L'\0';
  }
  if ((item.mask & LVIF_IMAGE) != 0) {
    constexpr int noPicture = -1;
    const ImageCache& images = report() ? small_ : large_;
    item.iImage =
        known && item.iSubItem == 0 ? images.indexOf(list_.icon(index), noPicture) : noPicture;
  }
  if ((item.mask & LVIF_INDENT) != 0) {
    item.iIndent = 0;
  }
}

void ListViewPeer::accept(const NMLISTVIEW& change) {
  if (showing_ || (change.uChanged & LVIF_STATE) == 0) {
    return;
  }
  const UINT gained = change.uNewState & ~change.uOldState;
  const UINT lost = change.uOldState & ~change.uNewState;
  if (change.iItem >= 0 && static_cast<std::size_t>(change.iItem) < list_.count()) {
    const auto index = static_cast<std::size_t>(change.iItem);
    if ((gained & LVIS_SELECTED) != 0) {
      list_.acceptSelection(index);
    } else if ((gained & LVIS_FOCUSED) != 0) {
      list_.acceptFocus(index);
    }
  }
  if ((lost & LVIS_SELECTED) != 0) {
    // If no other item is selected at once, the item stays selected: only the program removes the
    // selection.
    PostMessageW(window(), selectionMessage, 0, 0);
  }
}

LRESULT ListViewPeer::search(const NMLVFINDITEMW& request) const {
  constexpr LRESULT notFound = -1;
  const bool text = (request.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) != 0;
  if (!text || request.lvfi.psz == nullptr || list_.count() == 0) {
    return notFound;
  }
  const std::size_t from = static_cast<std::size_t>(std::max(request.iStart, 0)) % list_.count();
  const auto found = list_.find(request.lvfi.psz, from);
  return found ? static_cast<LRESULT>(*found) : notFound;
}

LRESULT ListViewPeer::markUnfocused(const NMLVCUSTOMDRAW& stage) const {
  if (GetFocus() == window()) {
    return CDRF_DODEFAULT;
  }
  if (stage.nmcd.dwDrawStage == CDDS_PREPAINT) {
    return CDRF_NOTIFYITEMDRAW;
  }
  const auto item = static_cast<std::size_t>(stage.nmcd.dwItemSpec);
  if (list_.selected() != item) {
    return CDRF_DODEFAULT;
  }
  if (stage.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
    return CDRF_NOTIFYPOSTPAINT;
  }
  RECT label{};
  RECT whole{};
  const int row = static_cast<int>(item);
  if (stage.nmcd.dwDrawStage == CDDS_ITEMPOSTPAINT &&
      ListView_GetItemRect(window(), row, &label, LVIR_LABEL) != 0 &&
      ListView_GetItemRect(window(), row, &whole, LVIR_BOUNDS) != 0) {
    if (report()) {
      label.right = whole.right;
    }
    // On some systems the selection colour without the focus is hardly visible. A frame in the
    // selection colour with the focus always is.
    FrameRect(stage.nmcd.hdc, &label, GetSysColorBrush(COLOR_HIGHLIGHT));
  }
  return CDRF_DODEFAULT;
}

std::optional<LRESULT> ListViewPeer::message(UINT message, WPARAM first, LPARAM second) {
  if (message == selectionMessage) {
    showSelection();
    return 0;
  }
  if (message == WM_CONTEXTMENU) {
    return contextMenu(second);
  }
  if (message == WM_SYSCOLORCHANGE) {
    // After the native list has taken over what it takes over itself.
    const LRESULT result = subclass::passOn(handleFrom(window()), message, first, second);
    takeColours();
    return result;
  }
  if (message != WM_NOTIFY) {
    return std::nullopt;
  }
  const auto& notice = *pointerFrom<const NMHEADERW>(second);
  return notice.hdr.hwndFrom == header() ? headerNotification(notice) : std::nullopt;
}

std::optional<LRESULT> ListViewPeer::headerNotification(const NMHEADERW& notice) {
  // Only the codes below guarantee more than the common header.
  switch (static_cast<int>(notice.hdr.code)) {
    case static_cast<int>(HDN_BEGINTRACKA):
    case static_cast<int>(HDN_BEGINTRACKW):
    case static_cast<int>(HDN_DIVIDERDBLCLICKA):
    case static_cast<int>(HDN_DIVIDERDBLCLICKW):
      return hiddenColumn(notice.iItem) ? std::optional<LRESULT>(TRUE) : std::nullopt;
    case static_cast<int>(HDN_ITEMCHANGINGA):
    case static_cast<int>(HDN_ITEMCHANGINGW):
      // The key that fits all columns to their contents does not go through the drag notifications.
      return hiddenColumn(notice.iItem) && newWidth(notice).value_or(0) != 0
                 ? std::optional<LRESULT>(TRUE)
                 : std::nullopt;
    case static_cast<int>(HDN_ITEMCHANGEDA):
    case static_cast<int>(HDN_ITEMCHANGEDW):
      if (const auto width = newWidth(notice); width && !showing_) {
        acceptWidth(notice.iItem, *width);
      }
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

LRESULT ListViewPeer::contextMenu(LPARAM where) {
  POINT point{GET_X_LPARAM(where), GET_Y_LPARAM(where)};
  RECT header{};
  if (where == -1) {
    // Requested by key: the menu opens below the selected item.
    point = {0, 0};
    RECT item{};
    const auto selected = list_.selected();
    if (selected &&
        ListView_GetItemRect(window(), static_cast<int>(*selected), &item, LVIR_LABEL) != 0) {
      RECT client{};
      GetClientRect(window(), &client);
      point = {std::clamp(item.left, client.left, client.right),
               std::clamp(item.bottom, client.top, client.bottom)};
    }
    ClientToScreen(window(), &point);
  } else if (this->header() != nullptr && IsWindowVisible(this->header()) != 0 &&
             GetWindowRect(this->header(), &header) != 0 && PtInRect(&header, point) != 0) {
    // A click on the headers is not for the list's menu.
    return 0;
  }
  list_.fireContextMenu(static_cast<int>(point.x), static_cast<int>(point.y));
  return 0;
}

void ListViewPeer::acceptWidth(int column, int pixels) {
  if (column >= 0 && static_cast<std::size_t>(column) < list_.columns().size() &&
      !hiddenColumn(column)) {
    // A column that the user drags to width 0 keeps one pixel, so that it can be widened again.
    list_.acceptColumnWidth(static_cast<std::size_t>(column),
                            MulDiv(std::max(pixels, 1), twipsPerInch, host().dpi()));
  }
}

}  // namespace platform::win32
