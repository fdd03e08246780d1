// Files and folders as the program asks for them.
//
// Paths are Windows paths. A path with an embedded NUL names nothing: searches find nothing,
// every other operation raises 52.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform::files {

/// A moment in 100-nanosecond steps since 1 January 1601 UTC; 0 stands for "never".
using FileTime = std::uint64_t;

/// Kinds of directory entries that a search returns besides normal files.
enum Attributes : unsigned { normal = 0, hidden = 2, system = 4, directory = 16 };

/// One result of a directory search.
struct Entry {
  std::wstring name;      ///< As stored on disk, without its folder.
  FileTime modified = 0;  ///< Last modification.
};

/// All entries that match `pattern` (a path whose last component may hold wildcards), in the
/// order in which the file system returns them. Entries that are hidden, system or folders come
/// only when `attributes` asks for them; "." and ".." never come. An empty result stands for
/// every way of finding nothing; no error is raised.
[[nodiscard]] std::vector<Entry> search(const std::wstring& pattern, unsigned attributes = normal);

/// Name of the first entry that `search` would return, "" when there is none.
[[nodiscard]] std::wstring findFirst(const std::wstring& pattern, unsigned attributes = normal);

/// Whether a normal file (not hidden, not system) of that path is found.
[[nodiscard]] bool fileExists(const std::wstring& path);

/// Whether a directory search that includes folders finds that path.
[[nodiscard]] bool folderExists(const std::wstring& path);

/// Makes one folder. Raises 75 when it exists, 76 when its parent is missing.
void makeFolder(const std::wstring& path);

/// Deletes a file. Raises 53 when it is missing, 75 when it is read-only, 70 when it is in use.
void remove(const std::wstring& path);

/// Renames a file. Raises 53 (source missing), 58 (target exists), 76 (target's folder missing),
/// 70 (in use), 74 (other drive).
void rename(const std::wstring& from, const std::wstring& to);

/// Copies a file, replacing the target. Raises 53 (source missing), 76 (target's folder missing),
/// 75 (target read-only).
void copy(const std::wstring& from, const std::wstring& to);

/// Moment of the last modification. Raises 53 when the file is missing.
[[nodiscard]] FileTime modifiedTime(const std::wstring& path);

/// What tells one state of a file from another without reading it.
struct Stamp {
  bool present = false;  ///< False: there was no such file; the rest is then zero.
  FileTime modified = 0;
  std::uint64_t size = 0;    ///< Bytes.
  std::uint64_t fileId = 0;  ///< Identity of the file behind the name on its volume.
  bool operator==(const Stamp&) const = default;
};

/// The whole of a file, with the stamp it had while it was read.
struct Contents {
  std::string bytes;
  Stamp stamp;
};

/// Reads a file whole. Raises 53 (missing), 76 (folder missing), 70 (in use), 75 (a folder).
[[nodiscard]] Contents readWhole(const std::wstring& path);

/// Reads a file whole as one does before adding to it: a missing file is empty contents with
/// `stamp.present` false. Raises 75 (read-only, or a folder of that name), 76 (folder missing),
/// 70 (in use).
[[nodiscard]] Contents readForAppending(const std::wstring& path);

/// Creates `path` or empties it, writes `bytes`, and flushes them to the disk before it closes
/// the file. Raises 61, 70, 75, 76. What was written before a failure stays.
void writeWhole(const std::wstring& path, const std::string& bytes);

/// What came of a `replace`.
enum class Replaced {
  yes,           ///< `to` now holds what `from` held; `from` is gone.
  changedSince,  ///< Somebody changed `to` after `expected` was taken; both files are untouched.
};

/// Puts `from` in the place of `to` in one atomic step, so that at every instant `to` is either
/// the old file or the new one. When `expected.present` is false `to` must not exist yet.
/// Refuses what a deletion of `to` would refuse, with its number: 53 (missing), 75 (read-only),
/// 70 (in use).
[[nodiscard]] Replaced replace(const std::wstring& from, const std::wstring& to,
                               const Stamp& expected);

}  // namespace platform::files
