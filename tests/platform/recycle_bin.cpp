// The Recycle Bin of the in-memory desktop.
#include "platform/recycle_bin.h"

#include <algorithm>
#include <utility>

#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/file_node.h"
#include "platform/file_system.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace memory {

using platform::RunTimeError;
namespace error = platform::error;

/// A deleted file, which is kept as it was.
struct FileSystem::BinEntry {
  std::wstring path;
  std::string id;
  std::unique_ptr<Node> node;
};

// Here, because these need to know what is in the bin.
FileSystem::FileSystem(std::function<FileTime()> now) : now_(std::move(now)) {}

FileSystem::~FileSystem() = default;

std::vector<FileSystem::Recycled> FileSystem::bin() const {
  std::vector<Recycled> files;
  for (const auto& entry : bin_) {
    files.push_back(
        {entry->path, entry->node->bytes, entry->node->attributes(), entry->node->modified});
  }
  return files;
}

void FileSystem::emptyBin() {
  for (const auto& entry : bin_) {
    if (freeBytes_) {
      *freeBytes_ += entry->node->bytes.size();
    }
  }
  bin_.clear();
}

std::string FileSystem::recycle(const std::wstring& path) {
  Node& node = existingFile(path);
  node.refuseDeletion();
  // The bin's files need their space, too.
  auto entry = std::make_unique<BinEntry>();
  entry->path = path;
  entry->id = std::to_string(++lastRecycled_);
  entry->node = node.parent->drop(node);
  bin_.push_back(std::move(entry));
  return bin_.back()->id;
}

std::vector<std::unique_ptr<FileSystem::BinEntry>>::const_iterator FileSystem::inBin(
    const std::string& id) const {
  return std::find_if(bin_.begin(), bin_.end(),
                      [&id](const auto& entry) { return entry->id == id; });
}

bool FileSystem::holds(const std::string& id) const { return inBin(id) != bin_.end(); }

void FileSystem::restore(const std::wstring& path, const std::string& id) {
  const auto found = inBin(id);
  if (found == bin_.end()) {
    throw RunTimeError(error::fileNotFound);
  }
  const Place place = locate(path);
  if (place.node != nullptr) {
    throw RunTimeError(error::fileExists);
  }
  if (place.folder == nullptr) {
    throw RunTimeError(error::pathNotFound);
  }
  BinEntry& entry = **found;
  // The file may have been deleted by its short name.
  if (place.folder->child(entry.node->name) != nullptr) {
    throw RunTimeError(error::fileExists);
  }
  if (place.folder->isProtected) {
    throw RunTimeError(error::deviceError);
  }
  place.folder->adopt(std::move(entry.node));
  bin_.erase(found);
}

}  // namespace memory

namespace platform::recycle_bin {

using memory::desktop;

std::optional<Item> recycle(const std::wstring& path) {
  std::optional<Item> item;
  desktop().call(
      L"recycle " + path,
      [&] {
        if (desktop().noBin.contains(text::upper(drives::rootOf(path)))) {
          desktop().disk().remove(path);
        } else {
          item = Item{path, desktop().disk().recycle(path)};
        }
      },
      path);
  return item;
}

bool holds(const Item& item) { return !desktop().blinded() && desktop().disk().holds(item.id); }

void restore(const Item& item) {
  desktop().call(
      L"restore " + item.path, [&] { desktop().disk().restore(item.path, item.id); }, item.path);
}

}  // namespace platform::recycle_bin
