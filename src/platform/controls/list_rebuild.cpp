// Changing many items at once, and keeping selection, focus and scroll position.
#include <utility>

#include "platform/controls/list_view.h"

namespace controls {

namespace {

/// Calls `first`, then `then`, even if `first` raises an error.
template <class First, class Then>
void inAnyCase(First first, Then then) {
  try {
    first();
  } catch (...) {
    then();
    throw;
  }
  then();
}

}  // namespace

/// The items that a rebuild has to find again; nothing where there is none.
struct ListView::Marks {
  std::optional<ItemKey> selected;
  std::optional<ItemKey> focused;
  std::optional<ItemKey> top;
  std::size_t topIndex = 0;
  bool selectedIsLost = false;  // `selected` is an item that an earlier rebuild lost
};

void ListView::itemsChanged() {
  forgetShown();
  ++revision_;
  if (updating_ > 0) {
    return;
  }
  keepSelectionShown();
  inAnyCase(
      [this] {
        if (std::exchange(imagesStale_, false)) {
          changed(Change::images);
        }
      },
      [this] {
        changed(Change::items);
        announce();
      });
}

void ListView::update(const std::function<void()>& change) {
  ++updating_;
  inAnyCase(change, [this] {
    --updating_;
    itemsChanged();
  });
}

void ListView::rebuild(const std::vector<std::size_t>& columns, const std::function<void()>& fill) {
  const Marks kept = marks(columns);
  ++updating_;
  whole_ = false;
  inAnyCase(
      [&] {
        fill();
        whole_ = true;
      },
      [&] {
        --updating_;
        inAnyCase([&] { restore(kept); }, [this] { itemsChanged(); });
        if (auto* const peer = static_cast<ListViewPeer*>(this->peer())) {
          const auto top = kept.top ? rowOf(find(*kept.top)) : std::nullopt;
          peer->scrollTo(top.value_or(kept.topIndex));
        }
      });
}

ListView::Marks ListView::marks(const std::vector<std::size_t>& columns) const {
  const auto keyAt = [&](std::optional<std::size_t> index) {
    return index && *index < count() ? std::optional(keyOf(*index, columns)) : std::nullopt;
  };
  Marks marks;
  if (const auto* const peer = static_cast<const ListViewPeer*>(this->peer())) {
    marks.topIndex = peer->topIndex();
    if (marks.topIndex < rows()) {
      marks.top = keyAt(itemOfRow(marks.topIndex));
    }
  }
  // If an earlier rebuild could not fill the list, nothing is selected now. The item selected
  // before that rebuild is kept.
  marks.selectedIsLost = !selected_ && lost_;
  marks.selected = marks.selectedIsLost ? lost_ : keyAt(selected());
  marks.focused = marks.selectedIsLost ? lost_ : keyAt(focused());
  return marks;
}

void ListView::restore(const Marks& marks) {
  if (const auto focused = marks.focused ? find(*marks.focused) : std::nullopt) {
    focused_ = ordered(*focused);
  }
  if (!marks.selected) {
    return;
  }
  if (const auto selected = find(*marks.selected)) {
    selected_ = ordered(*selected);
    if (marks.selectedIsLost) {
      lost_.reset();
    }
  } else if (!lost_) {
    lost_ = marks.selected;
  }
}

ItemKey ListView::keyOf(std::size_t index, const std::vector<std::size_t>& columns) const {
  ItemKey key{text(index), columns, {}, 0};
  for (const std::size_t column : columns) {
    key.cells.emplace_back(cell(index, column));
  }
  for (std::size_t before = 0; before < index; ++before) {
    key.number += matches(before, key) ? 1 : 0;
  }
  return key;
}

bool ListView::matches(std::size_t index, const ItemKey& key) const {
  for (std::size_t i = 0; i < key.columns.size(); ++i) {
    if (cell(index, key.columns[i]) != key.cells[i]) {
      return false;
    }
  }
  return true;
}

std::optional<std::size_t> ListView::find(const ItemKey& key) const {
  std::optional<std::size_t> found;
  std::size_t met = 0;
  for (std::size_t index = 0; index < count() && met <= key.number; ++index) {
    if (matches(index, key)) {
      found = index;
      ++met;
    }
  }
  return found;
}

}  // namespace controls
