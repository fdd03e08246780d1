// What these tests read from the real desktop and change about it.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <string>

#include "flatlook/rings.h"

namespace flat_tests {

using flatlook::test::Pixels;
using platform::native::Edges;

/// Sets system colours that are all different, so that rings can be distinguished. Restores the
/// former colours at the end.
class DistinctColours {
 public:
  DistinctColours();
  DistinctColours(const DistinctColours&) = delete;
  DistinctColours& operator=(const DistinctColours&) = delete;
  ~DistinctColours();

  static constexpr COLORREF background = RGB(250, 252, 254);
  static constexpr COLORREF face = RGB(200, 204, 208);
  static constexpr COLORREF shadow = RGB(100, 108, 116);
  static constexpr COLORREF highlight = RGB(232, 240, 224);

 private:
  static constexpr std::size_t count = 4;
  std::array<COLORREF, count> former_{};
};

/// Number of GDI objects of this process.
[[nodiscard]] int gdiObjects();
/// Number of windows of this thread, of every level.
[[nodiscard]] int windowCount();

/// Counts the timers that this program starts from now on.
void countTimers();
/// Number of timers of all windows of this process.
[[nodiscard]] int timerCount();
/// Whether a window has the timer `id`.
[[nodiscard]] bool hasTimer(HWND window, UINT_PTR id = 1);

/// Handles all messages that are waiting.
void pump();

/// Asks `condition` until it holds, handling messages in between. When it did not in time, that is
/// a failure that names `what`.
template <class Condition>
[[nodiscard]] ::testing::AssertionResult pumpUntil(const std::string& what, Condition condition) {
  constexpr ULONGLONG boundMs = 15000;
  constexpr DWORD pollMs = 5;
  const ULONGLONG end = GetTickCount64() + boundMs;
  pump();
  while (!condition()) {
    if (GetTickCount64() >= end) {
      return ::testing::AssertionFailure() << "waited " << boundMs << " ms, and not so: " << what;
    }
    MsgWaitForMultipleObjects(0, nullptr, FALSE, pollMs, QS_ALLINPUT);
    pump();
  }
  return ::testing::AssertionSuccess();
}

/// Pixels of the client area of `window` at the places of `wanted`.
[[nodiscard]] Pixels pixelsAt(HWND window, const Pixels& wanted);

/// How pixels differ from the wanted ones, in words.
[[nodiscard]] std::string difference(const Pixels& found, const Pixels& wanted);

/// The pointer, held in its place: a late report of an earlier move may take it away again, and the
/// system tells a window only of a pointer that moves.
class Pointer {
 public:
  /// Moves the pointer away from everything.
  Pointer() { park(); }
  void park();
  /// Over the middle of a window.
  void moveTo(HWND window);
  /// Puts the pointer back to its position, or one pixel beside it.
  void hold();

 private:
  POINT place_{};
  bool beside_ = false;
};

/// Presses and releases the left button at a place of a window's client area.
void clickAt(HWND window, int x, int y);

}  // namespace flat_tests
