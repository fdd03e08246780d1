// The lists of the Open and New tabs, and the watch on the catalogue file.
#pragma once

#include <vector>

#include "platform/controls/image_list.h"
#include "platform/controls/list_view.h"
#include "platform/files.h"

namespace modQMKGeneral {

/// Columns of the data list, as sub-items count: 0 is the item's text, the file name.
namespace data_column {
inline constexpr std::size_t date = 1;
inline constexpr std::size_t label = 2;
inline constexpr std::size_t folder = 3;  ///< With a trailing backslash.
inline constexpr std::size_t type = 4;    ///< Type code as stored in the record.
/// The columns that tell one data file from another.
inline const std::vector<std::size_t> entry{0, folder};
}  // namespace data_column

/// What the catalogue shows itself in, and what it remembers of the file.
struct CatalogueView {
  controls::ListView& dataList;  ///< Open tab.
  controls::ListView& newList;   ///< New tab.
  const controls::ImageList& largeImages;
  const controls::ImageList& smallImages;
  /// State of the catalogue file that the list was last filled from.
  platform::files::Stamp shown{};
  /// The file's modification time as the watch last saw it; 0 at the start.
  platform::files::FileTime lastSeen = 0;
  /// True while a tick of the watch is at work: its message box lets further ticks through.
  bool ticking = false;
};

/// Refills the data list from the catalogue file, which is built from the data folder when it is
/// missing. Selection, focus and scroll position stay with their entries. Errors are trapped and
/// shown as "Problem building QMK file list"; the list keeps the items added so far.
void LoadCatalogueView(CatalogueView& view);

/// Adds the four new-file items to the New tab's list; does not clear it first.
void AddNewFileItems(CatalogueView& view);

/// One tick of the watch: reloads the view when the catalogue file's modification time is another
/// one than last seen. Does nothing while the file is missing.
void WatchCatalogue(CatalogueView& view);

}  // namespace modQMKGeneral
