// The two view modes of the View menu.
#include <gtest/gtest.h>

#include <string>

#include "unit/support/main_window_fixture.h"

namespace {

class ViewModeTest : public MainWindowTest {
 protected:
  [[nodiscard]] std::string marks() const {
    return std::string(window.mnuList.checked() ? "list checked, " : "") +
           (window.mnuIcon.checked() ? "icon checked, " : "") +
           (window.barMain.button(L"List").value == 1 ? "List pressed" : "") +
           (window.barMain.button(L"Icon").value == 1 ? "Icon pressed" : "");
  }
};

TEST_F(ViewModeTest, ListViewGivesTheReportWithItsColumnsOnEveryTab) {
  for (int tab = 0; tab < 4; ++tab) {
    switchTo(tab);
    window.mnuList.fireClick();
    const auto& list = window.lstQMK.at(static_cast<std::size_t>(tab));
    EXPECT_EQ(list.view(), 3);
    EXPECT_EQ(list.tag(), L"3");
    EXPECT_EQ(marks(), "list checked, List pressed");
  }
}

TEST_F(ViewModeTest, IconViewGivesLargeIconsOnEveryTab) {
  for (int tab = 0; tab < 4; ++tab) {
    switchTo(tab);
    window.mnuList.fireClick();
    window.mnuIcon.fireClick();
    const auto& list = window.lstQMK.at(static_cast<std::size_t>(tab));
    EXPECT_EQ(list.view(), 0);
    EXPECT_EQ(list.tag(), L"0");
    EXPECT_EQ(marks(), "icon checked, Icon pressed");
  }
}

TEST_F(ViewModeTest, OnlyTheListInFrontIsTouched) {
  switchTo(frmQMK::open);
  window.mnuIcon.fireClick();
  switchTo(frmQMK::tools);
  window.mnuList.fireClick();
  EXPECT_EQ(window.lstQMK[frmQMK::tools].view(), 3);
  EXPECT_EQ(window.lstQMK[frmQMK::open].view(), 0);
  EXPECT_EQ(window.lstQMK[frmQMK::open].tag(), L"0");
  EXPECT_EQ(window.lstQMK[frmQMK::newFiles].tag(), L"0");
  EXPECT_EQ(window.lstQMK[frmQMK::web].tag(), L"3");
}

TEST_F(ViewModeTest, AModeChosenTwiceStays) {
  window.mnuList.fireClick();
  window.mnuList.fireClick();
  EXPECT_EQ(window.lstQMK[frmQMK::tools].view(), 3);
  EXPECT_EQ(marks(), "list checked, List pressed");
}

TEST_F(ViewModeTest, PressingOneButtonReleasesTheOther) {
  window.barMain.fireButtonClick(L"List");
  EXPECT_EQ(window.barMain.button(L"List").value, 1);
  EXPECT_EQ(window.barMain.button(L"Icon").value, 0);
  window.barMain.fireButtonClick(L"Icon");
  EXPECT_EQ(window.barMain.button(L"List").value, 0);
  EXPECT_EQ(window.barMain.button(L"Icon").value, 1);
}

TEST_F(ViewModeTest, TheModeIsRememberedPerTab) {
  switchTo(frmQMK::newFiles);
  window.mnuList.fireClick();
  switchTo(frmQMK::open);
  window.mnuIcon.fireClick();
  switchTo(frmQMK::newFiles);
  EXPECT_EQ(window.lstQMK[frmQMK::newFiles].view(), 3);
  EXPECT_EQ(marks(), "list checked, List pressed");
  switchTo(frmQMK::open);
  EXPECT_EQ(window.lstQMK[frmQMK::open].view(), 0);
  EXPECT_EQ(marks(), "icon checked, Icon pressed");
}

}  // namespace
