// Linked into the counting build of the program.
#include "counted/live_objects.h"

#include <windows.h>

#include <cstring>
#include <string>

#include "platform/win32/object_counts.h"

namespace platform::win32 {
namespace {

proofs::LiveObjects& shared() {
  static proofs::LiveObjects* const memory = [] {
    // Never closed: it belongs to the process as long as it runs.
    HANDLE const mapping = CreateFileMappingW(
        INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(proofs::LiveObjects),
        (proofs::liveObjectsName + std::to_wstring(GetCurrentProcessId())).c_str());
    return static_cast<proofs::LiveObjects*>(MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0));
  }();
  return *memory;
}

}  // namespace

long long& liveObjects(const char* kind) {
  // Callers read the last error after they have wrapped a handle.
  const DWORD lastError = GetLastError();
  proofs::LiveObjects& objects = shared();
  const int place = objects.count;
  objects.count = place + 1;
  std::strncpy(objects.kinds[place].name, kind, sizeof(objects.kinds[place].name) - 1);
  SetLastError(lastError);
  return const_cast<long long&>(objects.kinds[place].live);
}

}  // namespace platform::win32
