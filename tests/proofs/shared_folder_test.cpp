// One folder, twenty people: everything that was written is there, nobody waits long, and nobody is
// stopped by a copy that dies.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "harness/text.h"
#include "proof.h"
#include "worker_process.h"
#include "writers.h"

namespace proofs {
namespace {

class WritersOfOneFolder : public Writers {};

/// When those who share a folder got on, and when they did not.
class Progress {
 public:
  void add(const Notes& notes) {
    for (std::size_t slice = 0; slice < gotOn_.size(); ++slice) {
      gotOn_[slice] = gotOn_[slice] || notes.gotOn[slice] != 0;
    }
  }
  /// When somebody got on for the last time, in milliseconds; 0 if nobody ever did.
  [[nodiscard]] std::int64_t end() const {
    const auto last = std::find(gotOn_.rbegin(), gotOn_.rend(), true);
    return (gotOn_.rend() - last) * sliceMs;
  }
  /// For how long nobody got on, at the longest between two times; in milliseconds.
  [[nodiscard]] std::int64_t longestPause(std::int64_t from, std::int64_t to) const {
    const auto sliceOf = [](std::int64_t time) {
      return std::clamp<std::int64_t>(time / sliceMs, 0, mostSlices);
    };
    std::int64_t pause = 0;
    std::int64_t longest = 0;
    for (std::int64_t slice = sliceOf(from); slice < sliceOf(to); ++slice) {
      pause = gotOn_[static_cast<std::size_t>(slice)] ? 0 : pause + sliceMs;
      longest = std::max(longest, pause);
    }
    return longest;
  }

 private:
  std::vector<bool> gotOn_ = std::vector<bool>(mostSlices);
};

/// The operations that gave up.
struct Failures {
  /// While others got on: those came first too often.
  std::int64_t overtaken = 0;
  /// While nobody got on, because the disk or the machine held up the one that had the file. All
  /// who wait for it give up then, one shortly after the other, which is one event.
  std::int64_t heldUp = 0;
  std::int64_t events = 0;
};

/// `ends` says when they ended.
Failures sorted(std::vector<std::int64_t> ends, const Progress& progress) {
  constexpr std::int64_t waiting = 2000;
  constexpr std::int64_t pauseOfAnEvent = 500;
  std::sort(ends.begin(), ends.end());
  Failures failures;
  std::optional<std::int64_t> last;
  for (const std::int64_t end : ends) {
    if (progress.longestPause(end - waiting, end) < pauseOfAnEvent) {
      ++failures.overtaken;
      continue;
    }
    ++failures.heldUp;
    failures.events += !last || end - *last > pauseOfAnEvent ? 1 : 0;
    last = end;
  }
  return failures;
}

/// One folder for twenty people, each with the program open, and two tools that append.
TEST_F(WritersOfOneFolder, TwentyCopiesAndTwoAppenders) {
  constexpr int copies = 20;
  constexpr int records = 30;
  const int appendPauseMs = amount(40, 250);
  constexpr std::int64_t longestWaitUs = 2'000'000;
  const int seconds = amount(12, 600);
  // Of a busy disk, which may take seconds to write what a compiler has left.
  const int eventsAllowed = amount(4, 40);
  // As many as fit into the time if nobody ever had to wait.
  const int appends = seconds * 1000 / appendPauseMs;
  std::vector<std::wstring> tags;
  std::vector<std::unique_ptr<Worker>> workers;
  for (int n = 0; n < copies; ++n) {
    tags.push_back(L"copy " + std::to_wstring(n));
    workers.push_back(std::make_unique<Worker>(folder_,
                                               L"share \"" + tags.back() + L"\" " +
                                                   std::to_wstring(records) + L" " +
                                                   std::to_wstring(seconds),
                                               job_));
  }
  // The start of so many programs is not what is measured.
  for (const auto& worker : workers) {
    worker->waitUntilReady();
  }
  const std::uint64_t begin = GetTickCount64();
  for (const auto& worker : workers) {
    worker->notes().begin = begin;
  }
  std::vector<std::unique_ptr<Worker>> appenders;
  for (const wchar_t* const tag : {L"left", L"right"}) {
    appenders.push_back(std::make_unique<Worker>(folder_,
                                                 L"append \"" + catalogue_ + L"\" " + tag + L" " +
                                                     std::to_wstring(appends) + L" " +
                                                     std::to_wstring(appendPauseMs),
                                                 job_));
  }
  std::int64_t operations = 0;
  std::int64_t slowestFailed = 0;
  std::vector<std::int64_t> ends;
  Progress progress;
  std::int64_t slowest = 0;
  std::int64_t fewest = std::numeric_limits<std::int64_t>::max();
  std::int64_t most = 0;
  for (const auto& worker : workers) {
    worker->waitUntilDone(longestRunMs);
    const Notes& notes = worker->notes();
    operations += notes.finished;
    slowestFailed = std::max(slowestFailed, std::int64_t{notes.slowestFailed});
    EXPECT_LE(notes.failures, mostFailures);
    for (int n = 0; n < mostFailures && n < notes.failures; ++n) {
      ends.push_back(std::int64_t{notes.failedAt[n]});
    }
    progress.add(notes);
    slowest = std::max(slowest, std::int64_t{notes.slowest});
    fewest = std::min(fewest, std::int64_t{notes.finished});
    most = std::max(most, std::int64_t{notes.finished});
  }
  const std::int64_t stillMs = progress.longestPause(0, progress.end());
  EXPECT_LT(slowest - stillMs * 1000, longestWaitUs);
  for (const auto& worker : appenders) {
    worker->waitUntilDone(longestRunMs);
    EXPECT_EQ(worker->notes().messages, 0);
  }
  const Catalogue catalogue = readCatalogue(catalogue_);
  figure("writers, twenty copies, operations (fewest and most of a copy)",
         std::to_string(operations) + " (" + std::to_string(fewest) + ", " + std::to_string(most) +
             ")");
  const Failures failures = sorted(ends, progress);
  figure("writers, twenty copies, operations that others overtook until they gave up",
         failures.overtaken);
  figure("writers, twenty copies, operations that gave up while nobody got on (events, longest)",
         std::to_string(failures.heldUp) + " (" + std::to_string(failures.events) + ", " +
             std::to_string(slowestFailed / 1000) + " ms)");
  figure("writers, twenty copies, longest operation", std::to_string(slowest / 1000) + " ms");
  figure("writers, twenty copies, longest time in which nobody got on",
         std::to_string(stillMs) + " ms");
  figure("writers, twenty copies, lines appended beside them", std::int64_t{appends} * 2);
  for (int n = 0; n < copies; ++n) {
    expectIntact(harness::utf8(tags[n]), fateOf(catalogue, tags[n], workers[n]->notes(), records));
  }
  expectIntact("the left appender", fateOf(catalogue, L"left", appenders[0]->notes(), appends));
  expectIntact("the right appender", fateOf(catalogue, L"right", appenders[1]->notes(), appends));
  EXPECT_EQ(catalogue.torn, 0);
  EXPECT_EQ(catalogue.paths.count(L"C:\\Kept\\1.fp3"), 1U);
  EXPECT_GT(fewest, 0);
  // One of a short run is no rate.
  EXPECT_LE(failures.overtaken, std::max<std::int64_t>(1, operations / 1000));
  EXPECT_LE(failures.events, eventsAllowed);
}

/// A copy is killed while it holds the temporary file and another one waits for that.
TEST_F(WritersOfOneFolder, ACopyThatDiesWithTheTemporaryFileStopsNobody) {
  constexpr std::int64_t longestWaitUs = 2'000'000;
  const int rounds = amount(3, 50);
  std::int64_t slowest = 0;
  for (int round = 0; round < rounds; ++round) {
    Worker dying(folder_, L"stall", job_);
    dying.waitUntilReady();
    const auto ours = writer(L"ours " + std::to_wstring(round), 1);
    ours->waitUntilReady();
    dying.kill();
    ours->waitUntilDone(longestRunMs);
    EXPECT_EQ(ours->notes().messages, 0) << harness::utf8(ours->notes().lastMessage);
    slowest = std::max(slowest, std::int64_t{ours->notes().slowest});
    const Catalogue catalogue = readCatalogue(catalogue_);
    EXPECT_EQ(catalogue.torn, 0);
    EXPECT_EQ(catalogue.paths.count(pathOf(L"ours " + std::to_wstring(round), 0)), 1U);
  }
  EXPECT_LT(slowest, longestWaitUs);
  figure("writers, longest wait for a copy that is killed", std::to_string(slowest / 1000) + " ms");
}

}  // namespace
}  // namespace proofs
