// Starting other programs.
#pragma once

#include <string>

namespace platform::processes {

/// Starts `executable` in a normal, focused window without waiting for it.
///
/// `commandLine` is passed to the new program unchanged. The executable is named separately, so
/// that a path with blanks can never start another program. Raises `error::fileNotFound` when the
/// executable or its folder is missing, `error::invalidCall` when it is empty or not a program.
void start(const std::wstring& executable, const std::wstring& commandLine);

}  // namespace platform::processes
