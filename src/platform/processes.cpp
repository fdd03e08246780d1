// The two ways to start a program, one after the other.
#include "platform/processes.h"

#include "platform/run_time_error.h"

namespace platform::processes {
namespace {

/// The command line behind the name of the program, without the blank between them.
std::wstring argumentsOf(const std::wstring& executable, const std::wstring& commandLine) {
  if (!commandLine.starts_with(executable)) {
    return commandLine;
  }
  const std::size_t behind = commandLine.find_first_not_of(L' ', executable.size());
  return behind == std::wstring::npos ? L"" : commandLine.substr(behind);
}

}  // namespace

void start(const std::wstring& executable, const std::wstring& commandLine) {
  if (startAsIs(executable, commandLine) == Started::needsElevation &&
      !startElevated(executable, argumentsOf(executable, commandLine))) {
    raiseAbout(executable, error::invalidCall);
  }
}

}  // namespace platform::processes
