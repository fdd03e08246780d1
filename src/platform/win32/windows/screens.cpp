#include "platform/screens.h"

#include <windows.h>

#include "platform/win32/monitors.h"
#include "platform/win32/parameters.h"

namespace platform::screens {
namespace {

// A named function: on 32-bit Windows a lambda does not have the calling convention of a callback.
BOOL CALLBACK addWorkArea(HMONITOR monitor, HDC /*dc*/, RECT* /*bounds*/, LPARAM found) {
  auto& list = *win32::pointerFrom<std::vector<Rect>>(found);
  const MONITORINFO facts = win32::monitorFacts(monitor);
  const bool primary = (facts.dwFlags & MONITORINFOF_PRIMARY) != 0;
  list.insert(primary ? list.begin() : list.end(), win32::rectOf(facts.rcWork));
  return TRUE;
}

}  // namespace

std::vector<Rect> workAreas() {
  std::vector<Rect> areas;
  EnumDisplayMonitors(nullptr, nullptr, addWorkArea, win32::parameterFrom(&areas));
  if (areas.empty()) {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    areas.push_back(win32::rectOf(area));
  }
  return areas;
}

}  // namespace platform::screens
