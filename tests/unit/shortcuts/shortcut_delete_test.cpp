// Delete on the Tools tab.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/support/journal_order.h"
#include "unit/support/shortcuts_fixture.h"

namespace {

using memory::desktop;
using platform::dialogs::Answer;
using platform::dialogs::MessageStyle;
using Texts = std::vector<std::wstring>;

class ShortcutDeleteTest : public ShortcutsTest {
 protected:
  ShortcutDeleteTest() {
    putShortcut(L"Shortcut to calc.exe.lnk");
    putShortcut(L"Other.lnk");
    load();
    select(L"Shortcut to calc");
    desktop().answers = {Answer::yes};
  }

  /// Creates a shortcut, lists it and selects it.
  void choose(const std::wstring& fileName) {
    putShortcut(fileName);
    load();
    select(fileName.substr(0, fileName.find(L'.')));
  }

  const std::wstring file = pathOf(L"Shortcut to calc.exe.lnk");
};

TEST_F(ShortcutDeleteTest, AsksWithTheWholeFileNameInUpperCase) {
  desktop().answers = {Answer::no};
  window.mnuDelete.fireClick();
  EXPECT_EQ(onlyMessage(),
            L"Are your sure you want to delete the shortcut: SHORTCUT TO CALC.EXE.LNK");
  EXPECT_EQ(desktop().messages.front().style, MessageStyle::yesNoWarning);
  EXPECT_EQ(desktop().messages.front().title, platform::application::title);
}

TEST_F(ShortcutDeleteTest, OnYesTheShortcutGoesAndTheListIsReloaded) {
  putUnlisted();
  window.mnuDelete.fireClick();
  EXPECT_FALSE(desktop().has(file));
  EXPECT_EQ(listed(), (Texts{L"Other", L"Unlisted"}));
}

TEST_F(ShortcutDeleteTest, OnNoTheShortcutStaysAndTheListIsNotReloaded) {
  putUnlisted();
  desktop().answers = {Answer::no};
  window.mnuDelete.fireClick();
  EXPECT_TRUE(desktop().has(file));
  EXPECT_FALSE(reloaded());
  EXPECT_EQ(desktop().journal().size(), 1U);
}

TEST_F(ShortcutDeleteTest, AShortcutWhoseFileIsMissingMustBeSelectedAfresh) {
  putUnlisted();
  desktop().take(file);
  window.mnuDelete.fireClick();
  EXPECT_EQ(onlyMessage(), L"Please select shortcut");
  EXPECT_EQ(desktop().messages.front().style, MessageStyle::information);
  EXPECT_EQ(desktop().messages.front().title, platform::application::title);
  EXPECT_FALSE(reloaded());
}

TEST_F(ShortcutDeleteTest, TheToolsOwnShortcutsCannotBeDeletedInAnyLetterCase) {
  for (const wchar_t* const name : {L"Modelhouse.lnk", L"BrushtallyPC.lnk", L"Plotview.lnk",
                                    L"Imagekeep.lnk", L"Canopy Weigh.lnk", L"Unitshift.lnk",
                                    L"modelhouse.LNK", L"UNITSHIFT.LNK", L"pLoTvIeW.lnk"}) {
    desktop().messages.clear();
    choose(name);
    window.mnuDelete.fireClick();
    EXPECT_EQ(onlyMessage(), L"Sorry, you can't delete this shortcut")
        << ::testing::PrintToString(name);
    EXPECT_EQ(desktop().messages.front().style, MessageStyle::information);
    EXPECT_TRUE(desktop().has(pathOf(name)));
    desktop().take(pathOf(name));
  }
}

TEST_F(ShortcutDeleteTest, AProtectedShortcutDoesNotReloadTheList) {
  choose(L"Imagekeep.lnk");
  putUnlisted();
  window.mnuDelete.fireClick();
  EXPECT_EQ(onlyMessage(), L"Sorry, you can't delete this shortcut");
  EXPECT_FALSE(reloaded());
}

TEST_F(ShortcutDeleteTest, SprawlMayBeDeletedThoughNotRenamed) {
  for (const wchar_t* const name : {L"Sprawl.lnk", L"SPRAWL.LNK"}) {
    desktop().messages.clear();
    desktop().answers = {Answer::yes};
    choose(name);
    window.mnuRename.fireClick();
    EXPECT_EQ(onlyMessage(), L"Sorry, you can't rename this shortcut");
    window.mnuDelete.fireClick();
    EXPECT_EQ(desktop().messages.back().text,
              L"Are your sure you want to delete the shortcut: SPRAWL.LNK");
    EXPECT_FALSE(desktop().has(pathOf(name)));
  }
}

TEST_F(ShortcutDeleteTest, ObsoleteNamesOfTheToolsMayBeDeleted) {
  for (const wchar_t* const name :
       {L"PlotviewX.lnk", L"Plotview Browser.lnk", L"CanopyWeigh.lnk"}) {
    desktop().answers = {Answer::yes};
    choose(name);
    window.mnuDelete.fireClick();
    EXPECT_FALSE(desktop().has(pathOf(name))) << ::testing::PrintToString(name);
  }
}

TEST_F(ShortcutDeleteTest, ADeletionThatFailsIsIgnoredAndTheListIsReloaded) {
  putUnlisted();
  desktop().lock(file);
  window.mnuDelete.fireClick();
  EXPECT_TRUE(desktop().journalHas(L"recycle " + file + L" failed 70"));
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_TRUE(desktop().errorReports.empty());
  EXPECT_EQ(listed(), (Texts{L"Shortcut to calc", L"Other", L"Unlisted"}));
}

TEST_F(ShortcutDeleteTest, AFileThatVanishesDuringTheQuestionIsLeftAtThat) {
  putUnlisted();
  desktop().onMessage = [this](const auto& /*message*/) { desktop().take(file); };
  window.mnuDelete.fireClick();
  EXPECT_EQ(linesBeginning(L"remove"), 0U);
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_FALSE(reloaded());
}

TEST_F(ShortcutDeleteTest, TheItemSelectedBehindTheQuestionIsDeleted) {
  desktop().onMessage = [this](const auto& /*message*/) { select(L"Other"); };
  window.mnuDelete.fireClick();
  EXPECT_TRUE(desktop().has(file));
  EXPECT_FALSE(desktop().has(pathOf(L"Other.lnk")));
}

TEST_F(ShortcutDeleteTest, WithoutASelectedItemTheCommandEndsWithTheReportAndTheProgramGoesOn) {
  list.clear();
  window.mnuDelete.fireClick();
  EXPECT_EQ(desktop().errorReports, std::vector<int>{91});
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_TRUE(window.loaded());
}

}  // namespace
