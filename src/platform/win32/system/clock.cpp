#include "platform/clock.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/win32/files/open_files.h"

namespace platform::clock {
namespace {

// The user's own format has at most 80 characters, each of which gives at most the name of a month
// or a day.
constexpr std::size_t longestText = 1024;

// No flags, because they would ignore the user's changes to the locale's formats.

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

std::optional<SYSTEMTIME> systemTime(files::FileTime moment) {
  const FILETIME fileTime{.dwLowDateTime = static_cast<DWORD>(moment & 0xFFFFFFFFU),
                          .dwHighDateTime = static_cast<DWORD>(moment >> 32U)};
  SYSTEMTIME time{};
  if (FileTimeToSystemTime(&fileTime, &time) == 0) return std::nullopt;
  return time;
}

/// Local time by the zone's rules for that day, so that a text does not change with the season in
/// which it is made.
std::optional<SYSTEMTIME> localTime(files::FileTime moment) {
  const std::optional<SYSTEMTIME> universal = systemTime(moment);
  SYSTEMTIME local{};
  if (!universal || SystemTimeToTzSpecificLocalTime(nullptr, &*universal, &local) == 0) {
    return std::nullopt;
  }
  return local;
}

/// The same for many moments. On most days the difference from universal time is the same at the
/// beginning and at the end of the day, and then for all moments of it. So the zone's rules are
/// looked up twice for each day instead of once for each file. Row `refresh.10k` of ./bench shows
/// it, measured under Wine. On real Windows the look-up may be cheaper, so it may save less.
class LocalTimes {
 public:
  std::optional<SYSTEMTIME> operator()(files::FileTime moment) {
    constexpr files::FileTime day = 864'000'000'000;
    const auto [known, isNew] = distances_.try_emplace(moment / day);
    if (isNew) {
      const files::FileTime begin = moment / day * day;
      const std::optional<std::int64_t> first = distanceAt(begin);
      if (first == distanceAt(begin + day - 1)) known->second = first;
    }
    if (!known->second) return localTime(moment);
    return systemTime(moment + static_cast<files::FileTime>(*known->second));
  }

 private:
  static std::optional<std::int64_t> distanceAt(files::FileTime moment) {
    const std::optional<SYSTEMTIME> local = localTime(moment);
    FILETIME converted{};
    if (!local || SystemTimeToFileTime(&*local, &converted) == 0) return std::nullopt;
    // A SYSTEMTIME has a resolution of one millisecond.
    constexpr files::FileTime step = 10'000;
    return static_cast<std::int64_t>(win32::fileTime(converted) - moment / step * step);
  }
  std::unordered_map<files::FileTime, std::optional<std::int64_t>> distances_;
};

/// Texts of moments, many of which have the same day. The text of the last day is kept.
class Texts {
 public:
  std::wstring operator()(const SYSTEMTIME& local) {
    const DWORD day = (local.wYear * months + local.wMonth) * days + local.wDay;
    if (day != std::exchange(day_, day)) date_ = dateText(local);
    const std::wstring time = timeText(local);
    return date_.empty() || time.empty() ? L"" : date_ + L" " + time;
  }

 private:
  static constexpr DWORD months = 16;
  static constexpr DWORD days = 32;
  static constexpr DWORD none = 0xFFFFFFFF;
  DWORD day_ = none;
  std::wstring date_;
};

}  // namespace

Moment localNow() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

std::wstring todayText() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return dateText(now);
}

std::vector<std::wstring> dateAndTimeTexts(const std::vector<files::FileTime>& moments) {
  std::vector<std::wstring> texts;
  texts.reserve(moments.size());
  LocalTimes localTimes;
  Texts textOf;
  // Files that were copied together often have the same second. They get the same text.
  constexpr files::FileTime second = 10'000'000;
  for (std::size_t n = 0; n < moments.size(); ++n) {
    const files::FileTime moment = moments[n];
    if (n > 0 && moment != 0 && moments[n - 1] != 0 && moment / second == moments[n - 1] / second) {
      texts.push_back(texts.back());
      continue;
    }
    const auto local = moment == 0 ? std::nullopt : localTimes(moment);
    texts.push_back(local ? textOf(*local) : L"");
  }
  return texts;
}

std::uint64_t milliseconds() { return GetTickCount64(); }

DateForm dateForm() {
  const auto text = [](LCTYPE which) {
    std::array<wchar_t, longestText> value{};
    return std::wstring(GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, which, value.data(),
                                        static_cast<int>(value.size())) > 0
                            ? value.data()
                            : L"");
  };
  DateForm form{text(LOCALE_SSHORTDATE), {}, text(LOCALE_S1159), text(LOCALE_S2359)};
  for (const LCTYPE first : {LOCALE_SABBREVMONTHNAME1, LOCALE_SMONTHNAME1}) {
    for (LCTYPE month = 0; month < 12; ++month) {
      form.months.push_back(text(first + month));
    }
  }
  return form;
}

}  // namespace platform::clock
