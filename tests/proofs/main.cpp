// The proofs: the real program and the product's own code under faults, load and hostile input.
#include <gmock/gmock.h>
#include <windows.h>

#include <cstdio>

#include "harness/permission.h"
#include "proof.h"

int main(int argumentCount, char** arguments) {
  // Results must be on the disk even if the run is interrupted.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  ::testing::InitGoogleMock(&argumentCount, arguments);
  if (!GTEST_FLAG_GET(list_tests) && !harness::profileIsForTests()) {
    return harness::profileRefused;
  }
  std::printf("seed: %llu\n", static_cast<unsigned long long>(proofs::seed()));
  return RUN_ALL_TESTS();
}
