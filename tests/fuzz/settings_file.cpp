// The file with the settings, which anybody may have edited. The input is a line with a section, a
// line with a key, a line with a value, and the contents of the file.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/support/fuzz.h"
#include "settings/ini_text.h"

using fuzz::require;

namespace {

/// A name as the program gives one: letters, digits.
std::string plainName(std::string_view bytes) {
  std::string name = "K";
  for (const char c : bytes) {
    if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
      name += c;
    }
  }
  return name;
}

std::wstring trimmed(const std::wstring& text) {
  const std::size_t first = text.find_first_not_of(L' ');
  return first == std::wstring::npos ? L""
                                     : text.substr(first, text.find_last_not_of(L' ') + 1 - first);
}

std::string capitals(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return name;
}

/// The value as it is read back.
std::wstring asKept(const std::wstring& value) {
  std::wstring text = value;
  std::replace_if(
      text.begin(), text.end(), [](wchar_t c) { return c < L' ' || c > L'~'; }, L'?');
  return trimmed(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const std::string section = plainName(input.line());
  const std::string key = plainName(input.line());
  const std::wstring value = fuzz::wide(input.line());
  const std::string contents(input.rest());

  const std::vector<std::string> others{"KPlacement", "KColumns0", "K"};
  std::vector<std::optional<std::wstring>> before;
  before.reserve(others.size());
  for (const std::string& other : others) {
    before.push_back(ini_text::valueIn(contents, section, other));
  }

  const std::string changed = ini_text::withValue(contents, section, key, value);
  require(ini_text::valueIn(changed, section, key) == asKept(value), "a value is read back");
  require(ini_text::withValue(changed, section, key, value) == changed,
          "the same value changes nothing");
  for (std::size_t n = 0; n < others.size(); ++n) {
    require(capitals(others[n]) == capitals(key) ||
                ini_text::valueIn(changed, section, others[n]) == before[n],
            "other values stay");
  }
  require(ini_text::valueIn(changed, section + "x", key) ==
              ini_text::valueIn(contents, section + "x", key),
          "values of other sections stay");

  // Everything before and behind the change stays byte for byte.
  std::size_t front = 0;
  while (front < contents.size() && front < changed.size() && contents[front] == changed[front]) {
    ++front;
  }
  std::size_t back = 0;
  while (back < contents.size() - front && back < changed.size() - front &&
         contents[contents.size() - 1 - back] == changed[changed.size() - 1 - back]) {
    ++back;
  }
  const std::string replaced = contents.substr(front, contents.size() - front - back);
  require(replaced.find_first_of("\r\n") == std::string::npos, "only one line is changed");
  return 0;
}
