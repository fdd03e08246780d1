// A question or a dialog of the window on the in-memory desktop, and what happens before its
// answer.
#pragma once

#include <functional>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "faults/sweep.h"
#include "platform/desktop_test.h"

namespace faults {

/// The items that a list must show for a list file, each with its cells in one text.
[[nodiscard]] std::multiset<std::wstring> itemsOf(const std::wstring& path);
/// Path of a shortcut of that name.
[[nodiscard]] std::wstring linkPath(const std::wstring& name);

/// Asks a question, lets other things happen and answers, round by round.
class Between : public ::memory::DesktopTest {
 protected:
  void round(unsigned seed);
  int changes_ = 0;
  int gone_ = 0;
  int done_ = 0;
  std::map<std::string, int> asked_;
  std::string asking_;

 private:
  /// A question, and what its answer may do.
  struct Question {
    std::string name;
    frmQMK::Tab tab;
    std::function<void()> ask;
    bool namesItem = true;
  };
  std::size_t below(std::size_t most) { return random_() % most; }
  bool oneIn(unsigned n) { return random_() % n == 0; }
  std::string someRecords(const std::vector<std::string>& known);
  void layOut();
  std::vector<Question> questions();
  bool selectSome(frmQMK::Tab tab);
  void answer(platform::dialogs::Answer answer);
  void type(const std::wstring& text);
  void confirmDialog();

  void change();
  void otherProgram();
  void filesChange();
  void windowChange();
  /// Called while a box is open.
  void meanwhile();
  /// Records the present state. Differences at the next check were made by the program.
  void look();
  void expectOnlyTheNamedTouched();
  void expectListsShowTheirFiles();
  [[nodiscard]] bool toldGone() const;

  std::mt19937 random_;
  frmQMK* main_ = nullptr;
  std::wstring path_;     // of the file that the question names
  std::wstring renamed_;  // allowed prefix of that file's path afterwards
  std::wstring webName_;  // name of the web shortcut that the question names
  State before_;
  std::multiset<std::wstring> catalogueBefore_;
  std::multiset<std::wstring> webListBefore_;
  bool missed_ = false;  // the file to be renamed was reported as missing
  int boxes_ = 0;
};

}  // namespace faults
