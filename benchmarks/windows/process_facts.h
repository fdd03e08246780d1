// What a running process has used up so far.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace bench {

/// Looks at one process. Where Windows is emulated the emulation knows next to nothing about other
/// processes, so the kernel beneath is asked.
class ProcessFacts {
 public:
  /// `executable` is the full path that the process was started by.
  ProcessFacts(HANDLE process, const std::wstring& executable);

  /// Bytes that belong to the process alone and lie in memory.
  [[nodiscard]] std::uint64_t privateBytes() const;
  /// The most bytes that it has had in memory so far, shared ones too.
  [[nodiscard]] std::uint64_t peakBytes() const;
  /// Processor time of all its threads, milliseconds.
  [[nodiscard]] double processorTime() const;

 private:
  [[nodiscard]] std::uint64_t statusBytes(const std::string& entry) const;
  HANDLE process_;
  std::wstring kernelFolder_;  ///< The kernel's folder about the process, "" on Windows itself.
};

}  // namespace bench
