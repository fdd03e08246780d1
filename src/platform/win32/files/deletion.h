// What every way of deleting a file has in common.
#pragma once

#include <windows.h>

#include <string>

#include "platform/run_time_error.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/paths.h"

namespace platform::win32 {

/// Deletes a file by `attempt`, which returns a Windows error code and is repeated while somebody
/// else is busy with the file. Raises `error::fileNotFound` when it is missing,
/// `error::pathFileAccess` when it is read-only, `error::permissionDenied` when it stays in use.
template <class Attempt>
void deleteBy(const std::wstring& native, Attempt attempt) {
  refuseProtected(existingAttributes(native));
  const DWORD result = whileBusy(attempt);
  if (result != ERROR_SUCCESS) raise(result, {{ERROR_PATH_NOT_FOUND, error::fileNotFound}});
}

}  // namespace platform::win32
