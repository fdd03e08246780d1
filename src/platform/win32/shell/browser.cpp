#include "platform/browser.h"

#include <windows.h>
// The shell's header relies on the first.
#include <shellapi.h>

#include <cstddef>

#include "platform/win32/files/paths.h"

namespace platform::browser {

std::intptr_t open(const std::wstring& address, int showCommand) {
  // The shell would open whatever the part up to the NUL means.
  if (win32::hasEmbeddedNul(address)) return SE_ERR_FNF;
  // Nor does it open longer ones (INTERNET_MAX_URL_LENGTH); some versions copy them into a buffer
  // without looking at their length.
  constexpr std::size_t longestAddress = 2083;
  if (address.size() > longestAddress) return SE_ERR_FNF;
  return reinterpret_cast<std::intptr_t>(
      ShellExecuteW(nullptr, L"open", address.c_str(), nullptr, nullptr, showCommand));
}

}  // namespace platform::browser
