#include "catalogue/date_order.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "platform/text.h"

namespace modQMKGeneral {

using platform::clock::DateForm;

namespace {

constexpr std::size_t monthsOfYear = 12;

/// A date in the user's form, made ready for reading many texts.
struct Reading {
  std::string order;                 ///< The letters d, M and y in the order of the user's pattern.
  wchar_t separator = 0;             ///< Between the first two of them.
  bool weekdayFirst = false;         ///< The pattern begins with the day of the week.
  std::vector<std::wstring> months;  ///< In upper case.
  std::wstring morning;
  std::wstring afternoon;
};

Reading readingOf(const DateForm& form) {
  Reading reading;
  std::wstring_view pattern = form.pattern;
  reading.weekdayFirst = pattern.starts_with(L"ddd");
  if (reading.weekdayFirst) {
    pattern.remove_prefix(std::min(pattern.find_first_not_of(L'd'), pattern.size()));
  }
  bool quoted = false;
  for (const wchar_t c : pattern) {
    if (c == L'\'') {
      quoted = !quoted;
      continue;
    }
    const bool letter = !quoted && (c == L'd' || c == L'M' || c == L'y');
    if (letter && reading.order.find(static_cast<char>(c)) == std::string::npos) {
      reading.order += static_cast<char>(c);
    } else if (!letter && reading.order.size() == 1 && reading.separator == 0) {
      reading.separator = c;
    }
  }
  for (const std::wstring& month : form.months) {
    reading.months.push_back(platform::text::upper(month));
  }
  reading.morning = platform::text::upper(form.morning);
  reading.afternoon = platform::text::upper(form.afternoon);
  return reading;
}

/// A digit's value; nothing for another character. The digits of the scripts in which Windows may
/// write dates.
std::optional<unsigned> digit(wchar_t c) {
  for (const wchar_t zero : {L'0', L'\u0660', L'\u06F0', L'\u0966'}) {
    if (c >= zero && c < zero + 10) {
      return static_cast<unsigned>(c - zero);
    }
  }
  return std::nullopt;
}

/// A number or the name of a month; in a text like "11/16/2026 2:30:15 PM" there are six.
struct Piece {
  unsigned value = 0;
  unsigned digits = 0;  ///< 0 for a month's name.
};

struct Pieces {
  std::array<Piece, 6> all;
  std::size_t count = 0;
  wchar_t separator = 0;  ///< The first character after the first piece.
  bool morning = false;
  bool afternoon = false;

  bool add(const Piece& piece) {
    if (count == all.size()) {
      return false;
    }
    all.at(count++) = piece;
    return true;
  }
};

/// A word that begins at `at`: the name of a month or a mark of the time. Other words, such as the
/// day of the week, are passed over. Returns where the word ends.
std::size_t readWord(std::wstring_view text, std::size_t at, const Reading& reading,
                     Pieces& pieces) {
  const auto ends = [](wchar_t c) { return c == L' ' || digit(c) || c == L',' || c == L'/'; };
  std::size_t end = at;
  while (end < text.size() && !ends(text[end])) {
    ++end;
  }
  const std::wstring word = platform::text::upper(text.substr(at, end - at));
  if (pieces.count == 0 && reading.weekdayFirst) {
    return end;
  }
  const auto begins = [&word](const std::wstring& name) {
    return !name.empty() && word.starts_with(name);
  };
  if (pieces.count >= 3) {
    // A mark may have a blank in it, and may stand before the time.
    const std::wstring rest = platform::text::upper(text.substr(at));
    const auto isMark = [&rest](const std::wstring& mark) {
      return !mark.empty() && rest.starts_with(mark);
    };
    for (const auto& [mark, afternoon] :
         {std::pair(reading.afternoon, true), std::pair(reading.morning, false),
          std::pair(std::wstring(L"PM"), true), std::pair(std::wstring(L"AM"), false)}) {
      if (isMark(mark)) {
        (afternoon ? pieces.afternoon : pieces.morning) = true;
        return at + mark.size();
      }
    }
    return end;
  }
  // The long names come last and are tried first: a short one may be the beginning of a long one.
  for (std::size_t n = reading.months.size(); n-- > 0;) {
    if (begins(reading.months[n])) {
      pieces.add({static_cast<unsigned>(n % monthsOfYear) + 1, 0});
      return at + reading.months[n].size();
    }
  }
  return end;
}

/// The numbers and names of a text; nothing when it has more than a date and a time have.
std::optional<Pieces> piecesOf(std::wstring_view text, const Reading& reading) {
  constexpr unsigned longest = 4;
  Pieces pieces;
  for (std::size_t at = 0; at < text.size();) {
    if (digit(text[at])) {
      Piece number;
      for (; at < text.size() && digit(text[at]); ++at) {
        number.value = number.value * 10 + *digit(text[at]);
        if (++number.digits > longest) {
          return std::nullopt;
        }
      }
      if (!pieces.add(number)) {
        return std::nullopt;
      }
    } else if (text[at] < L'A') {
      ++at;
      continue;
    } else {
      at = std::max(at + 1, readWord(text, at, reading, pieces));
    }
    if (pieces.count == 1 && pieces.separator == 0 && at < text.size()) {
      pieces.separator = text[at];
    }
  }
  return pieces;
}

/// The order of day, month and year in a text.
std::string orderOf(const Pieces& pieces, const Reading& reading) {
  constexpr unsigned longYear = 3;
  const bool yearFirst = pieces.all[0].digits >= longYear;
  if (pieces.separator == reading.separator && reading.order.size() == 3 &&
      (!yearFirst || reading.order.starts_with('y'))) {
    return reading.order;
  }
  if (yearFirst) {
    return "yMd";
  }
  return pieces.separator == L'/' ? "Mdy" : "dMy";
}

/// Assigns the first three pieces to year, month and day. A month's name is the month wherever it
/// stands; the others keep their order.
bool assign(const Pieces& pieces, std::string order, std::array<unsigned, 3>& date) {
  const auto isName = [](const Piece& piece) { return piece.digits == 0; };
  const auto* const end = pieces.all.begin() + 3;
  const auto* const named = std::find_if(pieces.all.begin(), end, isName);
  if (named != end) {
    if (std::find_if(named + 1, end, isName) != end) {
      return false;
    }
    order.erase(order.find('M'), 1);
    order.insert(static_cast<std::size_t>(named - pieces.all.begin()), 1, 'M');
  }
  constexpr std::string_view places = "yMd";
  for (std::size_t n = 0; n < order.size(); ++n) {
    date.at(places.find(order[n])) = pieces.all.at(n).value;
  }
  constexpr unsigned mostDays = 31;
  return date[1] >= 1 && date[1] <= monthsOfYear && date[2] >= 1 && date[2] <= mostDays;
}

/// The hour of the day from one that is counted to noon.
unsigned hourOf(unsigned hour, const Pieces& pieces) {
  constexpr unsigned noon = 12;
  if (pieces.afternoon) {
    return hour < noon ? hour + noon : hour;
  }
  return pieces.morning && hour == noon ? 0 : hour;
}

std::uint64_t rank(std::wstring_view text, const Reading& reading) {
  const std::optional<Pieces> pieces = piecesOf(text, reading);
  std::array<unsigned, 3> date{};
  if (!pieces || pieces->count < 3) {
    return 0;
  }
  const std::string order = orderOf(*pieces, reading);
  if (!assign(*pieces, order, date)) {
    // Written under other settings: the day and the month change places.
    std::string other = order;
    std::swap(other.at(other.find('d')), other.at(other.find('M')));
    if (!assign(*pieces, other, date)) {
      return 0;
    }
  }
  constexpr unsigned shortYears = 100;
  constexpr unsigned lastOfThisCentury = 50;
  unsigned year = date[0];
  if (year < shortYears) {
    year += year < lastOfThisCentury ? 2000 : 1900;
  }
  const unsigned hour = hourOf(pieces->all[3].value, *pieces);
  const unsigned minute = pieces->all[4].value;
  const unsigned second = pieces->all[5].value;
  if (hour > 23 || minute > 59 || second > 59) {
    return 0;
  }
  std::uint64_t result = year;
  for (const auto& [value, values] :
       {std::pair(date[1], 13U), {date[2], 32U}, {hour, 24U}, {minute, 60U}, {second, 60U}}) {
    result = result * values + value;
  }
  return result + 1;
}

}  // namespace

std::uint64_t dateRank(std::wstring_view text, const DateForm& form) {
  return rank(text, readingOf(form));
}

std::vector<std::uint64_t> dateRanks(std::size_t count,
                                     const std::function<std::wstring_view(std::size_t)>& textAt) {
  const Reading reading = readingOf(platform::clock::dateForm());
  std::vector<std::uint64_t> ranks;
  ranks.reserve(count);
  for (std::size_t n = 0; n < count; ++n) {
    ranks.push_back(rank(textAt(n), reading));
  }
  return ranks;
}

}  // namespace modQMKGeneral
