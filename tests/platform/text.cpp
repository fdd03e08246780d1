#include "platform/text.h"

#include <algorithm>

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
  text = memory::fromBytes(bytes, memory::codePage());
}

std::string toCodePage(std::wstring_view text) { return memory::toBytes(text, memory::codePage()); }

}  // namespace platform::text
