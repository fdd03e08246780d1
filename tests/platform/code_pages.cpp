#include "platform/code_pages.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/run_time_error.h"

namespace memory {
namespace {

/// Characters of the bytes from 0x80 on. Bytes without a meaning become the character with their
/// number.
using UpperHalf = std::array<wchar_t, 128>;

constexpr int utf8 = 65001;
constexpr wchar_t replacement = 0xFFFD;

constexpr UpperHalf westEuropean{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039,
    0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, 0x00A0, 0x00A1, 0x00A2, 0x00A3,
    0x00A4, 0x00A5, 0x00A6, 0x00A7, 0x00A8, 0x00A9, 0x00AA, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x00AF,
    0x00B0, 0x00B1, 0x00B2, 0x00B3, 0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x00B9, 0x00BA, 0x00BB,
    0x00BC, 0x00BD, 0x00BE, 0x00BF, 0x00C0, 0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C6, 0x00C7,
    0x00C8, 0x00C9, 0x00CA, 0x00CB, 0x00CC, 0x00CD, 0x00CE, 0x00CF, 0x00D0, 0x00D1, 0x00D2, 0x00D3,
    0x00D4, 0x00D5, 0x00D6, 0x00D7, 0x00D8, 0x00D9, 0x00DA, 0x00DB, 0x00DC, 0x00DD, 0x00DE, 0x00DF,
    0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E6, 0x00E7, 0x00E8, 0x00E9, 0x00EA, 0x00EB,
    0x00EC, 0x00ED, 0x00EE, 0x00EF, 0x00F0, 0x00F1, 0x00F2, 0x00F3, 0x00F4, 0x00F5, 0x00F6, 0x00F7,
    0x00F8, 0x00F9, 0x00FA, 0x00FB, 0x00FC, 0x00FD, 0x00FE, 0x00FF};

constexpr UpperHalf centralEuropean{
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021, 0x0088, 0x2030, 0x0160, 0x2039,
    0x015A, 0x0164, 0x017D, 0x0179, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, 0x00A0, 0x02C7, 0x02D8, 0x0141,
    0x00A4, 0x0104, 0x00A6, 0x00A7, 0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x0105, 0x015F, 0x00BB,
    0x013D, 0x02DD, 0x013E, 0x017C, 0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E, 0x0110, 0x0143, 0x0147, 0x00D3,
    0x00D4, 0x0150, 0x00D6, 0x00D7, 0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7, 0x010D, 0x00E9, 0x0119, 0x00EB,
    0x011B, 0x00ED, 0x00EE, 0x010F, 0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9};

const UpperHalf& upperHalfOf(int number) { return number == 1250 ? centralEuropean : westEuropean; }

int& current() {
  static int number = 1252;
  return number;
}

char byteOf(wchar_t c, const UpperHalf& upperHalf) {
  constexpr unsigned firstOther = 0x80;
  if (static_cast<std::uint32_t>(c) < firstOther) {
    return static_cast<char>(c);
  }
  const auto* const found = std::find(upperHalf.begin(), upperHalf.end(), c);
  return found == upperHalf.end()
             ? '?'
             : static_cast<char>(firstOther + static_cast<unsigned>(found - upperHalf.begin()));
}

bool isSurrogate(std::uint32_t c) { return c >= 0xD800 && c < 0xE000; }

void appendUtf8(std::string& bytes, std::uint32_t c) {
  if (c < 0x80) {
    bytes += static_cast<char>(c);
    return;
  }
  if (isSurrogate(c) || c > 0x10FFFF) {
    c = replacement;
  }
  // The first byte says how many bytes follow: one for each six bits that do not fit into it.
  int following = 3;
  if (c < 0x10000) {
    following = c < 0x800 ? 1 : 2;
  }
  const auto lead = static_cast<unsigned>(0xF0 << (3 - following)) & 0xFFU;
  bytes += static_cast<char>(lead | (c >> (6 * following)));
  for (int shift = 6 * (following - 1); shift >= 0; shift -= 6) {
    bytes += static_cast<char>(0x80U | ((c >> shift) & 0x3FU));
  }
}

/// Windows has characters of two bytes; there two of them stand for one of the higher characters.
constexpr bool hasPairs = sizeof(wchar_t) == 2;
constexpr std::uint32_t firstOfPairs = 0x10000;

/// Removes one character from the front of `text` and returns it.
std::uint32_t takeCharacter(std::wstring_view& text) {
  const auto c = static_cast<std::uint32_t>(text.front());
  text.remove_prefix(1);
  if (hasPairs && c >= 0xD800 && c < 0xDC00 && !text.empty()) {
    const auto second = static_cast<std::uint32_t>(text.front());
    if (second >= 0xDC00 && second < 0xE000) {
      text.remove_prefix(1);
      return firstOfPairs + ((c - 0xD800) << 10U) + (second - 0xDC00);
    }
  }
  return c;
}

void appendCharacter(std::wstring& text, std::uint32_t c) {
  if (hasPairs && c >= firstOfPairs) {
    text += static_cast<wchar_t>(0xD800 + ((c - firstOfPairs) >> 10U));
    text += static_cast<wchar_t>(0xDC00 + ((c - firstOfPairs) & 0x3FFU));
  } else {
    text += static_cast<wchar_t>(c);
  }
}

/// Removes one character from the front of `bytes` and returns it.
std::uint32_t takeUtf8(std::string_view& bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  if (lead < 0x80) {
    return lead;
  }
  if (lead < 0xC2 || lead > 0xF4) {
    return replacement;
  }
  std::size_t following = 3;
  if (lead < 0xF0) {
    following = lead < 0xE0 ? 1 : 2;
  }
  std::uint32_t c = lead & (0x3FU >> following);
  std::size_t taken = 0;
  while (taken < following && taken < bytes.size()) {
    const auto byte = static_cast<unsigned char>(bytes[taken]);
    if ((byte & 0xC0U) != 0x80) {
      break;
    }
    c = (c << 6U) | (byte & 0x3FU);
    ++taken;
  }
  constexpr std::array<std::uint32_t, 4> smallest{0, 0x80, 0x800, 0x10000};
  const bool whole = taken == following && c >= smallest.at(following) && c <= 0x10FFFF;
  bytes.remove_prefix(taken);
  return whole && !isSurrogate(c) ? c : replacement;
}

}  // namespace

int codePage() { return current(); }

void setCodePage(int number) {
  if (number != 1252 && number != 1250 && number != utf8) {
    throw platform::RunTimeError(platform::error::invalidCall);
  }
  current() = number;
}

std::string toBytes(std::wstring_view text, int number) {
  std::string bytes;
  bytes.reserve(text.size());
  if (number == utf8) {
    while (!text.empty()) {
      appendUtf8(bytes, takeCharacter(text));
    }
    return bytes;
  }
  for (const wchar_t c : text) {
    bytes += byteOf(c, upperHalfOf(number));
  }
  return bytes;
}

std::wstring fromBytes(std::string_view bytes, int number) {
  std::wstring text;
  text.reserve(bytes.size());
  if (number == utf8) {
    while (!bytes.empty()) {
      appendCharacter(text, takeUtf8(bytes));
    }
    return text;
  }
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    text += code < 0x80 ? static_cast<wchar_t>(code) : upperHalfOf(number).at(code - 0x80U);
  }
  return text;
}

}  // namespace memory
