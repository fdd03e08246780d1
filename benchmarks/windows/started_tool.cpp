// Replaces a tool of the suite: records the time at which it runs, and ends.
#include <windows.h>

#include "windows/measure.h"
#include "windows/started_tool.h"

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*commandLine*/,
                    int /*showCommand*/) {
  const std::int64_t started = bench::now();
  HANDLE const memory = OpenFileMappingW(FILE_MAP_WRITE, FALSE, bench::startedMemory);
  HANDLE const event = OpenEventW(EVENT_MODIFY_STATE, FALSE, bench::startedEvent);
  if (memory != nullptr && event != nullptr) {
    if (void* const view = MapViewOfFile(memory, FILE_MAP_WRITE, 0, 0, sizeof(started))) {
      *static_cast<std::int64_t*>(view) = started;
      UnmapViewOfFile(view);
      SetEvent(event);
    }
    CloseHandle(event);
    CloseHandle(memory);
  }
  return 0;
}
