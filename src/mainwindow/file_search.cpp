#include "mainwindow/file_search.h"

#include <atomic>
#include <utility>

#include "platform/background.h"
#include "platform/folder_walk.h"

namespace mainwindow {

struct FileSearch::State {
  std::atomic<bool> stopped = false;
  std::atomic<int> progress = 0;
  std::atomic<std::size_t> count = 0;
  std::vector<std::wstring> paths;  // of the search's thread, until it ends
  bool whole = false;
};

bool FileSearch::start(std::vector<std::wstring> folders,
                       std::function<bool(std::wstring_view name)> wanted,
                       std::function<void(Found)> done) {
  stop();
  const auto state = std::make_shared<State>();
  const auto look = [state, folders = std::move(folders), wanted = std::move(wanted)] {
    constexpr int thousandths = 1000;
    platform::files::FolderWalk walk(folders);
    bool more = true;
    while (more && !state->stopped) {
      more = walk.lookOn([&](const std::wstring& folder, const std::wstring& name) {
        if (wanted(name)) {
          std::wstring& path = state->paths.emplace_back(folder);
          path += path.ends_with(L'\\') ? L"" : L"\\";
          path += name;
        }
      });
      state->count = state->paths.size();
      state->progress = static_cast<int>(walk.done() * thousandths);
    }
    state->whole = true;
  };
  const auto tell = [this, state, done = std::move(done)] {
    // After a stop there may be no search and no window any more.
    if (!state->stopped) {
      state_.reset();
      done(state->whole ? Found(std::move(state->paths)) : std::nullopt);
    }
  };
  if (!platform::background::run(look, tell)) {
    return false;
  }
  state_ = state;
  return true;
}

void FileSearch::stop() {
  if (state_) {
    state_->stopped = true;
    state_.reset();
  }
}

int FileSearch::progress() const { return state_ ? state_->progress.load() : 0; }

std::size_t FileSearch::found() const { return state_ ? state_->count.load() : 0; }

}  // namespace mainwindow
