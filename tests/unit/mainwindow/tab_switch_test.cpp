// What the toolbar, the menus and the lists show after every switch of the tab, against a table.
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "unit/support/main_window_fixture.h"

namespace {

using memory::desktop;

constexpr std::size_t tabCount = 4;
constexpr std::array<const char*, tabCount> tabNames{"Tools", "Open", "New", "Web"};

/// The three commands, in the order Create, Rename, Delete.
template <class T>
using Three = std::array<T, 3>;
using Text = std::optional<std::wstring>;
/// A cell that keeps what the previous tab left there.
constexpr std::nullopt_t unchanged = std::nullopt;

struct TabRow {
  Three<bool> enabled;
  Three<Text> toolTips;
  Three<Text> captions;
};

const std::array<TabRow, tabCount> table{{
    {{true, true, true},
     {L"Create shortcut", L"Rename shortcut", L"Delete shortcut"},
     {L"Create Shortcut", L"Rename Shortcut", L"Delete Shortcut"}},
    {{false, true, true},
     {unchanged, L"Rename File", L"Delete File"},
     {unchanged, L"Rename File", L"Delete File"}},
    {{false, false, false}, {unchanged, unchanged, unchanged}, {L"Create", L"Rename", L"Delete"}},
    {{true, true, true},
     {L"Create web shortcut", L"Rename web shortcut", L"Delete web shortcut"},
     {L"Create Web Shortcut", L"Rename Web Shortcut", L"Delete Web Shortcut"}},
}};

/// Everything that a switch of the tab may set.
struct Shown {
  int current = 0;
  Three<bool> buttonEnabled{true, true, true};
  Three<bool> menuEnabled{true, true, true};
  Three<std::wstring> toolTips{L"Create a file or shortcut", L"Rename file or shortcut",
                               L"Delete File or Shortcut"};
  Three<std::wstring> captions{L"Create", L"Rename", L"Delete File"};
  bool listChecked = false;
  bool iconChecked = true;
  int listPressed = 0;
  int iconPressed = 1;
  /// Buttons and entries that are never disabled: Icon, List, Exit, Help and the two view modes.
  bool othersEnabled = true;
  std::array<int, tabCount> views{0, 3, 0, 3};
  std::array<std::wstring, tabCount> tags{L"0", L"3", L"0", L"3"};
  int visibleList = 0;
  bool browseVisible = false;
  bool operator==(const Shown&) const = default;

  void showMode(bool report) {
    listChecked = report;
    iconChecked = !report;
    listPressed = report ? 1 : 0;
    iconPressed = report ? 0 : 1;
  }

  void switchTo(std::size_t tab) {
    if (current == static_cast<int>(tab)) {
      return;
    }
    current = static_cast<int>(tab);
    views.at(tab) = tags.at(tab).empty() ? 0 : std::stoi(tags.at(tab));
    showMode(views.at(tab) != 0);
    const TabRow& row = table.at(tab);
    buttonEnabled = menuEnabled = row.enabled;
    for (std::size_t i = 0; i < 3; ++i) {
      toolTips.at(i) = row.toolTips.at(i).value_or(toolTips.at(i));
      captions.at(i) = row.captions.at(i).value_or(captions.at(i));
    }
    if (tab == 3) {
      views.at(3) = 3;
      showMode(true);
    }
    visibleList = current;
    browseVisible = tab == 1;
  }

  void chooseView(bool report) {
    views.at(static_cast<std::size_t>(current)) = report ? 3 : 0;
    tags.at(static_cast<std::size_t>(current)) = report ? L"3" : L"0";
    showMode(report);
  }
};

void PrintTo(const Shown& shown, std::ostream* out) {
  const auto print = [out](const char* what, const auto& value) {
    *out << "\n  " << what << ": " << ::testing::PrintToString(value);
  };
  print("current", shown.current);
  print("buttons enabled", shown.buttonEnabled);
  print("menu enabled", shown.menuEnabled);
  print("tool tips", shown.toolTips);
  print("captions", shown.captions);
  print("list checked", shown.listChecked);
  print("icon checked", shown.iconChecked);
  print("list pressed", shown.listPressed);
  print("icon pressed", shown.iconPressed);
  print("others enabled", shown.othersEnabled);
  print("views", shown.views);
  print("tags", shown.tags);
  print("visible list", shown.visibleList);
  print("browse button visible", shown.browseVisible);
}

class TabSwitchTest : public MainWindowTest {
 protected:
  [[nodiscard]] Shown shown() const {
    Shown now;
    now.current = window.TabMain.current();
    const Three<const wchar_t*> keys{L"Create", L"Rename", L"Delete"};
    const Three<const controls::MenuItem*> entries{&window.mnuCreate, &window.mnuRename,
                                                   &window.mnuDelete};
    for (std::size_t i = 0; i < 3; ++i) {
      const auto& button = window.barMain.button(keys.at(i));
      now.buttonEnabled.at(i) = button.enabled;
      now.toolTips.at(i) = button.toolTip;
      now.menuEnabled.at(i) = entries.at(i)->enabled();
      now.captions.at(i) = entries.at(i)->caption();
    }
    now.listChecked = window.mnuList.checked();
    now.iconChecked = window.mnuIcon.checked();
    now.listPressed = window.barMain.button(L"List").value;
    now.iconPressed = window.barMain.button(L"Icon").value;
    now.othersEnabled = window.mnuList.enabled() && window.mnuIcon.enabled();
    for (const wchar_t* const key : {L"Icon", L"List", L"Exit", L"Help"}) {
      now.othersEnabled = now.othersEnabled && window.barMain.button(key).enabled;
    }
    now.visibleList = -1;
    for (std::size_t i = 0; i < tabCount; ++i) {
      now.views.at(i) = window.lstQMK.at(i).view();
      now.tags.at(i) = window.lstQMK.at(i).tag();
      if (window.lstQMK.at(i).visible()) {
        now.visibleList = now.visibleList == -1 ? static_cast<int>(i) : tabCount;
      }
    }
    now.browseVisible = window.cmdBrowse.visible();
    return now;
  }

  void go(std::size_t tab) {
    switchTo(static_cast<int>(tab));
    expected.switchTo(tab);
  }

  Shown expected;
};

TEST_F(TabSwitchTest, BeforeTheFirstSwitchEverythingIsAsDesigned) { EXPECT_EQ(shown(), expected); }

// --- all twelve switches from one tab to another ---

using Pair = std::tuple<int, int>;

class TabPairTest : public TabSwitchTest, public ::testing::WithParamInterface<Pair> {
 protected:
  std::size_t from = static_cast<std::size_t>(std::get<0>(GetParam()));
  std::size_t to = static_cast<std::size_t>(std::get<1>(GetParam()));
};

TEST_P(TabPairTest, EveryCellIsAsTheTableSays) {
  go(from);
  EXPECT_EQ(shown(), expected);
  go(to);
  EXPECT_EQ(shown(), expected);
}

TEST_P(TabPairTest, EveryCellIsAsTheTableSaysBehindAnyThirdTab) {
  for (std::size_t before = 0; before < tabCount; ++before) {
    go(before);
    go(from);
    go(to);
    EXPECT_EQ(shown(), expected) << tabNames.at(before);
  }
}

TEST_P(TabPairTest, ViewModesChosenOnBothAreFoundAgain) {
  for (const bool report : {true, false}) {
    go(from);
    (report ? window.mnuList : window.mnuIcon).fireClick();
    expected.chooseView(report);
    go(to);
    (report ? window.mnuIcon : window.mnuList).fireClick();
    expected.chooseView(!report);
    EXPECT_EQ(shown(), expected);
    go(from);
    EXPECT_EQ(shown(), expected);
    go(to);
    EXPECT_EQ(shown(), expected);
  }
}

std::vector<Pair> allPairs() {
  std::vector<Pair> pairs;
  for (int from = 0; from < static_cast<int>(tabCount); ++from) {
    for (int to = 0; to < static_cast<int>(tabCount); ++to) {
      if (from != to) {
        pairs.emplace_back(from, to);
      }
    }
  }
  return pairs;
}

std::string nameOf(const ::testing::TestParamInfo<Pair>& pair) {
  const auto name = [](int tab) { return std::string(tabNames.at(static_cast<std::size_t>(tab))); };
  return name(std::get<0>(pair.param)) + "Then" + name(std::get<1>(pair.param));
}

INSTANTIATE_TEST_SUITE_P(Tabs, TabPairTest, ::testing::ValuesIn(allPairs()), nameOf);

// --- long walks ---

TEST_F(TabSwitchTest, LongWalksWithViewCommandsInBetweenFollowTheTable) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    std::mt19937 random(seed);
    for (int step = 0; step < 200; ++step) {
      const unsigned choice = random() % 8;
      if (choice < tabCount) {
        go(choice);
      } else {
        const bool report = choice % 2 == 0;
        if (choice < 6) {
          (report ? window.mnuList : window.mnuIcon).fireClick();
        } else {
          window.barMain.fireButtonClick(report ? L"List" : L"Icon");
        }
        expected.chooseView(report);
      }
      ASSERT_EQ(shown(), expected) << "seed " << seed << ", step " << step;
    }
  }
}

// --- special cases of the table ---

TEST_F(TabSwitchTest, NewDisablesTheCommandsButKeepsTheCreateToolTipOfTools) {
  switchTo(frmQMK::web);
  switchTo(frmQMK::tools);
  switchTo(frmQMK::newFiles);
  for (const wchar_t* const key : {L"Create", L"Rename", L"Delete"}) {
    EXPECT_FALSE(window.barMain.button(key).enabled);
  }
  EXPECT_FALSE(window.mnuCreate.enabled());
  EXPECT_FALSE(window.mnuRename.enabled());
  EXPECT_FALSE(window.mnuDelete.enabled());
  EXPECT_EQ(window.barMain.button(L"Create").toolTip, L"Create shortcut");
}

TEST_F(TabSwitchTest, NewKeepsTheCreateToolTipOfWeb) {
  switchTo(frmQMK::web);
  switchTo(frmQMK::newFiles);
  EXPECT_EQ(window.barMain.button(L"Create").toolTip, L"Create web shortcut");
}

TEST_F(TabSwitchTest, FromOpenToNewTheEditCaptionsChangeAndTheCreateToolTipStays) {
  switchTo(frmQMK::web);
  switchTo(frmQMK::open);
  switchTo(frmQMK::newFiles);
  EXPECT_EQ(window.mnuRename.caption(), L"Rename");
  EXPECT_EQ(window.mnuDelete.caption(), L"Delete");
  EXPECT_EQ(window.barMain.button(L"Create").toolTip, L"Create web shortcut");
  EXPECT_EQ(window.barMain.button(L"Rename").toolTip, L"Rename File");
}

TEST_F(TabSwitchTest, WebShowsItsReportEvenIfIconsWereChosenThereLast) {
  switchTo(frmQMK::web);
  window.mnuIcon.fireClick();
  ASSERT_EQ(window.lstQMK[frmQMK::web].view(), controls::iconView);

  switchTo(frmQMK::tools);
  switchTo(frmQMK::web);

  EXPECT_EQ(window.lstQMK[frmQMK::web].view(), controls::reportView);
  EXPECT_TRUE(window.mnuList.checked());
  EXPECT_FALSE(window.mnuIcon.checked());
  EXPECT_EQ(window.barMain.button(L"List").value, 1);
  // Its stored mode is still the icon view.
  EXPECT_EQ(window.lstQMK[frmQMK::web].tag(), L"0");
}

TEST_F(TabSwitchTest, ATabFindsItsOwnModeAgainBehindWeb) {
  switchTo(frmQMK::open);
  window.mnuIcon.fireClick();
  switchTo(frmQMK::web);
  switchTo(frmQMK::open);
  EXPECT_EQ(window.lstQMK[frmQMK::open].view(), controls::iconView);
  EXPECT_TRUE(window.mnuIcon.checked());
}

TEST_F(TabSwitchTest, AListWhoseTagWasNeverSetShowsIcons) {
  window.lstQMK[frmQMK::open].setTag(L"");
  switchTo(frmQMK::open);
  EXPECT_EQ(window.lstQMK[frmQMK::open].view(), controls::iconView);
  EXPECT_TRUE(window.mnuIcon.checked());
  EXPECT_FALSE(window.mnuList.checked());
  EXPECT_EQ(window.barMain.button(L"Icon").value, 1);
  EXPECT_EQ(window.lstQMK[frmQMK::open].tag(), L"");
}

TEST_F(TabSwitchTest, AnyViewButIconsCountsAsList) {
  window.lstQMK[frmQMK::newFiles].setTag(L"2");
  switchTo(frmQMK::newFiles);
  EXPECT_EQ(window.lstQMK[frmQMK::newFiles].view(), 2);
  EXPECT_TRUE(window.mnuList.checked());
  EXPECT_EQ(window.barMain.button(L"List").value, 1);
}

TEST_F(TabSwitchTest, ASwitchIsNeverRefused) {
  for (const int tab : {3, 0, 2, 1, 0}) {
    switchTo(tab);
    EXPECT_EQ(window.TabMain.current(), tab);
  }
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(TabSwitchTest, ATabWithoutAListChangesNothing) {
  window.TabMain.addTab(L"Fifth");
  switchTo(4);
  expected.current = 4;
  EXPECT_EQ(shown(), expected);
}

TEST_F(TabSwitchTest, TheTabInFrontChosenAgainChangesNothing) {
  window.barMain.setButtonToolTip(L"Create", L"mine");
  switchTo(frmQMK::tools);
  EXPECT_EQ(window.barMain.button(L"Create").toolTip, L"mine");
}

}  // namespace
