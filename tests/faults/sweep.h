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

/// The program's main window on a fresh in-memory desktop with both list files, data files and
/// shortcuts. The lists are filled.
class Rig {
 public:
  /// `prepare` runs on the empty desktop, before there is a window.
  explicit Rig(const std::function<void()>& prepare = {});
  frmQMK& main() { return *main_; }
  /// Fills the lists again and clears the messages and the journal.
  void settle();
  void select(frmQMK::Tab tab, const std::wstring& text);
  /// Lets work in the background end.
  void finishBackground();
  /// Runs a step like an event handler.
  static void handle(const std::function<void()>& step);

 private:
  std::unique_ptr<frmQMK> main_;
};

/// For what a test itself does to the desktop during an operation. Memory never runs out in it.
template <class Step>
void script(Step step) {
  const memory::Unfailing own;
  step();
}

/// The state after a run.
struct State {
  std::map<std::wstring, std::string> files;  ///< All of them, by path.
  std::vector<Texts> lists;                   ///< The items of the four lists with sub-items.
  Texts messages;  ///< Message boxes, and then the news of the status line, if there are any.
  bool dialogOpen = false;  ///< The web shortcut dialog.
  [[nodiscard]] std::string file(const std::wstring& path) const;
  bool operator==(const State&) const = default;
};

/// The fault of a run.
struct Fault {
  bool happened = false;
  std::wstring call;      ///< Line of the journal, "" for a call that has none.
  std::wstring path;      ///< File or folder that the error names, "" for none.
  std::wstring lastPath;  ///< The same for the last call that failed.
  int number = 0;
  bool forever = false;
  std::vector<std::wstring> before;  ///< The journal up to the call.
  State old;                         ///< State before the run.
  State clean;                       ///< State that a run without the fault leaves.
  State now;
  std::size_t failures = 0;  ///< Calls of the run that failed.
  int looks = 0;             ///< Calls of the run that only looked.
  int allocations = 0;       ///< Number of allocations of the run.
  [[nodiscard]] bool was(const std::wstring& beginning) const {
    return call.starts_with(beginning);
  }
  /// Whether the journal before the call has a line with that beginning and end.
  [[nodiscard]] bool followed(const std::wstring& beginning, const std::wstring& end) const;
  /// "57-Device I/O error".
  [[nodiscard]] std::wstring reason() const;
  /// Whether the call reads a list file, in order to show it, after it was written.
  [[nodiscard]] bool inReload() const;
};

// The messages that report a fault.
[[nodiscard]] std::wstring errorReport(const Fault& fault);
[[nodiscard]] std::wstring savingProblem(const Fault& fault);
[[nodiscard]] std::wstring catalogueProblem(const Fault& fault);
[[nodiscard]] std::wstring webListProblem(const Fault& fault);
/// The message of a fault in an operation that traps nothing, or in the reload after it.
[[nodiscard]] std::wstring untrapped(const Fault& fault);
/// The message of a fault in an operation that reports a problem with saving.
[[nodiscard]] std::wstring trapped(const Fault& fault);

/// An operation that is swept.
struct Operation {
  std::string name;
  std::function<void(Rig&)> prepare;
  std::function<void(Rig&)> run;
  /// Messages that must be shown when the operation could not be done as requested.
  std::function<Texts(const Fault&)> told = {};
  /// Whether the lists are right in that case. By default they have what they had before, or the
  /// list whose reload failed is empty.
  std::function<bool(const Fault&)> listsAreRight = {};
  /// Whether the web shortcut dialog is right in that case; by default it is unchanged.
  std::function<bool(const Fault&)> dialogIsRight = {};
  /// Whether the operation continues despite this fault, to a normal end, which is checked.
  std::function<bool(const Fault&)> goesOn = {};
  /// Adds to `old` what another program did meanwhile.
  std::function<void(Fault&)> addOthersWork = {};
  /// Files that may be missing although they existed before and would exist afterwards.
  std::function<bool(const std::wstring&)> mayBeGone = {};
};

/// The state before the operation is already there.
inline void prepareNothing(Rig& /*rig*/) {}

/// The name of an operation as that of its test: each word with a capital, without blanks.
[[nodiscard]] std::string nameOfTest(const ::testing::TestParamInfo<Operation>& info);

/// For GoogleTest, which would otherwise print the bytes of the object.
inline void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

/// Sweeps the calls that can raise errors. The number of cases is added to the figures.
void sweepCalls(const Operation& operation);
/// Sweeps the calls that only read: they find nothing, or memory runs out in them.
void sweepLooks(const Operation& operation);

/// Lets memory run out at the first, the second, the third ... allocation; in the short form of the
/// proofs at a sample of them.
void sweepMemory(const Operation& operation);
/// Lets the native side of the lists refuse the first, the second, the third ... change.
void sweepPeers(const Operation& operation);

/// One run of an operation on a fresh desktop, between `inject` and `lift`. Memory is counted
/// meanwhile.
[[nodiscard]] Fault runWith(const Operation& operation, const std::function<void(Rig&)>& inject,
                            const std::function<void()>& lift = {});
/// The state that a run without a fault leaves.
[[nodiscard]] State cleanState(const Operation& operation);
/// Checks a run in which `error::outOfMemory` was raised, at any point.
void checkOutOfMemory(const Operation& operation, const Fault& fault);
/// Whether a message reports that memory ran out, in the error report or in the routine's own
/// message.
[[nodiscard]] bool tellsOfMemory(const std::wstring& message);
/// A sweep over `all` cases takes every n-th one; this is n. In the long form of the proofs it is
/// 1.
[[nodiscard]] int strideFor(int all);

/// Returns the present state of the desktop and the window.
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
/// Checks that adding to both lists and showing all lists works.
void expectNextOperationsWork(frmQMK& main);
/// Puts list files, data files, programs and shortcuts on a fresh desktop.
void layOutDisk();
/// Adds to the figures that are printed at the end.
void countCases(const std::string& kind, const std::string& operation, int cases);

}  // namespace faults
