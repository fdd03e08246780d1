// Small pieces of the Windows side: system libraries, forms of paths, kinds of drives, screens.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cwctype>
#include <string>
#include <vector>

#include "harness/files.h"
#include "harness/paths.h"
#include "platform/drives.h"
#include "platform/screens.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/system_library.h"

#ifndef _MSC_VER
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" std::uintptr_t __stack_chk_guard;
#endif

namespace {

#ifndef _MSC_VER
TEST(StackGuard, HasAValueThatTextCannotContain) {
  EXPECT_NE(__stack_chk_guard, 0U);
  EXPECT_EQ(__stack_chk_guard & 0xFFU, 0U);
}
#endif

using platform::win32::ordinaryPath;
using platform::win32::systemLibrary;
using platform::win32::systemLibraryByPath;

std::wstring folderOf(HMODULE module) {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), MAX_PATH));
  path.resize(path.find_last_of(L'\\'));
  std::transform(path.begin(), path.end(), path.begin(), std::towlower);
  return path;
}

TEST(SystemLibrary, IsTheOneOfTheSystemsFolderHoweverItIsAskedFor) {
  HMODULE const byName = systemLibrary(L"version.dll");
  ASSERT_NE(byName, nullptr);
  EXPECT_EQ(systemLibraryByPath(L"version.dll"), byName);
  EXPECT_TRUE(folderOf(byName).ends_with(L"\\system32"));
}

TEST(SystemLibrary, ThatIsMissingIsNullEvenIfTheCurrentFolderHasOneOfThatName) {
  const harness::TestFolder folder;
  harness::copyFile(harness::buildFolder() + L"\\proof_planted.dll",
                    folder.path() + L"\\qmkplanted.dll");
  std::wstring before(MAX_PATH, L'\0');
  before.resize(GetCurrentDirectoryW(MAX_PATH, before.data()));
  ASSERT_NE(SetCurrentDirectoryW(folder.path().c_str()), FALSE);
  EXPECT_EQ(systemLibrary(L"qmkplanted.dll"), nullptr);
  EXPECT_EQ(systemLibraryByPath(L"qmkplanted.dll"), nullptr);
  SetCurrentDirectoryW(before.c_str());
}

TEST(SystemLibrary, WithoutAFunctionGivesNone) {
  using Call = DWORD WINAPI();
  EXPECT_EQ(platform::win32::systemFunction<Call>(L"kernel32.dll", "GetNoSuchThing"), nullptr);
  EXPECT_EQ(platform::win32::systemFunction<Call>(L"nosuch.dll", "GetTickCount"), nullptr);
  EXPECT_NE(platform::win32::systemFunction<Call>(L"kernel32.dll", "GetTickCount"), nullptr);
}

TEST(OrdinaryPath, HasNoPrefixOfTheExtendedForm) {
  EXPECT_EQ(ordinaryPath(LR"(\\?\C:\App\x.exe)"), LR"(C:\App\x.exe)");
  EXPECT_EQ(ordinaryPath(LR"(\\?\UNC\server\share\App)"), LR"(\\server\share\App)");
  for (const wchar_t* const path :
       {LR"(C:\App)", LR"(\\server\share)", LR"(\\?\Volume{1}\x)", L"\\\\?\\", L"x", L""}) {
    EXPECT_EQ(ordinaryPath(path), path);
  }
}

TEST(Drives, OnTheNetworkMayBeSlowAndTheSystemsIsNot) {
  EXPECT_TRUE(platform::drives::mayBeSlow(LR"(\\server\share\tool.exe)"));
  EXPECT_TRUE(platform::drives::mayBeSlow(LR"(\\?\UNC\server\share\tool.exe)"));
  for (const wchar_t* const path : {LR"(C:\tool.exe)", LR"(\\?\C:\tool.exe)", L"tool.exe", L""}) {
    EXPECT_FALSE(platform::drives::mayBeSlow(path)) << path;
  }
}

TEST(Drives, OfAServerAreOnTheNetworkAndTheSystemsIsNot) {
  EXPECT_TRUE(platform::drives::isNetwork(LR"(\\server\share\tool.exe)"));
  EXPECT_TRUE(platform::drives::isNetwork(LR"(\\?\UNC\server\share\tool.exe)"));
  for (const wchar_t* const path : {LR"(C:\tool.exe)", LR"(\\?\C:\tool.exe)", L"C:", L"x", L""}) {
    EXPECT_FALSE(platform::drives::isNetwork(path)) << path;
  }
}

TEST(Drives, OfTheSystemIsConnectedAndAnswers) {
  const std::vector<std::wstring> drives = platform::drives::connected();
  EXPECT_NE(std::find(drives.begin(), drives.end(), L"C:"), drives.end());
  EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end()));
  for (const std::wstring& drive : drives) {
    EXPECT_TRUE(platform::drives::isConnected(drive + L"\\"));
  }
  EXPECT_TRUE(platform::drives::answers(L"C:\\"));
}

TEST(Screens, HaveAWorkAreaAndADensity) {
  const auto screens = platform::screens::all();
  ASSERT_FALSE(screens.empty());
  for (const auto& screen : screens) {
    EXPECT_GT(screen.workArea.width, 0);
    EXPECT_GT(screen.workArea.height, 0);
    EXPECT_GE(screen.dpi, 96);
  }
}

}  // namespace
