#include "platform/drives.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace platform::drives {

namespace {

/// Whether Windows takes a name for a device, whatever folder and extension it has.
bool isDevice(std::wstring_view name) {
  constexpr std::array<std::wstring_view, 6> devices{L"CON", L"PRN",    L"AUX",
                                                     L"NUL", L"CONIN$", L"CONOUT$"};
  constexpr std::wstring_view numbers = L"123456789\u00B9\u00B2\u00B3";
  constexpr std::size_t withNumber = 4;
  name = name.substr(0, name.find_first_of(L".: "));
  const std::wstring upper = platform::text::upper(name);
  return std::find(devices.begin(), devices.end(), upper) != devices.end() ||
         (upper.size() == withNumber && (upper.starts_with(L"COM") || upper.starts_with(L"LPT")) &&
          numbers.find(upper.back()) != std::wstring_view::npos);
}

}  // namespace

std::wstring rootOf(std::wstring_view path) {
  constexpr std::size_t prefix = 2;  // "C:", or the two backslashes of a network path
  if (path.size() >= prefix && path[1] == L':') {
    return std::wstring(path.substr(0, prefix));
  }
  if (!path.starts_with(L"\\\\")) {
    return {};
  }
  const std::size_t server = path.find(L'\\', prefix);
  if (server == prefix || server == std::wstring_view::npos || server + 1 == path.size() ||
      path[server + 1] == L'\\') {
    return {};
  }
  return std::wstring(path.substr(0, path.find(L'\\', server + 1)));
}

bool mayBeSlow(const std::wstring& path) { return rootFacts(path).slow; }

bool isConnected(const std::wstring& path) { return rootFacts(path).connected; }

bool isRoot(std::wstring_view path) {
  const std::wstring root = rootOf(path);
  return !root.empty() && path == root + L"\\" &&
         root.find_first_of(L"*?<>|\"") == std::wstring::npos;
}

bool namesOneFile(std::wstring_view path) {
  const std::wstring root = rootOf(path);
  std::wstring_view rest = path.substr(root.size());
  constexpr wchar_t firstPrintable = L' ';
  // The share that begins like this has the devices.
  if (root.empty() || root.starts_with(LR"(\\.\)") || !rest.starts_with(L'\\') ||
      path.ends_with(L'\\') || root.find_first_of(L"*?<>|\"") != std::wstring::npos ||
      rest.find_first_of(L"*?<>|\":/") != std::wstring_view::npos ||
      std::any_of(path.begin(), path.end(), [](wchar_t c) { return c < firstPrintable; })) {
    return false;
  }
  while (!rest.empty()) {
    rest.remove_prefix(1);
    const std::wstring_view name = rest.substr(0, rest.find(L'\\'));
    if (name.empty() || name == L"." || name == L".." || isDevice(name)) {
      return false;
    }
    rest.remove_prefix(name.size());
  }
  return true;
}

}  // namespace platform::drives
