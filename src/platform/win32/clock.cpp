#include "platform/clock.h"

#include <windows.h>

#include <array>
#include <optional>

namespace platform::clock {
namespace {

// The longest text that a user's own format can produce is 80 characters of format, each at most
// a month's or a day's name.
constexpr std::size_t longestText = 1024;

// No flag that would pass over the user's own changes to the locale's formats.

std::wstring dateText(const SYSTEMTIME& moment) {
  std::array<wchar_t, longestText> text{};
  const int length = GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &moment, nullptr,
                                     text.data(), static_cast<int>(text.size()), nullptr);
  return length > 0 ? text.data() : L"";
}

std::wstring timeText(const SYSTEMTIME& moment) {
  std::array<wchar_t, longestText> text{};
  const int length = GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &moment, nullptr, text.data(),
                                     static_cast<int>(text.size()));
  return length > 0 ? text.data() : L"";
}

std::optional<SYSTEMTIME> localTime(files::FileTime moment) {
  const FILETIME fileTime{.dwLowDateTime = static_cast<DWORD>(moment & 0xFFFFFFFFU),
                          .dwHighDateTime = static_cast<DWORD>(moment >> 32U)};
  SYSTEMTIME universal{};
  SYSTEMTIME local{};
  // The zone's rules of that day, so that a text does not change with the season in which it is
  // made.
  if (FileTimeToSystemTime(&fileTime, &universal) == 0 ||
      SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local) == 0) {
    return std::nullopt;
  }
  return local;
}

}  // namespace

std::wstring todayText() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return dateText(now);
}

std::wstring dateAndTimeText(files::FileTime moment) {
  if (moment == 0) return {};
  const std::optional<SYSTEMTIME> local = localTime(moment);
  if (!local) return {};
  const std::wstring date = dateText(*local);
  const std::wstring time = timeText(*local);
  if (date.empty() || time.empty()) return {};
  return date + L" " + time;
}

}  // namespace platform::clock
