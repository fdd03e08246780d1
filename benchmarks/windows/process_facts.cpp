#include "windows/process_facts.h"

#include <psapi.h>

#include <algorithm>
#include <array>
#include <cctype>

#include "harness/files.h"
#include "harness/text.h"
#include "harness/wait.h"

namespace bench {
namespace {

constexpr const wchar_t* kernelProcesses = L"Z:\\proc";

/// A pseudo file of the kernel. Its size is not known before it has been read.
std::string readPseudoFile(const std::wstring& path) {
  HANDLE const file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_EXISTING, 0, nullptr);
  std::string bytes;
  if (file == INVALID_HANDLE_VALUE) {
    return bytes;
  }
  std::array<char, 4096> piece{};
  DWORD read = 0;
  while (ReadFile(file, piece.data(), piece.size(), &read, nullptr) != 0 && read > 0) {
    bytes.append(piece.data(), read);
  }
  CloseHandle(file);
  return bytes;
}

bool isNumber(const std::wstring& name) {
  return std::all_of(name.begin(), name.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

std::wstring kernelFolderOf(const std::wstring& executable) {
  const std::string wanted = harness::utf8(executable);
  for (const std::wstring& name : harness::namesIn(kernelProcesses)) {
    if (!isNumber(name)) {
      continue;
    }
    std::wstring folder = std::wstring(kernelProcesses) + L"\\" + name;
    if (readPseudoFile(folder + L"\\cmdline").find(wanted) != std::string::npos) {
      return folder;
    }
  }
  throw harness::Failure("the kernel does not know " + wanted);
}

}  // namespace

ProcessFacts::ProcessFacts(HANDLE process, const std::wstring& executable) : process_(process) {
  if (harness::isFolder(std::wstring(kernelProcesses) + L"\\self")) {
    kernelFolder_ = kernelFolderOf(executable);
  }
}

std::uint64_t ProcessFacts::statusBytes(const std::string& entry) const {
  const std::string status = readPseudoFile(kernelFolder_ + L"\\status");
  const std::size_t begin = status.find(entry + ":");
  if (begin == std::string::npos) {
    throw harness::Failure("the kernel does not tell " + entry);
  }
  constexpr std::uint64_t kilobyte = 1024;
  return std::stoull(status.substr(begin + entry.size() + 1)) * kilobyte;
}

std::uint64_t ProcessFacts::privateBytes() const {
  if (!kernelFolder_.empty()) {
    return statusBytes("RssAnon");
  }
  PROCESS_MEMORY_COUNTERS_EX counters{};
  GetProcessMemoryInfo(process_, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                       sizeof(counters));
  return counters.PrivateUsage;
}

std::uint64_t ProcessFacts::peakBytes() const {
  if (!kernelFolder_.empty()) {
    return statusBytes("VmHWM");
  }
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(process_, &counters, sizeof(counters));
  return counters.PeakWorkingSetSize;
}

double ProcessFacts::processorTime() const {
  if (!kernelFolder_.empty()) {
    double nanoseconds = 0;
    for (const std::wstring& thread : harness::namesIn(kernelFolder_ + L"\\task")) {
      if (isNumber(thread)) {
        nanoseconds +=
            std::stod(readPseudoFile(kernelFolder_ + L"\\task\\" + thread + L"\\schedstat"));
      }
    }
    return nanoseconds / 1e6;
  }
  FILETIME made{};
  FILETIME ended{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(process_, &made, &ended, &kernel, &user);
  const auto ticks = [](const FILETIME& time) {
    return static_cast<double>((std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime);
  };
  constexpr double perMillisecond = 10000;
  return (ticks(kernel) + ticks(user)) / perMillisecond;
}

}  // namespace bench
