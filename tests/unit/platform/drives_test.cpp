// The roots of paths, and paths that can only mean one file.
#include "platform/drives.h"

#include <gtest/gtest.h>

namespace {

using platform::drives::isRoot;
using platform::drives::namesOneFile;
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

TEST(IsRoot, IsADriveOrAShareWithABackslash) {
  EXPECT_TRUE(isRoot(L"C:\\"));
  EXPECT_TRUE(isRoot(L"\\\\server\\share\\"));
  for (const wchar_t* const path :
       {L"", L"\\", L"C:", L"C:\\a", L"\\\\server\\", L"\\\\server\\share", L"*:\\"}) {
    EXPECT_FALSE(isRoot(path)) << ::testing::PrintToString(path);
  }
}

TEST(NamesOneFile, IsAFullPathOfPlainNames) {
  for (const wchar_t* const path :
       {L"C:\\plot.fp3", L"C:\\a b\\.x\\plot..fp3", L"\\\\server\\share\\plot.fp3", L"C:\\CONE.fp3",
        L"C:\\COM\\com0.fp3", L"C:\\LPT10\\x", L"C:\\nul_.fp3", L"C:\\\u0416.fp3",
        L"C:\\xcom1.fp3"}) {
    EXPECT_TRUE(namesOneFile(path)) << ::testing::PrintToString(path);
  }
}

TEST(NamesOneFile, RefusesWhatMayMeanAnything) {
  for (const wchar_t* const path : {L"",
                                    L"plot.fp3",
                                    L"\\plot.fp3",
                                    L"C:",
                                    L"C:plot.fp3",
                                    L"C:\\",
                                    L"C:\\a\\",
                                    L"\\\\server\\share",
                                    L"C:\\*.fp3",
                                    L"C:\\plo?.fp3",
                                    L"C:\\a*\\plot.fp3",
                                    L"C:\\<.fp3",
                                    L"C:\\>.fp3",
                                    L"C:\\\"x.fp3",
                                    L"C:\\a|b.fp3",
                                    L"C:\\plot.fp3:s.fp3",
                                    L"C:\\a:s\\plot.fp3",
                                    L"C:\\a/b.fp3",
                                    L"C:\\a\\\\b.fp3",
                                    L"C:\\.\\b.fp3",
                                    L"C:\\a\\..\\b.fp3",
                                    L"C:\\a\n.fp3",
                                    L"C:\\con.fp3",
                                    L"C:\\CON",
                                    L"C:\\NUL\\x.fp3",
                                    L"C:\\prn .fp3",
                                    L"C:\\aux:x",
                                    L"C:\\com1.fp3",
                                    L"C:\\LPT9.x.fp3",
                                    L"C:\\com\u00B2.fp3",
                                    L"C:\\CONIN$",
                                    L"C:\\conout$.fp3",
                                    L"\\\\?\\C:\\plot.fp3",
                                    L"\\\\*\\share\\plot.fp3",
                                    L"\\\\.\\C:\\plot.fp3",
                                    L"\\\\.\\pipe\\plot.fp3"}) {
    EXPECT_FALSE(namesOneFile(path)) << ::testing::PrintToString(path);
  }
}

}  // namespace
