// Earlier lists that come back.
#include "catalogue/catalogue_listing.h"
#include "earlier/earlier_dialog.h"
#include "earlier/earlier_lists.h"
#include "mainwindow/main_window.h"
#include "mainwindow/status_texts.h"

using kept_lists::Which;

void frmQMK::mnuEarlierLists_Click() {
  if (frmEarlier_ && frmEarlier_->loaded()) {
    frmEarlier_->activate();
    return;
  }
  const Which list = TabMain.current() == web ? Which::web : Which::dataFiles;
  // Its own owner, because it may be in the middle of a question when the command is given again.
  const auto dialog = std::make_shared<frmEarlier>(
      list,
      EarlierUse{
          .restore = [this, list](const std::string& bytes) { restoreList(list, bytes); },
          .addMissing = [this,
                         list](const std::string& bytes) { return addMissingEntries(list, bytes); },
          .tell = [this](const std::wstring& news) { tell(news); }});
  frmEarlier_ = dialog;
  dialog->showModal();
}

void frmQMK::restoreList(Which list, const std::string& bytes) {
  const int tab = list == Which::web ? web : open;
  undo::Recording restoring(&history, L"Restore", tab);
  earlier_lists::restore(list, bytes, keeper, restoring.changes());
  reloadList(tab);
}

bool frmQMK::addMissingEntries(Which list, const std::string& bytes) {
  undo::Recording adding(&history, L"Add", list == Which::web ? web : open);
  const auto merged = list == Which::web
                          ? modQMKGeneral::addWebRecords(webList, bytes, adding.changes())
                          : modQMKGeneral::addCatalogueRecords(catalogue, bytes, adding.changes());
  if (merged) {
    tell(mainwindow::addedText(
        {.added = merged->added,
         .present = merged->present,
         .refusals = {{merged->withoutKey, list == Which::web ? L"no address" : L"no path"}}}));
  }
  return merged.has_value();
}
