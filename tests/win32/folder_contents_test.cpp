// What is in a folder of the real file system, for walks through folders.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "harness/files.h"
#include "harness/paths.h"
#include "platform/files.h"
#include "platform/folder_walk.h"
#include "platform/processes.h"

namespace {

using platform::files::contentsOf;
using platform::files::FolderContents;
using platform::files::FolderWalk;
using Names = std::vector<std::wstring>;

class FolderContentsTest : public testing::Test {
 protected:
  [[nodiscard]] std::wstring path(const std::wstring& name) const {
    return folder_.path() + L"\\" + name;
  }
  static Names sorted(Names names) {
    std::sort(names.begin(), names.end());
    return names;
  }
  /// A folder that leads to another one. Wine has no junctions, but the system below it has links.
  [[nodiscard]] bool link(const std::wstring& name, const std::wstring& target) const {
    if (CreateSymbolicLinkW(path(name).c_str(), path(target).c_str(),
                            SYMBOLIC_LINK_FLAG_DIRECTORY) != FALSE) {
      return true;
    }
    std::wstring line = L"Z:\\bin\\ln -s . \"" + unixPath(path(name)) + L"\"";
    if (target != L".") {
      return false;
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &started) == FALSE) {
      return false;
    }
    WaitForSingleObject(started.hProcess, 10'000);
    CloseHandle(started.hProcess);
    CloseHandle(started.hThread);
    return GetFileAttributesW(path(name).c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  static std::wstring unixPath(const std::wstring& path) {
    using Convert = char*(CDECL*)(const wchar_t*);
    static const auto convert = reinterpret_cast<Convert>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    if (convert == nullptr) {
      return path;
    }
    char* const name = convert(path.c_str());
    std::wstring wide;
    for (const char* c = name; c != nullptr && *c != 0; ++c) {
      wide.push_back(static_cast<unsigned char>(*c));
    }
    HeapFree(GetProcessHeap(), 0, name);
    return wide;
  }
  harness::TestFolder folder_;
};

TEST_F(FolderContentsTest, AreNormalFilesAndFolders) {
  harness::writeFile(path(L"b \u0416.fp3"), "x");
  harness::writeFile(path(L"a.txt"), "x");
  harness::writeFile(path(L"hidden.fp3"), "x");
  SetFileAttributesW(path(L"hidden.fp3").c_str(), FILE_ATTRIBUTE_HIDDEN);
  CreateDirectoryW(path(L"Deep").c_str(), nullptr);
  CreateDirectoryW(path(L"Secret").c_str(), nullptr);
  SetFileAttributesW(path(L"Secret").c_str(), FILE_ATTRIBUTE_HIDDEN);
  const FolderContents contents = contentsOf(folder_.path());
  EXPECT_EQ(sorted(contents.files), (Names{L"a.txt", L"b \u0416.fp3"}));
  EXPECT_EQ(contents.folders, Names{L"Deep"});
}

TEST_F(FolderContentsTest, AFolderIsKnownByWhateverPathItIsReached) {
  CreateDirectoryW(path(L"Deep").c_str(), nullptr);
  const auto id = contentsOf(path(L"Deep")).id;
  ASSERT_TRUE(id);
  EXPECT_EQ(contentsOf(path(L"DEEP\\..\\deep")).id, id);
  EXPECT_NE(contentsOf(folder_.path()).id, id);
}

TEST_F(FolderContentsTest, WhatIsNoFolderHasNone) {
  harness::writeFile(path(L"a.txt"), "x");
  for (const std::wstring& name :
       {path(L"missing"), path(L"a.txt"), path(L"*"), path(L"a?txt"), std::wstring(L"Q:"),
        std::wstring(), path(std::wstring(40'000, L'x')), path(std::wstring(1, L'\0'))}) {
    const FolderContents contents = contentsOf(name);
    EXPECT_TRUE(contents.files.empty());
    EXPECT_TRUE(contents.folders.empty());
    EXPECT_FALSE(contents.id);
  }
}

TEST_F(FolderContentsTest, AWalkEndsInALoopOfLinks) {
  harness::writeFile(path(L"one.fp3"), "x");
  ASSERT_TRUE(link(L"Loop", L".")) << GetLastError();
  FolderWalk walk({folder_.path()});
  int files = 0;
  int steps = 0;
  const auto count = [&files](const std::wstring& /*folder*/, const std::wstring& name) {
    files += name == L"one.fp3" ? 1 : 0;
  };
  while (walk.lookOn(count) && steps < 100) {
    ++steps;
  }
  EXPECT_LT(steps, 3);
  EXPECT_EQ(files, 1);
}

}  // namespace
