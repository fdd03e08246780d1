// The catalogue file of data files: "QMKFileList3.txt" in the application folder.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue_view.h"
#include "undo/changes.h"

namespace modQMKGeneral {

/// Fields of a catalogue record.
inline constexpr std::size_t typeField = 0;
inline constexpr std::size_t pathField = 1;

/// Path of the catalogue file.
[[nodiscard]] std::wstring cataloguePath();

/// What identifies the entry of a record: its path, in upper case. Nothing for a record without a
/// path, or with one that names no folder.
[[nodiscard]] std::optional<std::wstring> entryOf(const list_file::Record& record);

// `forUndo`, where it is not nullptr, gets what the operation has changed, also when it fails.

/// Appends one record per data file of the data folder to the catalogue (which is created when it
/// is missing), then reloads the view. Errors go to the caller. No command calls it: the load of
/// the view builds a missing catalogue itself. It stays because building with a reload is one of
/// the catalogue's operations, and the next command that needs it must not put it together anew.
void BuildCatalogue(CatalogueView& view);

/// The same without the reload, for the load of the view itself.
void appendDataFolderRecords();

/// Sets today's date in the record of `path`, or appends a record with that type code. Paths
/// compare without regard to case. A path that the code page cannot hold is recognised in each of
/// the forms of stored_path.h and has one record afterwards. Errors are trapped and shown as
/// "Problem saving to QMK list".
void AddOrUpdateCatalogueEntry(const std::wstring& path, const std::wstring& typeCode);

/// What became of files that were to be added.
struct AddedFiles {
  std::size_t added = 0;      ///< Files that have a new record.
  std::size_t present = 0;    ///< Files whose record has today's date now.
  std::size_t wrongType = 0;  ///< None of the four types of data files.
  std::size_t missing = 0;    ///< There is no such file.
};

/// Does for each file what `AddOrUpdateCatalogueEntry` does, with the type code of its extension,
/// in one replacement of the catalogue. Errors are trapped and shown as "Problem saving to QMK
/// list"; nothing is returned then, and nothing is changed.
/// Files that have just been `found` in a folder are added, too, without a look whether they are
/// there.
[[nodiscard]] std::optional<AddedFiles> AddDataFiles(const std::vector<std::wstring>& paths,
                                                     const std::vector<std::wstring>& found = {},
                                                     undo::Changes* forUndo = nullptr);

/// Whether a file name ends like one of a data file.
[[nodiscard]] bool isDataFileName(std::wstring_view name);

/// Drops every record whose path is exactly `path` (case matters), then deletes the data file
/// itself if it exists; the Recycle Bin keeps it. Errors go to the caller (`error::fileNotFound`:
/// no catalogue; `error::badFileName`: the path may mean several files, nothing is changed).
void RemoveCatalogueEntry(const std::wstring& path, undo::Changes* forUndo = nullptr);

/// The same for a missing data file: drops only its records, even if the file exists again by now.
void dropCatalogueEntry(const std::wstring& path, undo::Changes* forUndo = nullptr);

/// Whether a path of the list is one of the data folder, whose files each start lists anew.
[[nodiscard]] bool isOfDataFolder(const std::wstring& path);

/// Replaces the records of the data folder by what the folder holds now. They follow the records of
/// files elsewhere. Then reloads the view. Errors go to the caller (`error::fileNotFound`: no
/// catalogue).
void RefreshDataFolderEntries(CatalogueView& view);

/// Renames the data file of the view's selected item, adding the type's extension where `newName`
/// lacks it, and rewrites the catalogue from the list. When the file is gone, its entry is removed
/// instead. A name that the code page cannot hold is listed in its short form. Where the volume has
/// no short names, such a name is refused with `error::badFileName` before anything is changed.
/// Errors are trapped and shown as "Problem saving to QMK list".
void RenameCatalogueFile(CatalogueView& view, const std::wstring& newName,
                         undo::Changes* forUndo = nullptr);

}  // namespace modQMKGeneral
