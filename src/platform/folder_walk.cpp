#include "platform/folder_walk.h"

#include <utility>

namespace platform::files {

FolderWalk::FolderWalk(const std::vector<std::wstring>& folders) {
  for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder) {
    ahead_.push_back({*folder, 1.0 / static_cast<double>(folders.size())});
  }
}

bool FolderWalk::lookOn(
    const std::function<void(const std::wstring& folder, const std::wstring& name)>& take) {
  if (ahead_.empty()) {
    return false;
  }
  const Ahead next = std::move(ahead_.back());
  ahead_.pop_back();
  const FolderContents contents = contentsOf(next.path);
  if (contents.id && !seen_.insert(*contents.id).second) {
    done_ += next.share;
    return !ahead_.empty();
  }
  for (const std::wstring& name : contents.files) {
    take(next.path, name);
  }
  const double share = next.share / static_cast<double>(contents.folders.size() + 1);
  const std::wstring base = next.path.ends_with(L'\\') ? next.path : next.path + L'\\';
  for (auto name = contents.folders.rbegin(); name != contents.folders.rend(); ++name) {
    ahead_.push_back({base + *name, share});
  }
  done_ += share;
  return !ahead_.empty();
}

}  // namespace platform::files
