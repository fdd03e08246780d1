// A program that is killed at any instant leaves each list file as it was before or after an
// operation, and the next program works.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>

#include "harness/files.h"
#include "harness/gateway_app.h"
#include "harness/input.h"
#include "harness/recycle_bin.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "list_model.h"
#include "proof.h"
#include "worker_process.h"

namespace proofs {
namespace {

std::int64_t ticks() {
  LARGE_INTEGER now{};
  QueryPerformanceCounter(&now);
  return now.QuadPart;
}

/// Waits for a random time, with a finer resolution than the system's sleep, so that the kill can
/// happen between any two steps of the program.
void letPass(int microseconds) {
  LARGE_INTEGER frequency{};
  QueryPerformanceFrequency(&frequency);
  const std::int64_t end = ticks() + frequency.QuadPart * microseconds / 1'000'000;
  constexpr int fineUs = 2000;
  if (microseconds > fineUs) {
    Sleep(static_cast<DWORD>((microseconds - fineUs) / 1000));
  }
  while (ticks() < end) {
  }
}

std::string bytesOf(const std::wstring& path) {
  return ListModel::withoutToday(harness::readFile(path).value_or("(no file)"));
}

/// Files that a killed program may leave in its folder.
void expectNothingLeftBehind(const std::wstring& folder) {
  const std::set<std::wstring> known{L"QMKFileList3.txt", L"QMKWebList.txt", L"qmklist.tmp",
                                     L"qmklist.tmp.old",  L"data",           workerName};
  for (const std::wstring& name : harness::namesIn(folder)) {
    EXPECT_TRUE(known.contains(name)) << "left behind: " << harness::utf8(name);
  }
}

class Crash : public ::testing::Test {
 protected:
  harness::TestFolder root_;
  harness::Job job_;
};

TEST_F(Crash, KilledBetweenAnyTwoStepsOfARewrite) {
  const int kills = amount(50, 1000);
  constexpr int longestRunUs = 60'000;
  const std::wstring folder = root_.path() + L"\\Suite";
  ListModel model(folder);
  Random random(seed());
  std::int64_t done = 0;
  int afterTheOperation = 0;
  int leftTemporary = 0;
  for (int kill = 0; kill < kills; ++kill) {
    const Worker worker(
        folder, L"churn " + std::to_wstring(seed()) + L" " + std::to_wstring(done) + L" 1000000000",
        job_);
    worker.waitUntilReady();
    letPass(random.below(longestRunUs));
    worker.kill();
    ASSERT_EQ(worker.notes().messages, 0) << harness::utf8(worker.notes().lastMessage);
    const std::int64_t finished = worker.notes().finished;
    for (; done < finished; ++done) {
      model.apply(operationAt(seed(), done));
    }
    ListModel next = model;
    next.apply(operationAt(seed(), done));
    const std::string catalogue = bytesOf(model.cataloguePath());
    const std::string webList = bytesOf(model.webListPath());
    const bool before = catalogue == model.catalogue() && webList == model.webList();
    const bool after = catalogue == next.catalogue() && webList == next.webList();
    ASSERT_TRUE(before || after) << "kill " << kill << ", seed " << seed() << ", operation " << done
                                 << ":\n"
                                 << catalogue.substr(0, 2000);
    if (!before) {
      model = next;
      ++done;
      ++afterTheOperation;
    }
    leftTemporary += harness::exists(folder + L"\\qmklist.tmp") ? 1 : 0;
    expectNothingLeftBehind(folder);
  }
  // Files that were left behind cause no problem.
  constexpr int more = 50;
  const Worker last(folder,
                    L"churn " + std::to_wstring(seed()) + L" " + std::to_wstring(done) + L" " +
                        std::to_wstring(done + more),
                    job_);
  last.waitUntilDone(60'000);
  EXPECT_EQ(last.notes().messages, 0) << harness::utf8(last.notes().lastMessage);
  for (int n = 0; n < more; ++n) {
    model.apply(operationAt(seed(), done + n));
  }
  EXPECT_EQ(bytesOf(model.cataloguePath()), model.catalogue());
  EXPECT_EQ(bytesOf(model.webListPath()), model.webList());
  figure("crash, kills of a rewriting loop", kills);
  figure("crash, operations finished between the kills", done);
  figure("crash, kills that left the temporary file behind", leftTemporary);
  figure("crash, kills between the replacement and its report", afterTheOperation);
}

/// A data file that is deleted and comes back by Undo is there with its record, or the Recycle Bin
/// has it. A deletion drops the record first; the next start lists such a file again.
TEST_F(Crash, KilledBetweenAnyTwoStepsOfDeletionsAndUndos) {
  if (const auto reason = harness::whyNoBin()) {
    GTEST_SKIP() << *reason;
  }
  const int kills = amount(20, 1000);
  constexpr int files = 3;
  constexpr int longestRunUs = 150'000;
  const std::wstring folder = root_.path() + L"\\Suite";
  const std::wstring catalogue = folder + L"\\QMKFileList3.txt";
  harness::makeFolder(folder);
  harness::makeFolder(folder + L"\\data");
  const std::string foreign = "bs3 , \"D:\\Old files\\1.bs3\" x, 1/2/2003,more\n";
  const auto listed = [&](const std::wstring& path) {
    return harness::readFile(catalogue).value_or("").find(harness::codePageBytes(path)) !=
           std::string::npos;
  };
  Random random(seed() + 2);
  int inBin = 0;
  int recordComesWithTheStart = 0;
  std::int64_t done = 0;
  for (int kill = 0; kill < kills; ++kill) {
    harness::emptyBin();
    std::string content = foreign;
    for (int n = 0; n < files; ++n) {
      const std::wstring path = folder + L"\\data\\" + doomedName(n);
      harness::writeFile(path, "plot " + std::to_string(n));
      content += harness::codePageBytes(L"\"fp3\",\"" + path + L"\",\"1/2/2003\"\r\n");
    }
    harness::writeFile(catalogue, content);
    const Worker worker(folder, L"undo " + std::to_wstring(files), job_);
    worker.waitUntilReady();
    letPass(random.below(longestRunUs));
    worker.kill();
    done += worker.notes().finished;
    ASSERT_EQ(worker.notes().messages, 0) << harness::utf8(worker.notes().lastMessage);
    ASSERT_TRUE(harness::readFile(catalogue).value_or("").starts_with(foreign));
    const auto bin = harness::pathsInBin();
    for (int n = 0; n < files; ++n) {
      const std::wstring path = folder + L"\\data\\" + doomedName(n);
      const auto bytes = harness::readFile(path);
      if (!bytes) {
        ASSERT_THAT(bin, ::testing::Contains(path)) << "kill " << kill << ", seed " << seed();
        ++inBin;
        continue;
      }
      ASSERT_EQ(*bytes, "plot " + std::to_string(n));
      if (!listed(path)) {
        const Worker next(folder, L"refresh", job_);
        next.waitUntilDone(60'000);
        ASSERT_TRUE(listed(path)) << "kill " << kill << ", seed " << seed();
        ++recordComesWithTheStart;
      }
    }
  }
  harness::emptyBin();
  figure("crash, kills of a loop of deletions and undos", kills);
  figure("crash, deletions and undos finished between the kills", done);
  figure("crash, kills that left a file in the bin", inBin);
  figure("crash, kills between a record and its file", recordComesWithTheStart);
}

/// The real program has a catalogue with records of its own. During its start it adds the files of
/// the data folder and the example to it.
TEST_F(Crash, TheProgramKilledWhileItStarts) {
  const int kills = amount(3, 100);
  constexpr int longestRunUs = 1'200'000;
  Random random(seed() + 1);
  std::array<int, 3> seen{};
  harness::GatewayApp app;
  app.addAllTools();
  const std::wstring plot = app.addDataFile(L"Plot 1.fp3");
  const std::string foreign = "bs3 , \"D:\\Old files\\1.bs3\" x, 1/2/2003,more\n";
  const std::string data =
      harness::codePageBytes(L"\"fp3\",\"" + plot + L"\",\"" +
                             harness::dateAndTime(harness::changeTime(plot)) + L"\"\r\n");
  const std::string example = harness::codePageBytes(L"\"CW3\",\"" + app.folder() +
                                                     L"\\data\\CWIexample.cw3\",\"(today)\"\r\n");
  const std::array<std::string, 3> states{foreign, foreign + example, foreign + data};
  for (int kill = 0; kill < kills; ++kill) {
    harness::TestProfile::setSetting(L"CWIExample", L"False");
    app.writeCatalogue(foreign);
    app.start();
    HWND const splash = app.waitForSplash();
    harness::clickAt(harness::centreOf(harness::screenRect(splash)), splash);
    letPass(random.below(longestRunUs));
    app.kill();
    const std::string bytes = bytesOf(app.cataloguePath());
    const auto* const state = std::find(states.begin(), states.end(), bytes);
    ASSERT_NE(state, states.end()) << "kill " << kill << ", seed " << seed() << ":\n" << bytes;
    ++seen.at(static_cast<std::size_t>(state - states.begin()));
  }
  app.startToMain();
  harness::waitUntil("the data folder is catalogued",
                     [&] { return bytesOf(app.cataloguePath()) == states[2]; });
  EXPECT_EQ(app.close(), 0U);
  figure("crash, kills of the starting program", kills);
  figure(
      "crash, found before / between / after its two rewrites",
      std::to_string(seen[0]) + " / " + std::to_string(seen[1]) + " / " + std::to_string(seen[2]));
}

}  // namespace
}  // namespace proofs
