// Data files as entries of the Open tab's list.
#pragma once

#include <string>

#include "platform/controls/list_view.h"

namespace modQMKGeneral {

/// A data file as an entry of the list.
struct DataEntry {
  std::wstring name;    ///< The item's text.
  std::wstring folder;  ///< With a trailing backslash.
  std::wstring date;    ///< Last modification, as text.
  std::wstring label;   ///< The type as the user sees it.
  std::wstring type;    ///< Type code as stored in the record.
  [[nodiscard]] std::wstring path() const { return folder + name; }
};

/// The entry at an index of the list. Raises `error::indexOutOfBounds` when there is none.
[[nodiscard]] DataEntry dataEntry(const controls::ListView& list, std::size_t index);

/// The selected entry. Raises `error::objectNotSet` when nothing is selected.
[[nodiscard]] DataEntry selectedEntry(const controls::ListView& list);

/// Key of the selected entry, to find it again after a message box was answered. Raises
/// `error::objectNotSet` when nothing is selected.
[[nodiscard]] controls::ItemKey selectedKey(const controls::ListView& list);

}  // namespace modQMKGeneral
