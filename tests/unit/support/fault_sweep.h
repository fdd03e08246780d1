// Makes every single platform call of an operation fail once.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "listfile/list_keeper.h"
#include "platform/desktop.h"
#include "platform/faults.h"
#include "platform/text.h"

namespace unit {

/// The fault of one run of an operation.
struct Fault {
  bool happened = false;  ///< False in the last run, which has no fault.
  int number = 0;         ///< Number of the error that the call raised.
  std::wstring call;      ///< The journal's line of the call that failed.
  [[nodiscard]] bool was(const std::wstring& beginning) const {
    return happened && call.starts_with(beginning);
  }
};

/// The test itself checks the list files and the messages after each run.
struct Sweep {
  std::function<void()> prepare;
  std::function<void()> operation;
  std::function<void(const Fault&)> check;
};

/// Runs the operation once for each of its platform calls, with that call failing, and finally once
/// without a failure. Repeats this for several error numbers. The operation must have at least
/// `calls` calls.
inline void sweepFaults(int calls, const Sweep& sweep) {
  constexpr int mostCalls = 100;
  for (const int number : {57, 61, 70, 75}) {
    bool happened = true;
    for (int n = 1; happened; ++n) {
      ASSERT_LT(n, mostCalls);
      memory::desktop().faults().failNothing();
      sweep.prepare();
      // What could not be read in the run before would be kept in this one.
      for (const kept_lists::Which list : kept_lists::both) {
        if (modQMKGeneral::ListKeeper* const keeper = modQMKGeneral::ListKeeper::current()) {
          keeper->wrote(list, 0);
        }
      }
      memory::desktop().clearJournal();
      memory::desktop().messages.clear();
      memory::desktop().faults().failCall(n, number);
      const int before = memory::desktop().faults().calls();
      sweep.operation();
      happened = memory::desktop().faults().calls() - before >= n;
      memory::desktop().faults().failNothing();
      Fault fault{happened, number, L""};
      const std::wstring mark = L" failed " + std::to_wstring(number);
      for (const std::wstring& line : memory::desktop().journal()) {
        if (line.ends_with(mark)) {
          fault.call = line;
        }
      }
      SCOPED_TRACE("call " + std::to_string(n) + ", error " + std::to_string(number) + ": " +
                   platform::text::toCodePage(fault.call));
      ASSERT_TRUE(!happened || !fault.call.empty());
      sweep.check(fault);
      if (!happened) {
        ASSERT_GT(n, calls) << "the operation has fewer calls than expected";
      }
    }
  }
}

}  // namespace unit
