// Converts Windows error codes to the run-time errors that the program's messages show.
#pragma once

#include <windows.h>

#include <initializer_list>

#include "platform/run_time_error.h"

namespace platform::win32 {

/// A run-time error that one operation uses for a Windows error code instead of the general one.
struct Meaning {
  DWORD systemError;
  int number;
};

/// Raises the run-time error for `systemError`: the one in `meanings`, or else the one in the
/// general table.
[[noreturn]] void raise(DWORD systemError, std::initializer_list<Meaning> meanings = {});

/// The Windows error code in an HRESULT (the codes of the storage facility are the same ones);
/// ERROR_GEN_FAILURE for an HRESULT that contains none.
[[nodiscard]] DWORD systemErrorOf(HRESULT result);

/// ERROR_SUCCESS for a true result of a Windows function, else the last error of this thread.
[[nodiscard]] inline DWORD outcome(BOOL succeeded) {
  return succeeded != 0 ? ERROR_SUCCESS : GetLastError();
}

/// Calls `attempt`, which returns a Windows error code, again and again for about a tenth of a
/// second while the file is in use. Indexers and virus scanners open files that have
/// just been written and close them soon; the user should not notice.
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

/// Calls `attempt`, which returns a Windows error code, again and again for about a second while
/// somebody else is busy with the file. A program that synchronises or scans a folder opens what
/// changes there, and some deny access (5) instead of sharing (32). A name whose file is being
/// deleted but still open somewhere is denied, too, until that is closed. Refusals that last, like
/// the protection of a read-only file, are to be checked before.
template <class Attempt>
[[nodiscard]] DWORD whileBusy(Attempt attempt) {
  /// Missing from the compiler's headers.
  constexpr DWORD deletePending = 303;
  constexpr DWORD patienceMilliseconds = 1000;
  constexpr DWORD pauseMilliseconds = 20;
  const DWORD begin = GetTickCount();
  DWORD result = attempt();
  while ((result == ERROR_SHARING_VIOLATION || result == ERROR_LOCK_VIOLATION ||
          result == ERROR_ACCESS_DENIED || result == deletePending) &&
         GetTickCount() - begin < patienceMilliseconds) {
    Sleep(pauseMilliseconds);
    result = attempt();
  }
  return result;
}

}  // namespace platform::win32
