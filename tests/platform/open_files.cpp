// Files that stay open, second names of files, and what other machines see.
#include <algorithm>
#include <utility>

#include "platform/file_node.h"
#include "platform/file_system.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace memory {

using platform::RunTimeError;
using platform::files::Contents;
using platform::files::Stamp;
using platform::text::upper;
namespace error = platform::error;

void FileSystem::refuseUse(const Node& node, unsigned uses, unsigned shared) const {
  const auto isAgainst = [&](const Open& other) {
    return other.file == node.id && ((other.uses & ~shared) != 0 || (uses & ~other.shared) != 0);
  };
  if (node.id != 0 && std::any_of(opens_.begin(), opens_.end(), isAgainst)) {
    throw RunTimeError(error::permissionDenied);
  }
}

FileSystem::Handle FileSystem::open(const std::wstring& path, unsigned uses, unsigned shared) {
  const Node& node = existingFile(path);
  if (node.folder) {
    throw RunTimeError(error::pathFileAccess);
  }
  if (node.locked) {
    throw RunTimeError(error::permissionDenied);
  }
  refuseUse(node, uses, shared);
  learns(*node.parent, node.name);
  opens_.push_back({++lastHandle_, node.id, machine, uses, shared, false});
  return lastHandle_;
}

FileSystem::Handle FileSystem::make(const std::wstring& path, bool passing) {
  const Place place = locate(path);
  if (place.node != nullptr) {
    throw RunTimeError(error::fileExists);
  }
  if (place.failure != error::fileNotFound) {
    throw RunTimeError(place.failure);
  }
  changing(*place.folder, place.name);
  Node& made = place.folder->make(place.name);
  made.id = ++lastId_;
  made.modified = stampTime();
  opens_.push_back({++lastHandle_, made.id, machine, writes | deletes, reads, passing});
  return lastHandle_;
}

void FileSystem::close(Handle handle) {
  const auto found = std::find_if(opens_.begin(), opens_.end(),
                                  [handle](const Open& open) { return open.handle == handle; });
  if (found == opens_.end()) {
    return;
  }
  Node* const file = found->passing ? fileOf(handle) : nullptr;
  opens_.erase(found);
  if (file != nullptr) {
    changing(*file->parent, file->name);
    file->parent->drop(*file);
  }
}

void FileSystem::closeAllOf(int ofMachine) {
  std::vector<Handle> handles;
  for (const Open& open : opens_) {
    if (open.machine == ofMachine) {
      handles.push_back(open.handle);
    }
  }
  for (const Handle handle : handles) {
    close(handle);
  }
}

bool FileSystem::isOpen(const std::wstring& path) const {
  const Node* const node = locate(path).node;
  return node != nullptr && std::any_of(opens_.begin(), opens_.end(),
                                        [node](const Open& open) { return open.file == node->id; });
}

FileSystem::Node* FileSystem::fileOf(Handle handle) const {
  const auto open = std::find_if(opens_.begin(), opens_.end(), [handle](const Open& candidate) {
    return candidate.handle == handle;
  });
  if (open == opens_.end()) {
    return nullptr;
  }
  std::vector<Node*> folders;
  for (const auto& [name, root] : drives_) {
    folders.push_back(root.get());
  }
  while (!folders.empty()) {
    const Node* const folder = folders.back();
    folders.pop_back();
    for (const auto& child : folder->children) {
      if (child->folder) {
        folders.push_back(child.get());
      } else if (child->id == open->file && child->secondOf == nullptr) {
        return child.get();
      }
    }
  }
  return nullptr;
}

void FileSystem::writeTo(Handle handle, const std::string& bytes) {
  Node* const file = fileOf(handle);
  if (file == nullptr) {
    throw RunTimeError(error::permissionDenied);
  }
  file->refuseDeletion();
  store(*file, bytes);
}

void FileSystem::appendTo(Handle handle, const std::string& bytes) {
  const Node* const file = fileOf(handle);
  writeTo(handle, (file == nullptr ? "" : file->bytes) + bytes);
}

std::optional<Stamp> FileSystem::stampOf(Handle handle) const {
  const Node* const file = fileOf(handle);
  return file == nullptr ? std::nullopt : std::optional(file->stamp());
}

void FileSystem::refuseDeletionOf(const std::wstring& path) const {
  existingFile(path).refuseDeletion();
}

bool FileSystem::renameOver(Handle handle, const std::wstring& to, bool overOpen) {
  Node* const source = fileOf(handle);
  Node& target = existingFile(to);
  if (source == nullptr || source->locked) {
    throw RunTimeError(error::permissionDenied);
  }
  if (target.locked || (!overOpen && isOpen(to))) {
    return false;
  }
  target.refuseDeletion();
  changing(*source->parent, source->name);
  changing(*target.parent, target.name);
  if (freeBytes_) {
    *freeBytes_ += target.bytes.size();
  }
  target.leaveToSecondName();
  // The entry keeps its position in the folder; everything else comes from the other file.
  const auto moved = source->parent->drop(*source);
  std::string bytes = std::move(moved->bytes);
  target.become(*moved);
  target.bytes = std::move(bytes);
  return true;
}

bool FileSystem::renameToFree(Handle handle, const std::wstring& to) {
  Node* const source = fileOf(handle);
  if (source == nullptr || source->locked) {
    throw RunTimeError(error::permissionDenied);
  }
  const Place target = locate(to);
  if (target.node != nullptr) {
    return false;
  }
  if (target.folder == nullptr || target.failure != error::fileNotFound) {
    throw RunTimeError(target.failure);
  }
  changing(*source->parent, source->name);
  changing(*target.folder, target.name);
  auto moved = source->parent->drop(*source);
  moved->setName(target.name);
  moved->shortName.clear();
  target.folder->adopt(std::move(moved));
  return true;
}

bool FileSystem::addName(const std::wstring& file, const std::wstring& name) {
  Node* const first = locate(file).node;
  const Place place = locate(name);
  if (first != nullptr && place.node != nullptr && place.node->secondOf == first) {
    return true;
  }
  if (first == nullptr || place.node != nullptr || place.folder == nullptr) {
    return false;
  }
  changing(*place.folder, place.name);
  place.folder->make(place.name).secondOf = first;
  return true;
}

std::optional<Contents> FileSystem::behind(const std::wstring& name) const {
  const Node* const node = locate(name).node;
  if (node == nullptr) {
    return std::nullopt;
  }
  return Contents{node->content().bytes, node->content().stamp()};
}

bool FileSystem::putBack(const std::wstring& name, const std::wstring& to) {
  Node& source = existingFile(name);
  Node& target = existingFile(to);
  if (target.locked || isOpen(to)) {
    return false;
  }
  changing(*source.parent, source.name);
  changing(*target.parent, target.name);
  if (source.secondOf != &target) {
    target.become(source.content());
  }
  source.parent->drop(source);
  return true;
}

void FileSystem::removeName(const std::wstring& name) {
  const Node* const node = locate(name).node;
  if (node == nullptr || node->folder || node->readOnly) {
    return;
  }
  // A file that somebody holds keeps all its names.
  if (std::any_of(opens_.begin(), opens_.end(),
                  [node](const Open& open) { return open.file == node->content().id; })) {
    return;
  }
  changing(*node->parent, node->name);
  node->parent->drop(*node);
}

std::optional<FileSystem::FileTime> FileSystem::modifiedByOpening(const std::wstring& path) {
  const Node* const node = locate(path).node;
  if (node == nullptr || node->parent == nullptr || node->attributes() != 0) {
    return std::nullopt;
  }
  learns(*node->parent, node->name);
  return node->modified;
}

namespace {

template <class Shown, class Node>
Shown shownAs(const Node& node) {
  const Node& content = node.content();
  return {{node.name, content.modified, node.shortName, content.bytes.size()},
          node.attributes(),
          node.isLink};
}

}  // namespace

void FileSystem::changing(const Node& folder, const std::wstring& name) {
  if (profile.visibilityDelay == 0) {
    return;
  }
  const FileTime now = now_();
  std::erase_if(formers_,
                [&](const Former& former) { return former.time + profile.visibilityDelay <= now; });
  const Node* const node = folder.child(name);
  formers_.push_back({&folder, upper(name), now, machine, false,
                      node == nullptr ? std::nullopt : std::optional(shownAs<Shown>(*node))});
}

void FileSystem::learns(const Node& folder, const std::wstring& name) {
  if (profile.visibilityDelay > 0) {
    formers_.push_back({&folder, upper(name), now_(), machine, true, std::nullopt});
  }
}

std::vector<FileSystem::Shown> FileSystem::shownIn(const Node& folder) const {
  // The state of an entry before the first change of another machine that is not seen yet.
  std::map<std::wstring, std::optional<Shown>> older;
  for (const Former& former : formers_) {
    if (former.folder != &folder || former.time + profile.visibilityDelay <= now_()) {
      continue;
    }
    if (former.machine == machine) {
      older.erase(former.name);
    } else if (!former.learnt) {
      older.emplace(former.name, former.entry);
    }
  }
  std::vector<Shown> shown;
  for (const auto& child : folder.children) {
    const auto found = older.find(upper(child->name));
    if (found == older.end()) {
      shown.push_back(shownAs<Shown>(*child));
      continue;
    }
    if (found->second) {
      shown.push_back(*found->second);
    }
    older.erase(found);
  }
  for (const auto& [name, entry] : older) {
    if (entry) {
      shown.push_back(*entry);
    }
  }
  return shown;
}

}  // namespace memory
