// Starting a tool from the Tools list.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/support/shortcuts_fixture.h"

namespace {

using memory::desktop;

class ShortcutStartTest : public ShortcutsTest {
 protected:
  ShortcutStartTest() {
    desktop().putProgram(L"C:\\Program Files\\My Tool\\tool.exe");
    platform::shell_links::Link link = linkTo(L"C:\\Program Files\\My Tool\\tool.exe");
    link.arguments = L"/secret argument";
    link.workingDirectory = L"C:\\Elsewhere";
    desktop().putLink(pathOf(L"Tool.lnk"), link);
    load();
  }
};

TEST_F(ShortcutStartTest, ADoubleClickStartsTheTargetUnquotedAndWithoutArguments) {
  list.fireDoubleClick();
  const std::vector<memory::Start> expected{
      {L"C:\\Program Files\\My Tool\\tool.exe", L"C:\\Program Files\\My Tool\\tool.exe"}};
  EXPECT_EQ(desktop().starts, expected);
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(ShortcutStartTest, TheSelectedShortcutIsStarted) {
  desktop().putProgram(L"C:\\other.exe");
  putShortcut(L"Other.lnk", L"C:\\other.exe");
  load();
  select(L"Other");
  list.fireDoubleClick();
  ASSERT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(desktop().starts.front().executable, L"C:\\other.exe");
}

TEST_F(ShortcutStartTest, TheTargetIsTheOneReadWhenTheListWasFilled) {
  putShortcut(L"Tool.lnk", L"C:\\changed.exe");
  list.fireDoubleClick();
  ASSERT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(desktop().starts.front().executable, L"C:\\Program Files\\My Tool\\tool.exe");
}

TEST_F(ShortcutStartTest, TheCatalogueViewIsReloadedBehindIt) {
  desktop().putFile(L"C:\\App\\QMKFileList3.txt", "\"FP3\",\"C:\\x\\a.fp3\",\"1\"\r\n");
  list.fireDoubleClick();
  EXPECT_EQ(window.lstQMK[frmQMK::open].count(), 1U);
  ASSERT_EQ(desktop().journal().size(), 2U);
  EXPECT_EQ(desktop().journal()[0], L"start C:\\Program Files\\My Tool\\tool.exe");
  EXPECT_EQ(desktop().journal()[1], L"read C:\\App\\QMKFileList3.txt");
}

TEST_F(ShortcutStartTest, ATargetThatIsNoProgramIsToldWithItsNumber) {
  desktop().putFile(L"C:\\readme.txt", "text");
  putShortcut(L"Tool.lnk", L"C:\\readme.txt");
  load();
  list.fireDoubleClick();
  EXPECT_EQ(onlyMessage(),
            L"Can't start application\r5-Invalid procedure call or argument\rPath: C:\\readme.txt");
  EXPECT_EQ(desktop().messages.front().style, platform::dialogs::MessageStyle::critical);
  EXPECT_TRUE(desktop().errorReports.empty());
}

TEST_F(ShortcutStartTest, AMissingTargetIsToldWithItsNumber) {
  desktop().take(L"C:\\Program Files\\My Tool\\tool.exe");
  list.fireDoubleClick();
  EXPECT_EQ(onlyMessage(),
            L"Can't start application\r53-File not found\r"
            L"Path: C:\\Program Files\\My Tool\\tool.exe");
}

TEST_F(ShortcutStartTest, AShortcutWithoutATargetIsToldWithItsNumber) {
  desktop().putFile(pathOf(L"Tool.lnk"), "no shortcut");
  load();
  list.fireDoubleClick();
  EXPECT_EQ(onlyMessage(),
            L"Can't start application\r5-Invalid procedure call or argument\rPath: ");
}

TEST_F(ShortcutStartTest, AnEmptyListStartsNothing) {
  list.clear();
  list.fireDoubleClick();
  EXPECT_TRUE(desktop().journal().empty());
}

}  // namespace
