// The start and the end of the program, with every call failing in turn.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

#include "faults/allocations.h"
#include "faults/sweep.h"
#include "platform/faults.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "startup/startup.h"

namespace faults {
namespace {

using memory::desktop;
using modSystem::Gateway;

const std::string example = record("CW3", "C:\\App\\data\\CWIexample.cw3", "11/20/2026");

/// One start; nothing in `now` when it ended early.
struct Start {
  Fault fault;
  bool up = false;
  bool notCopied = false;  ///< A copy of the lists could not be made, which the status line tells.
};

/// `partly`: a step that fills a list may have ended early.
Start startWith(const std::function<void()>& inject, bool partly = false) {
  desktop().reset();
  desktop().onMistake = [](const std::string& what) { ADD_FAILURE() << what; };
  layOutDisk();
  const auto gateway = std::make_unique<Gateway>();
  Start start;
  start.fault.old = stateOf(gateway->main);
  inject();
  {
    const CountedAllocations counted;
    start.up = gateway->start();
  }
  start.fault.allocations = allocations();
  const bool outOfMemory = allocationFailed();
  failAllocation(0);
  desktop().faults().failNothing();
  start.fault.looks = desktop().faults().looks();
  start.fault.happened = outOfMemory || !desktop().faults().failedCalls().empty();
  if (!desktop().faults().failedCalls().empty()) {
    start.fault.call = desktop().faults().failedCalls().front().what;
  }
  start.fault.now = stateOf(gateway->main);
  start.notCopied = gateway->main.keeper.takeFailure().has_value();
  EXPECT_EQ(gateway->main.visible(), start.up);
  if (start.up) {
    EXPECT_TRUE(gateway->main.tmrFileUpdate.enabled());
    EXPECT_EQ(gateway->main.TabMain.current(), frmQMK::tools);
    if (!partly) {
      EXPECT_EQ(gateway->main.lstQMK[frmQMK::newFiles].count(), 4U);
    }
    expectNextOperationsWork(gateway->main);
  } else {
    // Each failure is told but for those of removing an obsolete shortcut; memory that ran out is
    // no failed call.
    const auto& failed = desktop().faults().failedCalls();
    const auto told = std::count_if(failed.begin(), failed.end(), [](const auto& call) {
      return !call.what.starts_with(L"remove " + shortcutsFolder);
    });
    EXPECT_EQ(start.fault.now.messages.size(),
              std::max<std::size_t>(1, static_cast<std::size_t>(told)));
  }
  return start;
}

/// With `overlooked`, a search did not find an existing file. A catalogue that seems to be missing
/// is built again, after its existing records.
void checkStart(const Start& start, const State& clean, bool overlooked = false) {
  const State& old = start.fault.old;
  const State& now = start.fault.now;
  const std::string catalogue = now.file(catalogueFile);
  const std::string formerly = old.file(catalogueFile);
  if (!overlooked || !catalogue.starts_with(formerly)) {
    EXPECT_TRUE(isOneOf(catalogue, {formerly, clean.file(catalogueFile), formerly + example}));
  }
  EXPECT_EQ(now.file(webListFile), old.file(webListFile));
  for (const auto& [path, bytes] : old.files) {
    if (path != catalogueFile) {
      EXPECT_EQ(now.file(path), bytes) << platform::text::toCodePage(path);
    }
  }
}

TEST(StartUpFaults, NoCallThatFailsLosesAnythingAndTheStartGoesOnAsFarAsItCan) {
  const State clean = startWith([] {}).fault.now;
  int cases = 0;
  for (int n = 1;; ++n) {
    const Start probe = startWith([n] { desktop().faults().failCall(n, 57); });
    if (!probe.fault.happened) {
      EXPECT_EQ(probe.fault.now, clean);
      break;
    }
    const std::vector<int> numbers = errorsOf(probe.fault.call);
    if (numbers.empty()) {
      return;  // a call without a row; that has failed the test
    }
    for (const int number : numbers) {
      for (const bool forever : {false, true}) {
        const Start start = startWith([=] { desktop().faults().failCall(n, number, forever); });
        SCOPED_TRACE("call " + std::to_string(n) + " (" +
                     platform::text::toCodePage(start.fault.call) + ") raises " +
                     std::to_string(number) + (forever ? " for ever" : " once"));
        checkStart(start, clean);
        // Errors are ignored only when obsolete shortcuts are removed. A list that is missing has
        // no copy.
        EXPECT_TRUE(!start.fault.now.messages.empty() || start.notCopied ||
                    start.fault.was(L"remove " + shortcutsFolder) ||
                    (number == platform::error::fileNotFound && start.fault.was(L"read ")));
        ++cases;
        if (HasFailure()) {
          return;
        }
      }
    }
  }
  ASSERT_GT(cases, 0);
  countCases("calls that fail", "start-up", cases);
}

TEST(StartUpFaults, NothingIsLostWhenACallFindsNothingOrMemoryRunsOut) {
  using LookFault = memory::Faults::LookFault;
  const State clean = startWith([] {}).fault.now;
  int cases = 0;
  for (const LookFault kind : {LookFault::findsNothing, LookFault::outOfMemory}) {
    for (const bool forever : {false, true}) {
      for (int n = 1;; ++n) {
        const Start start = startWith([=] { desktop().faults().failLook(n, kind, forever); });
        if (start.fault.looks < n) {
          break;
        }
        SCOPED_TRACE("look " + std::to_string(n) + (forever ? " for ever" : " once"));
        checkStart(start, clean, kind == LookFault::findsNothing);
        ++cases;
        if (HasFailure()) {
          return;
        }
      }
    }
  }
  ASSERT_GT(cases, 0);
  countCases("calls that find nothing or run out of memory", "start-up", cases);
}

TEST(StartUpFaults, NothingIsLostWhenMemoryRunsOutAnywhere) {
  const auto startFailing = [](int n) { return startWith([n] { failAllocation(n); }, n != 0); };
  static_cast<void>(startFailing(0));  // creates what exists once per program
  const Fault clean = startFailing(0).fault;
  const int stride = strideFor(clean.allocations);
  int cases = 0;
  for (int n = 1;; n += stride) {
    const Start start = startFailing(n);
    if (!start.fault.happened) {
      EXPECT_EQ(start.fault.now, clean.now);
      break;
    }
    SCOPED_TRACE("allocation " + std::to_string(n));
    checkStart(start, clean.now);
    const Texts& messages = start.fault.now.messages;
    EXPECT_LE(messages.size(), 1U);
    EXPECT_TRUE(std::all_of(messages.begin(), messages.end(), tellsOfMemory))
        << ::testing::PrintToString(messages);
    if (messages.empty()) {
      // The program recovered without a message, so the fault must have no visible effect.
      EXPECT_EQ(start.fault.now, clean.now);
    }
    ++cases;
    if (HasFailure()) {
      return;
    }
  }
  ASSERT_GT(cases, 0);
  countCases("memory that runs out", "start-up", cases);
}

TEST(ClosingFaults, TheWindowClosesWhenMemoryRunsOut) {
  int cases = 0;
  for (int n = 1;; ++n) {
    Rig rig;
    desktop().answers = {platform::dialogs::Answer::yes};
    const State old = stateOf(rig.main());
    failAllocation(n);
    bool closed = false;
    {
      const CountedAllocations counted;
      closed = rig.main().fireClose(controls::UnloadMode::user);
    }
    const bool failed = allocationFailed();
    failAllocation(0);
    EXPECT_EQ(stateOf(rig.main()).files, old.files);
    EXPECT_EQ(rig.main().loaded(), !closed);
    EXPECT_EQ(desktop().errorReports, failed ? std::vector<int>{7} : std::vector<int>{});
    if (!closed) {
      // The question could not be asked.
      EXPECT_TRUE(failed);
      EXPECT_EQ(desktop().answers.size(), 1U);
      EXPECT_TRUE(rig.main().fireClose(controls::UnloadMode::user));
    }
    if (!failed || ::testing::Test::HasFailure()) {
      break;
    }
    ++cases;
  }
  ASSERT_GT(cases, 0);
  countCases("memory that runs out", "closing", cases);
}

TEST(ClosingFaults, WhatCannotBeRememberedIsToldAndTheWindowCloses) {
  int cases = 0;
  for (const bool forever : {false, true}) {
    for (int n = 1;; ++n) {
      Rig rig;
      desktop().answers = {platform::dialogs::Answer::yes};
      const State old = stateOf(rig.main());
      desktop().faults().failCall(n, 75, forever);
      EXPECT_TRUE(rig.main().unload());
      desktop().faults().failNothing();
      EXPECT_FALSE(rig.main().loaded());
      EXPECT_EQ(stateOf(rig.main()).files, old.files);
      if (desktop().faults().failedCalls().empty()) {
        EXPECT_EQ(desktop().errorReports.size(), 0U);
        break;
      }
      EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
      ++cases;
    }
  }
  ASSERT_GT(cases, 0);
  countCases("calls that fail", "closing", cases);
}

}  // namespace
}  // namespace faults
