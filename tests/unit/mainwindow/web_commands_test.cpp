// Create, Rename and Delete on the Web tab.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/support/journal_order.h"
#include "unit/support/main_window_fixture.h"

namespace {

using memory::desktop;
using platform::dialogs::Answer;
using platform::dialogs::MessageStyle;

constexpr const wchar_t* webFile = L"C:\\App\\QMKWebList.txt";

class WebCommandsTest : public MainWindowTest {
 protected:
  WebCommandsTest() {
    desktop().putFile(webFile,
                      "\"Weather\",\"http://weather.example\"\r\n"
                      "\"Maps\",\"http://maps.example\"\r\n");
    modQMKGeneral::LoadWebList(window.webList);
    switchTo(frmQMK::web);
    desktop().clearJournal();
  }

  frmWeb& dialog() { return *window.webDialog(); }

  controls::ListView& list = window.lstQMK[frmQMK::web];
};

// --- Create ---

TEST_F(WebCommandsTest, CreateShowsTheDialogWithoutBeingModal) {
  ASSERT_EQ(window.webDialog(), nullptr);
  window.mnuCreate.fireClick();
  ASSERT_NE(window.webDialog(), nullptr);
  EXPECT_TRUE(dialog().visible());
  EXPECT_EQ(dialog().cmdOK.caption(), L"Create");
  EXPECT_EQ(dialog().caption(), L"Create a Web Short Cut");
  EXPECT_FALSE(desktop().journalHas(L"modal frmWeb"));
}

TEST_F(WebCommandsTest, CreateBeginsWithTheDialogsOwnTexts) {
  window.mnuCreate.fireClick();
  EXPECT_EQ(dialog().txtName.text(), L"New Web Short Cut");
  EXPECT_EQ(dialog().txtUrl.text(), L"http://");
}

TEST_F(WebCommandsTest, CreateNeedsNoSelectedItem) {
  list.clear();
  window.mnuCreate.fireClick();
  EXPECT_TRUE(dialog().visible());
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(WebCommandsTest, AConfirmedCreateAddsTheEntry) {
  window.mnuCreate.fireClick();
  dialog().txtName.acceptTyped(L"News");
  dialog().txtUrl.acceptTyped(L"http://news.example");
  dialog().cmdOK.fireClick();
  EXPECT_FALSE(dialog().loaded());
  ASSERT_EQ(list.count(), 3U);
  EXPECT_EQ(list.text(2), L"News");
}

// --- Rename ---

TEST_F(WebCommandsTest, RenameShowsTheSelectedEntryInTheDialog) {
  list.select(1);
  window.mnuRename.fireClick();
  EXPECT_TRUE(dialog().visible());
  EXPECT_EQ(dialog().caption(), L"Rename Web Shortcut");
  EXPECT_EQ(dialog().cmdOK.caption(), L"Rename");
  EXPECT_EQ(dialog().txtName.text(), L"Maps");
  EXPECT_EQ(dialog().txtUrl.text(), L"http://maps.example");
  EXPECT_FALSE(desktop().journalHas(L"modal frmWeb"));
}

TEST_F(WebCommandsTest, AConfirmedRenameChangesTheEntry) {
  list.select(1);
  window.mnuRename.fireClick();
  dialog().txtName.acceptTyped(L"Charts");
  dialog().cmdOK.fireClick();
  EXPECT_EQ(desktop().bytesOf(webFile),
            "\"Weather\",\"http://weather.example\"\r\n"
            "\"Charts\",\"http://maps.example\"\r\n");
}

TEST_F(WebCommandsTest, RenameWithoutASelectedItemIsARunTimeErrorAndTheProgramGoesOn) {
  list.clear();
  window.mnuRename.fireClick();
  EXPECT_EQ(desktop().errorReports, std::vector<int>{91});
  EXPECT_EQ(onlyMessage(),
            L"Run-time error '91':\r\n\r\nObject variable or With block variable not set");
  EXPECT_EQ(desktop().shown(L"frmWeb"), 0);
  EXPECT_TRUE(window.loaded());
}

// --- the dialog is one and the same while it is open ---

TEST_F(WebCommandsTest, TheOpenDialogTakesItsNewRoleAndComesForward) {
  window.mnuCreate.fireClick();
  const frmWeb* const first = window.webDialog();

  window.mnuRename.fireClick();
  EXPECT_EQ(window.webDialog(), first);
  EXPECT_EQ(dialog().cmdOK.caption(), L"Rename");
  EXPECT_EQ(dialog().caption(), L"Rename Web Shortcut");
  EXPECT_EQ(dialog().txtName.text(), L"Weather");
  EXPECT_EQ(desktop().activated(L"frmWeb"), 1);

  window.mnuCreate.fireClick();
  EXPECT_EQ(window.webDialog(), first);
  EXPECT_EQ(dialog().cmdOK.caption(), L"Create");
  EXPECT_EQ(dialog().caption(), L"Create a Web Short Cut");
  EXPECT_EQ(desktop().activated(L"frmWeb"), 2);
}

TEST_F(WebCommandsTest, AClosedDialogBeginsAfresh) {
  window.mnuRename.fireClick();
  dialog().cmdCancel.fireClick();
  ASSERT_FALSE(dialog().loaded());

  window.mnuCreate.fireClick();

  EXPECT_TRUE(dialog().visible());
  EXPECT_EQ(dialog().caption(), L"Create a Web Short Cut");
  EXPECT_EQ(dialog().txtName.text(), L"New Web Short Cut");
  EXPECT_EQ(dialog().txtUrl.text(), L"http://");
}

// --- Delete ---

TEST_F(WebCommandsTest, DeleteAsksForTheSelectedEntryInUpperCase) {
  list.select(1);
  desktop().answers = {Answer::no};
  window.mnuDelete.fireClick();
  EXPECT_EQ(onlyMessage(), L"Are your sure you want to delete MAPS");
  EXPECT_EQ(desktop().messages.front().style, MessageStyle::yesNoWarning);
  EXPECT_EQ(desktop().messages.front().title, platform::application::title);
}

TEST_F(WebCommandsTest, OnNoTheEntryStays) {
  desktop().answers = {Answer::no};
  window.mnuDelete.fireClick();
  EXPECT_EQ(list.count(), 2U);
  EXPECT_EQ(desktop().journal().size(), 1U);
}

TEST_F(WebCommandsTest, OnYesTheEntryGoes) {
  desktop().answers = {Answer::yes};
  window.mnuDelete.fireClick();
  EXPECT_EQ(desktop().bytesOf(webFile), "\"Maps\",\"http://maps.example\"\r\n");
  ASSERT_EQ(list.count(), 1U);
  EXPECT_EQ(list.text(0), L"Maps");
}

TEST_F(WebCommandsTest, DeleteWithoutASelectedItemIsARunTimeErrorAndTheProgramGoesOn) {
  list.clear();
  window.mnuDelete.fireClick();
  EXPECT_EQ(desktop().errorReports, std::vector<int>{91});
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_TRUE(window.loaded());
}

}  // namespace
