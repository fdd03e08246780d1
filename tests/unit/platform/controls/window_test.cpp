#include "platform/controls/window.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "platform/run_time_error.h"
#include "unit/support/error_number.h"

namespace controls {
namespace {

using memory::desktop;
using Events = std::vector<std::wstring>;

/// Records its events, and refuses or fails on request.
class TestWindow : public Window {
 public:
  explicit TestWindow(WindowKind kind = WindowKind::frame) : Window(L"frmTest", kind) {
    setDesignSize({200, 100}, {50, 40});
    add(label);
    add(timer);
    addMenu(menu);
  }

  Events take() { return std::exchange(events, {}); }

  Label label{L"lblTest", 1};
  Timer timer{L"tmrTest", 2, 1000, false};
  MenuItem menu{L"mnuTest", 3, L"&Test"};
  Events events;
  int failLoadWith = 0;
  int failUnloadWith = 0;
  bool refuseQuery = false;
  bool refuseUnload = false;
  bool unloadInLoad = false;
  platform::Size client;
  wchar_t pressed = L'\0';

 protected:
  void Form_Load() override {
    events.emplace_back(loaded() && peer() != nullptr ? L"load" : L"load without a window");
    if (failLoadWith != 0) {
      throw platform::RunTimeError(failLoadWith);
    }
    if (unloadInLoad) {
      unload();
    }
  }
  void Form_Activate() override { events.emplace_back(L"activate"); }
  void Form_Click() override { events.emplace_back(L"click"); }
  void Form_KeyPress(wchar_t character) override { pressed = character; }
  void Form_QueryUnload(bool& cancel, UnloadMode mode) override {
    events.push_back(L"query " + std::to_wstring(static_cast<int>(mode)));
    cancel = refuseQuery;
  }
  void Form_Unload(bool& cancel) override {
    events.emplace_back(L"unload");
    if (failUnloadWith != 0) {
      throw platform::RunTimeError(failUnloadWith);
    }
    cancel = refuseUnload;
  }
  void layout(platform::Size size, int dpi) override {
    events.push_back(L"layout " + std::to_wstring(dpi));
    client = size;
  }
};

class WindowTest : public ::memory::DesktopTest {
 protected:
  TestWindow window;
};

TEST_F(WindowTest, HasItsControlsAndNoNativeWindowBeforeItIsLoaded) {
  EXPECT_EQ(window.controls(), std::vector<Control*>{&window.label});
  EXPECT_EQ(window.timers(), std::vector<Timer*>{&window.timer});
  EXPECT_EQ(window.menuBar(), std::vector<MenuItem*>{&window.menu});
  EXPECT_FALSE(window.loaded());
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(window.peer(), nullptr);
  window.activate();
  EXPECT_TRUE(desktop().journal().empty());
}

TEST_F(WindowTest, LoadsOnceAndStaysHidden) {
  window.load();
  window.load();
  EXPECT_EQ(window.take(), Events{L"load"});
  EXPECT_TRUE(window.loaded());
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(desktop().journal(), Events{L"create frmTest"});
}

TEST_F(WindowTest, ShowingLoadsFirst) {
  window.show();
  EXPECT_EQ(window.take(), (Events{L"load", L"layout 96", L"activate"}));
  EXPECT_TRUE(window.visible());
  EXPECT_EQ(window.client, (platform::Size{200, 100}));
  EXPECT_EQ(desktop().journal(), (Events{L"create frmTest", L"show frmTest"}));
}

TEST_F(WindowTest, IsLaidOutForItsScreen) {
  desktop().dpi = 144;
  window.show();
  EXPECT_EQ(window.take(), (Events{L"load", L"layout 144", L"activate"}));
  EXPECT_EQ(window.peer()->placement().dpi, 144);
  EXPECT_EQ(window.client, (platform::Size{300, 150}));
}

TEST_F(WindowTest, AFailingLoadLeavesItUnloaded) {
  window.failLoadWith = 76;
  EXPECT_EQ(errorNumberOf([this] { window.show(); }), 76);
  EXPECT_FALSE(window.loaded());
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(window.peer(), nullptr);
  EXPECT_TRUE(desktop().windows().empty());

  window.failLoadWith = 0;
  window.show();
  EXPECT_TRUE(window.visible());
}

TEST_F(WindowTest, WithoutANativeWindowItsLoadHandlerDoesNotRun) {
  desktop().faults().failCall(1, 7);
  EXPECT_EQ(errorNumberOf([this] { window.load(); }), 7);
  EXPECT_FALSE(window.loaded());
  EXPECT_TRUE(window.take().empty());
}

TEST_F(WindowTest, OneThatCannotBeShownIsNotLeftBehind) {
  desktop().faults().failCall(2, 7);
  EXPECT_EQ(errorNumberOf([this] { window.show(); }), 7);
  EXPECT_TRUE(desktop().journalHas(L"show frmTest failed 7"));
  EXPECT_EQ(window.take(), Events{L"load"}) << "Nobody is asked whether it may go";
  EXPECT_FALSE(window.loaded());
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(window.peer(), nullptr);
  EXPECT_TRUE(desktop().windows().empty());

  window.show();
  EXPECT_TRUE(window.visible());
}

TEST_F(WindowTest, OneThatCannotBeShownModallyIsNotWaitedFor) {
  desktop().faults().failCall(2, 7);
  EXPECT_EQ(errorNumberOf([this] { window.showModal(); }), 7);
  EXPECT_FALSE(desktop().journalHas(L"modal frmTest"));
  EXPECT_FALSE(window.loaded());
}

TEST_F(WindowTest, OneWhoseNativeSideGivesUpIsGoneAndNobodyIsAsked) {
  window.load();
  window.take();
  window.giveUp();
  EXPECT_FALSE(window.loaded());
  EXPECT_EQ(window.peer(), nullptr);
  EXPECT_TRUE(desktop().windows().empty());
  EXPECT_TRUE(window.take().empty());
}

TEST_F(WindowTest, IsLaidOutFromTheFirstLayoutOnUntilItIsUnloaded) {
  window.load();
  EXPECT_FALSE(window.laidOut());
  window.show();
  EXPECT_TRUE(window.laidOut());
  window.unload();
  EXPECT_FALSE(window.laidOut());
  window.load();
  EXPECT_FALSE(window.laidOut());
}

TEST_F(WindowTest, AWindowThatUnloadsItselfWhileLoadingIsNotShown) {
  window.unloadInLoad = true;
  window.show();
  EXPECT_FALSE(window.loaded());
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(desktop().shown(L"frmTest"), 0);
}

TEST_F(WindowTest, UnloadingAsksTheQueryFirst) {
  window.show();
  window.take();
  EXPECT_TRUE(window.unload());
  EXPECT_EQ(window.take(), (Events{L"query 1", L"unload"}));
  EXPECT_FALSE(window.loaded());
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(window.peer(), nullptr);
  EXPECT_TRUE(window.unload()) << "There is nothing left to unload";
  EXPECT_TRUE(window.take().empty());
}

TEST_F(WindowTest, ARefusedQueryEndsTheUnload) {
  window.show();
  window.take();
  window.refuseQuery = true;
  EXPECT_FALSE(window.unload(UnloadMode::user));
  EXPECT_EQ(window.take(), Events{L"query 0"});
  EXPECT_TRUE(window.loaded());
  EXPECT_TRUE(window.visible());
}

TEST_F(WindowTest, ARefusedUnloadKeepsTheWindow) {
  window.show();
  window.refuseUnload = true;
  EXPECT_FALSE(window.unload());
  EXPECT_TRUE(window.loaded());
  EXPECT_TRUE(window.visible());
  EXPECT_NE(window.peer(), nullptr);
  window.refuseUnload = false;
  EXPECT_TRUE(window.unload());
}

TEST_F(WindowTest, AFailingUnloadKeepsTheWindowAndIsReported) {
  window.show();
  window.failUnloadWith = 57;
  EXPECT_FALSE(window.fireClose(UnloadMode::user));
  EXPECT_EQ(desktop().errorReports, std::vector<int>{57});
  EXPECT_TRUE(window.loaded());
}

TEST_F(WindowTest, TheUserClosesIt) {
  window.show();
  window.take();
  EXPECT_TRUE(window.fireClose(UnloadMode::user));
  EXPECT_EQ(window.take(), (Events{L"query 0", L"unload"}));
  EXPECT_FALSE(window.loaded());
}

TEST_F(WindowTest, TheEndOfASessionAsksAndLeavesTheWindowAlone) {
  window.show();
  window.take();
  EXPECT_TRUE(window.fireClose(UnloadMode::sessionEnd));
  EXPECT_EQ(window.take(), Events{L"query 2"});
  EXPECT_TRUE(window.loaded());
  window.refuseQuery = true;
  EXPECT_FALSE(window.fireClose(UnloadMode::sessionEnd));
}

TEST_F(WindowTest, CanBeLoadedAgain) {
  window.show();
  window.unload();
  window.take();
  window.show();
  EXPECT_EQ(window.take(), (Events{L"load", L"layout 96", L"activate"}));
}

TEST_F(WindowTest, TakesItsNativeWindowAlong) {
  {
    TestWindow shortLived;
    shortLived.show();
    EXPECT_EQ(desktop().windows().size(), 1U);
  }
  EXPECT_TRUE(desktop().windows().empty());
}

TEST_F(WindowTest, ShownModallyItReturnsWhenItIsUnloaded) {
  desktop().at(500, [this] { window.fireClose(UnloadMode::user); });
  window.showModal();
  EXPECT_FALSE(window.loaded());
  EXPECT_EQ(desktop().clock().elapsed(), 500);
  EXPECT_TRUE(desktop().journalHas(L"modal frmTest"));
}

TEST_F(WindowTest, HandsClicksAndKeysOn) {
  window.show();
  window.take();
  window.fireClick();
  window.fireKeyPress(L'\u00E9');
  window.fireActivate();
  EXPECT_EQ(window.take(), (Events{L"click", L"activate"}));
  EXPECT_EQ(window.pressed, L'\u00E9');
}

TEST_F(WindowTest, KeepsItsProperties) {
  EXPECT_EQ(window.opacity(), std::nullopt);
  EXPECT_EQ(window.extendedStyle(), std::nullopt);
  window.setOpacity(240);
  window.setExtendedStyle(0x80000);
  window.setCaption(L"Title");
  EXPECT_EQ(window.opacity(), 240);
  EXPECT_EQ(window.extendedStyle(), 0x80000U);
  EXPECT_EQ(window.caption(), L"Title");
  EXPECT_EQ(window.minimumSize(), (platform::Size{50, 40}));
}

TEST_F(WindowTest, ItsTimersTickOnlyWhileItIsLoaded) {
  int ticks = 0;
  window.timer.onTimer = [&ticks] { ++ticks; };
  window.timer.setEnabled(true);
  desktop().advance(5000);
  EXPECT_EQ(ticks, 0);
  window.load();
  desktop().advance(2000);
  EXPECT_EQ(ticks, 2);
  window.unload();
  desktop().advance(5000);
  EXPECT_EQ(ticks, 2);
}

}  // namespace
}  // namespace controls
