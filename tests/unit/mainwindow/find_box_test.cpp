// The find box of the main window.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "mainwindow/control_ids.h"
#include "unit/support/loaded_main_window.h"
#include "unit/support/recording_peer.h"

namespace {

namespace keys = controls::keys;
using controls::Change;
using memory::desktop;
using unit::Texts;

class FindBox : public unit::LoadedMainWindow {
 protected:
  FindBox() {
    addDataFile(L"C:\\field\\", L"North 1.fp3");
    addDataFile(L"C:\\field\\", L"South 2.fp3");
    addDataFile(L"D:\\office\\", L"North 3.fp3", L"Plotview Inventory");
    addWebEntry(L"Weather", L"http://weather.example/");
    addWebEntry(L"Fuel tables", L"http://tables.example/");
    switchTo(frmQMK::open);
  }

  void type(const std::wstring& text) { window.txtFind.acceptTyped(text); }
  bool press(int key) { return window.txtFind.fireKey({key}); }

  [[nodiscard]] Texts shown(int tab = frmQMK::open) const {
    const controls::ListView& asked = window.lstQMK.at(static_cast<std::size_t>(tab));
    Texts texts;
    for (std::size_t row = 0; row < asked.rows(); ++row) {
      texts.emplace_back(asked.rowCell(row, 0));
    }
    return texts;
  }

  controls::ListView& list = window.lstQMK[frmQMK::open];
};

TEST_F(FindBox, SaysWhatItIsFor) {
  EXPECT_EQ(window.txtFind.cue(), L"Find");
  EXPECT_EQ(window.txtFind.accessibleName(), L"Find");
  EXPECT_EQ(window.cmdClearFind.accessibleName(), L"Clear");
}

TEST_F(FindBox, NarrowsTheListOfTheTabInFront) {
  type(L"north");
  EXPECT_EQ(shown(), (Texts{L"North 1.fp3", L"North 3.fp3"}));
  EXPECT_EQ(shown(frmQMK::web).size(), 2U);
  type(L"north office");
  EXPECT_EQ(shown(), (Texts{L"North 3.fp3"}));
}

TEST_F(FindBox, TheTypeAndTheDateCountTheHiddenCodeDoesNot) {
  type(L"inventory");
  EXPECT_EQ(shown(), (Texts{L"North 3.fp3"}));
  type(L"11/20/2026");
  EXPECT_EQ(shown().size(), 3U);
  list.setSubItem(0, 4, L"CODE");
  type(L"code");
  EXPECT_EQ(shown(), Texts{});
}

TEST_F(FindBox, OnTheWebTabTheAddressCounts) {
  switchTo(frmQMK::web);
  type(L"tables.ex");
  EXPECT_EQ(shown(frmQMK::web), (Texts{L"Fuel tables"}));
}

TEST_F(FindBox, EachTabKeepsItsOwnText) {
  type(L"north");
  switchTo(frmQMK::web);
  EXPECT_EQ(window.txtFind.text(), L"");
  EXPECT_FALSE(window.cmdClearFind.visible());
  type(L"fuel");
  switchTo(frmQMK::open);
  EXPECT_EQ(window.txtFind.text(), L"north");
  EXPECT_TRUE(window.cmdClearFind.visible());
  EXPECT_EQ(shown().size(), 2U);
  switchTo(frmQMK::web);
  EXPECT_EQ(window.txtFind.text(), L"fuel");
}

TEST_F(FindBox, SortsAndViewsKeepIt) {
  type(L"north");
  window.lstQMK_ColumnClick(frmQMK::open, 1);
  EXPECT_EQ(shown().size(), 2U);
  window.mnuIcon_Click();
  EXPECT_EQ(shown().size(), 2U);
  EXPECT_EQ(window.txtFind.text(), L"north");
}

TEST_F(FindBox, TheXClearsIt) {
  EXPECT_FALSE(window.cmdClearFind.visible());
  type(L"north");
  EXPECT_TRUE(window.cmdClearFind.visible());
  RecordingPeer peer(window.txtFind);
  window.cmdClearFind.fireClick();
  EXPECT_EQ(window.txtFind.text(), L"");
  EXPECT_FALSE(window.cmdClearFind.visible());
  EXPECT_EQ(shown().size(), 3U);
  EXPECT_EQ(peer.take(), (std::vector<Change>{Change::value, Change::focus}));
}

TEST_F(FindBox, TheXLightsUpUnderThePointer) {
  const auto calm = window.cmdClearFind.backColor();
  window.cmdClearFind.firePointerEnter();
  EXPECT_NE(window.cmdClearFind.backColor(), calm);
  window.cmdClearFind.firePointerLeave();
  EXPECT_EQ(window.cmdClearFind.backColor(), calm);
  EXPECT_FALSE(window.cmdClearFind.tabStop);
}

TEST_F(FindBox, ControlFGoesThereAndSelectsTheText) {
  RecordingPeer peer(window.txtFind);
  EXPECT_TRUE(window.fireKeyDown({.key = 'F', .control = true}));
  EXPECT_EQ(peer.take(), (std::vector<Change>{Change::selection}));
  EXPECT_FALSE(window.fireKeyDown({.key = 'F'}));
}

TEST_F(FindBox, DownGoesToTheList) {
  RecordingListPeer peer(list);
  EXPECT_TRUE(press(keys::down));
  EXPECT_EQ(peer.take(), (std::vector<Change>{Change::focus}));
}

TEST_F(FindBox, EscEmptiesItAndOnceMoreGoesToTheList) {
  type(L"north");
  RecordingListPeer peer(list);
  EXPECT_TRUE(press(keys::escape));
  EXPECT_EQ(window.txtFind.text(), L"");
  EXPECT_EQ(shown().size(), 3U);
  EXPECT_EQ(peer.take(), (std::vector<Change>{Change::items, Change::selection}));
  EXPECT_TRUE(press(keys::escape));
  EXPECT_EQ(peer.take(), (std::vector<Change>{Change::focus}));
}

TEST_F(FindBox, EnterOpensAsInTheList) {
  desktop().putProgram(L"C:\\App\\plv3.exe");
  desktop().putFile(L"D:\\office\\North 3.fp3", "x");
  type(L"office");
  EXPECT_TRUE(press(keys::enter));
  ASSERT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(desktop().starts[0].commandLine, L"C:\\App\\plv3.exe D:\\office\\North?3.fp3");
}

TEST_F(FindBox, OtherKeysAreForTheBox) {
  for (const int key : {keys::remove, keys::insert, keys::f2, keys::tab, static_cast<int>('A')}) {
    EXPECT_FALSE(press(key));
  }
  EXPECT_FALSE(window.txtFind.fireKey({.key = keys::enter, .alt = true}));
}

TEST_F(FindBox, WhereNothingMatchesOpeningRenamingAndDeletingDoNothing) {
  for (const int tab : {frmQMK::tools, frmQMK::open, frmQMK::newFiles, frmQMK::web}) {
    switchTo(tab);
    controls::ListView& current = window.lstQMK.at(static_cast<std::size_t>(tab));
    if (current.count() == 0) {
      current.add(L"Item", L"", {L"", L"", L""});
    }
    type(L"no such thing");
    desktop().clearJournal();
    window.lstQMK_DblClick(tab);
    window.mnuRename_Click();
    window.mnuDelete_Click();
    window.editName(tab);
    press(keys::enter);
    EXPECT_EQ(desktop().journal(), Texts{}) << tab;
    EXPECT_FALSE(current.nameEditor());
    EXPECT_EQ(current.emptyText(), L"Nothing matches");
  }
}

TEST_F(FindBox, CommandsActOnTheFirstRowWhenTheSelectionIsNarrowedAway) {
  list.select(0);
  type(L"south");
  desktop().answers = {platform::dialogs::Answer::no};
  window.mnuDelete_Click();
  EXPECT_EQ(onlyMessage(), L"Are your sure you want to delete SOUTH 2.FP3");
}

TEST_F(FindBox, ARenameInANarrowedListWritesEveryItem) {
  desktop().putFile(L"C:\\field\\South 2.fp3", "x");
  desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                    "\"fp3\",\"C:\\field\\North 1.fp3\",\"1\"\r\n"
                    "\"fp3\",\"C:\\field\\South 2.fp3\",\"2\"\r\n"
                    "\"fp3\",\"D:\\office\\North 3.fp3\",\"3\"\r\n");
  modQMKGeneral::LoadCatalogueView(window.catalogue);
  type(L"south");
  desktop().inputAnswers = {L"East 2"};
  window.mnuRename_Click();
  EXPECT_EQ(desktop().bytesOf(L"C:\\App\\QMKFileList3.txt"),
            "\"fp3\",\"C:\\field\\East 2.FP3\",\"2\"\r\n"
            "\"fp3\",\"C:\\field\\North 1.fp3\",\"1\"\r\n"
            "\"fp3\",\"D:\\office\\North 3.fp3\",\"3\"\r\n");
  EXPECT_EQ(window.txtFind.text(), L"south");
  EXPECT_EQ(shown(), Texts{}) << "It has another name now";
}

TEST_F(FindBox, TheWebDialogChangesTheEntryThatItIsAbout) {
  desktop().putFile(L"C:\\App\\QMKWebList.txt",
                    "\"Weather\",\"http://w/\"\r\n\"News\",\"http://n/\"\r\n");
  switchTo(frmQMK::web);
  modQMKGeneral::LoadWebList(window.webList);
  window.lstQMK[frmQMK::web].select(0);
  window.mnuRename_Click();
  type(L"news");
  window.webDialog()->txtName.setText(L"Storms");
  window.webDialog()->cmdOK.fireClick();
  EXPECT_EQ(desktop().bytesOf(L"C:\\App\\QMKWebList.txt"),
            "\"Storms\",\"http://w/\"\r\n\"News\",\"http://n/\"\r\n");
}

TEST_F(FindBox, AFailedRenameLeavesNoHiddenEntrySelected) {
  desktop().putFile(L"C:\\field\\North 1.fp3", "x");
  desktop().putFile(L"C:\\field\\Taken.FP3", "x");
  list.select(0);
  window.editName(frmQMK::open);
  type(L"south");
  list.fireNameTyped(L"Taken");
  EXPECT_TRUE(onlyMessage().starts_with(L"Problem saving to QMK list"));
  EXPECT_EQ(list.selectedRow(), 0U);
  EXPECT_EQ(list.text(list.selectedItem()), L"South 2.fp3");
}

TEST_F(FindBox, ALoadKeepsTheTextAndTheSelection) {
  desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                    "\"fp3\",\"C:\\field\\North 1.fp3\",\"1\"\r\n"
                    "\"fp3\",\"D:\\office\\North 3.fp3\",\"3\"\r\n");
  modQMKGeneral::LoadCatalogueView(window.catalogue);
  type(L"north");
  list.acceptSelectedRow(1);
  modQMKGeneral::LoadCatalogueView(window.catalogue);
  EXPECT_EQ(shown().size(), 2U);
  EXPECT_EQ(list.selectedRow(), 1U);
}

}  // namespace
