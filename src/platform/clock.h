// The date, and dates as the user's locale writes them.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"

namespace platform::clock {

/// Today as the user's short date, without a time.
[[nodiscard]] std::wstring todayText();

/// Moments in local time, in the order given: the user's short date, a blank, the user's time with
/// seconds. A moment that cannot be expressed (out of range) gives "". Many at once, because asking
/// the system for the zone's rules of every single one would take longest of all.
[[nodiscard]] std::vector<std::wstring> dateAndTimeTexts(
    const std::vector<files::FileTime>& moments);

}  // namespace platform::clock
