// What the user types in the find box, and what is in the list. The input is a line with the text
// of the box and a line for each item: its name, a tab, another column that is shown, a tab, one
// that is hidden. Three control characters stand for accents that follow their letter.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/support/fuzz.h"
#include "platform/controls/find_words.h"
#include "platform/text.h"

using controls::FindWords;
using fuzz::require;

namespace {

using Texts = std::vector<std::wstring>;

constexpr std::size_t columns = 3;
constexpr std::size_t shownColumns = 2;

std::wstring withAccents(std::string_view bytes) {
  std::wstring text = fuzz::wide(bytes);
  for (wchar_t& unit : text) {
    unit = unit == 1 ? L'\u0301' : unit == 2 ? L'\u0308' : unit == 3 ? L'\u0300' : unit;
  }
  return text;
}

/// ASCII without NUL, which is no character of a text that a list can show.
bool isAscii(const std::wstring& text) {
  return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c > 0 && c < 0x80; });
}

/// The parts of a text between single characters that separate them, without empty ones.
Texts partsOf(const std::wstring& text, const std::wstring& separators) {
  Texts parts{L""};
  for (const wchar_t c : text) {
    if (separators.find(c) != std::wstring::npos) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  std::erase(parts, std::wstring());
  return parts;
}

bool sameAscii(wchar_t one, wchar_t other) {
  const auto capital = [](wchar_t c) { return c >= L'a' && c <= L'z' ? c - L'a' + L'A' : c; };
  return capital(one) == capital(other);
}

/// Whether ASCII text holds a word, place by place.
bool holds(const std::wstring& text, const std::wstring& word) {
  for (std::size_t at = 0; at + word.size() <= text.size(); ++at) {
    std::size_t same = 0;
    while (same < word.size() && sameAscii(text[at + same], word[same])) {
      ++same;
    }
    if (same == word.size()) {
      return true;
    }
  }
  return false;
}

void checkWords(const std::wstring& typed, const std::vector<Texts>& items) {
  const FindWords words(typed);
  const Texts expected = partsOf(typed, L" \t");
  require(words.count() == expected.size(), "the words are what stands between blanks");
  const std::wstring joined = platform::text::withAccentsJoined(typed);
  const std::wstring apart = platform::text::withAccentsApart(typed);
  const FindWords otherwise[]{FindWords(joined), FindWords(apart)};
  for (std::size_t word = 0; word < words.count(); ++word) {
    require(words.finds(word, typed), "a text holds its own words");
    require(!words.finds(word, L""), "no word is in an empty text");
    for (const Texts& item : items) {
      for (const std::wstring& cell : item) {
        const bool found = words.finds(word, cell);
        if (isAscii(expected[word]) && isAscii(cell)) {
          require(found == holds(cell, expected[word]), "a word is found where it stands");
        }
        require(!found || words.finds(word, L"x" + cell + L"x"), "and in every longer text");
        for (const FindWords& same : otherwise) {
          require(found || word >= same.count() || !same.finds(word, cell),
                  "what is found with the accents written otherwise is found");
        }
      }
    }
  }
}

bool matches(const FindWords& words, const Texts& item) {
  for (std::size_t word = 0; word < words.count(); ++word) {
    if (std::none_of(item.begin(), item.begin() + shownColumns,
                     [&](const std::wstring& cell) { return words.finds(word, cell); })) {
      return false;
    }
  }
  return true;
}

/// The texts of the items of `list` that are shown.
Texts shown(const controls::ListView& list) {
  Texts texts;
  for (std::size_t row = 0; row < list.rows(); ++row) {
    texts.emplace_back(list.rowCell(row, 0));
  }
  return texts;
}

void checkList(const std::wstring& typed, const std::vector<Texts>& items) {
  controls::ListView list(L"lstQMK", 1);
  list.addColumn(L"Name", 1500);
  list.addColumn(L"Type", 2000);
  list.addColumn(L"Hidden", 0);
  for (const Texts& item : items) {
    list.add(item[0], L"", {item[1], item[2]});
  }
  const auto check = [&](const std::wstring& text) {
    const FindWords words(text);
    Texts expected;
    for (const Texts& item : items) {
      if (matches(words, item)) {
        expected.push_back(item[0]);
      }
    }
    list.setFind(text);
    require(shown(list) == expected, "a list shows the items that hold all words in shown columns");
    require(list.count() == items.size(), "and keeps them all");
    const bool somethingSelected = items.empty() || list.selected().has_value();
    require(somethingSelected, "an item stays selected");
    require(expected.empty() || list.selectedRow().has_value(), "one that is shown");
  };
  // Letter by letter, as it is typed, and deleted again: only then a narrower text continues what a
  // wider one has found.
  constexpr std::size_t mostLetters = 24;
  const std::size_t letters = std::min(typed.size(), mostLetters);
  for (std::size_t length = 0; length < letters; ++length) {
    check(typed.substr(0, length));
  }
  check(typed);
  for (std::size_t length = letters; length > 0; --length) {
    check(typed.substr(0, length - 1));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const std::wstring typed = withAccents(input.line());
  constexpr std::size_t mostItems = 8;
  std::vector<Texts> items;
  while (!input.rest().empty() && items.size() < mostItems) {
    const std::wstring line = withAccents(input.line());
    Texts item(columns);
    std::size_t column = 0;
    for (const wchar_t c : line) {
      if (c == L'\t' && column + 1 < columns) {
        ++column;
      } else {
        item[column] += c;
      }
    }
    items.push_back(item);
  }
  checkWords(typed, items);
  checkList(typed, items);
  return 0;
}
