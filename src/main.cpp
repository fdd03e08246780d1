// The program's entry point. It sets up the platform and runs the start-up sequence.
#include <windows.h>

#include "platform/win32/system/application_start.h"
#include "startup/startup.h"

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*commandLine*/,
                    int /*showCommand*/) {
  // Must be the first call: libraries are loaded from the system's folder only, never from the
  // current folder, which a shortcut or a document may have set.
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  const platform::win32::ApplicationStart ready;
  return modSystem::Main();
}
