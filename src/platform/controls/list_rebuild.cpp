// Changing many items at once, and what stays in its place meanwhile.
#include <array>

#include "platform/controls/list_view.h"

namespace controls {

namespace {

/// Does one thing and then the other, which is done even if the first raises an error.
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

/// Items that a rebuild finds again, by key; nothing where there is no item.
struct ListView::Marks {
  struct Mark {
    std::optional<ItemKey> key;
    std::size_t met = 0;  // items of that key so far
    std::optional<std::size_t> found;
    [[nodiscard]] bool sought() const { return key && met <= key->number; }
  };
  Mark selected;
  Mark focused;
  Mark top;
  std::size_t topIndex = 0;
  bool selectedIsLost = false;  // nothing was selected: the mark is for what was lost before
};

void ListView::update(const std::function<void()>& change) {
  ++updating_;
  inAnyCase(change, [this] {
    --updating_;
    itemsChanged();
  });
}

void ListView::rebuild(const std::vector<std::size_t>& columns, const std::function<void()>& fill) {
  Marks kept = marks(columns);
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
          peer->scrollTo(kept.top.found.value_or(kept.topIndex));
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
    marks.top.key = keyAt(marks.topIndex);
  }
  // A list that could not be filled has no selection, but had one.
  marks.selectedIsLost = !selected_ && lost_;
  marks.selected.key = marks.selectedIsLost ? lost_ : keyAt(selected());
  marks.focused.key = marks.selectedIsLost ? lost_ : keyAt(focused());
  return marks;
}

void ListView::restore(Marks& marks) {
  const std::array all{&marks.selected, &marks.focused, &marks.top};
  for (std::size_t index = 0; index < count(); ++index) {
    bool sought = false;
    for (Marks::Mark* const mark : all) {
      if (mark->sought() && matches(index, *mark->key)) {
        mark->found = index;
        ++mark->met;
      }
      sought = sought || mark->sought();
    }
    if (!sought) {
      break;
    }
  }
  if (marks.focused.found) {
    focused_ = ordered(*marks.focused.found);
  }
  if (marks.selected.found) {
    selected_ = ordered(*marks.selected.found);
  }
  if (!marks.selected.key) {
    return;
  }
  if (!marks.selected.found) {
    lost_ = lost_ ? lost_ : marks.selected.key;
  } else if (marks.selectedIsLost) {
    lost_.reset();
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
