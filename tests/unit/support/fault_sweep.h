// Makes every single platform call of an operation fail once.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "platform/desktop.h"
#include "platform/faults.h"
#include "platform/text.h"

namespace unit {

/// What one run of an operation met with.
struct Fault {
  bool happened = false;  ///< False in the last run, in which all went well.
  int number = 0;         ///< Number of the error that the call raised.
  std::wstring call;      ///< The call that failed, as the journal has it.
  [[nodiscard]] bool was(const std::wstring& beginning) const {
    return happened && call.starts_with(beginning);
  }
};

/// What a list file may hold after a run, and what has to be said about it, is up to the test.
struct Sweep {
  std::function<void()> prepare;
  std::function<void()> operation;
  std::function<void(const Fault&)> check;
};

/// Runs the operation once for each of its platform calls, with that call failing, and at last
/// once without a failure; and all this for several error numbers. `calls` is the number of calls
/// that the operation has at least.
inline void sweepFaults(int calls, const Sweep& sweep) {
  constexpr int mostCalls = 100;
  for (const int number : {57, 61, 70, 75}) {
    bool happened = true;
    for (int n = 1; happened; ++n) {
      ASSERT_LT(n, mostCalls);
      desktop::desktop().faults().failNothing();
      sweep.prepare();
      desktop::desktop().clearJournal();
      desktop::desktop().messages.clear();
      desktop::desktop().faults().failCall(n, number);
      const int before = desktop::desktop().faults().calls();
      sweep.operation();
      happened = desktop::desktop().faults().calls() - before >= n;
      desktop::desktop().faults().failNothing();
      Fault fault{happened, number, L""};
      const std::wstring mark = L" failed " + std::to_wstring(number);
      for (const std::wstring& line : desktop::desktop().journal()) {
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
