// Letter case, sort order and encoding of text, as the user's system defines them.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform::text {

/// Converts every letter to upper case, independent of the user's locale. The length never changes.
[[nodiscard]] std::wstring upper(std::wstring_view text);

/// Whether `upper(text)` equals `wanted`, which must be in upper case already. Makes no copy of the
/// text when ASCII characters decide.
[[nodiscard]] bool upperEquals(std::wstring_view text, std::wstring_view wanted);

/// Sort keys of many texts. They can be compared with one another, but not with keys of another
/// batch.
struct SortKeys {
  std::string bytes;              ///< All keys, one after the other.
  std::vector<std::size_t> ends;  ///< Offset of each key's end.
  [[nodiscard]] std::string_view at(std::size_t n) const {
    const std::size_t begin = n == 0 ? 0 : ends[n - 1];
    return std::string_view(bytes).substr(begin, ends[n] - begin);
  }
};

/// Makes keys for `count` texts; `textAt(n)` returns text number n. The byte order of the keys is
/// the user's locale order of the texts, without regard to case: two texts that differ only in case
/// have the same key. A batch, because for many texts this costs a fraction of one system call per
/// text.
[[nodiscard]] SortKeys sortKeys(std::size_t count,
                                const std::function<std::wstring_view(std::size_t)>& textAt);

/// How a search compares one UTF-16 unit.
struct SearchForm {
  char16_t capital = 0;  ///< The unit as a capital of the user's language.
  char16_t letter = 0;  ///< The capital of its letter without accents; 0 for an accent that follows
                        ///< its letter.
};

/// The forms of all 65,536 units, by unit. They are made at the first call and stay.
[[nodiscard]] std::span<const SearchForm> searchForms();

/// The text with each accent joined to its letter, or with each one behind its letter, where a
/// character for the pair exists.
[[nodiscard]] std::wstring withAccentsJoined(std::wstring_view text);
[[nodiscard]] std::wstring withAccentsApart(std::wstring_view text);

/// Converts bytes of the system's code page to text. Invalid bytes become U+FFFD or the code page's
/// own substitute; the call never fails.
[[nodiscard]] std::wstring fromCodePage(std::string_view bytes);

/// The same into an existing text, to reuse its memory.
void fromCodePage(std::string_view bytes, std::wstring& text);

/// Converts text to the system's code page. A character that the code page lacks becomes "?". It
/// never becomes a similar-looking character, so that no text can turn into a quote, a comma or a
/// line end.
[[nodiscard]] std::string toCodePage(std::wstring_view text);

/// Whether the code page has every character of `text`, so that the result of `toCodePage` converts
/// back to the same text.
[[nodiscard]] bool fitsCodePage(std::wstring_view text);

}  // namespace platform::text
