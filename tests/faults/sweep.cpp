#include "faults/sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <set>
#include <sstream>

#include "faults/allocations.h"
#include "platform/dispatcher.h"
#include "platform/faults.h"
#include "platform/text.h"

namespace faults {

using memory::desktop;
using platform::text::toCodePage;

namespace {

/// If an operation needs more runs than this, it probably never ends.
constexpr int mostCalls = 200;

}  // namespace

Fault runWith(const Operation& operation, const std::function<void(Rig&)>& inject,
              const std::function<void()>& lift) {
  Fault fault;
  Rig rig;
  operation.prepare(rig);
  desktop().clearJournal();
  fault.old = stateOf(rig.main());
  const int looks = desktop().faults().looks();
  inject(rig);
  // Run like a command of the user.
  {
    const CountedAllocations counted;
    platform::dispatch([&] { operation.run(rig); });
  }
  fault.allocations = allocations();
  fault.happened = allocationFailed();
  failAllocation(0);
  desktop().faults().failNothing();
  if (lift) {
    lift();
  }
  desktop().onReplace = nullptr;
  fault.looks = desktop().faults().looks() - looks;
  fault.failures = desktop().faults().failedCalls().size();
  if (!desktop().faults().failedCalls().empty()) {
    const auto& failed = desktop().faults().failedCalls().front();
    const auto& journal = desktop().journal();
    fault.happened = true;
    fault.call = failed.what;
    fault.path = failed.path;
    fault.lastPath = desktop().faults().failedCalls().back().path;
    fault.before.assign(journal.begin(),
                        journal.begin() + static_cast<std::ptrdiff_t>(failed.place));
  }
  fault.now = stateOf(rig.main());
  EXPECT_TRUE(rig.main().loaded() && rig.main().visible());
  expectNextOperationsWork(rig.main());
  return fault;
}

State cleanState(const Operation& operation) {
  return runWith(operation, [](Rig& /*rig*/) { desktop().faults().failNothing(); }).now;
}

namespace {

/// The lists as they were; the one whose reload failed is empty.
std::vector<Texts> listsBefore(const Fault& fault) {
  std::vector<Texts> expected = fault.old.lists;
  if (fault.inReload()) {
    const bool web = fault.was(L"read " + webListFile);
    expected.at(web ? frmQMK::web : frmQMK::open).clear();
  }
  return expected;
}

/// Checks one run with a fault.
void check(const Operation& operation, const Fault& fault) {
  if (operation.goesOn && operation.goesOn(fault)) {
    return;
  }
  expectWholeFiles(fault, operation.mayBeGone);
  if (fault.now.messages == fault.clean.messages) {
    // The program recovered without a message, so the fault must have no visible effect.
    EXPECT_EQ(fault.now.files, fault.clean.files);
    EXPECT_EQ(fault.now.lists, fault.clean.lists);
    EXPECT_EQ(fault.now.dialogOpen, fault.clean.dialogOpen);
    return;
  }
  EXPECT_EQ(fault.now.messages, operation.told(fault));
  if (operation.listsAreRight) {
    EXPECT_TRUE(operation.listsAreRight(fault)) << ::testing::PrintToString(fault.now.lists);
  } else {
    EXPECT_EQ(fault.now.lists, listsBefore(fault));
  }
  if (operation.dialogIsRight) {
    EXPECT_TRUE(operation.dialogIsRight(fault))
        << "the web shortcut dialog is open: " << fault.now.dialogOpen
        << ", before: " << fault.old.dialogOpen;
  } else {
    EXPECT_EQ(fault.now.dialogOpen, fault.old.dialogOpen);
  }
}

using LookFault = memory::Faults::LookFault;

using Lines = std::multiset<std::string>;

/// Lines of a list file except those of the data folder: what a search of that folder does not find
/// is dropped.
Lines linesElsewhere(const std::string& bytes) {
  Lines lines;
  std::istringstream stream(bytes);
  for (std::string line; std::getline(stream, line);) {
    if (line.find("C:\\App\\data\\") == std::string::npos) {
      lines.insert(line);
    }
  }
  return lines;
}

/// Number of lines that a run without a fault keeps and this one does not.
std::size_t lostLines(const Fault& fault, const std::wstring& path) {
  const Lines old = linesElsewhere(fault.old.file(path));
  const Lines clean = linesElsewhere(fault.clean.file(path));
  const Lines now = linesElsewhere(fault.now.file(path));
  Lines kept;
  std::set_intersection(old.begin(), old.end(), clean.begin(), clean.end(),
                        std::inserter(kept, kept.end()));
  Lines lost;
  std::set_difference(kept.begin(), kept.end(), now.begin(), now.end(),
                      std::inserter(lost, lost.end()));
  return lost.size();
}

void checkLook(const Operation& operation, const Fault& fault, LookFault kind) {
  for (const auto& path : {catalogueFile, webListFile}) {
    const std::string now = fault.now.file(path);
    // A file that a search overlooks is missing to the program: at most its own record goes.
    if (kind != LookFault::findsNothing || lostLines(fault, path) > 1) {
      EXPECT_TRUE(isOneOf(now, {fault.old.file(path), fault.clean.file(path)}))
          << "in " << toCodePage(path);
    }
  }
  // Without what is kept for Undo, an operation goes on.
  if (kind == LookFault::outOfMemory && fault.now != fault.clean) {
    expectWholeFiles(fault, operation.mayBeGone);
    const Texts& messages = fault.now.messages;
    const auto told = std::count_if(messages.begin(), messages.end(), tellsOfMemory);
    // Where it lasts, what follows a routine that has told of it may meet it again.
    EXPECT_GE(told, 1) << ::testing::PrintToString(messages);
    if (!fault.forever) {
      EXPECT_LE(told, 1) << ::testing::PrintToString(messages);
    }
  }
}

std::string describe(int n, const Fault& fault) {
  return "call " + std::to_string(n) + " (" + toCodePage(fault.call) + ") raises " +
         std::to_string(fault.number) + (fault.forever ? " for ever" : " once");
}

}  // namespace

void sweepCalls(const Operation& operation) {
  const State clean = cleanState(operation);
  int cases = 0;
  for (int n = 1;; ++n) {
    ASSERT_LT(n, mostCalls);
    const Fault probe =
        runWith(operation, [n](Rig& /*rig*/) { desktop().faults().failCall(n, 57); });
    if (!probe.happened) {
      EXPECT_EQ(probe.now, clean) << "a run without a fault is not like another one";
      break;
    }
    const std::vector<int> numbers = errorsOf(probe.call);
    if (numbers.empty()) {
      return;  // a call without a row; that has failed the test
    }
    for (const int number : numbers) {
      for (const bool forever : {false, true}) {
        Fault fault = runWith(
            operation, [=](Rig& /*rig*/) { desktop().faults().failCall(n, number, forever); });
        fault.number = number;
        fault.forever = forever;
        fault.clean = clean;
        if (operation.addOthersWork) {
          operation.addOthersWork(fault);
        }
        SCOPED_TRACE(describe(n, fault));
        EXPECT_EQ(fault.call, probe.call);
        check(operation, fault);
        ++cases;
        if (::testing::Test::HasFailure()) {
          return;  // one failing case is enough
        }
      }
    }
  }
  ASSERT_GT(cases, 0) << "the operation makes no call that can fail";
  countCases("calls that fail", operation.name, cases);
}

void sweepLooks(const Operation& operation) {
  const State clean = cleanState(operation);
  int cases = 0;
  for (const LookFault kind : {LookFault::findsNothing, LookFault::outOfMemory}) {
    for (const bool forever : {false, true}) {
      for (int n = 1;; ++n) {
        ASSERT_LT(n, mostCalls);
        Fault fault = runWith(operation,
                              [=](Rig& /*rig*/) { desktop().faults().failLook(n, kind, forever); });
        if (fault.looks < n) {
          break;
        }
        fault.clean = clean;
        fault.forever = forever;
        SCOPED_TRACE("look " + std::to_string(n) + (forever ? " for ever" : " once"));
        checkLook(operation, fault, kind);
        ++cases;
        if (::testing::Test::HasFailure()) {
          return;
        }
      }
    }
  }
  ASSERT_GT(cases, 0) << "the operation makes no call that only looks";
  countCases("calls that find nothing or run out of memory", operation.name, cases);
}

std::string nameOfTest(const ::testing::TestParamInfo<Operation>& info) {
  std::string name;
  bool capital = true;
  for (const char c : info.param.name) {
    if (c != ' ') {
      name += capital ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
    }
    capital = c == ' ';
  }
  return name;
}

}  // namespace faults
