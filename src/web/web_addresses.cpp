#include "web/web_addresses.h"

#include <algorithm>

#include "platform/plain_text.h"
#include "platform/text.h"

namespace modQMKGeneral {

namespace {

using platform::text::upper;

/// The part of an address behind its scheme; nothing for another scheme.
std::optional<std::wstring_view> behindScheme(std::wstring_view text) {
  for (const std::wstring_view scheme : {L"HTTP://", L"HTTPS://", L"FTP://"}) {
    if (upper(text.substr(0, scheme.size())) == scheme) {
      return text.substr(scheme.size());
    }
  }
  return std::nullopt;
}

/// The host of an address, without user and port; "" when there is none.
std::wstring_view hostOf(std::wstring_view text) {
  std::wstring_view host = behindScheme(text).value_or(L"");
  host = host.substr(0, host.find_first_of(L"/?#\\"));
  if (const std::size_t user = host.rfind(L'@'); user != std::wstring_view::npos) {
    host.remove_prefix(user + 1);
  }
  // The colons of a numeric address are in brackets.
  const std::size_t end = host.find(L']');
  return host.substr(0, host.find(L':', end == std::wstring_view::npos ? 0 : end));
}

std::wstring_view trimmed(std::wstring_view text) {
  return platform::text::plain::trimmed(text, L" \t\r\n");
}

}  // namespace

bool isWebAddress(std::wstring_view text) {
  // The system passes no longer address to a browser.
  constexpr std::size_t longest = 2083;
  return text.size() <= longest && !hostOf(text).empty() &&
         std::none_of(text.begin(), text.end(), [](wchar_t c) { return c <= L' ' || c == L'"'; });
}

std::optional<WebEntry> entryOfLine(std::wstring_view line) {
  const std::size_t tab = line.rfind(L'\t');
  const std::wstring_view address =
      trimmed(tab == std::wstring_view::npos ? line : line.substr(tab));
  if (!isWebAddress(address)) {
    return std::nullopt;
  }
  const std::wstring_view name =
      tab == std::wstring_view::npos ? std::wstring_view() : trimmed(line.substr(0, tab));
  return WebEntry{std::wstring(name.empty() ? hostOf(address) : name), std::wstring(address)};
}

std::optional<std::wstring> addressOfUrlFile(std::string_view bytes) {
  constexpr std::string_view wideMark = "\xFF\xFE";
  constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
  constexpr unsigned byteBits = 8;
  std::wstring text;
  if (bytes.starts_with(wideMark)) {
    for (std::size_t place = wideMark.size(); place + 1 < bytes.size(); place += 2) {
      text.push_back(
          static_cast<wchar_t>(static_cast<unsigned char>(bytes[place]) |
                               static_cast<unsigned char>(bytes[place + 1]) << byteBits));
    }
  } else {
    text = platform::text::fromCodePage(
        bytes.substr(bytes.starts_with(utf8Mark) ? utf8Mark.size() : 0));
  }
  constexpr std::wstring_view key = L"URL=";
  bool inSection = false;
  std::wstring_view rest = text;
  while (!rest.empty()) {
    const std::wstring_view line = trimmed(rest.substr(0, rest.find_first_of(L"\r\n")));
    rest.remove_prefix(std::min(rest.size(), rest.find_first_of(L"\r\n")));
    rest.remove_prefix(std::min(rest.size(), rest.find_first_not_of(L"\r\n")));
    if (line.starts_with(L'[')) {
      inSection = upper(line) == L"[INTERNETSHORTCUT]";
    } else if (inSection && upper(line.substr(0, key.size())) == key) {
      const std::wstring_view address = trimmed(line.substr(key.size()));
      return isWebAddress(address) ? std::optional(std::wstring(address)) : std::nullopt;
    }
  }
  return std::nullopt;
}

}  // namespace modQMKGeneral
