// Screen densities. Functions of newer systems are looked up at run time, so that the program also
// starts on systems that lack them.
#pragma once

#include <windows.h>

namespace platform::win32 {

/// Dots per inch at which `window` is shown.
[[nodiscard]] int dpiOf(HWND window);

/// Dots per inch of a screen; those of the primary one for a null handle, and where the system
/// gives all screens the same.
[[nodiscard]] int dpiOfScreen(HMONITOR screen);

/// The system's metrics and fonts of title bars and menus, at `dpi`.
[[nodiscard]] NONCLIENTMETRICSW nonClientMetrics(int dpi);

/// A system metric (SM_...) at `dpi`.
[[nodiscard]] int systemMetric(int index, int dpi);

/// Rectangle of a whole window whose client area is `client`, at `dpi`.
[[nodiscard]] RECT windowAround(RECT client, DWORD style, DWORD extendedStyle, bool menu, int dpi);

/// Keeps the system from scaling a dialog's controls itself when the dpi changes.
void leaveDialogScalingToProgram(HWND dialog);

}  // namespace platform::win32
