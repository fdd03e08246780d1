// Information about screens.
#pragma once

#include <windows.h>

#include "platform/geometry.h"

namespace platform::win32 {

[[nodiscard]] inline Rect rectOf(const RECT& native) {
  return {static_cast<int>(native.left), static_cast<int>(native.top),
          static_cast<int>(native.right - native.left),
          static_cast<int>(native.bottom - native.top)};
}

/// Rectangle and work area of a screen, in pixels of the virtual screen.
[[nodiscard]] inline MONITORINFO monitorFacts(HMONITOR monitor) {
  MONITORINFO facts{};
  facts.cbSize = sizeof facts;
  GetMonitorInfoW(monitor, &facts);
  return facts;
}

}  // namespace platform::win32
