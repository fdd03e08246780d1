#include "platform/drives.h"

namespace platform::drives {

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

}  // namespace platform::drives
