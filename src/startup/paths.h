// The program's folders, and operations on paths that all parts share.
#pragma once

#include <string>

namespace modQMKGeneral {

/// Documents folder + "\My QMKExtra3", and its "ShortCuts" subfolder. Set once by
/// `InitUserFolders`; no trailing backslash.
extern std::wstring UserFolder;
extern std::wstring ShortCutsFolder;

/// Folder of the launcher's own executable, without a trailing backslash.
[[nodiscard]] std::wstring AppFolder();

/// Path of the file in which a copy of the program that is carried around stores its settings:
/// "gateway3.ini" beside the program. Other copies have no such file.
[[nodiscard]] std::wstring SettingsFile();

/// Where the copies of the two list files are kept: the folder "Backup" of `UserFolder`. A copy of
/// the program that has a settings file keeps them beside the program. "" as long as the user's
/// folder is not known. The folder may be missing.
[[nodiscard]] std::wstring BackupFolder();

/// Computes `UserFolder` and `ShortCutsFolder` and creates those that are missing. Raises the
/// platform's error when a folder cannot be created (`error::pathNotFound`: the documents folder is
/// missing).
void InitUserFolders();

/// Creates a folder unless a directory search finds one of that name. Raises
/// `error::pathFileAccess` or `error::pathNotFound`.
void ensureFolder(const std::wstring& path);

}  // namespace modQMKGeneral

namespace smodFolders {

/// Path of a shell special folder as the shell reports it, "" when it cannot be resolved.
[[nodiscard]] std::wstring GetSpecialFolder(int folderId);

}  // namespace smodFolders

namespace SmodMisc {

/// The path with every component spelled as on the disk (long name, letter case) and without a
/// trailing backslash; "" when it is empty or a component does not exist. The first two characters
/// are taken as the drive and stay as they are, as do the server and the share of a network path
/// (companies redirect the documents folder to one); a network path without a share gives "".
[[nodiscard]] std::wstring CanonicalPath(const std::wstring& path);

/// Splits at the last backslash: `name` is the part after it, `folder` the part up to and including
/// it. Without a backslash `name` is the whole path and `folder` is empty.
void SplitPath(const std::wstring& path, std::wstring& name, std::wstring& folder);

}  // namespace SmodMisc
