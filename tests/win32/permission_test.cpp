// No test program works in the profile of a person who has not made it for the tests.
#include "harness/permission.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "harness/files.h"
#include "harness/paths.h"
#include "harness/profile.h"

namespace desktop_tests {
namespace {

using harness::mayUseProfile;

TEST(Permission, OnWindowsOnlyTheVariableGivesIt) {
  EXPECT_FALSE(mayUseProfile(false, std::nullopt));
  EXPECT_FALSE(mayUseProfile(false, L""));
  EXPECT_FALSE(mayUseProfile(false, L"0"));
  EXPECT_FALSE(mayUseProfile(false, L"yes"));
  EXPECT_TRUE(mayUseProfile(false, L"1"));
}

TEST(Permission, UnderWineTheVariableOnlyTakesIt) {
  EXPECT_TRUE(mayUseProfile(true, std::nullopt));
  EXPECT_TRUE(mayUseProfile(true, L"1"));
  EXPECT_FALSE(mayUseProfile(true, L"0"));
  EXPECT_FALSE(mayUseProfile(true, L""));
}

/// Runs one of the programs beside this one and collects what it prints.
class Started {
 public:
  explicit Started(std::wstring commandLine) {
    SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    CreatePipe(&read, &write, &inherited, 0);
    SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = write;
    startup.hStdError = write;
    PROCESS_INFORMATION info{};
    const BOOL begun = CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0,
                                      nullptr, nullptr, &startup, &info);
    CloseHandle(write);
    if (begun != FALSE) {
      std::array<char, 512> piece{};
      DWORD length = 0;
      while (ReadFile(read, piece.data(), static_cast<DWORD>(piece.size()), &length, nullptr) !=
                 FALSE &&
             length != 0) {
        output_.append(piece.data(), length);
      }
      WaitForSingleObject(info.hProcess, INFINITE);
      GetExitCodeProcess(info.hProcess, &status_);
      CloseHandle(info.hThread);
      CloseHandle(info.hProcess);
    }
    CloseHandle(read);
  }
  [[nodiscard]] DWORD status() const { return status_; }
  [[nodiscard]] const std::string& output() const { return output_; }

 private:
  DWORD status_ = 0;
  std::string output_;
};

/// Takes the permission from programs that are started while it exists.
class Forbidden {
 public:
  Forbidden() {
    std::array<wchar_t, 16> value{};
    given_ = GetEnvironmentVariableW(harness::profileVariable, value.data(),
                                     static_cast<DWORD>(value.size())) != 0;
    SetEnvironmentVariableW(harness::profileVariable, L"0");
  }
  Forbidden(const Forbidden&) = delete;
  Forbidden& operator=(const Forbidden&) = delete;
  ~Forbidden() { SetEnvironmentVariableW(harness::profileVariable, given_ ? L"1" : nullptr); }

 private:
  bool given_ = false;
};

class Refusal : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(Refusal, NamesTheVariableAndChangesNothing) {
  const harness::TestFolder documents;
  const harness::TestProfile profile(documents.path());
  harness::TestProfile::setSetting(L"CWIExample", L"mine");
  const Forbidden forbidden;
  const Started refused(L"\"" + harness::buildFolder() + L"\\" + GetParam());
  EXPECT_EQ(refused.status(), static_cast<DWORD>(harness::profileRefused));
  EXPECT_NE(refused.output().find("QMK_TEST_PROFILE=1"), std::string::npos) << refused.output();
  EXPECT_EQ(refused.output().find("[ RUN"), std::string::npos) << refused.output();
  EXPECT_EQ(harness::TestProfile::setting(L"CWIExample"), L"mine");
  EXPECT_TRUE(harness::namesIn(documents.path()).empty());
}

INSTANTIATE_TEST_SUITE_P(OfEachProgram, Refusal,
                         ::testing::Values(L"desktop_tests.exe\" --gtest_filter=Smoke.*",
                                           L"win32_tests.exe\" --gtest_filter=Permission.*",
                                           L"drive.exe\" close"));

}  // namespace
}  // namespace desktop_tests
