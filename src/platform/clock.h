// The date and time, and dates as the user's locale writes them.
#pragma once

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "platform/files.h"

namespace platform::clock {

/// A moment of the user's day, in local time.
struct Moment {
  int year = 0;
  int month = 0;  ///< From 1.
  int day = 0;    ///< From 1.
  int hour = 0;
  int minute = 0;
  int second = 0;
  bool operator==(const Moment&) const = default;
  bool operator<(const Moment& other) const {
    return std::tie(year, month, day, hour, minute, second) <
           std::tie(other.year, other.month, other.day, other.hour, other.minute, other.second);
  }
};
/// The present one.
[[nodiscard]] Moment localNow();

/// Milliseconds since some moment, which no change of the date or the time moves.
[[nodiscard]] std::uint64_t milliseconds();

/// Today as the user's short date, without a time.
[[nodiscard]] std::wstring todayText();

/// Converts moments to local time and formats each as the user's short date, a blank, and the
/// user's time with seconds. The results are in the order of the arguments. A moment that is out of
/// range gives "". Takes many moments at once, because looking up the time zone's rules for each
/// single one would take most of the time.
[[nodiscard]] std::vector<std::wstring> dateAndTimeTexts(
    const std::vector<files::FileTime>& moments);

/// How the user writes dates and times.
struct DateForm {
  std::wstring
      pattern;  ///< Of the short date: d, M and y for day, month and year, as in "M/d/yyyy".
  std::vector<std::wstring>
      months;            ///< Short names of the months from January on, then the long ones.
  std::wstring morning;  ///< Mark of the hours before noon, as in "AM"; may be "".
  std::wstring afternoon;
};
[[nodiscard]] DateForm dateForm();

}  // namespace platform::clock
