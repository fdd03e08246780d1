// Which command a toolbar button, a key or a menu entry runs on each tab.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "configuration.h"
#include "mainwindow/control_ids.h"
#include "unit/support/journal_order.h"
#include "unit/support/links.h"
#include "unit/support/main_window_fixture.h"

namespace {

namespace keys = controls::keys;
using memory::desktop;
using platform::dialogs::Answer;

constexpr const wchar_t* toolQuestion =
    L"message Are your sure you want to delete the shortcut: NOTES.LNK";
constexpr const wchar_t* toolPrompt = L"input Rename shortcut Notes";
constexpr const wchar_t* filePrompt = L"input Rename file  A.FP3\rType: Fuel Profile";
constexpr const wchar_t* fileQuestion = L"message Are your sure you want to delete A.FP3";
constexpr const wchar_t* webQuestion = L"message Are your sure you want to delete WEATHER";

/// Every list has an entry and every question is refused, so that the journal shows which command
/// ran and nothing else changes.
class RoutingTest : public MainWindowTest {
 protected:
  RoutingTest() {
    desktop().putLink(modQMKGeneral::ShortCutsFolder + L"\\Notes.lnk", linkTo(L"C:\\n.exe"));
    modSC::LoadShortcutList(window.shortcuts);
    addDataFile(L"C:\\Data\\", L"a.fp3");
    modQMKGeneral::AddNewFileItems(window.catalogue);
    addWebEntry(L"Weather", L"http://weather.example");
    desktop().clearJournal();
  }

  /// The journal after a command whose questions are all refused.
  std::vector<std::wstring> refused(const std::function<void()>& command) {
    desktop().clearJournal();
    desktop().answers = {Answer::no};
    desktop().inputAnswers = {L""};
    desktop().fileDialogResults = {platform::error::cancelled};
    command();
    desktop().answers.clear();
    desktop().inputAnswers.clear();
    desktop().fileDialogResults.clear();
    if (window.webDialog() != nullptr) {
      window.webDialog()->unload();
    }
    return desktop().journal();
  }
};

using Journal = std::vector<std::wstring>;

struct Route {
  int tab;
  Journal create;
  Journal rename;
  Journal remove;
};

const std::vector<Route>& routes() {
  static const std::vector<Route> all{
      {frmQMK::tools, {L"open file dialog failed 32755"}, {toolPrompt}, {toolQuestion}},
      {frmQMK::open, {}, {filePrompt}, {fileQuestion}},
      {frmQMK::newFiles, {}, {}, {}},
      {frmQMK::web,
       {L"create frmWeb", L"show frmWeb", L"destroy frmWeb"},
       {L"create frmWeb", L"show frmWeb", L"destroy frmWeb"},
       {webQuestion}},
  };
  return all;
}

TEST_F(RoutingTest, TheMenuCommandsDoWhatTheTabInFrontSays) {
  for (const Route& route : routes()) {
    SCOPED_TRACE(route.tab);
    switchTo(route.tab);
    EXPECT_EQ(refused([this] { window.mnuCreate_Click(); }), route.create);
    EXPECT_EQ(refused([this] { window.mnuRename_Click(); }), route.rename);
    EXPECT_EQ(refused([this] { window.mnuDelete_Click(); }), route.remove);
  }
}

TEST_F(RoutingTest, TheToolbarButtonsRunTheMenuCommands) {
  for (const Route& route : routes()) {
    SCOPED_TRACE(route.tab);
    switchTo(route.tab);
    const auto click = [this](const wchar_t* key) {
      return refused([this, key] { window.barMain.fireButtonClick(key); });
    };
    EXPECT_EQ(click(L"Create"), route.create);
    EXPECT_EQ(click(L"Rename"), route.rename);
    EXPECT_EQ(click(L"Delete"), route.remove);
  }
}

TEST_F(RoutingTest, DeleteAndInsertOnAListRunTheMenuCommands) {
  for (const Route& route : routes()) {
    SCOPED_TRACE(route.tab);
    switchTo(route.tab);
    const auto press = [&](int key) {
      return refused([&] { window.lstQMK.at(static_cast<std::size_t>(route.tab)).fireKey({key}); });
    };
    EXPECT_EQ(press(keys::insert), route.create);
    EXPECT_EQ(press(keys::remove), route.remove);
  }
}

TEST_F(RoutingTest, KeysDoNothingWhereTheirCommandIsDisabled) {
  window.mnuCreate.setEnabled(false);
  window.commands.item(ids::mnuEditName).setEnabled(false);
  window.mnuDelete.setEnabled(false);
  for (const int key : {keys::insert, keys::f2, keys::remove}) {
    EXPECT_EQ(refused([&] { window.lstQMK[frmQMK::tools].fireKey({key}); }), Journal{});
    EXPECT_FALSE(window.lstQMK[frmQMK::tools].nameEditor());
  }
}

TEST_F(RoutingTest, TheTabsCaptionDecidesNotItsPlace) {
  window.TabMain.addTab(L"Tools");
  switchTo(4);
  EXPECT_EQ(refused([this] { window.mnuCreate_Click(); }), routes()[0].create);
  EXPECT_EQ(refused([this] { window.mnuRename_Click(); }), routes()[0].rename);
  EXPECT_EQ(refused([this] { window.mnuDelete_Click(); }), routes()[0].remove);
}

TEST_F(RoutingTest, ACaptionThatDiffersOnlyInLetterCaseIsNoCommand) {
  int tab = 4;
  for (const wchar_t* const caption : {L"tools", L"TOOLS", L"open", L"WEB", L"web", L"Web ", L""}) {
    window.TabMain.addTab(caption);
    switchTo(tab++);
    EXPECT_EQ(refused([this] { window.mnuCreate_Click(); }), Journal{});
    EXPECT_EQ(refused([this] { window.mnuRename_Click(); }), Journal{});
    EXPECT_EQ(refused([this] { window.mnuDelete_Click(); }), Journal{});
  }
}

TEST_F(RoutingTest, ExitAndHelpAndTheViewModesAreReachedFromTheToolbar) {
  EXPECT_EQ(refused([this] { window.barMain.fireButtonClick(L"Exit"); }),
            Journal{L"message Exit Gateway?"});
  EXPECT_EQ(refused([this] { window.barMain.fireButtonClick(L"Help"); }),
            Journal{L"compiled help C:\\App\\help\\gatewayhelp3.chm"});
  window.barMain.fireButtonClick(L"List");
  EXPECT_EQ(window.lstQMK[frmQMK::tools].view(), controls::reportView);
  window.barMain.fireButtonClick(L"Icon");
  EXPECT_EQ(window.lstQMK[frmQMK::tools].view(), controls::iconView);
}

TEST_F(RoutingTest, AKeyThatDiffersOnlyInLetterCaseDoesNothing) {
  for (const wchar_t* const key : {L"create", L"CREATE", L"rename", L"delete", L"exit", L"help",
                                   L"icon", L"list", L"Create ", L"", L"Unknown"}) {
    EXPECT_EQ(refused([&] { window.barMain_ButtonClick(key); }), Journal{})
        << ::testing::PrintToString(key);
    EXPECT_TRUE(window.mnuIcon.checked());
  }
}

// --- F5 ---

TEST_F(RoutingTest, F5ReloadsTheShortcuts) {
  desktop().putLink(modQMKGeneral::ShortCutsFolder + L"\\More.lnk", linkTo(L"C:\\m.exe"));
  window.lstQMK[frmQMK::tools].fireKey({keys::f5});
  EXPECT_EQ(window.lstQMK[frmQMK::tools].count(), 2U);
}

TEST_F(RoutingTest, F5ReloadsTheDataFiles) {
  desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                    "\"FP3\",\"C:\\x\\b.fp3\",\"1\"\r\n\"FP3\",\"C:\\x\\c.fp3\",\"2\"\r\n");
  switchTo(frmQMK::open);
  window.lstQMK[frmQMK::open].fireKey({keys::f5});
  ASSERT_EQ(window.lstQMK[frmQMK::open].count(), 2U);
  EXPECT_EQ(window.lstQMK[frmQMK::open].text(0), L"b.fp3");
}

TEST_F(RoutingTest, F5ReloadsTheWebShortcuts) {
  desktop().putFile(L"C:\\App\\QMKWebList.txt", "\"One\",\"u\"\r\n\"Two\",\"v\"\r\n");
  switchTo(frmQMK::web);
  window.lstQMK[frmQMK::web].fireKey({keys::f5});
  EXPECT_EQ(window.lstQMK[frmQMK::web].count(), 2U);
}

TEST_F(RoutingTest, F5LeavesTheNewFilesAsTheyAre) {
  switchTo(frmQMK::newFiles);
  window.lstQMK[frmQMK::newFiles].fireKey({keys::f5});
  EXPECT_EQ(window.lstQMK[frmQMK::newFiles].count(), 4U);
}

// --- double-clicks ---

TEST_F(RoutingTest, ADoubleClickOpensWhatItsOwnListHolds) {
  desktop().putProgram(L"C:\\n.exe");
  desktop().putProgram(L"C:\\App\\plv3.exe");
  desktop().putFile(L"C:\\Data\\a.fp3", "profile");
  desktop().putFile(L"C:\\App\\QMKFileList3.txt", "\"FP3\",\"C:\\Data\\a.fp3\",\"1\"\r\n");

  window.lstQMK[frmQMK::tools].fireDoubleClick();
  window.lstQMK[frmQMK::open].fireDoubleClick();
  window.lstQMK[frmQMK::newFiles].fireDoubleClick();
  window.lstQMK[frmQMK::web].fireDoubleClick();

  const std::vector<memory::Start> expected{
      {L"C:\\n.exe", L"C:\\n.exe"},
      {L"C:\\App\\plv3.exe", L"C:\\App\\plv3.exe C:\\Data\\a.fp3"},
      {L"C:\\App\\plv3.exe", L"C:\\App\\plv3.exe #NEW#"}};
  EXPECT_EQ(desktop().starts, expected);
  ASSERT_EQ(desktop().browsed.size(), 1U);
  EXPECT_EQ(desktop().browsed.front().address, L"http://weather.example");
  EXPECT_EQ(desktop().browsed.front().showCommand, 0);
}

TEST_F(RoutingTest, ADoubleClickOnAnEmptyListDoesNothing) {
  for (auto& list : window.lstQMK) {
    list.clear();
    list.fireDoubleClick();
  }
  EXPECT_TRUE(desktop().journal().empty());
}

// --- the Help menu ---

TEST_F(RoutingTest, WebBasedSupportOpensTheHomePage) {
  window.mnuWeb.fireClick();
  ASSERT_EQ(desktop().browsed.size(), 1U);
  EXPECT_EQ(desktop().browsed.front().address, configuration::homePage);
}

TEST_F(RoutingTest, HelpContentsOpensTheHelp) {
  desktop().putFile(L"C:\\App\\help\\gatewayhelp3.HLP", "help");
  window.mnuHelpContents.fireClick();
  EXPECT_TRUE(desktop().journalHas(L"classic help C:\\App\\help\\gatewayhelp3.HLP"));
}

TEST_F(RoutingTest, AboutShowsTheAboutBoxAndTheNextTimeBringsItForward) {
  window.mnuAbout.fireClick();
  EXPECT_EQ(desktop().shown(L"frmAbout"), 1);
  window.mnuAbout.fireClick();
  EXPECT_EQ(desktop().shown(L"frmAbout"), 1);
  EXPECT_EQ(desktop().activated(L"frmAbout"), 1);
  window.aboutBox()->unload();
  window.mnuAbout.fireClick();
  EXPECT_EQ(desktop().shown(L"frmAbout"), 2);
}

// --- the browse button ---

TEST_F(RoutingTest, TheBrowseButtonAsksForADataFile) {
  switchTo(frmQMK::open);
  EXPECT_EQ(refused([this] { window.cmdBrowse.fireClick(); }),
            Journal{L"open file dialog failed 32755"});
}

// --- the watch ---

TEST_F(RoutingTest, TheWatchReloadsTheDataFilesAtItsFirstTick) {
  desktop().putFile(L"C:\\App\\QMKFileList3.txt", "\"FP3\",\"C:\\x\\b.fp3\",\"1\"\r\n");
  window.tmrFileUpdate.setEnabled(true);
  desktop().advance(1000);
  ASSERT_EQ(window.lstQMK[frmQMK::open].count(), 1U);
  EXPECT_EQ(window.lstQMK[frmQMK::open].text(0), L"b.fp3");
}

}  // namespace
