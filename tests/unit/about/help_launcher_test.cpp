#include "about/help_launcher.h"

#include <gtest/gtest.h>

#include "unit/support/loaded_main_window.h"

namespace {

using memory::desktop;

const std::wstring classicFile = L"C:\\App\\help\\gatewayhelp3.HLP";
const std::wstring compiledFile = L"C:\\App\\help\\gatewayhelp3.chm";

class HelpLauncher : public unit::LoadedMainWindow {
 protected:
  /// The only help that was opened.
  static memory::Help onlyHelp() {
    EXPECT_EQ(desktop().helpShown.size(), 1U);
    return desktop().helpShown.empty() ? memory::Help{} : desktop().helpShown.front();
  }
};

TEST_F(HelpLauncher, TheClassicFileWinsAndShowsItsContents) {
  desktop().putFile(classicFile, "help");
  desktop().putFile(compiledFile, "help");
  main.mnuHelpContents.fireClick();
  const auto help = onlyHelp();
  EXPECT_FALSE(help.compiled);
  EXPECT_EQ(help.file, classicFile);
  EXPECT_EQ(help.command, 3);
  EXPECT_EQ(main.diaCommon.helpFile, classicFile);
  EXPECT_EQ(main.diaCommon.helpCommand, 3);
}

TEST_F(HelpLauncher, WithoutAClassicFileTheCompiledOneIsOpened) {
  desktop().putFile(compiledFile, "help");
  main.mnuHelpContents.fireClick();
  const auto help = onlyHelp();
  EXPECT_TRUE(help.compiled);
  EXPECT_EQ(help.file, compiledFile);
}

TEST_F(HelpLauncher, TheCompiledFileIsNotLookedForAndNothingIsSaidOfAMissingOne) {
  main.mnuHelpContents.fireClick();
  const auto help = onlyHelp();
  EXPECT_TRUE(help.compiled);
  EXPECT_EQ(help.file, compiledFile);
  EXPECT_TRUE(messages().empty());
}

TEST_F(HelpLauncher, AFolderOfTheClassicFilesNameIsNoHelpFile) {
  desktop().putFolder(classicFile);
  main.mnuHelpContents.fireClick();
  EXPECT_TRUE(onlyHelp().compiled);
}

TEST_F(HelpLauncher, TheToolbarsHelpButtonDoesTheSame) {
  main.barMain.fireButtonClick(L"Help");
  EXPECT_TRUE(onlyHelp().compiled);
}

}  // namespace
