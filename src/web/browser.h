// Opening web addresses.
#pragma once

#include <cstdint>
#include <string>

namespace smodBrowser {

/// Show command with which the program opens addresses.
inline constexpr int showCommand = 0;

/// Opens an address with what the shell has registered for it and hands back the shell's result;
/// 32 or less is a failure, which shows nothing.
std::intptr_t OpenURL(const std::wstring& address, int show);

}  // namespace smodBrowser
