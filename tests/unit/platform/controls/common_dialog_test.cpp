#include "platform/controls/common_dialog.h"

#include <gtest/gtest.h>

#include "platform/desktop_test.h"
#include "unit/support/error_number.h"

namespace controls {
namespace {

using memory::desktop;

class CommonDialogTest : public ::memory::DesktopTest {
 protected:
  CommonDialogTest() {
    dialog.initDir = L"C:\\App\\Data";
    dialog.fileName = L"preset.fp3";
    dialog.dialogTitle = L"Find it";
    dialog.filter = L"All|*.*";
    dialog.filterIndex = 1;
  }
  CommonDialog dialog;
};

TEST_F(CommonDialogTest, GivesTheChosenPath) {
  desktop().fileDialogResults = {L"D:\\chosen.fp3"};
  dialog.showOpen();
  EXPECT_EQ(dialog.fileName, L"D:\\chosen.fp3");
  ASSERT_EQ(desktop().fileDialogs.size(), 1U);
  const auto& request = desktop().fileDialogs.front();
  EXPECT_EQ(request.initialFolder, L"C:\\App\\Data");
  EXPECT_EQ(request.fileName, L"preset.fp3");
  EXPECT_EQ(request.title, L"Find it");
  EXPECT_EQ(request.filter, L"All|*.*");
  EXPECT_EQ(request.filterIndex, 1);
}

TEST_F(CommonDialogTest, CancelIsAnErrorOnlyWhenAskedFor) {
  desktop().fileDialogResults = {32755, 32755};
  dialog.showOpen();
  EXPECT_EQ(dialog.fileName, L"preset.fp3");
  dialog.cancelError = true;
  EXPECT_EQ(errorNumberOf([this] { dialog.showOpen(); }), 32755);
  EXPECT_EQ(dialog.fileName, L"preset.fp3");
}

TEST_F(CommonDialogTest, AFailureIsAnErrorInAnyCase) {
  desktop().fileDialogResults = {20477};
  EXPECT_EQ(errorNumberOf([this] { dialog.showOpen(); }), 20477);
}

TEST_F(CommonDialogTest, ShowsClassicHelp) {
  dialog.helpFile = L"C:\\App\\help.hlp";
  dialog.helpCommand = 3;
  dialog.showHelp([] { FAIL() << "nothing refused"; });
  desktop().advance(0);
  ASSERT_EQ(desktop().helpShown.size(), 1U);
  EXPECT_FALSE(desktop().helpShown.front().compiled);
  EXPECT_EQ(desktop().helpShown.front().file, L"C:\\App\\help.hlp");
  EXPECT_EQ(desktop().helpShown.front().command, 3);
}

TEST_F(CommonDialogTest, PassesOnThatTheSystemHasNoClassicHelp) {
  desktop().classicHelp = false;
  int refusals = 0;
  dialog.showHelp([&refusals] { ++refusals; });
  EXPECT_EQ(refusals, 0) << "only later";
  desktop().advance(0);
  EXPECT_EQ(refusals, 1);
}

}  // namespace
}  // namespace controls
