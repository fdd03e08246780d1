// What a control with the flat look does with its messages.
#include "flatlook/flat_control.h"

#include <limits>
#include <map>
#include <vector>

#include "flatlook/flat_control_fixture.h"
#include "platform/run_time_error.h"

namespace flatlook::test {
namespace {

// --- the order of painting ---

TEST_F(FlatControlTest, TheFrameLiesOverTheControlsOwnPainting) {
  const WindowHandle made = addControl(L"Button", {10, 10, 90, 35});
  flat->Attach(target(L"CommandButton", made));
  std::vector<unsigned> lateOnes;
  screen().at(made).procedure = [&](unsigned message, std::uintptr_t, std::intptr_t) {
    if (screen().at(made).pixels.empty()) {
      lateOnes.push_back(message);
    }
    return 0;
  };
  for (const unsigned message :
       {messages::paint, messages::setFocus, messages::killFocus, messages::mouseMove}) {
    takePixels(made);
    screen().send(made, message);
    EXPECT_FALSE(takePixels(made).empty()) << message;
  }
  EXPECT_EQ(lateOnes, std::vector<unsigned>{messages::paint});
  EXPECT_EQ(flat->MsgResponse(), 1);
  flat->setMsgResponse(2);
  EXPECT_EQ(flat->MsgResponse(), 1);
  tick(made);
}

// --- hot tracking ---

TEST_F(FlatControlTest, ThePointerMakesItHotAndStartsTheTimer) {
  const WindowHandle box = textBox();
  pointAt(20, 20);
  move(box);
  EXPECT_EQ(boxLook(), "hot");
  EXPECT_EQ(screen().at(box).timers, (std::map<std::uintptr_t, unsigned>{{1, 10}}));
  screen().at(box).timers[1] = 99;
  move(box);
  EXPECT_EQ(boxLook(), "") << "It is hot already";
  EXPECT_EQ(screen().at(box).timers.at(1), 99U) << "The timer is not started afresh";
}

TEST_F(FlatControlTest, WhileThePointerIsOverItATickChangesNothing) {
  const WindowHandle box = textBox();
  pointAt(10, 10);
  move(box);
  boxLook();
  tick(box);
  EXPECT_EQ(boxLook(), "");
  EXPECT_TRUE(timerRuns(box));
  pointAt(59, 29);
  tick(box);
  EXPECT_TRUE(timerRuns(box));
}

TEST_F(FlatControlTest, TheFirstTickAfterThePointerHasLeftEndsIt) {
  const WindowHandle box = textBox();
  for (const auto& [x, y] : {std::pair{9, 20}, {60, 20}, {20, 9}, {20, 30}}) {
    pointAt(20, 20);
    move(box);
    boxLook();
    pointAt(x, y);
    tick(box);
    EXPECT_EQ(boxLook(), "idle");
    EXPECT_EQ(screen().timers(), 0U);
  }
  pointAt(20, 20);
  move(box);
  EXPECT_EQ(boxLook(), "hot") << "It can come back";
}

TEST_F(FlatControlTest, WithTheFocusThePointerStartsNothing) {
  const WindowHandle box = textBox();
  screen().setFocus(box);
  boxLook();
  pointAt(20, 20);
  move(box);
  EXPECT_EQ(boxLook(), "");
  EXPECT_EQ(screen().timers(), 0U);

  comboBox();
  screen().setFocus(line);
  comboLook();
  move(combo);
  move(line);
  EXPECT_EQ(comboLook(), "");
  EXPECT_EQ(screen().timers(), 0U);
}

TEST_F(FlatControlTest, WithTheListDownThePointerStartsNothing) {
  comboBox();
  screen().at(combo).listDropped = true;
  move(combo);
  EXPECT_EQ(comboLook(), "");
  EXPECT_EQ(screen().timers(), 0U);
}

TEST_F(FlatControlTest, TheEditLineOfAComboBoxIsPartOfIt) {
  comboBox();
  pointAt(20, 60);
  move(line);
  EXPECT_EQ(comboLook(), "hot");
  EXPECT_TRUE(timerRuns(combo));
  EXPECT_FALSE(timerRuns(line));
  screen().setFocus(line);
  EXPECT_EQ(comboLook(), "hot");
  EXPECT_EQ(screen().timers(), 0U);
  screen().setFocus(form);
  EXPECT_EQ(comboLook(), "idle");
}

TEST_F(FlatControlTest, NoFocusAtAllIsNotTheFocusOfAnAbsentEditLine) {
  const WindowHandle box = textBox();
  screen().setFocus(WindowHandle::none);
  paint(box);
  EXPECT_EQ(boxLook(), "idle");
  move(box);
  EXPECT_TRUE(timerRuns(box));
}

// --- focus ---

TEST_F(FlatControlTest, TheFocusMakesItHotAndEndsTracking) {
  const WindowHandle box = textBox();
  pointAt(20, 20);
  move(box);
  boxLook();
  screen().setFocus(box);
  EXPECT_EQ(boxLook(), "hot");
  EXPECT_EQ(screen().timers(), 0U);
  screen().setFocus(form);
  EXPECT_EQ(boxLook(), "idle");
  move(box);
  EXPECT_TRUE(timerRuns(box)) << "Tracking has ended, so that it can begin again";
}

// --- painting ---

TEST_F(FlatControlTest, PaintingShowsTheFocusAndTheList) {
  comboBox();
  paint(combo);
  EXPECT_EQ(comboLook(), "idle");
  screen().focus = combo;
  paint(combo);
  EXPECT_EQ(comboLook(), "hot");
  screen().focus = line;
  paint(combo);
  EXPECT_EQ(comboLook(), "hot");
  screen().at(combo).listDropped = true;
  paint(combo);
  EXPECT_EQ(comboLook(), "down");
  screen().focus = WindowHandle::none;
  paint(combo);
  EXPECT_EQ(comboLook(), "down") << "An open list is enough";
}

TEST_F(FlatControlTest, PaintingAHotControlEndsTracking) {
  const WindowHandle box = textBox();
  pointAt(20, 20);
  move(box);
  paint(box);
  EXPECT_TRUE(timerRuns(box)) << "The pointer alone does not make it hot";
  screen().focus = box;
  paint(box);
  EXPECT_FALSE(timerRuns(box));
}

TEST_F(FlatControlTest, ADisabledTextBoxHasItsOwnInnerRing) {
  const WindowHandle box = textBox();
  screen().at(box).enabled = false;
  paint(box);
  Pixels expected;
  ring(expected, {8, 8, 62, 32}, face, face);
  ring(expected, {9, 9, 61, 31}, highlight, highlight);
  EXPECT_EQ(takePixels(form), expected);
}

// --- notifications of combo boxes ---

TEST_F(FlatControlTest, AListThatClosesLeavesItHotWithTheFocusAndIdleWithout) {
  comboBox();
  notify(8, combo);
  EXPECT_EQ(comboLook(), "idle");
  screen().focus = line;
  notify(8, combo);
  EXPECT_EQ(comboLook(), "hot");
  screen().focus = combo;
  notify(8, combo);
  EXPECT_EQ(comboLook(), "hot");
}

TEST_F(FlatControlTest, EveryNotificationEndsTracking) {
  comboBox();
  for (const unsigned code : {1U, 3U, 7U, 8U}) {
    pointAt(20, 60);
    move(combo);
    ASSERT_TRUE(timerRuns(combo));
    comboLook();
    notify(code, combo);
    EXPECT_EQ(comboLook(), code == 8U ? "idle" : "") << code;
    EXPECT_FALSE(timerRuns(combo)) << code;
  }
}

TEST_F(FlatControlTest, NotificationsOfOthersAreNotItsOwn) {
  comboBox();
  pointAt(20, 60);
  move(combo);
  comboLook();
  notify(8, line);
  notify(8, WindowHandle::none);
  EXPECT_EQ(comboLook(), "");
  EXPECT_TRUE(timerRuns(combo));
}

TEST_F(FlatControlTest, ManyComboBoxesShareTheirForm) {
  comboBox();
  const WindowHandle otherCombo = addControl(L"ComboBox", {10, 80, 110, 101}, 3);
  cFlatControl other;
  other.Attach(target(L"ComboBox", otherCombo));
  notify(8, otherCombo);
  EXPECT_EQ(comboLook(), "");
  EXPECT_FALSE(takePixels(otherCombo).empty());
  flat.reset();
  notify(8, combo);
  EXPECT_EQ(comboLook(), "");
  notify(8, otherCombo);
  EXPECT_FALSE(takePixels(otherCombo).empty());
}

TEST_F(FlatControlTest, AFrameThatLeavesAllCoordinatesIsReportedAsAnOverflow) {
  const WindowHandle box = textBox();
  screen().at(box).rect.right = std::numeric_limits<int>::max();
  screen().at(form).rect = {};
  paint(box);
  EXPECT_EQ(::memory::desktop().errorReports, std::vector<int>{6});
  EXPECT_EQ(boxLook(), "");
}

TEST_F(FlatControlTest, ActivationByTheMouseIsHeardAndLeftAlone) {
  const WindowHandle box = textBox();
  EXPECT_EQ(flat->WindowProc(box, messages::mouseActivate, 0, 0), 0);
  EXPECT_EQ(boxLook(), "");
  EXPECT_EQ(screen().timers(), 0U);
}

}  // namespace
}  // namespace flatlook::test
