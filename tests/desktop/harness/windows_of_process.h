// Finds windows of another process and reads the properties that every window has.
#pragma once

#include <windows.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace harness {

/// Sends a message and waits for its result; raises `Failure` when the window does not answer.
LRESULT send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// Posts a message. Raises `Failure` when the window does not exist.
void post(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

[[nodiscard]] std::wstring className(HWND window);
[[nodiscard]] std::wstring text(HWND window);
[[nodiscard]] DWORD processOf(HWND window);

/// Visible windows without a parent, from front to back.
[[nodiscard]] std::vector<HWND> visibleWindows(DWORD process);
/// All windows without a parent, hidden ones too.
[[nodiscard]] std::vector<HWND> topWindows(DWORD process);
/// Visible window of that class, null when there is none.
[[nodiscard]] HWND visibleWindow(DWORD process, const std::wstring& classOfWindow);
/// Visible window with that title in any process, null when there is none.
[[nodiscard]] HWND visibleWindowTitled(const std::wstring& title);

/// A window that test results show with its class and its title.
struct NamedWindow {
  HWND handle = nullptr;
  bool operator==(const NamedWindow&) const = default;
};
void PrintTo(const NamedWindow& window, std::ostream* out);
/// The window that is in front of those of all programs.
[[nodiscard]] NamedWindow windowInFront();

/// All child windows, of any depth.
[[nodiscard]] std::vector<HWND> children(HWND window);
/// Child of that control id and, unless it is "", that class; of any depth; null when there is
/// none.
[[nodiscard]] HWND child(HWND window, int id, const std::wstring& classOfChild = L"");

/// The window that gets the keys in the program of this window; null when there is none.
[[nodiscard]] HWND focusIn(HWND window);

/// Rectangle of a window on the screen.
[[nodiscard]] RECT screenRect(HWND window);
/// Rectangle of a window's client area on the screen.
[[nodiscard]] RECT clientOnScreen(HWND window);

/// Waits until the program of this main window has done the last steps of its start; one of them
/// shows the tab Tools.
void waitForEndOfStart(HWND main);

}  // namespace harness
