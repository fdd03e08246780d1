// The flat look of the program's own windows.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "about/about_box.h"
#include "flatlook/form_style.h"
#include "platform/native_windows.h"
#include "unit/support/main_window_fixture.h"
#include "web/web_dialog.h"

namespace {

using memory::desktop;
using OC_COLOR::FlatControls;

std::vector<std::uint32_t> coloursOf(const controls::CoolButton& button) {
  return {button.backColor(), button.colorDarkShadow(), button.colorHighlight(),
          button.colorLightShadow()};
}

const std::vector<std::uint32_t> hot{0xC0FFFF, 0x0080FF, 0x0080FF, 0x0080FF};
const std::vector<std::uint32_t> idle{0xFFC0C0, 0, 0, 0};

class ProgramWindowsTest : public MainWindowTest {};

TEST_F(ProgramWindowsTest, TheMainWindowColoursItsButtonsAndAttachesItsFindBox) {
  const std::size_t before = FlatControls().size();
  frmQMK another;
  another.load();
  EXPECT_EQ(coloursOf(another.cmdBrowse), idle);
  EXPECT_EQ(coloursOf(another.cmdClearFind),
            std::vector<std::uint32_t>(4, platform::native::translateColour(0x80000005).value()));
  constexpr std::size_t boxAndItsLabel = 2;
  EXPECT_EQ(FlatControls().size(), before + boxAndItsLabel);
  EXPECT_EQ(another.txtFind.appearance(), controls::flat);
}

TEST_F(ProgramWindowsTest, TheBrowseButtonFollowsThePointer) {
  window.cmdBrowse.firePointerEnter();
  EXPECT_EQ(coloursOf(window.cmdBrowse), hot);
  window.cmdBrowse.firePointerLeave();
  EXPECT_EQ(coloursOf(window.cmdBrowse), idle);
}

TEST_F(ProgramWindowsTest, AClickOnTheBrowseButtonMakesItIdle) {
  constexpr int cancelled = 32755;
  desktop().fileDialogResults = {cancelled};
  window.cmdBrowse.firePointerEnter();
  window.cmdBrowse.fireClick();
  EXPECT_EQ(coloursOf(window.cmdBrowse), idle);
  EXPECT_EQ(desktop().fileDialogs.size(), 1U);
}

TEST_F(ProgramWindowsTest, EveryShowingOfTheWebDialogAddsItsControls) {
  constexpr std::size_t perShowing = 4;  // two labels, two text boxes
  for (int showing = 0; showing < 3; ++showing) {
    const std::size_t before = FlatControls().size();
    frmWeb dialog(window.webList);
    dialog.show();
    EXPECT_EQ(FlatControls().size(), before + perShowing);
    for (const controls::TextBox* const box : {&dialog.txtName, &dialog.txtUrl}) {
      EXPECT_EQ(box->appearance(), controls::flat);
      EXPECT_EQ(box->borderStyle(), controls::noBorder);
    }
    dialog.unload();
    EXPECT_EQ(FlatControls().size(), before + perShowing);
  }
}

TEST_F(ProgramWindowsTest, TheAboutBoxColoursItsButtonAndAttachesNothing) {
  const std::size_t before = FlatControls().size();
  frmAbout about;
  about.show();
  EXPECT_EQ(FlatControls().size(), before);
  EXPECT_EQ(coloursOf(about.cmdOK), idle);
  about.cmdOK.firePointerEnter();
  EXPECT_EQ(coloursOf(about.cmdOK), hot);
  about.cmdOK.firePointerLeave();
  EXPECT_EQ(coloursOf(about.cmdOK), idle);
  about.cmdOK.fireClick();
  EXPECT_FALSE(about.loaded());
}

}  // namespace
