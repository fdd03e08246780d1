// The in-memory desktop's own contract: failing calls, the journal, time and windows.
#include "platform/desktop.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/controls/window.h"
#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "platform/files.h"
#include "platform/settings.h"
#include "platform/windows.h"
#include "unit/support/error_number.h"

namespace memory {
namespace {

namespace files = platform::files;
using Lines = std::vector<std::wstring>;

class MemoryDesktopTest : public DesktopTest {};

class TimedWindow : public controls::Window {
 public:
  explicit TimedWindow(std::wstring name) : Window(std::move(name), controls::WindowKind::dialog) {
    add(first);
    add(second);
  }
  controls::Timer first{L"first", 1, 300, false};
  controls::Timer second{L"second", 2, 200, false};
  int activations = 0;

 protected:
  void Form_Activate() override { ++activations; }
};

TEST_F(MemoryDesktopTest, IsFreshAfterAReset) {
  desktop().putFile(L"C:\\App\\a", "");
  desktop().setSetting(L"General", L"Key", L"value");
  desktop().faults().failCall(1, 57, true);
  desktop().advance(1000);
  desktop().reset();
  EXPECT_FALSE(desktop().has(L"C:\\App\\a"));
  EXPECT_TRUE(desktop().has(L"C:\\App"));
  EXPECT_TRUE(desktop().has(L"C:\\Users\\Ann\\Documents"));
  EXPECT_EQ(desktop().setting(L"General", L"Key"), std::nullopt);
  EXPECT_EQ(desktop().faults().calls(), 0);
  EXPECT_TRUE(desktop().journal().empty());
  EXPECT_EQ(desktop().now(), fileTime(DateTime{}));
  EXPECT_EQ(errorNumberOf([] { files::makeFolder(L"C:\\App\\b"); }), 0);
}

TEST_F(MemoryDesktopTest, TheNthCallFails) {
  desktop().faults().failCall(2, 57);
  { const files::Draft draft(L"C:\\App\\a"); }
  EXPECT_EQ(errorNumberOf([] { files::remove(L"C:\\App\\a"); }), 57);
  EXPECT_TRUE(desktop().has(L"C:\\App\\a"));
  files::remove(L"C:\\App\\a");
  EXPECT_EQ(desktop().faults().calls(), 3);
}

TEST_F(MemoryDesktopTest, EveryCallFromTheNthFails) {
  desktop().faults().failCall(1, 71, true);
  for (int times = 0; times < 3; ++times) {
    EXPECT_EQ(errorNumberOf([] { files::makeFolder(L"C:\\New"); }), 71);
  }
  desktop().faults().failNothing();
  EXPECT_EQ(errorNumberOf([] { files::makeFolder(L"C:\\New"); }), 0);
}

TEST_F(MemoryDesktopTest, CallsThatNeverRaiseNeverFail) {
  desktop().putFile(L"C:\\App\\a", "");
  desktop().faults().failCall(1, 57, true);
  EXPECT_TRUE(files::fileExists(L"C:\\App\\a"));
  EXPECT_EQ(platform::settings::read(L"S", L"K", L"otherwise"), L"otherwise");
  EXPECT_EQ(desktop().faults().calls(), 0);
  EXPECT_NE(files::modifiedTime(L"C:\\App\\a"), std::nullopt);
  EXPECT_EQ(errorNumberOf([] { platform::settings::write(L"S", L"K", L"v"); }), 57);
  EXPECT_EQ(desktop().setting(L"S", L"K"), std::nullopt);
}

TEST_F(MemoryDesktopTest, TheJournalTellsWhatHappened) {
  files::makeFolder(L"C:\\New");
  files::Draft(L"C:\\New\\a").write("x");
  static_cast<void>(files::readWhole(L"C:\\New\\a"));
  static_cast<void>(files::readForAppending(L"C:\\New\\a"));
  files::copy(L"C:\\New\\a", L"C:\\New\\b");
  files::rename(L"C:\\New\\b", L"C:\\New\\c");
  static_cast<void>(errorNumberOf([] { files::remove(L"C:\\New\\b"); }));
  EXPECT_EQ(
      desktop().journal(),
      (Lines{L"make folder C:\\New", L"create C:\\New\\a", L"write C:\\New\\a", L"read C:\\New\\a",
             L"read to append C:\\New\\a", L"copy C:\\New\\a -> C:\\New\\b",
             L"rename C:\\New\\b -> C:\\New\\c", L"remove C:\\New\\b failed 53"}));
  EXPECT_LT(desktop().journalPlace(L"write C:\\New\\a"),
            desktop().journalPlace(L"read C:\\New\\a"));
  EXPECT_EQ(desktop().journalPlace(L"write"), std::nullopt);
}

TEST_F(MemoryDesktopTest, DatesAreWrittenAsTheFormatterSays) {
  const auto dateAndTimeText = [](files::FileTime moment) {
    return platform::clock::dateAndTimeTexts({moment}).front();
  };
  EXPECT_EQ(platform::clock::todayText(), L"11/20/2026");
  EXPECT_EQ(dateAndTimeText(desktop().now()), L"11/20/2026 2:30:15 PM");
  EXPECT_EQ(dateAndTimeText(fileTime({2000, 2, 29, 0, 5, 9, 0})), L"2/29/2000 12:05:09 AM");
  EXPECT_EQ(dateAndTimeText(fileTime({1999, 12, 31, 12, 0, 0, 0})), L"12/31/1999 12:00:00 PM");
  EXPECT_EQ(dateAndTimeText(0xFFFFFFFFFFFFFFFF), L"");
  desktop().formatDate = [](const DateTime& day) { return std::to_wstring(day.year); };
  desktop().setNow({2031, 5, 6, 7, 8, 9, 0});
  EXPECT_EQ(platform::clock::todayText(), L"2031");
}

TEST_F(MemoryDesktopTest, MomentsConvertBothWays) {
  const DateTime moment{2024, 2, 29, 23, 59, 58, 997};
  EXPECT_EQ(dateTime(fileTime(moment)), moment);
  EXPECT_EQ(fileTime({1601, 1, 1, 0, 0, 0, 0}), 0U);
  EXPECT_EQ(fileTime({1601, 1, 1, 0, 0, 1, 0}), 10'000'000U);
}

TEST_F(MemoryDesktopTest, TimersTickInTheOrderOfTheirMoments) {
  TimedWindow window(L"frmTest");
  window.load();
  desktop().clearJournal();
  window.first.setEnabled(true);
  window.second.setEnabled(true);
  desktop().advance(599);
  EXPECT_EQ(desktop().journal(), (Lines{L"tick second", L"tick first", L"tick second"}));
  desktop().advance(1);
  EXPECT_EQ(desktop().journal().size(), 5U);
  EXPECT_EQ(desktop().clock().elapsed(), 600);
}

TEST_F(MemoryDesktopTest, ANewIntervalStartsTheWaitAfresh) {
  TimedWindow window(L"frmTest");
  int ticks = 0;
  window.first.onTimer = [&] {
    ++ticks;
    window.first.setInterval(1000);
  };
  window.first.setEnabled(true);
  window.load();
  desktop().advance(200);
  window.first.setInterval(250);
  desktop().advance(249);
  EXPECT_EQ(ticks, 0);
  desktop().advance(1);
  EXPECT_EQ(ticks, 1);
  desktop().advance(999);
  EXPECT_EQ(ticks, 1);
  desktop().advance(1);
  EXPECT_EQ(ticks, 2);
}

TEST_F(MemoryDesktopTest, ATimerMayDisableItselfAndUnloadItsWindow) {
  TimedWindow window(L"frmTest");
  int ticks = 0;
  window.first.onTimer = [&] {
    ++ticks;
    window.first.setEnabled(false);
  };
  window.second.onTimer = [&] {
    ++ticks;
    window.unload();
  };
  window.first.setEnabled(true);
  window.second.setEnabled(true);
  window.load();
  desktop().advance(10'000);
  EXPECT_EQ(ticks, 1);
  EXPECT_FALSE(window.loaded());
  window.second.setEnabled(false);
  window.load();
  desktop().advance(10'000);
  EXPECT_EQ(ticks, 2);
  window.first.setEnabled(true);
  desktop().advance(300);
  EXPECT_EQ(ticks, 3);
}

TEST_F(MemoryDesktopTest, ADestroyedWindowsTimersAreSilent) {
  {
    TimedWindow window(L"frmTest");
    window.first.setEnabled(true);
    window.load();
  }
  desktop().clearJournal();
  desktop().advance(1000);
  EXPECT_TRUE(desktop().journal().empty());
  EXPECT_EQ(desktop().clock().untilNext(), std::nullopt);
}

TEST_F(MemoryDesktopTest, ScriptedActionsRunOnceAtTheirMoments) {
  Lines order;
  desktop().at(20, [&] { order.emplace_back(L"second"); });
  desktop().at(10, [&] {
    order.emplace_back(L"first");
    desktop().at(5, [&] { order.emplace_back(L"between"); });
  });
  desktop().at(20, [&] { order.emplace_back(L"third"); });
  desktop().advance(9);
  EXPECT_TRUE(order.empty());
  desktop().advance(100);
  desktop().advance(100);
  EXPECT_EQ(order, (Lines{L"first", L"between", L"second", L"third"}));
}

TEST_F(MemoryDesktopTest, SettingTheDateMovesNoTimer) {
  int runs = 0;
  desktop().at(1000, [&runs] { ++runs; });
  desktop().advance(500);
  desktop().setNow({2040, 1, 1, 0, 0, 0, 0});
  desktop().advance(499);
  EXPECT_EQ(runs, 0);
  desktop().advance(1);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(dateTime(desktop().now()), (DateTime{2040, 1, 1, 0, 0, 0, 500}));
}

TEST_F(MemoryDesktopTest, CountsAndOrdersWindows) {
  TimedWindow frame(L"frmQMK");
  TimedWindow dialog(L"frmWeb");
  frame.show();
  dialog.show();
  EXPECT_EQ(desktop().windows(), (std::vector<controls::Window*>{&frame, &dialog}));
  EXPECT_EQ(desktop().window(L"frmWeb"), &dialog);
  EXPECT_EQ(desktop().window(L"frmAbout"), nullptr);
  EXPECT_EQ(desktop().active(), &dialog);
  frame.activate();
  EXPECT_EQ(desktop().active(), &frame);
  frame.activate();
  EXPECT_EQ(frame.activations, 2) << "Only a window that was not in front comes to the front";
  EXPECT_EQ(desktop().activated(L"frmQMK"), 2);
  EXPECT_EQ(desktop().shown(L"frmQMK"), 1);
  EXPECT_EQ(desktop().shown(L"frmAbout"), 0);
}

TEST_F(MemoryDesktopTest, TheWindowBehindComesToTheFront) {
  TimedWindow frame(L"frmQMK");
  TimedWindow hidden(L"frmHidden");
  TimedWindow dialog(L"frmWeb");
  frame.show();
  hidden.load();
  dialog.show();
  dialog.unload();
  EXPECT_EQ(desktop().active(), &frame);
  EXPECT_EQ(frame.activations, 2);
  EXPECT_EQ(hidden.activations, 0);
}

TEST_F(MemoryDesktopTest, RunsUntilTheMainWindowIsUnloaded) {
  TimedWindow frame(L"frmQMK");
  int ticks = 0;
  frame.second.onTimer = [&] {
    if (++ticks == 3) {
      frame.unload();
    }
  };
  frame.second.setEnabled(true);
  frame.show();
  platform::windows::run(frame);
  EXPECT_EQ(ticks, 3);
  EXPECT_EQ(desktop().clock().elapsed(), 600);
  EXPECT_TRUE(desktop().journalHas(L"run frmQMK"));
}

TEST_F(MemoryDesktopTest, AWindowThatNothingClosesIsAMistakeOfTheTest) {
  std::vector<std::string> mistakes;
  desktop().onMistake = [&mistakes](const std::string& what) { mistakes.push_back(what); };
  TimedWindow still(L"frmStill");
  still.showModal();
  EXPECT_EQ(mistakes.size(), 1U);
  TimedWindow ticking(L"frmTicking");
  ticking.first.setEnabled(true);
  ticking.showModal();
  EXPECT_EQ(mistakes.size(), 2U);
  EXPECT_LE(desktop().clock().elapsed(), 600'000);
  EXPECT_TRUE(desktop().windows().empty());
}

TEST_F(MemoryDesktopTest, TextIsAsWideAsItHasCharacters) {
  using platform::windows::textSize;
  EXPECT_EQ(textSize(L"abc", {9, false}, 96), (platform::Size{21, 15}));
  EXPECT_EQ(textSize(L"abc", {9, false}, 192), (platform::Size{42, 30}));
  EXPECT_EQ(textSize(L"abc", {18, true}, 96), (platform::Size{42, 30}));
  EXPECT_EQ(textSize(L"", {9, false}, 96), (platform::Size{0, 15}));
}

}  // namespace
}  // namespace memory
