// Closing the main window: the question for every way of closing, and both answers.
#include "gateway_test.h"
#include "harness/end_of_session.h"

namespace desktop_tests {
namespace {

/// Ways in which a person, or the system, asks the window to close.
enum class CloseWay { closeBox, altF4, menu, toolbar };

class Closing : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }
};

class ClosingWay : public Closing, public ::testing::WithParamInterface<CloseWay> {
 protected:
  void askToClose() const {
    harness::bringToFront(app->main());
    switch (GetParam()) {
      case CloseWay::closeBox:
        harness::post(app->main(), WM_SYSCOMMAND, SC_CLOSE);
        break;
      case CloseWay::altF4:
        harness::pressKey(VK_F4, VK_MENU);
        break;
      case CloseWay::menu:
        app->command(ids::mnuExit);
        break;
      case CloseWay::toolbar:
        harness::clickAt(harness::centreOf(app->toolbar().buttonOnScreen(ids::buttonExit)),
                         app->main());
        break;
    }
  }
};

TEST_P(ClosingWay, NoLeavesEverythingAsItWas) {
  app->addDataFile(L"a.fp3");
  app->addDataFile(L"b.fp3");
  app->startToMain();
  app->selectTab(Tab::newFile);
  app->command(ids::mnuList);
  EXPECT_TRUE(eventually([&] { return app->list(Tab::newFile).view(); }, LV_VIEW_DETAILS));
  const auto selected = app->list(Tab::newFile).selected();
  askToClose();
  expectMessage(L"Exit Gateway?", questionIcon, yesAndNo, IDNO, L"");
  EXPECT_TRUE(app->running());
  EXPECT_NE(IsWindowVisible(app->main()), FALSE);
  EXPECT_NE(IsWindowEnabled(app->main()), FALSE);
  EXPECT_EQ(app->tabs().current(), Tab::newFile);
  EXPECT_EQ(app->list(Tab::newFile).view(), LV_VIEW_DETAILS);
  EXPECT_EQ(app->list(Tab::newFile).selected(), selected);
  EXPECT_TRUE(harness::menuEntry(app->main(), ids::mnuList).checked);
}

TEST_P(ClosingWay, YesEndsTheProgram) {
  app->startToMain();
  askToClose();
  app->waitForMessage().answer(IDYES);
  EXPECT_EQ(app->waitForExit(), 0U);
  endedOnPurpose();
}

std::string nameOf(const ::testing::TestParamInfo<CloseWay>& way) {
  switch (way.param) {
    case CloseWay::closeBox:
      return "CloseBox";
    case CloseWay::altF4:
      return "AltF4";
    case CloseWay::menu:
      return "Menu";
    case CloseWay::toolbar:
      break;
  }
  return "Toolbar";
}

INSTANTIATE_TEST_SUITE_P(By, ClosingWay,
                         ::testing::Values(CloseWay::closeBox, CloseWay::altF4, CloseWay::menu,
                                           CloseWay::toolbar),
                         nameOf);

TEST_F(Closing, EndOfSessionAsksAndNoRefuses) {
  app->startToMain();
  const harness::EndOfSession question(app->main());
  expectMessage(L"Exit Gateway?", questionIcon, yesAndNo, IDNO, L"");
  EXPECT_FALSE(question.mayEnd());
  EXPECT_TRUE(app->running());
}

TEST_F(Closing, EndOfSessionAsksAndYesAgrees) {
  app->startToMain();
  const harness::EndOfSession question(app->main());
  expectMessage(L"Exit Gateway?", questionIcon, yesAndNo, IDYES, L"");
  EXPECT_TRUE(question.mayEnd());
  endedOnPurpose();
}

// --- queries of the system that nobody can answer ---

TEST_F(Closing, ASessionThatMustEndIsNotAsked) {
  app->startToMain();
  for (const LPARAM reason : {LPARAM{ENDSESSION_CRITICAL}, LPARAM{ENDSESSION_CLOSEAPP}}) {
    EXPECT_TRUE(harness::EndOfSession(app->main(), reason).mayEnd());
    EXPECT_FALSE(app->dialogShown());
  }
  harness::post(app->main(), WM_ENDSESSION, FALSE, ENDSESSION_CRITICAL);
  app->selectTab(Tab::web);
  EXPECT_TRUE(app->running()) << "another program has refused";
}

TEST_F(Closing, TheEndOfTheSessionEndsTheProgramAndKeepsItsPlace) {
  app->startToMain();
  GatewayApp::skipExample();
  harness::TestProfile::removeSetting(L"Placement");
  harness::post(app->main(), WM_ENDSESSION, TRUE, ENDSESSION_CLOSEAPP);
  EXPECT_EQ(app->waitForExit(), 0U);
  EXPECT_TRUE(harness::TestProfile::setting(L"Placement").has_value());
  endedOnPurpose();
}

TEST_F(Closing, ASecondQueryStacksNoSecondQuestion) {
  app->startToMain();
  const harness::EndOfSession first(app->main());
  const harness::MessageBoxReader box = app->waitForMessage();
  EXPECT_FALSE(harness::EndOfSession(app->main()).mayEnd()) << "the first is not answered yet";
  EXPECT_EQ(app->messagesShown(), std::vector<std::wstring>{L"Exit Gateway?"});
  box.answer(IDNO);
  EXPECT_FALSE(first.mayEnd());
  EXPECT_TRUE(app->running());
}

TEST_F(Closing, TheSessionEndsWithTheQuestionUp) {
  app->startToMain();
  harness::post(app->main(), WM_CLOSE);
  static_cast<void>(app->waitForMessage());
  harness::post(app->main(), WM_ENDSESSION, TRUE, ENDSESSION_CRITICAL);
  EXPECT_EQ(app->waitForExit(), 0U);
  endedOnPurpose();
}

}  // namespace
}  // namespace desktop_tests
