// The main window after start-up: what it shows, how it is filled, how it closes.
#include <set>

#include "gateway_test.h"

namespace desktop_tests {
namespace {

using harness::ListViewReader;
using harness::ToolbarReader;
using Column = ListViewReader::Column;

constexpr const wchar_t* title = L"Quillmark Suite 3 Gateway";

/// A column as designed, at a dpi.
Column column(const wchar_t* text, int twips, int dpi = 96) {
  return {text, (twips * dpi + 720) / 1440, 0};
}

std::string shown(const RECT& place) {
  return "(" + std::to_string(place.left) + ", " + std::to_string(place.top) + " to " +
         std::to_string(place.right) + ", " + std::to_string(place.bottom) + ")";
}

/// For EXPECT_PRED_FORMAT2: whether the first place lies within the second.
::testing::AssertionResult inside(const char* innerText, const char* outerText, const RECT& inner,
                                  const RECT& outer) {
  if (inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
      inner.bottom <= outer.bottom) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << innerText << " " << shown(inner) << " is not within "
                                       << outerText << " " << shown(outer);
}

class MainWindow : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  /// Text and width of all columns of a list.
  [[nodiscard]] std::vector<Column> columnsOf(int list) const {
    std::vector<Column> columns = app->list(list).columns();
    for (Column& each : columns) {
      EXPECT_EQ(each.format & HDF_JUSTIFYMASK, HDF_LEFT);
      EXPECT_EQ(each.format & HDF_IMAGE, 0);
      each.format = 0;
    }
    return columns;
  }

  /// Checks that toolbar, tab control and the visible list fill the window.
  void expectFilled() const {
    const RECT client = harness::clientOnScreen(app->main());
    const RECT bar = harness::screenRect(app->toolbar().window());
    const RECT tab = harness::screenRect(app->tabs().window());
    EXPECT_PRED_FORMAT2(inside, bar, client);
    EXPECT_EQ(bar.left, client.left);
    EXPECT_EQ(bar.right, client.right);
    EXPECT_EQ(bar.top, client.top);
    EXPECT_PRED_FORMAT2(inside, tab, client);
    const int margin = 16;
    EXPECT_GE(tab.top, bar.bottom);
    EXPECT_LE(tab.top - bar.bottom, margin);
    EXPECT_LE(tab.left - client.left, margin);
    EXPECT_LE(client.right - tab.right, margin);
    const RECT status = harness::screenRect(harness::child(app->main(), ids::barStatus));
    EXPECT_LE(status.top - tab.bottom, margin);
    EXPECT_GE(status.top, tab.bottom);
    EXPECT_EQ(status.left, client.left);
    EXPECT_EQ(status.right, client.right);
    EXPECT_EQ(status.bottom, client.bottom);
    const int current = app->tabs().current();
    const RECT list = harness::screenRect(app->list(current).window());
    EXPECT_PRED_FORMAT2(inside, list, tab);
    EXPECT_GT(list.bottom - list.top, 40);
    EXPECT_LE(tab.right - list.right, margin);
    if (current == Tab::open) {
      const RECT browse = harness::screenRect(app->browseButton());
      EXPECT_PRED_FORMAT2(inside, browse, tab);
      EXPECT_TRUE(browse.top >= list.bottom || browse.bottom <= list.top)
          << shown(browse) << " covers the list " << shown(list);
    } else {
      EXPECT_LE(tab.bottom - list.bottom, margin);
    }
  }

  void resize(int width, int height) const {
    SetWindowPos(app->main(), nullptr, 40, 40, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  }
};

TEST_F(MainWindow, HasTitleAndFourTabsWithToolsInFront) {
  app->startToMain();
  EXPECT_EQ(harness::text(app->main()), title);
  EXPECT_THAT(app->tabs().captions(), ElementsAre(L"Tools", L"Open", L"New", L"Web"));
  EXPECT_EQ(app->tabs().current(), 0);
  for (int tab = 0; tab < 4; ++tab) {
    EXPECT_EQ(IsWindowVisible(app->list(tab).window()) != FALSE, tab == 0);
  }
}

TEST_F(MainWindow, EachTabShowsItsOwnListAndOnlyOpenTheBrowseButton) {
  app->startToMain();
  for (const int tab : {1, 2, 3, 0}) {
    app->selectTab(tab);
    for (int list = 0; list < 4; ++list) {
      EXPECT_EQ(IsWindowVisible(app->list(list).window()) != FALSE, list == tab);
    }
    EXPECT_EQ(IsWindowVisible(app->browseButton()) != FALSE, tab == Tab::open);
  }
}

TEST_F(MainWindow, ToolsListHasIconsAndNoHeader) {
  app->startToMain();
  EXPECT_THAT(columnsOf(Tab::tools),
              ElementsAre(column(L"Path", 5000), column(L"EXE", 5000), column(L"Command", 0)));
  EXPECT_EQ(app->list(Tab::tools).view(), LV_VIEW_ICON);
  EXPECT_FALSE(app->list(Tab::tools).headerShown());
  EXPECT_NE(app->list(Tab::tools).style() & LVS_NOCOLUMNHEADER, 0U);
}

TEST_F(MainWindow, OpenListShowsDetailsWithAHiddenFifthColumn) {
  app->startToMain();
  app->selectTab(Tab::open);
  EXPECT_THAT(columnsOf(Tab::open),
              ElementsAre(column(L"Recently Used Files", 1500), column(L"Last Modified", 2000),
                          column(L"Type", 3000), column(L"Directory", 4000), column(L"Type", 0)));
  EXPECT_EQ(app->list(Tab::open).view(), LV_VIEW_DETAILS);
  EXPECT_TRUE(app->list(Tab::open).headerShown());
}

TEST_F(MainWindow, NewListHasFourIconsAndNoHeader) {
  app->startToMain();
  app->selectTab(Tab::newFile);
  EXPECT_THAT(columnsOf(Tab::newFile), ElementsAre(column(L"Name", 5000), column(L"File Type", 0)));
  const ListViewReader list = app->list(Tab::newFile);
  EXPECT_EQ(list.view(), LV_VIEW_ICON);
  EXPECT_FALSE(list.headerShown());
  EXPECT_THAT(list.rows(), ElementsAre(ElementsAre(L"New Fuel Profile", L"FP3"),
                                       ElementsAre(L"New Planar Intercept", L"BI3"),
                                       ElementsAre(L"New Plotview Inventory", L"BS3"),
                                       ElementsAre(L"New Canopy Weigh Inventory", L"CW3")));
  EXPECT_EQ(list.image(1), list.image(2)) << "the two inventories share a picture";
  EXPECT_NE(list.image(0), list.image(1));
  EXPECT_NE(list.image(0), list.image(3));
  EXPECT_NE(list.image(1), list.image(3));
}

TEST_F(MainWindow, WebListShowsDetails) {
  app->startToMain();
  app->selectTab(Tab::web);
  EXPECT_THAT(columnsOf(Tab::web), ElementsAre(column(L"Name", 5000), column(L"Url", 5000)));
  EXPECT_EQ(app->list(Tab::web).view(), LV_VIEW_DETAILS);
  EXPECT_TRUE(app->list(Tab::web).headerShown());
}

TEST_F(MainWindow, AHiddenColumnCannotBeDraggedOpen) {
  app->startToMain();
  resize(1000, 500);
  app->selectTab(Tab::open);
  const auto widths = [&] { return app->list(Tab::open).columns(); };
  const auto dragFrom = [&](int offset) {
    const RECT directory = app->list(Tab::open).headerOnScreen(3);
    const POINT from{directory.right + offset, (directory.top + directory.bottom) / 2};
    harness::drag(from, {from.x + 60, from.y}, app->main());
  };
  // A visible column can be dragged, so the drags that follow are known to work.
  const int before = widths()[3].width;
  dragFrom(-2);
  EXPECT_TRUE(eventually([&] { return widths()[3].width; }, before + 60));
  for (const int offset : {1, 2, 4}) {
    dragFrom(offset);
    EXPECT_EQ(widths()[4].width, 0) << "dragged at offset " << offset;
  }
}

TEST_F(MainWindow, ToolbarHasItsButtonsInOrder) {
  app->startToMain();
  std::vector<std::wstring> shown;
  std::vector<int> images;
  for (const ToolbarReader::Button& button : app->toolbar().buttons()) {
    shown.push_back(button.separator ? L"|" : button.caption);
    if (!button.separator) {
      EXPECT_GE(button.image, 0) << harness::utf8(button.caption);
      images.push_back(button.image);
      EXPECT_TRUE(button.enabled) << harness::utf8(button.caption);
    }
  }
  EXPECT_THAT(shown, ElementsAre(L"Delete", L"Rename", L"Create", L"|", L"Icon", L"List", L"|",
                                 L"Exit", L"|", L"Help"));
  std::sort(images.begin(), images.end());
  EXPECT_EQ(std::adjacent_find(images.begin(), images.end()), images.end())
      << "two buttons share a picture";
}

TEST_F(MainWindow, ToolbarButtonsHaveTheirTips) {
  app->startToMain();
  const ToolbarReader bar = app->toolbar();
  EXPECT_EQ(bar.toolTip(ids::buttonDelete), L"Delete File or Shortcut");
  EXPECT_EQ(bar.toolTip(ids::buttonRename), L"Rename file or shortcut");
  EXPECT_EQ(bar.toolTip(ids::buttonCreate), L"Create a file or shortcut");
  EXPECT_EQ(bar.toolTip(ids::buttonIcon), L"Icon view mode");
  EXPECT_EQ(bar.toolTip(ids::buttonList), L"List view mode");
  EXPECT_EQ(bar.toolTip(ids::buttonExit), L"Exit Quillmark Suite");
  EXPECT_EQ(bar.toolTip(ids::buttonHelp), L"Obtain assistance");
}

TEST_F(MainWindow, IconViewIsMarkedInMenuAndToolbar) {
  app->startToMain();
  EXPECT_TRUE(app->toolbar().button(ids::buttonIcon).pressed);
  EXPECT_FALSE(app->toolbar().button(ids::buttonList).pressed);
  EXPECT_TRUE(harness::menuEntry(app->main(), ids::mnuIcon).checked);
  EXPECT_FALSE(harness::menuEntry(app->main(), ids::mnuList).checked);
}

TEST_F(MainWindow, HasItsMenus) {
  app->startToMain();
  const std::set<std::wstring> notYet{L"Remove from List", L"Add to List...",
                                      L"Add List...",      L"Save List As...",
                                      L"Earlier Lists...", L"Find Moved Files..."};
  std::vector<std::wstring> shown;
  for (const harness::MenuEntry& entry : harness::menuEntries(app->main())) {
    if (!entry.separator) {
      shown.push_back(std::wstring(static_cast<std::size_t>(entry.depth), L' ') + entry.caption);
      // What is not for the first tab, which has nothing selected yet.
      EXPECT_EQ(entry.enabled, !notYet.contains(entry.caption)) << harness::utf8(entry.caption);
    }
  }
  EXPECT_THAT(shown,
              ElementsAre(L"File", L" Exit", L"Edit", L" Create", L" Rename", L" Delete File",
                          L" Undo", L" Redo", L" Copy", L" Copy Path", L" Paste", L" Open Folder",
                          L" Remove from List", L" Add to List...", L" Add List...",
                          L" Save List As...", L" Earlier Lists...", L" Find Moved Files...",
                          L"View", L" List View", L" Icon View", L" Newest First", L" Fit Columns",
                          L"Help", L" Help Contents", L" Web Based Support", L" About"));
}

TEST_F(MainWindow, IsFilledAtEverySize) {
  app->startToMain();
  for (const int tab : {0, 1, 2, 3}) {
    app->selectTab(tab);
    for (const auto& [width, height] : {std::pair{1100, 700}, {640, 420}, {500, 350}, {900, 380}}) {
      resize(width, height);
      SCOPED_TRACE("tab " + std::to_string(tab) + ", width " + std::to_string(width));
      expectFilled();
    }
  }
}

TEST_F(MainWindow, HasASensibleSmallestSize) {
  app->startToMain();
  app->selectTab(Tab::open);
  resize(10, 10);
  const RECT window = harness::screenRect(app->main());
  EXPECT_GE(window.right - window.left, 300);
  EXPECT_GE(window.bottom - window.top, 200);
  expectFilled();
}

TEST_F(MainWindow, FitsItselfToADenserScreen) {
  if (const auto why = harness::whyNoDensity(144)) {
    GTEST_SKIP() << *why;
  }
  const harness::ScreenDensity density(144);
  app->startToMain();
  EXPECT_THAT(columnsOf(Tab::open),
              ElementsAre(column(L"Recently Used Files", 1500, 144),
                          column(L"Last Modified", 2000, 144), column(L"Type", 3000, 144),
                          column(L"Directory", 4000, 144), column(L"Type", 0, 144)));
  for (const int tab : {1, 2, 3, 0}) {
    app->selectTab(tab);
    expectFilled();
  }
}

TEST_F(MainWindow, TitleIsResetWhenTheWindowBecomesActive) {
  app->startToMain();
  harness::bringToFront(app->main());
  SetWindowTextW(app->main(), L"something else");
  HWND const other = CreateWindowExW(0, L"STATIC", L"another program", WS_OVERLAPPEDWINDOW, 0, 0,
                                     200, 100, nullptr, nullptr, nullptr, nullptr);
  ShowWindow(other, SW_SHOW);
  harness::bringToFront(other);
  EXPECT_EQ(harness::text(app->main()), L"something else");
  harness::bringToFront(app->main());
  EXPECT_TRUE(eventually([&] { return harness::text(app->main()); }, title));
  DestroyWindow(other);
}

TEST_F(MainWindow, ATipIsShownOverAToolbarButton) {
  app->startToMain();
  harness::bringToFront(app->main());
  const auto shownTip = [&]() -> std::wstring {
    for (HWND const window : harness::visibleWindows(app->processId())) {
      if (harness::className(window) == TOOLTIPS_CLASSW) {
        return harness::text(window);
      }
    }
    return L"";
  };
  const RECT button = app->toolbar().buttonOnScreen(ids::buttonExit);
  harness::moveTo({button.left - 3, button.bottom + 60});
  harness::moveTo(harness::centreOf(button));
  EXPECT_TRUE(eventually([&] { return shownTip(); }, L"Exit Quillmark Suite"));
}

TEST_F(MainWindow, EverythingIsReachedWithTheTabKey) {
  app->startToMain();
  app->selectTab(Tab::open);
  std::vector<int> reached;
  for (int press = 0; press < 8; ++press) {
    HWND const before = harness::focusIn(app->main());
    reached.push_back(before != nullptr ? GetDlgCtrlID(before) : 0);
    harness::pressKey(VK_TAB);
    const auto focused = [&] { return harness::focusIn(app->main()); };
    EXPECT_TRUE(eventually(focused, Ne(before))) << "the focus stays on control " << reached.back();
  }
  EXPECT_THAT(reached, ::testing::Contains(ids::TabMain));
  EXPECT_THAT(reached, ::testing::Contains(ids::lstQMK0 + 1));
  EXPECT_THAT(reached, ::testing::Contains(ids::cmdBrowse));
}

}  // namespace
}  // namespace desktop_tests
