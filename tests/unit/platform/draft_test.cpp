// How long a draft waits for its turn.
#include "platform/draft_steps.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace {

using memory::desktop;
using memory::FileSystem;
using platform::RunTimeError;
using platform::files::Draft;

constexpr const wchar_t* listPath = L"C:\\App\\list.txt";
constexpr const wchar_t* draftPath = L"C:\\App\\list.tmp";

class Drafts : public ::testing::Test {
 protected:
  Drafts() {
    desktop().reset();
    desktop().putFile(listPath, "old");
    // Some time has passed since the machine was started.
    desktop().advance(5000);
    desktop().onWait = [this](int milliseconds) {
      if (pauses_.empty() || pauses_.back().first != milliseconds) {
        pauses_.emplace_back(milliseconds, 0);
      }
      ++pauses_.back().second;
      desktop().advance(milliseconds);
    };
  }
  ~Drafts() override { desktop().onWait = nullptr; }

  /// Milliseconds of a pause, and how often in a row.
  using Pauses = std::vector<std::pair<int, int>>;
  Pauses pauses_;
};

TEST_F(Drafts, AskMoreOftenTheLongerTheyHaveWaited) {
  FileSystem& disk = desktop().disk();
  disk.machine = 1;
  const FileSystem::Handle held = disk.make(draftPath, false);
  disk.machine = 0;
  EXPECT_THROW({ const Draft draft(draftPath); }, RunTimeError);
  EXPECT_EQ(pauses_, (Pauses{{1, 4}, {12, 8}, {6, 34}, {3, 99}, {1, 799}}));
  disk.close(held);
  EXPECT_NO_THROW({ const Draft draft(draftPath); });
}

TEST_F(Drafts, QueueOnceBeforeTheyAskForTheName) {
  std::vector<std::wstring> queues;
  desktop().onTurn = [&](const std::wstring& path, std::uint64_t /*milliseconds*/) {
    EXPECT_EQ(desktop().journal(), std::vector<std::wstring>{});
    queues.push_back(path);
    return true;
  };
  desktop().clearJournal();
  Draft draft(draftPath);
  draft.write("new");
  EXPECT_EQ(draft.replace(listPath, platform::files::readWhole(listPath).stamp),
            platform::files::Replaced::yes);
  EXPECT_EQ(queues, std::vector<std::wstring>{draftPath});
}

TEST_F(Drafts, CountTheTimeInTheQueue) {
  FileSystem& disk = desktop().disk();
  disk.machine = 1;
  const FileSystem::Handle held = disk.make(draftPath, false);
  disk.machine = 0;
  std::vector<std::uint64_t> waits;
  const auto others = [&](const std::wstring& /*path*/, std::uint64_t milliseconds) {
    waits.push_back(milliseconds);
    desktop().advance(static_cast<int>(milliseconds));
    return false;
  };
  desktop().onTurn = others;
  EXPECT_THROW({ const Draft draft(draftPath); }, RunTimeError);
  EXPECT_EQ(waits, (std::vector<std::uint64_t>{500, 500, 400}));
  EXPECT_EQ(pauses_, Pauses{});
  // Who comes to the front at the last moment may still ask once.
  disk.close(held);
  EXPECT_NO_THROW({ const Draft draft(draftPath); });
  // A turn that comes in between leaves the rest of the time.
  desktop().take(draftPath);
  disk.machine = 1;
  const FileSystem::Handle again = disk.make(draftPath, false);
  disk.machine = 0;
  desktop().onTurn = [](const std::wstring& /*path*/, std::uint64_t /*milliseconds*/) {
    desktop().advance(390);
    return true;
  };
  EXPECT_THROW({ const Draft draft(draftPath); }, RunTimeError);
  EXPECT_EQ(pauses_, (Pauses{{3, 70}, {1, 800}}));
  disk.close(again);
}

TEST_F(Drafts, GiveUpOnlyAfterWaitingAndNotAfterAStandstillOfTheMachine) {
  constexpr int sleeps = 60'000;
  FileSystem& disk = desktop().disk();
  disk.machine = 1;
  FileSystem::Handle held = disk.make(draftPath, false);
  disk.machine = 0;
  bool slept = false;
  desktop().onWait = [&](int milliseconds) {
    desktop().advance(slept ? milliseconds : sleeps);
    if (slept) {
      disk.close(held);
    }
    slept = true;
  };
  EXPECT_NO_THROW({ const Draft draft(draftPath); });
  EXPECT_TRUE(slept);
  // In the queue, too.
  int asked = 0;
  desktop().onTurn = [&](const std::wstring& /*path*/, std::uint64_t /*milliseconds*/) {
    desktop().advance(sleeps);
    return ++asked == 2;
  };
  EXPECT_NO_THROW({ const Draft draft(draftPath); });
  EXPECT_EQ(asked, 2);
}

TEST_F(Drafts, DoNotWaitWhereNobodyHoldsTheName) {
  Draft draft(draftPath);
  draft.write("new");
  EXPECT_EQ(draft.replace(listPath, platform::files::readWhole(listPath).stamp),
            platform::files::Replaced::yes);
  EXPECT_EQ(pauses_, Pauses{});
}

TEST_F(Drafts, WaitForATenthOfASecondForAReaderOfTheTarget) {
  Draft draft(draftPath);
  const auto stamp = platform::files::readWhole(listPath).stamp;
  FileSystem& disk = desktop().disk();
  disk.machine = 1;
  const FileSystem::Handle reader = disk.open(listPath, FileSystem::reads, FileSystem::reads);
  disk.machine = 0;
  draft.write("new");
  try {
    static_cast<void>(draft.replace(listPath, stamp));
    ADD_FAILURE() << "a file that somebody holds was replaced";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.number(), platform::error::permissionDenied);
  }
  EXPECT_EQ(pauses_, (Pauses{{10, 10}}));
  disk.close(reader);
  EXPECT_EQ(draft.replace(listPath, stamp), platform::files::Replaced::yes);
  EXPECT_EQ(desktop().bytesOf(listPath), "new");
}

// A power failure may leave these behind; the next draft takes them away.
TEST_F(Drafts, GiveTheOldFileASecondNameWhereItMustBeClosed) {
  desktop().disk().profile.posixRename = false;
  const auto names = [] { return desktop().disk().namesIn(L"C:\\App"); };
  std::set<std::wstring> seen;
  desktop().onStep = [&] {
    for (const std::wstring& name : names()) {
      seen.insert(name);
    }
  };
  {
    Draft draft(draftPath);
    draft.write("new");
    EXPECT_EQ(draft.replace(listPath, platform::files::readWhole(listPath).stamp),
              platform::files::Replaced::yes);
  }
  desktop().onStep = nullptr;
  EXPECT_EQ(seen,
            (std::set<std::wstring>{L"list.txt", L"list.tmp", L"list.tmp.old", L"list.tmp.busy"}));
  EXPECT_EQ(names(), std::vector<std::wstring>{L"list.txt"});
}

}  // namespace
