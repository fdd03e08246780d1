// Makes every platform call of an operation fail, once and from then on, with every error that the
// call can raise, and checks each time that nothing is lost.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "platform/desktop.h"
#include "platform/unfailing.h"

namespace faults {

using Texts = std::vector<std::wstring>;

inline const std::wstring catalogueFile = L"C:\\App\\QMKFileList3.txt";
inline const std::wstring webListFile = L"C:\\App\\QMKWebList.txt";
inline const std::wstring temporaryFile = L"C:\\App\\qmklist.tmp";
inline const std::wstring shortcutsFolder = L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts";

/// A record as the program writes it.
[[nodiscard]] std::string record(const std::string& first, const std::string& second);
[[nodiscard]] std::string record(const std::string& first, const std::string& second,
                                 const std::string& third);

/// The program's main window as it stands on a fresh desktop with both list files, data files and
/// shortcuts, the lists filled.
class Bench {
 public:
  Bench();
  frmQMK& main() { return *main_; }
  /// Fills the lists anew and forgets what was shown and noted on the way.
  void settle();
  void select(frmQMK::Tab tab, const std::wstring& text);
  /// Runs a step as a handler of an event.
  static void handle(const std::function<void()>& step);

 private:
  std::unique_ptr<frmQMK> main_;
};

/// What a test itself does to the desktop in the middle of an operation; memory never runs out in
/// it.
template <class Step>
void script(Step step) {
  const desktop::Unfailing own;
  step();
}

/// What there is after a run.
struct State {
  std::map<std::wstring, std::string> files;  ///< All of them, by path.
  std::vector<Texts> lists;                   ///< The items of the four lists with sub-items.
  Texts messages;
  bool dialogOpen = false;  ///< The web shortcut dialog.
  [[nodiscard]] std::string file(const std::wstring& path) const;
  bool operator==(const State&) const = default;
};

/// What a run met with.
struct Fault {
  bool happened = false;
  std::wstring call;      ///< Line of the journal, "" for a call that has none.
  std::wstring path;      ///< File or folder that the error names, "" for none.
  std::wstring lastPath;  ///< The same of the last call that failed.
  int number = 0;
  bool forever = false;
  std::vector<std::wstring> before;  ///< The journal up to the call.
  State old;                         ///< What there was before the run.
  State clean;                       ///< What there would be without the fault.
  State now;
  std::size_t failures = 0;  ///< Calls of the run that failed.
  int looks = 0;             ///< Calls of the run that only looked.
  int allocations = 0;       ///< What the run asked memory for, in number.
  [[nodiscard]] bool was(const std::wstring& beginning) const {
    return call.starts_with(beginning);
  }
  /// Whether a line of the journal before the call begins and ends like that.
  [[nodiscard]] bool followed(const std::wstring& beginning, const std::wstring& end) const;
  /// "57-Device I/O error".
  [[nodiscard]] std::wstring reason() const;
  /// Whether it is the reading of a list file that was written before, to show it.
  [[nodiscard]] bool inReload() const;
};

// The messages that tell of a fault.
[[nodiscard]] std::wstring errorReport(const Fault& fault);
[[nodiscard]] std::wstring savingProblem(const Fault& fault);
[[nodiscard]] std::wstring catalogueProblem(const Fault& fault);
[[nodiscard]] std::wstring webListProblem(const Fault& fault);
/// The message of a fault in an operation that traps nothing, or in the reload behind it.
[[nodiscard]] std::wstring untrapped(const Fault& fault);
/// The message of a fault in an operation that tells of a problem with saving.
[[nodiscard]] std::wstring trapped(const Fault& fault);

/// An operation that is swept.
struct Operation {
  std::string name;
  std::function<void(Bench&)> prepare;
  std::function<void(Bench&)> run;
  /// Messages that have to be shown when the operation could not be done as asked.
  std::function<Texts(const Fault&)> told = {};
  /// What the lists may hold then; by default what they held before, or nothing in the list whose
  /// reload failed.
  std::function<bool(const Fault&)> listsAreRight = {};
  /// Whether the web shortcut dialog may be as it is then; by default it is as it was before.
  std::function<bool(const Fault&)> dialogIsRight = {};
  /// Whether this fault is none: the operation goes on, to an end of its own, which is checked.
  std::function<bool(const Fault&)> goesOn = {};
  /// Puts into `old` what another program did meanwhile.
  std::function<void(Fault&)> addOthersWork = {};
  /// Files that may be gone although they were there and would be there again.
  std::function<bool(const std::wstring&)> mayBeGone = {};
};

/// For GoogleTest, which would otherwise print the bytes of the object.
inline void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

/// Sweeps the calls that can raise errors. The number of cases is added to the figures.
void sweepCalls(const Operation& operation);
/// Sweeps the calls that only look: they find nothing, or memory runs out in them.
void sweepLooks(const Operation& operation);

/// Lets memory run out at the first, the second, the third ... thing that is asked for; in the
/// short form of the proofs at a sample of them.
void sweepMemory(const Operation& operation);
/// Lets the native side of the lists refuse the first, the second, the third ... change.
void sweepPeers(const Operation& operation);

/// One run of an operation on a fresh desktop, between `inject` and `lift`; memory is counted
/// meanwhile.
[[nodiscard]] Fault runWith(const Operation& operation, const std::function<void(Bench&)>& inject,
                            const std::function<void()>& lift = {});
/// What a run without a fault leaves.
[[nodiscard]] State cleanState(const Operation& operation);
/// Checks a run that met with error 7 in whatever place.
void checkOutOfMemory(const Operation& operation, const Fault& fault);
/// Whether a message tells that memory ran out, in the report or in a routine's own sentence.
[[nodiscard]] bool tellsOfMemory(const std::wstring& message);
/// Every how-manieth of `all` cases a sweep takes: each in the long form of the proofs.
[[nodiscard]] int strideFor(int all);

/// Takes stock of the desktop and the window.
[[nodiscard]] State stateOf(const frmQMK& main);
/// Numbers that a call can raise, by its line in the journal. A call that the table does not know
/// fails the test: who adds a call to the platform adds its row.
[[nodiscard]] std::vector<int> errorsOf(const std::wstring& call);
/// Whether `value` is one of those; a failure shows it and them.
template <class Value>
[[nodiscard]] ::testing::AssertionResult isOneOf(const Value& value,
                                                 const std::vector<Value>& allowed) {
  if (std::find(allowed.begin(), allowed.end(), value) != allowed.end()) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << ::testing::PrintToString(value) << " is none of " << ::testing::PrintToString(allowed);
}
/// Checks that every file is as it was before or as a run without a fault leaves it.
void expectWholeFiles(const Fault& fault,
                      const std::function<bool(const std::wstring&)>& mayBeGone = {});
/// Checks that adding to both lists and showing all works.
void expectNextOperationsWork(frmQMK& main);
/// Puts list files, data files, programs and shortcuts on a fresh desktop.
void layOutDisk();
/// Adds to the figures that are printed at the end.
void countCases(const std::string& kind, const std::string& operation, int cases);

}  // namespace faults
