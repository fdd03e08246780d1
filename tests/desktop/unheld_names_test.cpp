// Folders and files whose names the code page cannot hold, in the real program.
#include "gateway_test.h"

namespace desktop_tests {
namespace {

using harness::encoded;

const std::wstring beetle = L"\u0416\u0443\u043A";
const std::wstring japanese = L"\u65E5\u672C\u8A9E";

class UnheldNames : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    // Their own code page has these letters, too.
    constexpr UINT westEuropean = 1252;
    if (GetACP() != westEuropean) {
      GTEST_SKIP() << "this system's code page is another one";
    }
    useFolder(beetle + L" Suite");
    GatewayApp::skipExample();
  }

  /// The path with short names, from the system, where the code page cannot hold the names.
  [[nodiscard]] static std::wstring shortName(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    HANDLE const search = FindFirstFileW(path.c_str(), &found);
    EXPECT_NE(search, INVALID_HANDLE_VALUE) << harness::utf8(path);
    FindClose(search);
    EXPECT_STRNE(found.cAlternateFileName, L"") << "a volume that gives short names";
    return found.cAlternateFileName;
  }
  [[nodiscard]] std::wstring shortFolder() const {
    return app->testFolder() + L"\\" + shortName(app->folder());
  }
  [[nodiscard]] int rows() const { return app->list(Tab::open).count(); }

  /// Whether a program that uses the code page, like the tools, can open that path.
  [[nodiscard]] static bool opensInCodePage(const std::wstring& path) {
    HANDLE const file = CreateFileA(harness::codePageBytes(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    CloseHandle(file);
    return file != INVALID_HANDLE_VALUE;
  }

  void startOnOpenTab() const {
    app->startToMain();
    app->selectTab(Tab::open);
  }
};

TEST_F(UnheldNames, RecordsDoNotMultiplyFromStartToStart) {
  app->addDataFile(L"plot.fp3");
  app->addDataFile(beetle + L".bi3");
  app->addDataFile(japanese + L".cw3");
  // The list as it was after the first starts of an earlier version.
  const std::wstring questions = app->testFolder() + L"\\??? Suite\\data\\";
  app->writeCatalogue(record(L"fp3", questions + L"plot.fp3") +
                      record(L"bi3", questions + L"???.bi3") +
                      record(L"fp3", questions + L"plot.fp3"));
  startOnOpenTab();
  EXPECT_TRUE(eventually([&] { return rows(); }, 3));
  const auto written = app->catalogue();
  ASSERT_TRUE(written);
  EXPECT_EQ(written->find('?'), std::string::npos) << *written;
  EXPECT_NE(written->find(harness::codePageBytes(shortFolder() + L"\\data\\plot.fp3\"")),
            std::string::npos)
      << *written;
  EXPECT_EQ(app->close(), 0U);
  startOnOpenTab();
  EXPECT_EQ(rows(), 3);
  EXPECT_EQ(app->catalogue(), written);
}

TEST_F(UnheldNames, OpeningGivesTheToolAPathThatItCanOpen) {
  app->addAllTools();
  const std::wstring path = app->addDataFile(beetle + L".bi3");
  startOnOpenTab();
  const std::wstring listed = shortName(path);
  ASSERT_TRUE(eventually([&] { return rows(); }, 1));
  app->doubleClickRow(Tab::open, listed);
  const harness::ToolStart start = app->waitForToolStart(1);
  const std::wstring handed = shortFolder() + L"\\data\\" + listed;
  EXPECT_EQ(start.commandLine, app->folder() + L"\\brtpc3.exe " + encoded(handed));
  EXPECT_TRUE(opensInCodePage(handed));
}

TEST_F(UnheldNames, ARenamedFileStaysUsableAndCanBeDeleted) {
  app->addAllTools();
  app->addDataFile(L"Beta.bi3");
  const std::wstring renamed = app->folder() + L"\\data\\" + beetle + L".BI3";
  startOnOpenTab();
  ASSERT_TRUE(eventually([&] { return rows(); }, 1));
  app->command(ids::mnuRename);
  const harness::InputBoxReader box = app->waitForInputBox();
  box.type(beetle);
  box.ok();
  // A file of the new name is there for a moment before, to find out the short name.
  ASSERT_TRUE(happens("the file has its new name", [&] {
    return harness::exists(renamed) && !harness::exists(app->folder() + L"\\data\\Beta.bi3");
  }));
  const std::wstring listed = shortName(renamed);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).find(listed); }, 0));
  app->doubleClickRow(Tab::open, listed);
  EXPECT_TRUE(opensInCodePage(shortFolder() + L"\\data\\" + listed));
  EXPECT_EQ(app->waitForToolStart(1).commandLine,
            app->folder() + L"\\brtpc3.exe " + encoded(shortFolder() + L"\\data\\" + listed));
  app->command(ids::mnuDelete);
  expectMessage(L"Are your sure you want to delete " + listed, exclamationIcon, yesAndNo, IDYES);
  EXPECT_TRUE(eventually([&] { return rows(); }, 0));
  EXPECT_FALSE(harness::exists(renamed));
  EXPECT_EQ(app->catalogue(), "");
}

}  // namespace
}  // namespace desktop_tests
