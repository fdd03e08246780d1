// A copy of the program that is carried around: settings beside it, a drive with another letter.
#include "gateway_test.h"
#include "harness/files.h"
#include "harness/profile.h"
#include "harness/status_bar.h"

namespace desktop_tests {
namespace {

using harness::TestProfile;
using ::testing::HasSubstr;
using ::testing::Optional;

class Stick : public GatewayTest {
 protected:
  void SetUp() override { putSettings("CWIExample=True\r\n"); }

  [[nodiscard]] std::wstring settingsPath() const { return app->folder() + L"\\gateway3.ini"; }
  void putSettings(const std::string& lines) const {
    harness::writeFile(settingsPath(), "; carried around\r\n[General]\r\n" + lines);
  }
  [[nodiscard]] std::string settings() const {
    return harness::readFile(settingsPath()).value_or("(none)");
  }
  /// The left part of the status line.
  [[nodiscard]] std::wstring status() const {
    return harness::StatusBarReader(GetDlgItem(app->main(), ids::barStatus)).part(0);
  }
  /// Lists a file as if this drive had been Q: at the last start, and returns its present path.
  [[nodiscard]] std::wstring listAtFormerLetter() const {
    const std::wstring plot = app->addFileElsewhere(L"Field Work\\plot 1.bi3");
    app->writeCatalogue(record(L"BI3", L"Q:" + plot.substr(2), L"some day"));
    return plot;
  }
  [[nodiscard]] std::wstring question() const {
    return L"This stick was Q:, now it is " + app->folder().substr(0, 2) + L". Change 1 entry?";
  }
};

TEST_F(Stick, SettingsAndEarlierListsLieBesideTheProgram) {
  TestProfile::setSetting(L"Placement", L"9 9 500 400 96 0");
  app->writeCatalogue(record(L"FP3", app->addFileElsewhere(L"a.fp3")));
  app->startToMain();
  EXPECT_TRUE(eventually([&] { return harness::isFolder(app->folder() + L"\\Backup"); }, true));
  SetWindowPos(app->main(), nullptr, 60, 45, 700, 520, SWP_NOZORDER | SWP_NOACTIVATE);
  const auto place = [this] {
    RECT rect{};
    GetWindowRect(app->main(), &rect);
    return std::pair(rect.left, rect.right);
  };
  ASSERT_TRUE(eventually(place, ::testing::Pair(60, 760)));
  EXPECT_EQ(app->close(), 0U);
  EXPECT_THAT(settings(), ::testing::StartsWith("; carried around\r\n[General]\r\n"));
  EXPECT_THAT(settings(), HasSubstr("\r\nPlacement=60 45 700 520 96 0\r\n"));
  EXPECT_THAT(settings(), HasSubstr("\r\nColumns1="));
  EXPECT_EQ(TestProfile::setting(L"Placement"), L"9 9 500 400 96 0");
  EXPECT_EQ(TestProfile::setting(L"Columns1"), std::nullopt);
  EXPECT_FALSE(harness::exists(app->userFolder() + L"\\Backup"));
  EXPECT_TRUE(harness::isFolder(app->shortCutsFolder()));
  app->startToMain();
  EXPECT_EQ(place(), std::pair(60L, 760L));
}

TEST_F(Stick, AFileThatCannotBeWrittenIsTold) {
  const std::string before = settings();
  SetFileAttributesW(settingsPath().c_str(), FILE_ATTRIBUTE_READONLY);
  for (int run = 0; run < 2; ++run) {
    app->startToMain();
    EXPECT_TRUE(eventually([&] { return status(); },
                           L"Settings are not kept: gateway3.ini cannot be written"));
    EXPECT_EQ(settings(), before);
    EXPECT_EQ(TestProfile::setting(L"Placement"), std::nullopt);
    if (run == 0) {
      EXPECT_EQ(app->close(), 0U);
    }
  }
}

TEST_F(Stick, EntriesFollowItToItsNewLetter) {
  putSettings("CWIExample=True\r\nDrive=Q:\r\n");
  const std::wstring plot = listAtFormerLetter();
  app->startToMain();
  expectMessage(question(), questionIcon, yesAndNo, IDYES);
  EXPECT_TRUE(
      eventually([&] { return app->catalogue(); }, Optional(record(L"BI3", plot, L"some day"))));
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 entry changed"));
  EXPECT_THAT(settings(), HasSubstr("\r\nDrive=" + harness::utf8(plot.substr(0, 2)) + "\r\n"));
}

TEST_F(Stick, NoIsRemembered) {
  putSettings("CWIExample=True\r\nDrive=Q:\r\n");
  const std::wstring plot = listAtFormerLetter();
  app->startToMain();
  expectMessage(question(), questionIcon, yesAndNo, IDNO);
  const std::string pair = "\r\nDrivesKept=Q:" + harness::utf8(plot.substr(0, 2)) + "\r\n";
  EXPECT_TRUE(eventually([&] { return settings(); }, HasSubstr(pair)));
  EXPECT_EQ(app->close(), 0U);
  putSettings("CWIExample=True\r\nDrive=Q:" + pair);
  app->startToMain();
  EXPECT_TRUE(eventually([&] { return settings(); },
                         HasSubstr("\r\nDrive=" + harness::utf8(plot.substr(0, 2)) + "\r\n")));
  EXPECT_FALSE(app->dialogShown());
  EXPECT_EQ(app->catalogue(), record(L"BI3", L"Q:" + plot.substr(2), L"some day"));
}

}  // namespace
}  // namespace desktop_tests
