// Fast paths for text of plain characters (ASCII), which nearly all text of the list files is.
//
// In every code page that the system can have, the plain characters are single bytes, and in every
// language their letter case is the same. So no call to the system is needed for them. Each
// comparison calls a slow path when other characters are involved.
//
// This saves a call of the system's text functions, and often an allocation, per field. Rows
// `load.100k`, `load.1m`, `add.100k` and `remove.100k` of ./bench include it; no row measures it
// alone. The calls that it avoids stay within the process, so it matters on Windows and under Wine
// alike.
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

template <class Unit>
[[nodiscard]] constexpr Unit upper(Unit unit) {
  return unit >= 'a' && unit <= 'z' ? static_cast<Unit>(unit - ('a' - 'A')) : unit;
}

/// Copies the bytes into `text`. Returns false, and leaves `text` unspecified, when one of them is
/// not plain.
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

/// Whether the text in upper case is `wanted`. At the first character that is not plain, `slow`
/// decides. A difference before that character already decides, because it cannot change how the
/// characters before it convert. The length never changes, so another length decides as well.
template <class Slow>
[[nodiscard]] bool upperEquals(std::wstring_view text, std::wstring_view wanted, Slow slow) {
  if (text.size() != wanted.size()) {
    return false;
  }
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!isPlain(text[i])) {
      return slow();
    }
    if (upper(text[i]) != wanted[i]) {
      return false;
    }
  }
  return true;
}

/// The text without such characters at its beginning and its end.
template <class Unit>
[[nodiscard]] std::basic_string_view<Unit> trimmed(
    std::basic_string_view<Unit> text, std::type_identity_t<std::basic_string_view<Unit>> blanks) {
  const std::size_t first = text.find_first_not_of(blanks);
  return first == text.npos ? std::basic_string_view<Unit>()
                            : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace platform::text::plain
