#include "listfile/list_keeper.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "listfile/suite_lists.h"
#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "startup/paths.h"
#include "unit/support/error_number.h"
#include "unit/support/list_file_bytes.h"

namespace {

using kept_lists::Which;
using list_file::Missing;
using memory::desktop;
using modQMKGeneral::ListKeeper;
using modQMKGeneral::overwriteList;
using modQMKGeneral::replaceList;
using modQMKGeneral::rewriteList;
using unit::bytesOf;
using unit::catalogueFile;
using unit::webListFile;

using Names = std::vector<std::wstring>;

// The desktop's day is 20 November 2026, 14:30:15.
class KeepingLists : public memory::DesktopTest {
 protected:
  KeepingLists() {
    modQMKGeneral::InitUserFolders();
    desktop().putFile(catalogueFile, "files\r\n");
    desktop().putFile(webListFile, "web\r\n");
    desktop().clearJournal();
  }
  static void write(const std::wstring& path, const std::string& bytes) {
    rewriteList(path, Missing::isEmpty, [&bytes](const std::string& /*old*/) { return bytes; });
  }
  [[nodiscard]] static Names kept() {
    Names names = desktop().has(folder) ? desktop().namesIn(folder) : Names();
    std::sort(names.begin(), names.end());
    return names;
  }
  [[nodiscard]] static std::string copy(const std::wstring& name) {
    return bytesOf(std::wstring(folder) + L"\\" + name);
  }
  static void put(const std::wstring& name, const std::string& bytes) {
    desktop().putFile(std::wstring(folder) + L"\\" + name, bytes);
  }

  static constexpr const wchar_t* folder = L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\Backup";
  const Names ofToday{L"QMKFileList3 2026-11-20.txt", L"QMKWebList 2026-11-20.txt"};
  std::unique_ptr<ListKeeper> keeper = std::make_unique<ListKeeper>();
};

TEST_F(KeepingLists, TheFirstChangeOfADayKeepsBothLists) {
  write(webListFile, "more web\r\n");
  EXPECT_EQ(kept(), ofToday);
  EXPECT_EQ(copy(ofToday[0]), "files\r\n");
  EXPECT_EQ(copy(ofToday[1]), "web\r\n");
  EXPECT_EQ(bytesOf(webListFile), "more web\r\n");
}

TEST_F(KeepingLists, LaterChangesOfTheDayDoNotLookAtTheDisk) {
  write(webListFile, "two\r\n");
  desktop().clearJournal();
  const int looks = desktop().faults().looks();
  write(webListFile, "three\r\n");
  EXPECT_EQ(desktop().journal(),
            (Names{L"create C:\\App\\qmklist.tmp", L"read to append " + webListFile,
                   L"write C:\\App\\qmklist.tmp", L"hold " + webListFile,
                   L"replace C:\\App\\qmklist.tmp -> " + webListFile}));
  keeper.reset();
  const int withKeeper = desktop().faults().looks() - looks;
  write(webListFile, "four\r\n");
  EXPECT_EQ(desktop().faults().looks() - looks, 2 * withKeeper);
  EXPECT_EQ(copy(ofToday[1]), "web\r\n");
}

TEST_F(KeepingLists, ADayThatIsKeptIsNotLookedAtAgainAnHourLater) {
  write(webListFile, "two\r\n");
  desktop().take(std::wstring(folder) + L"\\" + ofToday[0]);
  desktop().setNow({.hour = 16, .minute = 0});
  write(webListFile, "three\r\n");
  EXPECT_EQ(kept(), Names{ofToday[1]}) << "somebody has taken the other one away";
}

TEST_F(KeepingLists, AllWaysToWriteAListKeepItFirst) {
  overwriteList(webListFile, "over");
  EXPECT_EQ(copy(ofToday[1]), "web\r\n");
  desktop().take(folder);
  keeper = nullptr;
  keeper = std::make_unique<ListKeeper>();
  EXPECT_EQ(replaceList(webListFile, "replaced", platform::files::readWhole(webListFile).stamp),
            platform::files::Replaced::yes);
  EXPECT_EQ(copy(ofToday[1]), "over");
}

TEST_F(KeepingLists, TheNextDayKeepsThemAgain) {
  write(webListFile, "two\r\n");
  desktop().setNow({.day = 21, .hour = 0, .minute = 0, .second = 1});
  write(webListFile, "three\r\n");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20.txt"), "web\r\n");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-21.txt"), "two\r\n");
}

TEST_F(KeepingLists, AnotherRunOfTheDayKeepsWhatTheFirstOneKept) {
  write(webListFile, "two\r\n");
  keeper = nullptr;
  keeper = std::make_unique<ListKeeper>();
  write(webListFile, "three\r\n");
  EXPECT_EQ(copy(ofToday[1]), "web\r\n");
  EXPECT_EQ(kept(), ofToday);
}

TEST_F(KeepingLists, AMissingListGivesNoCopyAndNoFailure) {
  desktop().take(webListFile);
  write(webListFile, "new\r\n");
  EXPECT_EQ(kept(), Names{ofToday[0]});
  EXPECT_EQ(keeper->takeFailure(), std::nullopt);
}

TEST_F(KeepingLists, WithoutAKeeperNothingIsKept) {
  keeper = nullptr;
  write(webListFile, "two\r\n");
  EXPECT_FALSE(desktop().has(folder));
}

TEST_F(KeepingLists, OtherFilesAreNotKept) {
  desktop().putFile(L"C:\\App\\Mine.txt", "mine");
  write(L"C:\\App\\Mine.txt", "changed");
  EXPECT_FALSE(desktop().has(folder));
}

TEST_F(KeepingLists, APortableCopyKeepsThemBesideTheProgram) {
  desktop().putFile(L"C:\\App\\gateway3.ini", "; portable\r\n");
  write(webListFile, "two\r\n");
  EXPECT_FALSE(desktop().has(folder));
  EXPECT_EQ(bytesOf(L"C:\\App\\Backup\\QMKWebList 2026-11-20.txt"), "web\r\n");
}

TEST_F(KeepingLists, TenCopiesOfEachListAreKept) {
  for (int day = 1; day <= 12; ++day) {
    const std::wstring date = L" 2026-10-" + std::wstring(day < 10 ? L"0" : L"");
    put(L"QMKWebList" + date + std::to_wstring(day) + L".txt", "old");
  }
  put(L"QMKWebList of Ann.txt", "hers");
  put(L"QMKFileList3 2026-10-01.txt", "old");
  write(webListFile, "two\r\n");
  const Names names = kept();
  ASSERT_EQ(names.size(), 13U);
  EXPECT_EQ(names[0], L"QMKFileList3 2026-10-01.txt");
  EXPECT_EQ(names[2], L"QMKWebList 2026-10-04.txt");
  EXPECT_EQ(names[11], L"QMKWebList 2026-11-20.txt");
  EXPECT_EQ(names[12], L"QMKWebList of Ann.txt");
}

TEST_F(KeepingLists, TheOldestStayUntilTheListIsWritten) {
  for (int day = 10; day < 20; ++day) {
    put(L"QMKWebList 2026-10-" + std::to_wstring(day) + L".txt", "old");
  }
  desktop().setReadOnly(webListFile);
  EXPECT_EQ(errorNumberOf([] { write(webListFile, "two\r\n"); }), 75);
  EXPECT_EQ(copy(L"QMKWebList 2026-10-10.txt"), "old");
  desktop().setReadOnly(webListFile, false);
  write(webListFile, "two\r\n");
  EXPECT_EQ(copy(L"QMKWebList 2026-10-10.txt"), "(none)");
}

TEST_F(KeepingLists, OneThatCannotBeRemovedDoesNoHarm) {
  for (int day = 10; day < 21; ++day) {
    put(L"QMKWebList 2026-10-" + std::to_wstring(day) + L".txt", "old");
  }
  desktop().lock(std::wstring(folder) + L"\\QMKWebList 2026-10-11.txt");
  write(webListFile, "two\r\n");
  EXPECT_EQ(kept().size(), 12U);
  EXPECT_EQ(keeper->takeFailure(), std::nullopt);
}

TEST_F(KeepingLists, AListThatAnotherProgramCutDownIsKeptBeforeItIsWritten) {
  write(webListFile, std::string(100, 'x'));
  keeper->saw(Which::web, 100);
  desktop().putFile(webListFile, std::string(49, 'y'));
  write(webListFile, "new");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20 143015.txt"), std::string(49, 'y'));
  write(webListFile, "newer");
  EXPECT_EQ(kept().size(), 3U);
}

TEST_F(KeepingLists, TheLoadOfAListSeesThatItShrank) {
  keeper->saw(Which::web, 100);
  keeper->saw(Which::web, 5);
  keeper->saw(Which::web, 5);
  put(ofToday[1], "of the morning");
  write(webListFile, "new");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20 143015.txt"), "web\r\n");
}

TEST_F(KeepingLists, HalfAListOrWhatThisProgramCutDownIsNotKept) {
  put(ofToday[1], "of the morning");
  put(ofToday[0], "of the morning");
  write(webListFile, std::string(100, 'x'));
  write(webListFile, std::string(10, 'x'));
  write(webListFile, std::string(1, 'x'));
  EXPECT_EQ(kept(), ofToday);
  keeper->saw(Which::web, 2);
  write(webListFile, "y");
  EXPECT_EQ(kept(), ofToday);
}

TEST_F(KeepingLists, AListThatCouldNotBeReadIsKeptBeforeItIsWritten) {
  put(ofToday[1], "of the morning");
  desktop().lock(webListFile);
  EXPECT_EQ(errorNumberOf([] { write(webListFile, "new"); }), 70);
  desktop().unlock(webListFile);
  write(webListFile, "new");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20 143015.txt"), "web\r\n");
}

TEST_F(KeepingLists, TheSameDamageIsKeptOnlyOnce) {
  put(ofToday[0], "of the morning");
  for (int n = 0; n < 3; ++n) {
    keeper->couldNotRead(Which::web);
    write(webListFile, "web\r\n");
  }
  EXPECT_EQ(kept(), ofToday);
}

TEST_F(KeepingLists, OtherDamageOfTheSameSizeIsKeptToo) {
  put(ofToday[0], "of the morning");
  for (const char* const bytes : {"web\r\n", "wEb\r\n"}) {
    desktop().putFile(webListFile, bytes);
    keeper->couldNotRead(Which::web);
    write(webListFile, "new");
  }
  EXPECT_EQ(copy(ofToday[1]), "web\r\n");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20 143015.txt"), "wEb\r\n");
}

TEST_F(KeepingLists, OfAListThatWasEmptiedNothingIsKept) {
  put(ofToday[0], "of the morning");
  put(ofToday[1], "of the morning");
  write(webListFile, std::string(100, 'x'));
  desktop().putFile(webListFile, "");
  write(webListFile, "new");
  EXPECT_EQ(kept(), ofToday);
}

TEST_F(KeepingLists, WithoutAFreeSecondWithinAMinuteTheCopyFails) {
  for (int second = 0; second < 60; ++second) {
    keeper->keepNow(Which::web, std::to_string(second));
  }
  EXPECT_EQ(kept().size(), 60U);
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20 143114.txt"), "59");
  EXPECT_EQ(errorNumberOf([this] { keeper->keepNow(Which::web, "one more"); }), 58);
  EXPECT_EQ(kept().size(), 60U);
}

TEST_F(KeepingLists, CopiesOfOneSecondGetTheNextSeconds) {
  put(L"QMKWebList 2026-11-20 143016.txt", "another");
  keeper->keepNow(Which::web, "one");
  keeper->keepNow(Which::web, "two");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20 143015.txt"), "one");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20 143016.txt"), "another");
  EXPECT_EQ(copy(L"QMKWebList 2026-11-20 143017.txt"), "two");
}

TEST_F(KeepingLists, AFailingCopyDoesNotStopTheWorkAndIsToldOnce) {
  int failures = 0;
  keeper->onFailure = [&failures] { ++failures; };
  desktop().putFolder(folder);
  desktop().protect(folder);
  write(webListFile, "two\r\n");
  EXPECT_EQ(bytesOf(webListFile), "two\r\n");
  EXPECT_EQ(failures, 1);
  EXPECT_EQ(keeper->takeFailure(), L"Path/File access error");
  EXPECT_EQ(keeper->takeFailure(), std::nullopt);
  desktop().setNow({.day = 21});
  write(webListFile, "three\r\n");
  EXPECT_EQ(keeper->takeFailure(), std::nullopt);
}

TEST_F(KeepingLists, WhatFailedIsTriedAgainAfterAnHour) {
  desktop().putFolder(folder);
  desktop().faults().failCall(1, 61, true);
  keeper->beforeChange();
  desktop().faults().failNothing();
  write(webListFile, "two\r\n");
  EXPECT_EQ(kept(), Names{}) << "not at each change";
  desktop().setNow({.hour = 15, .minute = 0});
  write(webListFile, "three\r\n");
  EXPECT_EQ(copy(ofToday[1]), "two\r\n");
}

TEST_F(KeepingLists, AMissingUserFolderIsAFailure) {
  desktop().take(L"C:\\Users\\Ann\\Documents\\My QMKExtra3");
  write(webListFile, "two\r\n");
  EXPECT_EQ(keeper->takeFailure(), L"Path not found");
  EXPECT_EQ(bytesOf(webListFile), "two\r\n");
}

TEST_F(KeepingLists, BeforeTheUserFolderIsKnownNothingIsPutAnywhere) {
  modQMKGeneral::UserFolder.clear();
  write(webListFile, "two\r\n");
  EXPECT_EQ(keeper->takeFailure(), L"Path not found");
  EXPECT_FALSE(desktop().has(L"C:\\Backup"));
}

TEST_F(KeepingLists, AnotherProgramThatTakesTheNameWins) {
  desktop().onReplace = [this] {
    if (!desktop().has(std::wstring(folder) + L"\\" + ofToday[0])) {
      put(ofToday[0], "theirs");
    }
  };
  write(webListFile, "two\r\n");
  EXPECT_EQ(copy(ofToday[0]), "theirs");
  EXPECT_EQ(kept(), ofToday) << "no temporary file stays";
  EXPECT_EQ(keeper->takeFailure(), std::nullopt);
}

TEST_F(KeepingLists, TheLastKeeperIsTheCurrentOne) {
  {
    const ListKeeper other;
    EXPECT_EQ(ListKeeper::current(), &other);
  }
  EXPECT_EQ(ListKeeper::current(), keeper.get());
  keeper = nullptr;
  EXPECT_EQ(ListKeeper::current(), nullptr);
}

}  // namespace
