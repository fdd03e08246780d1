// Switches between the tabs: the captions of the commands, which of them are enabled, and which
// view mode is marked, read from the toolbar and the menus.
#include <array>
#include <optional>
#include <ostream>

#include "gateway_test.h"

namespace desktop_tests {
namespace {

/// A command that has a toolbar button and a menu entry.
struct Command {
  std::wstring caption;
  std::wstring tip;
  bool enabled = true;
  bool operator==(const Command&) const = default;
};

struct Commands {
  Command create;
  Command rename;
  Command remove;
  bool report = false;  ///< View mode, as marked.
  bool operator==(const Commands&) const = default;
};

void PrintTo(const Commands& commands, std::ostream* out) {
  for (const Command* each : {&commands.create, &commands.rename, &commands.remove}) {
    *out << '[' << harness::utf8(each->caption) << " | " << harness::utf8(each->tip) << " | "
         << (each->enabled ? "enabled" : "disabled") << "] ";
  }
  *out << (commands.report ? "List" : "Icon");
}

class TabWalk : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    app->writeCatalogue("");
    app->startToMain();
  }

  /// The state of a command; button and menu entry must agree on whether it is enabled.
  [[nodiscard]] Command command(int menuId, int buttonId) const {
    const harness::MenuEntry entry = harness::menuEntry(app->main(), menuId);
    EXPECT_EQ(entry.enabled, app->toolbar().button(buttonId).enabled)
        << harness::utf8(entry.caption);
    return {entry.caption, app->toolbar().toolTip(buttonId), entry.enabled};
  }

  /// The state of everything; exactly one view mode must be marked, in both places.
  [[nodiscard]] Commands shown() const {
    const harness::ToolbarReader::Button icon = app->toolbar().button(ids::buttonIcon);
    const harness::ToolbarReader::Button list = app->toolbar().button(ids::buttonList);
    const harness::MenuEntry iconEntry = harness::menuEntry(app->main(), ids::mnuIcon);
    const harness::MenuEntry listEntry = harness::menuEntry(app->main(), ids::mnuList);
    EXPECT_NE(icon.pressed, list.pressed);
    EXPECT_EQ(icon.pressed, iconEntry.checked);
    EXPECT_EQ(list.pressed, listEntry.checked);
    EXPECT_TRUE(icon.enabled && list.enabled && iconEntry.enabled && listEntry.enabled);
    return {command(ids::mnuCreate, ids::buttonCreate), command(ids::mnuRename, ids::buttonRename),
            command(ids::mnuDelete, ids::buttonDelete), list.pressed};
  }

  /// The expected state after entering a tab, from the state that the previous tab left.
  static Commands after(Commands left, int tab) {
    switch (tab) {
      case Tab::tools:
        return {{L"Create Shortcut", L"Create shortcut", true},
                {L"Rename Shortcut", L"Rename shortcut", true},
                {L"Delete Shortcut", L"Delete shortcut", true},
                false};
      case Tab::open:
        left.create.enabled = false;
        left.rename = {L"Rename File", L"Rename File", true};
        left.remove = {L"Delete File", L"Delete File", true};
        left.report = true;
        return left;
      case Tab::newFile:
        left.create = {L"Create", left.create.tip, false};
        left.rename = {L"Rename", left.rename.tip, false};
        left.remove = {L"Delete", left.remove.tip, false};
        left.report = false;
        return left;
      default:
        return {{L"Create Web Shortcut", L"Create web shortcut", true},
                {L"Rename Web Shortcut", L"Rename web shortcut", true},
                {L"Delete Web Shortcut", L"Delete web shortcut", true},
                true};
    }
  }

  void walk(const std::vector<int>& tabs) const {
    Commands expected{{L"Create", L"Create a file or shortcut", true},
                      {L"Rename", L"Rename file or shortcut", true},
                      {L"Delete File", L"Delete File or Shortcut", true},
                      false};
    EXPECT_EQ(shown(), expected);
    std::string way = "way: 0";
    for (const int tab : tabs) {
      app->selectTab(tab);
      way += ' ';
      way += std::to_string(tab);
      expected = after(expected, tab);
      // The list comes to the front first.
      EXPECT_TRUE(eventually([&] { return shown(); }, expected, 2000)) << way;
    }
  }

  void clickButton(int id) const {
    harness::bringToFront(app->main());
    harness::clickAt(harness::centreOf(app->toolbar().buttonOnScreen(id)), app->main());
  }

  /// Checks that a tab's list shows that view and that both places mark it.
  void expectView(int tab, bool report) const {
    EXPECT_TRUE(
        eventually([&] { return app->list(tab).view(); }, report ? LV_VIEW_DETAILS : LV_VIEW_ICON))
        << "tab " << tab;
    EXPECT_TRUE(eventually([&] { return app->toolbar().button(ids::buttonList).pressed; }, report));
    EXPECT_EQ(shown().report, report) << "tab " << tab;
  }
};

TEST_F(TabWalk, EveryPairOfTabsInBothDirections) {
  walk({Tab::open, Tab::tools, Tab::newFile, Tab::tools, Tab::web, Tab::open, Tab::newFile,
        Tab::open, Tab::web, Tab::newFile, Tab::web, Tab::tools});
}

TEST_F(TabWalk, WhatATabLeavesAloneStaysOverSeveralTabs) {
  // "New" sets no tool tips, and "Open" none for Create, so those of start-up, or later of the Web
  // tab, stay.
  walk({Tab::newFile, Tab::open, Tab::newFile, Tab::web, Tab::newFile, Tab::open, Tab::newFile,
        Tab::tools, Tab::newFile, Tab::open});
}

TEST_F(TabWalk, AViewModeIsRememberedByItsTab) {
  clickButton(ids::buttonList);
  expectView(Tab::tools, true);
  app->selectTab(Tab::open);
  expectView(Tab::open, true);
  clickButton(ids::buttonIcon);
  expectView(Tab::open, false);
  app->selectTab(Tab::newFile);
  expectView(Tab::newFile, false);
  app->command(ids::mnuList);
  expectView(Tab::newFile, true);
  app->selectTab(Tab::open);
  expectView(Tab::open, false);
  app->selectTab(Tab::tools);
  expectView(Tab::tools, true);
  app->command(ids::mnuIcon);
  expectView(Tab::tools, false);
  app->selectTab(Tab::newFile);
  expectView(Tab::newFile, true);
  app->selectTab(Tab::tools);
  expectView(Tab::tools, false);
}

TEST_F(TabWalk, APressedViewButtonStaysPressed) {
  clickButton(ids::buttonList);
  expectView(Tab::tools, true);
  clickButton(ids::buttonList);
  clickButton(ids::buttonIcon);
  expectView(Tab::tools, false);
  clickButton(ids::buttonIcon);
  clickButton(ids::buttonList);
  expectView(Tab::tools, true);
  clickButton(ids::buttonList);
  harness::send(app->main(), WM_NULL);
  expectView(Tab::tools, true);
}

TEST_F(TabWalk, TheWebTabAlwaysBeginsWithItsColumns) {
  app->selectTab(Tab::web);
  expectView(Tab::web, true);
  clickButton(ids::buttonIcon);
  expectView(Tab::web, false);
  app->selectTab(Tab::newFile);
  expectView(Tab::newFile, false);
  app->selectTab(Tab::web);
  expectView(Tab::web, true);
  app->selectTab(Tab::tools);
  expectView(Tab::tools, false);
}

}  // namespace
}  // namespace desktop_tests
