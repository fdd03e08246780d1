// Searching and comparing bytes, eight at a time. Reading the list files mostly consists of this.
//
// The C runtime's own functions are as fast on some systems, but not on all: some, Wine's for one,
// search byte by byte. On real Windows this may save little. Rows `load.100k`, `load.1m`,
// `add.100k` and `remove.100k` of ./bench include the search, `sort.100k` includes the comparison;
// the instruction counts `count.read_records` and `count.sort_view_twice` show them most directly.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace platform::bytes {

using Word = std::uint64_t;

/// A word that has the byte `c` in every position.
[[nodiscard]] constexpr Word everywhere(char c) {
  constexpr Word ones = 0x0101010101010101U;
  return ones * static_cast<unsigned char>(c);
}

/// A word whose lowest set bit marks the first zero byte of `word`; 0 when there is none.
[[nodiscard]] constexpr Word zeroBytes(Word word) {
  constexpr Word highBits = 0x8080808080808080U;
  return (word - everywhere(1)) & ~word & highBits;
}

[[nodiscard]] inline Word wordAt(const char* place) {
  static_assert(std::endian::native == std::endian::little);
  Word word = 0;
  std::memcpy(&word, place, sizeof word);
  return word;
}

/// A word in which the small letters of ASCII are capitals. All other bytes stay.
[[nodiscard]] constexpr Word withCapitals(Word word) {
  constexpr Word highBits = everywhere('\x80');
  constexpr auto upTo = [](char last) { return everywhere(static_cast<char>(0x7F - last)); };
  const Word low = word & ~highBits;  // additions do not carry from byte to byte
  const Word small = (low + upTo('a' - 1)) & ~(low + upTo('z')) & ~word & highBits;
  constexpr unsigned highBitToCaseBit = 2;
  return word ^ (small >> highBitToCaseBit);
}

/// Position of the first `one` or `other` from `from` on, or the size of `text` when there is none.
[[nodiscard]] inline std::size_t findEither(std::string_view text, char one, char other,
                                            std::size_t from = 0) {
  constexpr unsigned bitsPerByte = 8;
  const Word ones = everywhere(one);
  const Word others = everywhere(other);
  std::size_t place = from;
  for (; place + sizeof(Word) <= text.size(); place += sizeof(Word)) {
    const Word word = wordAt(text.data() + place);
    if (const Word found = zeroBytes(word ^ ones) | zeroBytes(word ^ others); found != 0) {
      return place + static_cast<std::size_t>(std::countr_zero(found)) / bitsPerByte;
    }
  }
  while (place < text.size() && text[place] != one && text[place] != other) {
    ++place;
  }
  return place;
}

/// Position of the first `c` from `from` on, or the size of `text` when there is none.
[[nodiscard]] inline std::size_t find(std::string_view text, char c, std::size_t from = 0) {
  return findEither(text, c, c, from);
}

/// Position of the first CR or LF from `from` on, or the size of `text` when there is none. Looks
/// for all bytes up to CR at once, which takes fewer steps, because lists hardly have any others.
[[nodiscard]] inline std::size_t findLineEnd(std::string_view text, std::size_t from = 0) {
  constexpr unsigned bitsPerByte = 8;
  constexpr Word highBits = everywhere('\x80');
  constexpr Word justAbove = everywhere('\r' + 1);
  const auto isLineEnd = [](char c) { return c == '\r' || c == '\n'; };
  std::size_t place = from;
  while (place + sizeof(Word) <= text.size()) {
    const Word word = wordAt(text.data() + place);
    const Word low = (word - justAbove) & ~word & highBits;
    if (low == 0) {
      place += sizeof(Word);
      continue;
    }
    place += static_cast<std::size_t>(std::countr_zero(low)) / bitsPerByte;
    if (isLineEnd(text[place])) {
      return place;
    }
    ++place;
  }
  while (place < text.size() && !isLineEnd(text[place])) {
    ++place;
  }
  return place;
}

/// Length of the common beginning of two texts; of `text`, `convert` is compared, which takes a
/// word and changes each of its bytes by itself.
template <class Convert>
[[nodiscard]] std::size_t commonLength(std::string_view text, std::string_view wanted,
                                       Convert convert) {
  constexpr unsigned bitsPerByte = 8;
  const std::size_t common = std::min(text.size(), wanted.size());
  std::size_t place = 0;
  for (; place + sizeof(Word) <= common; place += sizeof(Word)) {
    if (const Word different = convert(wordAt(text.data() + place)) ^ wordAt(wanted.data() + place);
        different != 0) {
      return place + static_cast<std::size_t>(std::countr_zero(different)) / bitsPerByte;
    }
  }
  const auto converted = [&convert](char c) {
    return static_cast<char>(convert(Word{static_cast<unsigned char>(c)}));
  };
  while (place < common && converted(text[place]) == wanted[place]) {
    ++place;
  }
  return place;
}

[[nodiscard]] inline std::size_t commonLength(std::string_view one, std::string_view other) {
  return commonLength(one, other, [](Word word) { return word; });
}

/// The same from the end: length of the common ending of two texts.
[[nodiscard]] inline std::size_t commonEnding(std::string_view one, std::string_view other) {
  constexpr unsigned bitsPerByte = 8;
  const std::size_t common = std::min(one.size(), other.size());
  const char* const endOfOne = one.data() + one.size();
  const char* const endOfOther = other.data() + other.size();
  std::size_t length = 0;
  for (; length + sizeof(Word) <= common; length += sizeof(Word)) {
    const std::size_t behind = length + sizeof(Word);
    if (const Word different = wordAt(endOfOne - behind) ^ wordAt(endOfOther - behind);
        different != 0) {
      return length + static_cast<std::size_t>(std::countl_zero(different)) / bitsPerByte;
    }
  }
  while (length < common && endOfOne[-1 - static_cast<std::ptrdiff_t>(length)] ==
                                endOfOther[-1 - static_cast<std::ptrdiff_t>(length)]) {
    ++length;
  }
  return length;
}

/// Negative, zero or positive when `one` comes before, with or after `other` in the order of
/// unsigned bytes. A prefix comes before the longer text.
[[nodiscard]] inline int compare(std::string_view one, std::string_view other) {
  const std::size_t common = commonLength(one, other);
  if (common == one.size() || common == other.size()) {
    return one.size() == other.size() ? 0 : (one.size() < other.size() ? -1 : 1);
  }
  return static_cast<unsigned char>(one[common]) < static_cast<unsigned char>(other[common]) ? -1
                                                                                             : 1;
}

}  // namespace platform::bytes
