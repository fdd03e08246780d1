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

  /// What a file system can do. The usual one is like a disk of this machine.
  struct Profile {
    bool hardLinks = true;
    /// Whether an open file can be replaced.
    bool posixRename = true;
    /// Time stamps are multiples of this; 0: each write gets a later stamp than the one before.
    FileTime timeStep = 0;
    /// For so long, looks that do not open a file may show what it was before another machine
    /// changed it.
    FileTime visibilityDelay = 0;
  };
  Profile profile;
  /// The machine that does what is done from now on; each knows at once what it did itself.
  int machine = 0;

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

  // --- files that stay open, and the steps of platform/draft_steps.h (open_files.cpp) ---

  /// What somebody does with an open file, or lets others do meanwhile.
  enum Use : unsigned { reads = 1, writes = 2, deletes = 4, everything = 7 };
  /// An open file; 0 stands for none. Numbers are never used again.
  using Handle = std::uint64_t;
  /// Opens an existing file. Raises `error::permissionDenied` if that is not compatible with what
  /// others do with it.
  [[nodiscard]] Handle open(const std::wstring& path, unsigned uses, unsigned shared);
  /// Makes a file and holds it so that others can only read it. Raises `error::fileExists`, and
  /// what making a file raises. With `passing` it is deleted when it is closed.
  [[nodiscard]] Handle make(const std::wstring& path, bool passing);
  void close(Handle handle);
  /// Closes what a machine has open, as the system does when a program ends.
  void closeAllOf(int ofMachine);
  [[nodiscard]] bool isOpen(const std::wstring& path) const;
  /// These two raise `error::permissionDenied` for a file that is not open under that number.
  void writeTo(Handle handle, const std::string& bytes);
  void appendTo(Handle handle, const std::string& bytes);
  [[nodiscard]] std::optional<platform::files::Stamp> stampOf(Handle handle) const;
  /// Renames an open file over another one, which may be open if `overOpen`; false if it is and may
  /// not.
  [[nodiscard]] bool renameOver(Handle handle, const std::wstring& to, bool overOpen);
  /// False when something has the name.
  [[nodiscard]] bool renameToFree(Handle handle, const std::wstring& to);
  /// Raises what a deletion would raise.
  void refuseDeletionOf(const std::wstring& path) const;
  /// False when the name is taken or there is no such file.
  [[nodiscard]] bool addName(const std::wstring& file, const std::wstring& name);
  /// A file under its second name.
  [[nodiscard]] std::optional<platform::files::Contents> behind(const std::wstring& name) const;
  /// False when somebody has the file `to` open.
  [[nodiscard]] bool putBack(const std::wstring& name, const std::wstring& to);
  void removeName(const std::wstring& name);
  /// What opening a file tells of its time; nothing for one that is missing or not normal.
  [[nodiscard]] std::optional<FileTime> modifiedByOpening(const std::wstring& path);

 private:
  struct Node;
  struct Open {
    Handle handle = 0;
    std::uint64_t file = 0;
    int machine = 0;
    unsigned uses = 0;
    unsigned shared = everything;
    bool passing = false;
  };
  /// What other machines see of an entry until they see a change.
  struct Former;
  [[nodiscard]] Node* fileOf(Handle handle) const;
  /// Raises `error::permissionDenied` if somebody does with the file what is not compatible.
  void refuseUse(const Node& node, unsigned uses, unsigned shared = everything) const;
  /// To be called before an entry of that name changes, appears or goes.
  void changing(const Node& folder, const std::wstring& name);
  /// To be called when the present machine learns the true state of an entry.
  void learns(const Node& folder, const std::wstring& name);
  struct Shown;
  /// The normal and other entries of a folder as the present machine sees them.
  [[nodiscard]] std::vector<Shown> shownIn(const Node& folder) const;
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
  std::vector<Open> opens_;
  Handle lastHandle_ = 0;
  std::vector<Former> formers_;
};

}  // namespace memory
