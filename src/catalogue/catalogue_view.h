// The lists of the Open and New tabs, and the watch on the catalogue file.
#pragma once

#include <vector>

#include "platform/controls/image_list.h"
#include "platform/controls/list_view.h"
#include "platform/files.h"

namespace modQMKGeneral {

/// Columns of the data list, numbered like sub-items: 0 is the item's text, the file name.
namespace data_column {
inline constexpr std::size_t date = 1;
inline constexpr std::size_t label = 2;
inline constexpr std::size_t folder = 3;  ///< With a trailing backslash.
inline constexpr std::size_t type = 4;    ///< Type code as stored in the record.
/// The columns that identify a data file.
inline const std::vector<std::size_t> entry{0, folder};
}  // namespace data_column

/// The Open tab (from 0).
inline constexpr int openTab = 1;
/// Operations on the catalogue that can be taken back, as in "Undo Remove from List".
inline constexpr const wchar_t* removeStep = L"Remove from List";
inline constexpr const wchar_t* findMovedStep = L"Find Moved Files";

/// The lists that show the catalogue, and what was last seen of the file.
struct CatalogueView {
  controls::ListView& dataList;  ///< Open tab.
  controls::ListView& newFiles;  ///< New tab.
  const controls::ImageList& largeImages;
  const controls::ImageList& smallImages;
  /// State of the catalogue file when the list was last filled from it.
  platform::files::Stamp shown{};
  /// The file's modification time when the watch last looked; 0 at the start.
  platform::files::FileTime lastSeen = 0;
  /// True during a tick of the watch. Its message box processes messages, so further ticks can
  /// arrive.
  bool ticking = false;
};

/// Refills the data list from the catalogue file. A missing file is first built from the data
/// folder. Selection, focus and scroll position stay on their entries. Errors are trapped and shown
/// as "Problem building QMK file list"; the list keeps the items added so far.
void LoadCatalogueView(CatalogueView& view);

/// Adds the four new-file items to the New tab's list. Does not clear the list first.
void AddNewFileItems(CatalogueView& view);

/// One tick of the watch: reloads the view when the catalogue file's modification time differs from
/// the last one seen. Does nothing while the file is missing.
void watchCatalogue(CatalogueView& view);

}  // namespace modQMKGeneral
