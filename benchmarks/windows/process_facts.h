// Resources that a running process has used so far.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace bench {

/// Measures one process. Under Wine the values come from the Linux kernel, because Wine reports
/// little about other processes.
class ProcessFacts {
 public:
  /// `executable` is the full path with which the process was started.
  ProcessFacts(HANDLE process, const std::wstring& executable);

  /// Bytes of private memory that are resident.
  [[nodiscard]] std::uint64_t privateBytes() const;
  /// Largest number of resident bytes so far, shared memory included.
  [[nodiscard]] std::uint64_t peakBytes() const;
  /// Processor time of all threads, in milliseconds.
  [[nodiscard]] double processorTime() const;

 private:
  [[nodiscard]] std::uint64_t statusBytes(const std::string& entry) const;
  HANDLE process_;
  std::wstring kernelFolder_;  ///< The kernel's folder for the process, "" on real Windows.
};

}  // namespace bench
