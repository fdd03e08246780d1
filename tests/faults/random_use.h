// A user who does anything in any order in the whole window on the in-memory desktop, while other
// programs write and drives come and go.
#pragma once

#include <cstddef>
#include <functional>
#include <random>
#include <set>
#include <string>

#include "faults/sweep.h"
#include "mainwindow/commands.h"
#include "platform/desktop_test.h"

namespace faults {

class RandomUse : public ::memory::DesktopTest {
 protected:
  void use(unsigned seed, int events);

  int events_ = 0;
  int renamed_ = 0;   // renames of an entry of a narrowed list that have changed something
  int narrowed_ = 0;  // events after which a list showed only some of its items

 private:
  std::size_t below(std::size_t most) { return random_() % most; }
  bool oneIn(unsigned n) { return random_() % n == 0; }
  std::wstring someName();
  void prepareAnswers();
  void otherProgram();
  /// Something that the system does: drives become slow or fast, come and go, viewers of help come
  /// and go, programs need an administrator, the session wants to end.
  void system();
  void drives();
  void settingsFile();
  void select();
  void command();
  const mainwindow::Command& someCommand();
  /// Something in the find box.
  void find();
  std::wstring someWords();
  /// The order of the files, the widths of the columns, the rows in view.
  void order();
  /// Edits the name of an entry in its list.
  void editName();
  /// A name that somebody types over that of an entry: any, none, the same, or another entry's.
  std::wstring nameTyped(const controls::ListView& list);
  /// Something is dragged out, dropped or copied elsewhere.
  void drag();
  platform::clipboard::Content someContent();
  void dialogs();
  /// Arranges what is going to be done in the window with the earlier lists, which is modal.
  void arrangeEarlierLists();
  void act();
  /// Called while a box is open: time passes and other programs write. Sometimes a command arrives
  /// that was already on its way.
  void meanwhile();

  /// Renames an entry of a narrowed list and checks that nothing but this entry is touched: what is
  /// written are all items, not only those that are shown.
  void renameNarrowed();
  void renameFile(controls::ListView& list);
  void renamePage(controls::ListView& list);
  void renameShortcut(controls::ListView& list);
  /// What may happen to a list until the user confirms a name.
  void disturb(frmQMK::Tab tab, bool boxIsUp);
  /// Each list shows the items that hold the words, in their order, and no others.
  void expectShownIsWhatMatches();

  std::mt19937 random_;
  frmQMK* main_ = nullptr;
  int depth_ = 0;
};

}  // namespace faults
