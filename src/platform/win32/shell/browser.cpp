#include "platform/browser.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>

#include <cstddef>

#include "platform/win32/files/paths.h"

namespace platform::browser {

std::intptr_t open(const std::wstring& address, int showCommand) {
  // The shell would open the part up to the NUL.
  if (win32::hasEmbeddedNul(address)) return SE_ERR_FNF;
  // The shell does not open longer ones either (INTERNET_MAX_URL_LENGTH); some versions copy them
  // into a buffer without a length check.
  constexpr std::size_t longestAddress = 2083;
  if (address.size() > longestAddress) return SE_ERR_FNF;
  return reinterpret_cast<std::intptr_t>(
      ShellExecuteW(nullptr, L"open", address.c_str(), nullptr, nullptr, showCommand));
}

}  // namespace platform::browser
