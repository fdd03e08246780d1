// The flat look on native controls of every kind, at two densities. The program's own windows do
// not use every kind, so that a program of the tests hosts them.
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

/// Runs the hosting program to its end; its output is the failure's text.
::testing::AssertionResult flatTestsPassAt(DWORD dpi) {
  constexpr DWORD boundMs = 240000;
  const harness::ScreenDensity density(dpi);
  const std::wstring folder = harness::buildFolder();
  const std::wstring report = folder + L"\\flat_tests_" + std::to_wstring(dpi) + L".xml";
  DeleteFileW(report.c_str());
  // It finds its report's name where its own arguments would be.
  SetEnvironmentVariableW(L"GTEST_OUTPUT", (L"xml:" + report).c_str());
  // Its passing tests are not tests of this program, and must not look like them in its output.
  SetEnvironmentVariableW(L"GTEST_BRIEF", L"1");
  SetEnvironmentVariableW(L"QMK_EXPECTED_DPI", std::to_wstring(dpi).c_str());
  // All of it, even where this program runs only its share of the tests.
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

TEST(FlatLookTest, EveryKindOfControlAt96Dpi) { EXPECT_TRUE(flatTestsPassAt(96)); }

TEST(FlatLookTest, EveryKindOfControlAt144Dpi) { EXPECT_TRUE(flatTestsPassAt(144)); }

}  // namespace
}  // namespace desktop_tests
