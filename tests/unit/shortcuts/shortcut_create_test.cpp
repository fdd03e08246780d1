// Create on the Tools tab.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/support/journal_order.h"
#include "unit/support/shortcuts_fixture.h"

namespace {

using memory::desktop;
using Texts = std::vector<std::wstring>;

class ShortcutCreateTest : public ShortcutsTest {
 protected:
  ShortcutCreateTest() {
    desktop().putProgram(L"C:\\Tools\\Calc.exe");
    load();
  }

  void create(const std::wstring& program) {
    desktop().fileDialogResults = {program};
    window.mnuCreate.fireClick();
  }
};

// --- the dialog ---

TEST_F(ShortcutCreateTest, TheDialogAsksForAProgramBeginningInTheProgramsOwnFolder) {
  create(L"C:\\Tools\\Calc.exe");
  ASSERT_EQ(desktop().fileDialogs.size(), 1U);
  const auto& request = desktop().fileDialogs.front();
  EXPECT_EQ(request.initialFolder, L"C:\\App");
  EXPECT_EQ(request.title, L"Open File");
  EXPECT_EQ(request.filter, L"Files (.exe,.hlp)|*.exe;*.hlp");
  EXPECT_EQ(request.filterIndex, 1);
  EXPECT_EQ(request.fileName, L"");
  EXPECT_TRUE(window.diaCommon.cancelError);
}

TEST_F(ShortcutCreateTest, TheFileChosenLastTimeIsNotPreset) {
  create(L"C:\\Tools\\Calc.exe");
  create(L"C:\\Tools\\Calc.exe");
  EXPECT_EQ(desktop().fileDialogs.back().fileName, L"");
}

struct Browsed {
  int errorNumber = -1;
  std::wstring path = L"what was here before";
};

Browsed browse(controls::CommonDialog& dialog, const std::variant<std::wstring, int>& result) {
  desktop().fileDialogResults = {result};
  Browsed browsed;
  modSC::BrowseForProgram(dialog, browsed.errorNumber, browsed.path);
  return browsed;
}

TEST_F(ShortcutCreateTest, BrowsingGivesThePathAndZero) {
  const Browsed browsed = browse(window.diaCommon, L"C:\\Tools\\Calc.exe");
  EXPECT_EQ(browsed.errorNumber, 0);
  EXPECT_EQ(browsed.path, L"C:\\Tools\\Calc.exe");
}

TEST_F(ShortcutCreateTest, BrowsingTrapsTheCancel) {
  const Browsed browsed = browse(window.diaCommon, 32755);
  EXPECT_EQ(browsed.errorNumber, 32755);
  EXPECT_EQ(browsed.path, L"");
}

TEST_F(ShortcutCreateTest, BrowsingTrapsEveryOtherError) {
  const Browsed browsed = browse(window.diaCommon, 20477);
  EXPECT_EQ(browsed.errorNumber, 20477);
  EXPECT_TRUE(desktop().messages.empty());
}

// --- the shortcut ---

TEST_F(ShortcutCreateTest, TheProgramsExtensionStaysInTheNameOfTheShortcut) {
  create(L"C:\\Tools\\Calc.exe");
  ASSERT_EQ(desktop().linkWrites.size(), 1U);
  EXPECT_EQ(desktop().linkWrites.front().path, pathOf(L"Shortcut to Calc.exe.lnk"));
  EXPECT_TRUE(desktop().has(pathOf(L"Shortcut to Calc.exe.lnk")));
}

TEST_F(ShortcutCreateTest, TheShortcutHasAllItsProperties) {
  create(L"C:\\Tools\\Calc.exe");
  ASSERT_EQ(desktop().linkWrites.size(), 1U);
  const auto& link = desktop().linkWrites.front().link;
  EXPECT_EQ(link.arguments, L"");
  EXPECT_EQ(link.description, L"Calc.exe");
  EXPECT_EQ(link.hotKey, L"");
  EXPECT_EQ(link.iconLocation, L"C:\\Tools\\Calc.exe");
  EXPECT_EQ(link.targetPath, L"C:\\Tools\\Calc.exe");
  EXPECT_EQ(link.windowStyle, 3);
  EXPECT_EQ(link.workingDirectory, L"C:\\Tools\\");
}

TEST_F(ShortcutCreateTest, TheFolderOfTheShortcutIsCanonicalThePathOfTheProgramIsNot) {
  modQMKGeneral::ShortCutsFolder = L"C:\\users\\ANN\\documents\\my qmkextra3\\shortcuts";
  create(L"C:\\tools\\calc.EXE");
  ASSERT_EQ(desktop().linkWrites.size(), 1U);
  EXPECT_EQ(desktop().linkWrites.front().path, pathOf(L"Shortcut to calc.EXE.lnk"));
  EXPECT_EQ(desktop().linkWrites.front().link.targetPath, L"C:\\tools\\calc.EXE");
}

TEST_F(ShortcutCreateTest, TheNewShortcutIsListedUnderTheNameBeforeTheDot) {
  create(L"C:\\Tools\\Calc.exe");
  EXPECT_EQ(listed(), Texts{L"Shortcut to Calc"});
}

TEST_F(ShortcutCreateTest, TheSameProgramTwiceOverwritesTheFirstShortcut) {
  create(L"C:\\Tools\\Calc.exe");
  desktop().putProgram(L"C:\\Other\\Calc.exe");
  create(L"C:\\Other\\Calc.exe");
  EXPECT_EQ(listed(), Texts{L"Shortcut to Calc"});
  EXPECT_EQ(desktop().linkAt(pathOf(L"Shortcut to Calc.exe.lnk"))->targetPath,
            L"C:\\Other\\Calc.exe");
}

TEST_F(ShortcutCreateTest, AChosenFileNeedNotExist) {
  create(L"C:\\Tools\\missing.exe");
  EXPECT_EQ(listed(), Texts{L"Shortcut to missing"});
}

// --- other ends ---

TEST_F(ShortcutCreateTest, CancelledNoShortcutIsWrittenAndTheListIsReloaded) {
  putUnlisted();
  desktop().fileDialogResults = {32755};
  window.mnuCreate.fireClick();
  EXPECT_TRUE(desktop().linkWrites.empty());
  EXPECT_TRUE(desktop().messages.empty());
  EXPECT_TRUE(reloaded());
}

TEST_F(ShortcutCreateTest, AnyOtherErrorOfTheDialogGoesOnWithoutAPath) {
  desktop().fileDialogResults = {20477};
  window.mnuCreate.fireClick();
  ASSERT_EQ(desktop().linkWrites.size(), 1U);
  EXPECT_EQ(desktop().linkWrites.front().path, pathOf(L"Shortcut to .lnk"));
  EXPECT_EQ(desktop().linkWrites.front().link.targetPath, L"");
  EXPECT_EQ(listed(), Texts{L"Shortcut to "});
}

TEST_F(ShortcutCreateTest, AShortcutThatCannotBeSavedIsARunTimeErrorAndTheListIsNotReloaded) {
  putUnlisted();
  desktop().linkFailure = 75;
  create(L"C:\\Tools\\Calc.exe");
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
  EXPECT_FALSE(reloaded());
}

TEST_F(ShortcutCreateTest, WithoutAMeansOfWritingShortcutsTheCommandEndsWithTheReport) {
  desktop().linkFailure = 429;
  create(L"C:\\Tools\\Calc.exe");
  EXPECT_EQ(onlyMessage(),
            L"Run-time error '429':\r\n\r\nActiveX component can't create object\r\n\r\n" +
                pathOf(L"Shortcut to Calc.exe.lnk"));
}

}  // namespace
