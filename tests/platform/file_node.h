// The entries of the in-memory disk, and the syntax of paths and wildcards.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/files.h"

namespace memory {

/// A file, a folder or the root of a drive.
struct FileSystem::Node {
  std::wstring name;
  std::wstring shortName;  ///< 8.3 name, "" for none.
  bool folder = false;
  bool readOnly = false;
  bool hidden = false;
  bool system = false;
  bool locked = false;
  bool isLink = false;       ///< Whether the disk tells that the folder leads to another one.
  Node* target = nullptr;    ///< The folder that this one leads to, not owned.
  Node* secondOf = nullptr;  ///< The file of which this is a second name, not owned.
  bool isProtected = false;  ///< A folder in which nothing may be made, changed or deleted.
  std::string bytes;
  platform::files::FileTime modified = 0;
  bool givesShortNames = false;  ///< For the root of a drive.
  std::uint64_t id = 0;
  Node* parent = nullptr;
  std::vector<std::unique_ptr<Node>> children;

  void setName(const std::wstring& newName);
  /// Creates the short name on a drive that has short names; it is unique in the folder.
  void nameShortly();
  /// The entry of that long or short name, nullptr when there is none.
  [[nodiscard]] Node* child(const std::wstring& wanted) const;
  Node& add(const std::wstring& newName);
  /// Adds an entry for the program, which raises `error::pathFileAccess` in a protected folder.
  Node& make(const std::wstring& newName);
  void adopt(std::unique_ptr<Node> node);
  /// Removes an entry and returns it. Its second name, if it has one, keeps the content.
  std::unique_ptr<Node> drop(const Node& node);
  /// Leaves the content to the second name, if there is one.
  void leaveToSecondName();
  /// Takes content, stamp and attributes over from another file.
  void become(const Node& other);
  [[nodiscard]] const Node& content() const { return secondOf == nullptr ? *this : *secondOf; }
  [[nodiscard]] unsigned attributes() const;
  [[nodiscard]] platform::files::Stamp stamp() const;
  /// Whether the long or the short name matches a wildcard pattern.
  [[nodiscard]] bool matches(const std::wstring& pattern) const;
  /// Raises what a deletion would raise: `error::pathFileAccess` for a folder or a read-only file,
  /// `error::permissionDenied` for one in use.
  void refuseDeletion() const;

 private:
  std::wstring upperName_;
};

struct FileSystem::Shown {
  platform::files::Entry entry;
  unsigned attributes = 0;
  bool isLink = false;
};

struct FileSystem::Former {
  const Node* folder = nullptr;
  std::wstring name;  ///< In upper case.
  FileTime time = 0;
  int machine = 0;
  bool learnt = false;         ///< Not a change: the machine knows the state since that time.
  std::optional<Shown> entry;  ///< What was there before; nothing when nothing was.
};

/// The result of looking up a path.
struct FileSystem::Place {
  Node* drive = nullptr;   ///< Root at which the path begins.
  Node* folder = nullptr;  ///< Folder that holds the last component, if it exists.
  std::wstring name;       ///< Last component.
  Node* node = nullptr;    ///< The entry of that name, if there is one.
  int failure = 0;         ///< If there is no node: the error of opening the path.
};

/// A path split into its parts. `names` contains neither "." nor "..".
struct PathParts {
  bool valid = false;  ///< False for embedded NULs and forbidden characters in a folder's name.
  std::wstring drive;  ///< "C:" or "\\server\share", "" when the path is not absolute.
  std::vector<std::wstring> names;
  bool endsInSeparator = false;
};

[[nodiscard]] PathParts splitPath(const std::wstring& path);

/// Whether a file or folder can have that name.
[[nodiscard]] bool isName(const std::wstring& name);

/// Whether a name is in 8.3 form already, so that it gets no short name.
[[nodiscard]] bool isShortName(const std::wstring& name);

/// Whether an upper-case name matches an upper-case pattern. "*" stands for any characters, "?" for
/// one, or for none at the end of the name or before a dot. "*.*" matches names without a dot too.
[[nodiscard]] bool fits(const std::wstring& name, const std::wstring& pattern);

}  // namespace memory
