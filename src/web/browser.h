// Opening web addresses.
#pragma once

#include <cstdint>
#include <string>

namespace smodBrowser {

/// Show command for opening addresses.
inline constexpr int showCommand = 0;

/// Opens an address with the program that is registered for it and returns the shell's result; 32
/// or less means a failure, which is not shown.
std::intptr_t OpenURL(const std::wstring& address, int show);

}  // namespace smodBrowser
