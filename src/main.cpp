// The program's entry point. It sets up the platform and runs the start-up sequence.
#include <windows.h>

#include "platform/win32/system/application_start.h"
#include "platform/win32/system_library.h"
#include "startup/startup.h"

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*commandLine*/,
                    int /*showCommand*/) {
  // Must be the first calls. A shortcut may name a card reader without a card: that is an answer,
  // and no reason for the system to put up a box of its own.
  SetErrorMode(SEM_FAILCRITICALERRORS);
  platform::win32::searchSystemFolderOnly();
  const platform::win32::ApplicationStart ready;
  return modSystem::Main();
}
