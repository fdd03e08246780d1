// Which entries of a list stand for something that is not there.
//
// Only the rows in view are looked at, a few milliseconds at a time. A drive that may be slow is
// not asked by that: it is asked in the background, and only when the user wants to know.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/controls/list_view.h"
#include "platform/drives.h"

namespace mainwindow {

class Presence {
 public:
  /// The columns that make the path that an item stands for.
  struct PathColumns {
    std::optional<std::size_t> folder;  ///< With a trailing backslash; nothing: it is in `name`.
    std::size_t name = 0;
  };
  /// Whether there is something at a path. Also called on another thread.
  using Exists = bool (*)(const std::wstring& path);

  /// `list` outlives the object, which gives it its remarks.
  Presence(controls::ListView& list, PathColumns columns, Exists exists);

  /// Everything has to be looked at again, for example because a drive has come or gone.
  void beginAgain();
  /// Looks at rows in view, and counts, for about 5 ms. Returns true when something is left. After
  /// a load of the list it begins again by itself.
  bool lookOn();
  /// Asks the slow drives for the rows in view, in the background. `done` is called when something
  /// is known.
  void askSlowDrives(const std::function<void()>& done);

  /// Number of items that are known not to be there, as they were counted last.
  [[nodiscard]] std::size_t missing() const { return missing_; }
  /// The path of an item.
  [[nodiscard]] std::wstring pathOf(std::size_t item) const;

 private:
  using Clock = std::chrono::steady_clock;
  enum class State { unknown, there, missing, notConnected };
  struct Known {
    State state = State::unknown;
    unsigned round = 0;
  };
  [[nodiscard]] std::wstring pathOfRow(std::size_t row) const;
  [[nodiscard]] std::wstring_view folderOf(std::size_t item) const;
  [[nodiscard]] std::wstring remarkOn(std::size_t row) const;
  [[nodiscard]] const platform::drives::RootFacts& rootFacts(const std::wstring& path);
  /// What can be said of a path without asking a slow drive.
  [[nodiscard]] State look(const std::wstring& path, State before);
  void learn(const std::wstring& path, State state);
  /// Has the rows painted anew if something was learnt that changes them.
  void tellChanges();
  /// Counts until `end`. Returns true when items are left.
  bool countOn(Clock::time_point end);

  controls::ListView& list_;
  PathColumns columns_;
  Exists exists_;
  std::unordered_map<std::wstring, Known> known_;
  std::map<std::wstring, platform::drives::RootFacts> roots_;
  unsigned round_ = 1;
  std::uint64_t seenRevision_ = 0;
  bool changed_ = false;
  /// Whether the background is asking. Shared with it, as it may outlive this object.
  std::shared_ptr<bool> asking_;
  unsigned statesRevision_ = 1;
  /// The revisions of the list and of what is known.
  using Revisions = std::pair<std::uint64_t, unsigned>;
  std::size_t missing_ = 0;
  Revisions counted_{0, 0};
  /// The count that is under way.
  struct Counting {
    Revisions of{0, 0};
    std::unordered_set<std::size_t> hashes{};
    std::unordered_set<std::wstring> paths{};
    std::size_t next = 0;
    std::size_t found = 0;
  };
  Counting counting_;
};

}  // namespace mainwindow
