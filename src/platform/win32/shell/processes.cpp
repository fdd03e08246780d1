#include "platform/processes.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>

#include "platform/run_time_error.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"
#include "platform/win32/modality.h"

namespace platform::processes {
namespace {

/// Missing from the compiler's headers.
constexpr DWORD elevationRequired = 740;

bool isFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// The errors of both ways to start a program.
[[noreturn]] void raiseStartError(DWORD systemError) {
  win32::raise(systemError, {{ERROR_PATH_NOT_FOUND, error::fileNotFound},
                             {ERROR_BAD_EXE_FORMAT, error::invalidCall},
                             {ERROR_EXE_MACHINE_TYPE_MISMATCH, error::invalidCall},
                             {ERROR_EXE_MARKED_INVALID, error::invalidCall},
                             {ERROR_INVALID_EXE_SIGNATURE, error::invalidCall}});
}

Started startProgram(const std::wstring& executable, const std::wstring& commandLine) {
  if (executable.empty() || win32::hasEmbeddedNul(commandLine)) {
    throw RunTimeError(error::invalidCall);
  }
  const std::wstring program = win32::requiredPath(executable);
  if (isFolder(program)) throw RunTimeError(error::invalidCall);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_SHOWNORMAL;
  // A copy, because the system may write to the command line.
  std::wstring arguments = commandLine;
  PROCESS_INFORMATION started{};
  // Not with this program's error mode: the suite's tools rely on the system's default.
  if (CreateProcessW(program.c_str(), arguments.data(), nullptr, nullptr, FALSE,
                     CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &startup, &started) == 0) {
    const DWORD reason = GetLastError();
    if (reason == elevationRequired) return Started::needsElevation;
    raiseStartError(reason);
  }
  const win32::KernelHandle process(started.hProcess);
  const win32::KernelHandle thread(started.hThread);
  return Started::yes;
}

/// CreateProcess cannot ask the user for an administrator's rights; only the shell can.
bool startThroughShell(const std::wstring& executable, const std::wstring& arguments) {
  SHELLEXECUTEINFOW request{};
  request.cbSize = sizeof request;
  // The program shows its own message if this fails.
  request.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
  request.hwnd = win32::dialogOwner();
  request.lpFile = executable.c_str();
  request.lpParameters = arguments.c_str();
  request.nShow = SW_SHOWNORMAL;
  if (ShellExecuteExW(&request) != 0) return true;
  const DWORD reason = GetLastError();
  if (reason == ERROR_CANCELLED) return false;
  raiseStartError(reason);
}

}  // namespace

Started startAsIs(const std::wstring& executable, const std::wstring& commandLine) {
  return concerning(executable, [&] { return startProgram(executable, commandLine); });
}

bool startElevated(const std::wstring& executable, const std::wstring& arguments) {
  return concerning(executable, [&] { return startThroughShell(executable, arguments); });
}

}  // namespace platform::processes
