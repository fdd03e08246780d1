// Every kind of control on a native window, with a real pointer.
#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "hosted.h"
#include "platform/win32/dpi.h"

namespace flat_tests {
namespace {

constexpr std::array kinds{
    Kind{"TextBox", L"TextBox", WC_EDITW, ES_AUTOHSCROLL, Frame::outer, true},
    Kind{"MaskedEdit", L"MaskEdBox", WC_EDITW, ES_AUTOHSCROLL, Frame::outer, true},
    Kind{"OptionButton", L"OptionButton", WC_BUTTONW, BS_AUTORADIOBUTTON, Frame::outer, true},
    Kind{"OtherPlain", L"SomeTextBox", WC_EDITW, ES_AUTOHSCROLL, Frame::outer, true},
    Kind{"CommandButton", L"CommandButton", WC_BUTTONW, BS_PUSHBUTTON, Frame::button, false},
    Kind{"ComboBox", L"ComboBox", WC_COMBOBOXW, CBS_DROPDOWN | CBS_AUTOHSCROLL, Frame::combo,
         false},
    Kind{"ComboList", L"ComboBox", WC_COMBOBOXW, CBS_DROPDOWNLIST, Frame::combo, false},
    Kind{"DataCombo", L"DataCombo", WC_COMBOBOXW, CBS_DROPDOWN | CBS_AUTOHSCROLL, Frame::combo,
         false},
    Kind{"OwnerDrawnList", L"OwnerDrawComboList", WC_COMBOBOXW,
         CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, Frame::combo, false},
    Kind{"ImageCombo", L"ImageCombo", WC_COMBOBOXEXW, CBS_DROPDOWN, Frame::combo, false},
    Kind{"OtherDropDown", L"FileBox", WC_COMBOBOXW, CBS_DROPDOWNLIST, Frame::combo, false},
};

class HostedControlTest : public ::testing::TestWithParam<Kind> {
 protected:
  void SetUp() override { make(true); }
  void TearDown() override {
    flat.reset();
    control.reset();
    host.reset();
    pump();
    EXPECT_EQ(platform::subclass::attachedMessages(), 0U);
    EXPECT_EQ(timerCount(), 0);
  }

  void make(bool clips) {
    flat.reset();
    control.reset();
    host = std::make_unique<Host>(clips);
    control = std::make_unique<Hosted>(*host, GetParam());
    flat = std::make_unique<cFlatControl>();
    flat->Attach(control->target());
    inside = !clips;
    host->show();
  }

  /// Waits until the frame looks like that. The failure text lists the pixels that differ.
  ::testing::AssertionResult looks(Look look) {
    Pixels expected;
    Pixels found;
    const auto holds = [&] {
      pointer.hold();
      expected = expectedFrame(*control, look, inside);
      found = pixelsAt(control->canvas(), expected);
      return found == expected;
    };
    return pumpUntil("the frame has its colours", holds) << ", " << difference(found, expected);
  }

  /// Moves the pointer over the control and waits until it has noticed.
  [[nodiscard]] ::testing::AssertionResult pointerArrives() {
    const int before = control->mouseMoves();
    pointer.moveTo(control->painted());
    return pumpUntil("the control notices the pointer", [&] {
      pointer.hold();
      return control->mouseMoves() > before;
    });
  }
  /// Moves the pointer away and waits until nothing tracks it any more.
  [[nodiscard]] ::testing::AssertionResult pointerLeaves() {
    pointer.park();
    return pumpUntil("the control has no timer", [this] {
      pointer.hold();
      return !hasTimer(control->painted());
    });
  }
  void focusControl() const { SetFocus(control->window()); }
  void focusElsewhere() const { SetFocus(host->elsewhere()); }
  [[nodiscard]] bool hasFocus() const {
    return GetFocus() == control->window() || IsChild(control->window(), GetFocus()) != 0;
  }
  [[nodiscard]] static bool isCombo() { return GetParam().frame == Frame::combo; }

  std::unique_ptr<Host> host;
  std::unique_ptr<Hosted> control;
  std::unique_ptr<cFlatControl> flat;
  bool inside = false;
  Pointer pointer;
};

INSTANTIATE_TEST_SUITE_P(Kinds, HostedControlTest, ::testing::ValuesIn(kinds),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(HostedControlTest, IsIdleAtFirst) {
  EXPECT_TRUE(looks(Look::idle));
  EXPECT_EQ(timerCount(), 0);
  EXPECT_FALSE(flat->DroppedDown());
}

TEST_P(HostedControlTest, TakesItsRingOffItsOwnPlace) {
  const Edges place = control->place();
  const int taken = GetParam().shrinks ? 1 : 0;
  EXPECT_EQ(place.left, host->at(20) + taken);
  EXPECT_EQ(place.top, host->at(20) + taken);
  EXPECT_EQ(place.right, host->at(180) - taken);
  if (!isCombo()) {
    EXPECT_EQ(place.bottom, host->at(50) - taken);
  }
}

TEST_P(HostedControlTest, RisesUnderThePointerAndFallsWhenItLeaves) {
  ASSERT_TRUE(looks(Look::idle));
  ASSERT_TRUE(pointerArrives());
  EXPECT_TRUE(looks(Look::hot));
  EXPECT_TRUE(hasTimer(control->painted()));
  EXPECT_EQ(timerCount(), 1);
  EXPECT_TRUE(pointerLeaves());
  EXPECT_EQ(timerCount(), 0);
  EXPECT_TRUE(looks(Look::idle));
  ASSERT_TRUE(pointerArrives());
  EXPECT_TRUE(looks(Look::hot)) << "It can come back";
}

TEST_P(HostedControlTest, RisesWithTheFocusAndNeedsNoTimerThen) {
  ASSERT_TRUE(looks(Look::idle));
  focusControl();
  EXPECT_TRUE(looks(Look::hot));
  ASSERT_TRUE(pointerArrives());
  ASSERT_TRUE(hasFocus());
  EXPECT_FALSE(hasTimer(control->painted()));
  focusElsewhere();
  EXPECT_TRUE(pointerLeaves());
  EXPECT_TRUE(looks(Look::idle));
}

TEST_P(HostedControlTest, TheFocusEndsTheTracking) {
  ASSERT_TRUE(pointerArrives());
  ASSERT_TRUE(hasTimer(control->painted()));
  focusControl();
  EXPECT_TRUE(looks(Look::hot));
  EXPECT_FALSE(hasTimer(control->painted()));
  pointer.park();
  EXPECT_TRUE(looks(Look::hot)) << "The focus holds it up without the pointer";
}

TEST_P(HostedControlTest, KeepsItsFrameWhenItIsPaintedAgain) {
  focusControl();
  ASSERT_TRUE(looks(Look::hot));
  RedrawWindow(host->window(), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  EXPECT_TRUE(looks(Look::hot));
  focusElsewhere();
  ASSERT_TRUE(looks(Look::idle));
  RedrawWindow(host->window(), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  EXPECT_TRUE(looks(Look::idle));
}

TEST_P(HostedControlTest, ShowsThatItIsDisabled) {
  ASSERT_TRUE(looks(Look::idle));
  EnableWindow(control->window(), FALSE);
  EnableWindow(control->painted(), FALSE);
  EXPECT_TRUE(looks(Look::idle));
  EnableWindow(control->window(), TRUE);
  EnableWindow(control->painted(), TRUE);
  EXPECT_TRUE(looks(Look::idle));
}

TEST_P(HostedControlTest, RisesWithTheListDownAndFallsWithoutTheFocus) {
  if (!isCombo()) {
    focusControl();
    SendMessageW(control->painted(), CB_SHOWDROPDOWN, TRUE, 0);
    EXPECT_FALSE(flat->DroppedDown()) << "Only combo boxes have a list";
    return;
  }
  focusControl();
  ASSERT_TRUE(looks(Look::hot));
  SendMessageW(control->painted(), CB_SHOWDROPDOWN, TRUE, 0);
  EXPECT_TRUE(flat->DroppedDown());
  EXPECT_TRUE(looks(Look::down));
  // The open list receives the pointer's moves. A move message that still reaches the control
  // changes nothing.
  SendMessageW(control->painted(), WM_MOUSEMOVE, 0, 0);
  EXPECT_FALSE(hasTimer(control->painted()));
  EXPECT_TRUE(looks(Look::down));
  SendMessageW(control->painted(), CB_SHOWDROPDOWN, FALSE, 0);
  EXPECT_FALSE(flat->DroppedDown());
  EXPECT_TRUE(looks(Look::hot)) << "It keeps the focus";
  pointer.park();
  SendMessageW(control->painted(), CB_SHOWDROPDOWN, TRUE, 0);
  EXPECT_TRUE(looks(Look::down));
  // A list closes when the focus goes. The combo box with images takes the focus back then.
  ASSERT_TRUE(pumpUntil("the focus leaves the control", [this] {
    focusElsewhere();
    return !hasFocus();
  }));
  EXPECT_TRUE(looks(Look::idle));
  EXPECT_FALSE(flat->DroppedDown());
}

TEST_P(HostedControlTest, AClickOnTheButtonDropsTheList) {
  if (!isCombo()) {
    clickAt(control->painted(), 8, 8);
    EXPECT_TRUE(
        pumpUntil("the control has the focus", [&] { return GetFocus() == control->painted(); }));
    EXPECT_TRUE(looks(Look::hot));
    return;
  }
  RECT client{};
  GetClientRect(control->painted(), &client);
  clickAt(control->painted(), client.right - host->at(8), client.bottom / 2);
  EXPECT_TRUE(pumpUntil("the list is down", [&] { return flat->DroppedDown(); }));
  EXPECT_TRUE(looks(Look::down));
  EXPECT_FALSE(hasTimer(control->painted()));
  clickAt(control->painted(), client.right - host->at(8), client.bottom / 2);
  EXPECT_TRUE(pumpUntil("the list is up", [&] { return !flat->DroppedDown(); }));
  EXPECT_TRUE(looks(Look::hot));
}

TEST_P(HostedControlTest, OnAWindowThatDoesNotClipTheInnerRingsAreSeenToo) {
  make(false);
  ASSERT_TRUE(looks(Look::idle));
  focusControl();
  EXPECT_TRUE(looks(Look::hot));
}

TEST_P(HostedControlTest, DestroyedUnderThePointerItLeavesNothing) {
  ASSERT_TRUE(pointerArrives());
  ASSERT_TRUE(hasTimer(control->painted()));
  control.reset();
  EXPECT_EQ(platform::subclass::attachedMessages(), 0U);
  EXPECT_FALSE(flat->DroppedDown());
  pump();
}

TEST_P(HostedControlTest, AfterItsObjectIsGoneItIsItsOldSelf) {
  ASSERT_TRUE(pointerArrives());
  flat.reset();
  EXPECT_FALSE(hasTimer(control->painted()));
  EXPECT_EQ(platform::subclass::attachedMessages(), 0U);
  const int before = control->mouseMoves();
  ASSERT_TRUE(pointerArrives());
  EXPECT_GT(control->mouseMoves(), before);
  EXPECT_FALSE(hasTimer(control->painted()));
}

TEST_P(HostedControlTest, AThousandAttachingsCostNothing) {
  ASSERT_TRUE(pointerArrives());
  const auto once = [&] {
    flat->Attach(
        {GetParam().typeName, control->target().hWnd, control->target().parentWindow, [] {}});
    SendMessageW(control->painted(), WM_MOUSEMOVE, 0, 0);
    RedrawWindow(control->painted(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  };
  once();
  const auto attached = platform::subclass::attachedMessages();
  const int objects = gdiObjects();
  const int windows = windowCount();
  for (int i = 0; i < 1000; ++i) {
    once();
  }
  EXPECT_EQ(platform::subclass::attachedMessages(), attached);
  EXPECT_EQ(gdiObjects(), objects);
  EXPECT_EQ(windowCount(), windows);
}

}  // namespace
}  // namespace flat_tests
