// The program without a mouse: the order of the focus, the keys of the tabs, type-ahead, the lists'
// own menu.
#include "gateway_test.h"
#include "harness/link_file.h"

namespace desktop_tests {
namespace {

using harness::MenuEntry;

class Keyboard : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  /// Control id of the window with the focus, 0 when there is none.
  [[nodiscard]] int focused() const {
    HWND const focus = harness::focusIn(app->main());
    return focus == nullptr ? 0 : GetDlgCtrlID(focus);
  }
  [[nodiscard]] ::testing::AssertionResult focusComesTo(int id) const {
    return eventually([&] { return focused(); }, id);
  }
  /// Presses a key and waits until the focus is on `id`.
  void pressTo(WORD key, WORD held, int id) const {
    const int before = focused();
    harness::pressKey(key, held);
    EXPECT_TRUE(focusComesTo(id)) << "from " << before;
  }
  /// Makes a tab the current one and sets the focus to its list.
  void focusList(int tab) const {
    app->selectTab(tab);
    for (int press = 0; press < 5 && focused() != ids::lstQMK0 + tab; ++press) {
      const int before = focused();
      harness::pressKey(VK_TAB);
      harness::waitUntil("the focus moves on", [&] { return focused() != before; });
    }
    ASSERT_EQ(focused(), ids::lstQMK0 + tab);
  }
  /// Which tab is in front, and whether the list of `tab` is to be seen.
  [[nodiscard]] ::testing::AssertionResult showsTab(int tab) const {
    return eventually(
        [&] {
          return std::pair(app->tabs().current(),
                           IsWindowVisible(app->list(tab).window()) != FALSE);
        },
        std::pair(tab, true));
  }

  void addShortcut(const std::wstring& name) const {
    harness::LinkFile link;
    link.target = L"C:\\tools\\" + name + L".exe";
    harness::writeLink(app->shortCutsFolder() + L"\\" + name + L".lnk", link);
  }
};

TEST_F(Keyboard, TheListHasTheFocusAtTheStart) {
  addShortcut(L"Alder");
  app->startToMain();
  harness::bringToFront(app->main());
  EXPECT_TRUE(focusComesTo(ids::lstQMK0));
  // So a letter goes to a tool at once.
  harness::typeText(L"a");
  EXPECT_TRUE(eventually([&] { return app->list(Tab::tools).selected().has_value(); }, true));
  EXPECT_EQ(GetWindowTextLengthW(GetDlgItem(app->main(), ids::txtFind)), 0);
}

TEST_F(Keyboard, TheTabKeyGoesThroughTheControlsInReadingOrderAndBack) {
  app->startToMain();
  struct Way {
    int tab;
    std::vector<int> stops;
  };
  const std::vector<Way> ways{
      {Tab::tools, {ids::barMain, ids::TabMain, ids::txtFind, ids::lstQMK0}},
      {Tab::open, {ids::barMain, ids::TabMain, ids::txtFind, ids::lstQMK0 + 1, ids::cmdBrowse}},
      {Tab::newFile, {ids::barMain, ids::TabMain, ids::txtFind, ids::lstQMK0 + 2}},
      {Tab::web, {ids::barMain, ids::TabMain, ids::txtFind, ids::lstQMK0 + 3}},
  };
  for (const auto& [tab, stops] : ways) {
    SCOPED_TRACE("tab " + std::to_string(tab));
    focusList(tab);
    // Once around, starting at the list, forwards and backwards.
    const std::size_t count = stops.size();
    constexpr std::size_t listStop = 3;
    for (std::size_t step = 1; step <= count; ++step) {
      pressTo(VK_TAB, 0, stops[(listStop + step) % count]);
    }
    for (std::size_t step = 1; step <= count; ++step) {
      pressTo(VK_TAB, VK_SHIFT, stops[(listStop + count - step) % count]);
    }
  }
}

TEST_F(Keyboard, CtrlTabGoesRoundTheTabsAndTakesTheFocusAlong) {
  app->startToMain();
  focusList(Tab::tools);
  for (const int tab : {1, 2, 3, 0}) {
    harness::pressKey(VK_TAB, VK_CONTROL);
    EXPECT_TRUE(showsTab(tab)) << tab;
    EXPECT_TRUE(focusComesTo(ids::lstQMK0 + tab)) << tab;
  }
  for (const int tab : {3, 2, 1, 0}) {
    harness::pressKeys({VK_CONTROL, VK_SHIFT, VK_TAB});
    EXPECT_TRUE(showsTab(tab)) << tab;
    EXPECT_TRUE(focusComesTo(ids::lstQMK0 + tab)) << tab;
  }
}

TEST_F(Keyboard, CtrlAndADigitShowATab) {
  app->startToMain();
  focusList(Tab::tools);
  for (const int tab : {2, 0, 3, 1}) {
    harness::pressKey(static_cast<WORD>('1' + tab), VK_CONTROL);
    EXPECT_TRUE(showsTab(tab)) << tab;
    EXPECT_TRUE(focusComesTo(ids::lstQMK0 + tab)) << tab;
  }
  // There is no fifth tab.
  harness::pressKey('5', VK_CONTROL);
  harness::pressKey('1', VK_CONTROL);
  EXPECT_TRUE(showsTab(Tab::tools));
}

TEST_F(Keyboard, ArrowsOnTheTabsChangeTheTab) {
  app->startToMain();
  focusList(Tab::tools);
  pressTo(VK_TAB, VK_SHIFT, ids::txtFind);
  pressTo(VK_TAB, VK_SHIFT, ids::TabMain);
  harness::pressKey(VK_RIGHT);
  EXPECT_TRUE(showsTab(Tab::open));
  EXPECT_TRUE(focusComesTo(ids::TabMain));
  harness::pressKey(VK_LEFT);
  EXPECT_TRUE(showsTab(Tab::tools));
}

TEST_F(Keyboard, ToolbarButtonsArePressedByKey) {
  app->startToMain();
  focusList(Tab::tools);
  pressTo(VK_TAB, 0, ids::barMain);
  // Delete, Rename, Create, Icon, List.
  for (int step = 0; step < 4; ++step) {
    harness::pressKey(VK_RIGHT);
  }
  harness::pressKey(VK_SPACE);
  EXPECT_TRUE(eventually([&] { return app->toolbar().button(ids::buttonList).pressed; }, true));
  EXPECT_EQ(app->list(Tab::tools).view(), LV_VIEW_DETAILS);
}

TEST_F(Keyboard, EnterAndSpacePressTheBrowseButton) {
  app->startToMain();
  for (const WORD key : {WORD{VK_RETURN}, WORD{VK_SPACE}}) {
    focusList(Tab::open);
    pressTo(VK_TAB, 0, ids::cmdBrowse);
    harness::pressKey(key);
    app->waitForFileDialog().cancel();
  }
}

TEST_F(Keyboard, TypingFindsAnItemInEveryList) {
  for (const wchar_t* const name : {L"Alder", L"Birch", L"Cedar", L"Cherry"}) {
    addShortcut(name);
  }
  const auto file = [&](const wchar_t* name) {
    return record(L"FP3", app->addFileElsewhere(name));
  };
  app->writeCatalogue(file(L"north.fp3") + file(L"ridge.fp3") + file(L"river.fp3"));
  harness::writeFile(app->folder() + L"\\QMKWebList.txt",
                     "\"Maps\",\"http://m.example/\"\r\n\"Soil\",\"http://s.example/\"\r\n"
                     "\"Snow\",\"http://n.example/\"\r\n");
  app->startToMain();
  struct Search {
    int tab;
    const wchar_t* typed;
    const wchar_t* found;
  };
  for (const auto& [tab, typed, found] :
       {Search{Tab::tools, L"ch", L"Cherry"}, Search{Tab::open, L"riv", L"river.fp3"},
        Search{Tab::newFile, L"n", L"New Planar Intercept"}, Search{Tab::web, L"sn", L"Snow"}}) {
    SCOPED_TRACE(harness::utf8(found));
    focusList(tab);
    const harness::ListViewReader list = app->list(tab);
    harness::pressKey(VK_HOME);
    EXPECT_TRUE(eventually([&] { return list.selected(); }, 0));
    harness::typeText(typed);
    const auto wanted = list.find(found);
    ASSERT_TRUE(wanted);
    EXPECT_TRUE(eventually([&] { return list.selected(); }, wanted));
    EXPECT_EQ(list.focused(), wanted);
  }
}

/// Captions and enabled states of the Edit commands, as an open menu shows them.
std::vector<std::pair<std::wstring, bool>> openMenu() {
  std::vector<std::pair<std::wstring, bool>> shown;
  for (const MenuEntry& entry : harness::openMenuEntries()) {
    shown.emplace_back(entry.caption, entry.enabled);
  }
  return shown;
}

class ContextMenu : public Keyboard {
 protected:
  static void expectGone() {
    EXPECT_TRUE(eventually([] { return FindWindowW(L"#32768", nullptr); }, IsNull()));
  }
  /// The expected menu of a tab: the commands of the Edit menu, and what else the tab has. "" is a
  /// separator.
  static auto commandsOf(int tab) {
    std::vector<std::pair<std::wstring, bool>> commands;
    const auto add = [&commands](const std::vector<std::wstring>& captions, bool enabled = true) {
      for (const std::wstring& caption : captions) {
        commands.emplace_back(caption, enabled);
      }
    };
    switch (tab) {
      case Tab::tools:
        add({L"Create Shortcut", L"Rename Shortcut", L"Delete Shortcut", L"", L"Copy", L"Copy Path",
             L"Paste", L"Open Folder"});
        break;
      case Tab::open:
        add({L"Create Shortcut"}, false);
        add({L"Rename File", L"Delete File", L"", L"Copy", L"Copy Path", L"Paste", L"Open Folder",
             L"Remove from List", L"", L"Add to List...", L"Add List...", L"Save List As...",
             L"Earlier Lists..."});
        add({L"Find Moved Files..."}, false);  // none is missing
        break;
      case Tab::newFile:
        add({L"Create", L"Rename", L"Delete"}, false);
        break;
      default:
        add({L"Create Web Shortcut", L"Rename Web Shortcut", L"Delete Web Shortcut", L"", L"Copy",
             L"Copy Path", L"Paste", L"", L"Add List...", L"Save List As...", L"Earlier Lists..."});
        break;
    }
    return ::testing::ElementsAreArray(commands);
  }
  void fillAndStart() {
    addShortcut(L"Alder");
    app->writeCatalogue(record(L"FP3", app->addFileElsewhere(L"north.fp3")));
    harness::writeFile(app->folder() + L"\\QMKWebList.txt", "\"Maps\",\"http://m.example/\"\r\n");
    app->startToMain();
    // The captions of the Tools tab are set when a tab is entered.
    app->selectTab(Tab::web);
    app->selectTab(Tab::tools);
  }
};

TEST_F(ContextMenu, KeysShowTheCommandsOfTheTabInFront) {
  fillAndStart();
  for (const int tab : {Tab::tools, Tab::open, Tab::newFile, Tab::web}) {
    SCOPED_TRACE("tab " + std::to_string(tab));
    focusList(tab);
    harness::pressKey(VK_F10, VK_SHIFT);
    EXPECT_THAT(openMenu(), commandsOf(tab));
    harness::pressKey(VK_ESCAPE);
    expectGone();
    harness::pressKey(VK_APPS);
    EXPECT_THAT(openMenu(), commandsOf(tab));
    harness::pressKey(VK_ESCAPE);
    expectGone();
  }
}

TEST_F(ContextMenu, ARightClickSelectsAndShowsTheCommandsOfTheTabInFront) {
  fillAndStart();
  for (const int tab : {Tab::tools, Tab::open, Tab::newFile, Tab::web}) {
    SCOPED_TRACE("tab " + std::to_string(tab));
    app->selectTab(tab);
    const harness::ListViewReader list = app->list(tab);
    ASSERT_GE(list.count(), 1);
    const int row = list.count() - 1;
    harness::rightClickAt(harness::centreOf(list.textOnScreen(row)), app->main());
    EXPECT_THAT(openMenu(), commandsOf(tab));
    harness::pressKey(VK_ESCAPE);
    expectGone();
    EXPECT_EQ(list.selected(), row);
  }
}

TEST_F(ContextMenu, OnTheHeadersThereIsNone) {
  fillAndStart();
  app->selectTab(Tab::open);
  const harness::ListViewReader list = app->list(Tab::open);
  harness::rightClickAt(harness::centreOf(list.headerOnScreen(1)), app->main());
  harness::send(app->main(), WM_NULL);
  EXPECT_EQ(FindWindowW(L"#32768", nullptr), nullptr);
  // The list has its menu even so.
  harness::rightClickAt(harness::centreOf(list.textOnScreen(0)), app->main());
  EXPECT_THAT(openMenu(), commandsOf(Tab::open));
  harness::pressKey(VK_ESCAPE);
  expectGone();
}

}  // namespace
}  // namespace desktop_tests
