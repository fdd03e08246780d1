// Registry values of any type and length, as the about box reads them. The input is a character for
// the type, and the value's bytes.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "about/about_box.h"
#include "fuzz/support/fuzz.h"
#include "platform/desktop.h"

using fuzz::require;
using fuzz::theDesktop;
using platform::registry::Root;

namespace {

constexpr const wchar_t* key = L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const wchar_t* tool = L"C:\\Windows\\msinfo32.exe";
constexpr const wchar_t* untouched = L"untouched";

/// The number as text, built digit by digit.
std::wstring numberOf(const std::vector<std::uint8_t>& bytes) {
  std::string digits;
  for (std::size_t i = std::min<std::size_t>(bytes.size(), 4); i-- > 0;) {
    std::array<char, 4> hexadecimal{};
    static_cast<void>(
        std::snprintf(hexadecimal.data(), hexadecimal.size(), "%X", unsigned{bytes[i]}));
    digits += hexadecimal.data();
  }
  const unsigned long number = digits.empty() ? 0 : std::strtoul(digits.c_str(), nullptr, 16);
  return std::to_wstring(static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
}

void checkText(const std::wstring& text, const std::vector<std::uint8_t>& bytes) {
  const std::size_t units = bytes.size() / 2;
  require(text.size() == units || text.size() + 1 == units, "at most a final NUL goes");
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned unit = bytes[2 * i] + 256U * bytes[2 * i + 1];
    require(static_cast<unsigned>(text[i]) == unit, "a character is its two bytes");
  }
  require(text.size() == units || (bytes[2 * units - 2] == 0 && bytes[2 * units - 1] == 0),
          "only a NUL goes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr std::size_t longest = 2048;
  fuzz::Input input(bytes, size);
  const auto type = static_cast<std::uint32_t>(static_cast<unsigned char>(input.character()) % 12);
  const std::string_view rest = input.rest();
  const std::vector<std::uint8_t> value(rest.begin(), rest.end());
  fuzz::freshDesktop();
  theDesktop().putProgram(tool);
  theDesktop().setRegistry(Root::localMachine, key, L"PATH", {type, value});

  std::wstring text = untouched;
  const bool found = frmAbout::GetKeyValue(Root::localMachine, key, L"PATH", text);
  require(found == (value.size() <= longest), "a value is read as far as it fits");
  if (!found) {
    require(text == untouched, "what is not read changes nothing");
  } else if (type == platform::registry::typeNumber) {
    require(text == numberOf(value), "a number is what its digits spell");
  } else {
    checkText(text, value);
  }

  frmAbout::StartSysInfo();
  const bool started = found && theDesktop().has(text) && theDesktop().bytesOf(text).has_value();
  require(theDesktop().starts.size() == (started ? 1 : 0),
          "only a program that is there is started");
  require(theDesktop().messages.size() == (started ? 0 : 1), "what cannot be started is told");
  return 0;
}
