#include "platform/controls/list_view.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/dispatcher.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace controls {

using platform::RunTimeError;

namespace {

const std::wstring nothing;

}  // namespace

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

void ListView::add(Item item) {
  const auto place = static_cast<Place>(items_.size());
  items_.push_back(std::move(item));
  order_.push_back(place);
  if (place == 0) {
    selected_ = focused_ = place;
  }
  orderStale_ = orderStale_ || sorted_;
  itemsChanged();
}

void ListView::clear() {
  items_.clear();
  order_.clear();
  orderStale_ = false;
  selected_.reset();
  focused_.reset();
  itemsChanged();
}

void ListView::reserve(std::size_t count) {
  items_.reserve(count);
  order_.reserve(count);
}

const ListView::Item& ListView::at(std::size_t index) const { return items_[ordered(index)]; }

ListView::Item& ListView::at(std::size_t index) { return items_[ordered(index)]; }

ListView::Place ListView::ordered(std::size_t index) const {
  if (index >= items_.size()) {
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

const std::wstring& ListView::text(std::size_t index) const { return at(index).text; }

void ListView::setText(std::size_t index, std::wstring text) {
  at(index).text = std::move(text);
  orderStale_ = orderStale_ || (sorted_ && sortKey_ == 0);
  itemsChanged();
}

const std::wstring& ListView::icon(std::size_t index) const { return at(index).icon; }

const std::wstring& ListView::subItem(std::size_t index, std::size_t n) const {
  const Item& item = at(index);
  return n >= 1 && n <= item.subItems.size() ? item.subItems[n - 1] : nothing;
}

void ListView::setSubItem(std::size_t index, std::size_t n, std::wstring text) {
  if (n < 1) {
    throw RunTimeError(platform::error::indexOutOfBounds);
  }
  Item& item = at(index);
  if (item.subItems.size() < n) {
    item.subItems.resize(n);
  }
  item.subItems[n - 1] = std::move(text);
  orderStale_ = orderStale_ || (sorted_ && sortKey_ == static_cast<int>(n));
  itemsChanged();
}

std::optional<std::size_t> ListView::find(const std::wstring& prefix, std::size_t from) const {
  const std::wstring wanted = platform::text::upper(prefix);
  for (std::size_t step = 0; step < count(); ++step) {
    const std::size_t index = (from + step) % count();
    const std::wstring& candidate = text(index);
    if (candidate.size() >= wanted.size() &&
        platform::text::upper(candidate.substr(0, wanted.size())) == wanted) {
      return index;
    }
  }
  return std::nullopt;
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
  selected_ = focused_ = ordered(index);
  changed(Change::selection);
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

void ListView::orderChanged() {
  orderStale_ = sorted_;
  changed(Change::sorting);
  itemsChanged();
}

void ListView::setImages(const ImageList* large, const ImageList* small) {
  largeImages_ = large;
  smallImages_ = small;
  changed(Change::images);
}

void ListView::itemsChanged() {
  if (updating_ > 0) {
    changedWhileUpdating_ = true;
    return;
  }
  changedWhileUpdating_ = false;
  changed(Change::items);
}

void ListView::ensureOrder() const {
  if (!orderStale_) {
    return;
  }
  orderStale_ = false;
  std::vector<std::string> keys;
  keys.reserve(items_.size());
  for (const Item& item : items_) {
    const auto n = static_cast<std::size_t>(std::max(sortKey_, 0));
    const std::wstring& text =
        n == 0 ? item.text : (n <= item.subItems.size() ? item.subItems[n - 1] : nothing);
    keys.push_back(platform::text::sortKey(text));
  }
  const bool down = sortOrder_ != ascending;
  std::stable_sort(order_.begin(), order_.end(), [&keys, down](Place a, Place b) {
    return down ? keys[b] < keys[a] : keys[a] < keys[b];
  });
}

ListView::KeepPlace::KeepPlace(ListView& list,
                               std::function<std::wstring(const ListView&, std::size_t)> keyOf)
    : list_(list), keyOf_(std::move(keyOf)) {
  const auto remember = [this](Mark& mark, std::optional<std::size_t> index) {
    if (index && *index < list_.count()) {
      mark.set = true;
      mark.key = keyOf_(list_, *index);
    }
  };
  if (const auto* const peer = static_cast<const ListViewPeer*>(list_.peer())) {
    topIndex_ = peer->topIndex();
    remember(top_, topIndex_);
  }
  remember(selected_, list_.selected());
  remember(focused_, list_.focused());
  ++list_.updating_;
}

ListView::KeepPlace::~KeepPlace() {
  const auto look = [](Mark& mark, const std::wstring& key, std::size_t index) {
    if (mark.set && !mark.found && mark.key == key) {
      mark.found = index;
    }
  };
  for (std::size_t index = 0; index < list_.count(); ++index) {
    const std::wstring key = keyOf_(list_, index);
    look(selected_, key, index);
    look(focused_, key, index);
    look(top_, key, index);
  }
  if (selected_.found) {
    list_.selected_ = list_.ordered(*selected_.found);
  }
  if (focused_.found) {
    list_.focused_ = list_.ordered(*focused_.found);
  }
  --list_.updating_;
  list_.itemsChanged();
  if (auto* const peer = static_cast<ListViewPeer*>(list_.peer())) {
    peer->scrollTo(top_.found.value_or(topIndex_));
  }
}

void ListView::raiseDoubleClick() const { platform::dispatch(onDoubleClick); }

void ListView::raiseColumnClick(int index) {
  platform::dispatch([this, index] {
    if (onColumnClick) {
      onColumnClick(index);
    }
  });
}

void ListView::raiseContextMenu(int x, int y) {
  platform::dispatch([this, x, y] {
    if (onContextMenu) {
      onContextMenu(x, y);
    }
  });
}

void ListView::raiseKey(ListKey key) {
  platform::dispatch([this, key] {
    if (onKey) {
      onKey(key);
    }
  });
}

}  // namespace controls
