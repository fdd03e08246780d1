// Files and folders as the program asks for them.
//
// Paths are Windows paths. A path with an embedded NUL names nothing: searches find nothing,
// every other operation raises 52. What is raised names the path concerned as it was given; of a
// rename or a copy the target where it is the target that fails, else the source.
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

/// Kinds of directory entries that a search returns besides normal files.
enum Attributes : unsigned { normal = 0, hidden = 2, system = 4, directory = 16 };

/// One result of a directory search.
struct Entry {
  std::wstring name;       ///< As stored on disk, without its folder.
  FileTime modified = 0;   ///< Last modification.
  std::wstring shortName;  ///< Its second name, in 8.3 form; "" where it has none.
};

/// All entries that match `pattern` (a path whose last component may hold wildcards), in the
/// order in which the file system returns them. Entries that are hidden, system or folders come
/// only when `attributes` asks for them; "." and ".." never come. An empty result stands for
/// every way of finding nothing; no error is raised. Short names are not given: to read them along
/// is slower.
[[nodiscard]] std::vector<Entry> search(const std::wstring& pattern, unsigned attributes = normal);

/// What `search(folder + L"\\*." + extension)` finds for each of the extensions, with the short
/// names; the folder is read only once.
[[nodiscard]] std::vector<std::vector<Entry>> searchByExtension(
    const std::wstring& folder, const std::vector<std::wstring>& extensions);

/// Name of the first entry that `search` would return, "" when there is none.
[[nodiscard]] std::wstring findFirst(const std::wstring& pattern, unsigned attributes = normal);

/// What is stored under exactly that path, be it a file or a folder, hidden or not; nothing when
/// nothing is, for whatever reason. A wildcard is part of no name.
[[nodiscard]] std::optional<Entry> entryAt(const std::wstring& path);

/// The short name that a new file of that path would get, "" where its volume gives none. The file
/// system alone knows: a file is made for the moment and is gone on return. Raises what making a
/// file raises: 58 (something of that name exists), 75 (no right to make it), 76 (folder missing),
/// 52 (no file can have that name), 61.
[[nodiscard]] std::wstring shortNameOfNew(const std::wstring& path);

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

/// Moment of the last modification of a normal file (not hidden, not system); nothing when there is
/// none, for whatever reason. It costs one question to the file system, for those who ask every
/// second.
[[nodiscard]] std::optional<FileTime> modifiedTime(const std::wstring& path);

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

/// What came of putting a draft in the place of a file.
enum class Replaced {
  yes,           ///< The file now holds what the draft held; the draft is gone.
  changedSince,  ///< Somebody changed the file after `expected` was taken; both are untouched.
};

/// A file in the making that is to take the place of another one. While the draft lives no other
/// program can write, delete or replace it, so that of several programs that make their draft
/// under the same name only one is at work at a time.
class Draft {
 public:
  /// Discards a stale file at `path`, a hidden one too, and creates it anew. While another program
  /// holds it, waits for a moment. Raises 70 (held for longer), 75 (a read-only file, a folder, or
  /// no right to create it), 76 (folder missing).
  explicit Draft(const std::wstring& path);
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  /// Lets go of the file. One that has not taken the other's place stays behind.
  ~Draft();

  /// Makes `bytes` the whole content and flushes it to the disk. Raises 61, 57 and what creating
  /// raises. What was written before a failure stays.
  void write(std::string_view bytes);

  /// Puts the draft in the place of `to` in one atomic step, so that at every instant `to` is
  /// either the old file or the new one. When `expected.present` is false `to` must not exist
  /// yet. After `yes` the draft is spent; after `changedSince` it can be written again. Refuses
  /// what a deletion of `to` would refuse, with its number: 53 (missing), 75 (read-only),
  /// 70 (in use).
  [[nodiscard]] Replaced replace(const std::wstring& to, const Stamp& expected);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace platform::files
