// File and folder operations of the program.
//
// Paths are Windows paths. A path with an embedded NUL names nothing: searches find nothing, and
// every other operation raises `error::badFileName`. A raised error names the path concerned, as
// the caller gave it. For a rename or a copy that is the target if the target caused the failure,
// else the source.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::files {

/// A moment in 100-nanosecond steps since 1 January 1601 UTC; 0 stands for "never".
using FileTime = std::uint64_t;

/// Kinds of directory entries that a search returns in addition to normal files.
enum Attributes : unsigned { normal = 0, hidden = 2, system = 4, directory = 16 };

/// One result of a directory search.
struct Entry {
  std::wstring name;       ///< As stored on disk, without its folder.
  FileTime modified = 0;   ///< Last modification.
  std::wstring shortName;  ///< Its second name, in 8.3 form; "" where it has none.
  std::uint64_t size = 0;  ///< Bytes; 0 for a folder.
};

/// All entries that match `pattern` (a path whose last component may hold wildcards), in the order
/// in which the file system returns them. Hidden entries, system entries and folders are included
/// only when `attributes` asks for them; "." and ".." never are. Returns an empty list when nothing
/// is found, for whatever reason; raises no error. Does not fill in the short names, because
/// reading them is slower.
[[nodiscard]] std::vector<Entry> search(const std::wstring& pattern, unsigned attributes = normal);

/// What `search(folder + L"\\*." + extension)` finds for each of the extensions, with the short
/// names. The folder is read only once instead of once per extension. Rows `refresh.10k` and
/// `start.lists` of ./bench include this; no row measures it alone. It matters on Windows and under
/// Wine alike.
[[nodiscard]] std::vector<std::vector<Entry>> searchByExtension(
    const std::wstring& folder, const std::vector<std::wstring>& extensions);

/// Name of the first entry that `search` would return, "" when there is none.
[[nodiscard]] std::wstring findFirst(const std::wstring& pattern, unsigned attributes = normal);

/// The entry of exactly that path: a file or a folder, hidden or not. Nothing when there is none,
/// for whatever reason. A path with a wildcard finds nothing.
[[nodiscard]] std::optional<Entry> entryAt(const std::wstring& path);

/// The short name that a new file of that path would get, "" where its volume creates none. Only
/// the file system can tell, so the file is created for a moment and deleted again before the call
/// returns. Raises what creating a file raises: `error::fileExists` (something has that name),
/// `error::pathFileAccess` (no right to create it), `error::pathNotFound` (folder missing),
/// `error::badFileName` (no file can have that name), `error::diskFull`.
[[nodiscard]] std::wstring shortNameOfNew(const std::wstring& path);

/// Whether files can be made in a folder: false only if the system refuses it. A file is made there
/// for a moment and is gone again before the call returns.
[[nodiscard]] bool mayWriteTo(const std::wstring& folder);

/// Whether a normal file (not hidden, not system) of that path is found.
[[nodiscard]] bool fileExists(const std::wstring& path);

/// Whether a directory search that includes folders finds that path.
[[nodiscard]] bool folderExists(const std::wstring& path);

/// What tells one folder from all others, by whatever path it is reached.
struct FolderId {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;
  bool operator==(const FolderId&) const = default;
  /// An order of folders, without a meaning.
  bool operator<(const FolderId& other) const {
    return volume == other.volume ? number < other.number : volume < other.volume;
  }
};

/// What is directly in a folder.
struct FolderContents {
  std::vector<std::wstring> files;    ///< Names of the normal files.
  std::vector<std::wstring> folders;  ///< Names of the normal folders; no links, no junctions.
  std::optional<FolderId> id;         ///< Nothing where the file system does not tell.
};

/// What is in a folder; empty when it cannot be read, for whatever reason. May be called on any
/// thread.
[[nodiscard]] FolderContents contentsOf(const std::wstring& folder);

/// Creates one folder. Raises `error::pathFileAccess` when it exists, `error::pathNotFound` when
/// its parent is missing.
void makeFolder(const std::wstring& path);

/// Deletes a file. Raises `error::fileNotFound` when it is missing, `error::pathFileAccess` when it
/// is read-only, `error::permissionDenied` when it is in use.
void remove(const std::wstring& path);

/// Renames a file. Raises `error::fileNotFound` (source missing), `error::fileExists` (target
/// exists), `error::pathNotFound` (target's folder missing), `error::permissionDenied` (in use), 74
/// (other drive).
void rename(const std::wstring& from, const std::wstring& to);

/// Copies a file, replacing the target. Raises `error::fileNotFound` (source missing),
/// `error::pathNotFound` (target's folder missing), `error::pathFileAccess` (target read-only).
void copy(const std::wstring& from, const std::wstring& to);

/// Moment of the last modification of a normal file (not hidden, not system); nothing when there is
/// none, for whatever reason. Costs a single query of the file system, because the watch calls it
/// every second. On the network the server is asked, because the system remembers for seconds what
/// it said before.
[[nodiscard]] std::optional<FileTime> modifiedTime(const std::wstring& path);

/// Distinguishes one state of a file from another without reading it.
struct Stamp {
  bool present = false;  ///< False: there was no such file; the other members are zero.
  FileTime modified = 0;
  std::uint64_t size = 0;    ///< Bytes.
  std::uint64_t fileId = 0;  ///< Identity of the file behind the name on its volume.
  bool operator==(const Stamp&) const = default;
};

/// The whole content of a file, with the stamp that the file had while it was read.
struct Contents {
  std::string bytes;
  Stamp stamp;
};

/// Reads a whole file. Raises `error::fileNotFound` (missing), `error::pathNotFound` (folder
/// missing), `error::permissionDenied` (in use), `error::pathFileAccess` (a folder).
[[nodiscard]] Contents readWhole(const std::wstring& path);

/// Reads a whole file that is going to be appended to. A missing file gives empty contents with
/// `stamp.present` false. Raises `error::pathFileAccess` (read-only, or a folder of that name),
/// `error::pathNotFound` (folder missing), `error::permissionDenied` (in use).
[[nodiscard]] Contents readForAppending(const std::wstring& path);

/// Result of replacing a file by a draft.
enum class Replaced {
  yes,           ///< The file now has the draft's content; the draft is gone.
  changedSince,  ///< The file was changed after `expected` was taken; both are untouched.
};

/// A temporary file that is to replace another file. While the draft exists, no other program can
/// write, delete or replace it. It therefore also serves as a lock: of several programs that use
/// the same name for their draft, only one is at work at a time.
class Draft {
 public:
  /// Deletes a stale file at `path`, even a hidden one, and creates it anew. If another program
  /// holds the file, waits for a short time. Raises `error::permissionDenied` (held for longer),
  /// `error::pathFileAccess` (a read-only file, a folder, or no right to create it),
  /// `error::pathNotFound` (folder missing).
  explicit Draft(const std::wstring& path);
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  /// Closes the file. A draft that has not replaced its target stays on the disk.
  ~Draft();

  /// Makes `bytes` the whole content and flushes it to the disk. Raises `error::diskFull`,
  /// `error::deviceError` and what creating the file raises. After a failure, what was already
  /// written stays.
  void write(std::string_view bytes);

  /// Whether every write from now on gives a file with that stamp another one. Not so for a file
  /// that was written within the last step of the file system's time, which may be two seconds: a
  /// write of the same length within that step leaves the stamp as it is. The file must be on the
  /// draft's file system.
  [[nodiscard]] bool tellsLaterWrites(const Stamp& stamp) const;

  /// Keeps other programs from writing to the file that is going to be replaced, until the next
  /// `replace` has compared it, or the draft ends. They can read it, and so can this program. False
  /// when that cannot be, for whatever reason.
  [[nodiscard]] bool keepOthersFromWriting(const std::wstring& to);

  /// Atomically replaces `to` by the draft: at every instant `to` is either the old file or the new
  /// one. When `expected.present` is false, `to` must not exist yet. With `bytes`, the content of
  /// `to` must be that, too; this is for stamps for which `tellsLaterWrites` is false. After `yes`
  /// the draft cannot be used again. Lines that another program appended at that very moment then
  /// follow the new content. After `changedSince` it can be written again. Refuses whatever
  /// a deletion of `to` would refuse, with the same error: `error::fileNotFound` (missing),
  /// `error::pathFileAccess` (read-only), `error::permissionDenied` (in use).
  [[nodiscard]] Replaced replace(const std::wstring& to, const Stamp& expected,
                                 const std::string* bytes = nullptr);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace platform::files
