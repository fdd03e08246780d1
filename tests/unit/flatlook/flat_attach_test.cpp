// How the flat look classifies controls, and how it detaches from them.
#include "flatlook/flat_control.h"

#include <optional>
#include <utility>

#include "flatlook/flat_control_fixture.h"
#include "platform/run_time_error.h"
#include "unit/support/error_number.h"

namespace flatlook::test {
namespace {

// --- attaching ---

TEST_F(FlatControlTest, TextLikeControlsAreShrunkAndDrawnAround) {
  for (const wchar_t* const type : {L"TextBox", L"MaskEdBox", L"OptionButton", L"SomethingElse"}) {
    const WindowHandle box = addControl(L"Edit", {10, 10, 60, 30});
    flat->Attach(target(type, box));
    EXPECT_EQ(std::exchange(shrunk, 0), 1);
    EXPECT_EQ(subclass::attachedMessages(), plainMessages);
    paint(box);
    EXPECT_EQ(boxLook(), "idle");
    EXPECT_TRUE(takePixels(box).empty());
    EXPECT_FALSE(flat->DroppedDown());
    screen().at(box).listDropped = true;
    EXPECT_FALSE(flat->DroppedDown()) << "Only combo boxes have a list";
  }
}

TEST_F(FlatControlTest, CommandButtonsAreDrawnInside) {
  const WindowHandle made = addControl(L"Button", {10, 10, 90, 35});
  flat->Attach(target(L"CommandButton", made));
  EXPECT_EQ(shrunk, 0);
  EXPECT_EQ(subclass::attachedMessages(), plainMessages);
  paint(made);
  EXPECT_EQ(takePixels(made).at({40, 0}), 0x0080FFU);
  EXPECT_TRUE(takePixels(form).empty());
}

TEST_F(FlatControlTest, ComboBoxesNotifyTheirParent) {
  for (const wchar_t* const type : {L"ComboBox", L"DataCombo"}) {
    const WindowHandle frame = screen().add(L"Frame", {100, 100, 300, 300}, form);
    combo = screen().add(L"ComboBox", {110, 150, 210, 171}, frame, dropDown);
    line = screen().add(L"Edit", {112, 152, 190, 169}, combo);
    flat->Attach(target(type, combo));
    EXPECT_EQ(shrunk, 0);
    EXPECT_EQ(subclass::attachedMessages(), comboMessages);
    EXPECT_TRUE(screen().at(frame).watched);
    EXPECT_FALSE(screen().at(form).watched);
    paint(combo);
    EXPECT_EQ(comboLook(), "idle");
    EXPECT_TRUE(takePixels(form).empty());
  }
}

TEST_F(FlatControlTest, AnOwnerDrawnListIsNotifiedItself) {
  combo = addControl(L"ComboBox", {10, 50, 110, 71}, 3);
  flat->Attach(target(L"OwnerDrawComboList", combo));
  EXPECT_FALSE(screen().at(form).watched);
  EXPECT_EQ(subclass::attachedMessages(), plainMessages + 1) << "There is no edit line";
  screen().send(combo, messages::command, 8U << 16U, static_cast<std::intptr_t>(combo));
  EXPECT_EQ(comboLook(), "idle");
}

TEST_F(FlatControlTest, AnImageComboHasItsComboBoxInside) {
  const WindowHandle outer = addControl(L"ComboBoxEx32", {10, 50, 110, 71}, dropDown);
  combo = screen().add(L"ComboBox", {110, 150, 210, 171}, outer, dropDown);
  line = screen().add(L"Edit", {112, 152, 190, 169}, combo);
  flat->Attach(target(L"ImageCombo", outer));
  EXPECT_EQ(subclass::attachedMessages(), comboMessages);
  paint(combo);
  EXPECT_EQ(comboLook(), "idle");
  EXPECT_TRUE(takePixels(outer).empty());
  screen().send(outer, messages::command, 8U << 16U, static_cast<std::intptr_t>(combo));
  EXPECT_EQ(comboLook(), "idle");
}

TEST_F(FlatControlTest, AnImageComboWithoutAComboBoxIsInert) {
  const WindowHandle outer = addControl(L"ComboBoxEx32", {10, 50, 110, 71}, dropDown);
  flat->Attach(target(L"ImageCombo", outer));
  EXPECT_EQ(subclass::attachedMessages(), 0U);
  EXPECT_FALSE(flat->DroppedDown());
}

TEST_F(FlatControlTest, AnyOtherControlThatDropsDownIsAComboBoxOfItsForm) {
  const WindowHandle frame = screen().add(L"Frame", {100, 100, 300, 300}, form);
  combo = screen().add(L"Whatever", {110, 150, 210, 171}, frame, 3);
  flat->Attach(target(L"SomethingElse", combo));
  EXPECT_EQ(shrunk, 0);
  EXPECT_TRUE(screen().at(form).watched);
  EXPECT_FALSE(screen().at(frame).watched);
  paint(combo);
  EXPECT_EQ(comboLook(), "idle");
}

TEST_F(FlatControlTest, AControlWithoutAWindowIsRefusedInside) {
  const FlatTarget label{L"Label", std::nullopt, form, [this] { ++shrunk; }};
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(label.requireWindow()); }), -2147220455);
  try {
    static_cast<void>(label.requireWindow());
  } catch (const platform::RunTimeError& failure) {
    EXPECT_EQ(failure.source(), L"gateway3.cFlatControl");
    EXPECT_EQ(
        failure.description(),
        L"Incorrect control type passed to 'Attach' parameter - must be a control with a hWnd "
        L"property.");
  }
  EXPECT_NO_THROW(flat->Attach(label));
  EXPECT_EQ(shrunk, 0);
  EXPECT_EQ(subclass::attachedMessages(), 0U);
  EXPECT_FALSE(flat->DroppedDown());
}

TEST_F(FlatControlTest, AControlThatCannotBeMovedIsAttachedAllTheSame) {
  const WindowHandle box = addControl(L"Edit", {10, 10, 60, 30});
  flat->Attach({L"TextBox", box, form, [] { throw platform::RunTimeError(5); }});
  EXPECT_EQ(subclass::attachedMessages(), plainMessages);
}

TEST_F(FlatControlTest, OfTwoControlsOnlyTheSecondStaysAttached) {
  comboBox();
  const WindowHandle box = textBox();
  EXPECT_EQ(subclass::attachedMessages(), plainMessages);
  EXPECT_FALSE(screen().at(combo).watched);
  EXPECT_FALSE(screen().at(line).watched);
  EXPECT_FALSE(screen().at(form).watched);
  paint(combo);
  EXPECT_EQ(comboLook(), "");
  paint(box);
  EXPECT_EQ(boxLook(), "idle");
}

TEST_F(FlatControlTest, ATextBoxAfterAButtonIsDrawnAround) {
  const WindowHandle button = addControl(L"Button", {10, 90, 90, 115});
  flat->Attach(target(L"CommandButton", button));
  const WindowHandle box = textBox();
  paint(box);
  EXPECT_EQ(boxLook(), "idle");
  EXPECT_TRUE(takePixels(box).empty()) << "It is not drawn inside, as a button is";
  EXPECT_TRUE(takePixels(button).empty());
}

TEST_F(FlatControlTest, AButtonAfterAComboBoxHasAButtonsFrameAndNoList) {
  comboBox();
  const WindowHandle button = addControl(L"Button", {10, 90, 90, 115});
  flat->Attach(target(L"CommandButton", button));
  screen().at(button).listDropped = true;
  EXPECT_FALSE(flat->DroppedDown());
  paint(button);
  EXPECT_EQ(takePixels(button).at({40, 0}), 0x0080FFU);
}

TEST_F(FlatControlTest, ALabelAfterAControlLeavesNothingAttached) {
  const WindowHandle box = comboBox();
  screen().at(box).listDropped = true;
  EXPECT_TRUE(flat->DroppedDown());
  flat->Attach({L"Label", std::nullopt, form, nullptr});
  EXPECT_EQ(subclass::attachedMessages(), 0U);
  EXPECT_FALSE(flat->DroppedDown());
}

TEST_F(FlatControlTest, LettingGoOfAHotControlEndsItsTimer) {
  const WindowHandle first = textBox();
  pointAt(20, 20);
  move(first);
  ASSERT_TRUE(timerRuns(first));
  const WindowHandle second = textBox();
  EXPECT_FALSE(timerRuns(first));
  move(second);
  EXPECT_TRUE(timerRuns(second)) << "The second control starts cold";
  flat.reset();
  EXPECT_FALSE(timerRuns(second));
}

TEST_F(FlatControlTest, TheSameControlTwiceIsWatchedOnce) {
  const WindowHandle box = textBox();
  flat->Attach(target(L"TextBox", box));
  EXPECT_EQ(subclass::attachedMessages(), plainMessages);
  int lines = 0;
  screen().onLine = [&lines](WindowHandle) { ++lines; };
  paint(box);
  EXPECT_EQ(lines, 8) << "Two rings of four lines";
  EXPECT_EQ(shrunk, 2) << "Each attaching takes its ring";
}

// --- the end of windows ---

TEST_F(FlatControlTest, AfterItsControlIsGoneItIsInert) {
  comboBox();
  pointAt(20, 60);
  move(combo);
  screen().at(combo).listDropped = true;
  screen().destroy(combo);
  EXPECT_EQ(subclass::attachedMessages(), 0U);
  EXPECT_EQ(screen().watched(), 0U);
  EXPECT_FALSE(flat->DroppedDown());
  notify(8, combo);
  flat->WindowProc(combo, messages::paint, 0, 0);
  EXPECT_EQ(screen().timers(), 0U);
  textBox();
  EXPECT_EQ(subclass::attachedMessages(), plainMessages) << "It can be used again";
}

TEST_F(FlatControlTest, TheEditLineMayGoAlone) {
  comboBox();
  screen().focus = line;
  screen().destroy(line);
  EXPECT_EQ(subclass::attachedMessages(), comboMessages - 4);
  paint(combo);
  EXPECT_EQ(comboLook(), "idle");
}

TEST_F(FlatControlTest, TheFormMayGoWithItsControls) {
  comboBox();
  screen().destroy(form);
  EXPECT_EQ(subclass::attachedMessages(), 0U);
  EXPECT_FALSE(flat->DroppedDown());
}

TEST_F(FlatControlTest, AThousandAttachingsLeaveNothingBehind) {
  const WindowHandle box = textBox();
  pointAt(20, 20);
  for (int i = 0; i < 1000; ++i) {
    flat->Attach(target(L"TextBox", box));
    move(box);
  }
  EXPECT_EQ(subclass::attachedMessages(), plainMessages);
  EXPECT_EQ(screen().timers(), 1U);
}

}  // namespace
}  // namespace flatlook::test
