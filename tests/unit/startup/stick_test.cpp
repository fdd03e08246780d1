// A copy of the program that is carried around: its settings lie beside it, and its drive may have
// another letter than the last time.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "mainwindow/control_ids.h"
#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "platform/run_time_error.h"
#include "startup/startup.h"

namespace {

using memory::desktop;
using modSystem::Gateway;
using platform::dialogs::Answer;
using Texts = std::vector<std::wstring>;

constexpr const wchar_t* settingsFile = L"F:\\Suite\\gateway3.ini";
constexpr const wchar_t* catalogueFile = L"F:\\Suite\\QMKFileList3.txt";
constexpr const wchar_t* question = L"This stick was E:, now it is F:. Change 2 entries?";
constexpr const wchar_t* notKept = L"Settings are not kept: gateway3.ini cannot be written";

class Stick : public memory::DesktopTest {
 protected:
  Stick() {
    desktop().applicationFolder = L"F:\\Suite";
    desktop().putFolder(L"C:\\Users\\Ann\\Documents");
    desktop().putFolder(L"F:\\Suite\\data");
    desktop().putFile(L"F:\\Field\\1.fp3", "one");
    desktop().putFile(L"F:\\Field\\2.bi3", "two");
    putCatalogue("E:");
    putSettings("Drive=E:\r\n");
  }
  static void putSettings(const std::string& lines) {
    desktop().putFile(settingsFile, "[General]\r\nCWIExample=True\r\n" + lines);
  }
  static void putCatalogue(const std::string& drive) {
    desktop().putFile(catalogueFile, "\"FP3\",\"" + drive + "\\Field\\1.fp3\",\"1/1/2026\"\r\n" +
                                         "\"BI3\",\"" + drive +
                                         "\\Field\\2.bi3\",\"1/2/2026\"\r\n");
  }
  static std::string bytesOf(const wchar_t* path) {
    return desktop().bytesOf(path).value_or("(none)");
  }
  static bool stored(const std::string& line) {
    return ("\n" + bytesOf(settingsFile)).find("\n" + line + "\r\n") != std::string::npos;
  }
  /// Starts the program and lets it come to rest.
  void start(const std::vector<Answer>& answers = {}) {
    gateway_.reset();  // only one program at a time
    gateway_ = std::make_unique<Gateway>();
    desktop().answers.assign(answers.begin(), answers.end());
    ASSERT_TRUE(gateway_->start());
    desktop().advance(500);
  }
  /// The texts of all messages so far.
  static Texts messages() {
    Texts texts;
    for (const memory::Message& message : desktop().messages) {
      texts.push_back(message.text);
    }
    return texts;
  }
  frmQMK& main() { return gateway_->main; }

 private:
  std::unique_ptr<Gateway> gateway_;
};

// --- settings ---

TEST_F(Stick, LeavesNothingInTheRegistryAndTheDocumentsKeepOnlyTheShortcuts) {
  desktop().putFile(settingsFile, "");
  start();
  main().peer()->place({.normal = {40, 30, 900, 700}, .dpi = 96, .maximised = false});
  desktop().answers = {Answer::yes};
  EXPECT_TRUE(main().fireClose(controls::UnloadMode::user));
  EXPECT_EQ(messages(), Texts{L"Exit Gateway?"});
  for (const wchar_t* const key : {L"CWIExample", L"Placement", L"Columns0", L"Drive"}) {
    EXPECT_FALSE(desktop().setting(L"General", key).has_value()) << platform::text::toCodePage(key);
  }
  EXPECT_TRUE(stored("CWIExample=True"));
  EXPECT_TRUE(stored("Placement=40 30 900 700 96 0"));
  EXPECT_TRUE(stored("Columns1=1500 2000 3000 4000 0"));
  EXPECT_TRUE(stored("Drive=F:"));
  EXPECT_TRUE(desktop().has(L"F:\\Suite\\Backup\\"));
  EXPECT_FALSE(desktop().has(L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\Backup\\"));
  EXPECT_TRUE(desktop().has(L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts\\"));
}

TEST_F(Stick, TheWindowComesBackToItsPlace) {
  putSettings("Placement=40 30 900 700 96 0\r\nColumns1=1111 2000 3000 4000 0\r\nDrive=F:\r\n");
  desktop().setSetting(L"General", L"Placement", L"1 2 300 200 96 0");
  start();
  EXPECT_EQ(main().peer()->placement().normal, (platform::Rect{40, 30, 900, 700}));
  EXPECT_EQ(main().lstQMK[1].columns()[0].widthTwips, 1111);
}

TEST_F(Stick, AFileThatCannotBeWrittenIsToldOnce) {
  desktop().setReadOnly(settingsFile);
  start();
  EXPECT_EQ(main().news(), notKept);
  EXPECT_TRUE(messages().empty());  // no question either: the answer could not be kept
  desktop().advance(20'000);
  EXPECT_EQ(main().news(), L"");
  desktop().answers = {Answer::yes};
  EXPECT_TRUE(main().fireClose(controls::UnloadMode::user));
  EXPECT_EQ(messages(), Texts{L"Exit Gateway?"});
  EXPECT_FALSE(desktop().setting(L"General", L"Placement").has_value());
}

TEST_F(Stick, WithoutTheExampleInAFileThatCannotBeWrittenNothingIsReported) {
  desktop().putFile(settingsFile, "");
  desktop().setReadOnly(settingsFile);
  start();
  EXPECT_EQ(main().news(), notKept);
  EXPECT_TRUE(messages().empty());
}

// --- another letter ---

TEST_F(Stick, EntriesFollowItToItsNewLetter) {
  start({Answer::yes});
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(bytesOf(catalogueFile),
            "\"FP3\",\"F:\\Field\\1.fp3\",\"1/1/2026\"\r\n"
            "\"BI3\",\"F:\\Field\\2.bi3\",\"1/2/2026\"\r\n");
  EXPECT_EQ(main().news(), L"2 entries changed");
  EXPECT_TRUE(stored("Drive=F:"));
  EXPECT_EQ(main().lstQMK[frmQMK::open].subItem(0, 3), L"F:\\Field\\");
}

TEST_F(Stick, TheQuestionComesWhenTheWindowIsUp) {
  desktop().onMessage = [this](const memory::Message& message) {
    EXPECT_EQ(message.style, platform::dialogs::MessageStyle::yesNoQuestion);
    EXPECT_TRUE(main().visible());
    EXPECT_TRUE(main().tmrFileUpdate.enabled());
    EXPECT_EQ(main().lstQMK[frmQMK::open].count(), 2U);
  };
  start({Answer::yes});
  EXPECT_EQ(messages(), Texts{question});
}

TEST_F(Stick, TheChangeCanBeUndone) {
  const std::string before = bytesOf(catalogueFile);
  start({Answer::yes});
  EXPECT_EQ(messages().size(), 1U);
  main().TabMain.fireSwitch(frmQMK::open);
  main().commands.refresh();
  EXPECT_EQ(main().commands.item(ids::mnuUndo).caption(), L"Undo Find Moved Files");
  main().commands.item(ids::mnuUndo).fireClick();
  EXPECT_EQ(bytesOf(catalogueFile), before);
}

TEST_F(Stick, NoIsRememberedForThisPairOfLetters) {
  const std::string before = bytesOf(catalogueFile);
  start({Answer::no});
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(bytesOf(catalogueFile), before);
  EXPECT_TRUE(stored("DrivesKept=E:F:"));
  EXPECT_TRUE(stored("Drive=F:"));
  // At E: again and then at F: again.
  putSettings("Drive=E:\r\nDrivesKept=E:F:\r\n");
  start();
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_TRUE(stored("Drive=F:"));
  // Another pair.
  putSettings("Drive=G:\r\nDrivesKept=E:F:\r\n");
  putCatalogue("G:");
  start({Answer::no});
  EXPECT_EQ(messages().back(), L"This stick was G:, now it is F:. Change 2 entries?");
  EXPECT_TRUE(stored("DrivesKept=E:F: G:F:"));
}

TEST_F(Stick, IsAskedOnlyOnce) {
  start({Answer::yes});
  EXPECT_EQ(messages().size(), 1U);
  putCatalogue("E:");
  start();
  EXPECT_EQ(messages().size(), 1U);
}

TEST_F(Stick, WithTheSameLetterNothingHappens) {
  putSettings("Drive=F:\r\n");
  const std::string settings = bytesOf(settingsFile);
  start();
  EXPECT_EQ(bytesOf(settingsFile), settings);
  EXPECT_EQ(main().news(), L"");
}

TEST_F(Stick, WithoutSuchEntriesNothingIsAsked) {
  putCatalogue("F:");
  start();
  EXPECT_EQ(main().news(), L"");
  EXPECT_TRUE(stored("Drive=F:"));
}

TEST_F(Stick, TheFirstStartOnlyRemembersTheLetter) {
  putSettings("");
  start();
  EXPECT_TRUE(stored("Drive=F:"));
}

TEST_F(Stick, NonsenseInTheFileIsNoLetter) {
  for (const char* const drive : {"E", "C:\\Suite", "EE:", "1:", "E:F:", "\\\\server\\share"}) {
    putSettings("Drive=" + std::string(drive) + "\r\n");
    start();
    EXPECT_TRUE(stored("Drive=F:")) << drive;
  }
}

TEST_F(Stick, NetworkDrivesAreNeverAskedAbout) {
  for (const wchar_t* const drive : {L"E:", L"F:"}) {
    putSettings("Drive=E:\r\n");
    desktop().networkDrives = {drive};
    start();
    EXPECT_TRUE(stored(drive == std::wstring(L"F:") ? "Drive=" : "Drive=F:"));
  }
}

TEST_F(Stick, AFileThatVanishesDuringTheQuestionIsNotListed) {
  desktop().onMessage = [](const memory::Message& /*message*/) {
    desktop().take(L"F:\\Field\\2.bi3");
  };
  start({Answer::yes});
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(main().news(), L"1 entry changed, 1 no longer there");
}

TEST_F(Stick, ALookThatCannotBeStartedIsTriedAtTheNextStart) {
  desktop().backgroundMilliseconds = 1000;
  start();
  EXPECT_TRUE(stored("Drive=E:"));
  EXPECT_TRUE(messages().empty());
}

TEST_F(Stick, WithoutASettingsFileADriveThatCanBeTakenOutIsRemembered) {
  desktop().take(settingsFile);
  desktop().slowDrives = {L"F:"};
  desktop().setSetting(L"General", L"CWIExample", L"True");
  desktop().setSetting(L"General", L"Drive", L"E:");
  start({Answer::no});
  EXPECT_EQ(messages(), Texts{question});
  EXPECT_EQ(desktop().setting(L"General", L"Drive"), L"F:");
  EXPECT_EQ(desktop().setting(L"General", L"DrivesKept"), L"E:F:");
}

TEST_F(Stick, WithoutASettingsFileAFixedDriveIsNot) {
  desktop().take(settingsFile);
  desktop().setSetting(L"General", L"CWIExample", L"True");
  start();
  EXPECT_FALSE(desktop().setting(L"General", L"Drive").has_value());
}

}  // namespace
