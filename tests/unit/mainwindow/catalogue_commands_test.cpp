// Create, Rename and Delete on the Open tab.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/support/journal_order.h"
#include "unit/support/main_window_fixture.h"

namespace {

using memory::desktop;
using platform::dialogs::Answer;
using platform::dialogs::MessageStyle;

constexpr const wchar_t* fileOfTheCatalogue = L"C:\\App\\QMKFileList3.txt";

class CatalogueCommandsTest : public MainWindowTest {
 protected:
  CatalogueCommandsTest() {
    desktop().putFile(L"C:\\Data\\Ridge.fp3", "ridge");
    desktop().putFile(L"C:\\Data\\Slope.bi3", "slope");
    desktop().putFile(fileOfTheCatalogue,
                      "\"FP3\",\"C:\\Data\\Ridge.fp3\",\"1/2/2026\"\r\n"
                      "\"BI3\",\"C:\\Data\\Slope.bi3\",\"1/3/2026\"\r\n");
    modQMKGeneral::LoadCatalogueView(window.catalogue);
    switchTo(frmQMK::open);
    desktop().clearJournal();
  }

  [[nodiscard]] static std::string catalogue() {
    return desktop().bytesOf(fileOfTheCatalogue).value_or("missing");
  }

  controls::ListView& list = window.lstQMK[frmQMK::open];
};

TEST_F(CatalogueCommandsTest, CreateDoesNothing) {
  window.mnuCreate_Click();
  EXPECT_TRUE(desktop().journal().empty());
}

// --- Rename ---

TEST_F(CatalogueCommandsTest, RenameAsksForTheSelectedFileInUpperCaseWithItsType) {
  list.select(1);
  desktop().inputAnswers = {L""};
  window.mnuRename.fireClick();
  ASSERT_EQ(desktop().inputs.size(), 1U);
  EXPECT_EQ(desktop().inputs.front().prompt,
            L"Rename file  SLOPE.BI3\rType: Planar Intercept Inventory");
  EXPECT_EQ(desktop().inputs.front().title, L"  ");
  EXPECT_EQ(desktop().inputs.front().defaultAnswer, L" ");
}

TEST_F(CatalogueCommandsTest, RenameHandsTheAnswerToTheCatalogue) {
  desktop().inputAnswers = {L"Crest"};
  window.mnuRename.fireClick();
  EXPECT_EQ(desktop().bytesOf(L"C:\\Data\\Crest.fp3"), "ridge");
  EXPECT_FALSE(desktop().has(L"C:\\Data\\Ridge.fp3"));
  EXPECT_NE(catalogue().find("C:\\Data\\Crest.FP3"), std::string::npos);
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(CatalogueCommandsTest, CancelledRenameChangesNothing) {
  const std::string before = catalogue();
  desktop().inputAnswers = {L""};
  window.mnuRename.fireClick();
  EXPECT_EQ(catalogue(), before);
  EXPECT_TRUE(desktop().has(L"C:\\Data\\Ridge.fp3"));
  EXPECT_EQ(desktop().journal().size(), 1U);
}

TEST_F(CatalogueCommandsTest, OkWithoutTypingPassesTheBlankOn) {
  desktop().inputAnswers = {std::nullopt};
  window.mnuRename.fireClick();
  EXPECT_EQ(desktop().inputs.front().answer, L" ");
  // The rename makes its own name of the blank; in any case the old name is gone.
  EXPECT_FALSE(desktop().has(L"C:\\Data\\Ridge.fp3"));
  EXPECT_NE(desktop().journal().size(), 1U);
}

TEST_F(CatalogueCommandsTest, RenameOfAnEmptyListDoesNothing) {
  list.clear();
  window.mnuRename.fireClick();
  EXPECT_TRUE(desktop().journal().empty());
}

// --- Delete ---

TEST_F(CatalogueCommandsTest, DeleteAsksForTheSelectedFileInUpperCase) {
  desktop().answers = {Answer::no};
  window.mnuDelete.fireClick();
  EXPECT_EQ(onlyMessage(), L"Are your sure you want to delete RIDGE.FP3");
  EXPECT_EQ(desktop().messages.front().style, MessageStyle::yesNoWarning);
  EXPECT_EQ(desktop().messages.front().title, platform::application::title);
}

TEST_F(CatalogueCommandsTest, DeletedWithYesTheEntryAndItsFileGo) {
  list.select(1);
  desktop().answers = {Answer::yes};
  window.mnuDelete.fireClick();
  EXPECT_EQ(catalogue(), "\"FP3\",\"C:\\Data\\Ridge.fp3\",\"1/2/2026\"\r\n");
  EXPECT_FALSE(desktop().has(L"C:\\Data\\Slope.bi3"));
  EXPECT_TRUE(desktop().has(L"C:\\Data\\Ridge.fp3"));
  EXPECT_EQ(desktop().messages.size(), 1U);
}

TEST_F(CatalogueCommandsTest, TheViewIsReloadedBehindTheDeletion) {
  desktop().answers = {Answer::yes};
  window.mnuDelete.fireClick();
  ASSERT_EQ(list.count(), 1U);
  EXPECT_EQ(list.text(0), L"Slope.bi3");
  EXPECT_EQ(desktop().journal().back(), std::wstring(L"read ") + fileOfTheCatalogue);
}

TEST_F(CatalogueCommandsTest, OnNoNothingHappens) {
  const std::string before = catalogue();
  desktop().answers = {Answer::no};
  window.mnuDelete.fireClick();
  EXPECT_EQ(catalogue(), before);
  EXPECT_TRUE(desktop().has(L"C:\\Data\\Ridge.fp3"));
  EXPECT_EQ(desktop().journal().size(), 1U);
}

TEST_F(CatalogueCommandsTest, DeleteOfAnEmptyListDoesNothing) {
  list.clear();
  window.mnuDelete.fireClick();
  EXPECT_TRUE(desktop().journal().empty());
}

TEST_F(CatalogueCommandsTest,
       TheEntryThatTheQuestionNamedIsDeletedEvenIfTheListIsReloadedMeanwhile) {
  desktop().answers = {Answer::yes};
  desktop().onMessage = [this](const auto& /*message*/) { list.select(1); };
  window.mnuDelete.fireClick();
  EXPECT_FALSE(desktop().has(L"C:\\Data\\Ridge.fp3"));
  EXPECT_TRUE(desktop().has(L"C:\\Data\\Slope.bi3"));
}

TEST_F(CatalogueCommandsTest, AMissingCatalogueIsARunTimeErrorAndTheViewStays) {
  desktop().take(fileOfTheCatalogue);
  desktop().answers = {Answer::yes};
  window.mnuDelete.fireClick();
  EXPECT_EQ(desktop().errorReports, std::vector<int>{53});
  EXPECT_EQ(list.count(), 2U);
}

}  // namespace
