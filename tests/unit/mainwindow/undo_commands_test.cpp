// Undo and Redo on the three lists.
#include <gtest/gtest.h>

#include <string>

#include "platform/faults.h"
#include "unit/support/undo_commands.h"

namespace {

using memory::desktop;
using platform::dialogs::Answer;
using unit::UndoCommands;

TEST_F(UndoCommands, HaveNothingToDoAtFirst) {
  EXPECT_EQ(entry(ids::mnuUndo), L"-Undo");
  EXPECT_EQ(entry(ids::mnuRedo), L"-Redo");
  window.lstQMK[frmQMK::open].fireKey({.key = 'Z', .control = true});
  EXPECT_EQ(news(), L"There is nothing to undo");
  window.lstQMK[frmQMK::open].fireKey({.key = 'Y', .control = true});
  EXPECT_EQ(news(), L"There is nothing to redo");
}

TEST_F(UndoCommands, NameWhatTheyTakeBack) {
  erase(frmQMK::open, L"One.fp3");
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Delete");
  EXPECT_EQ(entry(ids::mnuRedo), L"-Redo");
  choose(ids::mnuUndo);
  EXPECT_EQ(entry(ids::mnuUndo), L"-Undo");
  EXPECT_EQ(entry(ids::mnuRedo), L"Redo Delete");
}

TEST_F(UndoCommands, BringADeletedFileAndItsRecordBack) {
  erase(frmQMK::open, L"One.fp3");
  EXPECT_EQ(catalogue(), two);
  EXPECT_EQ(file(L"C:\\Field\\One.fp3"), "missing");
  ASSERT_EQ(desktop().bin().size(), 1U);
  window.lstQMK[frmQMK::open].fireKey({.key = 'Z', .control = true});
  EXPECT_EQ(catalogue(), both);
  EXPECT_EQ(file(L"C:\\Field\\One.fp3"), "one");
  EXPECT_EQ(news(), L"Undone: Delete One.fp3");
  EXPECT_EQ(selected(frmQMK::open), L"One.fp3");
  EXPECT_TRUE(desktop().bin().empty());
}

TEST_F(UndoCommands, DeleteAgain) {
  erase(frmQMK::open, L"One.fp3");
  choose(ids::mnuUndo);
  window.lstQMK[frmQMK::open].fireKey({.key = 'Y', .control = true});
  EXPECT_EQ(catalogue(), two);
  EXPECT_EQ(file(L"C:\\Field\\One.fp3"), "missing");
  EXPECT_EQ(news(), L"Done again: Delete One.fp3");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
  EXPECT_EQ(file(L"C:\\Field\\One.fp3"), "one");
}

TEST_F(UndoCommands, PutOnlyTheRecordBackWhenAnotherProgramHasWritten) {
  erase(frmQMK::open, L"One.fp3");
  desktop().putFile(unit::catalogueFile, two + "\"FP3\",\"D:\\New.fp3\",\"3\"\r\n");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(),
            "fp3, C:\\Field\\One.fp3 ,1,more\r\n" + two + "\"FP3\",\"D:\\New.fp3\",\"3\"\r\n");
}

TEST_F(UndoCommands, ChangeNothingWhenTheNameIsTaken) {
  erase(frmQMK::open, L"One.fp3");
  desktop().putFile(L"C:\\Field\\One.fp3", "another");
  choose(ids::mnuUndo);
  EXPECT_EQ(news(), L"One.fp3 exists, nothing changed");
  EXPECT_EQ(catalogue(), two);
  EXPECT_EQ(file(L"C:\\Field\\One.fp3"), "another");
  desktop().take(L"C:\\Field\\One.fp3");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
}

TEST_F(UndoCommands, ChangeNothingWhenTheBinWasEmptied) {
  erase(frmQMK::open, L"One.fp3");
  desktop().emptyBin();
  choose(ids::mnuUndo);
  EXPECT_EQ(news(), L"One.fp3 is no longer in the Recycle Bin, nothing changed");
  EXPECT_EQ(catalogue(), two);
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Delete");
}

TEST_F(UndoCommands, SayWhenADeletionIsForGood) {
  desktop().noBin.insert(L"C:");
  erase(frmQMK::open, L"One.fp3");
  EXPECT_EQ(news(), L"Deleted for good: no Recycle Bin here");
  EXPECT_EQ(file(L"C:\\Field\\One.fp3"), "missing");
  EXPECT_EQ(entry(ids::mnuUndo), L"-Undo");
  erase(frmQMK::tools, L"Calc");
  EXPECT_EQ(news(), L"Deleted for good: no Recycle Bin here");
}

TEST_F(UndoCommands, SayItOfASecondDeletion) {
  erase(frmQMK::open, L"One.fp3");
  choose(ids::mnuUndo);
  desktop().noBin.insert(L"C:");
  choose(ids::mnuRedo);
  EXPECT_EQ(news(), L"Deleted for good: no Recycle Bin here");
  EXPECT_EQ(entry(ids::mnuUndo), L"-Undo");
  EXPECT_EQ(entry(ids::mnuRedo), L"-Redo");
}

TEST_F(UndoCommands, BringTheRecordBackWhoseFileCouldNotBeDeleted) {
  desktop().lock(L"C:\\Field\\One.fp3");
  erase(frmQMK::open, L"One.fp3");
  EXPECT_EQ(desktop().errorReports, std::vector<int>{70});
  EXPECT_EQ(catalogue(), two);
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
  EXPECT_EQ(file(L"C:\\Field\\One.fp3"), "one");
}

TEST_F(UndoCommands, BringAMissingEntryBackThatWasDeleted) {
  desktop().take(L"C:\\Field\\One.fp3");
  erase(frmQMK::open, L"One.fp3");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
}

TEST_F(UndoCommands, BringAMissingEntryBackThatTheAnswerNoDropped) {
  desktop().take(L"C:\\Field\\One.fp3");
  select(frmQMK::open, L"One.fp3");
  desktop().answers = {Answer::no};
  window.lstQMK[frmQMK::open].fireDoubleClick();
  EXPECT_EQ(catalogue(), two);
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Remove from List");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
}

TEST_F(UndoCommands, BringAMissingEntryBackThatARenameDropped) {
  desktop().take(L"C:\\Field\\One.fp3");
  rename(frmQMK::open, L"One.fp3", L"Three");
  EXPECT_EQ(desktop().messages.back().text, L"File does not exists, removing entry");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
}

TEST_F(UndoCommands, RenameTheFileBackAndItsRecord) {
  rename(frmQMK::open, L"Two.bi3", L"Three");
  EXPECT_NE(catalogue(), both);
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Rename");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
  EXPECT_EQ(file(L"C:\\Field\\Two.bi3"), "two");
  EXPECT_EQ(file(L"C:\\Field\\Three.BI3"), "missing");
  EXPECT_EQ(selected(frmQMK::open), L"Two.bi3");
  choose(ids::mnuRedo);
  EXPECT_EQ(file(L"C:\\Field\\Three.BI3"), "two");
  EXPECT_NE(catalogue().find("Three.BI3"), std::string::npos);
}

TEST_F(UndoCommands, RenameBackInAListThatAnotherProgramHasChanged) {
  rename(frmQMK::open, L"Two.bi3", L"Three");
  const std::string other = "\"FP3\",\"D:\\New.fp3\",\"3\"\r\n";
  desktop().putFile(unit::catalogueFile, catalogue() + other);
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), "fp3, C:\\Field\\One.fp3 ,1,more\r\n" + two + other);
}

TEST_F(UndoCommands, RenameBackWhatDiffersOnlyInItsCase) {
  rename(frmQMK::open, L"Two.bi3", L"TWO.BI3");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
  EXPECT_EQ(desktop().namesIn(L"C:\\Field"), (std::vector<std::wstring>{L"One.fp3", L"Two.bi3"}));
}

TEST_F(UndoCommands, DoNotRenameToANameThatIsTaken) {
  rename(frmQMK::open, L"Two.bi3", L"Three");
  const std::string renamed = catalogue();
  desktop().putFile(L"C:\\Field\\Two.bi3", "new");
  choose(ids::mnuUndo);
  EXPECT_EQ(news(), L"Two.bi3 exists, nothing changed");
  EXPECT_EQ(catalogue(), renamed);
  desktop().take(L"C:\\Field\\Two.bi3");
  desktop().take(L"C:\\Field\\Three.BI3");
  choose(ids::mnuUndo);
  EXPECT_EQ(news(), L"Three.BI3 is no longer there, nothing changed");
  EXPECT_EQ(catalogue(), renamed);
}

TEST_F(UndoCommands, SayWhyTheyFailed) {
  rename(frmQMK::open, L"Two.bi3", L"Three");
  desktop().lock(L"C:\\Field\\Three.BI3");
  const std::string renamed = catalogue();
  choose(ids::mnuUndo);
  EXPECT_EQ(news(), L"Nothing was changed: Permission denied");
  EXPECT_EQ(catalogue(), renamed);
  desktop().unlock(L"C:\\Field\\Three.BI3");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
}

TEST_F(UndoCommands, PutARemovedEntryBack) {
  select(frmQMK::open, L"One.fp3");
  choose(ids::mnuRemoveFromList);
  EXPECT_EQ(catalogue(), two);
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Remove from List");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
}

TEST_F(UndoCommands, TakeOutWhatWasAdded) {
  desktop().putFile(L"D:\\New.fp3", "new");
  desktop().clipboard = {.text = {}, .files = {L"D:\\New.fp3", L"C:\\Field\\One.fp3"}};
  switchTo(frmQMK::open);
  choose(ids::mnuPaste);
  EXPECT_NE(catalogue(), both);
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Add");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
  EXPECT_EQ(news(), L"Undone: Add");
  EXPECT_EQ(file(L"D:\\New.fp3"), "new");
}

TEST_F(UndoCommands, TakeOutAnAddedList) {
  desktop().putFile(L"D:\\list.txt", "\"FP3\",\"D:\\New.fp3\",\"3\"\r\n");
  desktop().fileDialogResults = {L"D:\\list.txt"};
  switchTo(frmQMK::open);
  choose(ids::mnuAddList);
  EXPECT_NE(catalogue(), both);
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
}

TEST_F(UndoCommands, BringAllRecordsBackThatOneDeletionRemoved) {
  erase(frmQMK::web, L"Weather");
  EXPECT_EQ(webList(), "\"Maps\",\"http://m.example\"\r\n");
  choose(ids::mnuUndo);
  EXPECT_EQ(webList(), sites);
  EXPECT_EQ(news(), L"Undone: Delete Weather");
}

TEST_F(UndoCommands, TakeBackWhatTheWebDialogDid) {
  switchTo(frmQMK::web);
  choose(ids::mnuCreate);
  window.webDialog()->cmdOK.fireClick();
  EXPECT_EQ(webList(), sites + "\"New Web Short Cut\",\"http://\"\r\n");
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Create");
  choose(ids::mnuUndo);
  EXPECT_EQ(webList(), sites);
  select(frmQMK::web, L"Maps");
  choose(ids::mnuRename);
  window.webDialog()->txtName.acceptTyped(L"Charts");
  window.webDialog()->cmdOK.fireClick();
  EXPECT_NE(webList(), sites);
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Rename");
  choose(ids::mnuUndo);
  EXPECT_EQ(webList(), sites);
}

TEST_F(UndoCommands, TakeBackPastedAddresses) {
  desktop().clipboard = {.text = L"http://new.example"};
  switchTo(frmQMK::web);
  choose(ids::mnuPaste);
  EXPECT_NE(webList(), sites);
  choose(ids::mnuUndo);
  EXPECT_EQ(webList(), sites);
}

TEST_F(UndoCommands, BringTheirTabToTheFront) {
  erase(frmQMK::web, L"Maps");
  switchTo(frmQMK::newFiles);
  choose(ids::mnuUndo);
  EXPECT_EQ(window.TabMain.current(), frmQMK::web);
  EXPECT_EQ(selected(frmQMK::web), L"Maps");
}

TEST_F(UndoCommands, TakeBackTheLastTwentyInTheirOrder) {
  for (int n = 0; n < 21; ++n) {
    desktop().clipboard = {.text = L"http://" + std::to_wstring(n) + L".example"};
    switchTo(frmQMK::web);
    choose(ids::mnuPaste);
  }
  for (int n = 0; n < 20; ++n) {
    ASSERT_EQ(entry(ids::mnuUndo), L"Undo Add");
    choose(ids::mnuUndo);
  }
  EXPECT_EQ(entry(ids::mnuUndo), L"-Undo");
  EXPECT_EQ(webList(), sites + "\"0.example\",\"http://0.example\"\r\n");
  for (int n = 0; n < 20; ++n) {
    choose(ids::mnuRedo);
  }
  EXPECT_EQ(entry(ids::mnuRedo), L"-Redo");
  EXPECT_NE(webList().find("20.example"), std::string::npos);
}

TEST_F(UndoCommands, ForgetWhatCouldBeRedoneWhenSomethingElseIsDone) {
  erase(frmQMK::open, L"One.fp3");
  choose(ids::mnuUndo);
  erase(frmQMK::web, L"Maps");
  EXPECT_EQ(entry(ids::mnuRedo), L"-Redo");
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Delete");
}

TEST_F(UndoCommands, DoNotCountWhatChangedNothing) {
  select(frmQMK::open, L"One.fp3");
  desktop().answers = {Answer::no};
  choose(ids::mnuDelete);
  EXPECT_EQ(entry(ids::mnuUndo), L"-Undo");
  desktop().inputAnswers = {L""};
  choose(ids::mnuRename);
  EXPECT_EQ(entry(ids::mnuUndo), L"-Undo");
}

TEST_F(UndoCommands, TakeTheChangeBackThatAFoundFileMade) {
  desktop().putFile(L"E:\\Field\\One.fp3", "one");
  desktop().take(L"C:\\Field\\One.fp3");
  desktop().putProgram(L"C:\\App\\plv3.exe");
  select(frmQMK::open, L"One.fp3");
  desktop().answers = {Answer::yes, Answer::yes};
  desktop().fileDialogResults = {L"E:\\Field\\One.fp3"};
  window.lstQMK[frmQMK::open].fireDoubleClick();
  ASSERT_NE(catalogue(), both);
  EXPECT_EQ(entry(ids::mnuUndo), L"Undo Find Moved Files");
  choose(ids::mnuUndo);
  EXPECT_EQ(catalogue(), both);
}

}  // namespace
