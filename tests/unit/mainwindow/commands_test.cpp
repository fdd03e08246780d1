// The table of commands, the keys, and commands that can be run at times only.
#include "mainwindow/commands.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "mainwindow/control_ids.h"
#include "unit/support/journal_order.h"
#include "unit/support/main_window_fixture.h"

namespace {

using controls::KeyStroke;
using mainwindow::Command;
using mainwindow::CommandObjects;
using mainwindow::CommandTable;
using mainwindow::Menu;
using mainwindow::Reach;
using mainwindow::tabOfKey;
using memory::desktop;

namespace keys = controls::keys;

// --- the table ---

TEST(CommandTableTest, NothingStandsThereTwice) {
  std::set<int> known;
  std::set<std::wstring> names;
  std::set<std::wstring> buttons;
  for (const Command& row : mainwindow::commandTable().rows) {
    EXPECT_TRUE(known.insert(row.id).second) << row.id;
    EXPECT_TRUE(names.insert(row.name).second) << row.id;
    EXPECT_NE(row.handler, nullptr) << row.id;
    EXPECT_STRNE(row.caption, L"") << row.id;
    if (row.button.key != nullptr) {
      EXPECT_TRUE(known.insert(row.button.id).second) << row.id;
      EXPECT_TRUE(buttons.insert(row.button.key).second) << row.id;
    }
  }
  const auto rows = mainwindow::commandTable().rows;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t k = i + 1; k < rows.size() && rows[i].key.stroke.key != 0; ++k) {
      EXPECT_FALSE(rows[i].key.stroke == rows[k].key.stroke) << rows[i].id << ' ' << rows[k].id;
    }
  }
}

TEST(CommandTableTest, TheListsNameRows) {
  const CommandTable& table = mainwindow::commandTable();
  std::set<int> known;
  std::set<int> withButton;
  for (const Command& row : table.rows) {
    known.insert(row.id);
    if (row.button.key != nullptr) {
      withButton.insert(row.id);
    }
  }
  for (const int id : table.toolbar) {
    EXPECT_TRUE(id == 0 || withButton.erase(id) == 1) << id;
  }
  EXPECT_EQ(withButton, std::set<int>{}) << "a button that stands nowhere";
  for (const auto& menu : table.contextMenus) {
    for (const int id : menu) {
      EXPECT_TRUE(id == 0 || known.count(id) == 1) << id;
    }
  }
}

// --- keys of the tabs ---

TEST(TabOfKeyTest, ControlAndADigitLeadToThatTab) {
  EXPECT_EQ(tabOfKey({'1', true}, 2, 4), 0);
  EXPECT_EQ(tabOfKey({'4', true}, 2, 4), 3);
  EXPECT_EQ(tabOfKey({'5', true}, 2, 4), std::nullopt);
  EXPECT_EQ(tabOfKey({'0', true}, 2, 4), std::nullopt);
  EXPECT_EQ(tabOfKey({'1'}, 2, 4), std::nullopt);
  EXPECT_EQ(tabOfKey({'1', true, true}, 2, 4), std::nullopt);
  EXPECT_EQ(tabOfKey({'1', true, false, true}, 2, 4), std::nullopt);
}

TEST(TabOfKeyTest, ControlAndTabGoRound) {
  EXPECT_EQ(tabOfKey({keys::tab, true}, 2, 4), 3);
  EXPECT_EQ(tabOfKey({keys::tab, true}, 3, 4), 0);
  EXPECT_EQ(tabOfKey({keys::tab, true, true}, 1, 4), 0);
  EXPECT_EQ(tabOfKey({keys::tab, true, true}, 0, 4), 3);
  EXPECT_EQ(tabOfKey({keys::tab}, 2, 4), std::nullopt);
  EXPECT_EQ(tabOfKey({keys::tab, true, false, true}, 2, 4), std::nullopt);
  EXPECT_EQ(tabOfKey({keys::tab, true}, 0, 0), std::nullopt) << "no tabs";
}

// --- keys of the window ---

class WindowKeys : public MainWindowTest {};

TEST_F(WindowKeys, F1ShowsTheHelp) {
  EXPECT_TRUE(window.fireKeyDown({keys::f1}));
  EXPECT_EQ(desktop().journal(),
            std::vector<std::wstring>{L"compiled help C:\\App\\help\\gatewayhelp3.chm"});
}

TEST_F(WindowKeys, TheTabKeysSwitchTheTab) {
  EXPECT_TRUE(window.fireKeyDown({'3', true}));
  EXPECT_EQ(window.TabMain.current(), 2);
  EXPECT_TRUE(window.fireKeyDown({keys::tab, true}));
  EXPECT_EQ(window.TabMain.current(), 3);
  EXPECT_TRUE(window.fireKeyDown({keys::tab, true, true}));
  EXPECT_EQ(window.TabMain.current(), 2);
}

TEST_F(WindowKeys, OthersAreLeftToTheControls) {
  addWebEntry(L"Weather", L"http://weather.example");
  for (const KeyStroke& stroke :
       {KeyStroke{keys::remove}, KeyStroke{keys::f2}, KeyStroke{keys::insert}, KeyStroke{keys::f5},
        KeyStroke{keys::f1, true}, KeyStroke{keys::f1, false, true}, KeyStroke{'A'}, KeyStroke{}}) {
    EXPECT_FALSE(window.fireKeyDown(stroke)) << stroke.key;
  }
  EXPECT_EQ(desktop().journal(), std::vector<std::wstring>{});
}

TEST_F(WindowKeys, WithOtherKeysHeldAKeyOfAListIsAnotherOne) {
  switchTo(frmQMK::web);
  addWebEntry(L"Weather", L"http://weather.example");
  desktop().clearJournal();
  for (const KeyStroke& stroke :
       {KeyStroke{keys::remove, true}, KeyStroke{keys::remove, false, true},
        KeyStroke{keys::insert, true}, KeyStroke{keys::f5, false, false, true}}) {
    window.lstQMK[frmQMK::web].fireKey(stroke);
  }
  EXPECT_EQ(desktop().journal(), std::vector<std::wstring>{});
}

TEST_F(WindowKeys, AKeyWhoseCommandFailsIsTaken) {
  window.TabMain.onSwitch = [](int /*former*/, int /*current*/) {
    throw platform::RunTimeError(platform::error::pathFileAccess);
  };
  EXPECT_TRUE(window.fireKeyDown({'2', true}));
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
}

// --- commands of another table ---

bool possible = false;
std::vector<int> ran;

void note(frmQMK& /*form*/, int list) { ran.push_back(list); }

constexpr int plain = 9001;
constexpr int timely = 9002;
constexpr int secret = 9003;

constexpr std::array rows{
    Command{.id = plain,
            .name = L"mnuPlain",
            .caption = L"Plain",
            .menu = Menu::view,
            .handler = note,
            .onTab = {{{.enabled = false}, {.enabled = true}, {L"On New"}, {}}}},
    Command{.id = timely,
            .name = L"mnuTimely",
            .caption = L"Timely",
            .menu = Menu::edit,
            .button = {L"Timely", 9102, L"picture", L"RESOURCE", L"Only at times"},
            .key = {{'T', true}, Reach::window},
            .handler = note,
            .available = [](const frmQMK& /*form*/) { return possible; },
            .onTab = {{{}, {}, {nullptr, L"On New", false}, {}}}},
    Command{.id = secret,
            .name = L"mnuSecret",
            .caption = L"Secret",
            .key = {{'S', true, true}},
            .handler = note},
};
constexpr std::array toolbar{timely};
constexpr std::array contextMenu{plain, 0, secret};
constexpr CommandTable table{rows, toolbar, {contextMenu, {}, {}, {}}};

// The main window's toolbar and menus have no command of these: the objects stand beside it.
class OtherCommands : public MainWindowTest {
 protected:
  OtherCommands() {
    possible = false;
    ran.clear();
    commands.addButtons();
  }
  controls::Toolbar bar{L"bar", 1};
  CommandObjects commands{window, bar, table};
};

TEST_F(OtherCommands, AContextMenuIsAListOfItsOwn) {
  const auto& entries = commands.contextMenu(0).children();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0], &commands.item(plain));
  EXPECT_EQ(entries[1]->caption(), L"-");
  EXPECT_EQ(entries[2], &commands.item(secret));
  EXPECT_TRUE(commands.contextMenu(3).children().empty());
  for (const Menu menu : {Menu::file, Menu::edit, Menu::view, Menu::help}) {
    for (const controls::MenuItem* const entry : commands.menu(menu).children()) {
      EXPECT_NE(entry, &commands.item(secret)) << "it is in no menu";
    }
  }
  EXPECT_EQ(commands.menu(Menu::view).children(), std::vector{&commands.item(plain)});
}

TEST_F(OtherCommands, TheFirstTabDecidesBeforeOneIsEntered) {
  EXPECT_FALSE(commands.enabled(plain));
  EXPECT_TRUE(commands.enabled(secret));
  commands.showTab(1);
  EXPECT_TRUE(commands.enabled(plain));
  commands.showTab(2);
  EXPECT_TRUE(commands.enabled(plain)) << "an empty cell keeps what was there";
  EXPECT_EQ(commands.item(plain).caption(), L"On New");
  commands.showTab(3);
  EXPECT_EQ(commands.item(plain).caption(), L"On New");
}

TEST_F(OtherCommands, OneThatCanBeRunAtTimesFollowsThem) {
  EXPECT_EQ(bar.button(L"Timely").toolTip, L"Only at times");
  EXPECT_FALSE(commands.enabled(timely));
  EXPECT_FALSE(bar.button(L"Timely").enabled);
  possible = true;
  commands.refresh();
  EXPECT_TRUE(commands.item(timely).enabled());
  EXPECT_TRUE(bar.button(L"Timely").enabled);
  EXPECT_TRUE(commands.enabled(timely));
}

TEST_F(OtherCommands, WhereTheTabRefusesItTheTimeDoesNotMatter) {
  possible = true;
  commands.showTab(2);
  EXPECT_FALSE(commands.enabled(timely));
  EXPECT_FALSE(bar.button(L"Timely").enabled);
  EXPECT_EQ(bar.button(L"Timely").toolTip, L"On New");
}

TEST_F(OtherCommands, TheTabThatAllowsItAsksForTheTime) {
  commands.showTab(1);
  EXPECT_FALSE(commands.enabled(timely)) << "not possible yet";
  possible = true;
  EXPECT_TRUE(commands.enabled(timely));
}

TEST_F(OtherCommands, AKeyRunsAnEnabledCommandForItsList) {
  EXPECT_TRUE(commands.press({'S', true, true}, Reach::list, 3));
  EXPECT_EQ(ran, std::vector<int>{3});
  EXPECT_FALSE(commands.press({'S', true, true}, Reach::window, 3)) << "of lists only";
  EXPECT_FALSE(commands.press({'S', true}, Reach::list, 3)) << "other keys held";
  EXPECT_TRUE(commands.press({'T', true}, Reach::window, 1)) << "disabled, but its key";
  EXPECT_EQ(ran, std::vector<int>{3});
  possible = true;
  EXPECT_TRUE(commands.press({'T', true}, Reach::window, 1));
  EXPECT_EQ(ran, (std::vector<int>{3, 1}));
  EXPECT_FALSE(commands.press({}, Reach::list, 0)) << "no key is no command's";
}

TEST_F(OtherCommands, AClickRunsItForTheTabInFront) {
  switchTo(2);
  commands.click(L"Timely");
  commands.item(secret).fireClick();
  commands.item(plain).fireClick();
  EXPECT_EQ(ran, (std::vector<int>{2, 2})) << "the disabled entry does nothing";
  commands.click(L"");
  commands.click(L"timely");
  EXPECT_EQ(ran.size(), 2U);
}

TEST_F(OtherCommands, TheButtonsGetTheirLooks) {
  controls::ImageList images;
  commands.addPictures(images);
  ASSERT_EQ(images.images().size(), 1U);
  EXPECT_EQ(images.images()[0].key, L"picture");
  EXPECT_EQ(images.images()[0].resource, L"RESOURCE");
}

TEST_F(OtherCommands, AnUnknownIdIsAnError) {
  for (const int id : {0, 1, 9102}) {
    EXPECT_THROW(static_cast<void>(commands.item(id)), platform::RunTimeError) << id;
    EXPECT_THROW(static_cast<void>(commands.enabled(id)), platform::RunTimeError) << id;
  }
}

// --- what a window is told of ---

class ToldWindow : public controls::Window {
 public:
  ToldWindow() : Window(L"frmTold", controls::WindowKind::frame) {}
  int openings = 0;

 protected:
  void Form_MenuOpening() override {
    ++openings;
    throw platform::RunTimeError(platform::error::pathFileAccess);
  }
};

class ToldWindowTest : public memory::DesktopTest {};

TEST_F(ToldWindowTest, IsToldOfAMenuAboutToOpenAndItsErrorsAreReported) {
  ToldWindow window;
  window.fireMenuOpening();
  EXPECT_EQ(window.openings, 1);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
}

TEST_F(ToldWindowTest, TakesNoKeysUnlessItSaysSo) {
  ToldWindow window;
  EXPECT_FALSE(window.fireKeyDown({keys::f1}));
}

}  // namespace
