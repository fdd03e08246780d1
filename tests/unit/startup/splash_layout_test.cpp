// Positions, fonts and colours of the splash window's parts. On the in-memory desktop a character
// is 7 pixels wide and 15 high at 9 points.
#include <gtest/gtest.h>

#include "platform/desktop_test.h"
#include "platform/windows.h"
#include "startup/paths.h"
#include "startup/splash_window.h"

namespace {

using platform::Rect;
using platform::Size;
using platform::windows::Font;

class SplashLayout : public memory::DesktopTest {
 protected:
  SplashLayout() {
    modQMKGeneral::InitUserFolders();
    splash.load();
  }
  frmSplash splash;
};

TEST_F(SplashLayout, HasItsDesignedSizeFontsAndColours) {
  EXPECT_EQ(splash.designSize(), (Size{480, 300}));
  EXPECT_EQ(splash.minimumSize(), (Size{0, 0}));
  EXPECT_EQ(splash.lblSuite.font(), (Font{.pointSize = 10, .bold = false}));
  EXPECT_EQ(splash.lblGateway.font(), (Font{.pointSize = 22, .bold = true}));
  for (const controls::Label* const label : {&splash.lblTM, &splash.lblApp, &splash.lblCopyRight}) {
    EXPECT_EQ(label->font(), Font()) << label->id();
  }
  for (const controls::Label* const label :
       {&splash.lblSuite, &splash.lblGateway, &splash.lblTM, &splash.lblApp}) {
    EXPECT_EQ(label->textColour(), 0x1E4632) << label->id();
  }
  EXPECT_EQ(splash.lblCopyRight.textColour(), 0xF5EFDD);
}

TEST_F(SplashLayout, AtTheDesignsDensity) {
  splash.fireLayout({480, 300}, 96);
  EXPECT_EQ(splash.lblSuite.bounds(), (Rect{24, 20, 300, 16}));
  EXPECT_EQ(splash.lblGateway.bounds(), (Rect{24, 36, 119, 36}));
  EXPECT_EQ(splash.lblTM.bounds(), (Rect{144, 40, 9, 15}));
  EXPECT_EQ(splash.lblApp.bounds(), (Rect{24, 74, 300, 15}));
  EXPECT_EQ(splash.lblCopyRight.bounds(), (Rect{24, 273, 432, 15}));
}

TEST_F(SplashLayout, AtTwiceTheDensity) {
  splash.fireLayout({960, 600}, 192);
  EXPECT_EQ(splash.lblSuite.bounds(), (Rect{48, 40, 600, 32}));
  EXPECT_EQ(splash.lblGateway.bounds(), (Rect{48, 72, 238, 72}));
  EXPECT_EQ(splash.lblTM.bounds(), (Rect{288, 80, 18, 30}));
  EXPECT_EQ(splash.lblApp.bounds(), (Rect{48, 148, 600, 30}));
  EXPECT_EQ(splash.lblCopyRight.bounds(), (Rect{48, 547, 864, 30}));
}

TEST_F(SplashLayout, ALabelWithoutATextHasItsHeightAllTheSame) {
  splash.lblCopyRight.setCaption(L"");
  splash.fireLayout({480, 300}, 96);
  EXPECT_EQ(splash.lblCopyRight.bounds(), (Rect{24, 273, 432, 15}));
}

}  // namespace
