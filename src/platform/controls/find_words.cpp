#include "platform/controls/find_words.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "platform/text.h"

namespace controls {

using platform::text::SearchForm;

namespace {

/// The place of a unit in a table by unit.
std::size_t placeOf(wchar_t unit) { return static_cast<std::uint32_t>(unit); }

/// The form of a unit. A character beyond the table, where the platform has such units, is its own
/// form as far as it fits.
SearchForm formOf(std::span<const SearchForm> forms, wchar_t unit) {
  const std::size_t place = placeOf(unit);
  return place < forms.size()
             ? forms[place]
             : SearchForm{static_cast<char16_t>(unit), static_cast<char16_t>(unit)};
}

bool equal(const SearchForm& wanted, const SearchForm& there) {
  return there.capital == wanted.capital ||
         (wanted.letter == wanted.capital && there.letter == wanted.capital);
}

/// Whether `text` begins with `word`. Accents in the text that the word does not ask for do not
/// count.
bool beginsWith(std::span<const SearchForm> forms, std::wstring_view text, std::wstring_view word) {
  std::size_t at = 0;
  for (const wchar_t unit : word) {
    const SearchForm wanted = formOf(forms, unit);
    while (at > 0 && wanted.letter != 0 && at < text.size() && text[at] != 0 &&
           formOf(forms, text[at]).letter == 0) {
      ++at;
    }
    if (at == text.size() || !equal(wanted, formOf(forms, text[at]))) {
      return false;
    }
    ++at;
  }
  return true;
}

/// Whether each of the first units can be the first one of `word`: most units of a text are passed
/// over by one look into this table. Rows `find.1m` and `find.1m.delete` of ./bench.
std::vector<char> startsOf(std::span<const SearchForm> forms, std::wstring_view word) {
  constexpr std::size_t units = 256;
  const SearchForm first = formOf(forms, word.front());
  std::vector<char> starts(units);
  std::transform(forms.begin(), forms.begin() + units, starts.begin(),
                 [&first](const SearchForm& there) { return equal(first, there) ? 1 : 0; });
  return starts;
}

bool occurs(std::span<const SearchForm> forms, const std::vector<char>& starts,
            std::wstring_view text, std::wstring_view word) {
  const char* const table = starts.data();
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t unit = placeOf(text[at]);
    if ((unit >= starts.size() || table[unit] != 0) && beginsWith(forms, text.substr(at), word)) {
      return true;
    }
  }
  return false;
}

}  // namespace

FindWords::FindWords(std::wstring_view text) {
  const std::span<const SearchForm> forms = platform::text::searchForms();
  constexpr std::wstring_view blanks = L" \t";
  for (std::size_t begin = text.find_first_not_of(blanks); begin != std::wstring_view::npos;) {
    const std::size_t end = std::min(text.find_first_of(blanks, begin), text.size());
    const std::wstring_view typed = text.substr(begin, end - begin);
    Word word;
    for (std::wstring form : {std::wstring(typed), platform::text::withAccentsJoined(typed),
                              platform::text::withAccentsApart(typed)}) {
      if (std::none_of(word.begin(), word.end(),
                       [&form](const Form& known) { return known.text == form; })) {
        word.push_back({form, startsOf(forms, form)});
      }
    }
    words_.push_back(std::move(word));
    begin = text.find_first_not_of(blanks, end);
  }
}

bool FindWords::operator==(const FindWords& other) const {
  return std::equal(words_.begin(), words_.end(), other.words_.begin(), other.words_.end(),
                    [](const Word& one, const Word& another) {
                      return one.front().text == another.front().text;
                    });
}

bool FindWords::finds(std::size_t word, std::wstring_view text) const {
  const std::span<const SearchForm> forms = platform::text::searchForms();
  return std::any_of(words_[word].begin(), words_[word].end(),
                     [&](const Form& form) { return occurs(forms, form.starts, text, form.text); });
}

bool FindWords::refines(const FindWords& former) const {
  // By the words as they were typed, and only where they are written in one way: an accent that is
  // typed behind a letter changes the letter.
  const auto single = [](const Word& word) { return word.size() == 1; };
  return former.words_.size() <= words_.size() &&
         std::all_of(words_.begin(), words_.end(), single) &&
         std::equal(former.words_.begin(), former.words_.end(), words_.begin(),
                    [&](const Word& before, const Word& now) {
                      return single(before) && now.front().text.starts_with(before.front().text);
                    });
}

}  // namespace controls
