// Opens addresses and documents with the program that is registered for them.
#pragma once

#include <cstdint>
#include <string>

namespace platform::browser {

/// Asks the shell to open `address` (verb "open", no parameters, no working folder, no owner) with
/// the given show command. Returns the shell's result: 32 or less means failure. Raises nothing and
/// shows nothing.
std::intptr_t open(const std::wstring& address, int showCommand);

}  // namespace platform::browser
