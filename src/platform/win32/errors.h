// From Windows error codes to the run-time errors that the program's messages show.
#pragma once

#include <windows.h>

#include <initializer_list>

#include "platform/run_time_error.h"

namespace platform::win32 {

/// Meaning that one operation gives to one Windows error code, other than the general one.
struct Meaning {
  DWORD systemError;
  int number;
};

/// Raises the run-time error for `systemError`: what `meanings` says, or else the general table.
[[noreturn]] void raise(DWORD systemError, std::initializer_list<Meaning> meanings = {});

/// The Windows error code that an HRESULT wraps (also one of the storage facility, whose codes
/// are the same ones); ERROR_GEN_FAILURE for an HRESULT that wraps none.
[[nodiscard]] DWORD systemErrorOf(HRESULT result);

/// ERROR_SUCCESS for a true result of a Windows function, else the thread's last error.
[[nodiscard]] inline DWORD outcome(BOOL succeeded) {
  return succeeded != 0 ? ERROR_SUCCESS : GetLastError();
}

/// Calls `attempt`, which returns a Windows error code, until it is anything but "somebody else
/// has the file", for about a tenth of a second. Indexers and virus scanners open what has just
/// been written and let go of it at once; the user should not hear of them.
template <class Attempt>
[[nodiscard]] DWORD whileShared(Attempt attempt) {
  constexpr int attempts = 11;
  constexpr DWORD pauseMilliseconds = 10;
  DWORD result = attempt();
  for (int i = 1;
       i < attempts && (result == ERROR_SHARING_VIOLATION || result == ERROR_LOCK_VIOLATION); ++i) {
    Sleep(pauseMilliseconds);
    result = attempt();
  }
  return result;
}

}  // namespace platform::win32
