#include "platform/virtual_clock.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/unfailing.h"

namespace memory {
namespace {

constexpr std::uint64_t stepsPerSecond = 10'000'000;

// From the first day of file times to the first day of the system clock.
constexpr std::chrono::sys_days firstDay =
    std::chrono::year{1601} / std::chrono::January / std::chrono::day{1};

}  // namespace

platform::files::FileTime fileTime(const DateTime& moment) {
  const std::chrono::sys_days day = std::chrono::year{moment.year} /
                                    std::chrono::month{static_cast<unsigned>(moment.month)} /
                                    std::chrono::day{static_cast<unsigned>(moment.day)};
  const auto sinceFirst =
      (day - firstDay) + std::chrono::hours{moment.hour} + std::chrono::minutes{moment.minute} +
      std::chrono::seconds{moment.second} + std::chrono::milliseconds{moment.millisecond};
  return static_cast<std::uint64_t>(
             std::chrono::duration_cast<std::chrono::milliseconds>(sinceFirst).count()) *
         (stepsPerSecond / 1000);
}

std::optional<DateTime> dateTime(platform::files::FileTime moment) {
  if (moment > fileTime({9999, 12, 31, 23, 59, 59, 999})) {
    return std::nullopt;
  }
  const auto seconds = std::chrono::seconds{static_cast<std::int64_t>(moment / stepsPerSecond)};
  const auto days = std::chrono::floor<std::chrono::days>(seconds);
  const std::chrono::year_month_day date{firstDay + days};
  const std::chrono::hh_mm_ss time{seconds - days};
  return DateTime{static_cast<int>(date.year()),
                  static_cast<int>(static_cast<unsigned>(date.month())),
                  static_cast<int>(static_cast<unsigned>(date.day())),
                  static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()),
                  static_cast<int>(moment % stepsPerSecond / (stepsPerSecond / 1000))};
}

void VirtualClock::reset() {
  alarms_.clear();
  elapsed_ = 0;
  base_ = fileTime(DateTime{});
}

VirtualClock::Alarm VirtualClock::set(int milliseconds, std::function<void()> action, bool repeat) {
  const Unfailing own;
  const auto wait = static_cast<std::uint64_t>(std::max(milliseconds, repeat ? 1 : 0));
  alarms_[++lastAlarm_] = {elapsed_ + wait, repeat ? wait : 0, std::move(action)};
  return lastAlarm_;
}

std::map<VirtualClock::Alarm, VirtualClock::Entry>::iterator VirtualClock::next() {
  return std::min_element(alarms_.begin(), alarms_.end(),
                          [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
}

std::optional<std::int64_t> VirtualClock::untilNext() const {
  const auto first =
      std::min_element(alarms_.begin(), alarms_.end(),
                       [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
  if (first == alarms_.end()) {
    return std::nullopt;
  }
  // An alarm can be late, if a handler lets time pass itself. Then it is due at once.
  return static_cast<std::int64_t>(std::max(first->second.due, elapsed_) - elapsed_);
}

void VirtualClock::advance(std::int64_t milliseconds) {
  const std::uint64_t end = elapsed_ + static_cast<std::uint64_t>(milliseconds);
  for (auto alarm = next(); alarm != alarms_.end() && alarm->second.due <= end; alarm = next()) {
    elapsed_ = std::max(elapsed_, alarm->second.due);
    // The action may cancel or set this same alarm, so the alarm is updated before the action runs.
    std::function<void()> action;
    {
      const Unfailing own;
      action = alarm->second.action;
    }
    if (alarm->second.interval == 0) {
      alarms_.erase(alarm);
    } else {
      alarm->second.due += alarm->second.interval;
    }
    action();
  }
  elapsed_ = std::max(elapsed_, end);
}

}  // namespace memory
