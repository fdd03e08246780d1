// The rows of a list: its items, or those that hold the words that the user looks for. And the
// editor of a name, which belongs to a row.
#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "platform/controls/list_view.h"
#include "platform/dispatcher.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace controls {

namespace {

/// Whether texts hold a word. Columns with few different values store each of them once, so what
/// was found is remembered for the last texts of each column. Rows `find.10k` and `find.1m` of
/// ./bench.
class Holder {
 public:
  Holder(const FindWords& words, const TextStore& texts, std::size_t columns)
      : words_(words), texts_(texts), columns_(columns), known_(words.count() * columns) {}

  bool holds(std::size_t word, std::size_t column, TextStore::Ref text) {
    if (column == 0) {
      return words_.finds(word, texts_.at(text));  // names are seldom the same
    }
    Known& known = known_[word * columns_ + column][(text * spread) >> shift];
    if (known.text != text) {
      known = {text, words_.finds(word, texts_.at(text))};
    }
    return known.holds;
  }

 private:
  /// What is known of a text. No word is in the empty text, whose reference is 0.
  struct Known {
    TextStore::Ref text = 0;
    bool holds = false;
  };
  static constexpr TextStore::Ref spread = 2654435769U;
  static constexpr unsigned places = 128;
  static constexpr unsigned shift = 25;

  const FindWords& words_;
  const TextStore& texts_;
  std::size_t columns_;
  std::vector<std::array<Known, places>> known_;
};

}  // namespace

void ListView::narrow(std::vector<Place>& places) const {
  std::vector<std::size_t> looked;
  for (std::size_t column = 0; column < std::min(columns_.size(), rowLength_ - 1); ++column) {
    if (columns_[column].widthTwips > 0) {
      looked.push_back(column);
    }
  }
  Holder holder(words_, texts_, columns_.size());
  const auto holdsAll = [&](std::size_t place) {
    const auto* const row = cells_.data() + place * rowLength_ + 1;
    for (std::size_t word = 0; word < words_.count(); ++word) {
      if (std::none_of(looked.begin(), looked.end(), [&](std::size_t column) {
            return holder.holds(word, column, row[column]);
          })) {
        return false;
      }
    }
    return true;
  };
  // In the order of the memory: in the order of the list nearly every row would have to be fetched
  // from memory that no cache holds.
  std::vector<bool> held(order_.size());
  for (const Place place : places) {
    held[place] = true;
  }
  for (std::size_t place = 0; place < held.size(); ++place) {
    if (held[place]) {
      held[place] = holdsAll(place);
    }
  }
  std::erase_if(places, [&held](Place place) { return !held[place]; });
}

void ListView::ensureShown() const {
  ensureOrder();
  if (shownStale_) {
    shown_ = order_;
    narrow(shown_);
    shownStale_ = false;
  }
}

void ListView::forgetShown() {
  shown_ = std::vector<Place>();
  former_.clear();
  shownStale_ = true;
}

void ListView::setFind(const std::wstring& text) {
  FindWords words(text);
  findText_ = text;
  if (words == words_) {
    return;
  }
  const bool current = narrowed() && !shownStale_;
  if (current && words.refines(words_)) {
    std::vector<Place> fewer = shown_;
    former_.push_back({std::exchange(words_, std::move(words)), std::exchange(shown_, {})});
    shownStale_ = true;  // until they are known, even if the memory runs out
    narrow(fewer);
    shown_ = std::move(fewer);
    shownStale_ = false;
  } else if (current && !former_.empty() && former_.back().words == words) {
    // A letter was deleted again: these rows are known.
    words_ = std::move(former_.back().words);
    shown_ = std::move(former_.back().shown);
    former_.pop_back();
  } else {
    words_ = std::move(words);
    forgetShown();
  }
  keepSelectionShown();
  changed(Change::items);
  changed(Change::selection);
  announce();
}

void ListView::keepSelectionShown() {
  if (!narrowed() || rows() == 0 || selectedRow()) {
    return;
  }
  if (selected_ && !lost_) {
    // Nobody has chosen the other one: a dialog that is about this item can find it again.
    std::vector<std::size_t> all(rowLength_ - 1);
    std::iota(all.begin(), all.end(), std::size_t{0});
    lost_ = keyOf(*selected(), all);
  }
  selected_ = focused_ = shown(0);
}

std::size_t ListView::rows() const {
  // The number of items needs no sorting.
  return narrowed() ? rowPlaces().size() : order_.size();
}

const std::vector<ListView::Place>& ListView::rowPlaces() const {
  if (narrowed()) {
    ensureShown();
    return shown_;
  }
  ensureOrder();
  return order_;
}

ListView::Place ListView::shown(std::size_t row) const {
  if (row >= rows()) {
    throw platform::RunTimeError(platform::error::indexOutOfBounds);
  }
  return rowPlaces()[row];
}

std::optional<std::size_t> ListView::rowAt(std::optional<Place> place) const {
  if (!place) {
    return std::nullopt;
  }
  const std::vector<Place>& places = rowPlaces();
  const auto found = std::find(places.begin(), places.end(), *place);
  return found == places.end() ? std::nullopt
                               : std::optional(static_cast<std::size_t>(found - places.begin()));
}

std::size_t ListView::itemOfRow(std::size_t row) const { return indexOf(shown(row)).value(); }

std::optional<std::size_t> ListView::rowOf(std::optional<std::size_t> item) const {
  return item ? rowAt(ordered(*item)) : std::nullopt;
}

std::wstring_view ListView::rowCell(std::size_t row, std::size_t column) const {
  return cellOf(shown(row), column);
}

std::wstring ListView::rowIcon(std::size_t row) const {
  return std::wstring(texts_.at(cells_[shown(row) * rowLength_]));
}

void ListView::acceptSelectedRow(std::size_t row) { choose(shown(row)); }

std::optional<std::size_t> ListView::findRow(const std::wstring& prefix, std::size_t from) const {
  const std::wstring wanted = platform::text::upper(prefix);
  const std::vector<Place>& places = rowPlaces();
  const std::size_t count = places.size();
  for (std::size_t step = 0; step < count; ++step) {
    const std::size_t row = (from + step) % count;
    if (platform::text::upperEquals(cellOf(places[row], 0).substr(0, wanted.size()), wanted)) {
      return row;
    }
  }
  return std::nullopt;
}

RowRange ListView::rowsInView() const {
  const auto* const peer = static_cast<const ListViewPeer*>(this->peer());
  if (peer == nullptr) {
    return {0, rows()};
  }
  // The native list may still show the rows of before.
  const RowRange native = peer->rowsInView();
  const std::size_t first = std::min(native.first, rows());
  return {first, std::min(native.count, rows() - first)};
}

const std::wstring& ListView::emptyText() const {
  static const std::wstring nothing = L"Nothing matches";
  return narrowed() && count() > 0 ? nothing : emptyText_;
}

void ListView::editName(NameEditor editor) {
  editor_ = std::move(editor);
  changed(Change::editor);
}

void ListView::closeNameEditor() {
  if (editor_) {
    editor_.reset();
    changed(Change::editor);
  }
}

void ListView::fireNameTyped(const std::wstring& text) {
  platform::dispatch([this, &text] {
    if (!editor_) {
      return;
    }
    const NameEditor closed = *editor_;
    closeNameEditor();
    if (text != closed.text && text.find_first_not_of(L" \t") != std::wstring::npos &&
        onNameTyped) {
      onNameTyped(closed.item, text);
    }
  });
}

void ListView::fireNameClick() const { platform::dispatch(onNameClick); }

}  // namespace controls
