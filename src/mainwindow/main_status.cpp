// The status line, and the look for what is not there.
#include "mainwindow/main_window.h"
#include "mainwindow/status_texts.h"

using mainwindow::Presence;

Presence* frmQMK::presenceOf(int index) {
  return index == tools ? &toolsThere : index == open ? &filesThere : nullptr;
}

std::wstring frmQMK::selectedPlace() {
  const controls::ListView& list = currentList();
  const auto row = list.selectedRow();
  if (!row) {
    return {};
  }
  const std::size_t item = list.itemOfRow(*row);
  if (const Presence* const presence = presenceOf(TabMain.current())) {
    return presence->pathOf(item);
  }
  return TabMain.current() == web ? list.subItem(item, modQMKGeneral::urlColumn) : std::wstring();
}

void frmQMK::showStatus() {
  if (static_cast<std::size_t>(TabMain.current()) >= lstQMK.size()) {
    return;
  }
  if (search_.running()) {
    barStatus.setTexts(mainwindow::searchText(searchFor_, search_.found()), {});
    barStatus.setProgress(search_.progress());
    return;
  }
  const controls::ListView& list = currentList();
  const Presence* const presence = presenceOf(TabMain.current());
  const std::wstring counts =
      mainwindow::countText(TabMain.current(), {.all = list.count(),
                                                .shown = list.rows(),
                                                .missing = presence ? presence->missing() : 0,
                                                .narrowed = list.narrowed()});
  barStatus.setTexts(news_.empty() ? counts : news_, selectedPlace());
}

void frmQMK::tmrIdle_Timer() {
  if (visible()) {
    if (const auto failure = keeper.takeFailure()) {
      tell(mainwindow::alsoText(news_, L"The lists could not be copied to Backup: " + *failure));
    }
  }
  Presence* const presence = presenceOf(TabMain.current());
  const bool more = visible() && presence != nullptr && presence->lookOn();
  tmrIdle.setEnabled(more);
  showStatus();
}

void frmQMK::tell(const std::wstring& news) {
  news_ = news;
  tmrNews.setEnabled(false);  // the time begins anew
  tmrNews.setEnabled(true);
  showStatus();
}

void frmQMK::tmrNews_Timer() {
  tmrNews.setEnabled(false);
  news_.clear();
  showStatus();
}

void frmQMK::Form_MenuMarked(const controls::MenuItem* item) {
  barStatus.setNote(item == nullptr ? std::wstring() : commands.explanation(*item));
}

void frmQMK::Form_DrivesChanged() { lookAgain(); }

void frmQMK::lookAgain() {
  toolsThere.beginAgain();
  filesThere.beginAgain();
  tmrIdle.setEnabled(true);
}

void frmQMK::lookAgainEverywhere(int index) {
  if (Presence* const presence = presenceOf(index)) {
    presence->beginAgain();
    presence->askSlowDrives([this] { tmrIdle.setEnabled(true); });
    tmrIdle.setEnabled(true);
  }
}

void frmQMK::reload(int index) {
  reloadList(index);
  lookAgainEverywhere(index);
}
