#include "startup/startup.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "unit/support/journal_order.h"
#include "unit/support/links.h"
#include "unit/support/startup_fixture.h"

namespace {

using memory::desktop;
using memory::ProgramEnded;

// --- the order of the steps ---

TEST_F(StartupTest, TheStepsRunInTheirOrder) {
  EXPECT_TRUE(gateway->start());

  expectInOrder({
      std::wstring(L"make folder ") + userFolder,
      std::wstring(L"make folder ") + shortcutsFolder,
      L"create frmQMK",
      L"pump",
      L"create frmSplash",
      L"make folder C:\\App\\PhotoImages",
      std::wstring(L"link ") + shortcutsFolder + L"\\Plotview Browser.lnk",
      L"pump",
      L"show frmSplash",
      L"modal frmSplash",
      L"tick Timer2",
      L"tick Timer2",
      L"tick Timer2",
      L"tick Timer1",
      L"destroy frmSplash",
      L"show frmQMK",
      L"pump",
      L"setting General\\CWIExample = True",
      std::wstring(L"read ") + catalogueFile,
      L"pump",
      L"read C:\\App\\QMKWebList.txt",
      L"pump",
      std::wstring(L"read ") + catalogueFile,
  });
  EXPECT_EQ(desktop().pumps, 5);
  EXPECT_EQ(timesInJournal(L"tick Timer1"), 24U);
  EXPECT_TRUE(desktop().messages.empty());
}

/// The state at each pass over the pending messages.
struct Moment {
  bool splashLoaded;
  bool mainShown;
  std::size_t openColumns;
  std::size_t shortcutCount;
  std::size_t dataFiles;
  std::size_t newItems;
  std::size_t webEntries;
  bool watching;
  bool operator==(const Moment&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Moment& moment) {
  return out << "splash " << moment.splashLoaded << ", main " << moment.mainShown << ", columns "
             << moment.openColumns << ", shortcuts " << moment.shortcutCount << ", data "
             << moment.dataFiles << ", new " << moment.newItems << ", web " << moment.webEntries
             << ", watch " << moment.watching;
}

TEST_F(StartupTest, EachPassOfTheWindowSystemSeesWhatTheStepsBeforeItDid) {
  std::vector<Moment> moments;
  desktop().onPump = [&] {
    const frmQMK& main = gateway->main;
    EXPECT_TRUE(main.loaded());
    moments.push_back({gateway->splash.loaded(), main.visible(),
                       list(frmQMK::open).columns().size(), list(frmQMK::tools).count(),
                       list(frmQMK::open).count(), list(frmQMK::newFiles).count(),
                       list(frmQMK::web).count(), main.tmrFileUpdate.enabled()});
  };

  EXPECT_TRUE(gateway->start());

  // Only the example is in the catalogue until the refresh at the very end finds the other file.
  const std::vector<Moment> expected{
      {false, false, 0, 0, 0, 0, 0, false}, {true, false, 5, 0, 0, 0, 0, false},
      {false, true, 5, 0, 0, 0, 0, false},  {false, true, 5, 1, 1, 4, 0, false},
      {false, true, 5, 1, 1, 4, 1, false},
  };
  EXPECT_EQ(moments, expected);
  EXPECT_EQ(list(frmQMK::open).count(), 2U);
}

TEST_F(StartupTest, TheWatchIsEnabledBehindEverythingElse) {
  EXPECT_TRUE(gateway->start());

  EXPECT_TRUE(gateway->main.tmrFileUpdate.enabled());
  EXPECT_FALSE(desktop().journalHas(L"tick tmrFileUpdate"));
  desktop().advance(999);
  EXPECT_FALSE(desktop().journalHas(L"tick tmrFileUpdate"));
  desktop().advance(1);
  EXPECT_TRUE(desktop().journalHas(L"tick tmrFileUpdate"));
}

TEST_F(StartupTest, TheMainWindowIsLoadedHidden) {
  bool visible = true;
  desktop().at(1, [&] { visible = gateway->main.visible(); });
  EXPECT_TRUE(gateway->start());
  EXPECT_FALSE(visible);
  EXPECT_TRUE(gateway->main.visible());
}

TEST_F(StartupTest, TheMainWindowComesThreePointSixSecondsBehindTheSplash) {
  std::int64_t shownAt = -1;
  desktop().onPump = [&] {
    if (shownAt < 0 && gateway->main.visible()) {
      shownAt = desktop().clock().elapsed();
    }
  };
  EXPECT_TRUE(gateway->start());
  EXPECT_EQ(shownAt, 3600);
}

TEST_F(StartupTest, AClickOnTheSplashAtOnceBringsTheMainWindowAfterPointSixSeconds) {
  desktop().at(0, [this] { gateway->splash.fireClick(); });
  EXPECT_TRUE(gateway->start());
  EXPECT_EQ(desktop().clock().elapsed(), 600);
}

TEST_F(StartupTest, ToolsIsInFrontAtTheEndWhateverTheUserChoseMeanwhile) {
  desktop().onPump = [this] {
    // The last pass comes after the step that makes Tools the current tab.
    if (gateway->main.visible() && desktop().pumps < 5) {
      gateway->main.TabMain.fireSwitch(frmQMK::web);
    }
  };
  EXPECT_TRUE(gateway->start());
  EXPECT_EQ(gateway->main.TabMain.current(), frmQMK::tools);
  EXPECT_EQ(gateway->main.mnuCreate.caption(), L"Create Shortcut");
}

TEST_F(StartupTest, TheListsAreFilledFromTheirSources) {
  desktop().putLink(std::wstring(shortcutsFolder) + L"\\Notes.lnk", linkTo(L"C:\\n.exe"));

  EXPECT_TRUE(gateway->start());

  ASSERT_EQ(list(frmQMK::tools).count(), 2U);
  EXPECT_EQ(list(frmQMK::tools).text(0), L"Notes");
  EXPECT_EQ(list(frmQMK::tools).text(1), L"Plotview Browser");
  ASSERT_EQ(list(frmQMK::open).count(), 2U);
  EXPECT_EQ(list(frmQMK::open).text(0), L"CWIexample.cw3");
  EXPECT_EQ(list(frmQMK::open).text(1), L"Ridge.fp3");
  EXPECT_EQ(list(frmQMK::newFiles).count(), 4U);
  ASSERT_EQ(list(frmQMK::web).count(), 1U);
  EXPECT_EQ(list(frmQMK::web).text(0), L"Weather");
}

TEST_F(StartupTest, AWindowThatTheUserClosesMeanwhileGetsNoFurtherSteps) {
  desktop().answers = {platform::dialogs::Answer::yes};
  desktop().onPump = [this] {
    if (gateway->main.visible()) {
      gateway->main.fireClose(controls::UnloadMode::user);
    }
  };
  EXPECT_TRUE(gateway->start());
  EXPECT_FALSE(gateway->main.loaded());
  EXPECT_EQ(list(frmQMK::newFiles).count(), 0U);
  EXPECT_FALSE(desktop().setting(L"General", L"CWIExample"));
  EXPECT_FALSE(gateway->main.tmrFileUpdate.enabled());
}

// --- the example file ---

TEST_F(StartupTest, TheExampleIsCataloguedAtTheFirstStart) {
  std::string atFirst;
  desktop().onPump = [&] {
    if (desktop().pumps == 4) {
      atFirst = desktop().bytesOf(catalogueFile).value_or("missing");
    }
  };
  EXPECT_TRUE(gateway->start());
  EXPECT_EQ(atFirst, "\"CW3\",\"C:\\App\\data\\CWIexample.cw3\",\"11/20/2026\"\r\n");
  EXPECT_EQ(desktop().setting(L"General", L"CWIExample"), L"True");
}

TEST_F(StartupTest, TheExampleIsCataloguedOncePerUser) {
  desktop().setSetting(L"General", L"CWIExample", L"True");
  desktop().putFile(catalogueFile, "");
  std::string afterExample = "never looked";
  desktop().onPump = [&] {
    if (desktop().pumps == 4) {
      afterExample = desktop().bytesOf(catalogueFile).value_or("missing");
    }
  };
  EXPECT_TRUE(gateway->start());
  EXPECT_EQ(afterExample, "");
  EXPECT_EQ(linesBeginning(L"setting"), 0U);
}

TEST_F(StartupTest, TheExampleSettingIsABooleanInAnyLetterCase) {
  desktop().setSetting(L"General", L"CWIExample", L"true");
  EXPECT_TRUE(gateway->start());
  EXPECT_EQ(linesBeginning(L"setting"), 0U);
}

TEST_F(StartupTest, AFalseExampleSettingCataloguesTheExampleAgain) {
  desktop().setSetting(L"General", L"CWIExample", L"False");
  EXPECT_TRUE(gateway->start());
  EXPECT_EQ(desktop().setting(L"General", L"CWIExample"), L"True");
}

// --- the second copy ---

TEST_F(StartupTest, ASecondCopyEndsBehindItsMessageWithoutAMainWindow) {
  desktop().previousInstance = true;

  EXPECT_THROW(gateway->start(), ProgramEnded);

  ASSERT_EQ(desktop().messages.size(), 1U);
  EXPECT_EQ(desktop().messages.front().text, L"Error: you already have Quillmark Running");
  EXPECT_EQ(desktop().messages.front().style, platform::dialogs::MessageStyle::critical);
  EXPECT_EQ(desktop().messages.front().title, platform::application::title);
  expectInOrder({L"message Error: you already have Quillmark Running", L"end"});
  EXPECT_EQ(desktop().shown(L"frmQMK"), 0);
  EXPECT_EQ(desktop().shown(L"frmSplash"), 0);
}

TEST_F(StartupTest, ASecondCopyHasMadeTheUserFoldersAndLoadedTheMainWindowHidden) {
  desktop().previousInstance = true;

  EXPECT_THROW(gateway->start(), ProgramEnded);

  expectInOrder({std::wstring(L"make folder ") + userFolder,
                 std::wstring(L"make folder ") + shortcutsFolder, L"create frmQMK", L"pump",
                 L"message Error: you already have Quillmark Running"});
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_TRUE(gateway->main.loaded());
  EXPECT_FALSE(gateway->main.visible());
  EXPECT_EQ(list(frmQMK::open).columns().size(), 5U);
  EXPECT_FALSE(desktop().has(L"C:\\App\\PhotoImages"));
}

// --- the program as a whole ---

TEST_F(StartupTest, TheProgramRunsUntilTheMainWindowIsClosed) {
  gateway.reset();
  desktop().answers = {platform::dialogs::Answer::no, platform::dialogs::Answer::yes};
  for (const int moment : {5000, 7000}) {
    desktop().at(moment,
                 [] { desktop().window(L"frmQMK")->fireClose(controls::UnloadMode::user); });
  }
  EXPECT_EQ(modSystem::Main(), 0);
  EXPECT_EQ(desktop().clock().elapsed(), 7000);
  expectInOrder(
      {L"run frmQMK", L"message Exit Gateway?", L"message Exit Gateway?", L"destroy frmQMK"});
}

TEST_F(StartupTest, TheProgramFailsWhenItsFoldersCannotBeMade) {
  gateway.reset();
  desktop().take(L"C:\\Users\\Ann\\Documents");
  EXPECT_EQ(modSystem::Main(), 1);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{76});
  EXPECT_FALSE(desktop().journalHas(L"run frmQMK"));
}

}  // namespace
