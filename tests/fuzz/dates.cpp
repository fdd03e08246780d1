// Dates that the catalogue holds as text. The input is two moments, the choice of a form in which
// they are written, and lines with any form and any text.
#include <array>
#include <compare>
#include <string>
#include <vector>

#include "catalogue/date_order.h"
#include "fuzz/support/fuzz.h"

using fuzz::require;
using modQMKGeneral::dateRank;
using platform::clock::DateForm;

namespace {

struct Moment {
  unsigned year;
  unsigned month;
  unsigned day;
  unsigned hour;
  unsigned minute;
  unsigned second;
  auto operator<=>(const Moment&) const = default;
};

/// Short dates and times as users of different countries have them.
constexpr std::array<const wchar_t*, 18> patterns{L"M/d/yyyy",
                                                  L"dd/MM/yyyy",
                                                  L"dd.MM.yyyy",
                                                  L"yyyy-MM-dd",
                                                  L"yyyy/M/d",
                                                  L"d.M.yy",
                                                  L"M/d/yy",
                                                  L"d. M. yyyy.",
                                                  L"dd-MM-yy",
                                                  L"yyyy. MM. dd.",
                                                  L"dd-MMM-yy",
                                                  L"d MMMM yyyy",
                                                  L"MMM d, yyyy",
                                                  L"yy/MM/dd",
                                                  L"MM-dd-yy",
                                                  L"d.M.yyyy 'r.'",
                                                  L"yy'\u5E74'M'\u6708'd'\u65E5'",
                                                  L"M' . 'd' . 'yyyy"};
constexpr std::array<const wchar_t*, 5> times{L"", L" h:mm:ss tt", L" HH:mm:ss", L" tt h:mm:ss",
                                              L" H.mm.ss"};
const std::array<std::array<std::wstring, 2>, 5> marks{{{L"AM", L"PM"},
                                                        {L"a.m.", L"p.m."},
                                                        {L"\u4E0A\u5348", L"\u4E0B\u5348"},
                                                        {L"dop.", L"odp."},
                                                        {L"a. m.", L"p. m."}}};
const std::vector<std::wstring> months{
    L"Jan", L"Feb",  L"Mar",  L"Apr",    L"May",       L"Jun",      L"Jul",      L"Aug",
    L"Sep", L"Oct",  L"Nov",  L"Dec",    L"January",   L"February", L"March",    L"April",
    L"May", L"June", L"July", L"August", L"September", L"October",  L"November", L"December"};

std::wstring number(unsigned value, std::size_t digits, wchar_t zero) {
  std::wstring text;
  for (; value > 0 || text.size() < digits; value /= 10) {
    text.insert(text.begin(), static_cast<wchar_t>(zero + value % 10));
  }
  return text;
}

/// Writes a moment by a pattern of letters, as the system does.
std::wstring written(const Moment& moment, const std::wstring& pattern, const DateForm& form,
                     wchar_t zero) {
  std::wstring text;
  bool quoted = false;
  for (std::size_t at = 0; at < pattern.size();) {
    const wchar_t letter = pattern[at];
    std::size_t length = 1;
    while (at + length < pattern.size() && pattern[at + length] == letter) {
      ++length;
    }
    const auto digits = [&](unsigned value) { return number(value, length, zero); };
    if (letter == L'\'') {
      quoted = !quoted;
      length = 1;
    } else if (quoted) {
      text += std::wstring(length, letter);
    } else if (letter == L'y') {
      text += length <= 2 ? number(moment.year % 100, 2, zero) : digits(moment.year);
    } else if (letter == L'M') {
      text += length <= 2 ? digits(moment.month)
                          : form.months[moment.month - 1 + (length > 3 ? 12 : 0)];
    } else if (letter == L'd') {
      text += digits(moment.day);
    } else if (letter == L'h') {
      text += digits((moment.hour + 11) % 12 + 1);
    } else if (letter == L'H') {
      text += digits(moment.hour);
    } else if (letter == L'm') {
      text += digits(moment.minute);
    } else if (letter == L's') {
      text += digits(moment.second);
    } else if (letter == L't') {
      text += moment.hour < 12 ? form.morning : form.afternoon;
    } else {
      text += std::wstring(length, letter);
    }
    at += length;
  }
  return text;
}

/// Chooses a value from `least` on.
unsigned chosen(fuzz::Input& input, unsigned least, unsigned values) {
  const auto high = static_cast<unsigned char>(input.character());
  const auto low = static_cast<unsigned char>(input.character());
  return least + (high * 256U + low) % values;
}

Moment someMoment(fuzz::Input& input, bool shortYear) {
  Moment moment{};
  moment.year = shortYear ? chosen(input, 1950, 100) : chosen(input, 1000, 9000);
  moment.month = chosen(input, 1, 12);
  moment.day = chosen(input, 1, 31);
  moment.hour = chosen(input, 0, 24);
  moment.minute = chosen(input, 0, 60);
  moment.second = chosen(input, 0, 60);
  return moment;
}

void checkOrder(fuzz::Input& input) {
  const std::wstring date = patterns.at(chosen(input, 0, patterns.size()));
  const std::wstring time = times.at(chosen(input, 0, times.size()));
  const auto& mark = marks.at(chosen(input, 0, marks.size()));
  const DateForm form{date, months, mark[0], mark[1]};
  // Digits of other scripts, which some users see in dates.
  constexpr std::array zeros{L'0', L'0', L'\u0660', L'\u0966'};
  const wchar_t zero = zeros.at(chosen(input, 0, zeros.size()));
  const bool shortYear = date.find(L"yyyy") == std::wstring::npos;
  std::array<Moment, 2> moments{someMoment(input, shortYear), someMoment(input, shortYear)};
  if (chosen(input, 0, 4) == 0) {
    // Close together, which two random moments never are.
    const Moment& first = moments[0];
    moments[1] = {first.year, first.month, first.day, first.hour, first.minute, moments[1].second};
  }
  std::array<std::uint64_t, 2> ranks{};
  for (std::size_t n = 0; n < moments.size(); ++n) {
    Moment& moment = moments.at(n);
    if (time.empty()) {
      moment.hour = moment.minute = moment.second = 0;
    }
    ranks.at(n) = dateRank(written(moment, date + time, form, zero), form);
    require(ranks.at(n) != 0, "a date in the user's form is read");
    require(dateRank(written(moment, L"yyyy-MM-dd HH:mm:ss", form, L'0'), form) == ranks.at(n),
            "the same moment in another form is the same moment");
  }
  require((ranks[0] <=> ranks[1]) == (moments[0] <=> moments[1]), "the later date is the greater");
}

void checkAnything(fuzz::Input& input) {
  DateForm form;
  form.pattern = fuzz::wide(input.line());
  form.morning = fuzz::wide(input.line());
  form.afternoon = fuzz::wide(input.line());
  std::wstring names = fuzz::wide(input.line());
  for (std::size_t end = names.find(L','); end != std::wstring::npos; end = names.find(L',')) {
    form.months.push_back(names.substr(0, end));
    names.erase(0, end + 1);
  }
  const std::wstring text = fuzz::wide(input.rest());
  for (const DateForm& known : {form, DateForm{L"M/d/yyyy", months, L"AM", L"PM"}}) {
    const std::uint64_t rank = dateRank(text, known);
    require(dateRank(L" " + text, known) == rank, "blanks before a date do not count");
    require(rank == 0 || dateRank(text + L" 1 1 1 1", known) == 0,
            "a text with more than a date and a time is no date");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  checkOrder(input);
  checkAnything(input);
  return 0;
}
