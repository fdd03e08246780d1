// Memory that runs out at any point of an operation, and lists whose native side refuses a change.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <set>
#include <string_view>

#include "faults/allocations.h"
#include "faults/sweep.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace faults {

using memory::desktop;

bool tellsOfMemory(const std::wstring& message) {
  return message.find(L"Run-time error '7':\r\n\r\nOut of memory") != std::wstring::npos ||
         message.find(L"\r7-Out of memory") != std::wstring::npos ||
         message.ends_with(L": Out of memory") ||
         message.ends_with(L": there is not enough memory");
}

namespace {

/// Whether a list shows only items that it showed before or shows after a run without a fault.
/// After a load that stopped in the middle, it shows some of them.
bool showsNothingElse(const Texts& now, const Texts& old, const Texts& clean) {
  return std::all_of(now.begin(), now.end(), [&](const std::wstring& item) {
    const auto in = [&item](const Texts& items) {
      return std::find(items.begin(), items.end(), item) != items.end();
    };
    return in(old) || in(clean);
  });
}

void expectListsShowNothingElse(const Operation& operation, const Fault& fault) {
  if (operation.listsAreRight && operation.listsAreRight(fault)) {
    return;
  }
  for (std::size_t n = 0; n < fault.now.lists.size(); ++n) {
    EXPECT_TRUE(showsNothingElse(fault.now.lists[n], fault.old.lists[n], fault.clean.lists[n]))
        << "list " << n << " shows " << ::testing::PrintToString(fault.now.lists[n]) << "\nbefore "
        << ::testing::PrintToString(fault.old.lists[n]) << "\nwithout a fault "
        << ::testing::PrintToString(fault.clean.lists[n]);
  }
}

}  // namespace

int strideFor(int all) {
  // With this many cases of each operation, all of them together take a few seconds.
  constexpr int sample = 40;
  const char* const length = std::getenv("QMK_PROOF");
  const bool every = length != nullptr && std::string_view(length) == "long";
  return every ? 1 : std::max(1, all / sample);
}

void checkOutOfMemory(const Operation& operation, const Fault& fault) {
  if (operation.goesOn && operation.goesOn(fault)) {
    return;
  }
  Fault whole = fault;
  if (operation.addOthersWork && fault.now.file(catalogueFile) != fault.old.file(catalogueFile)) {
    // The other program's change happened before the fault.
    whole.call = L"replace ";
    operation.addOthersWork(whole);
  }
  expectWholeFiles(whole, operation.mayBeGone);
  const Texts& messages = fault.now.messages;
  if (messages == fault.clean.messages) {
    // The program recovered without a message, so the fault must have no visible effect.
    EXPECT_EQ(fault.now.files, fault.clean.files);
    EXPECT_EQ(fault.now.lists, fault.clean.lists);
    EXPECT_EQ(fault.now.dialogOpen, fault.clean.dialogOpen);
    return;
  }
  EXPECT_EQ(std::count_if(messages.begin(), messages.end(), tellsOfMemory), 1)
      << ::testing::PrintToString(messages);
  for (const std::wstring& message : messages) {
    if (!tellsOfMemory(message)) {
      EXPECT_TRUE(isOneOf(message, fault.clean.messages));
    }
  }
  expectListsShowNothingElse(operation, fault);
  EXPECT_TRUE(isOneOf(fault.now.dialogOpen, {fault.old.dialogOpen, fault.clean.dialogOpen}))
      << "whether the web shortcut dialog is open";
}

void sweepMemory(const Operation& operation) {
  const auto runFailing = [&operation](int n) {
    return runWith(operation, [n](Rig& /*rig*/) { failAllocation(n); });
  };
  // The first run creates what exists once per program.
  static_cast<void>(runFailing(0));
  const Fault clean = runFailing(0);
  const int stride = strideFor(clean.allocations);
  int cases = 0;
  for (int n = 1;; n += stride) {
    Fault fault = runFailing(n);
    if (!fault.happened) {
      EXPECT_EQ(fault.now, clean.now) << "a run without a fault is not like another one";
      break;
    }
    fault.number = platform::error::outOfMemory;
    fault.clean = clean.now;
    SCOPED_TRACE("allocation " + std::to_string(n));
    checkOutOfMemory(operation, fault);
    ++cases;
    if (::testing::Test::HasFailure()) {
      return;  // one failing case is enough
    }
  }
  ASSERT_GT(cases, 0) << "the operation needs no memory";
  countCases("memory that runs out", operation.name, cases);
}

namespace {

/// Counts the changes of which the lists of a window notify their peers, and lets one be refused.
struct Refusal {
  int changes = 0;
  int refuseAt = 0;
  bool refused = false;
};

/// Peer of a list that may refuse a change.
class RefusingPeer : public controls::ListViewPeer {
 public:
  RefusingPeer(controls::ListView& list, Refusal& refusal) : list_(&list), refusal_(refusal) {
    list_->attach(this);
  }
  RefusingPeer(const RefusingPeer&) = delete;
  RefusingPeer& operator=(const RefusingPeer&) = delete;
  ~RefusingPeer() override {
    if (list_ != nullptr) {
      list_->attach(nullptr);
    }
  }

  void changed(controls::Change /*change*/) override {
    if (++refusal_.changes == refusal_.refuseAt) {
      refusal_.refused = true;
      throw platform::RunTimeError(platform::error::outOfMemory);
    }
  }
  void orphaned() override { list_ = nullptr; }
  [[nodiscard]] std::size_t topIndex() const override { return top_; }
  void scrollTo(std::size_t index) override { top_ = index; }
  [[nodiscard]] controls::RowRange rowsInView() const override {
    return {0, list_ == nullptr ? 0 : list_->rows()};
  }

 private:
  controls::ListView* list_;
  Refusal& refusal_;
  std::size_t top_ = 0;
};

}  // namespace

void sweepPeers(const Operation& operation) {
  Refusal refusal;
  const auto runRefusing = [&](int n) {
    std::vector<std::unique_ptr<RefusingPeer>> peers;
    refusal = {.changes = 0, .refuseAt = n};
    return runWith(
        operation,
        [&](Rig& rig) {
          for (controls::ListView& list : rig.main().lstQMK) {
            peers.push_back(std::make_unique<RefusingPeer>(list, refusal));
          }
        },
        [&peers] { peers.clear(); });
  };
  const State clean = runRefusing(0).now;
  int cases = 0;
  for (int n = 1;; ++n) {
    Fault fault = runRefusing(n);
    if (!refusal.refused) {
      break;
    }
    fault.number = platform::error::outOfMemory;
    fault.clean = clean;
    SCOPED_TRACE("change " + std::to_string(n));
    checkOutOfMemory(operation, fault);
    ++cases;
    if (::testing::Test::HasFailure()) {
      return;
    }
  }
  if (cases > 0) {  // not every operation touches a list
    countCases("lists whose native side refuses", operation.name, cases);
  }
}

}  // namespace faults
