// Requests and notifications of the native list.
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/geometry.h"
#include "platform/subclass.h"
#include "platform/win32/keyboard.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/list_view_peer.h"
#include "platform/win32/peers/own_messages.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

namespace {

/// Ends when the click on a name was not the first of a double-click. The native list's own timers
/// have small numbers.
constexpr UINT_PTR clickTimer = 0x51C;

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
      if (static_cast<int>(header.code) == static_cast<int>(NM_CLICK)) {
        awaitSecondClick(reinterpret_cast<const NMITEMACTIVATE&>(header).ptAction);
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
    case static_cast<int>(LVN_BEGINDRAG):
      dragSelected();
      return 0;
    case static_cast<int>(NM_CUSTOMDRAW):
      return customDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    default:
      return std::nullopt;
  }
}

void ListViewPeer::supply(LVITEMW& item) const {
  const auto index = static_cast<std::size_t>(item.iItem);
  // While the list is refilled, the native count may still be the old one.
  const bool known = item.iItem >= 0 && index < list_.rows();
  if ((item.mask & LVIF_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0) {
    const auto column = static_cast<std::size_t>(std::max(item.iSubItem, 0));
    std::size_t length = 0;
    if (known) {
      const std::wstring_view text = list_.rowCell(index, column);
      length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
      std::copy_n(text.begin(), length, item.pszText);
    }
    item.pszText[length] = L'\0';
  }
  if ((item.mask & LVIF_IMAGE) != 0) {
    constexpr int noPicture = -1;
    const ImageCache& images = report() ? small_ : large_;
    item.iImage =
        known && item.iSubItem == 0 ? images.indexOf(list_.rowIcon(index), noPicture) : noPicture;
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
  if (change.iItem >= 0 && static_cast<std::size_t>(change.iItem) < list_.rows()) {
    const auto index = static_cast<std::size_t>(change.iItem);
    if ((gained & LVIS_SELECTED) != 0) {
      list_.acceptSelectedRow(index);
    } else if ((gained & LVIS_FOCUSED) != 0) {
      list_.acceptFocusedRow(index);
    }
  }
  if ((lost & LVIS_SELECTED) != 0) {
    // If no other item is selected at once, the item stays selected: only the program removes the
    // selection.
    PostMessageW(window(), own_message::selection, 0, 0);
  }
}

LRESULT ListViewPeer::search(const NMLVFINDITEMW& request) const {
  constexpr LRESULT notFound = -1;
  const bool text = (request.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) != 0;
  if (!text || request.lvfi.psz == nullptr || list_.rows() == 0) {
    return notFound;
  }
  const std::size_t from = static_cast<std::size_t>(std::max(request.iStart, 0)) % list_.rows();
  const auto found = list_.findRow(request.lvfi.psz, from);
  return found ? static_cast<LRESULT>(*found) : notFound;
}

std::optional<LRESULT> ListViewPeer::message(UINT message, WPARAM first, LPARAM second) {
  if (message == own_message::selection) {
    showSelection();
    return 0;
  }
  if (message == own_message::dropped) {
    takeDropped();
    return 0;
  }
  if (message == own_message::nameDone) {
    if (editor_) {
      list_.fireNameTyped(editor_->result());
    }
    return 0;
  }
  if (editor_ && leavesEditor(message)) {
    editor_->confirm();
  }
  switch (message) {
    case WM_CONTEXTMENU:
      return contextMenu(second);
    case WM_LBUTTONDOWN:
      forgetClick();
      clicked_ = GetFocus() == window() && nameAt({GET_X_LPARAM(second), GET_Y_LPARAM(second)}) &&
                 (first & (MK_CONTROL | MK_SHIFT)) == 0;
      return std::nullopt;
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_KEYDOWN:
    case WM_KILLFOCUS:
      forgetClick();
      return std::nullopt;
    case WM_TIMER:
      if (first != clickTimer) {
        return std::nullopt;
      }
      forgetClick();
      list_.fireNameClick();
      return 0;
    case WM_MOUSEMOVE:
      showTip({GET_X_LPARAM(second), GET_Y_LPARAM(second)});
      return std::nullopt;
    case WM_GETOBJECT:
      descriptions_.wanted(window());
      describeRows();
      return std::nullopt;
    case WM_PAINT: {
      const LRESULT result = subclass::passOn(handleFrom(window()), message, first, second);
      if (!detached()) {
        drawEmptyText();
      }
      return result;
    }
    default:
      break;
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
      return hiddenColumn(notice.iItem) ? std::optional<LRESULT>(TRUE) : std::nullopt;
    case static_cast<int>(HDN_DIVIDERDBLCLICKA):
    case static_cast<int>(HDN_DIVIDERDBLCLICKW):
      // The native list would measure only the rows in view.
      if (notice.iItem >= 0 && !hiddenColumn(notice.iItem)) {
        list_.fireFitColumn(static_cast<std::size_t>(notice.iItem));
      }
      return TRUE;
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

bool ListViewPeer::nameAt(POINT point) const {
  LVHITTESTINFO spot{};
  spot.pt = point;
  const auto row = ListView_SubItemHitTest(window(), &spot);
  return row >= 0 && (spot.flags & LVHT_ONITEMLABEL) != 0 && spot.iSubItem == 0 &&
         list_.selectedRow() == static_cast<std::size_t>(row);
}

void ListViewPeer::awaitSecondClick(POINT point) {
  if (std::exchange(clicked_, false) && nameAt(point)) {
    SetTimer(window(), clickTimer, GetDoubleClickTime(), nullptr);
  }
}

void ListViewPeer::forgetClick() {
  clicked_ = false;
  KillTimer(window(), clickTimer);
}

bool ListViewPeer::leavesEditor(UINT message) {
  return message == WM_VSCROLL || message == WM_HSCROLL || message == WM_MOUSEWHEEL ||
         message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN;
}

void ListViewPeer::showEditor() {
  forgetClick();
  editor_.reset();
  changeStyle(WS_CLIPCHILDREN, 0);
  if (const auto& wanted = list_.nameEditor()) {
    if (const auto row = list_.rowOf(list_.find(wanted->item))) {
      send(LVM_ENSUREVISIBLE, *row, FALSE);
    }
    changeStyle(0, WS_CLIPCHILDREN);
    editor_ = std::make_unique<NameEditor>(window(), font(), wanted->text, wanted->stem);
    placeEditor();
    editor_->show();
  }
}

void ListViewPeer::placeEditor() {
  if (!editor_ || !list_.nameEditor()) {
    return;
  }
  const auto row = list_.rowOf(list_.find(list_.nameEditor()->item));
  RECT label{};
  if (row && ListView_GetItemRect(window(), static_cast<int>(*row), &label, LVIR_LABEL) != 0) {
    editor_->place(label, host().dpi(), report());
  }
}

void ListViewPeer::openForDrops() {
  drop_ = std::make_unique<DropPlace>(
      window(), DropPlace::Owner{.takes =
                                     [this](const clipboard::Content& content) {
                                       return !detached() && list_.fireTakes(content);
                                     },
                                 .dropped =
                                     [this](clipboard::Content content) {
                                       dropped_.push_back(std::move(content));
                                       PostMessageW(window(), own_message::dropped, 0, 0);
                                     }});
}

void ListViewPeer::takeDropped() {
  for (const clipboard::Content& content : std::exchange(dropped_, {})) {
    if (!detached()) {
      list_.fireDropped(content);
    }
  }
}

void ListViewPeer::dragSelected() {
  showSelection();
  if (const clipboard::Content content = list_.fireDragged(); content != clipboard::Content()) {
    forgetClick();
    dragOut(content);
  }
}

LRESULT ListViewPeer::contextMenu(LPARAM where) {
  POINT point{GET_X_LPARAM(where), GET_Y_LPARAM(where)};
  RECT header{};
  if (where == -1) {
    // Requested by key: the menu opens below the selected item.
    point = {0, 0};
    RECT item{};
    const auto selected = list_.selectedRow();
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
