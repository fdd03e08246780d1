// Which failures end a start, and which do not.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/faults.h"
#include "unit/support/journal_order.h"
#include "unit/support/startup_fixture.h"

namespace {

using memory::desktop;
using modSystem::Gateway;

constexpr const wchar_t* protectedFolderAdvice =
    L"\r\n\r\nThe program may not write to its own folder:\r\n\r\nC:\\App\r\n\r\nAsk for the right "
    L"to "
    L"change files in this folder, or install the program in a folder of your own.";

class StartupFailureTest : public StartupTest {
 protected:
  /// A first start on a fresh system whose n-th call that can fail does fail. True when the call
  /// came after the main window was shown.
  bool failsBehindMainWindow(int n, int number) {
    gateway.reset();
    desktop().reset();
    desktop().onMistake = [](const std::string& what) { ADD_FAILURE() << what; };
    prepareDisk();
    gateway = std::make_unique<Gateway>();
    int callsWhenShown = -1;
    desktop().onPump = [&] {
      if (gateway->main.visible() && callsWhenShown < 0) {
        callsWhenShown = desktop().faults().calls();
      }
    };
    desktop().faults().failCall(n, number);
    started = gateway->start();
    desktop().onPump = nullptr;
    return callsWhenShown >= 0 && n > callsWhenShown;
  }

  /// Result of the start in `failsBehindMainWindow`.
  bool started = false;
};

// --- failures before the main window is up ---

TEST_F(StartupFailureTest, AUserFolderThatCannotBeMadeEndsTheStartWithTheReport) {
  desktop().take(L"C:\\Users\\Ann\\Documents");

  EXPECT_FALSE(gateway->start());

  EXPECT_EQ(desktop().errorReports, std::vector<int>{76});
  ASSERT_EQ(desktop().messages.size(), 1U);
  EXPECT_EQ(desktop().messages.front().text,
            L"Run-time error '76':\r\n\r\nPath not found\r\n\r\n"
            L"C:\\Users\\Ann\\Documents\\My QMKExtra3");
  EXPECT_FALSE(desktop().journalHas(L"create frmQMK"));
}

TEST_F(StartupFailureTest, AShortcutsFolderThatVanishesBehindTheLoadIsMadeAgain) {
  desktop().onPump = [] {
    if (desktop().pumps == 1) {
      desktop().take(shortcutsFolder);
    }
  };
  EXPECT_TRUE(gateway->start());
  EXPECT_EQ(timesInJournal(std::wstring(L"make folder ") + shortcutsFolder), 2U);
}

TEST_F(StartupFailureTest, AShortcutsFolderThatCannotBeMadeInTheSetUpEndsTheStartWithTheReport) {
  desktop().onPump = [] { desktop().take(userFolder); };

  EXPECT_FALSE(gateway->start());

  EXPECT_EQ(desktop().errorReports, std::vector<int>{76});
  EXPECT_FALSE(desktop().journalHas(L"create frmSplash"));
  EXPECT_EQ(desktop().shown(L"frmQMK"), 0);
}

TEST_F(StartupFailureTest, APhotoImagesFolderThatCannotBeMadeEndsTheStartWithTheReport) {
  desktop().onPump = [] { desktop().take(L"C:\\App"); };

  EXPECT_FALSE(gateway->start());

  EXPECT_EQ(desktop().errorReports, std::vector<int>{76});
  EXPECT_EQ(desktop().shown(L"frmSplash"), 0);
  EXPECT_EQ(desktop().shown(L"frmQMK"), 0);
}

TEST_F(StartupFailureTest, AMainWindowThatCannotBeShownEndsTheStartWithTheReport) {
  ASSERT_TRUE(gateway->start());
  const int all = desktop().faults().calls();
  int n = 1;
  do {
    failsBehindMainWindow(n, 7);
  } while (!desktop().journalHas(L"show frmQMK failed 7") && ++n <= all);
  ASSERT_LE(n, all);

  EXPECT_FALSE(started);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{7});
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_FALSE(gateway->main.loaded());
  EXPECT_TRUE(desktop().windows().empty());
}

TEST_F(StartupFailureTest, AMainWindowWhosePartsCannotBeMadeBehindTheSplashEndsTheStart) {
  desktop().at(1000, [this] { gateway->main.giveUp(); });

  EXPECT_FALSE(gateway->start());

  EXPECT_EQ(desktop().shown(L"frmSplash"), 1);
  EXPECT_EQ(desktop().shown(L"frmQMK"), 0);
  EXPECT_EQ(timesInJournal(L"create frmQMK"), 1U) << "It is not tried again";
  EXPECT_TRUE(desktop().windows().empty());
}

TEST_F(StartupFailureTest, AProgramFolderThatMayNotBeWrittenToIsToldWithWhatToDo) {
  desktop().protect(L"C:\\App");

  EXPECT_FALSE(gateway->start());

  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
  ASSERT_EQ(desktop().messages.size(), 1U);
  EXPECT_EQ(desktop().messages.front().text,
            std::wstring(L"Run-time error '75':\r\n\r\nPath/File access error\r\n\r\n"
                         L"C:\\App\\PhotoImages") +
                protectedFolderAdvice);
}

// --- failures that the start survives ---

TEST_F(StartupFailureTest, EveryStartInAProtectedFolderTellsOnceWhatToDoAndGoesOn) {
  desktop().putFolder(L"C:\\App\\PhotoImages");
  desktop().setSetting(L"General", L"CWIExample", L"True");
  desktop().putFile(catalogueFile, "\"FP3\",\"C:\\x\\a.fp3\",\"1\"\r\n");
  desktop().protect(L"C:\\App");

  EXPECT_TRUE(gateway->start());

  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
  ASSERT_EQ(desktop().messages.size(), 1U);
  EXPECT_TRUE(desktop().messages.front().text.ends_with(protectedFolderAdvice));
  EXPECT_EQ(list(frmQMK::open).count(), 1U);
  EXPECT_EQ(list(frmQMK::tools).count(), 1U);
}

TEST_F(StartupFailureTest, ALockedToolShortcutIsReportedAndTheStartGoesOn) {
  desktop().putFile(std::wstring(shortcutsFolder) + L"\\Plotview Browser.lnk", "no shortcut");
  desktop().lock(std::wstring(shortcutsFolder) + L"\\Plotview Browser.lnk");

  EXPECT_TRUE(gateway->start());

  EXPECT_EQ(desktop().errorReports, std::vector<int>{70});
  EXPECT_EQ(desktop().messages.size(), 1U);
  EXPECT_EQ(desktop().messages.front().text,
            std::wstring(L"Run-time error '70':\r\n\r\nPermission denied\r\n\r\n") +
                shortcutsFolder + L"\\Plotview Browser.lnk");
  EXPECT_EQ(desktop().shown(L"frmSplash"), 0);
  EXPECT_TRUE(gateway->main.visible());
  EXPECT_EQ(list(frmQMK::newFiles).count(), 4U);
  EXPECT_TRUE(gateway->main.tmrFileUpdate.enabled());
}

TEST_F(StartupFailureTest, ASettingThatCannotBeWrittenIsReportedAndTheListsAreStillFilled) {
  EXPECT_TRUE(gateway->start());
  const int all = desktop().faults().calls();
  const std::wstring failed = L"setting General\\CWIExample = True failed 75";
  int n = 1;
  while (n <= all && !(failsBehindMainWindow(n, 75) && desktop().journalHas(failed))) {
    ++n;
  }
  ASSERT_LE(n, all);
  EXPECT_TRUE(started);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
  EXPECT_EQ(list(frmQMK::newFiles).count(), 4U);
  EXPECT_EQ(list(frmQMK::web).count(), 1U);
  EXPECT_TRUE(gateway->main.tmrFileUpdate.enabled());
}

TEST_F(StartupFailureTest, ACatalogueThatCannotBeReadIsReportedAndTheNextStepsStillRun) {
  desktop().setSetting(L"General", L"CWIExample", L"True");
  desktop().putFile(catalogueFile, "\"FP3\",\"C:\\x\\a.fp3\",\"1/1/2026\"\r\n");
  desktop().lock(catalogueFile);

  EXPECT_TRUE(gateway->start());

  // The view shows its own message; the refresh has no trap.
  ASSERT_EQ(desktop().messages.size(), 2U);
  EXPECT_EQ(desktop().messages.front().text,
            L"Problem building QMK file list\rLocation: 2\r70-Permission denied");
  EXPECT_EQ(desktop().errorReports, std::vector<int>{70});
  EXPECT_EQ(list(frmQMK::newFiles).count(), 4U);
  EXPECT_EQ(list(frmQMK::tools).count(), 1U);
  EXPECT_EQ(list(frmQMK::web).count(), 1U);
  EXPECT_TRUE(gateway->main.tmrFileUpdate.enabled());
}

TEST_F(StartupFailureTest, AnErrorInAnyCallBehindTheMainWindowIsToldAndTheStartGoesOnToItsEnd) {
  EXPECT_TRUE(gateway->start());
  const int all = desktop().faults().calls();
  int survived = 0;
  for (int n = 1; n <= all; ++n) {
    SCOPED_TRACE(n);
    if (!failsBehindMainWindow(n, 75)) {
      continue;
    }
    ++survived;
    EXPECT_TRUE(started);
    // The status line tells what is wrong with the copies of the lists.
    EXPECT_TRUE(!desktop().messages.empty() || gateway->main.keeper.takeFailure());
    EXPECT_EQ(desktop().pumps, 5);
    EXPECT_EQ(list(frmQMK::newFiles).count(), 4U);
    EXPECT_EQ(list(frmQMK::tools).count(), 1U);
    EXPECT_EQ(gateway->main.TabMain.current(), frmQMK::tools);
    EXPECT_TRUE(gateway->main.tmrFileUpdate.enabled());
  }
  EXPECT_GT(survived, 5);
}

TEST_F(StartupFailureTest, AnErrorInAnyCallBeforeTheMainWindowIsReportedOnce) {
  EXPECT_TRUE(gateway->start());
  const int all = desktop().faults().calls();
  int failures = 0;
  for (int n = 1; n <= all; ++n) {
    SCOPED_TRACE(n);
    if (failsBehindMainWindow(n, 75)) {
      // Other tests check the messages of the steps after it.
      desktop().messages.clear();
      continue;
    }
    ++failures;
    // The removal of an obsolete shortcut is the only call whose error does not count.
    const std::wstring failed = desktop().faults().failedCalls().front().what;
    const bool ignored =
        started && failed.starts_with(L"remove ") &&
        (failed.ends_with(L"\\Plotview.lnk") || failed.ends_with(L"\\Canopy Weigh.lnk"));
    EXPECT_EQ(desktop().errorReports.size(), ignored ? 0U : 1U);
    EXPECT_EQ(gateway->main.visible(), started);
    EXPECT_TRUE(gateway->main.tmrFileUpdate.enabled() || !started);
    EXPECT_FALSE(desktop().journalHas(L"tick tmrFileUpdate"));
  }
  EXPECT_GT(failures, 5);
}

}  // namespace
