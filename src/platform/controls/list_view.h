// A list view. The object owns columns, items, order and selection. The native control has no items
// of its own; its peer asks for the rows that it paints.
//
// The shape is for lists of up to a million rows. Each cell is a 32-bit reference into a
// `TextStore`, all cells are in one array, and the order is an array of row numbers. So a row needs
// no allocation, and sorting moves only row numbers. Rows of ./bench: `load.100k`, `load.1m`,
// `load.1m.memory`, `load.1m.peak` and `load.100k.textbook`; instruction counts: `count.load_view`
// and `count.find_row`. `update` and `rebuild` notify the peer once for any number of changes, so
// the native list is measured and painted once: `load.100k.textbook` and `open.tool`. All of this
// matters on Windows and under Wine alike.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clipboard.h"
#include "platform/controls/control.h"
#include "platform/controls/find_words.h"
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

/// Neighbouring rows of a list.
struct RowRange {
  std::size_t first = 0;
  std::size_t count = 0;
  bool operator==(const RowRange&) const = default;
};

/// Native side of a list view, with what only the native control knows.
class ListViewPeer : public Peer {
 public:
  /// The first visible row.
  [[nodiscard]] virtual std::size_t topIndex() const = 0;
  /// Scrolls so that row `index` is the first visible one, as far as the list is long enough.
  virtual void scrollTo(std::size_t index) = 0;
  /// The rows that are visible, wholly or in part.
  [[nodiscard]] virtual RowRange rowsInView() const = 0;
};

class ListView : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::listView; }

  // --- columns ---

  struct Column {
    std::wstring text;
    int widthTwips = 0;  ///< 0 hides the column; it then only holds data.
  };
  void addColumn(std::wstring text, int widthTwips);
  [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }
  /// Raises `error::indexOutOfBounds` when there is no such column (from 0).
  void setColumnWidth(std::size_t column, int widthTwips);
  /// The user dragged a column to another width. Does not notify the peer.
  void acceptColumnWidth(std::size_t column, int widthTwips);
  [[nodiscard]] bool headersHidden() const { return headersHidden_; }
  void setHeadersHidden(bool hidden) { assign(headersHidden_, hidden, Change::columns); }

  // --- items; an index is a position in the displayed order and counts from 0 ---

  /// Adds an item: in its sorted position when the list is sorted, at the end otherwise. `icon` is
  /// its key in both image lists, "" for no picture; `subItems` begin with sub-item 1. The first
  /// item of an empty list becomes the selected one.
  void add(std::wstring_view text, std::wstring_view icon,
           std::initializer_list<std::wstring_view> subItems);
  /// Gives the item that was added last another picture and other sub-items. Raises
  /// `error::indexOutOfBounds` when there is none.
  void completeLast(std::wstring_view icon, std::initializer_list<std::wstring_view> subItems);
  /// Removes the item that was added last, if there is one. For an item that could not be
  /// completed, inside an `update` or a `rebuild`. Raises nothing and does not notify the peer.
  void removeLast() noexcept;
  /// Removes all items; nothing is selected afterwards.
  void clear();
  /// Reserves memory for `count` items.
  void reserve(std::size_t count);
  [[nodiscard]] std::size_t count() const { return order_.size(); }
  /// Text of the item in column `column` (from 0, the text); "" when it was never set. Valid until
  /// the items change.
  [[nodiscard]] std::wstring_view cell(std::size_t index, std::size_t column) const;
  [[nodiscard]] std::wstring text(std::size_t index) const { return std::wstring(cell(index, 0)); }
  /// In a list sorted by the text, the item moves to its new position.
  void setText(std::size_t index, std::wstring_view text);
  [[nodiscard]] std::wstring icon(std::size_t index) const;
  /// Sub-item `n` (from 1); "" when it was never set.
  [[nodiscard]] std::wstring subItem(std::size_t index, std::size_t n) const {
    return n == 0 ? std::wstring() : std::wstring(cell(index, n));
  }
  /// Raises `error::indexOutOfBounds` for sub-item 0, which is the text.
  void setSubItem(std::size_t index, std::size_t n, std::wstring_view text);

  // --- rows: the items that are shown, in their order; a row counts from 0 ---

  /// Shows only the items that hold every blank-separated word of `text` in one of the columns that
  /// have a width. The list keeps all items. If the selected one is hidden by it, the first row is
  /// selected, as long as there is a row. "" shows everything again.
  void setFind(const std::wstring& text);
  [[nodiscard]] const std::wstring& findText() const { return findText_; }
  /// Whether the text has a word, so that some items may be hidden.
  [[nodiscard]] bool narrowed() const { return words_.count() > 0; }
  [[nodiscard]] std::size_t rows() const;
  [[nodiscard]] std::wstring_view rowCell(std::size_t row, std::size_t column) const;
  [[nodiscard]] std::wstring rowIcon(std::size_t row) const;
  /// Index of the item of a row. Raises `error::indexOutOfBounds` when there is no such row.
  [[nodiscard]] std::size_t itemOfRow(std::size_t row) const;
  /// The row of an item; nothing for a hidden one, and for nothing.
  [[nodiscard]] std::optional<std::size_t> rowOf(std::optional<std::size_t> item) const;
  [[nodiscard]] std::optional<std::size_t> selectedRow() const { return rowAt(selected_); }
  [[nodiscard]] std::optional<std::size_t> focusedRow() const { return rowAt(focused_); }
  /// The user moved the selection or the focus mark in the native list. Does not notify the peer.
  void acceptSelectedRow(std::size_t row);
  void acceptFocusedRow(std::size_t row) { focused_ = shown(row); }
  /// The next row from `from` on whose text begins with `prefix`, without regard to case. Continues
  /// at the start of the list. Nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> findRow(const std::wstring& prefix,
                                                   std::size_t from) const;
  /// The rows in view; all rows without a native list.
  [[nodiscard]] RowRange rowsInView() const;
  /// What the list says in its middle while it has no rows; "" for nothing.
  [[nodiscard]] const std::wstring& emptyText() const;
  void setEmptyText(std::wstring text) { assign(emptyText_, std::move(text), Change::remarks); }

  /// A remark on a row, which is then shown as marked, with the remark as its tool tip; "" for an
  /// ordinary row. Asked whenever the row is painted.
  std::function<std::wstring(std::size_t row)> remark;
  [[nodiscard]] std::wstring remarkOn(std::size_t row) const {
    return remark && row < rows() ? remark(row) : std::wstring();
  }
  /// Shows the remarks anew.
  void remarksChanged() { changed(Change::remarks); }

  // --- selection ---

  /// The selected item, nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> selected() const;
  /// The selected item. Raises `error::objectNotSet` when there is none.
  [[nodiscard]] std::size_t selectedItem() const;
  void select(std::size_t index);
  /// The item with the focus mark, nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> focused() const;
  /// Makes an item the selected one without notifying the peer.
  void acceptSelection(std::size_t index);

  // --- view, order, pictures ---

  [[nodiscard]] int view() const { return view_; }
  void setView(int view) { assign(view_, view, Change::view); }
  [[nodiscard]] bool sorted() const { return sorted_; }
  void setSorted(bool sorted);
  /// Column by which the list is sorted, from 0 (the text).
  [[nodiscard]] int sortKey() const { return sortKey_; }
  void setSortKey(int column);
  [[nodiscard]] int sortOrder() const { return sortOrder_; }
  void setSortOrder(int order);
  /// Orders the items by a meaning of their texts.
  struct Ranking {
    std::size_t column = 0;
    /// The ranks of `count` texts; `textAt(n)` is text number n.
    std::function<std::vector<std::uint64_t>(
        std::size_t count, const std::function<std::wstring_view(std::size_t)>& textAt)>
        ranks;
  };
  /// Shows the highest rank first, whatever the sort key is; equal ranks stay in the order of
  /// adding. Nothing lets the sort key decide again.
  void setRanking(std::optional<Ranking> ranking);
  [[nodiscard]] const std::optional<Ranking>& ranking() const { return ranking_; }
  /// Image lists, not owned; nullptr for none. Further images of the same lists are shown at the
  /// end of an update, all at once, since there may be hundreds.
  void setImages(const ImageList* large, const ImageList* small);
  [[nodiscard]] const ImageList* largeImages() const { return largeImages_; }
  [[nodiscard]] const ImageList* smallImages() const { return smallImages_; }

  // --- rebuilding ---

  /// Makes changes to the items and notifies the peer once, at the end. Raises what `change`
  /// raises, after notifying the peer of the changes made until then. Raises what the peer raises.
  void update(const std::function<void()>& change);

  /// Rebuilds the list with `fill`, which clears it and adds the new items. Like `update`, and also
  /// keeps selection, focus mark and scroll position on the same items. `columns` (from 0, the
  /// text) together identify an item. Raises what `fill` and the peer raise; items added before
  /// that stay.
  void rebuild(const std::vector<std::size_t>& columns, const std::function<void()>& fill);
  /// Another number after each change of the items; never 0.
  [[nodiscard]] std::uint64_t revision() const { return revision_; }
  /// Whether the last rebuild succeeded, so that the list is complete.
  [[nodiscard]] bool whole() const { return whole_; }

  /// Key of an item: its texts in `columns`. Raises `error::indexOutOfBounds` when there is no such
  /// item.
  [[nodiscard]] ItemKey keyOf(std::size_t index, const std::vector<std::size_t>& columns) const;
  /// The item with that key; nothing when there is none. Of several equal items the one at the same
  /// position among them, or else the last.
  [[nodiscard]] std::optional<std::size_t> find(const ItemKey& key) const;

  /// The item that was selected before a rebuild did not find it again. Until an item is selected
  /// or `adoptSelection` is called, nobody has chosen what is selected now.
  [[nodiscard]] const std::optional<ItemKey>& lostSelection() const { return lost_; }
  /// Treats the present selection as chosen.
  void adoptSelection() { lost_.reset(); }

  // --- editing a name ---

  /// An editor over the text of an item.
  struct NameEditor {
    ItemKey item;
    std::wstring text;     ///< What it begins with.
    std::size_t stem = 0;  ///< How many of its characters are selected, from the first on.
  };
  /// Opens the editor over an item, which may move meanwhile. Closes another one without a result.
  void editName(NameEditor editor);
  /// The open editor, nothing when there is none.
  [[nodiscard]] const std::optional<NameEditor>& nameEditor() const { return editor_; }
  /// Closes the editor without a result.
  void closeNameEditor();
  /// The user has typed another name and confirmed it; the editor is closed.
  std::function<void(const ItemKey& item, const std::wstring& name)> onNameTyped;
  /// The user has clicked the selected name a second time, slowly.
  std::function<void()> onNameClick;
  /// The user confirms a text, or leaves the editor. A blank or unchanged text changes nothing.
  void fireNameTyped(const std::wstring& text);
  void fireNameClick() const;

  // --- dragging ---

  /// Whether the list takes what is dragged over it. Without it, nothing can be dropped.
  std::function<bool(const platform::clipboard::Content&)> takes;
  /// Something that the list takes was dropped on it.
  std::function<void(const platform::clipboard::Content&)> onDropped;
  /// What the selected row gives to others when it is dragged there; empty for nothing.
  std::function<platform::clipboard::Content()> dragged;
  [[nodiscard]] bool fireTakes(const platform::clipboard::Content& content) const;
  void fireDropped(const platform::clipboard::Content& content) const;
  [[nodiscard]] platform::clipboard::Content fireDragged() const;

  // --- events ---

  /// The rows or the selection may have changed. Called often, also within a larger operation,
  /// which it must not disturb.
  std::function<void()> onShown;
  /// Other rows have come into view.
  std::function<void()> onScroll;
  /// The user wants a column (from 0) as wide as its texts.
  std::function<void(std::size_t)> onFitColumn;
  std::function<void()> onDoubleClick;
  /// Column header clicked; the index counts from 1.
  std::function<void(int)> onColumnClick;
  /// A key was pressed while the list had the focus.
  std::function<void(const KeyStroke&)> onKey;
  /// The user asked for the list's menu, with the right mouse button or the context-menu key. The
  /// point, in pixels of the virtual screen, is where the menu belongs.
  std::function<void(int x, int y)> onContextMenu;
  void fireDoubleClick() const;
  void fireColumnClick(int index);
  void fireKey(const KeyStroke& stroke);
  void fireContextMenu(int x, int y);
  void fireScroll() const;
  void fireFitColumn(std::size_t column);

 private:
  using Place = std::uint32_t;  // row number in order of adding; sorting does not change it
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
  void orderByRank() const;
  /// The places of all rows in their order.
  [[nodiscard]] const std::vector<Place>& rowPlaces() const;
  [[nodiscard]] Place shown(std::size_t row) const;
  [[nodiscard]] std::optional<std::size_t> rowAt(std::optional<Place> place) const;
  void choose(Place place);
  void ensureShown() const;
  /// What is shown has to be found out anew.
  void forgetShown();
  /// Removes the places whose items do not hold the words.
  void narrow(std::vector<Place>& places) const;
  void keepSelectionShown();
  void announce() const {
    if (onShown) {
      onShown();
    }
  }

  std::vector<Column> columns_;
  bool headersHidden_ = false;
  TextStore texts_;
  // One row per item: its icon, its text, its sub-items. All rows have the length of the longest.
  std::vector<TextStore::Ref> cells_;
  std::size_t rowLength_ = iconAndText;
  static constexpr std::size_t iconAndText = 2;
  mutable std::vector<Place> order_;
  mutable bool orderStale_ = false;
  std::optional<Ranking> ranking_;
  std::wstring findText_;
  FindWords words_;
  mutable std::vector<Place> shown_;  // the items that are shown, while the list is narrowed
  mutable bool shownStale_ = false;
  /// What was shown before each letter that was typed since the items changed last.
  struct Former {
    FindWords words;
    std::vector<Place> shown;
  };
  std::vector<Former> former_;
  std::wstring emptyText_;
  std::optional<NameEditor> editor_;
  std::optional<Place> selected_;
  std::optional<Place> focused_;
  std::optional<ItemKey> lost_;
  int view_ = iconView;
  bool sorted_ = false;
  int sortKey_ = 0;
  int sortOrder_ = ascending;
  const ImageList* largeImages_ = nullptr;
  const ImageList* smallImages_ = nullptr;
  bool imagesStale_ = false;  // the peer shows other ones
  int updating_ = 0;
  std::uint64_t revision_ = 1;
  bool whole_ = true;
};

}  // namespace controls
