// The desktop tests: they start the real program and drive it from outside.
#include <gmock/gmock.h>
#include <windows.h>

#include <cstdio>

#include "harness/permission.h"

int main(int argumentCount, char** arguments) {
  // Results must be on the disk even if the run is interrupted.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  ::testing::InitGoogleMock(&argumentCount, arguments);
  if (!GTEST_FLAG_GET(list_tests) && !harness::profileIsForTests()) {
    return harness::profileRefused;
  }
  return RUN_ALL_TESTS();
}
