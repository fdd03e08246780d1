// Taking data files out of the list, and bringing entries of other lists in. The data files
// themselves are not touched.
#pragma once

#include <optional>
#include <string>

#include "catalogue/catalogue_view.h"
#include "listfile/list_exchange.h"
#include "undo/changes.h"

namespace modQMKGeneral {

/// Drops every record whose path is exactly `path` (case matters), and reloads the view. Errors of
/// the file are trapped and shown as "Problem saving to QMK list"; false then.
bool removeFromList(CatalogueView& view, const std::wstring& path,
                    undo::Changes* forUndo = nullptr);

/// Appends those records of another catalogue, `bytes`, whose path the catalogue does not have yet
/// in any letter case, byte for byte, and reloads the view. A record without a path, or with one
/// that names no folder, is left out. Errors of the file are trapped and shown as "Problem saving
/// to QMK list"; nothing is returned then.
std::optional<list_file::Merged> addCatalogueRecords(CatalogueView& view, const std::string& bytes,
                                                     undo::Changes* forUndo = nullptr);

/// The rows that the data list shows, as the contents of a catalogue file.
[[nodiscard]] std::string shownCatalogueRecords(const controls::ListView& list);

}  // namespace modQMKGeneral
