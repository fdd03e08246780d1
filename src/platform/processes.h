// Starting other programs.
#pragma once

#include <string>

namespace platform::processes {

/// Starts `executable` in a normal, focused window without waiting for it.
///
/// `commandLine` is passed to the new program unchanged. The executable is named separately, so
/// that a path with blanks can never start another program. A program that only runs with an
/// administrator's rights is started through the shell, which asks the user for them. Raises
/// `error::fileNotFound` when the executable or its folder is missing, `error::invalidCall` when it
/// is empty or not a program, or when the user refuses those rights.
void start(const std::wstring& executable, const std::wstring& commandLine);

// --- what the system offers for it; for `start` only ---

enum class Started { yes, needsElevation };

/// Starts the program with the rights of this one. Errors as with `start`.
[[nodiscard]] Started startAsIs(const std::wstring& executable, const std::wstring& commandLine);

/// Lets the shell start the program with an administrator's rights. `arguments` is the command line
/// without the program's name. False when the user refuses. Errors as with `start`.
[[nodiscard]] bool startElevated(const std::wstring& executable, const std::wstring& arguments);

}  // namespace platform::processes
