// Undo and Redo: whatever call fails, a step is taken back as a whole or not at all, and another
// try completes it. And any operations, taken back one after the other, leave nothing behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <random>

#include "faults/allocations.h"
#include "faults/sweep.h"
#include "mainwindow/control_ids.h"
#include "platform/faults.h"
#include "platform/text.h"

namespace faults {
namespace {

using memory::desktop;
using platform::dialogs::Answer;
using undo::Way;

void command(Rig& rig, int id) {
  rig.main().commands.refresh();
  rig.main().commands.item(id).fireClick();
}

void eraseAnswering(Rig& rig) {
  desktop().answers = {Answer::yes};
  command(rig, ids::mnuDelete);
}

void rename(Rig& rig, const std::wstring& name) {
  desktop().inputAnswers = {name};
  command(rig, ids::mnuRename);
}

void paste(Rig& rig, frmQMK::Tab tab, const platform::clipboard::Content& content) {
  rig.main().TabMain.fireSwitch(tab);
  desktop().clipboard = content;
  command(rig, ids::mnuPaste);
}

/// An operation that can be taken back.
struct Tried {
  std::string name;
  std::function<void(Rig&)> run;
};

void PrintTo(const Tried& tried, std::ostream* out) { *out << tried.name; }

const std::vector<Tried>& operationsToUndo() {
  static const std::vector<Tried> all{
      {"DeleteAFile",
       [](Rig& rig) {
         rig.select(frmQMK::open, L"One.fp3");
         eraseAnswering(rig);
       }},
      {"DeleteAMissingFile",
       [](Rig& rig) {
         rig.select(frmQMK::open, L"Gone.fp3");
         eraseAnswering(rig);
       }},
      {"RenameAFile",
       [](Rig& rig) {
         rig.select(frmQMK::open, L"Two.bi3");
         rename(rig, L"Three");
       }},
      {"RemoveFromTheList",
       [](Rig& rig) {
         rig.select(frmQMK::open, L"One.fp3");
         command(rig, ids::mnuRemoveFromList);
       }},
      {"AddFiles",
       [](Rig& rig) {
         desktop().putFile(L"D:\\New.fp3", "new");
         paste(rig, frmQMK::open, {.text = {}, .files = {L"D:\\New.fp3", L"D:\\One.fp3"}});
       }},
      {"DeleteAWebShortcut",
       [](Rig& rig) {
         rig.select(frmQMK::web, L"Weather");
         eraseAnswering(rig);
       }},
      {"AddAnAddress", [](Rig& rig) { paste(rig, frmQMK::web, {.text = L"http://new.example"}); }},
      {"DeleteAShortcut",
       [](Rig& rig) {
         rig.select(frmQMK::tools, L"Calc");
         eraseAnswering(rig);
       }},
      {"RenameAShortcut",
       [](Rig& rig) {
         rig.select(frmQMK::tools, L"Calc");
         rename(rig, L"Sums");
       }},
      {"ReplaceAShortcutByRenaming",
       [](Rig& rig) {
         desktop().putFile(L"C:\\App\\shortcuts\\Sums.lnk", "an old one");
         rig.select(frmQMK::tools, L"Notes");
         rename(rig, L"Sums");
       }},
      {"AddAShortcut", [](Rig& rig) {
         paste(rig, frmQMK::tools, {.text = {}, .files = {L"C:\\Tools\\calc.exe"}});
       }}};
  return all;
}

/// Files by their paths, without those that a test puts there for an operation.
auto filesOf(Rig& rig) { return stateOf(rig.main()).files; }

class UndoFaults : public ::testing::TestWithParam<Tried> {
 protected:
  /// Brings a fresh desktop to the point where a step can go that way.
  static std::unique_ptr<Rig> prepared(Way way) {
    auto rig = std::make_unique<Rig>();
    GetParam().run(*rig);
    if (way == Way::again) {
      command(*rig, ids::mnuUndo);
    }
    desktop().messages.clear();
    desktop().errorReports.clear();
    return rig;
  }
  static int commandOf(Way way) { return way == Way::back ? ids::mnuUndo : ids::mnuRedo; }

  /// Lets every call of Undo or of Redo fail.
  static void sweep(Way way);
};

void UndoFaults::sweep(Way way) {
  const auto first = prepared(way);
  const auto before = filesOf(*first);
  command(*first, commandOf(way));
  const auto after = filesOf(*first);
  EXPECT_NE(before, after);
  int cases = 0;
  const auto tryWith = [&](int n, int number, bool forever) {
    const auto rig = prepared(way);
    desktop().faults().failCall(n, number, forever);
    command(*rig, commandOf(way));
    const auto failed = desktop().faults().failedCalls();
    desktop().faults().failNothing();
    desktop().messages.clear();
    desktop().errorReports.clear();
    if (failed.empty()) {
      return std::wstring();
    }
    ++cases;
    SCOPED_TRACE("call " + std::to_string(n) + " " +
                 platform::text::toCodePage(failed.front().what) + " raises " +
                 std::to_string(number) + (forever ? " for ever" : " once"));
    const auto now = filesOf(*rig);
    if (!forever) {
      EXPECT_TRUE(now == before || now == after) << ::testing::PrintToString(now);
    }
    for (const auto& [path, bytes] : now) {
      const auto one = before.find(path);
      const auto other = after.find(path);
      EXPECT_TRUE((one != before.end() && one->second == bytes) ||
                  (other != after.end() && other->second == bytes))
          << platform::text::toCodePage(path) << ": " << bytes;
    }
    // A step that stayed is completed by the next try.
    const bool done = !rig->main().history.canGo(way);
    rig->settle();
    if (!done) {
      command(*rig, commandOf(way));
    }
    EXPECT_EQ(filesOf(*rig), after);
    EXPECT_FALSE(rig->main().history.canGo(way));
    desktop().messages.clear();
    desktop().errorReports.clear();
    return failed.front().what;
  };
  for (int n = 1;; ++n) {
    const std::wstring call = tryWith(n, 57, false);
    if (call.empty() || HasFailure()) {
      break;
    }
    for (const int number : errorsOf(call)) {
      for (const bool forever : {false, true}) {
        tryWith(n, number, forever);
        if (HasFailure()) {
          return;
        }
      }
    }
  }
  EXPECT_GT(cases, 0);
  countCases("calls that fail in Undo and Redo", GetParam().name, cases);
}

TEST_P(UndoFaults, AStepIsTakenBackAsAWholeOrNotAtAll) { sweep(Way::back); }

TEST_P(UndoFaults, AStepIsDoneAgainAsAWholeOrNotAtAll) { sweep(Way::again); }

TEST_P(UndoFaults, WithoutMemoryNothingIsLost) {
  const auto first = prepared(Way::back);
  const auto before = filesOf(*first);
  const int start = [&] {
    const CountedAllocations counted;
    first->main().mnuUndo_Click();
    return allocations();
  }();
  const auto after = filesOf(*first);
  const int stride = strideFor(start);
  for (int n = 1; n <= start; n += stride) {
    const auto rig = prepared(Way::back);
    {
      const CountedAllocations counted;
      failAllocation(n);
      Rig::handle([&rig] { rig->main().mnuUndo_Click(); });
    }
    failAllocation(0);
    SCOPED_TRACE("allocation " + std::to_string(n));
    const auto now = filesOf(*rig);
    EXPECT_TRUE(now == before || now == after);
    rig->settle();
    if (rig->main().history.canGo(Way::back)) {
      command(*rig, ids::mnuUndo);
    }
    EXPECT_EQ(filesOf(*rig), after);
    desktop().messages.clear();
    desktop().errorReports.clear();
    if (HasFailure()) {
      return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Each, UndoFaults, ::testing::ValuesIn(operationsToUndo()),
                         [](const auto& tested) { return tested.param.name; });

/// Any operations on any entries.
class RandomSteps {
 public:
  RandomSteps(Rig& rig, unsigned seed) : rig_(rig), random_(seed) {}

  void operate() {
    const auto tab = std::array{frmQMK::tools, frmQMK::open, frmQMK::web}.at(below(3));
    rig_.main().TabMain.fireSwitch(tab);
    controls::ListView& list = rig_.main().lstQMK.at(tab);
    if (list.count() > 0) {
      list.select(below(list.count()));
    }
    switch (below(6)) {
      case 0:
        add(tab);
        break;
      case 1:
        desktop().inputAnswers = {L"n" + std::to_wstring(below(4))};
        if (tab != frmQMK::web && list.selected()) {
          command(rig_, ids::mnuRename);
        } else if (list.selected()) {
          renameSite();
        }
        break;
      case 2:
        command(rig_, ids::mnuRemoveFromList);
        break;
      case 3:
        command(rig_, ids::mnuUndo);
        break;
      case 4:
        command(rig_, ids::mnuRedo);
        break;
      default:
        if (list.selected()) {
          erase(rig_);
        }
        break;
    }
    desktop().inputAnswers.clear();
    desktop().answers.clear();
    desktop().messages.clear();
    desktop().errorReports.clear();
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }

  void add(frmQMK::Tab tab) {
    const std::wstring number = std::to_wstring(below(4));
    if (tab == frmQMK::web) {
      paste(rig_, tab, {.text = L"http://" + number + L".example"});
      return;
    }
    const std::wstring file =
        tab == frmQMK::open
            ? L"D:\\n" + number + L".fp3"
            : std::wstring(L"C:\\Tools\\") + (below(2) == 0 ? L"calc" : L"other") + L".exe";
    paste(rig_, tab, {.text = {}, .files = {file, L"D:\\One.fp3"}});
  }

  void renameSite() {
    command(rig_, ids::mnuRename);
    frmWeb& dialog = *rig_.main().webDialog();
    dialog.txtName.acceptTyped(L"n" + std::to_wstring(below(3)));
    dialog.cmdOK.fireClick();
  }

  Rig& rig_;
  std::mt19937 random_;
};

TEST(UndoAtRandom, AsManyUndosAsOperationsLeaveEveryFileAsItWas) {
  const char* const length = std::getenv("QMK_PROOF");
  const int sequences = length != nullptr && std::string_view(length) == "long" ? 100'000 : 400;
  constexpr int perDesktop = 100;
  std::unique_ptr<Rig> rig;
  for (int n = 0; n < sequences; ++n) {
    if (n % perDesktop == 0) {
      rig.reset();
      rig = std::make_unique<Rig>();
      for (const wchar_t digit : std::wstring_view(L"0123")) {
        desktop().putFile(std::wstring(L"D:\\n") + digit + L".fp3", "new");
      }
      desktop().putProgram(L"C:\\Tools\\other.exe");
    }
    SCOPED_TRACE("sequence " + std::to_string(n));
    rig->settle();
    rig->main().history = undo::History();
    const auto before = filesOf(*rig);
    RandomSteps steps(*rig, static_cast<unsigned>(n));
    // Each operation adds one step at the most, and the history keeps them all.
    for (int step = 0; step < static_cast<int>(undo::History::most); ++step) {
      steps.operate();
    }
    for (int step = 0; rig->main().history.canGo(Way::back); ++step) {
      ASSERT_LE(step, static_cast<int>(undo::History::most)) << "an undo failed";
      command(*rig, ids::mnuUndo);
    }
    ASSERT_EQ(filesOf(*rig), before);
    desktop().messages.clear();
    desktop().errorReports.clear();
  }
  std::cout << "figure: undo, random sequences of 20 operations: " << sequences << "\n";
}

}  // namespace
}  // namespace faults
