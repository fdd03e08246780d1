#include "platform/screens.h"

#include <windows.h>

#include "platform/win32/dpi.h"
#include "platform/win32/monitors.h"
#include "platform/win32/parameters.h"

namespace platform::screens {
namespace {

// A named function: on 32-bit Windows a lambda does not have the calling convention of a callback.
BOOL CALLBACK addScreen(HMONITOR monitor, HDC /*dc*/, RECT* /*bounds*/, LPARAM found) {
  auto& list = *win32::pointerFrom<std::vector<Screen>>(found);
  const MONITORINFO facts = win32::monitorFacts(monitor);
  const bool primary = (facts.dwFlags & MONITORINFOF_PRIMARY) != 0;
  list.insert(primary ? list.begin() : list.end(),
              {.workArea = win32::rectOf(facts.rcWork), .dpi = win32::dpiOfScreen(monitor)});
  return TRUE;
}

}  // namespace

std::vector<Screen> all() {
  std::vector<Screen> screens;
  EnumDisplayMonitors(nullptr, nullptr, addScreen, win32::parameterFrom(&screens));
  if (screens.empty()) {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    screens.push_back({.workArea = win32::rectOf(area), .dpi = win32::dpiOfScreen(nullptr)});
  }
  return screens;
}

}  // namespace platform::screens
