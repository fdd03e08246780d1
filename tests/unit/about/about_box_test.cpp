#include "about/about_box.h"

#include <gtest/gtest.h>

#include "platform/windows.h"
#include "unit/support/loaded_main_window.h"
#include "unit/support/places.h"

namespace {

using memory::desktop;

class AboutBox : public unit::LoadedMainWindow {
 protected:
  frmAbout& box() {
    main.mnuAbout.fireClick();
    return *main.aboutBox();
  }
};

TEST_F(AboutBox, HasItsDesignTextsUntilItIsLoaded) {
  const frmAbout fresh;
  EXPECT_EQ(fresh.caption(), L"About Quillmark Suite");
  EXPECT_EQ(fresh.Label1.caption(), L"Gateway");
  EXPECT_EQ(fresh.lblTitle.caption(), L"Entrance to QMKExtra  3");
}

TEST_F(AboutBox, LoadingFillsInTitleVersionFolderAndSign) {
  desktop().version = {3, 12, 456};
  frmAbout loaded;
  loaded.load();
  EXPECT_EQ(loaded.caption(), L"About Quillmark Suite 3 Gateway");
  EXPECT_EQ(loaded.lblVersion.caption(), L"Version: 3.12.456");
  EXPECT_EQ(loaded.lblPath.caption(), L"Application folder: C:\\App");
  EXPECT_EQ(loaded.lblTM.caption(), L"\u00AE");
  EXPECT_EQ(loaded.Label1.caption(), L"Gateway");
  EXPECT_EQ(loaded.lblTitle.caption(), L"Entrance to QMKExtra  3");
}

TEST_F(AboutBox, ALongFolderIsShortenedInItsMiddleAndWholeInTheTip) {
  desktop().applicationFolder = L"C:\\" + std::wstring(250, L'x');
  frmAbout loaded;
  loaded.load();
  const std::wstring whole = L"Application folder: " + desktop().applicationFolder;
  EXPECT_EQ(loaded.lblPath.caption(), whole);
  EXPECT_EQ(loaded.lblPath.toolTip(), whole);
  EXPECT_TRUE(loaded.lblPath.pathEllipsis());
  const platform::Size design = loaded.designSize();
  loaded.fireLayout(design, 96);
  EXPECT_LE(loaded.lblPath.bounds().right(), design.width);
}

TEST_F(AboutBox, TheSignStandsRightAfterTheTitleAtEveryDensity) {
  for (const int dpi : {96, 120, 144, 168, 192, 240, 288, 384}) {
    SCOPED_TRACE(dpi);
    desktop().dpi = dpi;
    frmAbout shown;
    shown.show();
    const platform::Rect& title = shown.lblTitle.bounds();
    EXPECT_EQ(shown.lblTM.bounds().left, title.left + title.width);
    EXPECT_EQ(shown.lblTM.bounds().top, title.top);
    EXPECT_EQ(
        title.width,
        platform::windows::textSize(shown.lblTitle.caption(), shown.lblTitle.font(), dpi).width);
    EXPECT_GE(shown.lblTM.bounds().width,
              platform::windows::textSize(L"\u00AE", shown.lblTM.font(), dpi).width);
  }
}

TEST_F(AboutBox, ItsPartsLieInsideAndApartAtEveryDensity) {
  for (const int dpi : {96, 144, 192, 240, 288, 384}) {
    SCOPED_TRACE(dpi);
    desktop().dpi = dpi;
    frmAbout shown;
    shown.show();
    const platform::Size client{platform::scaled(shown.designSize().width, dpi),
                                platform::scaled(shown.designSize().height, dpi)};
    const auto& controls = shown.controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const platform::Rect& a = controls[i]->bounds();
      EXPECT_GE(a.left, 0);
      EXPECT_GE(a.top, 0);
      EXPECT_LE(a.right(), client.width);
      EXPECT_LE(a.bottom(), client.height);
      for (std::size_t j = i + 1; j < controls.size(); ++j) {
        const platform::Rect& b = controls[j]->bounds();
        EXPECT_PRED_FORMAT2(unit::apart, a, b) << i << " and " << j;
      }
    }
  }
}

TEST_F(AboutBox, TheMenuShowsItWithoutBlockingTheMainWindow) {
  EXPECT_TRUE(box().visible());
  EXPECT_FALSE(desktop().journalHas(L"modal frmAbout"));
}

TEST_F(AboutBox, AskingAgainBringsItForwardInsteadOfMakingASecondOne) {
  const frmAbout& first = box();
  EXPECT_EQ(&box(), &first);
  EXPECT_EQ(desktop().shown(L"frmAbout"), 1);
  EXPECT_EQ(desktop().activated(L"frmAbout"), 1);
}

TEST_F(AboutBox, OkClosesIt) {
  frmAbout& shown = box();
  EXPECT_TRUE(shown.cmdOK.isDefault);
  EXPECT_TRUE(shown.cmdOK.isCancel);
  shown.cmdOK.fireClick();
  EXPECT_FALSE(shown.loaded());
  EXPECT_TRUE(box().visible());
}

TEST_F(AboutBox, NothingInItStartsTheSystemInformation) {
  for (controls::Control* const control : box().controls()) {
    if (auto* const button = dynamic_cast<controls::CommandButton*>(control)) {
      button->fireClick();
    }
  }
  EXPECT_TRUE(desktop().registryQueries.empty());
  EXPECT_TRUE(desktop().starts.empty());
}

TEST_F(AboutBox, HasAPictureWithANameForScreenReaders) {
  const frmAbout fresh;
  EXPECT_EQ(fresh.Image1.picture(), L"ABOUT");
  EXPECT_NE(fresh.Image1.accessibleName(), L"");
}

}  // namespace
