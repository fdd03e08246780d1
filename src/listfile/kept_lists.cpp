#include "listfile/kept_lists.h"

#include <algorithm>
#include <chrono>
#include <tuple>
#include <utility>

#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "startup/paths.h"

namespace kept_lists {

using platform::clock::Moment;

namespace {

constexpr std::array<std::wstring_view, both.size()> names{L"QMKFileList3", L"QMKWebList"};
constexpr std::wstring_view ending = L".txt";
constexpr std::wstring_view datePattern = L"dddd-dd-dd";
constexpr std::wstring_view timePattern = L"dddddd";

/// Whether a text has digits where the pattern has a "d", and the same characters elsewhere.
bool fits(std::wstring_view text, std::wstring_view pattern) {
  return std::equal(
      text.begin(), text.end(), pattern.begin(), pattern.end(),
      [](wchar_t c, wchar_t p) { return p == L'd' ? c >= L'0' && c <= L'9' : c == p; });
}

/// The digits in `text` as a number.
int number(std::wstring_view text) {
  constexpr int base = 10;
  int value = 0;
  for (const wchar_t digit : text) {
    value = base * value + (digit - L'0');
  }
  return value;
}

std::wstring digits(int value, std::size_t width) {
  std::wstring text = std::to_wstring(value);
  return std::wstring(width - std::min(width, text.size()), L'0') + text;
}

std::wstring dateText(const Moment& made) {
  return digits(made.year, 4) + L"-" + digits(made.month, 2) + L"-" + digits(made.day, 2);
}

std::wstring timeText(const Moment& made, const std::wstring& between) {
  return digits(made.hour, 2) + between + digits(made.minute, 2) + between + digits(made.second, 2);
}

std::chrono::year_month_day dayOf(const Moment& moment) {
  namespace chrono = std::chrono;
  return {chrono::year(moment.year), chrono::month(static_cast<unsigned>(moment.month)),
          chrono::day(static_cast<unsigned>(moment.day))};
}

bool exists(const Moment& moment) {
  constexpr int hours = 24;
  constexpr int sixty = 60;
  return dayOf(moment).ok() && moment.hour < hours && moment.minute < sixty &&
         moment.second < sixty;
}

}  // namespace

std::wstring_view nameOf(Which list) { return names.at(static_cast<std::size_t>(list)); }

std::wstring pathOf(Which list) {
  std::wstring path = modQMKGeneral::AppFolder() + L"\\";
  path += nameOf(list);
  return path.append(ending);
}

std::optional<std::string> presentContents(Which list) {
  try {
    return platform::files::readWhole(pathOf(list)).bytes;
  } catch (const platform::RunTimeError& failure) {
    if (failure.number() == platform::error::fileNotFound) {
      return std::nullopt;
    }
    throw;
  }
}

std::optional<Which> listAt(std::wstring_view path) {
  if (!path.ends_with(ending)) {
    return std::nullopt;
  }
  path.remove_suffix(ending.size());
  for (const Which list : both) {
    const std::wstring_view name = nameOf(list);
    if (path.ends_with(name) && path.size() > name.size() &&
        path[path.size() - name.size() - 1] == L'\\') {
      return list;
    }
  }
  return std::nullopt;
}

std::wstring Copy::date() const {
  return dateText(made) + (timed ? L" " + timeText(made, L":") : std::wstring());
}

std::wstring nameOfCopy(Which list, const Moment& made, bool timed) {
  std::wstring name(nameOf(list));
  name += L" " + dateText(made);
  if (timed) {
    name += L" " + timeText(made, L"");
  }
  return name.append(ending);
}

std::optional<Copy> fromName(Which list, std::wstring_view name) {
  const std::wstring_view listName = nameOf(list);
  const std::size_t shortest = listName.size() + 1 + datePattern.size() + ending.size();
  const std::size_t longest = shortest + 1 + timePattern.size();
  if ((name.size() != shortest && name.size() != longest) ||
      !platform::text::upperEquals(name.substr(0, listName.size()),
                                   platform::text::upper(listName)) ||
      !platform::text::upperEquals(name.substr(name.size() - ending.size()), L".TXT") ||
      name[listName.size()] != L' ') {
    return std::nullopt;
  }
  const std::wstring_view date = name.substr(listName.size() + 1, datePattern.size());
  if (!fits(date, datePattern)) {
    return std::nullopt;
  }
  Copy copy{.name = std::wstring(name), .timed = name.size() == longest};
  copy.made = {number(date.substr(0, 4)), number(date.substr(5, 2)), number(date.substr(8, 2))};
  if (copy.timed) {
    const std::size_t blank = listName.size() + 1 + datePattern.size();
    const std::wstring_view time = name.substr(blank + 1, timePattern.size());
    if (name[blank] != L' ' || !fits(time, timePattern)) {
      return std::nullopt;
    }
    copy.made.hour = number(time.substr(0, 2));
    copy.made.minute = number(time.substr(2, 2));
    copy.made.second = number(time.substr(4, 2));
  }
  return exists(copy.made) ? std::optional(std::move(copy)) : std::nullopt;
}

std::vector<Copy> in(const std::wstring& folder, Which list) {
  std::vector<Copy> copies;
  if (folder.empty()) {
    return copies;
  }
  std::wstring pattern = folder + L"\\";
  pattern += nameOf(list);
  for (const platform::files::Entry& file : platform::files::search(pattern + L" *.txt")) {
    if (std::optional<Copy> copy = fromName(list, file.name)) {
      copy->size = file.size;
      copies.push_back(std::move(*copy));
    }
  }
  // The one without a time is what the list was when the day began.
  std::sort(copies.begin(), copies.end(), [](const Copy& one, const Copy& other) {
    return std::tie(other.made, other.timed) < std::tie(one.made, one.timed);
  });
  return copies;
}

Moment secondAfter(const Moment& moment) {
  namespace chrono = std::chrono;
  const chrono::sys_seconds next = chrono::sys_days(dayOf(moment)) + chrono::hours(moment.hour) +
                                   chrono::minutes(moment.minute) +
                                   chrono::seconds(moment.second + 1);
  const chrono::sys_days day = chrono::floor<chrono::days>(next);
  const chrono::year_month_day date(day);
  const chrono::hh_mm_ss time(next - day);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

}  // namespace kept_lists
