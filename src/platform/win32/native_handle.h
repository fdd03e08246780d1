// Conversion between the window handles of the portable headers and the system's.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <bit>
#include <cstring>

#include "platform/native_windows.h"

namespace platform::win32 {

[[nodiscard]] inline HWND windowFrom(native::WindowHandle window) {
  // clang-tidy cannot follow a bit_cast of an enumeration.
  HWND handle = nullptr;
  std::memcpy(&handle, &window, sizeof window);
  return handle;
}

[[nodiscard]] inline native::WindowHandle handleFrom(HWND window) {
  return std::bit_cast<native::WindowHandle>(window);
}

}  // namespace platform::win32
