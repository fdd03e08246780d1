#include "platform/processes.h"

#include <windows.h>

#include "platform/run_time_error.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"

namespace platform::processes {
namespace {

/// Missing from the compiler's headers.
constexpr DWORD elevationRequired = 740;

bool isFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void startProgram(const std::wstring& executable, const std::wstring& commandLine) {
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
  if (CreateProcessW(program.c_str(), arguments.data(), nullptr, nullptr, FALSE, 0, nullptr,
                     nullptr, &startup, &started) == 0) {
    win32::raise(GetLastError(), {{ERROR_PATH_NOT_FOUND, error::fileNotFound},
                                  {ERROR_BAD_EXE_FORMAT, error::invalidCall},
                                  {ERROR_EXE_MACHINE_TYPE_MISMATCH, error::invalidCall},
                                  {ERROR_EXE_MARKED_INVALID, error::invalidCall},
                                  {ERROR_INVALID_EXE_SIGNATURE, error::invalidCall},
                                  {elevationRequired, error::invalidCall}});
  }
  const win32::KernelHandle process(started.hProcess);
  const win32::KernelHandle thread(started.hThread);
}

}  // namespace

void start(const std::wstring& executable, const std::wstring& commandLine) {
  concerning(executable, [&] { startProgram(executable, commandLine); });
}

}  // namespace platform::processes
