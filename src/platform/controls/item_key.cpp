#include "platform/controls/item_key.h"

#include "platform/controls/list_view.h"
#include "platform/dialogs.h"

namespace controls {

std::optional<std::size_t> findAgain(const ListView& list, const ItemKey& key) {
  const auto found = list.find(key);
  if (!found) {
    platform::dialogs::showMessage(key.text + L" is no longer in the list");
  }
  return found;
}

bool selectionIsChosen(ListView& list) {
  if (!list.lostSelection()) {
    return true;
  }
  const auto chosen = findAgain(list, *list.lostSelection());
  if (!chosen) {
    return false;
  }
  list.select(*chosen);
  return true;
}

}  // namespace controls
