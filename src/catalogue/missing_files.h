// Files of the catalogue that are not where the list says.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/controls/list_view.h"

namespace modQMKGeneral {

/// Entries of one folder of the list.
struct ListedFolder {
  std::wstring path;                ///< As listed, with a trailing backslash.
  std::vector<std::wstring> names;  ///< Of its files, as listed.
};

/// The entries of the data list by folder. The folders are in the order in which the list first
/// names them.
[[nodiscard]] std::vector<ListedFolder> entriesByFolder(const controls::ListView& dataList);

/// Keeps the entries whose file is not there, and the folders that have such. All files of a drive
/// that does not answer are missing. An entry without a drive is not: nobody knows where it would
/// be. Asks the drives, so it may take long; may be called on any thread.
void keepMissing(std::vector<ListedFolder>& folders);

/// Number of the entries.
[[nodiscard]] std::size_t countOf(const std::vector<ListedFolder>& folders);

/// Whether there is a folder of exactly that path, which ends in a backslash. True if only a look
/// at each of its files can tell.
[[nodiscard]] bool mayHaveFiles(const std::wstring& folder);

}  // namespace modQMKGeneral
