// One folder, twenty people: everything that was written is there, nobody waits long, and nobody is
// stopped by a copy that dies.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "harness/text.h"
#include "proof.h"
#include "worker_process.h"
#include "writers.h"

namespace proofs {
namespace {

class WritersOfOneFolder : public Writers {};

/// How many moments there were at which copies gave up. If the machine stops the one that has the
/// file, all those who wait for it give up, one shortly after the other.
std::int64_t momentsOf(std::vector<std::uint64_t> ends) {
  constexpr std::uint64_t shortly = 500;
  std::sort(ends.begin(), ends.end());
  std::int64_t moments = 0;
  for (std::size_t n = 0; n < ends.size(); ++n) {
    moments += n == 0 || ends[n] - ends[n - 1] > shortly ? 1 : 0;
  }
  return moments;
}

/// One folder for twenty people, each with the program open, and two tools that append.
TEST_F(WritersOfOneFolder, TwentyCopiesAndTwoAppenders) {
  constexpr int copies = 20;
  constexpr int records = 30;
  const int appendPauseMs = amount(40, 250);
  constexpr std::int64_t longestWaitUs = 2'000'000;
  const int seconds = amount(12, 600);
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
  std::vector<std::unique_ptr<Worker>> appenders;
  for (const wchar_t* const tag : {L"left", L"right"}) {
    appenders.push_back(std::make_unique<Worker>(folder_,
                                                 L"append \"" + catalogue_ + L"\" " + tag + L" " +
                                                     std::to_wstring(appends) + L" " +
                                                     std::to_wstring(appendPauseMs),
                                                 job_));
  }
  // The rest of the machine may stand still for seconds, which is nobody's waiting.
  const Worker pulse(folder_, L"pulse \"" + folder_ + L"\\pulse\" " + std::to_wstring(seconds),
                     job_);
  std::int64_t operations = 0;
  std::int64_t gaveUp = 0;
  std::int64_t slowestFailed = 0;
  std::vector<std::uint64_t> ends;
  std::int64_t slowest = 0;
  std::int64_t fewest = std::numeric_limits<std::int64_t>::max();
  std::int64_t most = 0;
  for (const auto& worker : workers) {
    worker->waitUntilDone(longestRunMs);
    const Notes& notes = worker->notes();
    operations += notes.finished;
    gaveUp += notes.messages;
    slowestFailed = std::max(slowestFailed, std::int64_t{notes.slowestFailed});
    for (int n = 0; n < mostFailures && n < notes.messages; ++n) {
      ends.push_back(std::uint64_t{notes.failedAt[n]});
    }
    slowest = std::max(slowest, std::int64_t{notes.slowest});
    fewest = std::min(fewest, std::int64_t{notes.finished});
    most = std::max(most, std::int64_t{notes.finished});
  }
  pulse.waitUntilDone(longestRunMs);
  const std::int64_t still = pulse.notes().slowest;
  EXPECT_LT(slowest - still, longestWaitUs);
  for (const auto& worker : appenders) {
    worker->waitUntilDone(longestRunMs);
    EXPECT_EQ(worker->notes().messages, 0);
  }
  const Catalogue catalogue = readCatalogue(catalogue_);
  figure("writers, twenty copies, operations (fewest and most of a copy)",
         std::to_string(operations) + " (" + std::to_string(fewest) + ", " + std::to_string(most) +
             ")");
  const std::int64_t moments = momentsOf(ends);
  figure("writers, twenty copies, operations that gave up (moments, longest)",
         std::to_string(gaveUp) + " (" + std::to_string(moments) + ", " +
             std::to_string(slowestFailed / 1000) + " ms)");
  figure("writers, twenty copies, longest operation", std::to_string(slowest / 1000) + " ms");
  figure("writers, twenty copies, longest standstill of the machine meanwhile",
         std::to_string(still / 1000) + " ms");
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
  EXPECT_LE(moments, std::max<std::int64_t>(1, operations / 1000));
  EXPECT_LT(gaveUp, copies * std::max<std::int64_t>(1, operations / 1000));
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
