#include "resources.h"

#include <psapi.h>
#include <winternl.h>

#include <bit>
#include <cstdint>
#include <vector>

#include "counted/live_objects.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace proofs {
namespace {

using harness::Failure;

/// One entry of the table of GDI objects that the system shares with each process.
struct GdiEntry {
  std::uint64_t object;
  std::uint16_t process;
  std::uint16_t lock;
  std::uint16_t unique;
  std::uint8_t type;
  std::uint8_t flags;
  std::uint64_t user;
};

template <class Function>
Function* native(const char* name) {
  return std::bit_cast<Function*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name));
}

/// Wine does not count GDI objects, but keeps the table.
long long gdiObjects(HANDLE process) {
  if (const DWORD counted = GetGuiResources(process, GR_GDIOBJECTS); counted != 0) {
    return counted;
  }
  static auto* const query =
      native<decltype(NtQueryInformationProcess)>("NtQueryInformationProcess");
  PROCESS_BASIC_INFORMATION facts{};
  if (query(process, ProcessBasicInformation, &facts, sizeof(facts), nullptr) != 0) {
    throw Failure("the process cannot be asked for its block");
  }
  constexpr std::size_t tableInBlock = 0xF8;
  constexpr std::size_t entries = 0x10000;
  std::uint64_t table = 0;
  std::vector<GdiEntry> objects(entries);
  const auto block = std::bit_cast<std::uint64_t>(facts.PebBaseAddress);
  if (ReadProcessMemory(process, std::bit_cast<void*>(block + tableInBlock), &table, sizeof(table),
                        nullptr) == FALSE ||
      ReadProcessMemory(process, std::bit_cast<void*>(table), objects.data(),
                        objects.size() * sizeof(GdiEntry), nullptr) == FALSE) {
    throw Failure("the table of GDI objects cannot be read");
  }
  long long used = 0;
  for (const GdiEntry& entry : objects) {
    used += entry.type != 0 ? 1 : 0;
  }
  return used;
}

long long kernelHandles(DWORD process, HANDLE handle) {
  DWORD counted = 0;
  if (GetProcessHandleCount(handle, &counted) != FALSE && counted != 0) {
    return counted;
  }
  // Wine counts them only in its list of all processes.
  static auto* const query = native<decltype(NtQuerySystemInformation)>("NtQuerySystemInformation");
  std::vector<std::byte> buffer(std::size_t{1} << 20U);
  ULONG length = 0;
  if (query(SystemProcessInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &length) !=
      0) {
    throw Failure("the list of processes cannot be read");
  }
  for (const std::byte* at = buffer.data();;) {
    const auto* const one = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(at);
    if (std::bit_cast<std::uint64_t>(one->UniqueProcessId) == process) {
      return one->HandleCount;
    }
    if (one->NextEntryOffset == 0) {
      throw Failure("the process is not in the list of processes");
    }
    at += one->NextEntryOffset;
  }
}

}  // namespace

Resources resourcesOf(DWORD process, HANDLE handle) {
  Resources found;
  HANDLE const mapping =
      OpenFileMappingW(FILE_MAP_READ, FALSE, (liveObjectsName + std::to_wstring(process)).c_str());
  const auto* const objects =
      static_cast<const LiveObjects*>(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0));
  if (objects == nullptr) {
    throw Failure("the program does not show its live objects");
  }
  for (int place = 0; place < objects->count; ++place) {
    found.counts[objects->kinds[place].name] += objects->kinds[place].live;
  }
  UnmapViewOfFile(objects);
  CloseHandle(mapping);
  long long windows = 0;
  for (HWND const window : harness::topWindows(process)) {
    windows += 1 + static_cast<long long>(harness::children(window).size());
  }
  found.counts["windows"] = windows;
  found.counts["GDI objects"] = gdiObjects(handle);
  found.counts["handles"] = kernelHandles(process, handle);
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof(memory);
  GetProcessMemoryInfo(handle, &memory, sizeof(memory));
  found.memory = memory.WorkingSetSize;
  return found;
}

}  // namespace proofs
