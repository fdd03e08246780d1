// Shortcuts for text of plain characters (ASCII), which nearly all text of the list files is. Every
// code page that can be the system's has the plain characters as single bytes, and in every
// language their letter case is the same, so that the system need not be asked about them.
//
// Each comparison takes the slow way that settles it where other characters are involved.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace platform::text::plain {

template <class Unit>
[[nodiscard]] constexpr bool isPlain(Unit unit) {
  constexpr unsigned firstOther = 0x80;
  return static_cast<std::make_unsigned_t<Unit>>(unit) < firstOther;
}

[[nodiscard]] constexpr wchar_t upper(wchar_t unit) {
  return unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - (L'a' - L'A')) : unit;
}

/// Writes the bytes into `text` as they are; false, with `text` undefined, when one is not plain.
[[nodiscard]] inline bool widen(std::string_view bytes, std::wstring& text) {
  text.resize(bytes.size());
  unsigned all = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    all |= byte;
    text[i] = static_cast<wchar_t>(byte);
  }
  return isPlain(all);
}

/// Compares unit by unit after `convert`; `slow` decides from the first character on that is not
/// plain. A difference before it settles the comparison: what stands in front of it stays as it is.
template <class Text, class Convert, class Slow>
[[nodiscard]] bool equals(Text text, std::wstring_view wanted, Convert convert, Slow slow) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!isPlain(text[i])) {
      return slow();
    }
    if (i >= wanted.size() || convert(static_cast<wchar_t>(text[i])) != wanted[i]) {
      return false;
    }
  }
  return text.size() == wanted.size();
}

template <class Slow>
[[nodiscard]] bool upperEquals(std::wstring_view text, std::wstring_view wanted, Slow slow) {
  return text.size() == wanted.size() && equals(text, wanted, upper, slow);
}

template <class Slow>
[[nodiscard]] bool codePageEquals(std::string_view bytes, std::wstring_view text, Slow slow) {
  return equals(
      bytes, text, [](wchar_t unit) { return unit; }, slow);
}

template <class Slow>
[[nodiscard]] bool upperCodePageEquals(std::string_view bytes, std::wstring_view wanted,
                                       Slow slow) {
  return equals(bytes, wanted, upper, slow);
}

}  // namespace platform::text::plain
