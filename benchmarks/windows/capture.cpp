#include "windows/capture.h"

#include <windows.h>

#include <array>

#include "harness/paths.h"
#include "harness/text.h"
#include "harness/wait.h"

namespace bench {

std::string capture(std::wstring commandLine, const std::wstring& workingFolder) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  if (CreatePipe(&reading, &writing, &inherited, 0) == 0) {
    throw harness::Failure("no pipe");
  }
  SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  startup.hStdOutput = writing;
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  const bool started = CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0,
                                      nullptr, workingFolder.c_str(), &startup, &process) != 0;
  CloseHandle(writing);
  std::string output;
  std::array<char, 4096> piece{};
  DWORD read = 0;
  while (started && ReadFile(reading, piece.data(), piece.size(), &read, nullptr) != 0 &&
         read > 0) {
    output.append(piece.data(), read);
  }
  CloseHandle(reading);
  if (!started) {
    throw harness::Failure("cannot start " + harness::utf8(commandLine));
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  if (code != 0) {
    throw harness::Failure(harness::utf8(commandLine) + " ended with " + std::to_string(code));
  }
  return output;
}

double printedTime(const std::wstring& program, const std::wstring& file) {
  const std::wstring folder = harness::buildFolder();
  return std::stod(capture(L"\"" + folder + L"\\" + program + L"\" \"" + file + L"\"", folder));
}

}  // namespace bench
