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
    window.mnuList.raiseClick();
    const auto& list = window.lstQMK.at(static_cast<std::size_t>(tab));
    EXPECT_EQ(list.view(), 3);
    EXPECT_EQ(list.tag(), L"3");
    EXPECT_EQ(marks(), "list checked, List pressed");
  }
}

TEST_F(ViewModeTest, IconViewGivesLargeIconsOnEveryTab) {
  for (int tab = 0; tab < 4; ++tab) {
    switchTo(tab);
    window.mnuList.raiseClick();
    window.mnuIcon.raiseClick();
    const auto& list = window.lstQMK.at(static_cast<std::size_t>(tab));
    EXPECT_EQ(list.view(), 0);
    EXPECT_EQ(list.tag(), L"0");
    EXPECT_EQ(marks(), "icon checked, Icon pressed");
  }
}

TEST_F(ViewModeTest, OnlyTheListInFrontIsTouched) {
  switchTo(frmQMK::open);
  window.mnuIcon.raiseClick();
  switchTo(frmQMK::tools);
  window.mnuList.raiseClick();
  EXPECT_EQ(window.lstQMK[frmQMK::tools].view(), 3);
  EXPECT_EQ(window.lstQMK[frmQMK::open].view(), 0);
  EXPECT_EQ(window.lstQMK[frmQMK::open].tag(), L"0");
  EXPECT_EQ(window.lstQMK[frmQMK::fresh].tag(), L"0");
  EXPECT_EQ(window.lstQMK[frmQMK::web].tag(), L"3");
}

TEST_F(ViewModeTest, AModeChosenTwiceStays) {
  window.mnuList.raiseClick();
  window.mnuList.raiseClick();
  EXPECT_EQ(window.lstQMK[frmQMK::tools].view(), 3);
  EXPECT_EQ(marks(), "list checked, List pressed");
}

TEST_F(ViewModeTest, PressingOneButtonReleasesTheOther) {
  window.barMain.raiseButtonClick(L"List");
  EXPECT_EQ(window.barMain.button(L"List").value, 1);
  EXPECT_EQ(window.barMain.button(L"Icon").value, 0);
  window.barMain.raiseButtonClick(L"Icon");
  EXPECT_EQ(window.barMain.button(L"List").value, 0);
  EXPECT_EQ(window.barMain.button(L"Icon").value, 1);
}

TEST_F(ViewModeTest, TheModeIsRememberedPerTab) {
  switchTo(frmQMK::fresh);
  window.mnuList.raiseClick();
  switchTo(frmQMK::open);
  window.mnuIcon.raiseClick();
  switchTo(frmQMK::fresh);
  EXPECT_EQ(window.lstQMK[frmQMK::fresh].view(), 3);
  EXPECT_EQ(marks(), "list checked, List pressed");
  switchTo(frmQMK::open);
  EXPECT_EQ(window.lstQMK[frmQMK::open].view(), 0);
  EXPECT_EQ(marks(), "icon checked, Icon pressed");
}

}  // namespace
