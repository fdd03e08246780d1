#include "mainwindow/presence.h"

#include "platform/background.h"

namespace mainwindow {

using platform::drives::rootOf;

namespace {

std::size_t hashOf(std::wstring_view folder, std::wstring_view name) {
  constexpr std::size_t spread = 31;
  const std::hash<std::wstring_view> hash;
  return hash(folder) * spread + hash(name);
}

}  // namespace

Presence::Presence(controls::ListView& list, PathColumns columns, Exists exists)
    : list_(list), columns_(columns), exists_(exists), asking_(std::make_shared<bool>(false)) {
  list_.remark = [this](std::size_t row) { return remarkOn(row); };
}

std::wstring_view Presence::folderOf(std::size_t item) const {
  return columns_.folder ? list_.cell(item, *columns_.folder) : std::wstring_view();
}

std::wstring Presence::pathOf(std::size_t item) const {
  std::wstring path(folderOf(item));
  path += list_.cell(item, columns_.name);
  return path;
}

std::wstring Presence::pathOfRow(std::size_t row) const {
  std::wstring path(columns_.folder ? list_.rowCell(row, *columns_.folder) : std::wstring_view());
  path += list_.rowCell(row, columns_.name);
  return path;
}

std::wstring Presence::remarkOn(std::size_t row) const {
  if (known_.empty()) {
    return {};
  }
  const std::wstring path = pathOfRow(row);
  const auto found = known_.find(path);
  if (found == known_.end()) {
    return {};
  }
  switch (found->second.state) {
    case State::missing:
      return L"Not there: " + path;
    case State::notConnected: {
      const std::wstring root = rootOf(path);
      return (root.starts_with(L"\\") ? root : L"Drive " + root) + L" is not connected";
    }
    case State::unknown:
    case State::there:
      break;
  }
  return {};
}

void Presence::beginAgain() {
  ++round_;
  roots_.clear();
  // What was seen long ago is not kept for ever.
  constexpr std::size_t most = 10'000;
  if (known_.size() > most) {
    known_.clear();
    ++statesRevision_;
  }
}

const platform::drives::RootFacts& Presence::rootFacts(const std::wstring& path) {
  const auto [root, added] = roots_.try_emplace(rootOf(path));
  if (added) {
    root->second = platform::drives::rootFacts(path);
  }
  return root->second;
}

Presence::State Presence::look(const std::wstring& path, State before) {
  if (rootOf(path).empty()) {
    return State::unknown;
  }
  const platform::drives::RootFacts& root = rootFacts(path);
  if (!root.connected) {
    return State::notConnected;
  }
  if (root.slow) {
    // What was found out stays, but the drive is connected now.
    return before == State::notConnected ? State::unknown : before;
  }
  return exists_(path) ? State::there : State::missing;
}

void Presence::learn(const std::wstring& path, State state) {
  Known& known = known_[path];
  known.round = round_;
  if (known.state != state) {
    known.state = state;
    ++statesRevision_;
    changed_ = true;
  }
}

void Presence::tellChanges() {
  if (std::exchange(changed_, false)) {
    list_.remarksChanged();
  }
}

bool Presence::lookOn() {
  constexpr std::chrono::milliseconds most{5};
  if (seenRevision_ != list_.revision()) {
    seenRevision_ = list_.revision();
    beginAgain();
  }
  const auto end = Clock::now() + most;
  const controls::RowRange rows = list_.rowsInView();
  bool left = false;
  for (std::size_t row = rows.first; row < rows.first + rows.count && !left; ++row) {
    const std::wstring path = pathOfRow(row);
    const auto known = known_.find(path);
    if (known == known_.end() || known->second.round != round_) {
      learn(path, look(path, known == known_.end() ? State::unknown : known->second.state));
      left = Clock::now() >= end;
    }
  }
  tellChanges();
  return left || countOn(end);
}

void Presence::askSlowDrives(const std::function<void()>& done) {
  if (*asking_) {
    return;
  }
  const auto paths = std::make_shared<std::vector<std::wstring>>();
  const controls::RowRange rows = list_.rowsInView();
  for (std::size_t row = rows.first; row < rows.first + rows.count; ++row) {
    std::wstring path = pathOfRow(row);
    if (!rootOf(path).empty() && rootFacts(path).connected && rootFacts(path).slow) {
      paths->push_back(std::move(path));
    }
  }
  if (paths->empty()) {
    return;
  }
  const auto found = std::make_shared<std::vector<State>>();
  *asking_ = platform::background::run(
      [paths, found, exists = exists_] {
        for (const std::wstring& path : *paths) {
          found->push_back(exists(path)                      ? State::there
                           : platform::drives::answers(path) ? State::missing
                                                             : State::notConnected);
        }
      },
      [this, paths, found, done, whoever = std::weak_ptr(asking_)] {
        const auto still = whoever.lock();
        if (!still) {
          return;
        }
        *still = false;
        for (std::size_t n = 0; n < found->size(); ++n) {
          learn((*paths)[n], (*found)[n]);
        }
        tellChanges();
        done();
      });
}

bool Presence::countOn(Clock::time_point end) {
  const std::pair now(list_.revision(), statesRevision_);
  if (counted_ == now) {
    return false;
  }
  if (counting_.of != now) {
    counting_ = {.of = now};
    for (const auto& [path, known] : known_) {
      if (known.state == State::missing || known.state == State::notConnected) {
        const std::size_t folder = columns_.folder ? path.rfind(L'\\') + 1 : 0;
        const std::wstring_view whole = path;
        counting_.hashes.insert(hashOf(whole.substr(0, folder), whole.substr(folder)));
        counting_.paths.insert(path);
      }
    }
  }
  constexpr std::size_t betweenLooksAtTheClock = 256;
  const std::size_t all = counting_.hashes.empty() ? 0 : list_.count();
  while (counting_.next < all) {
    const std::size_t item = counting_.next++;
    // The hash saves making a path for each item.
    if (counting_.hashes.contains(hashOf(folderOf(item), list_.cell(item, columns_.name))) &&
        counting_.paths.contains(pathOf(item))) {
      ++counting_.found;
    }
    if (counting_.next % betweenLooksAtTheClock == 0 && Clock::now() >= end) {
      return true;
    }
  }
  missing_ = counting_.found;
  counted_ = now;
  return false;
}

}  // namespace mainwindow
