// Closing the main window.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/faults.h"
#include "unit/support/journal_order.h"
#include "unit/support/main_window_fixture.h"

namespace {

using controls::UnloadMode;
using memory::desktop;
using platform::dialogs::Answer;
using platform::dialogs::MessageStyle;

class ExitTest : public MainWindowTest {};

TEST_F(ExitTest, AsksWithAQuestionIconAndAnEmptyTitle) {
  desktop().answers = {Answer::no};
  window.fireClose(UnloadMode::user);
  ASSERT_EQ(desktop().messages.size(), 1U);
  EXPECT_EQ(desktop().messages.front().text, L"Exit Gateway?");
  EXPECT_EQ(desktop().messages.front().style, MessageStyle::yesNoQuestion);
  EXPECT_EQ(desktop().messages.front().title, L"");
}

TEST_F(ExitTest, YesClosesTheWindow) {
  desktop().answers = {Answer::yes};
  EXPECT_TRUE(window.fireClose(UnloadMode::user));
  EXPECT_FALSE(window.loaded());
}

TEST_F(ExitTest, NoKeepsTheWindow) {
  desktop().answers = {Answer::no};
  EXPECT_FALSE(window.fireClose(UnloadMode::user));
  EXPECT_TRUE(window.loaded());
  EXPECT_TRUE(window.visible());
}

TEST_F(ExitTest, AnyAnswerButYesKeepsTheWindow) {
  desktop().answers = {Answer::ok};
  EXPECT_FALSE(window.fireClose(UnloadMode::user));
  EXPECT_TRUE(window.loaded());
}

TEST_F(ExitTest, NoLeavesSelectionsAndViewModesAsTheyWere) {
  addDataFile(L"C:\\Data\\", L"a.fp3");
  addDataFile(L"C:\\Data\\", L"b.fp3");
  addWebEntry(L"One", L"http://one.example");
  switchTo(frmQMK::open);
  window.mnuIcon.fireClick();
  window.lstQMK[frmQMK::open].select(1);
  window.setCaption(L"my title");
  desktop().answers = {Answer::no};

  window.fireClose(UnloadMode::user);

  const auto& list = window.lstQMK[frmQMK::open];
  EXPECT_EQ(window.TabMain.current(), frmQMK::open);
  EXPECT_EQ(list.selected(), std::optional<std::size_t>(1));
  EXPECT_EQ(list.view(), controls::iconView);
  EXPECT_EQ(list.tag(), L"0");
  EXPECT_TRUE(window.mnuIcon.checked());
  EXPECT_EQ(window.lstQMK[frmQMK::web].count(), 1U);
  EXPECT_EQ(window.caption(), L"my title");
}

TEST_F(ExitTest, TheMenuEntryAsks) {
  desktop().answers = {Answer::no, Answer::yes};
  window.mnuExit.fireClick();
  EXPECT_EQ(onlyMessage(), L"Exit Gateway?");
  EXPECT_TRUE(window.loaded());
  window.mnuExit.fireClick();
  EXPECT_FALSE(window.loaded());
}

TEST_F(ExitTest, TheToolbarButtonAsks) {
  desktop().answers = {Answer::no, Answer::yes};
  window.barMain.fireButtonClick(L"Exit");
  EXPECT_EQ(onlyMessage(), L"Exit Gateway?");
  EXPECT_TRUE(window.loaded());
  window.barMain.fireButtonClick(L"Exit");
  EXPECT_FALSE(window.loaded());
}

TEST_F(ExitTest, TheShutdownOfTheSystemAsksToo) {
  desktop().answers = {Answer::no, Answer::yes};
  EXPECT_FALSE(window.fireClose(UnloadMode::sessionEnd));
  EXPECT_EQ(onlyMessage(), L"Exit Gateway?");
  EXPECT_TRUE(window.fireClose(UnloadMode::sessionEnd));
}

// --- the end of the session ---

constexpr const wchar_t* reason =
    L"wait of frmQMK: The question \"Exit Gateway?\" waits for an answer.";

TEST_F(ExitTest, TheSystemIsToldWhatItWaitsForUntilTheAnswer) {
  bool toldBefore = false;
  desktop().onMessage = [&toldBefore](const memory::Message& /*message*/) {
    toldBefore = desktop().journalHas(reason);
    EXPECT_FALSE(desktop().journalHas(L"wait of frmQMK is over"));
  };
  for (const Answer answer : {Answer::no, Answer::yes}) {
    desktop().clearJournal();
    desktop().answers = {answer};
    window.fireClose(UnloadMode::sessionEnd);
    EXPECT_TRUE(toldBefore);
    EXPECT_TRUE(desktop().journalHas(L"wait of frmQMK is over"));
  }
}

TEST_F(ExitTest, TheUsersOwnWishToCloseMakesNoSessionWait) {
  desktop().answers = {Answer::no};
  window.fireClose(UnloadMode::user);
  EXPECT_FALSE(desktop().journalHas(reason));
  EXPECT_FALSE(desktop().journalHas(L"wait of frmQMK is over"));
}

TEST_F(ExitTest, ASecondQueryStacksNoSecondQuestion) {
  bool second = true;
  desktop().onMessage = [&](const memory::Message& /*message*/) {
    desktop().onMessage = nullptr;
    second = window.fireClose(UnloadMode::sessionEnd);
  };
  desktop().answers = {Answer::yes};
  EXPECT_TRUE(window.fireClose(UnloadMode::sessionEnd));
  EXPECT_FALSE(second) << "the first question is not answered yet";
  EXPECT_EQ(desktop().messages.size(), 1U);
}

TEST_F(ExitTest, AQueryWhileTheUserIsBeingAskedWaitsForThatAnswer) {
  desktop().onMessage = [&](const memory::Message& /*message*/) {
    desktop().onMessage = nullptr;
    EXPECT_FALSE(window.fireClose(UnloadMode::sessionEnd));
    EXPECT_TRUE(desktop().journalHas(reason));
  };
  desktop().answers = {Answer::no, Answer::no};
  window.fireClose(UnloadMode::user);
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_TRUE(desktop().journalHas(L"wait of frmQMK is over"));
  desktop().clearJournal();
  window.fireClose(UnloadMode::sessionEnd);
  EXPECT_EQ(desktop().messages.size(), 2U) << "the next query asks again";
}

TEST_F(ExitTest, NobodyIsAskedWhenTheSessionMustEndOrTheProgramIsToBeReplaced) {
  EXPECT_TRUE(window.fireClose(UnloadMode::forced));
  EXPECT_TRUE(window.loaded()) << "the other programs may still refuse";
  EXPECT_FALSE(desktop().journalHas(reason));
  desktop().answers = {Answer::no};
  window.fireClose(UnloadMode::sessionEnd);
  EXPECT_EQ(onlyMessage(), L"Exit Gateway?");
}

TEST_F(ExitTest, ASecondCopyThatOnlySaysSoIsNotAskedAboutItsWindow) {
  desktop().previousInstance = true;
  EXPECT_TRUE(window.fireClose(UnloadMode::sessionEnd));
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(ExitTest, TheEndOfTheSessionEndsTheProgramWithItsSettingsKept) {
  EXPECT_THROW(window.fireSessionEnd(), memory::ProgramEnded);
  expectInOrder({L"setting General\\Placement = 100 80 800 560 96 0", L"close help", L"end"});
}

TEST_F(ExitTest, TheSessionEndsEvenWhenTheSettingsCannotBeKept) {
  desktop().faults().failCall(1, 75, true);
  EXPECT_THROW(window.fireSessionEnd(), memory::ProgramEnded);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
}

TEST_F(ExitTest, CompiledHelpIsClosedWithTheWindow) {
  desktop().answers = {Answer::no, Answer::yes};
  window.fireClose(UnloadMode::user);
  EXPECT_FALSE(desktop().journalHas(L"close help"));
  window.fireClose(UnloadMode::user);
  EXPECT_TRUE(desktop().journalHas(L"close help"));
}

TEST_F(ExitTest, EveryWishToCloseAsksAgain) {
  desktop().answers = {Answer::no, Answer::no, Answer::no};
  for (int wish = 0; wish < 3; ++wish) {
    window.fireClose(UnloadMode::user);
  }
  EXPECT_EQ(desktop().messages.size(), 3U);
}

TEST_F(ExitTest, TheWatchStopsWithTheWindow) {
  window.tmrFileUpdate.setEnabled(true);
  desktop().answers = {Answer::yes};
  window.fireClose(UnloadMode::user);
  desktop().clearJournal();
  desktop().advance(10'000);
  EXPECT_FALSE(desktop().journalHas(L"tick tmrFileUpdate"));
}

}  // namespace
