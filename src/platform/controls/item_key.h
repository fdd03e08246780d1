// Identifies an item of a list while a message box about it is open.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace controls {

class ListView;

/// Identifies an item of a list, wherever a rebuild puts it.
struct ItemKey {
  std::wstring text;                 ///< The item's text, for messages that name it.
  std::vector<std::size_t> columns;  ///< The columns that identify it; 0 is the text.
  std::vector<std::wstring> cells;   ///< Its text in each of these columns.
  std::size_t number = 0;            ///< How many items with the same cells come before it.
};

/// Finds the item again after a message box about it was answered, because the list may have been
/// rebuilt meanwhile. When the item is gone, shows a message and returns nothing.
[[nodiscard]] std::optional<std::size_t> findAgain(const ListView& list, const ItemKey& key);

/// Checks that the selected item was chosen by the user, or by the program on purpose. After a
/// rebuild that did not find the chosen item, another one may be selected. If the chosen item
/// exists again, it is selected. If it is gone, shows a message and returns false.
[[nodiscard]] bool selectionIsChosen(ListView& list);

}  // namespace controls
