// Functions with which a test prepares and inspects the in-memory disk.
#include "platform/file_node.h"
#include "platform/file_system.h"
#include "platform/run_time_error.h"

namespace memory {

using platform::RunTimeError;
namespace error = platform::error;

void FileSystem::putFile(const std::wstring& path, const std::string& bytes, unsigned attributes,
                         FileTime modified) {
  Place place = locate(path);
  if (place.node == nullptr) {
    const auto separator = path.find_last_of(L"\\/");
    if (separator == std::wstring::npos) {
      throw RunTimeError(error::badFileName);
    }
    Node& folder = folderFor(path.substr(0, separator));
    place.node = &folder.add(path.substr(separator + 1));
    place.node->id = ++lastId_;
  } else if (place.node->folder) {
    throw RunTimeError(error::pathFileAccess);
  }
  changing(*place.node->parent, place.node->name);
  place.node->bytes = bytes;
  place.node->hidden = (attributes & platform::files::hidden) != 0;
  place.node->system = (attributes & platform::files::system) != 0;
  place.node->modified = modified != 0 ? modified : stampTime();
}

void FileSystem::putFolder(const std::wstring& path) { folderFor(path); }

void FileSystem::take(const std::wstring& path) {
  Node& node = existing(path);
  if (node.parent != nullptr) {
    node.parent->drop(node);
  }
}

std::optional<std::string> FileSystem::bytesOf(const std::wstring& path) const {
  const Place place = locate(path);
  if (place.node == nullptr || place.node->folder) {
    return std::nullopt;
  }
  return place.node->bytes;
}

bool FileSystem::has(const std::wstring& path) const { return locate(path).node != nullptr; }

std::vector<std::wstring> FileSystem::namesIn(const std::wstring& folder) const {
  std::vector<std::wstring> names;
  for (const auto& child : existing(folder).children) {
    names.push_back(child->name);
  }
  return names;
}

std::vector<std::wstring> FileSystem::driveLetters() const {
  std::vector<std::wstring> letters;
  for (const auto& [drive, root] : drives_) {
    if (drive.ends_with(L':')) {
      letters.push_back(drive);
    }
  }
  return letters;
}

void FileSystem::setReadOnly(const std::wstring& path, bool readOnly) {
  existing(path).readOnly = readOnly;
}

void FileSystem::setHidden(const std::wstring& path, bool hidden) {
  existing(path).hidden = hidden;
}

void FileSystem::setModified(const std::wstring& path, FileTime modified) {
  existing(path).modified = modified;
}

void FileSystem::setLocked(const std::wstring& path, bool locked) {
  existing(path).locked = locked;
}

void FileSystem::linkFolder(const std::wstring& path, const std::wstring& target,
                            bool recognisable) {
  Node& link = folderFor(path);
  link.target = &existing(target);
  link.isLink = recognisable;
}

void FileSystem::setProtected(const std::wstring& folder, bool isProtected) {
  existing(folder).isProtected = isProtected;
}

void FileSystem::alias(const std::wstring& shortPath, const std::wstring& longPath) {
  existing(longPath).shortName = shortPath.substr(shortPath.find_last_of(L'\\') + 1);
}

void FileSystem::giveShortNames(const std::wstring& drive) {
  Node& root = folderFor(drive);
  root.givesShortNames = true;
  std::vector<Node*> folders{&root};
  while (!folders.empty()) {
    const Node& folder = *folders.back();
    folders.pop_back();
    for (const auto& child : folder.children) {
      child->nameShortly();
      folders.push_back(child.get());
    }
  }
}

}  // namespace memory
