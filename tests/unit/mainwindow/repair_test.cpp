// Find Moved Files: from the command to the changed list.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "mainwindow/control_ids.h"
#include "platform/faults.h"
#include "unit/support/catalogue_test.h"

namespace {

using memory::desktop;
using platform::dialogs::Answer;
using unit::record;
using unit::Texts;

class Repair : public unit::CatalogueTest {
 protected:
  Repair() {
    desktop().putFile(L"C:\\Field\\Ridge.fp3", "ridge");
    putCatalogue(ridge + lost);
    show();
  }
  /// Shows the list and lets the window look for what is not there.
  void show() {
    modQMKGeneral::LoadCatalogueView(view);
    switchTo(frmQMK::open);
    settle();
  }
  /// Gives the command; the user chooses a folder when asked for one.
  void find(const std::wstring& folder = {}) {
    if (folder.empty()) {
      desktop().folderDialogResults = {platform::error::cancelled};
    } else {
      desktop().folderDialogResults = {folder};
    }
    giveCommand();
    settle();
  }
  void giveCommand() {
    window.commands.refresh();
    window.commands.item(ids::mnuFindMoved).fireClick();
  }
  /// Puts files into a folder.
  static void putFiles(const std::wstring& folder, const Texts& names) {
    for (const std::wstring& name : names) {
      desktop().putFile(folder + name, "x");
    }
  }
  const std::string ridge = record({"FP3", "C:\\Field\\Ridge.fp3", "1"});
  const std::string lost =
      "\"fp3\",\"C:\\Old\\Deep\\1.fp3\",\"2\",\"more\"\r\nbi3,C:\\Old\\2.bi3,3\n" +
      record({"FP3", "C:\\Old\\3.fp3", "4"});
  const std::string found =
      "\"fp3\",\"D:\\New\\Deep\\1.fp3\",\"2\",\"more\"\r\n"
      "bi3,\"D:\\New\\2.bi3\",3\n" +
      record({"FP3", "C:\\Old\\3.fp3", "4"});
};

TEST_F(Repair, IsForMissingEntriesOfTheOpenTab) {
  EXPECT_TRUE(window.commands.enabled(ids::mnuFindMoved));
  switchTo(frmQMK::web);
  EXPECT_FALSE(window.commands.enabled(ids::mnuFindMoved));
  putCatalogue(ridge);
  show();
  EXPECT_FALSE(window.commands.enabled(ids::mnuFindMoved));
  EXPECT_EQ(window.commands.explanation(window.commands.item(ids::mnuFindMoved)),
            L"No file of the list is known to be missing");
  find();
  EXPECT_TRUE(desktop().folderDialogs.empty());
}

TEST_F(Repair, ChangesWhatIsBelowTheFolder) {
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3", L"2.bi3", L"other.fp3"});
  desktop().answers = {Answer::yes};
  find(L"D:\\");
  EXPECT_EQ(catalogue(), ridge + found);
  EXPECT_EQ(messages(), Texts{L"2 of 3 missing entries under C:\\Old are in D:\\New. Change them?\r"
                              L"Not found there: 3.fp3"});
  EXPECT_EQ(window.news(), L"2 entries changed");
  EXPECT_EQ(rows(), (Texts{L"1.fp3", L"2.bi3", L"3.fp3", L"Ridge.fp3"}));
  EXPECT_EQ(list.subItem(0, modQMKGeneral::data_column::folder), L"D:\\New\\Deep\\");
  EXPECT_EQ(desktop().folderDialogs, Texts{L"Find Moved Files"});
}

TEST_F(Repair, TheSelectedEntryStaysSelected) {
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3", L"2.bi3"});
  for (const wchar_t* const name : {L"2.bi3", L"Ridge.fp3", L"3.fp3"}) {
    putCatalogue(ridge + lost);
    show();
    select(list, name);
    desktop().answers = {Answer::yes};
    find(L"D:\\New");
    EXPECT_EQ(list.text(list.selectedItem()), name);
    EXPECT_FALSE(list.lostSelection().has_value());
  }
  EXPECT_EQ(desktop().messages.size(), 3U);
}

TEST_F(Repair, NoChangesNothing) {
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3"});
  desktop().answers = {Answer::no};
  desktop().clearJournal();
  find(L"D:\\New");
  EXPECT_EQ(catalogue(), ridge + lost);
  EXPECT_EQ(window.news(), L"Nothing was changed");
  EXPECT_FALSE(desktop().journalHas(L"create C:\\App\\qmklist.tmp"));
  EXPECT_EQ(desktop().messages.size(), 1U);
}

TEST_F(Repair, NoneOfThemIsThere) {
  putFiles(L"D:\\New\\", {L"other.fp3"});
  find(L"D:\\New");
  EXPECT_EQ(catalogue(), ridge + lost);
  EXPECT_EQ(window.news(), L"None of them is there.");
}

TEST_F(Repair, LooksOnTheOtherDrivesFirst) {
  putFiles(L"E:\\Old\\", {L"Deep\\1.fp3", L"2.bi3", L"3.fp3"});
  desktop().answers = {Answer::yes};
  find();
  EXPECT_EQ(messages(), Texts{L"3 of 3 missing entries under C:\\ are in E:\\. Change them?"});
  EXPECT_EQ(window.news(), L"3 entries changed");
  EXPECT_TRUE(desktop().folderDialogs.empty());
}

TEST_F(Repair, AsksForAFolderOnlyForTheRest) {
  putFiles(L"E:\\Old\\", {L"2.bi3"});
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3", L"2.bi3"});
  desktop().answers = {Answer::yes, Answer::yes};
  find(L"D:\\New");
  EXPECT_EQ(messages(),
            (Texts{L"1 of 3 missing entries under C:\\ are in E:\\. Change them?\r"
                   L"Not found there: Old\\Deep\\1.fp3, Old\\3.fp3",
                   L"1 of 2 missing entries under C:\\Old are in D:\\New. Change them?\r"
                   L"Not found there: 3.fp3"}));
  EXPECT_EQ(window.news(), L"2 entries changed");
  // Both in one replacement.
  const auto& journal = desktop().journal();
  EXPECT_EQ(std::count(journal.begin(), journal.end(),
                       L"replace C:\\App\\qmklist.tmp -> C:\\App\\QMKFileList3.txt"),
            1);
}

TEST_F(Repair, WhatWasRefusedIsLookedForInTheFolder) {
  putFiles(L"E:\\Old\\", {L"2.bi3"});
  putFiles(L"D:\\New\\", {L"2.bi3"});
  desktop().answers = {Answer::no, Answer::yes};
  find(L"D:\\New");
  EXPECT_EQ(desktop().messages.size(), 2U);
  EXPECT_NE(catalogue().find("D:\\New\\2.bi3"), std::string::npos);
}

TEST_F(Repair, WithoutAFolderTheOtherDrivesCount) {
  putFiles(L"E:\\Old\\", {L"2.bi3"});
  desktop().answers = {Answer::yes};
  find();
  EXPECT_EQ(desktop().folderDialogs.size(), 1U);
  EXPECT_EQ(window.news(), L"1 entry changed");
  EXPECT_EQ(desktop().messages.size(), 1U);
}

TEST_F(Repair, AFileThatVanishesDuringTheQuestionIsNotListed) {
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3", L"2.bi3"});
  desktop().answers = {Answer::yes};
  desktop().onMessage = [](const ::memory::Message& /*message*/) {
    desktop().take(L"D:\\New\\2.bi3");
  };
  find(L"D:\\New");
  EXPECT_NE(catalogue().find("C:\\Old\\2.bi3"), std::string::npos);
  EXPECT_NE(catalogue().find("D:\\New\\Deep\\1.fp3"), std::string::npos);
  EXPECT_EQ(window.news(), L"1 entry changed, 1 no longer there");
  EXPECT_EQ(desktop().messages.size(), 1U);
}

TEST_F(Repair, ATargetThatIsListedIsCounted) {
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3", L"2.bi3"});
  const std::string listed = record({"BI3", "d:\\new\\2.BI3", "9"});
  putCatalogue(ridge + lost + listed);
  show();
  desktop().answers = {Answer::yes};
  find(L"D:\\New");
  EXPECT_EQ(window.news(), L"1 entry changed, 1 already listed");
  EXPECT_NE(catalogue().find("C:\\Old\\2.bi3"), std::string::npos);
  EXPECT_EQ(desktop().messages.size(), 1U);
}

TEST_F(Repair, NamesInTooManyFoldersAreCounted) {
  for (int n = 0; n < 10; ++n) {
    putFiles(L"D:\\New\\" + std::to_wstring(n) + L"\\", {L"2.bi3"});
  }
  find(L"D:\\New");
  EXPECT_EQ(catalogue(), ridge + lost);
  EXPECT_EQ(window.news(), L"0 entries changed, 1 in too many folders");
}

TEST_F(Repair, FilesThatAreThereAgainAreNotMissing) {
  putFiles(L"C:\\Old\\", {L"Deep\\1.fp3", L"2.bi3", L"3.fp3"});
  find();
  EXPECT_EQ(window.news(), L"No file of the list is missing");
  EXPECT_TRUE(desktop().folderDialogs.empty());
}

TEST_F(Repair, EntriesThatTheFindBoxHidesAreRepaired) {
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3", L"2.bi3"});
  window.txtFind.acceptTyped(L"3.fp3");
  settle();
  desktop().answers = {Answer::yes};
  find(L"D:\\New");
  EXPECT_EQ(catalogue(), ridge + found);
  EXPECT_EQ(desktop().messages.size(), 1U);
}

TEST_F(Repair, EscEndsTheSearchAndChangesNothing) {
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3"});
  desktop().folderDialogResults = {std::wstring(L"D:\\New")};
  desktop().onFileDialog = [] { desktop().backgroundMilliseconds = 5000; };
  giveCommand();
  settle();
  EXPECT_TRUE(window.barStatus.left().starts_with(L"Looking for moved files"));
  window.fireKeyDown({controls::keys::escape});
  desktop().advance(6000);
  EXPECT_EQ(catalogue(), ridge + lost);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Repair, TheCommandGivenAgainBeginsAgain) {
  putFiles(L"E:\\Old\\", {L"Deep\\1.fp3", L"2.bi3", L"3.fp3"});
  desktop().answers = {Answer::yes};
  desktop().backgroundMilliseconds = 1000;
  giveCommand();
  EXPECT_EQ(window.news(), L"Looking on the other drives");
  desktop().advance(500);
  giveCommand();
  desktop().advance(5000);
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_EQ(window.news(), L"3 entries changed");
}

TEST_F(Repair, GivenAgainDuringTheSearchOnlyTheSecondGoesOn) {
  putFiles(L"D:\\New\\", {L"Deep\\1.fp3"});
  desktop().folderDialogResults = {std::wstring(L"D:\\New"), platform::error::cancelled};
  desktop().onFileDialog = [] { desktop().backgroundMilliseconds = 1000; };
  giveCommand();
  settle();
  giveCommand();  // the search of the first ends while the second looks at the other drives
  desktop().advance(5000);
  EXPECT_EQ(desktop().folderDialogs.size(), 2U);
  EXPECT_EQ(catalogue(), ridge + lost);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Repair, ASearchThatCannotBeStartedIsTold) {
  desktop().faults().failLook(1, memory::Faults::LookFault::findsNothing);
  giveCommand();
  EXPECT_EQ(window.news(), L"The search cannot be started");
}

TEST_F(Repair, AFailureIsReported) {
  putFiles(L"D:\\New\\", {L"2.bi3"});
  desktop().setReadOnly(unit::catalogueFile);
  desktop().answers = {Answer::yes};
  find(L"D:\\New");
  EXPECT_EQ(catalogue(), ridge + lost);
  ASSERT_EQ(messages().size(), 2U);
  EXPECT_EQ(messages().back(), L"Problem saving to QMK list\r75-Path/File access error");
}

}  // namespace
