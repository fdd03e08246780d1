// The frames, pixel by pixel.
#include "flatlook/frames.h"

#include <limits>

#include "flatlook/flat_test.h"
#include "unit/support/error_number.h"

namespace flatlook::test {
namespace {

namespace native = platform::native;

class FramesTest : public FlatTest {
 protected:
  /// Pixels that a 3-D rectangle draws on the form.
  Pixels rectangle(const Edges& rect, std::uint32_t topLeft, std::uint32_t bottomRight) {
    {
      native::LineCanvas canvas(form);
      Draw3DRect(canvas, rect, topLeft, bottomRight);
    }
    return takePixels(form);
  }

  WindowHandle textBox() { return addControl(L"Edit", {10, 10, 60, 30}); }
  WindowHandle comboBox() { return addControl(L"ComboBox", {10, 50, 110, 71}, 2); }
  WindowHandle button() { return addControl(L"Button", {10, 90, 90, 115}); }
};

TEST_F(FramesTest, ARectangleIsTopAndLeftInOneColourBottomAndRightInTheOther) {
  const Pixels expected{
      {{2, 3}, 1}, {{3, 3}, 1}, {{4, 3}, 2}, {{2, 4}, 1}, {{4, 4}, 2},
      {{2, 5}, 1}, {{4, 5}, 2}, {{2, 6}, 1}, {{3, 6}, 2}, {{4, 6}, 2},
  };
  EXPECT_EQ(rectangle({2, 3, 5, 7}, 1, 2), expected);
  Pixels drawn;
  ring(drawn, {2, 3, 5, 7}, 1, 2);
  EXPECT_EQ(drawn, expected) << "The tests' own ring has to be the same";
}

TEST_F(FramesTest, ARectangleWithoutWidthIsALineInTheFirstColour) {
  const Pixels expected{{{5, 1}, 1}, {{5, 2}, 1}, {{5, 3}, 1}};
  EXPECT_EQ(rectangle({5, 1, 5, 4}, 1, 2), expected);
}

TEST_F(FramesTest, SystemColoursAreTranslated) {
  EXPECT_EQ(TranslateColor(buttonFace), static_cast<std::int32_t>(face));
  EXPECT_EQ(TranslateColor(buttonShadow), static_cast<std::int32_t>(shadow));
  EXPECT_EQ(TranslateColor(highlight3D), static_cast<std::int32_t>(highlight));
  EXPECT_EQ(TranslateColor(windowBackground), static_cast<std::int32_t>(background));
  EXPECT_EQ(TranslateColor(orange), 33023);
  EXPECT_EQ(TranslateColor(0x800000FF), -1) << "no colour has that number";
}

TEST_F(FramesTest, CoordinatesDoNotWrapAround) {
  constexpr int least = std::numeric_limits<int>::min();
  constexpr int most = std::numeric_limits<int>::max();
  EXPECT_EQ(errorNumberOf([&] { rectangle({0, 0, least, 9}, 1, 2); }), 6);
  EXPECT_EQ(errorNumberOf([&] { rectangle({0, 0, 9, least}, 1, 2); }), 6);
  const WindowHandle box = textBox();
  screen().at(form).rect = {};
  screen().at(box).rect = {0, 0, most - 1, 9};
  EXPECT_EQ(errorNumberOf([&] { DrawOuterFrame(box, FrameStyle::idle, 1, 2); }), 6);
}

TEST_F(FramesTest, AFrameThatLeavesTheCoordinatesIsAnOverflowOnEverySide) {
  constexpr int least = std::numeric_limits<int>::min();
  constexpr int most = std::numeric_limits<int>::max();
  const WindowHandle box = textBox();
  screen().at(form).rect = {};
  for (const Edges& place :
       {Edges{least + 1, 10, least + 9, 20}, Edges{10, least + 1, 20, least + 9},
        Edges{most - 9, 10, most - 1, 20}, Edges{10, most - 9, 20, most - 1}}) {
    screen().at(box).rect = place;
    EXPECT_EQ(errorNumberOf([&] { DrawOuterFrame(box, FrameStyle::idle, 1, 2); }), 6)
        << place.left << " " << place.top;
    EXPECT_TRUE(takePixels(form).empty());
  }
  // Two pixels further in, it just fits.
  for (const Edges& place :
       {Edges{least + 2, 10, least + 9, 20}, Edges{10, least + 2, 20, least + 9},
        Edges{most - 9, 10, most - 2, 20}, Edges{10, most - 9, 20, most - 2}}) {
    screen().at(box).rect = place;
    EXPECT_EQ(errorNumberOf([&] { DrawOuterFrame(box, FrameStyle::hot, 1, 2); }), 0)
        << place.left << " " << place.top;
    EXPECT_EQ(takePixels(form).count({place.left - 2, place.top - 2}), 1U);
  }
}

// --- around a control ---

TEST_F(FramesTest, AnIdleTextBoxHasTwoRings) {
  DrawOuterFrame(textBox(), FrameStyle::idle, buttonFace, buttonFace);
  Pixels expected;
  ring(expected, {8, 8, 62, 32}, face, face);
  ring(expected, {9, 9, 61, 31}, face, face);
  EXPECT_EQ(takePixels(form), expected);
}

TEST_F(FramesTest, AHotTextBoxIsSunkenWithThreeMoreRings) {
  for (const FrameStyle style : {FrameStyle::hot, FrameStyle::down}) {
    DrawOuterFrame(textBox(), style, buttonShadow, highlight3D);
    Pixels expected;
    ring(expected, {8, 8, 62, 32}, shadow, highlight);
    ring(expected, {9, 9, 61, 31}, face, face);
    ring(expected, {10, 10, 60, 30}, highlight, highlight);
    ring(expected, {11, 11, 59, 29}, highlight, highlight);
    ring(expected, {12, 12, 58, 28}, highlight, highlight);
    EXPECT_EQ(takePixels(form), expected) << static_cast<int>(style);
  }
}

TEST_F(FramesTest, ADisabledTextBoxHasAHighlightedInnerRingAndNoMore) {
  const WindowHandle box = textBox();
  screen().at(box).enabled = false;
  for (const FrameStyle style : {FrameStyle::idle, FrameStyle::hot, FrameStyle::down}) {
    DrawOuterFrame(box, style, buttonShadow, highlight3D);
    Pixels expected;
    ring(expected, {8, 8, 62, 32}, shadow, highlight);
    ring(expected, {9, 9, 61, 31}, highlight, highlight);
    EXPECT_EQ(takePixels(form), expected) << static_cast<int>(style);
  }
}

TEST_F(FramesTest, ATextBoxItselfIsNotDrawnOn) {
  const WindowHandle box = textBox();
  DrawOuterFrame(box, FrameStyle::hot, buttonShadow, highlight3D);
  EXPECT_TRUE(takePixels(box).empty());
}

// --- in a combo box of 100 by 21 pixels, with a button of 17 ---

/// The parts that are the same in every state of an enabled combo box.
Pixels comboBase(std::uint32_t topLeft, std::uint32_t bottomRight) {
  Pixels pixels;
  ring(pixels, {0, 0, 100, 21}, topLeft, bottomRight);
  ring(pixels, {1, 1, 99, 20}, face, face);
  ring(pixels, {81, 2, 98, 19}, face, face);
  ring(pixels, {82, 3, 97, 18}, face, face);
  return pixels;
}

TEST_F(FramesTest, AnIdleComboBoxHasAFlatButtonWithALineBeforeIt) {
  const WindowHandle combo = comboBox();
  DrawComboFrame(combo, FrameStyle::idle, buttonFace, buttonFace);
  Pixels expected = comboBase(face, face);
  ring(expected, {82, 2, 97, 19}, highlight, highlight);
  line(expected, 81, 2, 19, background);
  EXPECT_EQ(takePixels(combo), expected);
  EXPECT_TRUE(takePixels(form).empty());
}

TEST_F(FramesTest, AHotComboBoxHasARaisedButton) {
  const WindowHandle combo = comboBox();
  DrawComboFrame(combo, FrameStyle::hot, buttonShadow, highlight3D);
  Pixels expected = comboBase(shadow, highlight);
  ring(expected, {82, 2, 98, 19}, highlight, shadow);
  EXPECT_EQ(takePixels(combo), expected);
}

TEST_F(FramesTest, ADroppedComboBoxHasASunkenButton) {
  const WindowHandle combo = comboBox();
  DrawComboFrame(combo, FrameStyle::down, buttonShadow, highlight3D);
  Pixels expected = comboBase(shadow, highlight);
  ring(expected, {82, 2, 98, 19}, shadow, highlight);
  EXPECT_EQ(takePixels(combo), expected);
}

TEST_F(FramesTest, ADisabledComboBoxHasAPlainButton) {
  const WindowHandle combo = comboBox();
  screen().at(combo).enabled = false;
  for (const FrameStyle style : {FrameStyle::idle, FrameStyle::hot, FrameStyle::down}) {
    DrawComboFrame(combo, style, buttonFace, buttonFace);
    Pixels expected;
    ring(expected, {0, 0, 100, 21}, face, face);
    ring(expected, {1, 1, 99, 20}, highlight, highlight);
    ring(expected, {81, 2, 98, 19}, face, face);
    ring(expected, {82, 3, 97, 18}, face, face);
    EXPECT_EQ(takePixels(combo), expected) << static_cast<int>(style);
  }
}

TEST_F(FramesTest, TheDropDownButtonIsAsWideAsTheSystemSays) {
  const WindowHandle combo = comboBox();
  screen().thumbWidth = 26;
  EXPECT_EQ(DropDownButtonWidth(combo), 26);
  DrawComboFrame(combo, FrameStyle::hot, buttonShadow, highlight3D);
  Pixels expected;
  ring(expected, {0, 0, 100, 21}, shadow, highlight);
  ring(expected, {1, 1, 99, 20}, face, face);
  ring(expected, {72, 2, 98, 19}, face, face);
  ring(expected, {73, 3, 97, 18}, face, face);
  ring(expected, {73, 2, 98, 19}, highlight, shadow);
  EXPECT_EQ(takePixels(combo), expected);
}

// --- in a command button of 80 by 25 pixels ---

TEST_F(FramesTest, AnIdleButtonHasAnOrangeFrame) {
  const WindowHandle made = button();
  DrawButtonFrame(made, FrameStyle::idle, buttonFace, buttonFace);
  Pixels expected;
  ring(expected, {0, 0, 80, 25}, face, face);
  ring(expected, {1, 1, 79, 24}, face, face);
  ring(expected, {1, 0, 79, 25}, 0x0080FF, 0x0080FF);
  line(expected, 0, 0, 25, background);
  EXPECT_EQ(takePixels(made), expected);
}

TEST_F(FramesTest, AHotButtonHasABlackFrame) {
  const WindowHandle made = button();
  DrawButtonFrame(made, FrameStyle::hot, buttonShadow, highlight3D);
  Pixels expected;
  ring(expected, {0, 0, 80, 25}, shadow, highlight);
  ring(expected, {1, 1, 79, 24}, face, face);
  ring(expected, {1, 0, 80, 25}, 0, 0);
  EXPECT_EQ(takePixels(made), expected);
}

TEST_F(FramesTest, APressedButtonHasASunkenFrame) {
  const WindowHandle made = button();
  DrawButtonFrame(made, FrameStyle::down, buttonShadow, highlight3D);
  Pixels expected;
  ring(expected, {0, 0, 80, 25}, shadow, highlight);
  ring(expected, {1, 1, 79, 24}, face, face);
  ring(expected, {1, 0, 80, 25}, shadow, highlight);
  EXPECT_EQ(takePixels(made), expected);
}

TEST_F(FramesTest, ADisabledButtonHasABlueRing) {
  const WindowHandle made = button();
  screen().at(made).enabled = false;
  for (const FrameStyle style : {FrameStyle::idle, FrameStyle::hot, FrameStyle::down}) {
    DrawButtonFrame(made, style, buttonFace, buttonFace);
    Pixels expected;
    ring(expected, {0, 0, 80, 25}, face, face);
    ring(expected, {1, 1, 79, 24}, 0xFF0000, 0xFF0000);
    EXPECT_EQ(takePixels(made), expected) << static_cast<int>(style);
  }
}

TEST_F(FramesTest, NothingIsDrawnForAWindowThatIsGone) {
  const WindowHandle gone = textBox();
  screen().destroy(gone);
  DrawOuterFrame(gone, FrameStyle::hot, buttonShadow, highlight3D);
  DrawComboFrame(gone, FrameStyle::hot, buttonShadow, highlight3D);
  DrawButtonFrame(gone, FrameStyle::hot, buttonShadow, highlight3D);
  EXPECT_TRUE(takePixels(form).empty());
}

}  // namespace
}  // namespace flatlook::test
