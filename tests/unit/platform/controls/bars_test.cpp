#include "platform/controls/bars.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/desktop_test.h"
#include "unit/support/error_number.h"
#include "unit/support/recording_peer.h"

namespace controls {
namespace {

using memory::desktop;

Toolbar::Button command(const std::wstring& key) {
  Toolbar::Button button;
  button.key = key;
  return button;
}

Toolbar::Button check(const std::wstring& key) {
  Toolbar::Button button = command(key);
  button.check = true;
  return button;
}

class ToolbarTest : public ::memory::DesktopTest {
 protected:
  ToolbarTest() {
    bar.addButton(command(L"Delete"));
    bar.addSeparator();
    bar.addButton(check(L"Icon"));
    bar.addButton(check(L"List"));
    bar.addButton(command(L"Exit"));
    bar.addButton(check(L"Alone"));
  }
  [[nodiscard]] int value(const std::wstring& key) const { return bar.button(key).value; }

  Toolbar bar{L"barMain", 1};
};

TEST_F(ToolbarTest, FindsButtonsByTheirExactKey) {
  EXPECT_EQ(bar.button(L"Exit").key, L"Exit");
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(bar.button(L"exit")); }), 35601);
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(bar.button(L"Exit ")); }), 35601);
}

TEST_F(ToolbarTest, ASeparatorHasNoKey) {
  EXPECT_TRUE(bar.buttons()[1].separator());
  EXPECT_FALSE(bar.buttons()[0].separator());
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(bar.button(L"")); }), 35601);
}

TEST_F(ToolbarTest, EverySetterRaisesForAnUnknownKey) {
  EXPECT_EQ(errorNumberOf([this] { bar.setButtonCaption(L"?", L""); }), 35601);
  EXPECT_EQ(errorNumberOf([this] { bar.setButtonToolTip(L"?", L""); }), 35601);
  EXPECT_EQ(errorNumberOf([this] { bar.setButtonImage(L"?", L""); }), 35601);
  EXPECT_EQ(errorNumberOf([this] { bar.setButtonEnabled(L"?", true); }), 35601);
  EXPECT_EQ(errorNumberOf([this] { bar.setButtonValue(L"?", 1); }), 35601);
}

TEST_F(ToolbarTest, SettersChangeOneButton) {
  bar.setButtonCaption(L"Delete", L"Delete File");
  bar.setButtonToolTip(L"Delete", L"Deletes it");
  bar.setButtonImage(L"Delete", L"picture");
  bar.setButtonEnabled(L"Delete", false);
  const auto& changed = bar.button(L"Delete");
  EXPECT_EQ(changed.caption, L"Delete File");
  EXPECT_EQ(changed.toolTip, L"Deletes it");
  EXPECT_EQ(changed.image, L"picture");
  EXPECT_FALSE(changed.enabled);
  EXPECT_EQ(bar.button(L"Exit").caption, L"");
  EXPECT_TRUE(bar.button(L"Exit").enabled);
}

TEST_F(ToolbarTest, PressingAButtonReleasesItsGroup) {
  bar.setButtonValue(L"Alone", 1);
  bar.setButtonValue(L"Icon", 1);
  bar.setButtonValue(L"List", 1);
  EXPECT_EQ(value(L"Icon"), 0);
  EXPECT_EQ(value(L"List"), 1);
  bar.setButtonValue(L"Icon", 1);
  EXPECT_EQ(value(L"Icon"), 1);
  EXPECT_EQ(value(L"List"), 0);
  EXPECT_EQ(value(L"Alone"), 1) << "A button of another group";
}

TEST_F(ToolbarTest, ReleasingAButtonPressesNoOther) {
  bar.setButtonValue(L"Icon", 1);
  bar.setButtonValue(L"Icon", 0);
  EXPECT_EQ(value(L"Icon"), 0);
  EXPECT_EQ(value(L"List"), 0);
}

TEST_F(ToolbarTest, TellsItsPeerOnlyOfNewValues) {
  RecordingPeer peer(bar);
  bar.setButtonCaption(L"Exit", L"Exit");
  EXPECT_EQ(peer.take(), std::vector{Change::structure});
  bar.setButtonCaption(L"Exit", L"Exit");
  EXPECT_TRUE(peer.take().empty());
  bar.setButtonEnabled(L"Exit", true);
  EXPECT_TRUE(peer.take().empty());
  bar.setButtonToolTip(L"Exit", L"Ends");
  EXPECT_EQ(peer.take(), std::vector{Change::toolTip});
  const ImageList images;
  bar.setImages(&images);
  EXPECT_EQ(peer.take(), std::vector{Change::images});
  EXPECT_EQ(bar.images(), &images);
}

TEST_F(ToolbarTest, AClickGivesTheKey) {
  std::vector<std::wstring> clicked;
  bar.fireButtonClick(L"Exit");
  bar.onButtonClick = [&clicked](const std::wstring& key) { clicked.push_back(key); };
  bar.fireButtonClick(L"Exit");
  EXPECT_EQ(clicked, std::vector<std::wstring>{L"Exit"});
}

TEST_F(ToolbarTest, AnErrorOfAClickIsReported) {
  bar.onButtonClick = [](const std::wstring&) { throw platform::RunTimeError(91); };
  bar.fireButtonClick(L"Exit");
  EXPECT_EQ(desktop().errorReports, std::vector<int>{91});
}

class TabControlTest : public ::memory::DesktopTest {
 protected:
  TabControlTest() {
    for (const auto* const caption : {L"Tools", L"Open", L"New"}) {
      tabs.addTab(caption);
    }
    tabs.onSwitch = [this](int from, int to) { switches.emplace_back(from, to); };
  }
  TabControl tabs{L"TabMain", 1};
  std::vector<std::pair<int, int>> switches;
};

TEST_F(TabControlTest, StartsWithItsFirstTab) {
  EXPECT_EQ(tabs.current(), 0);
  EXPECT_EQ(tabs.tabCaption(0), L"Tools");
  EXPECT_EQ(tabs.tabCaption(2), L"New");
}

TEST_F(TabControlTest, TellsOfASwitchOnlyWhenTheTabChanges) {
  tabs.setCurrent(0);
  EXPECT_TRUE(switches.empty());
  tabs.setCurrent(2);
  tabs.setCurrent(2);
  tabs.fireSwitch(1);
  tabs.fireSwitch(1);
  EXPECT_EQ(switches, (std::vector<std::pair<int, int>>{{0, 2}, {2, 1}}));
}

TEST_F(TabControlTest, TheHandlerSeesTheNewTab) {
  int seen = -1;
  tabs.onSwitch = [&](int, int) { seen = tabs.current(); };
  tabs.setCurrent(1);
  EXPECT_EQ(seen, 1);
}

TEST_F(TabControlTest, RaisesForATabThatIsNotThere) {
  for (const int index : {-1, 3, 1000}) {
    EXPECT_EQ(errorNumberOf([&] { tabs.setCurrent(index); }), 35600) << index;
    EXPECT_EQ(errorNumberOf([&] { static_cast<void>(tabs.tabCaption(index)); }), 35600) << index;
  }
  EXPECT_EQ(tabs.current(), 0);
  EXPECT_TRUE(switches.empty());
}

TEST_F(TabControlTest, AnErrorOfTheUsersSwitchIsReported) {
  tabs.onSwitch = [](int, int) { throw platform::RunTimeError(53); };
  tabs.fireSwitch(1);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{53});
  EXPECT_EQ(tabs.current(), 1);
}

TEST_F(TabControlTest, TheDisplayAreaLiesInsideTheBounds) {
  const platform::Rect bounds{5, 6, 300, 200};
  const platform::Rect area = tabs.displayArea(bounds, 144);
  EXPECT_GE(area.left, bounds.left);
  EXPECT_GT(area.top, bounds.top);
  EXPECT_LE(area.right(), bounds.right());
  EXPECT_LE(area.bottom(), bounds.bottom());
  EXPECT_GT(area.height, 0);
  EXPECT_EQ(area, (platform::Rect{11, 42, 288, 158}));
  const platform::Rect tiny = tabs.displayArea({0, 0, 3, 3}, 96);
  EXPECT_EQ(tiny.width, 0);
  EXPECT_EQ(tiny.height, 0);
}

TEST_F(TabControlTest, ThePeersMeasureGoesBeforeTheEstimate) {
  tabs.measureDisplayArea = [](const platform::Rect& bounds) {
    return platform::Rect{bounds.left + 1, 2, 3, 4};
  };
  EXPECT_EQ(tabs.displayArea({10, 0, 0, 0}, 96), (platform::Rect{11, 2, 3, 4}));
}

class MenuTest : public ::memory::DesktopTest {};

TEST_F(MenuTest, ADisabledEntryDoesNothing) {
  int clicks = 0;
  MenuItem entry(L"mnuExit", 1, L"E&xit");
  entry.onClick = [&clicks] { ++clicks; };
  entry.fireClick();
  EXPECT_EQ(clicks, 1);
  entry.setEnabled(false);
  entry.fireClick();
  EXPECT_EQ(clicks, 1);
}

TEST_F(MenuTest, EntriesHangTogetherInTheirOrder) {
  MenuItem file(L"mnuFile", 1, L"&File");
  MenuItem first(L"mnuFirst", 2, L"First");
  MenuItem line(L"mnuLine", 0, L"-");
  file.add(first).add(line);
  EXPECT_EQ(file.children(), (std::vector<MenuItem*>{&first, &line}));
  EXPECT_EQ(file.caption(), L"&File");
}

TEST_F(MenuTest, TellsItsPeerOfACheckMarkOnce) {
  MenuItem entry(L"mnuList", 1, L"&List");
  RecordingPeer peer(entry);
  entry.setChecked(true);
  entry.setChecked(true);
  EXPECT_EQ(peer.take(), std::vector{Change::value});
  EXPECT_TRUE(entry.checked());
}

}  // namespace
}  // namespace controls
