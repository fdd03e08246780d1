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

// --- where the system shows a kind of help no more ---

const std::wstring handbookFile = L"C:\\App\\help\\gateway-handbook.html";

TEST_F(HelpLauncher, WithoutAViewerForClassicHelpTheCompiledOneIsOpened) {
  desktop().putFile(classicFile, "help");
  desktop().putFile(handbookFile, "handbook");
  desktop().classicHelp = false;
  main.mnuHelpContents.fireClick();
  EXPECT_TRUE(desktop().helpShown.empty()) << "the viewer is not waited for";
  desktop().advance(0);
  EXPECT_TRUE(onlyHelp().compiled);
  EXPECT_EQ(onlyHelp().file, compiledFile);
  EXPECT_TRUE(desktop().browsed.empty());
}

TEST_F(HelpLauncher, WithoutAnyViewerTheInstalledHandbookIsOpened) {
  desktop().putFile(classicFile, "help");
  desktop().putFile(handbookFile, "handbook");
  desktop().classicHelp = false;
  desktop().compiledHelp = false;
  main.mnuHelpContents.fireClick();
  desktop().advance(0);
  ASSERT_EQ(desktop().browsed.size(), 1U);
  EXPECT_EQ(desktop().browsed.front().address, handbookFile);
  EXPECT_EQ(desktop().browsed.front().showCommand, 1);
}

TEST_F(HelpLauncher, WithoutAClassicFileTheHandbookTakesThePlaceOfACompiledOneThatIsNotShown) {
  desktop().putFile(handbookFile, "handbook");
  desktop().compiledHelp = false;
  main.mnuHelpContents.fireClick();
  EXPECT_TRUE(desktop().journalHas(L"compiled help " + compiledFile));
  ASSERT_EQ(desktop().browsed.size(), 1U);
}

TEST_F(HelpLauncher, WithoutAHandbookNothingIsOpenedAndNothingIsSaid) {
  desktop().compiledHelp = false;
  main.mnuHelpContents.fireClick();
  EXPECT_TRUE(desktop().browsed.empty());
  EXPECT_TRUE(messages().empty());
}

}  // namespace
