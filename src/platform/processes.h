// Starting other programs.
#pragma once

#include <string>

namespace platform::processes {

/// Starts `executable` in a normal, focused window without waiting for it.
///
/// `commandLine` is what the new program receives, passed exactly as it stands. The executable is
/// named beside it, so that a path with blanks can never start another program. Raises 53 when
/// the executable (or its folder) is missing, 5 when it is empty or not a program.
void start(const std::wstring& executable, const std::wstring& commandLine);

}  // namespace platform::processes
