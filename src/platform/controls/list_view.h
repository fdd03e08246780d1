// A list view: the object owns columns, items, order and selection; a native peer only asks for
// the rows that it paints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/image_list.h"
#include "platform/controls/item_key.h"
#include "platform/controls/key_stroke.h"
#include "platform/controls/text_store.h"

namespace controls {

/// View modes, as the list view numbers them.
inline constexpr int iconView = 0;
inline constexpr int reportView = 3;

/// Sort orders, as the list view numbers them.
inline constexpr int ascending = 0;
inline constexpr int descending = 1;

/// Native side of a list view, with what only it can know.
class ListViewPeer : public Peer {
 public:
  /// Displayed index of the first row that is in view.
  [[nodiscard]] virtual std::size_t topIndex() const = 0;
  /// Scrolls so that the row `index` is the first in view, as far as the list is long enough.
  virtual void scrollTo(std::size_t index) = 0;
};

class ListView : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::listView; }

  // --- columns ---

  struct Column {
    std::wstring text;
    int widthTwips = 0;  ///< 0 hides the column; it carries data for the code only.
  };
  void addColumn(std::wstring text, int widthTwips);
  [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }
  /// Raises 35600 when there is no such column (from 0).
  void setColumnWidth(std::size_t column, int widthTwips);
  /// The user dragged a column to another width; tells nobody.
  void acceptColumnWidth(std::size_t column, int widthTwips);
  [[nodiscard]] bool headersHidden() const { return headersHidden_; }
  void setHeadersHidden(bool hidden) { assign(headersHidden_, hidden, Change::columns); }

  // --- items; an index is a place in the displayed order and counts from 0 ---

  /// Adds an item, in its sorted place when the list is sorted and at the end otherwise. `icon` is
  /// its key in both image lists, "" for no picture; `subItems` begin with sub-item 1. The first
  /// item of an empty list becomes the selected one.
  void add(std::wstring_view text, std::wstring_view icon,
           std::initializer_list<std::wstring_view> subItems);
  /// Gives the item that was added last another picture and other sub-items. Raises 35600 when
  /// there is none.
  void completeLast(std::wstring_view icon, std::initializer_list<std::wstring_view> subItems);
  /// Takes the item that was added last away again, if there is one. For one that could not be
  /// completed, inside an `update` or a `rebuild`: it raises nothing and does not tell the peer.
  void removeLast() noexcept;
  /// Removes all items; nothing is selected afterwards.
  void clear();
  /// Makes room for `count` items.
  void reserve(std::size_t count);
  [[nodiscard]] std::size_t count() const { return order_.size(); }
  /// What column `column` (from 0, the text) shows of the item; "" when it was never set. Valid
  /// until the items change.
  [[nodiscard]] std::wstring_view cell(std::size_t index, std::size_t column) const;
  [[nodiscard]] std::wstring text(std::size_t index) const { return std::wstring(cell(index, 0)); }
  /// In a list sorted by the text the item moves to its new place.
  void setText(std::size_t index, std::wstring_view text);
  [[nodiscard]] std::wstring icon(std::size_t index) const;
  /// Sub-item `n` (from 1); "" when it was never set.
  [[nodiscard]] std::wstring subItem(std::size_t index, std::size_t n) const {
    return n == 0 ? std::wstring() : std::wstring(cell(index, n));
  }
  /// Raises 35600 for sub-item 0, which is the text.
  void setSubItem(std::size_t index, std::size_t n, std::wstring_view text);
  /// Index of the next item from `from` on, wrapping round, whose text begins with `prefix`
  /// without regard to case. Nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> find(const std::wstring& prefix, std::size_t from) const;

  // --- selection ---

  /// The selected item, nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> selected() const;
  /// The selected item; raises 91 when there is none.
  [[nodiscard]] std::size_t selectedItem() const;
  void select(std::size_t index);
  /// The item with the focus mark, nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> focused() const;
  /// The user moved selection or focus mark in the native list; tells nobody.
  void acceptSelection(std::size_t index);
  void acceptFocus(std::size_t index) { focused_ = ordered(index); }

  // --- view, order, pictures ---

  [[nodiscard]] int view() const { return view_; }
  void setView(int view) { assign(view_, view, Change::view); }
  [[nodiscard]] bool sorted() const { return sorted_; }
  void setSorted(bool sorted);
  /// Column that the list is sorted by, from 0 (the text).
  [[nodiscard]] int sortKey() const { return sortKey_; }
  void setSortKey(int column);
  [[nodiscard]] int sortOrder() const { return sortOrder_; }
  void setSortOrder(int order);
  /// Image lists, not owned; nullptr for none.
  void setImages(const ImageList* large, const ImageList* small);
  [[nodiscard]] const ImageList* largeImages() const { return largeImages_; }
  [[nodiscard]] const ImageList* smallImages() const { return smallImages_; }

  // --- rebuilding ---

  /// Makes changes to the items and tells the peer of all of them once, at the end. Raises what
  /// `change` raises, after telling the peer of what was changed by then, and what the peer raises.
  void update(const std::function<void()>& change);

  /// Rebuilds the list by `fill`, which clears it and adds what it is to hold: an `update` that
  /// keeps selection, focus mark and scroll position on the same items, which `columns` (from 0,
  /// the text) together tell from others. Raises what `fill` and the peer raise; the items added
  /// before that stay.
  void rebuild(const std::vector<std::size_t>& columns, const std::function<void()>& fill);
  /// Whether the last rebuild came to its end, so that the list holds all that it was to hold.
  [[nodiscard]] bool whole() const { return whole_; }

  /// What an item is known by: its texts in `columns`. Raises 35600 when there is no such item.
  [[nodiscard]] ItemKey keyOf(std::size_t index, const std::vector<std::size_t>& columns) const;
  /// The item of that key. Of several equal ones the one that stands where it stood among them, or
  /// the last; nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> find(const ItemKey& key) const;

  /// The item that was selected until a rebuild did not find it again. What is selected since then
  /// was chosen by nobody: selecting an item, or `adoptSelection`, ends it.
  [[nodiscard]] const std::optional<ItemKey>& lostSelection() const { return lost_; }
  /// Takes what is selected for chosen.
  void adoptSelection() { lost_.reset(); }

  // --- events ---

  std::function<void()> onDoubleClick;
  /// Column header clicked; the index counts from 1.
  std::function<void(int)> onColumnClick;
  /// A key went down while the list had the focus.
  std::function<void(const KeyStroke&)> onKey;
  /// The user asks for the commands of the list, by the right button or the context-menu key; the
  /// point, in pixels of the virtual screen, is where a menu belongs.
  std::function<void(int x, int y)> onContextMenu;
  void raiseDoubleClick() const;
  void raiseColumnClick(int index);
  void raiseKey(const KeyStroke& stroke);
  void raiseContextMenu(int x, int y);

 private:
  using Place = std::uint32_t;  // position among the items as added, stable while the order changes
  struct Marks;

  [[nodiscard]] std::wstring_view cellOf(Place place, std::size_t column) const;
  [[nodiscard]] Place ordered(std::size_t index) const;
  [[nodiscard]] std::optional<std::size_t> indexOf(std::optional<Place> place) const;
  void setCell(std::size_t index, std::size_t column, std::wstring_view text);
  void widen(std::size_t cellsPerItem);
  void fillRow(std::size_t row, std::wstring_view icon,
               std::initializer_list<std::wstring_view> subItems);
  [[nodiscard]] bool matches(std::size_t index, const ItemKey& key) const;
  [[nodiscard]] Marks marks(const std::vector<std::size_t>& columns) const;
  void restore(const Marks& marks);
  void itemsChanged();
  void orderChanged();
  void ensureOrder() const;

  std::vector<Column> columns_;
  bool headersHidden_ = false;
  TextStore texts_;
  // One row per item: its icon, its text, its sub-items. All rows are as long as the longest.
  std::vector<TextStore::Ref> cells_;
  std::size_t rowLength_ = iconAndText;
  static constexpr std::size_t iconAndText = 2;
  mutable std::vector<Place> order_;
  mutable bool orderStale_ = false;
  std::optional<Place> selected_;
  std::optional<Place> focused_;
  std::optional<ItemKey> lost_;
  int view_ = iconView;
  bool sorted_ = false;
  int sortKey_ = 0;
  int sortOrder_ = ascending;
  const ImageList* largeImages_ = nullptr;
  const ImageList* smallImages_ = nullptr;
  int updating_ = 0;
  bool whole_ = true;
};

}  // namespace controls
