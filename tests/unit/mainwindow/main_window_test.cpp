#include "mainwindow/main_window.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "unit/support/error_number.h"
#include "unit/support/journal_order.h"
#include "unit/support/main_window_fixture.h"

namespace {

using memory::desktop;

/// The window as designed, before its load.
class DesignedMainWindowTest : public memory::DesktopTest {
 protected:
  DesignedMainWindowTest() { modQMKGeneral::InitUserFolders(); }
  frmQMK window;
};

// --- as designed ---

TEST_F(DesignedMainWindowTest, HasFourTabsInTheirOrder) {
  const std::vector<std::wstring> expected{L"Tools", L"Open", L"New", L"Web"};
  EXPECT_EQ(window.TabMain.captions(), expected);
  EXPECT_EQ(window.TabMain.current(), 0);
}

struct ToolbarRow {
  std::wstring key;
  std::wstring toolTip;
  bool operator==(const ToolbarRow&) const = default;
};

void PrintTo(const ToolbarRow& row, std::ostream* out) {
  *out << ::testing::PrintToString(row.key) << " " << ::testing::PrintToString(row.toolTip);
}

TEST_F(DesignedMainWindowTest, HasTheToolbarButtonsInTheirOrderWithSeparatorsBetweenTheGroups) {
  std::vector<ToolbarRow> found;
  for (const auto& button : window.barMain.buttons()) {
    found.push_back({button.key, button.toolTip});
  }
  const ToolbarRow separator{L"", L""};
  const std::vector<ToolbarRow> expected{
      {L"Delete", L"Delete File or Shortcut"},
      {L"Rename", L"Rename file or shortcut"},
      {L"Create", L"Create a file or shortcut"},
      separator,
      {L"Icon", L"Icon view mode"},
      {L"List", L"List view mode"},
      separator,
      {L"Exit", L"Exit Quillmark Suite"},
      separator,
      {L"Help", L"Obtain assistance"},
  };
  EXPECT_EQ(found, expected);
}

TEST_F(DesignedMainWindowTest, ToolbarButtonsHaveNeitherPictureNorCaptionYet) {
  EXPECT_EQ(window.barMain.images(), nullptr);
  for (const auto& button : window.barMain.buttons()) {
    EXPECT_EQ(button.image, L"");
    EXPECT_EQ(button.caption, L"");
    EXPECT_TRUE(button.enabled);
  }
}

TEST_F(DesignedMainWindowTest, HasTheMenusWithTheirEntries) {
  using Entry = std::pair<std::wstring, std::wstring>;  // name and caption
  std::vector<std::vector<Entry>> found;
  for (const controls::MenuItem* const menu : window.menuBar()) {
    found.push_back({{menu->name(), menu->caption()}});
    for (const controls::MenuItem* const entry : menu->children()) {
      found.back().push_back({entry->name(), entry->caption()});
      // What is not for the first tab.
      const std::set<std::wstring> others{L"mnuRemoveFromList", L"mnuAddFiles",
                                          L"mnuAddList",        L"mnuSaveListAs",
                                          L"mnuEarlierLists",   L"mnuFindMoved"};
      EXPECT_EQ(entry->enabled(), !others.contains(entry->name()));
    }
  }
  const std::vector<std::vector<Entry>> expected{
      {{L"mnuFile", L"File"}, {L"mnuExit", L"Exit"}},
      {{L"mnuEdit", L"Edit"},
       {L"mnuCreate", L"Create"},
       {L"mnuRename", L"Rename"},
       {L"mnuDelete", L"Delete File"},
       {L"", L"-"},
       {L"mnuUndo", L"Undo"},
       {L"mnuRedo", L"Redo"},
       {L"", L"-"},
       {L"mnuCopy", L"Copy"},
       {L"mnuCopyPath", L"Copy Path"},
       {L"mnuPaste", L"Paste"},
       {L"mnuOpenFolder", L"Open Folder"},
       {L"mnuRemoveFromList", L"Remove from List"},
       {L"", L"-"},
       {L"mnuAddFiles", L"Add to List..."},
       {L"mnuAddList", L"Add List..."},
       {L"mnuSaveListAs", L"Save List As..."},
       {L"mnuEarlierLists", L"Earlier Lists..."},
       {L"mnuFindMoved", L"Find Moved Files..."}},
      {{L"mnuView", L"View"},
       {L"mnuList", L"List View"},
       {L"mnuIcon", L"Icon View"},
       {L"", L"-"},
       {L"mnuNewestFirst", L"Newest First"},
       {L"mnuFitColumns", L"Fit Columns"}},
      {{L"mnuHelp", L"Help"},
       {L"mnuHelpContents", L"Help Contents"},
       {L"mnuWeb", L"Web Based Support"},
       {L"mnuAbout", L"About"}},
  };
  EXPECT_EQ(found, expected);
}

TEST_F(DesignedMainWindowTest, TheWatchTicksOnceASecond) {
  EXPECT_EQ(window.tmrFileUpdate.interval(), 1000);
}

TEST_F(DesignedMainWindowTest, TheListsHaveNoColumnsBeforeTheSetUp) {
  window.load();
  for (const auto& list : window.lstQMK) {
    EXPECT_TRUE(list.columns().empty());
  }
}

// --- as loaded ---

TEST_F(DesignedMainWindowTest, TheLoadRemembersAViewModeForEachList) {
  window.load();
  EXPECT_EQ(window.lstQMK[frmQMK::tools].tag(), L"0");
  EXPECT_EQ(window.lstQMK[frmQMK::open].tag(), L"3");
  EXPECT_EQ(window.lstQMK[frmQMK::newFiles].tag(), L"0");
  EXPECT_EQ(window.lstQMK[frmQMK::web].tag(), L"3");
}

TEST_F(DesignedMainWindowTest, TheLoadPutsTheToolsIntoIconView) {
  window.lstQMK[frmQMK::tools].setView(controls::reportView);
  window.load();
  EXPECT_EQ(window.lstQMK[frmQMK::tools].view(), controls::iconView);
}

TEST_F(DesignedMainWindowTest, TheLoadRunsIconViewForTheTabInFront) {
  window.load();
  EXPECT_TRUE(window.mnuIcon.checked());
  EXPECT_FALSE(window.mnuList.checked());
  EXPECT_EQ(window.barMain.button(L"Icon").value, 1);
  EXPECT_EQ(window.barMain.button(L"List").value, 0);
}

TEST_F(DesignedMainWindowTest, TheLoadLeavesTheWindowHidden) {
  window.load();
  EXPECT_TRUE(window.loaded());
  EXPECT_FALSE(window.visible());
}

// --- as set up ---

using Columns = std::vector<std::pair<std::wstring, int>>;

Columns columnsOf(const controls::ListView& list) {
  Columns columns;
  for (const auto& column : list.columns()) {
    columns.emplace_back(column.text, column.widthTwips);
  }
  return columns;
}

TEST_F(MainWindowTest, TheToolsListHasThreeColumnsUnderHiddenHeaders) {
  const auto& list = window.lstQMK[frmQMK::tools];
  EXPECT_EQ(columnsOf(list), (Columns{{L"Path", 5000}, {L"EXE", 5000}, {L"Command", 0}}));
  EXPECT_TRUE(list.headersHidden());
}

TEST_F(MainWindowTest, TheOpenListHasFiveColumnsTheLastOfZeroWidthUnderHeaders) {
  const auto& list = window.lstQMK[frmQMK::open];
  EXPECT_EQ(columnsOf(list), (Columns{{L"Recently Used Files", 1500},
                                      {L"Last Modified", 2000},
                                      {L"Type", 3000},
                                      {L"Directory", 4000},
                                      {L"Type", 0}}));
  EXPECT_FALSE(list.headersHidden());
}

TEST_F(MainWindowTest, TheNewListHasTwoColumnsUnderHiddenHeaders) {
  const auto& list = window.lstQMK[frmQMK::newFiles];
  EXPECT_EQ(columnsOf(list), (Columns{{L"Name", 5000}, {L"File Type", 0}}));
  EXPECT_TRUE(list.headersHidden());
}

TEST_F(MainWindowTest, TheWebListHasTwoColumnsUnderHeaders) {
  const auto& list = window.lstQMK[frmQMK::web];
  EXPECT_EQ(columnsOf(list), (Columns{{L"Name", 5000}, {L"Url", 5000}}));
  EXPECT_FALSE(list.headersHidden());
}

TEST_F(MainWindowTest, OpenAndWebShowDetailsToolsAndNewShowIcons) {
  switchTo(frmQMK::open);
  EXPECT_EQ(window.lstQMK[frmQMK::open].view(), controls::reportView);
  switchTo(frmQMK::newFiles);
  EXPECT_EQ(window.lstQMK[frmQMK::newFiles].view(), controls::iconView);
  switchTo(frmQMK::web);
  EXPECT_EQ(window.lstQMK[frmQMK::web].view(), controls::reportView);
  switchTo(frmQMK::tools);
  EXPECT_EQ(window.lstQMK[frmQMK::tools].view(), controls::iconView);
}

TEST_F(MainWindowTest, TheToolbarHasItsPicturesAndCaptions) {
  EXPECT_EQ(window.barMain.images(), &window.imgIcons[2]);
  const std::vector<std::array<const wchar_t*, 3>> looks{
      {L"Delete", L"Delete", L"Delete"}, {L"Rename", L"Rename", L"Rename"},
      {L"Create", L"Create", L"Create"}, {L"Icon", L"IconView", L"Icon"},
      {L"List", L"listview", L"List"},   {L"Exit", L"Exit", L"Exit"},
      {L"Help", L"Help", L"Help"}};
  for (const auto& [key, image, caption] : looks) {
    EXPECT_EQ(window.barMain.button(key).image, image);
    EXPECT_EQ(window.barMain.button(key).caption, caption);
    EXPECT_TRUE(window.imgIcons[2].indexOf(image)) << ::testing::PrintToString(image);
  }
}

TEST_F(MainWindowTest, ToolTipsAreTheDesignedOnesBeforeTheFirstSwitch) {
  EXPECT_EQ(window.barMain.button(L"Create").toolTip, L"Create a file or shortcut");
  EXPECT_EQ(window.mnuDelete.caption(), L"Delete File");
}

TEST_F(MainWindowTest, TheListsHavePicturesForEveryTypeAtBothSizes) {
  for (const int size : {0, 1}) {
    const auto& images = window.imgIcons.at(static_cast<std::size_t>(size));
    EXPECT_EQ(images.imageSize().width, size == 0 ? 32 : 16);
    for (const wchar_t* const key : {L"PV3", L"BW3", L"CW3", L"Web"}) {
      EXPECT_TRUE(images.indexOf(key)) << ::testing::PrintToString(key);
    }
  }
}

TEST_F(DesignedMainWindowTest, TheSetUpMakesAShortcutsFolderThatVanished) {
  desktop().take(modQMKGeneral::ShortCutsFolder);
  window.load();
  window.SetupMainWindow();
  EXPECT_TRUE(desktop().has(modQMKGeneral::ShortCutsFolder));
}

TEST_F(DesignedMainWindowTest, TheSetUpLeavesAnExistingShortcutsFolderAlone) {
  desktop().clearJournal();
  window.load();
  window.SetupMainWindow();
  EXPECT_EQ(linesBeginning(L"make folder"), 0U);
}

TEST_F(DesignedMainWindowTest, AShortcutsFolderThatCannotBeMadeStopsTheSetUp) {
  desktop().take(modQMKGeneral::UserFolder);
  window.load();
  EXPECT_EQ(errorNumberOf([this] { window.SetupMainWindow(); }), 76);
  EXPECT_TRUE(window.lstQMK[frmQMK::open].columns().empty());
}

// --- its title ---

TEST_F(MainWindowTest, ItsTitleIsTheProgramsName) {
  EXPECT_EQ(window.caption(), L"Quillmark Suite 3 Gateway");
}

TEST_F(MainWindowTest, ATitleChangedElsewhereDoesNotSurviveTheNextActivation) {
  window.setCaption(L"something else");
  window.fireActivate();
  EXPECT_EQ(window.caption(), L"Quillmark Suite 3 Gateway");
  window.setCaption(L"");
  window.fireActivate();
  EXPECT_EQ(window.caption(), L"Quillmark Suite 3 Gateway");
}

// --- keyboard and screen reader ---

TEST_F(MainWindowTest, EveryControlCanBeTold) {
  for (const controls::Control* const control : window.controls()) {
    const bool named = !control->accessibleName().empty() || !control->caption().empty();
    EXPECT_TRUE(named || control->kind() == controls::Kind::tab)
        << ::testing::PrintToString(control->name());
  }
}

}  // namespace
