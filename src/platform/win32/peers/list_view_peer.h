// Native list views.
#pragma once

#include <cstddef>
#include <optional>

#include "platform/controls/list_view.h"
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
  [[nodiscard]] LRESULT markUnfocused(const NMLVCUSTOMDRAW& stage) const;
  [[nodiscard]] bool report() const;
  [[nodiscard]] bool hiddenColumn(int index) const;
  [[nodiscard]] int columnWidth(std::size_t index) const;
  [[nodiscard]] int selectedNatively() const;
  [[nodiscard]] int rowHeight() const;
  /// Repaints all items.
  void repaintItems() const;
  /// All texts and icons of the visible rows, in report view.
  [[nodiscard]] std::wstring inView() const;
  [[nodiscard]] HWND header() const;

  controls::ListView& list_;
  ImageCache large_;
  ImageCache small_;
  std::wstring lastInView_;
  int shownColumns_ = 0;
  bool showing_ = false;  // the program changes the native list: ignore notifications
};

}  // namespace platform::win32
