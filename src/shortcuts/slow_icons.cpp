#include "shortcuts/slow_icons.h"

#include <algorithm>
#include <deque>
#include <utility>
#include <vector>

#include "platform/background.h"
#include "platform/drives.h"

namespace modSC {

using platform::pictures::Icons;
using platform::pictures::Sizes;

/// A program whose icons are wanted, and the entries that show them.
struct Wanted {
  std::vector<std::wstring> keys;
  std::wstring program;
  Sizes sides{};
  SlowIcons::Show show;
};

struct SlowIcons::Queue {
  std::deque<std::shared_ptr<Wanted>> wanted;
  /// What is being read, unless nobody wants it any more.
  std::shared_ptr<Wanted> current;
  /// Whether an icon is being read. A drive that does not answer must not collect threads.
  bool reading = false;

  /// The same icons if they are wanted already; nullptr otherwise.
  [[nodiscard]] std::shared_ptr<Wanted> same(const std::wstring& program,
                                             const Sizes& sides) const {
    const auto matches = [&](const std::shared_ptr<Wanted>& job) {
      return job && job->program == program && job->sides == sides;
    };
    if (matches(current)) {
      return current;
    }
    const auto found = std::find_if(wanted.begin(), wanted.end(), matches);
    return found == wanted.end() ? nullptr : *found;
  }
};

SlowIcons::SlowIcons() : queue_(std::make_shared<Queue>()) {}

void SlowIcons::forget() {
  queue_->wanted.clear();
  queue_->current = nullptr;
  slowDrives_.clear();
}

bool SlowIcons::mustWaitFor(const std::wstring& program) {
  const auto [known, added] = slowDrives_.try_emplace(program.substr(0, 2));
  if (added) {
    known->second = platform::drives::mayBeSlow(program);
  }
  return known->second;
}

void SlowIcons::ask(const std::wstring& key, const std::wstring& program, const Sizes& sides,
                    Show show) {
  if (const auto job = queue_->same(program, sides)) {
    job->keys.push_back(key);
    return;
  }
  queue_->wanted.push_back(
      std::make_shared<Wanted>(Wanted{{key}, program, sides, std::move(show)}));
  if (!queue_->reading) {
    readNext(queue_);
  }
}

void SlowIcons::readNext(const std::shared_ptr<Queue>& queue) {
  if (queue->wanted.empty()) {
    return;
  }
  const auto job = queue->wanted.front();
  queue->wanted.pop_front();
  queue->current = job;
  const auto icons = std::make_shared<Icons>();
  queue->reading = platform::background::run(
      [icons, program = job->program, sides = job->sides] {
        *icons = platform::pictures::programIcons(program, sides);
      },
      [job, icons, whoever = std::weak_ptr(queue)] {
        const auto still = whoever.lock();
        if (!still) {
          return;
        }
        const bool wanted = still->current == job;
        still->current = nullptr;
        still->reading = false;
        readNext(still);
        if (!wanted) {
          return;
        }
        for (const std::wstring& key : job->keys) {
          job->show(key, *icons);
        }
      });
  if (!queue->reading) {
    queue->current = nullptr;
  }
}

}  // namespace modSC
