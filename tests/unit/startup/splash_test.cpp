#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "startup/paths.h"
#include "startup/splash_window.h"
#include "unit/support/error_number.h"
#include "unit/support/journal_order.h"
#include "unit/support/places.h"

namespace {

using memory::desktop;
using memory::ProgramEnded;

constexpr int fadeSteps = 24;
constexpr int fadeStep = 25;
constexpr int fadeTime = fadeSteps * fadeStep;

class SplashTest : public memory::DesktopTest {
 protected:
  SplashTest() {
    modQMKGeneral::InitUserFolders();
    desktop().clearJournal();
  }

  [[nodiscard]] int opacity() const { return splash.opacity().value_or(-1); }

  /// Lets time pass until the splash is gone, for at most a minute. Returns the milliseconds that
  /// it took.
  int timeUntilGone() {
    int passed = 0;
    while (splash.loaded() && passed < 60'000) {
      desktop().advance(1);
      ++passed;
    }
    return passed;
  }

  frmSplash splash;
};

// --- before and while it loads ---

TEST_F(SplashTest, HasExactlyTheLayeredStyle) {
  EXPECT_EQ(splash.extendedStyle(), std::optional<std::uint32_t>(0x80000));
}

TEST_F(SplashTest, IsOpaqueFromTheStart) {
  EXPECT_EQ(opacity(), 255);
  splash.show();
  EXPECT_EQ(opacity(), 255);
}

TEST_F(SplashTest, FadeTimerIsDesignedDisabledWithFiveSeconds) {
  EXPECT_FALSE(splash.Timer1.enabled());
  EXPECT_EQ(splash.Timer1.interval(), 5000);
}

TEST_F(SplashTest, LoadStartsBothTimers) {
  splash.load();
  EXPECT_TRUE(splash.Timer1.enabled());
  EXPECT_EQ(splash.Timer1.interval(), 5000);
  EXPECT_TRUE(splash.Timer2.enabled());
  EXPECT_EQ(splash.Timer2.interval(), 1000);
}

TEST_F(SplashTest, ShowsGatewayAndTheRegisteredSign) {
  splash.load();
  EXPECT_EQ(splash.lblGateway.caption(), L"Gateway");
  EXPECT_EQ(splash.lblTM.caption(), std::wstring(1, static_cast<wchar_t>(174)));
}

TEST_F(SplashTest, ShowsTheReleaseWithoutLeadingZeros) {
  splash.load();
  EXPECT_EQ(splash.lblApp.caption(), L"Release 3.0.0");
}

TEST_F(SplashTest, ShowsAllThreePartsOfTheRelease) {
  desktop().version = {3, 0, 12};
  splash.load();
  EXPECT_EQ(splash.lblApp.caption(), L"Release 3.0.12");
}

TEST_F(SplashTest, ShowsThePartsOfALaterReleaseInTheirOrder) {
  desktop().version = {14, 215, 7};
  splash.load();
  EXPECT_EQ(splash.lblApp.caption(), L"Release 14.215.7");
}

TEST_F(SplashTest, ShowsTheCopyrightOfTheVersionResource) {
  desktop().copyright = L"Copyright \u00A9 1999 Somebody";
  splash.load();
  EXPECT_EQ(splash.lblCopyRight.caption(), L"Copyright \u00A9 1999 Somebody");
}

TEST_F(SplashTest, HasNoFallbackForAMissingVersionResource) {
  desktop().copyright = L"";
  desktop().version = {0, 0, 0};
  splash.load();
  EXPECT_EQ(splash.lblCopyRight.caption(), L"");
  EXPECT_EQ(splash.lblApp.caption(), L"Release 0.0.0");
}

TEST_F(SplashTest, LetsTheWindowSystemRunWhenAllItsLabelsAreSet) {
  std::wstring release;
  std::wstring copyright;
  desktop().onPump = [&] {
    release = splash.lblApp.caption();
    copyright = splash.lblCopyRight.caption();
  };
  splash.load();
  EXPECT_EQ(desktop().pumps, 1);
  EXPECT_EQ(release, L"Release 3.0.0");
  EXPECT_EQ(copyright, desktop().copyright);
}

TEST_F(SplashTest, MakesThePhotoImagesFolder) {
  splash.load();
  EXPECT_TRUE(desktop().has(L"C:\\App\\PhotoImages"));
}

TEST_F(SplashTest, LeavesExistingFoldersAlone) {
  desktop().putFolder(L"C:\\App\\PhotoImages");
  splash.load();
  EXPECT_EQ(linesBeginning(L"make folder"), 0U);
}

TEST_F(SplashTest, MakesAShortcutsFolderThatVanishedMeanwhile) {
  desktop().take(modQMKGeneral::ShortCutsFolder);
  splash.load();
  expectInOrder(
      {L"make folder " + modQMKGeneral::ShortCutsFolder, L"make folder C:\\App\\PhotoImages"});
}

TEST_F(SplashTest, ProvidesTheToolShortcutsBehindTheFolders) {
  desktop().putProgram(L"C:\\App\\plv3.exe");
  splash.load();
  expectInOrder({L"make folder C:\\App\\PhotoImages",
                 L"link " + modQMKGeneral::ShortCutsFolder + L"\\Plotview Browser.lnk", L"pump"});
}

TEST_F(SplashTest, AFolderThatCannotBeMadeIsNotCaught) {
  desktop().take(modQMKGeneral::UserFolder);
  EXPECT_EQ(errorNumberOf([this] { splash.load(); }), 76);
  EXPECT_FALSE(splash.foldersReady());
  EXPECT_FALSE(splash.loaded());
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(SplashTest, APhotoImagesFolderThatCannotBeMadeIsNotCaught) {
  desktop().take(L"C:\\App");
  EXPECT_EQ(errorNumberOf([this] { splash.load(); }), 76);
  EXPECT_FALSE(splash.foldersReady());
}

TEST_F(SplashTest, AnErrorOfTheToolShortcutsEndsTheLoadWithItsFoldersReady) {
  desktop().putProgram(L"C:\\App\\plv3.exe");
  desktop().linkFailure = 75;
  EXPECT_EQ(errorNumberOf([this] { splash.load(); }), 75);
  EXPECT_TRUE(splash.foldersReady());
  EXPECT_FALSE(splash.loaded());
}

// --- the second copy ---

TEST_F(SplashTest, OneCopyShowsNoMessage) {
  splash.load();
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(SplashTest, ASecondCopySaysSoAndEndsAtOnce) {
  desktop().previousInstance = true;

  EXPECT_THROW(splash.load(), ProgramEnded);

  ASSERT_EQ(desktop().messages.size(), 1U);
  const memory::Message& message = desktop().messages.front();
  EXPECT_EQ(message.text, L"Error: you already have Quillmark Running");
  EXPECT_EQ(message.style, platform::dialogs::MessageStyle::critical);
  EXPECT_EQ(message.title, platform::application::title);
}

TEST_F(SplashTest, ASecondCopyDoesNothingBehindItsMessage) {
  desktop().previousInstance = true;
  desktop().putProgram(L"C:\\App\\plv3.exe");

  EXPECT_THROW(splash.load(), ProgramEnded);

  expectInOrder({L"message Error: you already have Quillmark Running", L"end"});
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_FALSE(desktop().has(L"C:\\App\\PhotoImages"));
  EXPECT_TRUE(desktop().linkWrites.empty());
  EXPECT_EQ(desktop().pumps, 0);
}

// --- the display time ---

TEST_F(SplashTest, StaysOpaqueUntilTheFirstStepOfTheFade) {
  splash.show();
  desktop().advance(3000 + fadeStep - 1);
  EXPECT_EQ(opacity(), 255);
  desktop().advance(1);
  EXPECT_EQ(opacity(), 240);
}

TEST_F(SplashTest, TheThirdSecondStartsTheFade) {
  splash.show();
  desktop().advance(2999);
  EXPECT_EQ(splash.Timer1.interval(), 5000);
  EXPECT_TRUE(splash.Timer2.enabled());
  desktop().advance(1);
  EXPECT_TRUE(splash.loaded());
  EXPECT_EQ(splash.Timer1.interval(), fadeStep);
  EXPECT_FALSE(splash.Timer2.enabled());
}

TEST_F(SplashTest, WithoutAClickItIsGoneAfterThreePointSixSeconds) {
  splash.show();
  EXPECT_EQ(timeUntilGone(), 3000 + fadeTime);
}

TEST_F(SplashTest, IsModalUntilItHasFadedOut) {
  splash.showModal();
  EXPECT_FALSE(splash.loaded());
  EXPECT_EQ(desktop().clock().elapsed(), 3000 + fadeTime);
}

// --- the fade ---

TEST_F(SplashTest, FadesInTwentyFourStepsOfTenEvery25Milliseconds) {
  splash.show();
  splash.fireClick();
  for (int level = 240; level > 10; level -= 10) {
    desktop().advance(fadeStep - 1);
    EXPECT_EQ(opacity(), level == 240 ? 255 : level + 10);
    desktop().advance(1);
    EXPECT_EQ(opacity(), level);
    EXPECT_TRUE(splash.loaded());
  }
  desktop().advance(fadeStep);
  EXPECT_EQ(opacity(), 10);
  EXPECT_FALSE(splash.loaded());
  EXPECT_FALSE(splash.Timer1.enabled());
}

TEST_F(SplashTest, AClickAtOnceEndsItAfterPointSixSeconds) {
  splash.show();
  splash.fireClick();
  EXPECT_TRUE(splash.loaded());
  EXPECT_EQ(timeUntilGone(), fadeTime);
}

TEST_F(SplashTest, AnyKeyEndsItAfterPointSixSeconds) {
  for (const wchar_t key : {L' ', L'a', L'\r', L'\x1B', L'\u00E9'}) {
    frmSplash another;
    another.show();
    another.fireKeyPress(key);
    desktop().advance(fadeTime - 1);
    EXPECT_TRUE(another.loaded()) << static_cast<int>(key);
    desktop().advance(1);
    EXPECT_FALSE(another.loaded()) << static_cast<int>(key);
  }
}

TEST_F(SplashTest, AClickInBetweenStartsTheFadeThere) {
  splash.show();
  desktop().advance(1234);
  splash.fireClick();
  EXPECT_EQ(timeUntilGone(), fadeTime);
}

TEST_F(SplashTest, TwoRapidClicksNeitherRestartTheFadeNorSpeedItUp) {
  splash.show();
  splash.fireClick();
  splash.fireClick();
  desktop().advance(5 * fadeStep);
  EXPECT_EQ(opacity(), 200);
  splash.fireClick();
  EXPECT_EQ(opacity(), 200);
  EXPECT_EQ(timeUntilGone(), fadeTime - 5 * fadeStep);
}

TEST_F(SplashTest, ClicksAndKeysAtEveryStepChangeNothing) {
  splash.show();
  splash.fireClick();
  for (int step = 1; step < fadeSteps; ++step) {
    desktop().advance(fadeStep);
    EXPECT_EQ(opacity(), 250 - 10 * step);
    splash.fireClick();
    splash.fireKeyPress(L'x');
    EXPECT_TRUE(splash.loaded());
  }
  EXPECT_EQ(timeUntilGone(), fadeStep);
}

TEST_F(SplashTest, TheThirdSecondDoesNotDisturbAFadeThatAClickBegan) {
  splash.show();
  desktop().advance(2800);
  splash.fireClick();
  EXPECT_EQ(timeUntilGone(), fadeTime);
}

TEST_F(SplashTest, AnyOtherWishToCloseItStartsTheFadeToo) {
  splash.show();
  EXPECT_FALSE(splash.fireClose(controls::UnloadMode::user));
  EXPECT_TRUE(splash.loaded());
  EXPECT_EQ(timeUntilGone(), fadeTime);
}

TEST_F(SplashTest, WithoutTheDisplayTimerEachFiveSecondsLowerTheLevel) {
  splash.show();
  splash.Timer2.setEnabled(false);
  desktop().advance(5000);
  EXPECT_EQ(opacity(), 240);
  desktop().advance(5000);
  EXPECT_EQ(opacity(), 230);
  desktop().advance((fadeSteps - 2) * 5000);
  EXPECT_FALSE(splash.loaded());
}

// --- its look ---

TEST_F(SplashTest, LabelsStandInsideThePictureAndApart) {
  splash.load();
  for (const int dpi : {96, 120, 144, 168, 192, 240, 288, 384}) {
    const platform::Size design = splash.designSize();
    const platform::Size client{platform::scaled(design.width, dpi),
                                platform::scaled(design.height, dpi)};
    splash.fireLayout(client, dpi);
    std::vector<platform::Rect> places;
    for (const controls::Control* const label : splash.controls()) {
      const platform::Rect& place = label->bounds();
      EXPECT_GT(place.width, 0);
      EXPECT_GT(place.height, 0);
      EXPECT_GE(place.left, 0);
      EXPECT_GE(place.top, 0);
      EXPECT_LE(place.right(), client.width);
      EXPECT_LE(place.bottom(), client.height);
      for (const platform::Rect& other : places) {
        EXPECT_PRED_FORMAT2(unit::apart, place, other) << dpi;
      }
      places.push_back(place);
    }
    EXPECT_EQ(places.size(), 5U);
  }
}

}  // namespace
