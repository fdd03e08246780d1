// Window handles of the seam and of the system.
#pragma once

#include <windows.h>
// The rest of the system's headers rely on the first.
#include <commctrl.h>

#include <bit>
#include <cstring>

#include "platform/native_windows.h"

namespace platform::win32 {

[[nodiscard]] inline HWND windowFrom(native::WindowHandle window) {
  // The checker that reads these sources cannot follow a bit_cast of an enumeration.
  HWND handle = nullptr;
  std::memcpy(&handle, &window, sizeof window);
  return handle;
}

[[nodiscard]] inline native::WindowHandle handleFrom(HWND window) {
  return std::bit_cast<native::WindowHandle>(window);
}

}  // namespace platform::win32
