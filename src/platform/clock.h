// The date, and dates as the user's locale writes them.
#pragma once

#include <string>

#include "platform/files.h"

namespace platform::clock {

/// Today as the user's short date, without a time.
[[nodiscard]] std::wstring todayText();

/// A moment in local time: the user's short date, a blank, the user's time with seconds.
/// A moment that cannot be expressed (out of range) gives "".
[[nodiscard]] std::wstring dateAndTimeText(files::FileTime moment);

}  // namespace platform::clock
