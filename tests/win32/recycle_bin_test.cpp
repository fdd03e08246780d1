// The Recycle Bin of the real system: what goes into it, what comes back, what is refused.
#include "platform/recycle_bin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>
// Needs <windows.h> first.
#include <objbase.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "harness/files.h"
#include "harness/paths.h"
#include "harness/process.h"
#include "harness/recycle_bin.h"
#include "harness/wait.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace {

namespace bin = platform::recycle_bin;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class RecycleBin : public testing::Test {
 protected:
  // It stays, because the shell keeps objects.
  static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  void SetUp() override {
    ASSERT_EQ(harness::whyNoBin(), std::nullopt);
    harness::emptyBin();
  }
  void TearDown() override {
    if (!harness::whyNoBin()) {
      harness::emptyBin();
    }
  }
  [[nodiscard]] std::wstring path(const std::wstring& name) const {
    return folder_.path() + L"\\" + name;
  }
  /// A file with its name in it, in the bin.
  bin::Item recycled(const std::wstring& file, const std::string& bytes = "x") {
    harness::writeFile(file, bytes);
    const auto item = bin::recycle(file);
    EXPECT_TRUE(item) << "no bin took it";
    EXPECT_FALSE(harness::exists(file));
    return item.value_or(bin::Item{});
  }
  template <class Operation>
  static platform::RunTimeError errorOf(Operation operation) {
    try {
      operation();
    } catch (const platform::RunTimeError& failure) {
      return failure;
    }
    return platform::RunTimeError(0);
  }
  static platform::RunTimeError errorOfRecycling(const std::wstring& file) {
    return errorOf([&] { static_cast<void>(bin::recycle(file)); });
  }
  static platform::RunTimeError errorOfRestoring(const bin::Item& item) {
    return errorOf([&] { bin::restore(item); });
  }
  harness::TestFolder folder_;
};

TEST_F(RecycleBin, AFileGoesIntoTheBinAndComesBackAsItWas) {
  const std::wstring file = path(L"Plot 1.fp3");
  std::string bytes("\r\n\0\x1A\xFF", 5);
  bytes.append(100'000, 'b');
  harness::writeFile(file, bytes);
  const auto changed = harness::changeTime(file) - 36'000'000'000;
  harness::setChangeTime(file, changed);
  ASSERT_NE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_ARCHIVE), FALSE);
  const auto item = bin::recycle(file);
  ASSERT_TRUE(item);
  EXPECT_EQ(item->path, file);
  EXPECT_FALSE(harness::exists(file));
  EXPECT_TRUE(bin::holds(*item));
  EXPECT_THAT(harness::pathsInBin(), SizeIs(1));
  bin::restore(*item);
  EXPECT_EQ(harness::readFile(file), bytes);
  EXPECT_EQ(harness::changeTime(file), changed);
  EXPECT_FALSE(bin::holds(*item));
  EXPECT_THAT(harness::pathsInBin(), IsEmpty());
  EXPECT_EQ(errorOfRestoring(*item).number(), 53) << "only once";
}

TEST_F(RecycleBin, OfSeveralFilesWithOnePathTheRightOneComesBack) {
  const std::wstring file = path(L"Plot.fp3");
  std::vector<bin::Item> items;
  for (const char* const bytes : {"first", "second, longer", "third"}) {
    items.push_back(recycled(file, bytes));
  }
  EXPECT_THAT(harness::pathsInBin(), SizeIs(3));
  bin::restore(items[1]);
  EXPECT_EQ(harness::readFile(file), "second, longer");
  EXPECT_TRUE(bin::holds(items[0]));
  EXPECT_FALSE(bin::holds(items[1]));
  EXPECT_TRUE(bin::holds(items[2]));
  harness::removeFile(file);
  bin::restore(items[0]);
  EXPECT_EQ(harness::readFile(file), "first");
  harness::removeFile(file);
  bin::restore(items[2]);
  EXPECT_EQ(harness::readFile(file), "third");
}

TEST_F(RecycleBin, FilesOfOneNameInSeveralFoldersAreNotMixedUp) {
  harness::makeFolder(path(L"a"));
  harness::makeFolder(path(L"b"));
  const auto a = recycled(path(L"a\\Plot.fp3"), "a");
  const auto b = recycled(path(L"b\\Plot.fp3"), "b");
  bin::restore(a);
  EXPECT_EQ(harness::readFile(path(L"a\\Plot.fp3")), "a");
  EXPECT_FALSE(harness::exists(path(L"b\\Plot.fp3")));
  EXPECT_TRUE(bin::holds(b));
}

TEST_F(RecycleBin, NamesOfEveryKindComeBack) {
  for (const wchar_t* const name :
       {L"Stand, old.fp3", L" blank first.fp3", L"\u00C9t\u00E9 \u00E0 B\u00E2le.cw3",
        L"\u0416\u0443\u043A \u65E5.fp3", L"50% of it.bi3", L"two.dots.fp3", L"no extension",
        L".begins", L"a+b=c;d[1]{2}'`~!@#$^&().bs3", L"Tool.lnk", L"Page.url"}) {
    const auto item = recycled(path(name), "it");
    EXPECT_TRUE(bin::holds(item)) << name;
    EXPECT_EQ(errorOfRestoring(item).number(), 0) << name;
    EXPECT_EQ(harness::readFile(path(name)), "it") << name;
  }
}

TEST_F(RecycleBin, APathMayBeGivenInAnotherForm) {
  harness::makeFolder(path(L"folder"));
  harness::writeFile(path(L"Plot.fp3"), "it");
  std::wstring file = path(L"folder\\..\\PLOT.FP3");
  std::replace(file.begin() + 3, file.end(), L'\\', L'/');
  for (const std::wstring& form : {file, L"\\\\?\\" + path(L"Plot.fp3")}) {
    const auto item = bin::recycle(form);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->path, form);
    EXPECT_FALSE(harness::exists(path(L"Plot.fp3")));
    bin::restore(*item);
    EXPECT_EQ(harness::readFile(path(L"Plot.fp3")), "it");
  }
}

TEST_F(RecycleBin, AFileIsFoundByItsShortName) {
  const std::wstring file = path(L"\u0416\u0443\u043A \u65E5.fp3");
  harness::writeFile(file, "it");
  const auto entry = platform::files::entryAt(file).value_or(platform::files::Entry{});
  if (entry.shortName.empty()) {
    GTEST_SKIP() << "this volume gives no short names";
  }
  const auto item = bin::recycle(path(entry.shortName));
  ASSERT_TRUE(item);
  EXPECT_FALSE(harness::exists(file));
  bin::restore(*item);
  EXPECT_EQ(harness::readFile(file), "it");
}

TEST_F(RecycleBin, WhatMustNotBeDeletedIsRefusedAndStays) {
  const std::wstring file = path(L"Plot.fp3");
  EXPECT_EQ(errorOfRecycling(file).number(), 53);
  EXPECT_EQ(errorOfRecycling(file).path(), file);
  EXPECT_EQ(errorOfRecycling(path(L"nowhere\\Plot.fp3")).number(), 53);
  EXPECT_EQ(errorOfRecycling(std::wstring(L"C:\\a\0b", 6)).number(), 52);
  harness::writeFile(file, "x");
  EXPECT_NE(errorOfRecycling(path(L"Pl*.fp3")).number(), 0) << "a wildcard names no file";
  EXPECT_NE(errorOfRecycling(path(L"Plo?.fp3")).number(), 0);
  ASSERT_NE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
  EXPECT_EQ(errorOfRecycling(file).number(), 75);
  EXPECT_EQ(errorOfRecycling(file).path(), file);
  ASSERT_NE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL), FALSE);
  HANDLE const open = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(open, INVALID_HANDLE_VALUE);
  EXPECT_EQ(errorOfRecycling(file).number(), 70);
  EXPECT_EQ(errorOfRecycling(file).path(), file);
  CloseHandle(open);
  harness::makeFolder(path(L"folder"));
  harness::writeFile(path(L"folder\\inside.fp3"), "x");
  EXPECT_NE(errorOfRecycling(path(L"folder")).number(), 0) << "a folder is no file";
  EXPECT_TRUE(harness::exists(path(L"folder\\inside.fp3")));
  EXPECT_EQ(harness::readFile(file), "x");
  EXPECT_THAT(harness::pathsInBin(), IsEmpty());
}

TEST_F(RecycleBin, ANameThatIsTakenKeepsWhatHasIt) {
  const std::wstring file = path(L"Plot.fp3");
  const auto item = recycled(file, "old");
  harness::writeFile(file, "new");
  EXPECT_EQ(errorOfRestoring(item).number(), 58);
  EXPECT_EQ(errorOfRestoring(item).path(), file);
  EXPECT_EQ(harness::readFile(file), "new");
  harness::removeFile(file);
  harness::makeFolder(file);
  EXPECT_EQ(errorOfRestoring(item).number(), 58) << "a folder has it";
  EXPECT_TRUE(bin::holds(item));
  RemoveDirectoryW(file.c_str());
  bin::restore(item);
  EXPECT_EQ(harness::readFile(file), "old");
}

TEST_F(RecycleBin, WithoutItsFolderAFileStaysInTheBin) {
  harness::makeFolder(path(L"folder"));
  const auto item = recycled(path(L"folder\\Plot.fp3"), "it");
  RemoveDirectoryW(path(L"folder").c_str());
  EXPECT_EQ(errorOfRestoring(item).number(), 76);
  EXPECT_FALSE(harness::exists(path(L"folder")));
  EXPECT_TRUE(bin::holds(item));
  harness::makeFolder(path(L"folder"));
  bin::restore(item);
  EXPECT_EQ(harness::readFile(path(L"folder\\Plot.fp3")), "it");
}

TEST_F(RecycleBin, AnEmptiedBinHasNothing) {
  const std::wstring file = path(L"Plot.fp3");
  const auto item = recycled(file);
  harness::emptyBin();
  EXPECT_FALSE(bin::holds(item));
  EXPECT_EQ(errorOfRestoring(item).number(), 53);
  EXPECT_EQ(errorOfRestoring(item).path(), file);
  EXPECT_FALSE(harness::exists(file));
}

TEST_F(RecycleBin, APathThatIsTooLongForTheShellIsDeletedForGood) {
  const std::wstring folder = path(std::wstring(120, L'f'));
  const std::wstring file = folder + L"\\" + std::wstring(120, L'g') + L"\\Plot.fp3";
  harness::makeFolder(folder + L"\\" + std::wstring(120, L'g'));
  harness::writeFile(file, "x");
  ASSERT_GT(file.size(), std::size_t{MAX_PATH});
  EXPECT_FALSE(bin::recycle(file));
  EXPECT_FALSE(harness::exists(file));
  EXPECT_THAT(harness::pathsInBin(), IsEmpty());
  EXPECT_FALSE(bin::holds({file, "anything"}));
}

constexpr const wchar_t* fileVariable = L"QMK_FILE_TO_DELETE";

/// Path in a variable of a program that another test starts.
std::wstring fileToDelete() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetEnvironmentVariableW(fileVariable, path.data(), MAX_PATH));
  return path;
}

// For a program that finds no bin; the next test starts it.
TEST(RecycleBinMissing, DISABLED_DeletesForGood) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const std::wstring file = fileToDelete();
  ASSERT_TRUE(harness::exists(file));
  ASSERT_NE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
  const auto errorOf = [](const std::wstring& path) {
    try {
      static_cast<void>(bin::recycle(path));
    } catch (const platform::RunTimeError& failure) {
      return failure.number();
    }
    return 0;
  };
  EXPECT_EQ(errorOf(file), 75);
  ASSERT_NE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL), FALSE);
  EXPECT_FALSE(bin::recycle(file));
  EXPECT_FALSE(harness::exists(file));
  EXPECT_EQ(errorOf(file), 53);
  EXPECT_FALSE(bin::holds({file, "anything"}));
  EXPECT_TRUE(harness::pathsInBin().empty());
}

/// Programs that are started while it exists do not see an environment variable.
class Hidden {
 public:
  explicit Hidden(const wchar_t* name) : name_(name) {
    there_ = GetEnvironmentVariableW(name, value_, static_cast<DWORD>(std::size(value_))) > 0;
    SetEnvironmentVariableW(name, nullptr);
  }
  Hidden(const Hidden&) = delete;
  Hidden& operator=(const Hidden&) = delete;
  ~Hidden() { SetEnvironmentVariableW(name_, there_ ? value_ : nullptr); }

 private:
  const wchar_t* name_;
  wchar_t value_[16] = {};
  bool there_ = false;
};

TEST_F(RecycleBin, WithoutABinAFileIsDeletedForGood) {
  if (const auto why = harness::whyAlwaysABin()) {
    GTEST_SKIP() << *why;
  }
  const std::wstring file = path(L"Plot.fp3");
  harness::writeFile(file, "x");
  const harness::MachineWithoutBin without;
  // The other process has a single test, which must not be one of another shard.
  const Hidden total(L"GTEST_TOTAL_SHARDS");
  const Hidden index(L"GTEST_SHARD_INDEX");
  SetEnvironmentVariableW(fileVariable, file.c_str());
  const harness::Job job;
  const harness::Process program(
      harness::buildFolder() + L"\\win32_tests.exe", folder_.path(), job,
      L"--gtest_also_run_disabled_tests --gtest_filter=RecycleBinMissing.*");
  SetEnvironmentVariableW(fileVariable, nullptr);
  EXPECT_EQ(program.waitForExit(harness::patienceMs), DWORD{0});
  EXPECT_FALSE(harness::exists(file));
  EXPECT_THAT(harness::pathsInBin(), IsEmpty());
}

TEST_F(RecycleBin, AFileOnAShareGoesIntoTheBinOfItsDriveOrIsGone) {
  const std::wstring file = harness::networkPath(path(L"Plot.fp3"));
  harness::writeFile(path(L"Plot.fp3"), "it");
  const auto item = bin::recycle(file);
  EXPECT_FALSE(harness::exists(path(L"Plot.fp3")));
  EXPECT_THAT(harness::pathsInBin(), SizeIs(item ? 1 : 0));
  if (item) {
    bin::restore(*item);
    EXPECT_EQ(harness::readFile(path(L"Plot.fp3")), "it");
  }
}

TEST_F(RecycleBin, AFileThatSomebodyReadsForAMomentIsDeletedThen) {
  const std::wstring file = path(L"Plot.fp3");
  harness::writeFile(file, "x");
  HANDLE open = CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(open, INVALID_HANDLE_VALUE);
  HANDLE const reader = CreateThread(
      nullptr, 0,
      [](void* its) -> DWORD {
        constexpr DWORD moment = 300;
        Sleep(moment);
        CloseHandle(its);
        return 0;
      },
      open, 0, nullptr);
  const auto item = bin::recycle(file);
  WaitForSingleObject(reader, INFINITE);
  CloseHandle(reader);
  ASSERT_TRUE(item);
  EXPECT_TRUE(bin::holds(*item));
}

}  // namespace
