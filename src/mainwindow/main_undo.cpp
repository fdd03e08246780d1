// Taking back what was done, and doing it again.
#include "mainwindow/main_window.h"

using controls::ListView;

namespace {

constexpr const wchar_t* deletedForGood = L"Deleted for good: no Recycle Bin here";

}  // namespace

undo::Recording frmQMK::recordingOfShortcut(const wchar_t* what) {
  const ListView& list = lstQMK[tools];
  const auto item = list.selected();
  return {&history, what, tools,
          item ? std::optional(list.keyOf(*item, modSC::shortcut_column::entry)) : std::nullopt};
}

void frmQMK::tellIfFinal(undo::Recording& recording) {
  if (recording.changes()->isFinal()) {
    tell(deletedForGood);
  }
}

void frmQMK::go(undo::Way way) {
  if (!history.canGo(way)) {
    return;
  }
  const undo::Outcome outcome = history.go(way);
  if (outcome.done && TabMain.current() != outcome.tab) {
    TabMain.setCurrent(outcome.tab);
  }
  // Also after a failure, because the lists may have changed since.
  reloadList(outcome.tab);
  lookAgain();
  if (outcome.back) {
    ListView& list = lstQMK.at(static_cast<std::size_t>(outcome.tab));
    if (const auto item = list.find(*outcome.back); list.rowOf(item)) {
      list.select(*item);
    }
  }
  tell(outcome.final ? deletedForGood : outcome.text);
}

void frmQMK::mnuUndo_Click() { go(undo::Way::back); }

void frmQMK::mnuRedo_Click() { go(undo::Way::again); }
