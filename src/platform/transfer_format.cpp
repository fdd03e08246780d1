#include "platform/transfer_format.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/text.h"

namespace platform::transfer_format {

namespace {

constexpr unsigned byteBits = 8;

// Before the paths of a list of files: where they begin, the point of the drop (two numbers),
// whether that is in the client area, whether the paths are in UTF-16. All of them have four bytes.
constexpr std::size_t headerNumbers = 5;
constexpr std::size_t numberBytes = 4;
constexpr std::size_t wideNumber = 4;

std::uint32_t numberAt(std::string_view bytes, std::size_t place) {
  std::uint32_t number = 0;
  for (std::size_t n = numberBytes; n > 0; --n) {
    number = (number << byteBits) | static_cast<unsigned char>(bytes[place + n - 1]);
  }
  return number;
}

void appendUnit(std::string& bytes, wchar_t unit) {
  bytes.push_back(static_cast<char>(unit));
  bytes.push_back(static_cast<char>(static_cast<unsigned>(unit) >> byteBits));
}

}  // namespace

std::string fromText(std::wstring_view text) {
  std::string bytes;
  for (const wchar_t unit : text) {
    appendUnit(bytes, unit);
  }
  appendUnit(bytes, L'\0');
  return bytes;
}

std::wstring textIn(std::string_view bytes) {
  std::wstring text;
  for (std::size_t place = 0; place + 1 < bytes.size(); place += 2) {
    const auto unit = static_cast<wchar_t>(
        static_cast<unsigned char>(bytes[place]) |
        static_cast<unsigned>(static_cast<unsigned char>(bytes[place + 1])) << byteBits);
    if (unit == L'\0') {
      break;
    }
    text.push_back(unit);
  }
  return text;
}

std::wstring codePageTextIn(std::string_view bytes) {
  return text::fromCodePage(bytes.substr(0, bytes.find('\0')));
}

std::string fromFiles(const std::vector<std::wstring>& files) {
  constexpr std::size_t headerBytes = headerNumbers * numberBytes;
  std::string bytes(headerBytes, '\0');
  bytes.front() = static_cast<char>(headerBytes);
  bytes[wideNumber * numberBytes] = 1;
  for (const std::wstring& file : files) {
    bytes += fromText(file);
  }
  return bytes + fromText({});
}

std::vector<std::wstring> filesIn(std::string_view bytes) {
  std::vector<std::wstring> files;
  if (bytes.size() < headerNumbers * numberBytes) {
    return files;
  }
  const bool wide = numberAt(bytes, wideNumber * numberBytes) != 0;
  const std::size_t unit = wide ? 2 : 1;
  bytes.remove_prefix(std::min<std::size_t>(bytes.size(), numberAt(bytes, 0)));
  while (!bytes.empty()) {
    std::size_t length = 0;
    const auto isNul = [&](std::size_t n) {
      return bytes.substr(n * unit, unit) == std::string_view("\0\0", unit);
    };
    while ((length + 1) * unit <= bytes.size() && !isNul(length)) {
      ++length;
    }
    if (length == 0) {
      break;
    }
    const std::string_view path = bytes.substr(0, length * unit);
    files.push_back(wide ? textIn(path) : text::fromCodePage(path));
    bytes.remove_prefix(std::min(bytes.size(), (length + 1) * unit));
  }
  return files;
}

}  // namespace platform::transfer_format
