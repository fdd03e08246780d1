// What an item of a list is known by while a question about it waits for its answer.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace controls {

class ListView;

/// What tells an item of a list from the others, wherever a rebuild puts it.
struct ItemKey {
  std::wstring text;                 ///< The item's text, for messages that name it.
  std::vector<std::size_t> columns;  ///< The columns that together identify it, from 0, the text.
  std::vector<std::wstring> cells;   ///< What it shows in each of them.
  std::size_t number = 0;            ///< How many items of the same cells stand before it.
};

/// Finds the item that a question named, after its answer: the list may have been rebuilt
/// meanwhile. Nothing when it is gone, after saying so.
[[nodiscard]] std::optional<std::size_t> findAgain(const ListView& list, const ItemKey& key);

/// Makes sure that what is selected was chosen by the user, or by the program on purpose: an item
/// that a rebuild put in the place of the chosen one is not. The chosen one is selected again when
/// it is back. False when it is gone, after saying so.
[[nodiscard]] bool selectionIsChosen(ListView& list);

}  // namespace controls
