// The list shows files elsewhere from now on.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/catalogue_view.h"
#include "undo/changes.h"

namespace modQMKGeneral {

/// An entry that is to show another file.
struct PathChange {
  std::wstring from;  ///< The path as listed.
  std::wstring to;    ///< The file's path.
};

/// What became of such entries.
struct PathChanges {
  std::size_t changed = 0;  ///< Records that have the new path.
  std::size_t listed = 0;   ///< Records left as they are, because the new path is listed already.
  std::size_t gone = 0;     ///< Entries left, because the file is not there any more.
  std::size_t unclear = 0;  ///< Entries left, because too many files may be theirs.
};

/// Takes out the changes to files that are not there, and returns their number. Asks the drives, so
/// it may take long; may be called on any thread.
std::size_t dropThoseGone(std::vector<PathChange>& changes);

/// Gives the records of these entries their new paths, in one replacement of the catalogue. Nothing
/// else of a record changes, nor its place. Fills in `changed` and `listed`. Paths compare without
/// regard to case. Errors are trapped and shown as "Problem saving to QMK list"; nothing is
/// returned then, and nothing is changed.
[[nodiscard]] std::optional<PathChanges> changePaths(const std::vector<PathChange>& changes,
                                                     undo::Changes* forUndo = nullptr);

/// Loads the view after these changes. If the selected entry is one of them, it stays selected.
void loadChanged(CatalogueView& view, const std::vector<PathChange>& changes);

/// As in "12 entries changed, 2 already listed, 1 no longer there, 3 in too many folders".
[[nodiscard]] std::wstring changedText(const PathChanges& changes);

}  // namespace modQMKGeneral
