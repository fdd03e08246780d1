// A clock that stands still until a test moves it, with alarms.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

#include "platform/files.h"

namespace memory {

/// A moment in local time. The desktop's local time is UTC.
struct DateTime {
  int year = 2026;
  int month = 11;
  int day = 20;
  int hour = 14;
  int minute = 30;
  int second = 15;
  int millisecond = 0;
  bool operator==(const DateTime&) const = default;
};

[[nodiscard]] platform::files::FileTime fileTime(const DateTime& moment);
/// Nothing for a time that has no date (beyond the year 9999).
[[nodiscard]] std::optional<DateTime> dateTime(platform::files::FileTime moment);

class VirtualClock {
 public:
  /// Identifies an alarm; never used again.
  using Alarm = std::uint64_t;

  void reset();
  /// Milliseconds that the program has waited without letting anything else happen.
  std::uint64_t waited = 0;
  [[nodiscard]] platform::files::FileTime now() const { return base_ + elapsed_ * stepsPerMs; }
  void setNow(platform::files::FileTime moment) { base_ = moment - elapsed_ * stepsPerMs; }
  /// Runs `action` once after `milliseconds`, or repeatedly with `repeat`.
  Alarm set(int milliseconds, std::function<void()> action, bool repeat);
  void cancel(Alarm alarm) { alarms_.erase(alarm); }
  /// Milliseconds until the next alarm, nothing when none is set.
  [[nodiscard]] std::optional<std::int64_t> untilNext() const;
  /// Lets time pass. Alarms go off at their times in order; of two at the same time, the older one
  /// first. An alarm may set and cancel others.
  void advance(std::int64_t milliseconds);
  /// Milliseconds that have passed since the reset.
  [[nodiscard]] std::int64_t elapsed() const { return static_cast<std::int64_t>(elapsed_); }

 private:
  static constexpr std::uint64_t stepsPerMs = 10'000;
  struct Entry {
    std::uint64_t due = 0;
    std::uint64_t interval = 0;  // 0: once
    std::function<void()> action;
  };
  [[nodiscard]] std::map<Alarm, Entry>::iterator next();
  platform::files::FileTime base_ = 0;
  std::uint64_t elapsed_ = 0;
  Alarm lastAlarm_ = 0;
  std::map<Alarm, Entry> alarms_;
};

}  // namespace memory
