// The flat look on native controls of every kind, at two dpi values. The program's own windows do
// not use every kind, so a separate test program hosts them.
#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <sstream>
#include <string>

#include "harness/paths.h"
#include "harness/process.h"
#include "harness/profile.h"

namespace desktop_tests {
namespace {

/// Runs the hosting program to its end. The failure text is its output.
::testing::AssertionResult flatTestsPassAt(DWORD dpi) {
  constexpr DWORD boundMs = 240000;
  const harness::ScreenDensity density(dpi);
  const std::wstring folder = harness::buildFolder();
  const std::wstring report = folder + L"\\flat_tests_" + std::to_wstring(dpi) + L".xml";
  DeleteFileW(report.c_str());
  // The hosting program reads the name of its report from this variable.
  SetEnvironmentVariableW(L"GTEST_OUTPUT", (L"xml:" + report).c_str());
  // Its passing tests must not appear as tests of this program in the output.
  SetEnvironmentVariableW(L"GTEST_BRIEF", L"1");
  SetEnvironmentVariableW(L"QMK_EXPECTED_DPI", std::to_wstring(dpi).c_str());
  // The hosting program runs all its tests, even if this program runs only its share.
  SetEnvironmentVariableW(L"GTEST_TOTAL_SHARDS", nullptr);
  SetEnvironmentVariableW(L"GTEST_SHARD_INDEX", nullptr);
  const harness::Job job;
  const harness::Process process(folder + L"\\flat_tests.exe", folder, job);
  const auto status = process.waitForExit(boundMs);
  SetEnvironmentVariableW(L"GTEST_OUTPUT", nullptr);
  std::ifstream file(std::string(report.begin(), report.end()));
  std::ostringstream text;
  text << file.rdbuf();
  if (status == DWORD{0} && text.str().find("<testcase ") != std::string::npos) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << (status ? "it ended with " + std::to_string(*status) : "it did not end") << "\n"
         << text.str();
}

TEST(FlatLookTest, EveryKindOfControlAt96Dpi) {
  if (const auto why = harness::whyNoDensity(96)) {
    GTEST_SKIP() << *why;
  }
  EXPECT_TRUE(flatTestsPassAt(96));
}

TEST(FlatLookTest, EveryKindOfControlAt144Dpi) {
  if (const auto why = harness::whyNoDensity(144)) {
    GTEST_SKIP() << *why;
  }
  EXPECT_TRUE(flatTestsPassAt(144));
}

}  // namespace
}  // namespace desktop_tests
