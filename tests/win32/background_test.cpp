#include "platform/background.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <stdexcept>
#include <vector>

#include "harness/wait.h"
#include "platform/run_time_error.h"

namespace {

namespace background = platform::background;

/// Processes this thread's messages until a condition holds.
template <class Condition>
void pumpUntil(Condition condition) {
  harness::waitUntil("work in the background is done", [&] {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      DispatchMessageW(&message);
    }
    return condition();
  });
}

TEST(Background, WorksOnAThreadOfItsOwnAndReportsOnThisOne) {
  DWORD worker = 0;
  DWORD reporter = 0;
  ASSERT_TRUE(background::run([&worker] { worker = GetCurrentThreadId(); },
                              [&reporter] { reporter = GetCurrentThreadId(); }));
  EXPECT_EQ(reporter, 0U) << "only while messages are processed";
  pumpUntil([&reporter] { return reporter != 0; });
  EXPECT_NE(worker, 0U);
  EXPECT_NE(worker, GetCurrentThreadId());
  EXPECT_EQ(reporter, GetCurrentThreadId());
}

TEST(Background, DoesNotHoldUpItsCallerForTwoSeconds) {
  bool done = false;
  const DWORD begin = GetTickCount();
  ASSERT_TRUE(background::run([] { Sleep(2000); }, [&done] { done = true; }));
  EXPECT_LT(GetTickCount() - begin, 1000U);
  pumpUntil([&done] { return done; });
  EXPECT_GE(GetTickCount() - begin + 20, 2000U);
}

TEST(Background, ReportsWorkThatFailedToo) {
  int done = 0;
  ASSERT_TRUE(background::run([] { throw platform::RunTimeError(53); }, [&done] { ++done; }));
  ASSERT_TRUE(background::run([] { throw std::bad_alloc(); }, [&done] { ++done; }));
  pumpUntil([&done] { return done == 2; });
}

TEST(Background, ReportsInTheLoopOfAMessageBoxToo) {
  bool done = false;
  ASSERT_TRUE(background::run([] {},
                              [&done] {
                                done = true;
                                EndMenu();
                                PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0);
                              }));
  MessageBoxW(nullptr, L"It closes when the work is done.", L"Background", MB_OK);
  EXPECT_TRUE(done);
}

}  // namespace
