#include "shortcuts/slow_icons.h"

#include <deque>
#include <utility>

#include "platform/background.h"
#include "platform/drives.h"

namespace modSC {

using platform::pictures::Icons;
using platform::pictures::Sizes;

struct SlowIcons::Queue {
  struct Wanted {
    std::wstring key;
    std::wstring program;
    Sizes sides{};
    Show show;
  };
  std::deque<Wanted> wanted;
  /// Whether an icon is being read. A drive that does not answer must not collect threads.
  bool reading = false;
  /// Number of the list that the icons are for.
  unsigned list = 0;
};

SlowIcons::SlowIcons() : queue_(std::make_shared<Queue>()) {}

void SlowIcons::forget() {
  queue_->wanted.clear();
  ++queue_->list;
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
  queue_->wanted.push_back({key, program, sides, std::move(show)});
  if (!queue_->reading) {
    readNext(queue_);
  }
}

void SlowIcons::readNext(const std::shared_ptr<Queue>& queue) {
  if (queue->wanted.empty()) {
    return;
  }
  const auto job = std::make_shared<Queue::Wanted>(std::move(queue->wanted.front()));
  queue->wanted.pop_front();
  const auto icons = std::make_shared<Icons>();
  queue->reading = platform::background::run(
      [job, icons] { *icons = platform::pictures::programIcons(job->program, job->sides); },
      [job, icons, list = queue->list, whoever = std::weak_ptr(queue)] {
        const auto still = whoever.lock();
        if (!still) {
          return;
        }
        const bool wanted = still->list == list;
        still->reading = false;
        readNext(still);
        if (wanted) {
          job->show(job->key, *icons);
        }
      });
}

}  // namespace modSC
