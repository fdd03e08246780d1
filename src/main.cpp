// The program's entry: makes the platform ready and hands over to the start-up sequence.
#include <windows.h>

#include "platform/win32/system/application_start.h"
#include "startup/startup.h"

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*commandLine*/,
                    int /*showCommand*/) {
  // First of all: libraries come from the system's folder only, never from one that a shortcut
  // or a document happens to have made the current one.
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  const platform::win32::ApplicationStart ready;
  return modSystem::Main();
}
