#include "fuzz/support/fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "platform/text.h"
#include "startup/paths.h"

namespace fuzz {

void require(bool holds, const char* promise) {
  if (!holds) {
    static_cast<void>(std::fprintf(stderr, "broken promise: %s\n", promise));
    std::abort();
  }
}

char Input::character() {
  if (left_.empty()) {
    return '\0';
  }
  const char first = left_.front();
  left_.remove_prefix(1);
  return first;
}

std::string_view Input::line() {
  const std::size_t end = std::min(left_.find('\n'), left_.size());
  const std::string_view found = left_.substr(0, end);
  left_.remove_prefix(std::min(end + 1, left_.size()));
  return found;
}

std::wstring wide(std::string_view bytes) {
  constexpr unsigned char firstForeign = 0xF0;
  constexpr wchar_t cyrillic = 0x410;
  std::wstring text = platform::text::fromCodePage(bytes);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto code = static_cast<unsigned char>(bytes[i]);
    if (code >= firstForeign) {
      text[i] = static_cast<wchar_t>(cyrillic + code - firstForeign);
    }
  }
  return text;
}

std::string asWritten(const std::wstring& text) {
  std::string bytes = platform::text::toCodePage(text);
  std::replace(bytes.begin(), bytes.end(), '\r', ' ');
  std::replace(bytes.begin(), bytes.end(), '\n', ' ');
  return bytes;
}

bool survives(const std::wstring& text) {
  return text.find_first_of(L"\"\r\n") == std::wstring::npos;
}

std::vector<std::string> linesOf(std::string_view bytes) {
  std::vector<std::string> lines;
  bool open = false;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (!open) {
      lines.emplace_back();
    }
    lines.back() += bytes[i];
    const bool pair = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
    open = pair || (bytes[i] != '\r' && bytes[i] != '\n');
  }
  return lines;
}

std::string extended(std::string bytes, const std::string& record) {
  if (!bytes.empty() && !bytes.ends_with('\r') && !bytes.ends_with('\n')) {
    bytes += "\r\n";
  }
  return bytes + record;
}

void freshDesktop() {
  theDesktop().reset();
  theDesktop().putFolder(shortcutsFolder);
  modQMKGeneral::ShortCutsFolder = shortcutsFolder;
}

std::string bytesOf(const std::wstring& path) {
  const auto bytes = theDesktop().bytesOf(path);
  require(bytes.has_value(), "a file that nobody deletes is still there");
  return bytes.value_or("");
}

std::vector<std::wstring> itemsOf(const controls::ListView& list, std::size_t subItems) {
  std::vector<std::wstring> items;
  for (std::size_t index = 0; index < list.count(); ++index) {
    std::wstring item = list.text(index);
    for (std::size_t n = 1; n <= subItems; ++n) {
      item += L'\0' + list.subItem(index, n);
    }
    items.push_back(item);
  }
  return items;
}

}  // namespace fuzz
