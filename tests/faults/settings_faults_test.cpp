// A copy of the program that is carried around: its settings, and its drive with another letter,
// with every call failing in turn.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "faults/allocations.h"
#include "faults/sweep.h"
#include "platform/faults.h"
#include "platform/text.h"
#include "settings/store.h"
#include "startup/startup.h"

namespace faults {
namespace {

using memory::desktop;
using modSystem::Gateway;
using platform::dialogs::Answer;

const std::wstring settingsFile = L"F:\\Suite\\gateway3.ini";
const std::wstring catalogueOnStick = L"F:\\Suite\\QMKFileList3.txt";
const std::string before = "; note\r\n[General]\r\nCWIExample=True\r\nDrive=E:\r\n";

std::string bytesOf(const std::wstring& path) { return desktop().bytesOf(path).value_or("(none)"); }

std::string listOn(const std::string& drive) {
  return record("FP3", drive + "\\Field\\1.fp3", "1/1/2026") +
         record("BI3", drive + "\\Field\\2.bi3", "1/2/2026");
}

void layOutStick() {
  desktop().reset();
  desktop().onMistake = [](const std::string& what) { ADD_FAILURE() << what; };
  desktop().applicationFolder = L"F:\\Suite";
  desktop().putFolder(L"C:\\Users\\Ann\\Documents");
  desktop().putFolder(L"F:\\Suite\\data");
  desktop().putFile(L"F:\\Field\\1.fp3", "one");
  desktop().putFile(L"F:\\Field\\2.bi3", "two");
  desktop().putFile(catalogueOnStick, listOn("E:"));
  desktop().putFile(settingsFile, before);
}

/// Runs `once` with the first, the second ... call failing with each of its errors, until no call
/// is left. `once` gets what lets the call fail, and returns false to end the sweep.
void sweep(const std::string& name, const std::function<void(const std::function<void()>&)>& once) {
  int cases = 0;
  for (int n = 1;; ++n) {
    std::wstring call;
    once([n] { desktop().faults().failCall(n, 57); });
    if (desktop().faults().failedCalls().empty()) {
      break;
    }
    call = desktop().faults().failedCalls().front().what;
    for (const int number : errorsOf(call)) {
      for (const bool forever : {false, true}) {
        SCOPED_TRACE("call " + std::to_string(n) + " (" + platform::text::toCodePage(call) +
                     ") raises " + std::to_string(number) + (forever ? " for ever" : " once"));
        once([=] { desktop().faults().failCall(n, number, forever); });
        ++cases;
        if (::testing::Test::HasFailure()) {
          return;
        }
      }
    }
  }
  ASSERT_GT(cases, 0);
  countCases("calls that fail", name, cases);
}

TEST(SettingsFaults, TheFileIsWrittenWholeOrNotAtAll) {
  sweep("settings in a file", [](const std::function<void()>& inject) {
    layOutStick();
    inject();
    settings::Store store;
    const bool kept = store.keep({{L"Drive", L"F:"}, {L"Placement", L"1 2 3"}});
    desktop().faults().failNothing();
    const std::string after =
        "; note\r\n[General]\r\nCWIExample=True\r\nDrive=F:\r\nPlacement=1 2 3\r\n";
    EXPECT_EQ(bytesOf(settingsFile), kept ? after : before);
    EXPECT_TRUE(store.keep({{L"Drive", L"F:"}, {L"Placement", L"1 2 3"}}));
    EXPECT_EQ(bytesOf(settingsFile), after);
    EXPECT_FALSE(desktop().setting(L"General", L"Drive").has_value());
  });
}

/// A start at another letter, until nothing more happens, and what must be true after each fault.
void startAtNewLetter(const std::function<void()>& inject) {
  layOutStick();
  const auto gateway = std::make_unique<Gateway>();
  desktop().answers.assign(20, Answer::yes);
  inject();
  {
    const CountedAllocations counted;
    if (gateway->start()) {
      desktop().advance(500);
    }
  }
  desktop().faults().failNothing();
  EXPECT_TRUE(isOneOf(bytesOf(catalogueOnStick), {listOn("E:"), listOn("F:")}));
  const std::string settings = bytesOf(settingsFile);
  const std::string now = "; note\r\n[General]\r\nCWIExample=True\r\nDrive=F:\r\n";
  EXPECT_TRUE(isOneOf(settings, {before, now}));
  EXPECT_FALSE(desktop().setting(L"General", L"Drive").has_value());
}

TEST(SettingsFaults, AnotherLetterIsFollowedOrNot) {
  sweep("start at another letter", startAtNewLetter);
}

TEST(SettingsFaults, ANewLetterAndMemoryThatRunsOut) {
  const auto startFailing = [](int n) { startAtNewLetter([n] { failAllocation(n); }); };
  startFailing(0);  // creates what exists once per program
  int cases = 0;
  for (int n = 1, stride = 1;; n += stride) {
    SCOPED_TRACE("allocation " + std::to_string(n));
    startFailing(n);
    if (!allocationFailed() || HasFailure()) {
      break;
    }
    stride = strideFor(allocations());
    ++cases;
  }
  failAllocation(0);
  ASSERT_GT(cases, 0);
  countCases("memory that runs out", "start at another letter", cases);
}

}  // namespace
}  // namespace faults
