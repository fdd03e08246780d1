#include "platform/error_report.h"

#include <gtest/gtest.h>

#include "platform/desktop_test.h"

namespace {

using memory::desktop;
using platform::reportText;
using platform::RunTimeError;

class ErrorReport : public memory::DesktopTest {
 protected:
  static RunTimeError about(const std::wstring& path, int number = 75) {
    RunTimeError failure(number);
    failure.concern(path);
    return failure;
  }
  /// Whether the report is the plain one, without advice.
  static bool isPlain(const RunTimeError& failure) {
    return reportText(failure) == failure.report();
  }
};

TEST_F(ErrorReport, IsThePlainOneWhereTheProgramMayWriteToItsFolder) {
  EXPECT_TRUE(isPlain(about(L"C:\\App\\qmklist.tmp")));
}

TEST_F(ErrorReport, AddsWhatToDoWhereItMayNot) {
  desktop().protect(L"C:\\App");
  const RunTimeError failure = about(L"C:\\App\\qmklist.tmp");
  EXPECT_EQ(
      reportText(failure),
      failure.report() +
          L"\r\n\r\nThe program may not write to its own folder:\r\n\r\nC:\\App\r\n\r\nAsk for "
          L"the right to change files in this folder, or install the program in a folder of "
          L"your own.");
}

TEST_F(ErrorReport, OfAnotherErrorOrAnotherFolderIsThePlainOne) {
  desktop().protect(L"C:\\App");
  EXPECT_TRUE(isPlain(about(L"C:\\App\\qmklist.tmp", 70)));
  EXPECT_TRUE(isPlain(about(L"C:\\Apples\\qmklist.tmp")));
  EXPECT_TRUE(isPlain(about(L"D:\\App\\x")));
  EXPECT_TRUE(isPlain(about(L"")));
}

TEST_F(ErrorReport, IsWhatIsShown) {
  desktop().protect(L"C:\\App");
  const RunTimeError failure = about(L"C:\\App\\x");
  platform::dialogs::reportRunTimeError(failure);
  EXPECT_EQ(desktop().messages.front().text, reportText(failure));
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
}

}  // namespace
