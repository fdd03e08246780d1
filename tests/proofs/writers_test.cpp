// Several programs work on the catalogue at the same time at full speed: no record is lost,
// duplicated or damaged.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "harness/files.h"
#include "harness/gateway_app.h"
#include "harness/input.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "proof.h"
#include "worker_process.h"
#include "writers.h"

namespace proofs {
namespace {

using harness::Tab;

TEST_F(Writers, TwoProgramsWithTheProductsCode) {
  const int count = amount(50, 2000);
  const auto one = writer(L"one", count);
  const auto other = writer(L"other", count);
  one->waitUntilDone(longestRunMs);
  other->waitUntilDone(longestRunMs);
  const Catalogue catalogue = readCatalogue(catalogue_);
  const Fate first = fateOf(catalogue, L"one", one->notes(), count);
  const Fate second = fateOf(catalogue, L"other", other->notes(), count);
  figure(std::string("writers, two copies, first") + columns, shown(first, one->notes()));
  figure(std::string("writers, two copies, second") + columns, shown(second, other->notes()));
  expectIntact("the first", first);
  expectIntact("the second", second);
  EXPECT_EQ(catalogue.torn, 0);
  EXPECT_EQ(catalogue.paths.count(L"C:\\Kept\\1.fp3"), 1U);
  // A program that had to wait too long reports it and has changed nothing. That is rare.
  for (const Worker* const worker : {one.get(), other.get()}) {
    EXPECT_LE(worker->notes().messages, 1 + count / 20)
        << harness::utf8(worker->notes().lastMessage);
  }
}

TEST_F(Writers, AForeignProgramThatAppendsInPlace) {
  const int count = amount(50, 2000);
  const int appends = amount(1500, 60'000);
  const auto ours = writer(L"ours", count);
  const auto foreign = appender(L"foreign", appends);
  ours->waitUntilDone(longestRunMs);
  foreign->waitUntilDone(longestRunMs);
  const Catalogue catalogue = readCatalogue(catalogue_);
  const Fate first = fateOf(catalogue, L"ours", ours->notes(), count);
  const Fate second = fateOf(catalogue, L"foreign", foreign->notes(), appends);
  figure(std::string("writers, beside an appender") + columns, shown(first, ours->notes()));
  figure(std::string("writers, the appender") + columns, shown(second, foreign->notes()));
  expectIntact("the product", first);
  expectIntact("the appender", second);
  EXPECT_EQ(catalogue.torn, 0);
  EXPECT_EQ(foreign->notes().messages, 0);
}

/// Lists are added and moved files are listed elsewhere, while two others write.
TEST_F(Writers, AddedListsAndMovedFilesAmongTheOthers) {
  const int count = amount(40, 1500);
  const int appends = amount(1000, 40'000);
  list(L"old", count);
  const auto moving =
      std::make_unique<Worker>(folder_, L"move old new " + std::to_wstring(count), job_);
  const auto merging =
      std::make_unique<Worker>(folder_, L"merge merged " + std::to_wstring(count), job_);
  const auto ours = writer(L"ours", count);
  const auto foreign = appender(L"foreign", appends);
  for (const Worker* const worker : {moving.get(), merging.get(), ours.get(), foreign.get()}) {
    worker->waitUntilDone(longestRunMs);
  }
  const Catalogue catalogue = readCatalogue(catalogue_);
  const Fate moved = fateOf(catalogue, L"new", moving->notes(), count);
  const Fate merged = fateOf(catalogue, L"merged", merging->notes(), count);
  figure(std::string("writers, files listed elsewhere") + columns, shown(moved, moving->notes()));
  figure(std::string("writers, added lists") + columns, shown(merged, merging->notes()));
  expectIntact("the files listed elsewhere", moved);
  expectIntact("the added lists", merged);
  expectIntact("the copy", fateOf(catalogue, L"ours", ours->notes(), count));
  expectIntact("the appender", fateOf(catalogue, L"foreign", foreign->notes(), appends));
  EXPECT_EQ(catalogue.torn, 0);
  for (int number = 0; number < count; ++number) {
    // An entry is at one of the two places, never at both.
    EXPECT_EQ(catalogue.paths.count(pathOf(L"old", number)),
              moving->notes().wanted[number] != 0 ? 0U : 1U)
        << number;
  }
  EXPECT_GT(moved.wanted, 0);
  EXPECT_GT(merged.wanted, 0);
}

/// Entries are dropped and come back by Undo, while two others write.
TEST_F(Writers, UndoAmongTheOthers) {
  const int count = amount(40, 1500);
  const int appends = amount(1000, 40'000);
  list(L"old", count);
  const auto undoing =
      std::make_unique<Worker>(folder_, L"regret old " + std::to_wstring(count), job_);
  const auto ours = writer(L"ours", count);
  const auto foreign = appender(L"foreign", appends);
  for (const Worker* const worker : {undoing.get(), ours.get(), foreign.get()}) {
    worker->waitUntilDone(longestRunMs);
  }
  const Catalogue catalogue = readCatalogue(catalogue_);
  const Fate back = fateOf(catalogue, L"old", undoing->notes(), count);
  figure(std::string("writers, dropped and taken back") + columns, shown(back, undoing->notes()));
  expectIntact("what was taken back", back);
  expectIntact("the copy", fateOf(catalogue, L"ours", ours->notes(), count));
  expectIntact("the appender", fateOf(catalogue, L"foreign", foreign->notes(), appends));
  EXPECT_EQ(catalogue.torn, 0);
  EXPECT_GT(back.wanted, 0);
}

/// The real program deletes entries and keeps its list up to date, while a copy of its code and a
/// foreign program write.
TEST_F(Writers, TheProgramAmongTheOthers) {
  const int deletions = amount(4, 150);
  const int count = amount(40, 1500);
  const int appends = amount(1000, 40'000);
  harness::GatewayApp app;
  harness::GatewayApp::skipExample();
  std::string kept;
  for (int n = 0; n < deletions; ++n) {
    kept += harness::codePageBytes(L"\"FP3\",\"C:\\Doomed\\_Doomed " + std::to_wstring(n) +
                                   L".fp3\",\"1/2/2003\"\r\n");
  }
  app.writeCatalogue(kept);
  app.startToMain();
  app.selectTab(Tab::open);
  const Worker ours(app.folder(), L"write ours " + std::to_wstring(count), job_);
  const Worker foreign(
      app.folder(), L"append \"" + app.cataloguePath() + L"\" foreign " + std::to_wstring(appends),
      job_);
  std::vector<std::wstring> gone;
  std::int64_t reported = 0;
  for (int n = 0; n < deletions; ++n) {
    harness::bringToFront(app.main());
    // The sort moves the entries to be deleted to the top. Two clicks at one point would be a
    // double-click.
    const RECT row = app.list(Tab::open).textOnScreen(0);
    harness::clickAt({row.left + (n % 2 == 0 ? 10 : 40), (row.top + row.bottom) / 2}, app.main());
    app.command(ids::mnuDelete);
    const harness::MessageBoxReader question = app.waitForMessage();
    const std::wstring text = question.text();
    const std::size_t name = text.find(L"_DOOMED ");
    ASSERT_NE(name, std::wstring::npos) << harness::utf8(text);
    question.answer(IDYES);
    const std::wstring number = text.substr(name + 8, text.find(L'.', name) - name - 8);
    HWND report = nullptr;
    harness::waitUntil("the entry leaves the list, or a message says why not", [&] {
      report = harness::visibleWindow(app.processId(), L"#32770");
      // Only few rows, because each is read separately.
      const harness::ListViewReader list = app.list(Tab::open);
      bool there = false;
      for (int index = 0; index < deletions && !there && report == nullptr; ++index) {
        there = list.cell(index, 0) == L"_Doomed " + number + L".fp3";
      }
      return report != nullptr || !there;
    });
    if (report == nullptr) {
      gone.push_back(L"C:\\Doomed\\_Doomed " + number + L".fp3");
      continue;
    }
    // The others kept the file in use for longer than the program waits, so the command is given
    // again.
    const harness::MessageBoxReader message(report);
    ASSERT_NE(message.text().find(L"'70'"), std::wstring::npos) << harness::utf8(message.text());
    message.answer(IDOK);
    ++reported;
    --n;
  }
  ours.waitUntilDone(longestRunMs);
  foreign.waitUntilDone(longestRunMs);
  const Catalogue catalogue = readCatalogue(app.cataloguePath());
  const Fate first = fateOf(catalogue, L"ours", ours.notes(), count);
  const Fate second = fateOf(catalogue, L"foreign", foreign.notes(), appends);
  figure("writers, entries that the real program deleted meanwhile",
         static_cast<std::int64_t>(gone.size()));
  figure("writers, deletions that it reported as impossible for now", reported);
  figure(std::string("writers, beside the real program, a copy") + columns,
         shown(first, ours.notes()));
  figure(std::string("writers, beside the real program, an appender") + columns,
         shown(second, foreign.notes()));
  expectIntact("the copy", first);
  expectIntact("the appender", second);
  EXPECT_EQ(catalogue.torn, 0);
  for (const std::wstring& path : gone) {
    EXPECT_EQ(catalogue.paths.count(path), 0U) << harness::utf8(path);
  }
  harness::waitUntil("the list shows the file", [&] {
    return app.list(Tab::open).count() == static_cast<int>(catalogue.paths.size());
  });
  EXPECT_EQ(app.close(), 0U);
}

/// Another program keeps the catalogue open. The operation waits for a short time, then reports the
/// problem and has changed nothing. When the file is free again, it works.
TEST_F(Writers, AFileThatSomebodyHolds) {
  constexpr std::int64_t longestFeltUs = 2'000'000;
  struct Case {
    const char* name;
    DWORD share;
    bool works;
  };
  for (const Case& held :
       {Case{"shares nothing", 0, false}, Case{"shares reading", FILE_SHARE_READ, false},
        Case{"shares reading and writing", FILE_SHARE_READ | FILE_SHARE_WRITE, false}}) {
    SCOPED_TRACE(held.name);
    const std::string before = *harness::readFile(catalogue_);
    {
      const Worker holder(folder_, L"hold \"" + catalogue_ + L"\" " + std::to_wstring(held.share),
                          job_);
      holder.waitUntilReady();
      ASSERT_EQ(holder.notes().messages, 0);
      const auto ours = writer(L"ours", 1);
      ours->waitUntilDone(longestRunMs);
      EXPECT_EQ(ours->notes().messages, 1);
      EXPECT_NE(std::wstring(ours->notes().lastMessage).find(L"70"), std::wstring::npos)
          << harness::utf8(ours->notes().lastMessage);
      EXPECT_LT(ours->notes().slowestFailed, longestFeltUs);
      figure(std::string("writers, time until a file is reported that ") + held.name,
             std::to_string(ours->notes().slowestFailed / 1000) + " ms");
      holder.notes().finished = 1;
      holder.waitUntilDone(longestRunMs);
    }
    EXPECT_EQ(*harness::readFile(catalogue_), before);
  }
  const auto ours = writer(L"ours", 1);
  ours->waitUntilDone(longestRunMs);
  EXPECT_EQ(ours->notes().messages, 0);
  EXPECT_EQ(readCatalogue(catalogue_).paths.count(pathOf(L"ours", 0)), 1U);
}

}  // namespace
}  // namespace proofs
