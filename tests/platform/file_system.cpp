#include "platform/file_system.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cwctype>
#include <utility>

#include "platform/file_node.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace memory {

using platform::raiseAbout;
using platform::RunTimeError;
using platform::files::Contents;
namespace error = platform::error;

FileSystem::FileTime FileSystem::stampTime() {
  constexpr FileTime second = 10'000'000;
  const FileTime now = now_();
  if (profile.timeStep > 0) {
    return now - now % profile.timeStep;
  }
  // After a clock change in either direction, times count from the new time on.
  const bool stands = now <= lastWrite_ && lastWrite_ - now < second;
  lastWrite_ = stands ? lastWrite_ + 1 : now;
  return lastWrite_;
}

FileSystem::Place FileSystem::locate(const std::wstring& path) const {
  Place place;
  const PathParts parts = splitPath(path);
  if (!parts.valid) {
    place.failure = error::badFileName;
    return place;
  }
  const auto drive = drives_.find(platform::text::upper(parts.drive));
  if (drive == drives_.end()) {
    place.failure = parts.drive.starts_with(L"\\\\") ? error::badFileName : error::pathNotFound;
    return place;
  }
  Node* node = drive->second.get();
  place.drive = node;
  for (const std::wstring& name : parts.names) {
    place.folder = node;
    place.name = name;
    if (node == nullptr || !node->folder) {
      place.folder = nullptr;
      place.failure = error::pathNotFound;
      return place;
    }
    node = node->child(name);
    if (node != nullptr && node->target != nullptr) {
      node = node->target;
    }
  }
  place.node = node;
  if (node == nullptr) {
    place.failure = error::fileNotFound;
  } else if (parts.endsInSeparator && !node->folder) {
    place.node = nullptr;
    place.failure = error::badFileName;
  }
  if (place.node == nullptr && !isName(place.name)) {
    place.failure = error::badFileName;
  }
  return place;
}

FileSystem::Node& FileSystem::existing(const std::wstring& path) const {
  const Place place = locate(path);
  if (place.node == nullptr) {
    throw RunTimeError(place.failure);
  }
  return *place.node;
}

FileSystem::Node& FileSystem::existingFile(const std::wstring& path) const {
  try {
    return existing(path);
  } catch (const RunTimeError& failure) {
    throw RunTimeError(failure.number() == error::pathNotFound ? error::fileNotFound
                                                               : failure.number());
  }
}

FileSystem::Node& FileSystem::folderFor(const std::wstring& path) {
  const PathParts parts = splitPath(path);
  if (!parts.valid) {
    throw RunTimeError(error::badFileName);
  }
  auto& root = drives_[platform::text::upper(parts.drive)];
  if (!root) {
    root = std::make_unique<Node>();
    root->setName(parts.drive);
    root->folder = true;
  }
  Node* node = root.get();
  for (const std::wstring& name : parts.names) {
    Node* next = node->child(name);
    if (next == nullptr) {
      next = &node->add(name);
      next->folder = true;
      next->modified = stampTime();
    }
    node = next;
  }
  return *node;
}

void FileSystem::store(Node& file, const std::string& bytes) {
  changing(*file.parent, file.name);
  if (freeBytes_) {
    const std::uint64_t room = *freeBytes_ + file.bytes.size();
    const std::uint64_t fits = std::min<std::uint64_t>(room, bytes.size());
    file.bytes = bytes.substr(0, fits);
    freeBytes_ = room - fits;
    file.modified = stampTime();
    if (fits < bytes.size()) {
      throw RunTimeError(error::diskFull);
    }
    return;
  }
  file.bytes = bytes;
  file.modified = stampTime();
}

std::vector<platform::files::Entry> FileSystem::search(const std::wstring& pattern,
                                                       unsigned attributes) const {
  std::vector<platform::files::Entry> found;
  const auto separator = pattern.find_last_of(L"\\/");
  if (separator == std::wstring::npos || pattern.find(L'\0') != std::wstring::npos) {
    return found;
  }
  std::wstring wanted = pattern.substr(separator + 1);
  if (wanted.find_first_of(L"*?") == std::wstring::npos) {
    // As in every other path, dots and blanks at the end of a plain name are ignored.
    wanted.erase(wanted.find_last_not_of(L". ") + 1);
  }
  const Place place = locate(pattern.substr(0, separator + 1));
  if (wanted.empty() || place.node == nullptr || !place.node->folder) {
    return found;
  }
  for (Shown& shown : shownIn(*place.node)) {
    Node names;
    names.setName(shown.entry.name);
    names.shortName = shown.entry.shortName;
    if ((shown.attributes & ~attributes) == 0 && names.matches(wanted)) {
      found.push_back(std::move(shown.entry));
    }
  }
  return found;
}

platform::files::FolderContents FileSystem::contentsOf(const std::wstring& folder) const {
  platform::files::FolderContents contents;
  const Node* node = locate(folder).node;
  if (node == nullptr || !node->folder) {
    return contents;
  }
  contents.id = {0, std::bit_cast<std::uintptr_t>(node)};
  constexpr unsigned special = platform::files::hidden | platform::files::system;
  for (const Shown& shown : shownIn(*node)) {
    if ((shown.attributes & special) == 0 && !shown.isLink) {
      const bool isFolder = (shown.attributes & platform::files::directory) != 0;
      (isFolder ? contents.folders : contents.files).push_back(shown.entry.name);
    }
  }
  return contents;
}

std::optional<platform::files::Entry> FileSystem::entryAt(const std::wstring& path) const {
  const Place place = locate(path);
  const Node* const folder = place.node == nullptr ? place.folder : place.node->parent;
  if (folder == nullptr) {
    return std::nullopt;
  }
  const std::wstring wanted =
      platform::text::upper(place.node == nullptr ? place.name : place.node->name);
  for (Shown& shown : shownIn(*folder)) {
    if (platform::text::upper(shown.entry.name) == wanted) {
      return std::move(shown.entry);
    }
  }
  return std::nullopt;
}

std::wstring FileSystem::shortNameOfNew(const std::wstring& path) {
  const Place place = locate(path);
  if (place.node != nullptr) {
    throw RunTimeError(error::fileExists);
  }
  if (place.folder == nullptr || place.failure != error::fileNotFound) {
    throw RunTimeError(place.failure);
  }
  const Node& made = place.folder->make(place.name);
  std::wstring name = made.shortName;
  place.folder->drop(made);
  return name;
}

bool FileSystem::mayWriteTo(const std::wstring& folder) const {
  const Node* const node = locate(folder).node;
  return node == nullptr || !node->isProtected;
}

void FileSystem::makeFolder(const std::wstring& path) {
  const Place place = locate(path);
  if (place.node != nullptr) {
    throw RunTimeError(error::pathFileAccess);
  }
  if (place.folder == nullptr || place.failure != error::fileNotFound) {
    throw RunTimeError(place.failure);
  }
  Node& made = place.folder->make(place.name);
  made.folder = true;
  made.modified = stampTime();
}

void FileSystem::remove(const std::wstring& path) {
  Node& node = existingFile(path);
  node.refuseDeletion();
  refuseUse(node, deletes);
  changing(*node.parent, node.name);
  if (freeBytes_) {
    *freeBytes_ += node.bytes.size();
  }
  node.parent->drop(node);
}

void FileSystem::rename(const std::wstring& from, const std::wstring& to) {
  Node& node = existingFile(from);
  const Place target = locate(to);
  if (node.locked) {
    throw RunTimeError(error::permissionDenied);
  }
  refuseUse(node, deletes);
  if (splitPath(to).endsInSeparator) {
    raiseAbout(to, error::badFileName);  // the path names a folder, but this is a file
  }
  if (target.node != nullptr && target.node != &node) {
    raiseAbout(to, error::fileExists);
  }
  if (target.node == &node) {
    node.setName(target.name);
    node.nameShortly();
    return;
  }
  if (target.drive != nullptr && target.drive != locate(from).drive) {
    throw RunTimeError(74);
  }
  if (target.folder == nullptr || target.failure != error::fileNotFound) {
    raiseAbout(to, target.failure);
  }
  changing(*node.parent, node.name);
  changing(*target.folder, target.name);
  auto moved = node.parent->drop(node);
  moved->setName(target.name);
  moved->shortName.clear();
  target.folder->adopt(std::move(moved));
}

void FileSystem::copy(const std::wstring& from, const std::wstring& to) {
  const Node& source = existingFile(from);
  Place target = locate(to);
  if (source.folder) {
    throw RunTimeError(error::pathFileAccess);
  }
  if (source.locked || target.node == &source) {
    throw RunTimeError(error::permissionDenied);
  }
  if (target.node == nullptr) {
    if (target.folder == nullptr || target.failure != error::fileNotFound) {
      raiseAbout(to, target.failure);
    }
    target.node = &target.folder->make(target.name);
    target.node->id = ++lastId_;
  } else {
    platform::concerning(to, [&] {
      if (target.node->hidden) {
        throw RunTimeError(error::pathFileAccess);
      }
      target.node->refuseDeletion();
      refuseUse(*target.node, writes, reads);
    });
  }
  platform::concerning(to, [&] { store(*target.node, source.bytes); });
  // The copy gets the time and the protection of its source.
  target.node->modified = source.modified;
  target.node->readOnly = source.readOnly;
  target.node->hidden = source.hidden;
  target.node->system = source.system;
}

FileSystem::FileTime FileSystem::modifiedTime(const std::wstring& path) const {
  return existingFile(path).modified;
}

Contents FileSystem::readWhole(const std::wstring& path) const {
  const Node& node = existing(path);
  if (node.folder) {
    throw RunTimeError(error::pathFileAccess);
  }
  if (node.locked) {
    throw RunTimeError(error::permissionDenied);
  }
  refuseUse(node, reads);
  return {node.bytes, node.stamp()};
}

Contents FileSystem::readForAppending(const std::wstring& path) const {
  const Place place = locate(path);
  if (place.node == nullptr) {
    if (place.failure != error::fileNotFound) {
      throw RunTimeError(place.failure);
    }
    return {};
  }
  place.node->refuseDeletion();
  refuseUse(*place.node, reads | writes);
  return {place.node->bytes, place.node->stamp()};
}

void FileSystem::writeWhole(const std::wstring& path, const std::string& bytes) {
  Place place = locate(path);
  if (place.node == nullptr) {
    if (place.failure != error::fileNotFound) {
      throw RunTimeError(place.failure);
    }
    changing(*place.folder, place.name);
    place.node = &place.folder->make(place.name);
    place.node->id = ++lastId_;
  } else {
    place.node->refuseDeletion();
    refuseUse(*place.node, writes, reads);
  }
  store(*place.node, bytes);
}

}  // namespace memory
