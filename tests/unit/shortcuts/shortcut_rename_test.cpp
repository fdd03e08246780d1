// Rename on the Tools tab.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/support/journal_order.h"
#include "unit/support/shortcuts_fixture.h"

namespace {

using memory::desktop;
using platform::dialogs::MessageStyle;
using Texts = std::vector<std::wstring>;

constexpr const wchar_t* renamedFolder = L"C:\\App\\shortcuts";

class ShortcutRenameTest : public ShortcutsTest {
 protected:
  ShortcutRenameTest() {
    desktop().putFolder(renamedFolder);
    putShortcut(L"Foo.lnk", L"C:\\foo.exe");
    putShortcut(L"Bar.lnk", L"C:\\bar.exe");
    load();
    select(L"Foo");
  }

  void rename(const std::optional<std::wstring>& answer) {
    desktop().inputAnswers = {answer};
    window.mnuRename.fireClick();
  }
};

// --- the question ---

TEST_F(ShortcutRenameTest, AsksForTheNewNameWithABlankAsDefault) {
  rename(L"");
  ASSERT_EQ(desktop().inputs.size(), 1U);
  EXPECT_EQ(desktop().inputs.front().prompt, L"Rename shortcut Foo");
  EXPECT_EQ(desktop().inputs.front().title, L"  ");
  EXPECT_EQ(desktop().inputs.front().defaultAnswer, L" ");
}

TEST_F(ShortcutRenameTest, ThePromptLeavesOutTheLastFourCharactersOnly) {
  putShortcut(L"Shortcut to calc.exe.LNK");
  load();
  select(L"Shortcut to calc");
  rename(L"");
  EXPECT_EQ(desktop().inputs.front().prompt, L"Rename shortcut Shortcut to calc.exe");
}

// --- the renaming ---

TEST_F(ShortcutRenameTest, TheRenamedShortcutGoesToTheProgramsOwnFolder) {
  rename(L"Quux");
  ASSERT_TRUE(desktop().linkAt(L"C:\\App\\shortcuts\\Quux.lnk"));
  EXPECT_EQ(desktop().linkAt(L"C:\\App\\shortcuts\\Quux.lnk")->targetPath, L"C:\\foo.exe");
  EXPECT_FALSE(desktop().has(pathOf(L"Foo.lnk")));
  EXPECT_FALSE(desktop().has(pathOf(L"Quux.lnk")));
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(ShortcutRenameTest, WhatIsDeletedIsReadAgainFromTheItemSelectedBehindTheQuestion) {
  desktop().onInput = [this](const auto& /*input*/) { select(L"Bar"); };
  rename(L"Quux");
  EXPECT_EQ(desktop().linkAt(L"C:\\App\\shortcuts\\Quux.lnk")->targetPath, L"C:\\foo.exe");
  EXPECT_TRUE(desktop().has(pathOf(L"Foo.lnk")));
  EXPECT_FALSE(desktop().has(pathOf(L"Bar.lnk")));
}

TEST_F(ShortcutRenameTest, TheRenamedShortcutLeavesTheList) {
  putUnlisted();
  rename(L"Quux");
  EXPECT_EQ(listed(), (Texts{L"Bar", L"Unlisted"}));
}

TEST_F(ShortcutRenameTest, TheCopyComesBeforeTheDeletion) {
  rename(L"Quux");
  const std::vector<std::wstring> expected{
      L"input Rename shortcut Foo",
      L"copy " + pathOf(L"Foo.lnk") + L" -> C:\\App\\shortcuts\\Quux.lnk",
      L"remove " + pathOf(L"Foo.lnk")};
  std::vector<std::wstring> journal = desktop().journal();
  // What is kept for Undo is read.
  std::erase_if(journal, [](const std::wstring& line) { return line.starts_with(L"read "); });
  EXPECT_EQ(journal, expected);
}

TEST_F(ShortcutRenameTest, TheProgramsFolderIsCanonicalInThePathOfTheCopy) {
  desktop().applicationFolder = L"c:\\APP";
  rename(L"Quux");
  EXPECT_TRUE(
      desktop().journalHas(L"copy " + pathOf(L"Foo.lnk") + L" -> c:\\App\\shortcuts\\Quux.lnk"));
}

TEST_F(ShortcutRenameTest, OkWithoutTypingRenamesToABlank) {
  rename(std::nullopt);
  EXPECT_TRUE(desktop().has(L"C:\\App\\shortcuts\\ .lnk"));
  EXPECT_FALSE(desktop().has(pathOf(L"Foo.lnk")));
}

TEST_F(ShortcutRenameTest, ANameTakenInTheProgramsFolderIsOverwritten) {
  desktop().putLink(L"C:\\App\\shortcuts\\Quux.lnk", linkTo(L"C:\\old.exe"));
  rename(L"Quux");
  EXPECT_EQ(desktop().linkAt(L"C:\\App\\shortcuts\\Quux.lnk")->targetPath, L"C:\\foo.exe");
  EXPECT_TRUE(desktop().messages.empty());
}

// --- refusals ---

TEST_F(ShortcutRenameTest, ANameTakenInTheShortcutsFolderIsRefused) {
  putUnlisted();
  rename(L"Bar");
  EXPECT_EQ(onlyMessage(), L"BAR already exists, can't change name");
  EXPECT_EQ(desktop().messages.front().style, MessageStyle::information);
  EXPECT_EQ(desktop().messages.front().title, platform::application::title);
  EXPECT_TRUE(desktop().has(pathOf(L"Foo.lnk")));
  EXPECT_FALSE(desktop().has(L"C:\\App\\shortcuts\\Bar.lnk"));
  EXPECT_TRUE(reloaded());
}

TEST_F(ShortcutRenameTest, TheTypedNameIsToldInUpperCaseHoweverItWasTyped) {
  rename(L"b\u00E4r");
  EXPECT_TRUE(desktop().messages.empty());
  putShortcut(L"b\u00E4r.lnk");
  load();
  select(L"Bar");
  rename(L"b\u00E4r");
  EXPECT_EQ(onlyMessage(), L"B\u00C4R already exists, can't change name");
}

TEST_F(ShortcutRenameTest, ItsOwnNameIsTakenToo) {
  rename(L"foo");
  EXPECT_EQ(onlyMessage(), L"FOO already exists, can't change name");
  EXPECT_TRUE(desktop().has(pathOf(L"Foo.lnk")));
}

TEST_F(ShortcutRenameTest, CancelledNothingIsChangedAndTheListIsReloaded) {
  putUnlisted();
  rename(L"");
  EXPECT_TRUE(desktop().has(pathOf(L"Foo.lnk")));
  EXPECT_EQ(desktop().journal().size(), 1U);
  EXPECT_TRUE(reloaded());
}

TEST_F(ShortcutRenameTest, AShortcutWhoseFileIsMissingMustBeSelectedAfresh) {
  putUnlisted();
  desktop().take(pathOf(L"Foo.lnk"));
  window.mnuRename.fireClick();
  EXPECT_EQ(onlyMessage(), L"Please select shortcut");
  EXPECT_EQ(desktop().messages.front().style, MessageStyle::information);
  EXPECT_EQ(desktop().messages.front().title, platform::application::title);
  EXPECT_TRUE(desktop().inputs.empty());
  EXPECT_FALSE(reloaded());
}

TEST_F(ShortcutRenameTest, TheToolsOwnShortcutsCannotBeRenamedInAnyLetterCase) {
  for (const wchar_t* const name :
       {L"Modelhouse.lnk", L"BrushtallyPC.lnk", L"Plotview.lnk", L"Imagekeep.lnk", L"Sprawl.lnk",
        L"Canopy Weigh.lnk", L"Unitshift.lnk", L"modelhouse.LNK", L"SPRAWL.LNK",
        L"cAnOpY wEiGh.lnk"}) {
    desktop().messages.clear();
    putShortcut(name);
    load();
    const std::wstring file(name);
    select(file.substr(0, file.find(L'.')));
    window.mnuRename.fireClick();
    EXPECT_EQ(onlyMessage(), L"Sorry, you can't rename this shortcut")
        << ::testing::PrintToString(name);
    EXPECT_EQ(desktop().messages.front().style, MessageStyle::information);
    EXPECT_TRUE(desktop().has(pathOf(name)));
    desktop().take(pathOf(name));
  }
  EXPECT_TRUE(desktop().inputs.empty());
}

TEST_F(ShortcutRenameTest, AProtectedShortcutDoesNotReloadTheList) {
  putShortcut(L"Sprawl.lnk");
  load();
  select(L"Sprawl");
  putUnlisted();
  window.mnuRename.fireClick();
  EXPECT_EQ(onlyMessage(), L"Sorry, you can't rename this shortcut");
  EXPECT_FALSE(reloaded());
}

TEST_F(ShortcutRenameTest, OtherShortcutsOfTheToolsMayBeRenamed) {
  for (const wchar_t* const name :
       {L"Plotview Browser.lnk", L"CanopyWeigh.lnk", L"PlotviewX.lnk", L"Modelhouse2.lnk"}) {
    putShortcut(name);
    load();
    const std::wstring file(name);
    select(file.substr(0, file.find(L'.')));
    rename(L"Renamed");
    EXPECT_FALSE(desktop().has(pathOf(name))) << ::testing::PrintToString(name);
  }
  EXPECT_TRUE(desktop().messages.empty());
}

// --- errors ---

TEST_F(ShortcutRenameTest, WithoutASelectedItemTheCommandEndsWithTheReportAndTheProgramGoesOn) {
  list.clear();
  window.mnuRename.fireClick();
  EXPECT_EQ(desktop().errorReports, std::vector<int>{91});
  EXPECT_EQ(onlyMessage(),
            L"Run-time error '91':\r\n\r\nObject variable or With block variable not set");
  EXPECT_TRUE(window.loaded());
}

TEST_F(ShortcutRenameTest, WithoutTheProgramsShortcutsFolderNothingBehindTheCopyHappens) {
  desktop().take(renamedFolder);
  putUnlisted();
  rename(L"Quux");
  EXPECT_EQ(desktop().errorReports, std::vector<int>{76});
  EXPECT_TRUE(desktop().has(pathOf(L"Foo.lnk")));
  EXPECT_FALSE(reloaded());
}

TEST_F(ShortcutRenameTest, AShortcutThatCannotBeDeletedIsCopiedAndReported) {
  desktop().setReadOnly(pathOf(L"Foo.lnk"));
  putUnlisted();
  rename(L"Quux");
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
  EXPECT_TRUE(desktop().has(L"C:\\App\\shortcuts\\Quux.lnk"));
  EXPECT_TRUE(desktop().has(pathOf(L"Foo.lnk")));
  EXPECT_FALSE(reloaded());
}

}  // namespace
