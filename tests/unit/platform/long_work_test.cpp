// When windows are painted in the middle of work.
#include "platform/long_work.h"

#include <vector>

#include "platform/desktop_test.h"

namespace {

using memory::desktop;

class LongWorkTest : public memory::DesktopTest {
 protected:
  LongWorkTest() {
    desktop().onPaint = [this] {
      painted.push_back(desktop().clock().waited - begin);
      desktop().clock().waited += paintingLasts;
    };
  }
  /// Does that many steps of as many milliseconds each.
  static void work(int steps, std::uint64_t milliseconds) {
    platform::LongWork work;
    for (int n = 0; n < steps; ++n) {
      desktop().clock().waited += milliseconds;
      work.stepDone();
    }
  }

  std::uint64_t begin = desktop().clock().waited;
  std::uint64_t paintingLasts = 0;
  std::vector<std::uint64_t> painted;
};

using Moments = std::vector<std::uint64_t>;

TEST_F(LongWorkTest, ShortWorkDoesNotPaint) {
  work(49, 1);
  EXPECT_EQ(painted, Moments{});
}

TEST_F(LongWorkTest, LongWorkPaintsTwentyTimesASecond) {
  work(120, 1);
  EXPECT_EQ(painted, (Moments{50, 100}));
}

TEST_F(LongWorkTest, AfterALongStepItPaintsAtOnce) {
  work(2, 700);
  EXPECT_EQ(painted, (Moments{700, 1400}));
}

/// Otherwise slow painting would leave no time for the work.
TEST_F(LongWorkTest, TheTimeOfPaintingIsNotCounted) {
  paintingLasts = 40;
  work(110, 1);
  EXPECT_EQ(painted, (Moments{50, 140}));
}

}  // namespace
