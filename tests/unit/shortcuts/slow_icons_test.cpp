// Icons of programs on network drives and removable ones.
#include "shortcuts/slow_icons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/background.h"
#include "platform/faults.h"
#include "unit/support/shortcuts_fixture.h"

namespace {

using memory::desktop;
using modSC::LoadShortcutList;
using Texts = std::vector<std::wstring>;

constexpr std::uint32_t blank = 0;
constexpr std::uint32_t darkRed = 0xFFCC2211;
constexpr std::uint32_t darkGreen = 0xFF11CC22;

const std::wstring onShare = L"\\\\server\\tools\\calc.exe";
const std::wstring onStick = L"E:\\survey.exe";

class SlowIconsTest : public ShortcutsTest {
 protected:
  SlowIconsTest() {
    desktop().putProgram(onShare);
    desktop().setIcon(onShare, darkRed);
    desktop().putProgram(onStick);
    desktop().setIcon(onStick, darkGreen);
    desktop().slowDrives = {L"E:"};
    desktop().backgroundMilliseconds = 2000;
    putShortcut(L"Share.lnk", onShare);
    putShortcut(L"Stick.lnk", onStick);
  }
  /// The first pixel of a shortcut's large and small icon.
  std::pair<std::uint32_t, std::uint32_t> pixels(const std::wstring& key) {
    const auto pixel = [&key](const controls::ImageList& images) {
      const auto index = images.indexOf(key);
      return index ? images.images().at(*index).picture.pixels.at(0) : 0xDEAD;
    };
    return {pixel(window.imgShortCut[0]), pixel(window.imgShortCut[1])};
  }
  static auto both(std::uint32_t colour) { return std::pair(colour, colour); }
  static Texts filesAsked() {
    Texts files;
    for (const auto& [file, side] : desktop().iconsAsked) {
      if (files.empty() || files.back() != file) {
        files.push_back(file);
      }
    }
    return files;
  }
};

TEST_F(SlowIconsTest, TheListIsThereAtOnceWithBlankIcons) {
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(listed(), (Texts{L"Share", L"Stick"}));
  EXPECT_TRUE(desktop().iconsAsked.empty()) << "nobody has waited for a drive";
  EXPECT_EQ(pixels(L"Share.lnk"), both(blank));
  EXPECT_EQ(pixels(L"Stick.lnk"), both(blank));
}

TEST_F(SlowIconsTest, ATargetThatAnswersAfterTwoSecondsGetsItsIconThenAndTheWindowIsUsableBefore) {
  LoadShortcutList(window.shortcuts);
  select(L"Share");
  list.fireDoubleClick();
  EXPECT_EQ(desktop().starts, (std::vector<memory::Start>{{onShare, onShare}}));
  desktop().advance(1999);
  EXPECT_EQ(pixels(L"Share.lnk"), both(blank));
  desktop().advance(1);
  EXPECT_EQ(pixels(L"Share.lnk"), both(darkRed));
  EXPECT_EQ(list.text(list.selectedItem()), L"Share");
}

TEST_F(SlowIconsTest, ShortcutsToOneProgramWaitForOneReading) {
  putShortcut(L"Third.lnk", onShare);
  putShortcut(L"Fourth.lnk", onStick);
  LoadShortcutList(window.shortcuts);
  desktop().advance(2000);
  EXPECT_EQ(pixels(L"Share.lnk"), both(darkRed));
  EXPECT_EQ(pixels(L"Third.lnk"), both(darkRed));
  desktop().advance(2000);
  EXPECT_EQ(pixels(L"Stick.lnk"), both(darkGreen));
  EXPECT_EQ(pixels(L"Fourth.lnk"), both(darkGreen));
  EXPECT_EQ(filesAsked(), (Texts{onShare, onStick}));
  LoadShortcutList(window.shortcuts);
  desktop().advance(4000);
  EXPECT_EQ(filesAsked(), (Texts{onShare, onStick, onShare, onStick})) << "nothing is remembered";
}

TEST_F(SlowIconsTest, TheyAreReadOneAtATime) {
  LoadShortcutList(window.shortcuts);
  desktop().advance(2000);
  EXPECT_EQ(filesAsked(), Texts{onShare});
  EXPECT_EQ(pixels(L"Stick.lnk"), both(blank));
  desktop().advance(2000);
  EXPECT_EQ(filesAsked(), (Texts{onShare, onStick}));
  EXPECT_EQ(pixels(L"Stick.lnk"), both(darkGreen));
}

TEST_F(SlowIconsTest, ProgramsOnFixedDrivesHaveTheirIconsAtOnce) {
  desktop().putProgram(L"C:\\near.exe");
  desktop().setIcon(L"C:\\near.exe", darkGreen);
  putShortcut(L"Near.lnk", L"C:\\near.exe");
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(pixels(L"Near.lnk"), both(darkGreen));
}

TEST_F(SlowIconsTest, ATargetThatDoesNotAnswerKeepsItsBlankIcon) {
  desktop().take(onShare);
  putShortcut(L"Gone.lnk", L"\\\\gone\\x\\y.exe");
  LoadShortcutList(window.shortcuts);
  desktop().advance(6000);
  EXPECT_EQ(pixels(L"Gone.lnk"), both(blank));
  EXPECT_EQ(pixels(L"Stick.lnk"), both(darkGreen));
}

TEST_F(SlowIconsTest, AReloadForgetsWhatWasAskedForAndWaitsForTheOneThatIsBeingRead) {
  LoadShortcutList(window.shortcuts);
  desktop().advance(1000);
  desktop().take(pathOf(L"Share.lnk"));
  LoadShortcutList(window.shortcuts);
  desktop().advance(1000);
  EXPECT_EQ(filesAsked(), Texts{onShare});
  EXPECT_EQ(window.imgShortCut[0].indexOf(L"Share.lnk"), std::nullopt);
  desktop().advance(1999);
  EXPECT_EQ(pixels(L"Stick.lnk"), both(blank));
  desktop().advance(1);
  EXPECT_EQ(pixels(L"Stick.lnk"), both(darkGreen));
  EXPECT_EQ(filesAsked(), (Texts{onShare, onStick}));
}

TEST_F(SlowIconsTest, AnIconOfAnEarlierListIsNotShownInThisOne) {
  LoadShortcutList(window.shortcuts);
  desktop().advance(1000);
  putShortcut(L"Share.lnk", onStick);
  LoadShortcutList(window.shortcuts);
  desktop().advance(1000);
  EXPECT_EQ(pixels(L"Share.lnk"), both(blank));
  desktop().advance(2000);
  EXPECT_EQ(pixels(L"Share.lnk"), both(darkGreen));
}

TEST_F(SlowIconsTest, AnotherDensityReadsThemAgainInTheNewSize) {
  LoadShortcutList(window.shortcuts);
  desktop().advance(4000);
  window.shortcuts.dpi = 192;
  modSC::redrawShortcutIcons(window.shortcuts);
  EXPECT_EQ(pixels(L"Share.lnk"), both(blank));
  desktop().advance(2000);
  EXPECT_EQ(pixels(L"Share.lnk"), both(darkRed));
  EXPECT_EQ(desktop().iconsAsked.back(), (std::pair<std::wstring, int>(onShare, 32)));
  const auto& images = window.imgShortCut[0];
  EXPECT_EQ(images.images().at(*images.indexOf(L"Share.lnk")).picture.size,
            (platform::Size{64, 64}));
}

TEST_F(SlowIconsTest, AnotherDensityReadsASingleOneAgain) {
  desktop().take(pathOf(L"Stick.lnk"));
  LoadShortcutList(window.shortcuts);
  desktop().advance(2000);
  window.shortcuts.dpi = 144;
  modSC::redrawShortcutIcons(window.shortcuts);
  desktop().advance(2000);
  const auto& images = window.imgShortCut[0];
  EXPECT_EQ(images.images().at(*images.indexOf(L"Share.lnk")).picture.size,
            (platform::Size{48, 48}));
}

TEST_F(SlowIconsTest, WhereNothingCanRunInTheBackgroundTheIconsStayBlankUntilTheNextList) {
  desktop().faults().failLook(1, memory::Faults::LookFault::findsNothing, true);
  const bool started = platform::background::run([] {}, [] {});
  EXPECT_FALSE(started);
  desktop().faults().failNothing();
  modSC::SlowIcons icons;
  Texts shown;
  const auto show = [&shown](const std::wstring& key, const platform::pictures::Icons& /*icons*/) {
    shown.push_back(key);
  };
  desktop().faults().failLook(1, memory::Faults::LookFault::findsNothing);
  icons.ask(L"one", onShare, {32, 16}, show);
  icons.ask(L"two", onShare, {32, 16}, show);
  desktop().advance(5000);
  EXPECT_EQ(shown, Texts{L"two"});
}

TEST_F(SlowIconsTest, AnIconThatArrivesAfterTheEndIsDropped) {
  Texts shown;
  {
    modSC::SlowIcons icons;
    icons.ask(L"one", onShare, {32, 16},
              [&shown](const std::wstring& key, const platform::pictures::Icons& /*icons*/) {
                shown.push_back(key);
              });
  }
  desktop().advance(5000);
  EXPECT_TRUE(shown.empty());
}

TEST_F(SlowIconsTest, ADriveIsAskedAboutOnceForAList) {
  modSC::SlowIcons icons;
  EXPECT_TRUE(icons.mustWaitFor(onStick));
  desktop().slowDrives.clear();
  EXPECT_TRUE(icons.mustWaitFor(L"E:\\other.exe"));
  EXPECT_TRUE(icons.mustWaitFor(onShare));
  EXPECT_FALSE(icons.mustWaitFor(L"C:\\near.exe"));
  EXPECT_FALSE(icons.mustWaitFor(L""));
  icons.forget();
  EXPECT_FALSE(icons.mustWaitFor(onStick)) << "a disk may have taken the stick's letter";
}

}  // namespace
