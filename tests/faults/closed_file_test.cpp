// A replacement that needs the file closed for an instant.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>

#include "catalogue/catalogue_file.h"
#include "faults/closed_file.h"
#include "faults/sweep.h"
#include "platform/desktop.h"
#include "platform/faults.h"
#include "platform/run_time_error.h"

namespace faults {
namespace {

using memory::desktop;
using memory::FileSystem;

/// Begins anew with a catalogue on a disk that replaces only files which nobody has open.
FileSystem& diskWith(const std::string& catalogue) {
  desktop().reset();
  desktop().disk().profile.posixRename = false;
  desktop().putFile(catalogueFile, catalogue);
  return desktop().disk();
}

/// The steps of a replacement that needs the file closed, while a foreign line comes in the
/// instant: each fails in turn, once and from then on.
TEST(ReplacementOfAClosedFile, IsWholeWhicheverStepFails) {
  const std::string foreign = lineOf(L"D:\\foreign.fp3");
  const std::string kept = lineOf(L"D:\\kept.fp3");
  const std::string added = lineOf(L"D:\\added.fp3");
  int leftUnderTheSecondName = 0;
  // True when the fault happened.
  const auto runsWith = [&](const std::function<void()>& inject) {
    FileSystem& disk = diskWith(kept);
    bool appended = false;
    desktop().onStep = [&] {
      if (appended || !inTheInstant()) {
        return;
      }
      try {
        const auto file =
            disk.open(catalogueFile, FileSystem::writes, FileSystem::reads | FileSystem::writes);
        appended = true;
        disk.appendTo(file, foreign);
        disk.close(file);
      } catch (const platform::RunTimeError&) {
        // Still held for the comparison.
      }
    };
    inject();
    modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\added.fp3", L"FP3");
    const auto& failures = desktop().faults().failedCalls();
    const std::size_t failed = failures.size();
    // What could not be brought over or restored is still under the second name.
    if (std::any_of(failures.begin(), failures.end(), [](const auto& call) {
          return call.what.starts_with(L"append ") || call.what.starts_with(L"put back ");
        })) {
      EXPECT_EQ(desktop().bytesOf(temporaryFile + L".old"), kept + foreign);
      ++leftUnderTheSecondName;
    }
    desktop().faults().failNothing();
    desktop().onStep = nullptr;
    const std::string bytes = desktop().bytesOf(catalogueFile).value_or("(none)");
    const bool told = !desktop().messages.empty();
    desktop().messages.clear();
    EXPECT_TRUE(bytes == kept || bytes == kept + foreign || bytes == kept + added ||
                bytes == kept + added + foreign)
        << bytes;
    if (!told) {
      EXPECT_NE(bytes.find(added), std::string::npos) << bytes;
    }
    if (failed == 0 && appended && bytes.find(foreign) == std::string::npos) {
      EXPECT_TRUE(told) << "a foreign line was lost without a word";
    }
    expectTheNextOperationWorks();
    return failed > 0;
  };
  int cases = 0;
  for (const bool forever : {false, true}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE("call " + std::to_string(n) + (forever ? " and all after it" : ""));
      const bool happened =
          runsWith([&] { desktop().faults().failCall(n, platform::error::deviceError, forever); });
      ++cases;
      if (!happened) {
        break;
      }
    }
  }
  EXPECT_GT(cases, 12);
  EXPECT_GE(leftUnderTheSecondName, 1);
  desktop().reset();
}

/// The lines are not given up because others write to the new file for a while.
TEST(ReplacementOfAClosedFile, WaitsForTheOthersBeforeItBringsLinesOver) {
  constexpr int othersMilliseconds = 700;
  const std::string kept = lineOf(L"D:\\kept.fp3");
  const std::string foreign = lineOf(L"D:\\foreign.fp3");
  FileSystem& disk = diskWith(kept);
  constexpr unsigned shared = FileSystem::reads | FileSystem::writes;
  bool appended = false;
  FileSystem::Handle other = 0;
  int waited = 0;
  desktop().onStep = [&] {
    try {
      if (!appended && inTheInstant()) {
        const auto file = disk.open(catalogueFile, FileSystem::writes, shared);
        appended = true;
        disk.appendTo(file, foreign);
        disk.close(file);
      } else if (appended && other == 0 && desktop().journal().back().starts_with(L"replace ")) {
        other = disk.open(catalogueFile, FileSystem::writes, shared);
      }
    } catch (const platform::RunTimeError&) {
      // Still held for the comparison.
    }
  };
  desktop().onWait = [&](int milliseconds) {
    waited += milliseconds;
    desktop().advance(milliseconds);
    if (waited >= othersMilliseconds) {
      disk.close(other);
    }
  };
  modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\added.fp3", L"FP3");
  desktop().onStep = nullptr;
  desktop().onWait = nullptr;
  EXPECT_NE(other, 0U);
  EXPECT_GE(waited, othersMilliseconds);
  EXPECT_EQ(desktop().bytesOf(catalogueFile), kept + lineOf(L"D:\\added.fp3") + foreign);
  EXPECT_TRUE(desktop().messages.empty());
  desktop().reset();
}

/// Somebody who has the file open for a while keeps the second name there, too. The next try must
/// not do without one: a line that comes in its instant would be lost.
TEST(ReplacementOfAClosedFile, HasASecondNameEvenIfTheOneBeforeCouldNotBeRemoved) {
  const std::string kept = lineOf(L"D:\\kept.fp3");
  const std::string foreign = lineOf(L"D:\\foreign.fp3");
  FileSystem& disk = diskWith(kept);
  FileSystem::Handle holder = 0;
  bool letGo = false;
  bool appended = false;
  desktop().onStep = [&] {
    try {
      if (holder == 0 && inTheInstant()) {
        holder = disk.open(catalogueFile, FileSystem::writes, FileSystem::reads);
      } else if (letGo && !appended && inTheInstant()) {
        const auto file = disk.open(catalogueFile, FileSystem::writes, FileSystem::reads);
        appended = true;
        disk.appendTo(file, foreign);
        disk.close(file);
      }
    } catch (const platform::RunTimeError&) {
      // Still held for the comparison.
    }
  };
  desktop().onWait = [&](int /*milliseconds*/) {
    EXPECT_TRUE(desktop().has(temporaryFile + L".old"));
    disk.close(holder);
    letGo = true;
  };
  modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\added.fp3", L"FP3");
  desktop().onStep = nullptr;
  desktop().onWait = nullptr;
  EXPECT_TRUE(appended);
  EXPECT_EQ(desktop().bytesOf(catalogueFile), kept + lineOf(L"D:\\added.fp3") + foreign);
  EXPECT_TRUE(desktop().messages.empty());
  expectTheNextOperationWorks();
  desktop().reset();
}

/// The name that was left for the next try goes when there is none.
TEST(ReplacementOfAClosedFile, LeavesNoSecondNameWhenItIsGivenUp) {
  const std::string kept = lineOf(L"D:\\kept.fp3");
  FileSystem& disk = diskWith(kept);
  FileSystem::Handle holder = 0;
  desktop().onStep = [&] {
    try {
      if (holder == 0 && inTheInstant()) {
        holder = disk.open(catalogueFile, FileSystem::writes, FileSystem::reads);
      }
    } catch (const platform::RunTimeError&) {
      // Still held for the comparison.
    }
  };
  desktop().onWait = [&](int /*milliseconds*/) {
    EXPECT_TRUE(desktop().has(temporaryFile + L".old"));
    disk.close(holder);
    desktop().faults().failCall(1, platform::error::deviceError);
  };
  modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\added.fp3", L"FP3");
  desktop().onStep = nullptr;
  desktop().onWait = nullptr;
  desktop().faults().failNothing();
  EXPECT_NE(holder, 0U);
  EXPECT_EQ(desktop().messages.size(), 1U);
  desktop().messages.clear();
  EXPECT_EQ(desktop().bytesOf(catalogueFile), kept);
  EXPECT_FALSE(desktop().has(temporaryFile + L".old"));
  expectTheNextOperationWorks();
  desktop().reset();
}

}  // namespace
}  // namespace faults
