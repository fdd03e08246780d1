#include "mainwindow/placement.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <memory>
#include <string>

#include "mainwindow/main_window.h"
#include "platform/desktop.h"
#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "startup/paths.h"
#include "unit/support/error_number.h"

namespace {

using controls::Placement;
using mainwindow::broughtOntoScreen;
using mainwindow::placementFromText;
using mainwindow::placementText;
using memory::desktop;
using platform::Rect;

const std::vector<Rect> twoScreens{{0, 0, 1280, 984}, {1280, 0, 1920, 1040}};
const std::vector<Rect> stackedScreens{{0, 0, 1280, 984}, {0, 984, 1280, 1040}};
constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

TEST(Placement, SurvivesBeingWrittenAndRead) {
  const Placement placement{.normal = {-1900, 20, 800, 600}, .dpi = 144, .maximised = true};
  EXPECT_EQ(placementText(placement), L"-1900 20 800 600 144 1");
  EXPECT_EQ(placementFromText(placementText(placement)), placement);
}

TEST(Placement, IsNothingWhenTheTextIsAnythingElse) {
  for (const wchar_t* const text :
       {L"", L"1 2 3", L"1 2 3 4 96 0 7", L"1 2 3 4 96 x", L"1 2 0 4 96 0", L"1 2 3 -4 96 0",
        L"1 2 3 4 0 0", L"1 2 3 4 96 0x", L"99999999999 2 3 4 96 0", L"1000001 2 3 4 96 0",
        L"1 -1000001 3 4 96 0", L"-99999999999 2 3 4 96 0", L"1,2,3,4,96,0"}) {
    EXPECT_EQ(placementFromText(text), std::nullopt) << text;
  }
}

TEST(Placement, FarAwayAndTinyIsStillOne) {
  EXPECT_EQ(placementFromText(L"1000000 -1000000 1 1 1 0"),
            (Placement{.normal = {1'000'000, -1'000'000, 1, 1}, .dpi = 1, .maximised = false}));
}

TEST(Placement, OnAScreenStaysWhereItIs) {
  EXPECT_EQ(broughtOntoScreen({100, 50, 800, 600}, twoScreens), (Rect{100, 50, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({1400, 50, 800, 600}, twoScreens), (Rect{1400, 50, 800, 600}));
}

TEST(Placement, PartlyOffTheScreenIsMovedInOnTheScreenThatHoldsMostOfIt) {
  EXPECT_EQ(broughtOntoScreen({-300, -40, 800, 600}, twoScreens), (Rect{0, 0, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({3000, 900, 800, 600}, twoScreens), (Rect{2400, 440, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({1200, 50, 800, 600}, twoScreens), (Rect{1280, 50, 800, 600}));
}

TEST(Placement, OfTwoStackedScreensTheOneThatHoldsMoreOfItGetsIt) {
  EXPECT_EQ(broughtOntoScreen({100, 800, 800, 600}, stackedScreens), (Rect{100, 984, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({100, 500, 800, 600}, stackedScreens), (Rect{100, 384, 800, 600}));
  const std::vector<Rect> lowerFirst{stackedScreens[1], stackedScreens[0]};
  EXPECT_EQ(broughtOntoScreen({100, 800, 800, 600}, lowerFirst), (Rect{100, 984, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({100, 500, 800, 600}, lowerFirst), (Rect{100, 384, 800, 600}));
}

TEST(Placement, OfTwoScreensThatHoldAsMuchOfItTheFirstGetsIt) {
  EXPECT_EQ(broughtOntoScreen({880, 50, 800, 600}, twoScreens), (Rect{480, 50, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({100, 684, 800, 600}, stackedScreens), (Rect{100, 384, 800, 600}));
}

TEST(Placement, BesideAScreenAtItsHeightItIsNotOnIt) {
  // The first is at the height of the second screen but left of both; the second is above and left
  // of both.
  EXPECT_EQ(broughtOntoScreen({-2000, 1100, 800, 600}, stackedScreens), (Rect{0, 384, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({-2000, -2000, 800, 600}, {{0, 0, 500, 500}, {900, 900, 800, 700}}),
            (Rect{0, 0, 500, 500}));
}

TEST(Placement, AtTheEdgeOfAllCoordinatesComesToThePrimaryScreen) {
  EXPECT_EQ(broughtOntoScreen({most, most, most, most}, twoScreens), (Rect{0, 0, 1280, 984}));
  EXPECT_EQ(broughtOntoScreen({most, least, 800, 600}, twoScreens), (Rect{480, 0, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({least, most, 800, 600}, twoScreens), (Rect{0, 384, 800, 600}));
}

TEST(Placement, OnAScreenThatIsGoneComesToThePrimaryOne) {
  EXPECT_EQ(broughtOntoScreen({-5000, -5000, 800, 600}, twoScreens), (Rect{0, 0, 800, 600}));
  EXPECT_EQ(broughtOntoScreen({9000, 9000, 800, 600}, twoScreens), (Rect{480, 384, 800, 600}));
}

TEST(Placement, LargerThanTheScreenIsMadeSmaller) {
  EXPECT_EQ(broughtOntoScreen({-10, -10, 5000, 4000}, {{0, 40, 1280, 944}}),
            (Rect{0, 40, 1280, 944}));
}

TEST(Placement, OfAnotherDensityKeepsItsCentre) {
  EXPECT_EQ(mainwindow::scaledAboutCentre({100, 100, 400, 200}, 96, 144), (Rect{0, 50, 600, 300}));
  EXPECT_EQ(mainwindow::scaledAboutCentre({100, 100, 400, 200}, 192, 96),
            (Rect{200, 150, 200, 100}));
  EXPECT_EQ(mainwindow::scaledAboutCentre({1, 2, 3, 4}, 120, 120), (Rect{1, 2, 3, 4}));
}

TEST(Placement, OfAnotherDensityDoesNotWrapAround) {
  using mainwindow::scaledAboutCentre;
  EXPECT_EQ(scaledAboutCentre({0, 0, most, most}, 192, 96),
            (Rect{536870912, 536870912, most / 2, most / 2}));
  EXPECT_EQ(errorNumberOf([] {
              static_cast<void>(scaledAboutCentre({0, 0, most, 10}, 96, 192));
            }),
            6);
  EXPECT_EQ(errorNumberOf([] {
              static_cast<void>(scaledAboutCentre({0, 0, 10, most}, 96, 192));
            }),
            6);
  EXPECT_EQ(errorNumberOf([] {
              static_cast<void>(scaledAboutCentre({least, 0, 10, 10}, 96, 192));
            }),
            6);
  EXPECT_EQ(errorNumberOf([] {
              static_cast<void>(scaledAboutCentre({0, least, 10, 10}, 96, 192));
            }),
            6);
  EXPECT_EQ(errorNumberOf([] {
              static_cast<void>(scaledAboutCentre({most, 0, 10, 10}, 192, 96));
            }),
            6);
}

TEST(Placement, AcrossTwoScreensGoesToTheOneWithMoreOfIt) {
  EXPECT_EQ(broughtOntoScreen({100, 50, 2000, 600}, twoScreens), (Rect{0, 50, 1280, 600}));
  EXPECT_EQ(broughtOntoScreen({600, 50, 2000, 600}, twoScreens), (Rect{1280, 50, 1920, 600}));
  EXPECT_EQ(broughtOntoScreen({50, 100, 600, 1500}, stackedScreens), (Rect{50, 0, 600, 984}));
}

TEST(Placement, WithoutAnyScreenStaysWhereItIs) {
  EXPECT_EQ(broughtOntoScreen({1, 2, 3, 4}, {}), (Rect{1, 2, 3, 4}));
}

const std::vector<platform::screens::Screen> mixedScreens{
    {.workArea = {0, 0, 1280, 984}, .dpi = 96}, {.workArea = {1280, 0, 3840, 2100}, .dpi = 192}};

Rect today(const Rect& normal, int dpi) {
  return mainwindow::placeToday({.normal = normal, .dpi = dpi}, mixedScreens);
}

TEST(Placement, TakesTheDensityOfItsScreenAndNotOfThePrimaryOne) {
  EXPECT_EQ(today({1400, 100, 1600, 1200}, 192), (Rect{1400, 100, 1600, 1200}));
  EXPECT_EQ(today({1500, 200, 800, 600}, 96), (Rect{1280, 0, 1600, 1200}))
      << "the screen has become a denser one since then";
  EXPECT_EQ(today({100, 100, 800, 600}, 96), (Rect{100, 100, 800, 600}));
  EXPECT_EQ(today({200, 100, 800, 600}, 192), (Rect{400, 250, 400, 300}));
}

TEST(Placement, NeitherGrowsNorShrinksFromStartToStart) {
  for (const Rect& first : {Rect{1400, 100, 1600, 1200}, Rect{900, 100, 800, 600},
                            Rect{1279, 0, 3000, 2000}, Rect{-500, -500, 700, 500}}) {
    for (const int dpi : {96, 192}) {
      const Rect once = today(first, dpi);
      const int there = once.left < 1280 ? 96 : 192;
      EXPECT_EQ(today(once, there), once);
    }
  }
}

TEST(Placement, WiderInADenserScreenItStaysOnThatScreen) {
  EXPECT_EQ(today({1290, 100, 900, 600}, 96), (Rect{1280, 0, 1800, 1200}));
  EXPECT_EQ(today({4000, 1900, 1000, 700}, 96), (Rect{3120, 700, 2000, 1400}));
}

TEST(Placement, OnNoScreenOfTodayGoesToTheFirstAndTakesItsDensity) {
  EXPECT_EQ(today({9000, 9000, 1000, 800}, 192), (Rect{780, 584, 500, 400}));
  EXPECT_EQ(mainwindow::placeToday({.normal = {1, 2, 3, 4}, .dpi = 192}, {}), (Rect{1, 2, 3, 4}));
}

class RememberedWindow : public memory::DesktopTest {
 protected:
  static std::unique_ptr<frmQMK> hidden() {
    modQMKGeneral::InitUserFolders();
    auto window = std::make_unique<frmQMK>();
    window->load();
    window->SetupMainWindow();
    return window;
  }
  static std::unique_ptr<frmQMK> made() {
    auto window = hidden();
    window->show();
    return window;
  }
  static bool close(frmQMK& window, platform::dialogs::Answer answer) {
    desktop().answers.push_back(answer);
    return window.unload();
  }
};

using platform::dialogs::Answer;

TEST_F(RememberedWindow, ComesBackToItsPlace) {
  auto first = made();
  first->peer()->place({.normal = {40, 30, 900, 700}, .dpi = 96, .maximised = true});
  EXPECT_TRUE(close(*first, Answer::yes));
  EXPECT_EQ(desktop().setting(L"General", L"Placement"), L"40 30 900 700 96 1");
  const auto second = made();
  EXPECT_EQ(second->peer()->placement(),
            (Placement{.normal = {40, 30, 900, 700}, .dpi = 96, .maximised = true}));
}

TEST_F(RememberedWindow, ForgetsNothingAndLearnsNothingWhenTheUserStays) {
  desktop().setSetting(L"General", L"Placement", L"1 2 300 200 96 0");
  auto window = made();
  EXPECT_FALSE(close(*window, Answer::no));
  EXPECT_EQ(desktop().setting(L"General", L"Placement"), L"1 2 300 200 96 0");
}

TEST_F(RememberedWindow, IsRememberedAtTheEndOfASessionToo) {
  auto window = made();
  desktop().answers.push_back(Answer::yes);
  EXPECT_TRUE(window->fireClose(controls::UnloadMode::sessionEnd));
  EXPECT_TRUE(desktop().setting(L"General", L"Placement").has_value());
}

TEST_F(RememberedWindow, IsNotRememberedWhenItNeverHadAPlace) {
  for (const controls::UnloadMode mode :
       {controls::UnloadMode::sessionEnd, controls::UnloadMode::user}) {
    desktop().setSetting(L"General", L"Placement", L"1 2 300 200 96 0");
    desktop().setSetting(L"General", L"Columns1", L"2222 2000 3000 4000 0");
    const auto window = hidden();
    window->lstQMK[1].acceptColumnWidth(0, 1111);
    desktop().answers.push_back(Answer::yes);
    EXPECT_TRUE(window->fireClose(mode));
    EXPECT_EQ(desktop().setting(L"General", L"Placement"), L"1 2 300 200 96 0");
    EXPECT_EQ(desktop().setting(L"General", L"Columns1"), L"2222 2000 3000 4000 0");
  }
}

TEST_F(RememberedWindow, IsScaledToTheDensityOfTheScreen) {
  desktop().screens.front().dpi = 192;
  desktop().setSetting(L"General", L"Placement", L"300 200 500 300 96 0");
  const auto window = made();
  EXPECT_EQ(window->peer()->placement().normal, (Rect{50, 50, 1000, 600}));
}

TEST_F(RememberedWindow, OnASecondScreenKeepsItsSizeThere) {
  desktop().screens = mixedScreens;
  desktop().setSetting(L"General", L"Placement", L"1400 100 1600 1200 192 0");
  const auto window = made();
  EXPECT_EQ(window->peer()->placement().normal, (Rect{1400, 100, 1600, 1200}));
}

TEST_F(RememberedWindow, OffScreenIsBroughtBack) {
  desktop().setSetting(L"General", L"Placement", L"5000 5000 800 600 96 0");
  const auto window = made();
  EXPECT_EQ(window->peer()->placement().normal, (Rect{480, 384, 800, 600}));
}

TEST_F(RememberedWindow, WithASpoiltSettingStaysWhereTheSystemPutIt) {
  const Placement before = made()->peer()->placement();
  desktop().setSetting(L"General", L"Placement", L"spoilt");
  EXPECT_EQ(made()->peer()->placement(), before);
}

TEST_F(RememberedWindow, KeepsTheWidthsOfItsColumns) {
  auto first = made();
  first->lstQMK[1].acceptColumnWidth(0, 2222);
  EXPECT_TRUE(close(*first, Answer::yes));
  const auto second = made();
  EXPECT_EQ(second->lstQMK[1].columns()[0].widthTwips, 2222);
  EXPECT_EQ(second->lstQMK[1].columns()[1].widthTwips, 2000);
  EXPECT_EQ(second->lstQMK[1].columns()[4].widthTwips, 0);
}

TEST_F(RememberedWindow, NeverOpensAHiddenColumnNorHidesAnother) {
  desktop().setSetting(L"General", L"Columns1", L"0 -5 99999999 4000 700");
  const auto window = made();
  EXPECT_EQ(window->lstQMK[1].columns()[0].widthTwips, 15);
  EXPECT_EQ(window->lstQMK[1].columns()[1].widthTwips, 15);
  EXPECT_EQ(window->lstQMK[1].columns()[2].widthTwips, 60'000);
  EXPECT_EQ(window->lstQMK[1].columns()[3].widthTwips, 4000);
  EXPECT_EQ(window->lstQMK[1].columns()[4].widthTwips, 0);
}

TEST_F(RememberedWindow, TakesTheTablesWidthsWhenTheSettingDoesNotFitTheList) {
  for (const wchar_t* const text : {L"1 2", L"a b c d e", L"1 2 3 4 5 6"}) {
    desktop().setSetting(L"General", L"Columns1", text);
    const auto window = made();
    EXPECT_EQ(window->lstQMK[1].columns()[0].widthTwips, 1500) << text;
  }
}

TEST_F(RememberedWindow, ClosesEvenWhenNothingCanBeRemembered) {
  auto window = made();
  desktop().faults().failCall(1, 75, true);
  EXPECT_TRUE(close(*window, Answer::yes));
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
}

TEST_F(RememberedWindow, ShowsTheEditCommandsWhereTheUserAsksForThem) {
  const auto window = made();
  window->show();
  const std::array<std::wstring, 4> additions{
      L" - mnuCopy mnuCopyPath mnuPaste mnuOpenFolder",
      L" - mnuCopy mnuCopyPath mnuPaste mnuOpenFolder mnuRemoveFromList - mnuAddFiles mnuAddList "
      L"mnuSaveListAs mnuEarlierLists mnuFindMoved",
      L"", L" - mnuCopy mnuCopyPath mnuPaste - mnuAddList mnuSaveListAs mnuEarlierLists"};
  for (std::size_t tab = 0; tab < additions.size(); ++tab) {
    desktop().clearJournal();
    window->lstQMK.at(tab).fireContextMenu(30, 40);
    EXPECT_TRUE(desktop().journalHas(L"menu mnuCreate mnuRename mnuDelete" + additions.at(tab) +
                                     L" at 30 40"));
  }
}

TEST_F(RememberedWindow, TakesItsDialogsWithItWhenItCloses) {
  const auto window = made();
  window->show();
  window->mnuAbout_Click();
  window->TabMain.setCurrent(frmQMK::web);
  window->mnuCreate_Click();
  EXPECT_TRUE(close(*window, Answer::yes));
  EXPECT_EQ(desktop().window(L"frmAbout"), nullptr);
  EXPECT_EQ(desktop().window(L"frmWeb"), nullptr);
}

}  // namespace
