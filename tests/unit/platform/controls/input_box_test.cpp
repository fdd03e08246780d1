// The input box as a window: what it answers, and where its parts stand.
#include "platform/controls/input_box.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/desktop_test.h"

namespace {

using controls::InputBox;
using platform::Rect;
using platform::scaled;
using platform::Size;

class InputBoxTest : public memory::DesktopTest {
 protected:
  InputBox box{L"Rename shortcut Notes", L"  ", L" "};
};

TEST_F(InputBoxTest, ShowsWhatItWasGiven) {
  EXPECT_EQ(box.caption(), L"  ");
  EXPECT_EQ(box.prompt.caption(), L"Rename shortcut Notes");
  EXPECT_EQ(box.edit.text(), L" ");
  EXPECT_TRUE(box.owned());
  EXPECT_TRUE(box.ok.isDefault);
  EXPECT_FALSE(box.cancel.isDefault);
  EXPECT_TRUE(box.cancel.isCancel);
  EXPECT_FALSE(box.ok.isCancel);
  EXPECT_EQ(box.ok.caption(), L"OK");
  EXPECT_EQ(box.cancel.caption(), L"Cancel");
  EXPECT_EQ(box.ok.id(), 1);
  EXPECT_EQ(box.cancel.id(), 2);
  EXPECT_EQ(box.prompt.id(), 1400);
  EXPECT_EQ(box.edit.id(), 1401);
}

TEST_F(InputBoxTest, OkAnswersWithTheText) {
  box.show();
  box.edit.acceptTyped(L"New name");
  box.ok.fireClick();
  EXPECT_FALSE(box.loaded());
  EXPECT_EQ(box.answer(), L"New name");
}

TEST_F(InputBoxTest, TheDefaultAnswerCanBeConfirmed) {
  box.show();
  box.ok.fireClick();
  EXPECT_EQ(box.answer(), L" ");
}

TEST_F(InputBoxTest, CancelAndTheCloseBoxAnswerNothing) {
  box.show();
  box.edit.acceptTyped(L"New name");
  box.cancel.fireClick();
  EXPECT_FALSE(box.loaded());
  EXPECT_EQ(box.answer(), L"");

  InputBox other(L"Prompt", L"Title", L"Answer");
  other.show();
  EXPECT_TRUE(other.fireClose(controls::UnloadMode::user));
  EXPECT_EQ(other.answer(), L"");
}

TEST_F(InputBoxTest, ItsPartsStandBelowOneAnotherAtEveryDensity) {
  for (const int dpi : {96, 120, 144, 192, 240, 288, 384}) {
    SCOPED_TRACE(dpi);
    const Size client = box.clientSize(dpi);
    EXPECT_EQ(client.width, scaled(360, dpi));
    box.fireLayout(client, dpi);
    const int edge = scaled(12, dpi);
    const int inner = client.width - 2 * edge;
    const int line = platform::windows::textSize(L"X", {}, dpi).height;
    EXPECT_EQ(box.prompt.bounds(), (Rect{edge, edge, inner, line}));
    EXPECT_EQ(box.edit.bounds(),
              (Rect{edge, edge + line + scaled(10, dpi), inner, scaled(23, dpi)}));
    const Rect& cancel = box.cancel.bounds();
    EXPECT_EQ((Size{cancel.width, cancel.height}), (Size{scaled(80, dpi), scaled(25, dpi)}));
    EXPECT_EQ(cancel.right(), client.width - edge);
    EXPECT_EQ(cancel.top, box.edit.bounds().bottom() + edge);
    EXPECT_EQ(cancel.bottom(), client.height - edge);
    EXPECT_EQ(box.ok.bounds(), (Rect{cancel.left - scaled(8, dpi) - cancel.width, cancel.top,
                                     cancel.width, cancel.height}));
  }
}

TEST_F(InputBoxTest, ALongPromptAndItsLineBreaksMakeItHigher) {
  const int line = platform::windows::textSize(L"X", {}, 96).height;
  const InputBox broken(L"Rename file  A.FP3\rType: Fuel Profile", L"", L"");
  EXPECT_EQ(broken.clientSize(96).height, box.clientSize(96).height + line);
  const InputBox lengthy(std::wstring(100, L'x'), L"", L"");
  EXPECT_EQ(lengthy.clientSize(96).height, box.clientSize(96).height + 2 * line);
  const InputBox empty(L"", L"", L"");
  EXPECT_EQ(empty.clientSize(96).height, box.clientSize(96).height);
}

}  // namespace
