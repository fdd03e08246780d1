// The entry that a question named: a file that exists again, equal entries, another selection, a
// list that could not be read.
#include <gtest/gtest.h>

#include <string>

#include "unit/support/question_rig.h"

namespace {

namespace keys = controls::keys;
using memory::desktop;
using platform::dialogs::Answer;
using unit::answerWith;
using unit::record;
using unit::Texts;

using NamedEntries = unit::QuestionRig;

// --- a file that exists again ---

TEST_F(NamedEntries, AFileThatIsBackBeforeTheAnswerStaysAndOnlyItsEntryGoes) {
  meanwhile = [] { desktop().putFile(L"D:\\Birch.bi3", "the work of a summer"); };
  desktop().onMessage = [this](const auto& /*message*/) { happen(); };
  desktop().take(L"D:\\Birch.bi3");
  desktop().answers = {Answer::no};
  main.lstQMK[frmQMK::open].fireDoubleClick();
  EXPECT_EQ(desktop().bytesOf(L"D:\\Birch.bi3"), "the work of a summer");
  EXPECT_EQ(catalogue(), alder + cedar);
  EXPECT_EQ(textsOf(main.lstQMK[frmQMK::open]), (Texts{L"Alder.bi3", L"Cedar.bi3"}));
}

TEST_F(NamedEntries, AFileThatIsBackWhenARenameHasMissedItStays) {
  meanwhile = [] { desktop().putFile(L"D:\\Birch.bi3", "the work of a summer"); };
  desktop().onMessage = [this](const auto& /*message*/) { happen(); };
  desktop().take(L"D:\\Birch.bi3");
  answerWith(*this, frmQMK::open, L"Beech");
  EXPECT_EQ(told(), Texts{L"File does not exists, removing entry"});
  EXPECT_EQ(desktop().bytesOf(L"D:\\Birch.bi3"), "the work of a summer");
}

// --- the user chooses another entry ---

TEST_F(NamedEntries, TheWebShortcutDialogChangesWhatTheUserHasSelectedSince) {
  main.TabMain.fireSwitch(frmQMK::web);
  main.mnuRename.fireClick();
  main.webDialog()->txtName.acceptTyped(L"Buoy");
  main.lstQMK[frmQMK::web].acceptSelection(2);
  main.webDialog()->cmdOK.fireClick();
  EXPECT_EQ(webList(), atlas + barometer + record({"Buoy", "http://barometer"}));
}

TEST_F(NamedEntries, AnEntryThatTheUserHasSelectedSinceMustBeThereToo) {
  main.TabMain.fireSwitch(frmQMK::web);
  main.mnuRename.fireClick();
  main.lstQMK[frmQMK::web].acceptSelection(2);
  putWebList(atlas + barometer);
  reload();
  main.webDialog()->cmdOK.fireClick();
  EXPECT_EQ(told(), Texts{L"Clock is no longer in the list"});
  EXPECT_EQ(webList(), atlas + barometer);
  ASSERT_TRUE(main.webDialog()->loaded()) << "What was typed stays";
  main.lstQMK[frmQMK::web].acceptSelection(0);
  main.webDialog()->cmdOK.fireClick();
  EXPECT_FALSE(main.webDialog()->loaded());
  EXPECT_EQ(names(), (Texts{L"Barometer", L"Barometer"}));
}

TEST_F(NamedEntries, OnAnotherTabAReloadMovesNothingEither) {
  main.TabMain.fireSwitch(frmQMK::web);
  main.mnuRename.fireClick();
  main.TabMain.fireSwitch(frmQMK::open);
  putCatalogue(alder + cedar);
  reload();
  main.webDialog()->cmdOK.fireClick();
  EXPECT_EQ(told(), Texts{L"Birch.bi3 is no longer in the list"});
  EXPECT_EQ(webList(), atlas + barometer + clock);
}

TEST_F(NamedEntries, WhatIsSelectedWhenTheDialogIsShownIsChosen) {
  main.TabMain.fireSwitch(frmQMK::web);
  putWebList(atlas + clock);
  reload();
  main.mnuRename.fireClick();
  EXPECT_EQ(main.webDialog()->txtName.text(), L"Atlas");
  main.webDialog()->txtName.acceptTyped(L"Axis");
  main.webDialog()->cmdOK.fireClick();
  EXPECT_EQ(webList(), record({"Axis", "http://atlas"}) + clock);
  EXPECT_EQ(told(), Texts{});
}

// --- equal entries ---

TEST_F(NamedEntries, EqualWebShortcutsAreToldApartByTheirOrder) {
  putWebList(atlas + clock + clock);
  reload();
  main.TabMain.fireSwitch(frmQMK::web);
  main.lstQMK[frmQMK::web].acceptSelection(2);
  main.mnuRename.fireClick();
  main.webDialog()->txtName.acceptTyped(L"Sundial");
  main.lstQMK[frmQMK::web].fireKey({keys::f5});
  EXPECT_EQ(main.lstQMK[frmQMK::web].selected(), 2U);
  main.webDialog()->cmdOK.fireClick();
  EXPECT_EQ(webList(), atlas + clock + record({"Sundial", "http://clock"}));
}

// --- a list that could not be read completely ---

TEST_F(NamedEntries, AWebListThatCouldNotBeReadDoesNotBecomeTheFile) {
  main.TabMain.fireSwitch(frmQMK::web);
  main.mnuRename.fireClick();
  main.webDialog()->txtName.acceptTyped(L"Buoy");
  desktop().lock(unit::webListFile);
  reload();
  main.webDialog()->cmdOK.fireClick();
  EXPECT_TRUE(main.webDialog()->loaded());
  const std::wstring problem = L"Problem reading Web file list\r70-Permission denied";
  EXPECT_EQ(told(), (Texts{problem, problem}));
  desktop().unlock(unit::webListFile);
  EXPECT_EQ(webList(), atlas + barometer + clock);
  main.webDialog()->cmdOK.fireClick();
  EXPECT_EQ(webList(), atlas + record({"Buoy", "http://barometer"}) + clock);
}

}  // namespace
