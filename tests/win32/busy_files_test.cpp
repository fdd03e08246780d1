// Files that another program has open for a moment, as programs that synchronise or scan a folder
// do.
#include <gtest/gtest.h>
#include <windows.h>
// Needs <windows.h> first.
#include <objbase.h>

#include <string>

#include "harness/files.h"
#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/shell_links.h"

namespace {

namespace files = platform::files;

constexpr DWORD moment = 400;
constexpr DWORD patience = 1000;
/// How long a busy machine may take besides.
constexpr DWORD slack = 3000;
constexpr DWORD shareEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Somebody who has a file open, until a time has passed or the object goes.
class Somebody {
 public:
  Somebody(const std::wstring& path, DWORD share, DWORD milliseconds = INFINITE)
      : file_(CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                          FILE_ATTRIBUTE_NORMAL, nullptr)),
        goes_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
        milliseconds_(milliseconds) {
    EXPECT_NE(file_, INVALID_HANDLE_VALUE);
    thread_ = CreateThread(nullptr, 0, wait, this, 0, nullptr);
  }
  Somebody(const Somebody&) = delete;
  Somebody& operator=(const Somebody&) = delete;
  ~Somebody() {
    SetEvent(goes_);
    WaitForSingleObject(thread_, INFINITE);
    CloseHandle(thread_);
    CloseHandle(goes_);
  }

 private:
  static DWORD WINAPI wait(void* self) {
    const auto& somebody = *static_cast<const Somebody*>(self);
    WaitForSingleObject(somebody.goes_, somebody.milliseconds_);
    CloseHandle(somebody.file_);
    return 0;
  }
  HANDLE file_;
  HANDLE goes_;
  DWORD milliseconds_;
  HANDLE thread_ = nullptr;
};

class BusyFiles : public testing::Test {
 protected:
  // Shortcuts are written with the help of COM. It stays, because the program keeps an object.
  static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  [[nodiscard]] std::wstring path(const std::wstring& name) const {
    return folder_.path() + L"\\" + name;
  }
  /// Number of the error that `operation` raises (0 for none), which must take from `least` to
  /// `least` + `slack` milliseconds.
  template <class Operation>
  static int errorAfter(DWORD least, Operation operation) {
    const DWORD begin = GetTickCount();
    int number = 0;
    try {
      operation();
    } catch (const platform::RunTimeError& failure) {
      number = failure.number();
    }
    const DWORD took = GetTickCount() - begin;
    EXPECT_GE(took + 20, least);
    EXPECT_LT(took, least + slack);
    return number;
  }
  static platform::shell_links::Link link() {
    return {.arguments = L"",
            .description = L"",
            .hotKey = L"",
            .iconLocation = L"",
            .targetPath = LR"(C:\windows\notepad.exe)",
            .windowStyle = 3,
            .workingDirectory = L""};
  }
  harness::TestFolder folder_;
};

TEST_F(BusyFiles, AShortcutIsWrittenAsSoonAsNobodyHasItOpen) {
  harness::writeFile(path(L"Tool.lnk"), "not a shortcut");
  const Somebody other(path(L"Tool.lnk"), 0, moment);
  EXPECT_EQ(errorAfter(moment, [&] { platform::shell_links::write(path(L"Tool.lnk"), link()); }),
            0);
  EXPECT_EQ(platform::shell_links::targetOf(path(L"Tool.lnk")), link().targetPath);
}

TEST_F(BusyFiles, AShortcutThatStaysInUseIsAnErrorAfterASecond) {
  harness::writeFile(path(L"Tool.lnk"), "not a shortcut");
  const Somebody other(path(L"Tool.lnk"), 0);
  EXPECT_EQ(errorAfter(patience, [&] { platform::shell_links::write(path(L"Tool.lnk"), link()); }),
            70);
  EXPECT_EQ(errorAfter(patience, [&] { files::remove(path(L"Tool.lnk")); }), 70);
}

TEST_F(BusyFiles, AShortcutIsDeletedAsSoonAsNobodyHasItOpen) {
  harness::writeFile(path(L"Tool.lnk"), "x");
  const Somebody other(path(L"Tool.lnk"), 0, moment);
  EXPECT_EQ(errorAfter(moment, [&] { files::remove(path(L"Tool.lnk")); }), 0);
  EXPECT_FALSE(harness::exists(path(L"Tool.lnk")));
}

TEST_F(BusyFiles, AReadOnlyShortcutIsRefusedAtOnce) {
  harness::writeFile(path(L"Tool.lnk"), "x");
  SetFileAttributesW(path(L"Tool.lnk").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(errorAfter(0, [&] { platform::shell_links::write(path(L"Tool.lnk"), link()); }), 75);
  EXPECT_EQ(errorAfter(0, [&] { files::remove(path(L"Tool.lnk")); }), 75);
  SetFileAttributesW(path(L"Tool.lnk").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(BusyFiles, ADraftWhoseNameIsBeingDeletedWaitsForIt) {
  harness::writeFile(path(L"qmklist.tmp"), "stale");
  const Somebody other(path(L"qmklist.tmp"), shareEverything, moment);
  ASSERT_NE(DeleteFileW(path(L"qmklist.tmp").c_str()), FALSE);
  EXPECT_EQ(errorAfter(0,
                       [&] {
                         files::Draft draft(path(L"qmklist.tmp"));
                         draft.write("new");
                       }),
            0);
  EXPECT_EQ(harness::readFile(path(L"qmklist.tmp")), "new");
}

TEST_F(BusyFiles, ADraftThatSomebodyKeepsIsAnErrorBeforeTwoSecondsHavePassed) {
  constexpr DWORD patienceOfDrafts = 1400;
  harness::writeFile(path(L"qmklist.tmp"), "stale");
  const Somebody other(path(L"qmklist.tmp"), FILE_SHARE_READ);
  EXPECT_EQ(errorAfter(patienceOfDrafts, [&] { const files::Draft draft(path(L"qmklist.tmp")); }),
            70);
}

TEST_F(BusyFiles, AFolderThatMayBeWrittenToIsLeftAsItWas) {
  EXPECT_TRUE(files::mayWriteTo(folder_.path()));
  EXPECT_TRUE(files::search(path(L"*")).empty());
  EXPECT_TRUE(files::mayWriteTo(path(L"missing"))) << "that is no refusal";
}

}  // namespace
