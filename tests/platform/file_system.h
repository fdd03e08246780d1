// An in-memory disk that behaves like a Windows volume.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace memory {

/// Drives, folders and files.
///
/// Names compare without regard to case and keep the case with which they were created. Folders
/// list their entries in the order in which they were added. Double backslashes count as one,
/// slashes as backslashes. A path that is not absolute names nothing.
class FileSystem {
 public:
  using FileTime = platform::files::FileTime;

  /// `now` returns the time of a write. Each write gets a later time than the write before, like on
  /// a real disk, even if the clock stands still.
  explicit FileSystem(std::function<FileTime()> now);
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;
  ~FileSystem();

  // --- for tests, to prepare and inspect; these ignore attributes and locks ---

  void putFile(const std::wstring& path, const std::string& bytes, unsigned attributes,
               FileTime modified);
  void putFolder(const std::wstring& path);
  void take(const std::wstring& path);
  [[nodiscard]] std::optional<std::string> bytesOf(const std::wstring& path) const;
  [[nodiscard]] bool has(const std::wstring& path) const;
  [[nodiscard]] std::vector<std::wstring> namesIn(const std::wstring& folder) const;
  void setReadOnly(const std::wstring& path, bool readOnly);
  void setHidden(const std::wstring& path, bool hidden);
  void setModified(const std::wstring& path, FileTime modified);
  void setLocked(const std::wstring& path, bool locked);
  void setProtected(const std::wstring& folder, bool isProtected);
  /// Lets a new folder at `path` lead to an existing one. `recognisable` says whether the disk
  /// tells that it is a link.
  void linkFolder(const std::wstring& path, const std::wstring& target, bool recognisable);
  void alias(const std::wstring& shortPath, const std::wstring& longPath);
  void giveShortNames(const std::wstring& drive);
  /// The drives that anything was put on ("C:"); network paths are none.
  [[nodiscard]] std::vector<std::wstring> driveLetters() const;
  /// Free space on the disk in bytes; nothing means no limit. A write that needs more raises
  /// `error::diskFull` and leaves what fitted.
  void setFreeBytes(std::optional<std::uint64_t> bytes) { freeBytes_ = bytes; }

  /// A file in the Recycle Bin.
  struct Recycled {
    std::wstring path;  ///< Where it was, as the program gave it.
    std::string bytes;
    unsigned attributes = 0;  ///< As for a search.
    FileTime modified = 0;
  };
  /// What is in the bin, in the order of the deletions.
  [[nodiscard]] std::vector<Recycled> bin() const;
  void emptyBin();

  // --- the operations of platform/recycle_bin.h, with the same errors ---

  /// Deletes a file into the bin. Returns its id there.
  [[nodiscard]] std::string recycle(const std::wstring& path);
  [[nodiscard]] bool holds(const std::string& id) const;
  void restore(const std::wstring& path, const std::string& id);

  // --- the operations of platform/files.h, with the same errors ---

  [[nodiscard]] std::vector<platform::files::Entry> search(const std::wstring& pattern,
                                                           unsigned attributes) const;
  [[nodiscard]] platform::files::FolderContents contentsOf(const std::wstring& folder) const;
  [[nodiscard]] std::optional<platform::files::Entry> entryAt(const std::wstring& path) const;
  [[nodiscard]] std::wstring shortNameOfNew(const std::wstring& path);
  [[nodiscard]] bool mayWriteTo(const std::wstring& folder) const;
  void makeFolder(const std::wstring& path);
  void remove(const std::wstring& path);
  void rename(const std::wstring& from, const std::wstring& to);
  void copy(const std::wstring& from, const std::wstring& to);
  [[nodiscard]] FileTime modifiedTime(const std::wstring& path) const;
  [[nodiscard]] platform::files::Contents readWhole(const std::wstring& path) const;
  [[nodiscard]] platform::files::Contents readForAppending(const std::wstring& path) const;
  void writeWhole(const std::wstring& path, const std::string& bytes);
  [[nodiscard]] platform::files::Replaced replace(const std::wstring& from, const std::wstring& to,
                                                  const platform::files::Stamp& expected);

 private:
  struct Node;
  struct Place;
  [[nodiscard]] Place locate(const std::wstring& path) const;
  [[nodiscard]] Node& existing(const std::wstring& path) const;
  /// The same for operations that report a missing folder as a missing file.
  [[nodiscard]] Node& existingFile(const std::wstring& path) const;
  Node& folderFor(const std::wstring& path);
  void store(Node& file, const std::string& bytes);
  FileTime stampTime();

  std::function<FileTime()> now_;
  struct BinEntry;
  [[nodiscard]] std::vector<std::unique_ptr<BinEntry>>::const_iterator inBin(
      const std::string& id) const;
  std::map<std::wstring, std::unique_ptr<Node>> drives_;
  std::vector<std::unique_ptr<BinEntry>> bin_;
  std::uint64_t lastRecycled_ = 0;
  FileTime lastWrite_ = 0;
  std::uint64_t lastId_ = 0;
  std::optional<std::uint64_t> freeBytes_;
};

}  // namespace memory
