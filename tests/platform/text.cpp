#include "platform/text.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/code_pages.h"
#include "platform/desktop.h"
#include "platform/plain_text.h"
#include "platform/upper_case.h"

namespace platform::text {

std::wstring upper(std::wstring_view text) {
  std::wstring result(text);
  std::transform(result.begin(), result.end(), result.begin(), memory::upperCase);
  return result;
}

bool upperEquals(std::wstring_view text, std::wstring_view wanted) {
  return plain::upperEquals(text, wanted, [&] { return upper(text) == wanted; });
}

namespace {

std::string sortKey(std::wstring_view text) {
  // Texts sort by code points in the tests, four bytes each, highest byte first.
  std::string key;
  key.reserve(text.size() * 4);
  for (const wchar_t c : upper(text)) {
    for (int shift = 24; shift >= 0; shift -= 8) {
      key += static_cast<char>((static_cast<std::uint32_t>(c) >> shift) & 0xFFU);
    }
  }
  return key;
}

}  // namespace

SortKeys sortKeys(std::size_t count, const std::function<std::wstring_view(std::size_t)>& textAt) {
  ++memory::desktop().sorts;
  SortKeys keys;
  for (std::size_t n = 0; n < count; ++n) {
    keys.bytes += sortKey(textAt(n));
    keys.ends.push_back(keys.bytes.size());
  }
  return keys;
}

std::wstring fromCodePage(std::string_view bytes) {
  std::wstring text;
  fromCodePage(bytes, text);
  return text;
}

void fromCodePage(std::string_view bytes, std::wstring& text) {
  if (plain::widen(bytes, text)) {
    return;
  }
  text = memory::fromBytes(bytes, memory::codePage());
}

std::string toCodePage(std::wstring_view text) { return memory::toBytes(text, memory::codePage()); }

namespace {

/// A letter with an accent, and the two apart.
struct Accented {
  wchar_t joined;
  wchar_t letter;
  wchar_t accent;
};
constexpr std::array<Accented, 12> accented{{{L'\u00C0', L'A', L'\u0300'},
                                             {L'\u00C4', L'A', L'\u0308'},
                                             {L'\u00C9', L'E', L'\u0301'},
                                             {L'\u00D6', L'O', L'\u0308'},
                                             {L'\u00DC', L'U', L'\u0308'},
                                             {L'\u00E0', L'a', L'\u0300'},
                                             {L'\u00E4', L'a', L'\u0308'},
                                             {L'\u00E9', L'e', L'\u0301'},
                                             {L'\u00F6', L'o', L'\u0308'},
                                             {L'\u00FC', L'u', L'\u0308'},
                                             {L'\u0130', L'I', L'\u0307'},
                                             {L'\u017D', L'Z', L'\u030C'}}};

std::vector<SearchForm> makeForms() {
  constexpr std::size_t units = 0x10000;
  constexpr std::size_t firstAccent = 0x300;
  constexpr std::size_t lastAccent = 0x36F;
  std::vector<SearchForm> forms(units);
  for (std::size_t unit = 0; unit < units; ++unit) {
    const auto capital = static_cast<char16_t>(memory::upperCase(static_cast<wchar_t>(unit)));
    const bool accent = unit >= firstAccent && unit <= lastAccent;
    forms[unit] = {capital, accent ? u'\0' : capital};
  }
  for (const Accented& pair : accented) {
    forms[static_cast<std::size_t>(pair.joined)].letter =
        static_cast<char16_t>(memory::upperCase(pair.letter));
  }
  return forms;
}

}  // namespace

std::span<const SearchForm> searchForms() {
  static const std::vector<SearchForm> forms = makeForms();
  return forms;
}

std::wstring withAccentsApart(std::wstring_view text) {
  std::wstring result;
  for (const wchar_t unit : text) {
    const auto* const found =
        std::find_if(accented.begin(), accented.end(),
                     [unit](const Accented& pair) { return pair.joined == unit; });
    if (found == accented.end()) {
      result += unit;
    } else {
      result += {found->letter, found->accent};
    }
  }
  return result;
}

std::wstring withAccentsJoined(std::wstring_view text) {
  std::wstring result;
  for (const wchar_t unit : text) {
    const auto* const found =
        std::find_if(accented.begin(), accented.end(), [&](const Accented& pair) {
          return !result.empty() && pair.letter == result.back() && pair.accent == unit;
        });
    if (found == accented.end()) {
      result += unit;
    } else {
      result.back() = found->joined;
    }
  }
  return result;
}

}  // namespace platform::text
