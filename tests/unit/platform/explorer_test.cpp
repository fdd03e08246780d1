// How the system's window for folders is started.
#include "platform/explorer.h"

#include <gtest/gtest.h>

#include "platform/desktop_test.h"
#include "platform/run_time_error.h"
#include "unit/support/error_number.h"

namespace {

using memory::desktop;
using memory::Start;

class ExplorerTest : public memory::DesktopTest {
 protected:
  ExplorerTest() { desktop().putProgram(program); }
  static void expectStarted(const std::wstring& commandLine) {
    ASSERT_EQ(desktop().starts.size(), 1U);
    EXPECT_EQ(desktop().starts.front(), (Start{program, commandLine}));
  }
  static inline const std::wstring program = L"C:\\Windows\\explorer.exe";
};

TEST_F(ExplorerTest, MarksAFileWhateverItsNameIs) {
  platform::explorer::showMarked(L"C:\\My Data\\a, b.fp3");
  expectStarted(L"explorer.exe /select,\"C:\\My Data\\a, b.fp3\"");
}

TEST_F(ExplorerTest, ShowsAFolder) {
  platform::explorer::showFolder(L"C:\\My Data\\");
  expectStarted(L"explorer.exe \"C:\\My Data\"");
}

TEST_F(ExplorerTest, ADrivesRootKeepsItsBackslash) {
  platform::explorer::showFolder(L"D:\\");
  expectStarted(L"explorer.exe D:\\");
}

TEST_F(ExplorerTest, AMissingProgramIsAnError) {
  desktop().take(program);
  EXPECT_EQ(errorNumberOf([] { platform::explorer::showFolder(L"C:\\App"); }),
            platform::error::fileNotFound);
}

}  // namespace
