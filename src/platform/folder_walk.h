// A walk through folders and everything below them.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"

namespace platform::files {

/// Goes through the files of folders, of their folders and so on, one folder with each step. Links
/// and junctions are not followed. A folder that was reached before, in whatever way, is not looked
/// into again, so the walk always ends.
class FolderWalk {
 public:
  explicit FolderWalk(const std::vector<std::wstring>& folders);
  /// Looks into the next folder and passes its path and the name of each of its normal files to
  /// `take`. Returns whether a folder is left.
  bool lookOn(
      const std::function<void(const std::wstring& folder, const std::wstring& name)>& take);
  /// How much of the way is done: from 0 to 1, and never less than before. How many folders are
  /// still to come is not known, so all folders that lie in the same folder count the same.
  [[nodiscard]] double done() const { return done_; }

 private:
  struct Ahead {
    std::wstring path;
    double share = 0;  // of the whole way
  };
  std::vector<Ahead> ahead_;  // the next one is the last
  std::set<FolderId> seen_;
  double done_ = 0;
};

}  // namespace platform::files
