// A single shortcut file: what is written to it and read from it.
#include <gtest/gtest.h>

#include <string>

#include "platform/desktop_test.h"
#include "shortcuts/shortcut_file.h"
#include "unit/support/links.h"

namespace {

using memory::desktop;
using ShortcutFileTest = memory::DesktopTest;

constexpr const wchar_t* anyLink = L"C:\\Any.lnk";

TEST_F(ShortcutFileTest, TheWriterTakesItsPathsAsTheyAreAndIgnoresTheFourthOne) {
  modSC::CreateToolShortcut(L"C:\\t.exe", anyLink, L"C:\\work", L"whatever");
  const auto link = desktop().linkAt(anyLink);
  ASSERT_TRUE(link);
  EXPECT_EQ(link->targetPath, L"C:\\t.exe");
  EXPECT_EQ(link->description, anyLink);
  EXPECT_EQ(link->workingDirectory, L"C:\\work");
}

TEST_F(ShortcutFileTest, TheReaderStoresTheTargetAndSavesNothing) {
  desktop().putLink(anyLink, linkTo(L"C:\\t.exe"));
  std::wstring target = L"before";
  modSC::GetShortcutTarget(anyLink, target);
  EXPECT_EQ(target, L"C:\\t.exe");
  EXPECT_TRUE(desktop().linkWrites.empty());
  EXPECT_TRUE(desktop().journal().empty());
}

TEST_F(ShortcutFileTest, TheReaderGivesNothingForWhatIsNoShortcut) {
  std::wstring target = L"before";
  modSC::GetShortcutTarget(L"C:\\Missing.lnk", target);
  EXPECT_EQ(target, L"");
}

}  // namespace
