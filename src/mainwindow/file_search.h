// Looking for files below folders while the window stays usable.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mainwindow {

/// Looks through folders in the background. One search at a time.
class FileSearch {
 public:
  FileSearch() = default;
  FileSearch(const FileSearch&) = delete;
  FileSearch& operator=(const FileSearch&) = delete;
  ~FileSearch() { stop(); }

  /// Full paths in the order of the folders; nothing if the memory is used up.
  using Found = std::optional<std::vector<std::wstring>>;

  /// Looks at the name of every file in the folders and below them. Links of folders are not
  /// followed. `wanted` runs on another thread and must use nothing that others change. `done` runs
  /// on the window's thread afterwards. False when no search can be started; `done` is not called
  /// then. Another search is broken off before.
  [[nodiscard]] bool start(std::vector<std::wstring> folders,
                           std::function<bool(std::wstring_view name)> wanted,
                           std::function<void(Found)> done);
  /// Breaks the search off, even while a slow drive keeps it waiting; `done` is not called.
  void stop();
  [[nodiscard]] bool running() const { return state_ != nullptr; }
  /// How much of the way is done, in thousandths; 0 when no search is running.
  [[nodiscard]] int progress() const;
  /// The number of files found so far.
  [[nodiscard]] std::size_t found() const;

 private:
  struct State;
  std::shared_ptr<State> state_;  // while a search is running; its thread holds it, too
};

}  // namespace mainwindow
