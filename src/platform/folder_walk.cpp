#include "platform/folder_walk.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace platform::files {

FolderWalk::FolderWalk(const std::vector<std::wstring>& folders) {
  const double share = 1.0 / static_cast<double>(folders.size());
  std::transform(folders.rbegin(), folders.rend(), std::back_inserter(ahead_),
                 [share](const std::wstring& folder) {
                   return Ahead{folder, share};
                 });
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
  std::transform(contents.folders.rbegin(), contents.folders.rend(), std::back_inserter(ahead_),
                 [&base, share](const std::wstring& name) {
                   return Ahead{base + name, share};
                 });
  done_ += share;
  return !ahead_.empty();
}

}  // namespace platform::files
