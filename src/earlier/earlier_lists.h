// The earlier lists: what is in them, what has changed since, and how one of them comes back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "listfile/kept_lists.h"
#include "listfile/list_keeper.h"
#include "undo/changes.h"

namespace earlier_lists {

using kept_lists::Which;

/// An entry of a list.
struct Entry {
  std::wstring name;
  std::wstring place;  ///< Folder of a data file, with a trailing backslash; address of a shortcut.
  std::wstring date;   ///< "" for a web shortcut.
};

/// What has become of an entry since an earlier list was kept.
enum class Since {
  same,
  removed,  ///< The list of today does not have it.
  added,    ///< Only the list of today has it.
};

/// Number of entries in the contents of a list file: what the list shows of it.
[[nodiscard]] std::size_t countOf(Which list, std::string_view bytes);

/// Calls `take` for each entry of an earlier list in its order, and then for each one that the list
/// of today has and the earlier one lacks. Of data files the paths count, in any letter case; of
/// web shortcuts name and address.
void compare(Which list, std::string_view earlier, std::string_view today,
             const std::function<void(const Entry& entry, Since since)>& take);

/// Size for people, as in "12 KB".
[[nodiscard]] std::wstring sizeText(std::uint64_t bytes);

/// Contents of an earlier list. Raises what reading raises.
[[nodiscard]] std::string contentsOf(const kept_lists::Copy& copy);

/// Replaces the list file by `bytes` in one step. What it has until then becomes an earlier list
/// first. Raises what keeping, writing and replacing raise; the file is unchanged then. `forUndo`,
/// where it is not nullptr, gets what has changed.
void restore(Which list, const std::string& bytes, modQMKGeneral::ListKeeper& keeper,
             undo::Changes* forUndo = nullptr);

}  // namespace earlier_lists
