#include "settings/ini_text.h"

#include <algorithm>
#include <cstddef>

#include "platform/bytes.h"
#include "platform/plain_text.h"

namespace ini_text {

namespace plain = platform::text::plain;

namespace {

constexpr std::string_view lineEnd = "\r\n";

bool isPlain(wchar_t c) { return c >= L' ' && c <= L'~'; }

std::string_view trimmed(std::string_view text) { return plain::trimmed(text, " \t"); }

bool sameName(std::string_view one, std::string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char a, char b) { return plain::upper(a) == plain::upper(b); });
}

/// The name of the section that a line begins; nothing for another line.
std::optional<std::string_view> sectionOf(std::string_view line) {
  const std::string_view text = trimmed(line);
  const std::size_t bracket = text.find(']');
  if (!text.starts_with('[') || bracket == std::string_view::npos) {
    return std::nullopt;
  }
  return trimmed(text.substr(1, bracket - 1));
}

/// Whether a line says something: it is not blank and no comment.
bool says(std::string_view line) {
  const std::string_view text = trimmed(line);
  return !text.empty() && text.front() != ';' && text.front() != '#';
}

/// Where a key is in the contents, or where its line would go.
struct Place {
  bool hasSection = false;
  bool hasKey = false;
  std::size_t begin = 0;  ///< Of the value with the blanks around it; or of the new line.
  std::size_t end = 0;    ///< Of the value.
};

Place placeOf(std::string_view contents, std::string_view section, std::string_view key) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";  // editors put it before UTF-8
  Place place;
  std::size_t next = contents.starts_with(mark) ? mark.size() : 0;
  while (next < contents.size()) {
    const std::size_t begin = next;
    const std::size_t end = platform::bytes::findLineEnd(contents, begin);
    const bool both = contents.substr(end).starts_with(lineEnd);
    next = std::min(end + (both ? lineEnd.size() : 1), contents.size());
    const std::string_view line = contents.substr(begin, end - begin);
    if (const auto name = sectionOf(line)) {
      if (place.hasSection) {
        break;
      }
      place.hasSection = sameName(*name, section);
      place.begin = next;
    } else if (place.hasSection && says(line)) {
      place.begin = next;
      const std::size_t equals = line.find('=');
      if (equals != std::string_view::npos && sameName(trimmed(line.substr(0, equals)), key)) {
        return {.hasSection = true, .hasKey = true, .begin = begin + equals + 1, .end = end};
      }
    }
  }
  return place;
}

}  // namespace

std::optional<std::wstring> valueIn(std::string_view contents, std::string_view section,
                                    std::string_view key) {
  const Place place = placeOf(contents, section, key);
  if (!place.hasKey) {
    return std::nullopt;
  }
  const std::string_view bytes = trimmed(contents.substr(place.begin, place.end - place.begin));
  std::wstring value;
  for (const char byte : bytes) {
    value += static_cast<wchar_t>(static_cast<unsigned char>(byte));
  }
  return std::all_of(value.begin(), value.end(), isPlain) ? std::optional(value) : std::nullopt;
}

std::string withValue(std::string contents, std::string_view section, std::string_view key,
                      std::wstring_view value) {
  std::string bytes;
  for (const wchar_t c : value) {
    bytes += isPlain(c) ? static_cast<char>(c) : '?';
  }
  const Place place = placeOf(contents, section, key);
  if (place.hasKey) {
    return contents.replace(place.begin, place.end - place.begin, bytes);
  }
  const std::size_t where = place.hasSection ? place.begin : contents.size();
  std::string line;
  // The line before may be the last one, without an end.
  if (where == contents.size() && where > 0 && contents.back() != '\r' && contents.back() != '\n') {
    line.append(lineEnd);
  }
  if (!place.hasSection) {
    line.append("[").append(section).append("]").append(lineEnd);
  }
  line.append(key).append("=").append(bytes).append(lineEnd);
  return contents.insert(where, line);
}

}  // namespace ini_text
