// Painting in the middle of work.
#include <gtest/gtest.h>
#include <windows.h>

#include <bit>

#include "platform/windows.h"
#include "test_window.h"

namespace {

/// What came to the window.
struct Log {
  int paints = 0;
  int keys = 0;
  bool leavesItselfUnpainted = false;
};

LRESULT CALLBACK countingWindow(HWND window, UINT code, WPARAM first, LPARAM second) {
  auto* const log = std::bit_cast<Log*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (log != nullptr && code == WM_KEYDOWN) {
    ++log->keys;
  }
  if (log != nullptr && code == WM_PAINT) {
    ++log->paints;
    if (log->leavesItselfUnpainted) {
      return 0;
    }
  }
  return DefWindowProcW(window, code, first, second);
}

class PaintPending : public testing::Test {
 public:
  PaintPending(const PaintPending&) = delete;
  PaintPending& operator=(const PaintPending&) = delete;

 protected:
  PaintPending() {
    for (HWND& window : windows) {
      window = makeTestWindow(L"PaintPendingTest", countingWindow, 40);
      ShowWindow(window, SW_SHOWNOACTIVATE);
      UpdateWindow(window);
      SetWindowLongPtrW(window, GWLP_USERDATA, std::bit_cast<LONG_PTR>(&log));
    }
  }
  ~PaintPending() override {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
      DispatchMessageW(&message);
    }
    for (HWND window : windows) {
      DestroyWindow(window);
    }
  }

  Log log;
  HWND windows[2] = {};
};

TEST_F(PaintPending, PaintsAllWindowsAndLeavesWhatTheUserTypes) {
  for (HWND window : windows) {
    InvalidateRect(window, nullptr, TRUE);
  }
  PostMessageW(windows[0], WM_KEYDOWN, VK_F5, 0);
  platform::windows::paintPending();
  EXPECT_EQ(log.paints, 2);
  EXPECT_EQ(log.keys, 0);
  for (HWND window : windows) {
    EXPECT_EQ(GetUpdateRect(window, nullptr, FALSE), 0);
  }
  MSG message{};
  ASSERT_NE(PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE), 0);
  EXPECT_EQ(message.wParam, static_cast<WPARAM>(VK_F5));
}

TEST_F(PaintPending, LeavesTheEndOfTheProgramToTheMessageLoop) {
  InvalidateRect(windows[0], nullptr, TRUE);
  constexpr int exitCode = 5;
  PostQuitMessage(exitCode);
  platform::windows::paintPending();
  MSG message{};
  ASSERT_NE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), 0);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, static_cast<WPARAM>(exitCode));
}

TEST_F(PaintPending, EndsForAWindowThatNeverHasEnough) {
  log.leavesItselfUnpainted = true;
  InvalidateRect(windows[0], nullptr, TRUE);
  platform::windows::paintPending();
  EXPECT_GT(log.paints, 0);
  log.leavesItselfUnpainted = false;
}

}  // namespace
