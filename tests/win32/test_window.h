// A window of the tests' own.
#pragma once

#include <windows.h>

/// Makes a hidden window of that size in pixels, of a class of that name with that procedure.
[[nodiscard]] inline HWND makeTestWindow(const wchar_t* className, WNDPROC procedure, int side) {
  WNDCLASSW description{};
  description.lpfnWndProc = procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = className;
  RegisterClassW(&description);
  return CreateWindowExW(0, className, L"", WS_POPUP, 0, 0, side, side, nullptr, nullptr,
                         description.hInstance, nullptr);
}
