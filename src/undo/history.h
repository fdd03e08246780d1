// The last operations of the user, which can be taken back.
#pragma once

#include <cstddef>
#include <list>
#include <optional>
#include <string>
#include <utility>

#include "platform/controls/item_key.h"
#include "undo/changes.h"

namespace undo {

/// An operation of the user.
struct Step {
  std::wstring what;                       ///< As in "Undo Delete".
  int tab = 0;                             ///< Whose list it has changed (from 0).
  std::optional<controls::ItemKey> about;  ///< The entry that it was about; nothing for several.
  Changes changes;
};

/// What became of the wish to take a step back or to make it again.
struct Outcome {
  bool done = false;
  /// Something was deleted for good, so that this cannot be taken back.
  bool final = false;
  int tab = 0;
  std::optional<controls::ItemKey> back;  ///< The entry that is there again.
  std::wstring text;                      ///< For the user: the step, or why it was not done.
};

class History {
 public:
  /// So many steps can be taken back.
  static constexpr std::size_t most = 20;

  /// `bytes` may be kept for them; the last step is kept in any case.
  explicit History(std::size_t bytes = std::size_t{256} << 20U) : mostBytes_(bytes) {}

  /// Adds a step. One without changes, or one that is final, leaves the history as it is.
  /// What was taken back before cannot be made again any more.
  void add(Step step);

  [[nodiscard]] bool canGo(Way way) const { return !steps(way).empty(); }
  /// What would be taken back or made again, as in "Delete"; "" for nothing.
  [[nodiscard]] std::wstring what(Way way) const;
  /// Takes back the last step or makes again the one that was taken back last. If it fails, the
  /// step stays. Does nothing without a step.
  Outcome go(Way way);

 private:
  [[nodiscard]] const std::list<Step>& steps(Way way) const {
    return way == Way::back ? done_ : undone_;
  }

  std::size_t mostBytes_;
  std::list<Step> done_;    // the last one last
  std::list<Step> undone_;  // the one that was taken back last is the last
};

/// Collects the changes of an operation and adds them to the history when it ends, in whatever way.
class Recording {
 public:
  /// `history` may be nullptr.
  Recording(History* history, std::wstring what, int tab,
            std::optional<controls::ItemKey> about = std::nullopt)
      : history_(history), step_{std::move(what), tab, std::move(about), {}} {}
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;
  ~Recording();

  /// For the operation; nullptr when nobody keeps a history.
  [[nodiscard]] Changes* changes() { return history_ == nullptr ? nullptr : &step_.changes; }

 private:
  History* history_;
  Step step_;
};

}  // namespace undo
