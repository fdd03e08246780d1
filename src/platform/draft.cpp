// A temporary file that replaces another file: the order of the steps, which is the same on every
// system.
#include <algorithm>
#include <array>
#include <utility>

#include "platform/clock.h"
#include "platform/draft_steps.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace platform::files {

using steps::Step;

namespace {

/// Longer than for other files, because the wait is for the rewrites of all who came before. A
/// whole operation stays below two seconds.
constexpr std::uint64_t patienceMilliseconds = 1400;

/// How long to wait before the next try. Those who have waited longer ask more often, so that the
/// file does not always go to the one who came last.
int pauseAfter(std::uint64_t waited) {
  struct Pause {
    std::uint64_t until;
    int milliseconds;
  };
  constexpr std::array pauses{Pause{4, 1}, Pause{100, 12}, Pause{300, 6}, Pause{600, 3}};
  for (const Pause& pause : pauses) {
    if (waited < pause.until) return pause.milliseconds;
  }
  return 1;
}

/// For how long a draft has been waited for.
class Patience {
 public:
  /// More between two looks means that the machine itself stood still, and those who are waited for
  /// with it. Only this much of it counts, so that nobody gives up who has hardly waited.
  static constexpr std::uint64_t longestLook = 500;

  /// Milliseconds from the beginning until now.
  [[nodiscard]] std::uint64_t waited() {
    const std::uint64_t now = clock::milliseconds();
    waited_ += std::min(now - last_, longestLook);
    last_ = now;
    return waited_;
  }

 private:
  std::uint64_t last_ = clock::milliseconds();
  std::uint64_t waited_ = 0;
};

/// Calls `attempt` again and again while the file is in use and there is patience left.
template <class Attempt>
void untilFree(Attempt attempt, Patience patience = {}) {
  while (attempt() == Step::inUse) {
    const std::uint64_t waited = patience.waited();
    if (waited >= patienceMilliseconds) throw RunTimeError(error::permissionDenied);
    steps::wait(pauseAfter(waited));
  }
}

/// Calls `attempt` for about a tenth of a second while the file is in use: indexers and virus
/// scanners open files that have just been written and close them soon.
template <class Attempt>
Step whileInUse(Attempt attempt) {
  constexpr int attempts = 11;
  constexpr int pauseMilliseconds = 10;
  Step result = attempt();
  for (int n = 1; n < attempts && result == Step::inUse; ++n) {
    steps::wait(pauseMilliseconds);
    result = attempt();
  }
  if (result == Step::inUse) throw RunTimeError(error::permissionDenied);
  return result;
}

/// Another name of the file that is replaced, so that a write up to the last instant before its
/// replacement can still be found. On file systems without such names this check is left out.
///
/// The draft's name is free from the replacement on, but this name is still in use then. So it has
/// a guard, for which the next draft waits. The guard is held, too: it goes with its program.
class SecondName {
 public:
  SecondName(const std::wstring& file, const std::wstring& draft) : name_(nameOf(draft)) {
    if (!holds(guardOf(draft))) return;
    made_ = link(file);
    // One that was left behind by a program that ended in between.
    if (!made_) {
      steps::removeName(name_);
      made_ = link(file);
    }
    if (!made_) guard_.close();
  }
  SecondName(const SecondName&) = delete;
  SecondName& operator=(const SecondName&) = delete;
  ~SecondName() {
    if (made_) steps::removeName(name_);
  }

  [[nodiscard]] static std::wstring guardOf(const std::wstring& draft) { return draft + L".busy"; }
  [[nodiscard]] static std::wstring nameOf(const std::wstring& draft) { return draft + L".old"; }

  /// The name stays for the next try. It could not be removed while somebody has the file open, or
  /// would go when it is closed, in the middle of that try. False when there is none.
  [[nodiscard]] bool leave() { return std::exchange(made_, false); }

  /// Whether the file is certain to have changed by now.
  [[nodiscard]] bool changedFrom(const Stamp& expected, const std::string* bytes) const {
    return made_ && steps::compare(name_, expected, bytes) == Step::changed;
  }
  /// Brings over to the file `to` what others have appended to this one. The name `to` is
  /// everybody's again by now, so nothing may be put in its place without need. False when they
  /// have changed something else, too. On failure the file stays under the second name.
  [[nodiscard]] bool bringOver(const std::wstring& to, const Stamp& expected) {
    const std::optional<std::string> lines = steps::linesBehind(name_, expected.size);
    if (!lines) return false;
    made_ = false;
    untilFree([&] { return steps::append(to, *lines); });
    made_ = true;
    return true;
  }
  /// Restores the file under the name `to`. On failure the file stays under the second name.
  void putBack(const std::wstring& to) {
    made_ = false;
    static_cast<void>(whileInUse([this, &to] { return steps::putBack(name_, to); }));
    // The draft is going to be made anew, and whoever has it by now waits for the guard.
    guard_.close();
  }

 private:
  [[nodiscard]] bool holds(const std::wstring& guard) {
    try {
      return guard_.create(guard, true) == Step::done;
    } catch (const RunTimeError&) {
      return false;
    }
  }
  [[nodiscard]] bool link(const std::wstring& file) const {
    return steps::addName(file, name_) == Step::done;
  }

  std::wstring name_;
  steps::HeldFile guard_;
  bool made_ = false;
};

}  // namespace

struct Draft::State {
  explicit State(std::wstring given) : path(std::move(given)), turn(path) {}
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  /// While the draft is still held.
  ~State() {
    if (secondNameLeft) steps::removeName(SecondName::nameOf(path));
  }

  std::wstring path;
  /// From before the draft is made until it is in place or given up.
  steps::Turn turn;
  steps::HeldFile file;
  /// The file that is to be replaced, while others are kept from writing to it.
  steps::Target kept;
  /// The stamp that the file got when it was made.
  std::optional<Stamp> made;
  /// Whether the second name of the file that is to be replaced is still there.
  bool secondNameLeft = false;

  void queue(Patience& patience);
  void create(Patience patience);
  [[nodiscard]] Step createAnew();
  [[nodiscard]] Step replaceOnce(const std::wstring& to, const Stamp& expected,
                                 const std::string* bytes);
};

Step Draft::State::createAnew() {
  if (const Step first = file.create(path); first != Step::taken) return first;
  if (steps::discard(path) == Step::inUse) return Step::inUse;
  // Another program was faster if the name is taken again.
  return file.create(path) == Step::done ? Step::done : Step::inUse;
}

void Draft::State::queue(Patience& patience) {
  std::uint64_t waited = 0;
  while (waited < patienceMilliseconds &&
         !turn.comes(std::min(Patience::longestLook, patienceMilliseconds - waited))) {
    waited = patience.waited();
  }
}

void Draft::State::create(Patience patience) {
  // The path is set here, because the draft may be created again during a replacement, where errors
  // would get the target's path.
  concerning(path, [&] {
    untilFree([this] { return createAnew(); }, patience);
    untilFree([this] { return steps::discard(SecondName::guardOf(path)); });
    made = file.stamp();
  });
}

Step Draft::State::replaceOnce(const std::wstring& to, const Stamp& expected,
                               const std::string* bytes) {
  // Nobody can write to the file after the comparison.
  steps::Target target;
  if (const Step held = target.open(to, &expected, bytes); held != Step::done) return held;
  kept.close();
  // Newer file systems replace a file that is open, by this program too. Readers keep the old file
  // until they close it.
  if (file.renameOverOpen(to) == Step::done) {
    file.close();
    return Step::done;
  }
  // Older ones replace only a file that nobody has open. Anybody who writes between the closing and
  // the replacement writes to the old file, which the second name still refers to. Without second
  // names that write is lost, so nothing is done in between.
  SecondName old(to, path);
  secondNameLeft = false;
  target.close();
  if (file.renameOverClosed(to) == Step::inUse) {
    secondNameLeft = old.leave();
    return Step::inUse;
  }
  file.close();
  if (!old.changedFrom(expected, bytes) || old.bringOver(to, expected)) return Step::done;
  old.putBack(to);
  create({});
  return Step::changed;
}

Draft::Draft(const std::wstring& path) {
  Patience patience;
  state_ = std::make_unique<State>(path);
  state_->queue(patience);
  // Who comes to the front at the last moment still asks once.
  state_->create(patience);
}

Draft::~Draft() = default;

void Draft::write(std::string_view bytes) {
  concerning(state_->path, [&] { state_->file.write(bytes); });
}

bool Draft::keepOthersFromWriting(const std::wstring& to) {
  try {
    return whileInUse([&] { return state_->kept.open(to, nullptr, nullptr); }) == Step::done;
  } catch (const RunTimeError&) {
    return false;
  }
}

bool Draft::tellsLaterWrites(const Stamp& stamp) const {
  return !stamp.present || (state_->made && stamp.modified < state_->made->modified);
}

Replaced Draft::replace(const std::wstring& to, const Stamp& expected, const std::string* bytes) {
  return concerning(to, [&] {
    const Step result = whileInUse([&] {
      return expected.present ? state_->replaceOnce(to, expected, bytes)
                              : state_->file.renameToFree(to);
    });
    if (result != Step::done) return Replaced::changedSince;
    state_->file.close();
    return Replaced::yes;
  });
}

}  // namespace platform::files
