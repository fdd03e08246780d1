// Native list views.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/list_view.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/peers/dragging.h"
#include "platform/win32/peers/name_editor.h"
#include "platform/win32/peers/native_control.h"
#include "platform/win32/pictures/image_resources.h"

namespace platform::win32 {

/// A native list without items of its own: it asks the list object for the rows that it paints. A
/// list of any size therefore costs the native control no memory and no time per item (row
/// `load.100k.textbook` of ./bench, on Windows and under Wine alike).
class ListViewPeer final : public controls::ListViewPeer, public NativeControl {
 public:
  ListViewPeer(WindowPeer& host, controls::ListView& list);
  void changed(controls::Change change) override;
  void orphaned() override { loseControl(); }
  [[nodiscard]] std::size_t topIndex() const override;
  void scrollTo(std::size_t index) override;
  [[nodiscard]] controls::RowRange rowsInView() const override;
  std::optional<LRESULT> notification(NMHDR& header) override;
  void refresh() override;

 protected:
  std::optional<LRESULT> message(UINT message, WPARAM first, LPARAM second) override;
  [[nodiscard]] std::wstring nativeText() const override;

 private:
  void takeColours();
  /// Shows changed pictures.
  void takeImages();
  void spaceIcons();
  void showView();
  void arrangeIcons() const;
  void showColumns();
  void showItems();
  void showSelection();
  void showSorting();
  void supply(LVITEMW& item) const;
  void accept(const NMLISTVIEW& change);
  [[nodiscard]] LRESULT search(const NMLVFINDITEMW& request) const;
  std::optional<LRESULT> headerNotification(const NMHEADERW& notice);
  void acceptWidth(int column, int pixels);
  LRESULT contextMenu(LPARAM where);
  /// A click on the selected name may be the first of a double-click, so the list waits a moment.
  void awaitSecondClick(POINT point);
  void forgetClick();
  /// Whether a point is on the name of the selected row.
  [[nodiscard]] bool nameAt(POINT point) const;
  /// Lets other programs drop things on the list.
  void openForDrops();
  void takeDropped();
  void dragSelected();
  /// Shows or closes the editor of a name.
  void showEditor();
  void placeEditor();
  /// Whether a message means that the user has turned to something else than the editor.
  [[nodiscard]] static bool leavesEditor(UINT message);

  // list_view_drawing.cpp
  [[nodiscard]] LRESULT customDraw(NMLVCUSTOMDRAW& stage);
  [[nodiscard]] LRESULT drawRow(NMLVCUSTOMDRAW& stage);
  void drawMark(HDC dc, int row);
  void frameSelected(HDC dc, int row) const;
  void drawEmptyText() const;
  /// The tool tip of the row at a point of the list.
  void showTip(POINT point);
  /// Tells whoever reads the screen aloud the remarks of the rows in view.
  void describeRows();
  void noteScrolling();

  [[nodiscard]] bool report() const;
  [[nodiscard]] bool hiddenColumn(int index) const;
  [[nodiscard]] int columnWidth(std::size_t index) const;
  [[nodiscard]] int selectedNatively() const;
  [[nodiscard]] int rowHeight() const;
  /// The client area without the headers.
  [[nodiscard]] RECT itemArea() const;
  /// Repaints all items.
  void repaintItems() const;
  /// All texts and icons of the visible rows, in report view.
  [[nodiscard]] std::wstring inView() const;
  [[nodiscard]] HWND header() const;

  controls::ListView& list_;
  ImageCache large_;
  ImageCache small_;
  std::wstring lastInView_;
  controls::RowRange lastRows_;
  std::wstring tip_;
  Icon mark_;
  int markSide_ = 0;
  AccessibleDescriptions descriptions_;
  std::unique_ptr<NameEditor> editor_;
  std::unique_ptr<DropPlace> drop_;
  std::vector<clipboard::Content> dropped_;  // not yet given to the list
  bool clicked_ = false;                     // the button went down on the selected name
  int shownColumns_ = 0;
  bool showing_ = false;  // the program changes the native list: ignore notifications
};

}  // namespace platform::win32
