// Positions of the web shortcut dialog's parts. On the in-memory desktop a character is 7 pixels
// wide and 15 high at 9 points.
#include <gtest/gtest.h>

#include "platform/windows.h"
#include "unit/support/web_test.h"
#include "web/web_dialog.h"

namespace {

using platform::Rect;
using platform::Size;

class WebDialogLayout : public unit::WebTest {
 protected:
  frmWeb dialog{web};
};

TEST_F(WebDialogLayout, HasItsDesignedSizeAndTheSystemsFont) {
  EXPECT_EQ(dialog.designSize(), (Size{420, 124}));
  EXPECT_EQ(dialog.minimumSize(), (Size{0, 0}));
  EXPECT_EQ(dialog.Label1.font(), platform::windows::Font());
  EXPECT_EQ(dialog.Label2.font(), platform::windows::Font());
}

TEST_F(WebDialogLayout, AtTheDesignsDensity) {
  dialog.fireLayout({420, 124}, 96);
  EXPECT_EQ(dialog.Label1.bounds(), (Rect{12, 13, 48, 15}));
  EXPECT_EQ(dialog.txtName.bounds(), (Rect{64, 12, 344, 19}));
  EXPECT_EQ(dialog.Label2.bounds(), (Rect{12, 44, 48, 15}));
  EXPECT_EQ(dialog.txtUrl.bounds(), (Rect{64, 43, 344, 19}));
  EXPECT_EQ(dialog.cmdOK.bounds(), (Rect{232, 86, 84, 26}));
  EXPECT_EQ(dialog.cmdCancel.bounds(), (Rect{324, 86, 84, 26}));
}

TEST_F(WebDialogLayout, AtTwiceTheDensity) {
  dialog.fireLayout({840, 248}, 192);
  EXPECT_EQ(dialog.Label1.bounds(), (Rect{24, 25, 96, 30}));
  EXPECT_EQ(dialog.txtName.bounds(), (Rect{128, 24, 688, 34}));
  EXPECT_EQ(dialog.Label2.bounds(), (Rect{24, 83, 96, 30}));
  EXPECT_EQ(dialog.txtUrl.bounds(), (Rect{128, 82, 688, 34}));
  EXPECT_EQ(dialog.cmdOK.bounds(), (Rect{464, 172, 168, 52}));
  EXPECT_EQ(dialog.cmdCancel.bounds(), (Rect{648, 172, 168, 52}));
}

TEST_F(WebDialogLayout, InAClientAreaThatIsTooNarrowTheFieldsHaveNoWidthLeft) {
  dialog.fireLayout({60, 124}, 96);
  EXPECT_EQ(dialog.txtName.bounds(), (Rect{64, 12, 0, 19}));
}

}  // namespace
