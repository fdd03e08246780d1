// The tables with which the program searches texts.
#include <windows.h>

#include <array>
#include <memory>
#include <vector>

#include "platform/text.h"

namespace platform::text {
namespace {

constexpr std::size_t units = 0x10000;
using Table = std::array<SearchForm, units>;

/// Text with its accents joined or apart, as the system's own tables have it; the text itself when
/// the system refuses it.
std::wstring folded(std::wstring_view text, DWORD how) {
  if (text.empty()) return {};
  // A character comes apart into a few units at most.
  constexpr std::size_t most = 8;
  std::wstring result(text.size() * most, L'\0');
  const int length = FoldStringW(how, text.data(), static_cast<int>(text.size()), result.data(),
                                 static_cast<int>(result.size()));
  if (length <= 0) return std::wstring(text);
  result.resize(static_cast<std::size_t>(length));
  return result;
}

/// The capitals of all units, in the user's language.
std::wstring capitals(const std::wstring& all) {
  std::wstring result(all.size(), L'\0');
  const int length = static_cast<int>(all.size());
  if (LCMapStringEx(LOCALE_NAME_USER_DEFAULT, LCMAP_UPPERCASE | LCMAP_LINGUISTIC_CASING, all.data(),
                    length, result.data(), length, nullptr, nullptr, 0) != length) {
    return all;
  }
  return result;
}

bool isSurrogate(std::size_t unit) { return unit >= 0xD800 && unit < 0xE000; }

/// Whether the unit is an accent that follows its letter.
std::vector<WORD> kinds(const std::wstring& all) {
  std::vector<WORD> found(all.size());
  if (GetStringTypeW(CT_CTYPE3, all.data(), static_cast<int>(all.size()), found.data()) == 0) {
    found.assign(all.size(), 0);
  }
  return found;
}

std::unique_ptr<Table> makeTable() {
  auto table = std::make_unique<Table>();
  std::wstring all(units, L'\0');
  for (std::size_t unit = 0; unit < units; ++unit) all[unit] = static_cast<wchar_t>(unit);
  const std::wstring capital = capitals(all);
  const std::vector<WORD> kind = kinds(all);
  // Each unit is taken apart in one call for all, with a separator that stays as it is.
  std::wstring list;
  list.reserve(2 * units);
  for (std::size_t unit = 0; unit < units; ++unit) {
    list += isSurrogate(unit) || unit == 0 ? L'\x01' : static_cast<wchar_t>(unit);
    list += L'\0';
  }
  const std::wstring apart = folded(list, MAP_COMPOSITE);
  std::size_t at = 0;
  for (std::size_t unit = 0; unit < units; ++unit) {
    const std::size_t end = apart.find(L'\0', at);
    SearchForm& form = (*table)[unit];
    form.capital = static_cast<char16_t>(capital[unit]);
    form.letter = form.capital;
    if (end != std::wstring::npos && end - at > 1 && !isSurrogate(unit)) {
      // A letter and its accents; other characters that come apart stay themselves.
      const auto follows = static_cast<std::size_t>(apart[at + 1]);
      if ((kind[follows] & C3_NONSPACING) != 0) {
        form.letter = static_cast<char16_t>(capital[static_cast<std::size_t>(apart[at])]);
      }
    }
    if ((kind[unit] & C3_NONSPACING) != 0 && unit >= 0x300 && unit < 0x370) {
      form.letter = 0;
    }
    at = end == std::wstring::npos ? apart.size() : end + 1;
  }
  return table;
}

}  // namespace

std::span<const SearchForm> searchForms() {
  static const std::unique_ptr<const Table> table = makeTable();
  return *table;
}

std::wstring withAccentsJoined(std::wstring_view text) { return folded(text, MAP_PRECOMPOSED); }

std::wstring withAccentsApart(std::wstring_view text) { return folded(text, MAP_COMPOSITE); }

}  // namespace platform::text
