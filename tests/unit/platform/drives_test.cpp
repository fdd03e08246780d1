// The roots of paths.
#include "platform/drives.h"

#include <gtest/gtest.h>

namespace {

using platform::drives::rootOf;

TEST(RootOf, IsTheDriveOfAPath) {
  EXPECT_EQ(rootOf(L"C:\\field\\plot.fp3"), L"C:");
  EXPECT_EQ(rootOf(L"e:\\"), L"e:");
  EXPECT_EQ(rootOf(L"E:"), L"E:");
}

TEST(RootOf, IsTheServerAndTheShareOfANetworkPath) {
  EXPECT_EQ(rootOf(L"\\\\server\\share\\deep\\plot.fp3"), L"\\\\server\\share");
  EXPECT_EQ(rootOf(L"\\\\server\\share\\"), L"\\\\server\\share");
  EXPECT_EQ(rootOf(L"\\\\server\\share"), L"\\\\server\\share");
}

TEST(RootOf, APathWithoutBothHasNone) {
  for (const wchar_t* const path : {L"", L"C", L"plot.fp3", L"\\plot.fp3", L"\\\\", L"\\\\server",
                                    L"\\\\server\\", L"\\\\\\share\\x", L"\\\\server\\\\x"}) {
    EXPECT_EQ(rootOf(path), L"") << ::testing::PrintToString(path);
  }
}

}  // namespace
