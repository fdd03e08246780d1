// Opening addresses and documents with the program that the system has registered for them.
#pragma once

#include <cstdint>
#include <string>

namespace platform::browser {

/// Asks the shell to open `address` (verb "open", no parameters, no working folder, no owner)
/// with the given show command. The result is the shell's: 32 or less stands for a failure.
/// Nothing is raised and nothing is shown.
std::intptr_t open(const std::wstring& address, int showCommand);

}  // namespace platform::browser
