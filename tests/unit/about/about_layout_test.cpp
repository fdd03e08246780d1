// Positions and fonts of the about box's parts. On the in-memory desktop a character is 7 pixels
// wide and 15 high at 9 points.
#include <gtest/gtest.h>

#include "about/about_box.h"
#include "platform/desktop_test.h"
#include "platform/windows.h"

namespace {

using platform::Rect;
using platform::Size;
using platform::windows::Font;

class AboutLayout : public memory::DesktopTest {
 protected:
  AboutLayout() { box.load(); }
  frmAbout box;
};

TEST_F(AboutLayout, HasItsDesignedSizeAndFonts) {
  EXPECT_EQ(box.designSize(), (Size{480, 184}));
  EXPECT_EQ(box.minimumSize(), (Size{0, 0}));
  EXPECT_EQ(box.Label1.font(), (Font{.pointSize = 10, .bold = false}));
  EXPECT_EQ(box.lblTitle.font(), (Font{.pointSize = 14, .bold = true}));
  for (const controls::Label* const label : {&box.lblTM, &box.lblVersion, &box.lblPath}) {
    EXPECT_EQ(label->font(), Font()) << label->id();
  }
}

TEST_F(AboutLayout, AtTheDesignsDensity) {
  box.fireLayout({480, 184}, 96);
  EXPECT_EQ(box.Image1.bounds(), (Rect{16, 16, 96, 96}));
  EXPECT_EQ(box.Label1.bounds(), (Rect{128, 16, 336, 16}));
  EXPECT_EQ(box.lblTitle.bounds(), (Rect{128, 34, 250, 23}));
  EXPECT_EQ(box.lblTM.bounds(), (Rect{378, 34, 9, 15}));
  EXPECT_EQ(box.lblVersion.bounds(), (Rect{128, 67, 336, 15}));
  EXPECT_EQ(box.lblPath.bounds(), (Rect{128, 86, 336, 15}));
  EXPECT_EQ(box.cmdOK.bounds(), (Rect{380, 140, 84, 28}));
}

TEST_F(AboutLayout, AtOneAndAHalf) {
  box.fireLayout({720, 276}, 144);
  EXPECT_EQ(box.Image1.bounds(), (Rect{24, 24, 144, 144}));
  EXPECT_EQ(box.Label1.bounds(), (Rect{192, 24, 504, 24}));
  EXPECT_EQ(box.lblTitle.bounds(), (Rect{192, 51, 375, 35}));
  EXPECT_EQ(box.lblTM.bounds(), (Rect{567, 51, 14, 23}));
  EXPECT_EQ(box.lblVersion.bounds(), (Rect{192, 101, 504, 23}));
  EXPECT_EQ(box.lblPath.bounds(), (Rect{192, 130, 504, 23}));
  EXPECT_EQ(box.cmdOK.bounds(), (Rect{570, 210, 126, 42}));
}

TEST_F(AboutLayout, InAClientAreaThatIsTooNarrowTheLabelsHaveNoWidthLeft) {
  box.fireLayout({100, 184}, 96);
  EXPECT_EQ(box.lblVersion.bounds(), (Rect{128, 67, 0, 15}));
}

}  // namespace
