#include "harness/process.h"

#include "harness/text.h"
#include "harness/wait.h"

namespace harness {

Job::Job() : job_(CreateJobObjectW(nullptr, nullptr)) {
  // Under Wine, the first program that uses the desktop starts the process that owns it. If that
  // process were in the job, it would end with it. The next program whose window is dragged would
  // then query a window that no longer exists, and the display server would end it.
  static_cast<void>(GetDesktopWindow());
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job_, JobObjectExtendedLimitInformation, &limits, sizeof(limits));
}

Job::~Job() { CloseHandle(job_); }

unsigned Job::running() const {
  JOBOBJECT_BASIC_ACCOUNTING_INFORMATION information{};
  if (QueryInformationJobObject(job_, JobObjectBasicAccountingInformation, &information,
                                sizeof(information), nullptr) == FALSE) {
    throw Failure("the job cannot be asked, error " + std::to_string(GetLastError()));
  }
  return information.ActiveProcesses;
}

void Job::end() const {
  TerminateJobObject(job_, 99);
  waitUntil("the processes of the test end", [this] { return running() == 0; });
}

Process::Process(const std::wstring& executable, const std::wstring& workingFolder, const Job& job,
                 const std::wstring& arguments) {
  std::wstring commandLine =
      L"\"" + executable + L"\"" + (arguments.empty() ? L"" : L" ") + arguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  const auto create = [&] {
    return CreateProcessW(executable.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                          CREATE_SUSPENDED, nullptr, workingFolder.c_str(), &startup,
                          &info_) != FALSE;
  };
  // On a busy machine Wine sometimes loses a process before any of its code has run, and reports
  // this error.
  if (!create() && (GetLastError() != ERROR_INTERNAL_ERROR || !create())) {
    throw Failure("cannot start " + utf8(executable) + ", error " + std::to_string(GetLastError()));
  }
  AssignProcessToJobObject(job.get(), info_.hProcess);
  ResumeThread(info_.hThread);
}

Process::~Process() {
  CloseHandle(info_.hThread);
  CloseHandle(info_.hProcess);
}

bool Process::running() const { return WaitForSingleObject(info_.hProcess, 0) == WAIT_TIMEOUT; }

std::optional<DWORD> Process::waitForExit(DWORD boundMs) const {
  if (WaitForSingleObject(info_.hProcess, boundMs) != WAIT_OBJECT_0) {
    return std::nullopt;
  }
  DWORD code = 0;
  GetExitCodeProcess(info_.hProcess, &code);
  return code;
}

}  // namespace harness
