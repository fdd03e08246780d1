#include "platform/controls/list_view.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "platform/controls/sort_places.h"
#include "platform/dispatcher.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace controls {

using platform::RunTimeError;

void ListView::addColumn(std::wstring text, int widthTwips) {
  columns_.push_back({std::move(text), widthTwips});
  changed(Change::columns);
}

void ListView::setColumnWidth(std::size_t column, int widthTwips) {
  acceptColumnWidth(column, widthTwips);
  changed(Change::columns);
}

void ListView::acceptColumnWidth(std::size_t column, int widthTwips) {
  if (column >= columns_.size()) {
    throw RunTimeError(platform::error::indexOutOfBounds);
  }
  columns_[column].widthTwips = widthTwips;
}

void ListView::add(std::wstring_view text, std::wstring_view icon,
                   std::initializer_list<std::wstring_view> subItems) {
  if (iconAndText + subItems.size() > rowLength_) {
    widen(iconAndText + subItems.size());
  }
  const auto place = static_cast<Place>(order_.size());
  const std::size_t row = place * rowLength_;
  // An item exists once its place is in `order_`. If adding failed in between, the unfinished row
  // is overwritten here.
  cells_.resize(row);
  cells_.resize(row + rowLength_);
  cells_[row + 1] = texts_.add(text);
  fillRow(row, icon, subItems);
  order_.push_back(place);
  if (place == 0) {
    selected_ = focused_ = place;
  }
  orderStale_ = orderStale_ || sorted_ || ranking_;
  itemsChanged();
}

void ListView::completeLast(std::wstring_view icon,
                            std::initializer_list<std::wstring_view> subItems) {
  if (order_.empty()) {
    throw RunTimeError(platform::error::indexOutOfBounds);
  }
  if (iconAndText + subItems.size() > rowLength_) {
    widen(iconAndText + subItems.size());
  }
  fillRow((order_.size() - 1) * rowLength_, icon, subItems);
  orderStale_ = orderStale_ || sorted_ || ranking_;
  itemsChanged();
}

void ListView::removeLast() noexcept {
  if (order_.empty()) {
    return;
  }
  forgetShown();
  const auto last = static_cast<Place>(order_.size() - 1);
  // If the list was sorted meanwhile, the item may be anywhere in the order. Its row is reused for
  // the next item.
  order_.erase(std::find(order_.begin(), order_.end(), last));
  for (auto* const mark : {&selected_, &focused_}) {
    if (*mark == last) {
      mark->reset();
    }
  }
}

void ListView::fillRow(std::size_t row, std::wstring_view icon,
                       std::initializer_list<std::wstring_view> subItems) {
  cells_[row] = texts_.addShared(icon);
  std::size_t cell = row + iconAndText;
  for (const std::wstring_view subItem : subItems) {
    cells_[cell++] = texts_.addShared(subItem);
  }
}

void ListView::clear() {
  // Assigned, not cleared: the memory of a long list is freed at once.
  texts_.clear();
  cells_ = std::vector<TextStore::Ref>();
  order_ = std::vector<Place>();
  orderStale_ = false;
  selected_.reset();
  focused_.reset();
  itemsChanged();
}

void ListView::reserve(std::size_t count) {
  widen(std::max(rowLength_, 1 + columns_.size()));
  cells_.reserve(count * rowLength_);
  order_.reserve(count);
}

void ListView::widen(std::size_t cellsPerItem) {
  if (cellsPerItem == rowLength_) {
    return;
  }
  std::vector<TextStore::Ref> cells(order_.size() * cellsPerItem);
  for (std::size_t item = 0; item < order_.size(); ++item) {
    std::copy_n(cells_.begin() + static_cast<std::ptrdiff_t>(item * rowLength_), rowLength_,
                cells.begin() + static_cast<std::ptrdiff_t>(item * cellsPerItem));
  }
  cells_ = std::move(cells);
  rowLength_ = cellsPerItem;
}

ListView::Place ListView::ordered(std::size_t index) const {
  if (index >= order_.size()) {
    throw RunTimeError(platform::error::indexOutOfBounds);
  }
  ensureOrder();
  return order_[index];
}

std::optional<std::size_t> ListView::indexOf(std::optional<Place> place) const {
  if (!place) {
    return std::nullopt;
  }
  ensureOrder();
  const auto found = std::find(order_.begin(), order_.end(), *place);
  return static_cast<std::size_t>(found - order_.begin());
}

std::wstring_view ListView::cellOf(Place place, std::size_t column) const {
  return column + 1 < rowLength_ ? texts_.at(cells_[place * rowLength_ + 1 + column])
                                 : std::wstring_view();
}

std::wstring_view ListView::cell(std::size_t index, std::size_t column) const {
  return cellOf(ordered(index), column);
}

std::wstring ListView::icon(std::size_t index) const {
  return std::wstring(texts_.at(cells_[ordered(index) * rowLength_]));
}

void ListView::setCell(std::size_t index, std::size_t column, std::wstring_view text) {
  const Place place = ordered(index);
  if (column + 1 >= rowLength_) {
    widen(column + iconAndText);
  }
  cells_[place * rowLength_ + 1 + column] = texts_.add(text);
  orderStale_ = orderStale_ || ranking_ || (sorted_ && sortKey_ == static_cast<int>(column));
  itemsChanged();
}

void ListView::setText(std::size_t index, std::wstring_view text) { setCell(index, 0, text); }

void ListView::setSubItem(std::size_t index, std::size_t n, std::wstring_view text) {
  if (n < 1) {
    throw RunTimeError(platform::error::indexOutOfBounds);
  }
  setCell(index, n, text);
}

std::optional<std::size_t> ListView::selected() const { return indexOf(selected_); }

std::size_t ListView::selectedItem() const {
  const auto index = selected();
  if (!index) {
    throw RunTimeError(platform::error::objectNotSet);
  }
  return *index;
}

void ListView::select(std::size_t index) {
  acceptSelection(index);
  changed(Change::selection);
}

void ListView::acceptSelection(std::size_t index) { choose(ordered(index)); }

void ListView::choose(Place place) {
  selected_ = focused_ = place;
  lost_.reset();
  announce();
}

std::optional<std::size_t> ListView::focused() const { return indexOf(focused_); }

void ListView::setSorted(bool sorted) {
  sorted_ = sorted;
  orderChanged();
}

void ListView::setSortKey(int column) {
  sortKey_ = column;
  orderChanged();
}

void ListView::setSortOrder(int order) {
  sortOrder_ = order;
  orderChanged();
}

void ListView::setRanking(std::optional<Ranking> ranking) {
  ranking_ = std::move(ranking);
  orderChanged();
}

void ListView::orderChanged() {
  orderStale_ = sorted_ || ranking_;
  changed(Change::sorting);
  itemsChanged();
}

void ListView::setImages(const ImageList* large, const ImageList* small) {
  const bool others = largeImages_ != large || smallImages_ != small;
  largeImages_ = large;
  smallImages_ = small;
  if (updating_ == 0 || others) {
    changed(Change::images);
  } else {
    imagesStale_ = true;
  }
}

void ListView::ensureOrder() const {
  if (!orderStale_) {
    return;
  }
  if (ranking_) {
    orderByRank();
    return;
  }
  const auto column = static_cast<std::size_t>(std::max(sortKey_, 0));
  const auto keys = platform::text::sortKeys(order_.size(), [this, column](std::size_t place) {
    return cellOf(static_cast<Place>(place), column);
  });
  sortPlaces(order_, keys, sortOrder_ != ascending);
  orderStale_ = false;
}

void ListView::orderByRank() const {
  const auto ranks = ranking_->ranks(order_.size(), [this](std::size_t place) {
    return cellOf(static_cast<Place>(place), ranking_->column);
  });
  platform::text::SortKeys keys;
  constexpr std::size_t bytes = sizeof(std::uint64_t);
  keys.bytes.reserve(ranks.size() * bytes);
  for (const std::uint64_t rank : ranks) {
    for (std::size_t byte = bytes; byte-- > 0;) {
      keys.bytes += static_cast<char>(rank >> (byte * 8U));
    }
    keys.ends.push_back(keys.bytes.size());
  }
  std::iota(order_.begin(), order_.end(), Place{0});
  sortPlaces(order_, keys, true);
  orderStale_ = false;
}

void ListView::fireDoubleClick() const { platform::dispatch(onDoubleClick); }

void ListView::fireColumnClick(int index) {
  platform::dispatch([this, index] {
    if (onColumnClick) {
      onColumnClick(index);
    }
  });
}

bool ListView::fireTakes(const platform::clipboard::Content& content) const {
  bool taken = false;
  platform::dispatch([&] { taken = takes && takes(content); });
  return taken;
}

void ListView::fireDropped(const platform::clipboard::Content& content) const {
  platform::dispatch([&] {
    if (onDropped) {
      onDropped(content);
    }
  });
}

platform::clipboard::Content ListView::fireDragged() const {
  platform::clipboard::Content content;
  platform::dispatch([&] {
    if (dragged) {
      content = dragged();
    }
  });
  return content;
}

void ListView::fireContextMenu(int x, int y) {
  platform::dispatch([this, x, y] {
    if (onContextMenu) {
      onContextMenu(x, y);
    }
  });
}

void ListView::fireScroll() const { platform::dispatch(onScroll); }

void ListView::fireFitColumn(std::size_t column) {
  platform::dispatch([this, column] {
    if (onFitColumn) {
      onFitColumn(column);
    }
  });
}

void ListView::fireKey(const KeyStroke& stroke) {
  platform::dispatch([this, stroke] {
    if (onKey) {
      onKey(stroke);
    }
  });
}

}  // namespace controls
