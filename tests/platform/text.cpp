#include "platform/text.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cwctype>

#include "platform/plain_text.h"

namespace platform::text {
namespace {

// Windows-1252 from 0x80 to 0x9F; the five that stand for nothing keep their number.
constexpr std::array<wchar_t, 32> upperHalf{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

wchar_t upperOf(wchar_t c) {
  // A locale of its own, so that neither the environment nor a test can change letter case.
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  // Windows leaves these alone: micro sign, dotless i, long s.
  if (c == 0xB5 || c == 0x131 || c == 0x17F) {
    return c;
  }
  return static_cast<wchar_t>(towupper_l(static_cast<std::wint_t>(c), locale));
}

}  // namespace

std::wstring upper(std::wstring_view text) {
  std::wstring result(text);
  std::transform(result.begin(), result.end(), result.begin(), upperOf);
  return result;
}

bool upperEquals(std::wstring_view text, std::wstring_view wanted) {
  return plain::upperEquals(text, wanted, [&] { return upper(text) == wanted; });
}

namespace {

std::string sortKey(std::wstring_view text) {
  // The order of the tests is that of the code points, four bytes each, highest first.
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
  SortKeys keys;
  for (std::size_t n = 0; n < count; ++n) {
    keys.bytes += sortKey(textAt(n));
    keys.ends.push_back(keys.bytes.size());
  }
  return keys;
}

bool codePageEquals(std::string_view bytes, std::wstring_view text) {
  return plain::codePageEquals(bytes, text, [&] { return fromCodePage(bytes) == text; });
}

bool upperCodePageEquals(std::string_view bytes, std::wstring_view wanted) {
  return plain::upperCodePageEquals(bytes, wanted,
                                    [&] { return upper(fromCodePage(bytes)) == wanted; });
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
  text.clear();
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    text += code >= 0x80 && code < 0xA0 ? upperHalf[code - 0x80] : static_cast<wchar_t>(code);
  }
}

std::string toCodePage(std::wstring_view text) {
  std::string result;
  result.reserve(text.size());
  for (const wchar_t c : text) {
    const auto* const found = std::find(upperHalf.begin(), upperHalf.end(), c);
    if (found != upperHalf.end()) {
      result += static_cast<char>(0x80 + (found - upperHalf.begin()));
    } else if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
      result += static_cast<char>(c);
    } else {
      result += '?';
    }
  }
  return result;
}

}  // namespace platform::text
