// A started program, together with everything that it starts itself.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace harness {

/// A job: a set of processes that end at the latest when this object is destroyed.
class Job {
 public:
  Job();
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
  ~Job();
  [[nodiscard]] HANDLE get() const { return job_; }
  /// Number of processes that are running in it.
  [[nodiscard]] unsigned running() const;
  /// Ends all of them and waits until they have ended.
  void end() const;

 private:
  HANDLE job_;
};

class Process {
 public:
  /// Starts `executable` in `workingFolder` as part of `job`; `arguments` are passed unchanged.
  /// Raises `Failure`.
  Process(const std::wstring& executable, const std::wstring& workingFolder, const Job& job,
          const std::wstring& arguments = L"");
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process();
  [[nodiscard]] DWORD id() const { return info_.dwProcessId; }
  [[nodiscard]] HANDLE handle() const { return info_.hProcess; }
  [[nodiscard]] bool running() const;
  /// Waits for the end. Returns the exit code, or nothing when the process is still running.
  [[nodiscard]] std::optional<DWORD> waitForExit(DWORD boundMs) const;

 private:
  PROCESS_INFORMATION info_{};
};

}  // namespace harness
