#include "resources.h"

#include <psapi.h>
#include <winternl.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "counted/live_objects.h"
#include "harness/gdi_table.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace proofs {
namespace {

using harness::Failure;

template <class Function>
Function* native(const char* name) {
  return std::bit_cast<Function*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name));
}

/// Wine does not count GDI objects, but has the table of them.
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
  std::uint64_t place = 0;
  const auto table = std::make_unique<harness::GdiTable>();
  const auto block = std::bit_cast<std::uint64_t>(facts.PebBaseAddress);
  if (ReadProcessMemory(process, std::bit_cast<void*>(block + harness::gdiTableInBlock), &place,
                        sizeof(place), nullptr) == FALSE ||
      ReadProcessMemory(process, std::bit_cast<void*>(place), table.get(), sizeof(*table),
                        nullptr) == FALSE) {
    throw Failure("the table of GDI objects cannot be read");
  }
  return harness::objectsIn(*table);
}

long long kernelHandles(DWORD process, HANDLE handle) {
  DWORD counted = 0;
  if (GetProcessHandleCount(handle, &counted) != FALSE && counted != 0) {
    return counted;
  }
  // Wine counts handles only in its list of all processes.
  static auto* const query = native<decltype(NtQuerySystemInformation)>("NtQuerySystemInformation");
  std::vector<std::byte> buffer(std::size_t{1} << 20U);
  ULONG length = 0;
  if (query(SystemProcessInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &length) !=
      0) {
    throw Failure("the list of processes cannot be read");
  }
  for (const std::byte* at = buffer.data();;) {
    SYSTEM_PROCESS_INFORMATION one{};
    std::memcpy(&one, at, sizeof(one));
    if (HandleToULong(one.UniqueProcessId) == process) {
      return one.HandleCount;
    }
    if (one.NextEntryOffset == 0) {
      throw Failure("the process is not in the list of processes");
    }
    at += one.NextEntryOffset;
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
