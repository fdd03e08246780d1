// What each command of the main window does on the current tab.
#include <cwchar>
#include <limits>

#include "about/help_launcher.h"
#include "catalogue/catalogue_file.h"
#include "catalogue/entry.h"
#include "configuration.h"
#include "flatlook/form_style.h"
#include "mainwindow/main_window.h"
#include "platform/controls/item_key.h"
#include "platform/dialogs.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "web/browser.h"

namespace dialogs = platform::dialogs;
using controls::ListView;
using platform::text::upper;

namespace {

/// A view mode stored as text. An empty text is the icon view.
int viewFromTag(const std::wstring& tag) {
  return static_cast<int>(std::wcstol(tag.c_str(), nullptr, 10));
}

bool confirmed(const std::wstring& question) {
  return dialogs::showMessage(question, dialogs::MessageStyle::yesNoWarning) ==
         dialogs::Answer::yes;
}

void showWebDialog(frmWeb& dialog) {
  const bool shownAlready = dialog.visible();
  dialog.show();
  if (shownAlready) {
    dialog.activate();
  }
}

}  // namespace

ListView& frmQMK::currentList() { return lstQMK.at(static_cast<std::size_t>(TabMain.current())); }

const std::wstring& frmQMK::currentCaption() const { return TabMain.tabCaption(TabMain.current()); }

void frmQMK::showViewMode(bool report) {
  mnuList.setChecked(report);
  mnuIcon.setChecked(!report);
  barMain.setButtonValue(report ? L"List" : L"Icon", 1);
}

void frmQMK::TabMain_Click(int newTab) {
  const auto index = static_cast<std::size_t>(newTab);
  if (index >= lstQMK.size()) {
    return;
  }
  for (std::size_t i = 0; i < lstQMK.size(); ++i) {
    lstQMK.at(i).setVisible(i == index);
  }
  cmdBrowse.setVisible(newTab == open);

  ListView& list = lstQMK.at(index);
  list.setView(viewFromTag(list.tag()));
  showViewMode(list.view() != controls::iconView);
  commands.showTab(newTab);
  txtFind.setText(list.findText());
  showClearButton();
  tmrIdle.setEnabled(true);
  if (newTab == web) {
    // The web list always starts in report view, whatever its tag says.
    list.setView(controls::reportView);
    showViewMode(true);
  }
}

void frmQMK::barMain_ButtonClick(const std::wstring& key) { commands.click(key); }

void frmQMK::mnuIcon_Click() {
  currentList().setView(controls::iconView);
  currentList().setTag(L"0");
  showViewMode(false);
}

void frmQMK::mnuList_Click() {
  currentList().setView(controls::reportView);
  currentList().setTag(L"3");
  showViewMode(true);
}

void frmQMK::lstQMK_ColumnClick(int /*index*/, int column) {
  // Whichever list was clicked, the data list is sorted.
  ListView& list = lstQMK[open];
  list.update([&] {
    setNewestFirst(false);
    list.setSorted(false);
    if (column - 1 > std::numeric_limits<std::int16_t>::max()) {
      throw platform::RunTimeError(platform::error::overflow);
    }
    list.setSortKey(column - 1);
    list.setSortOrder(list.sortOrder() != controls::ascending ? controls::ascending
                                                              : controls::descending);
    list.setSorted(true);
  });
}

void frmQMK::mnuCreate_Click() {
  const std::wstring caption = currentCaption();
  if (caption == L"Tools") {
    undo::Recording made(&history, L"Create", tools);
    modSC::createShortcut(shortcuts, made.changes());
  } else if (caption == L"Web") {
    createWebShortcut();
  }
}

void frmQMK::mnuRename_Click() {
  const std::wstring caption = currentCaption();
  if (caption == L"Tools") {
    if (!nothingFound(lstQMK[tools])) {
      undo::Recording renaming = recordingOfShortcut(L"Rename");
      tellWhereItWent(modSC::renameShortcut(shortcuts, renaming.changes()));
    }
  } else if (caption == L"Open") {
    renameCatalogueEntry();
  } else if (caption == L"Web") {
    renameWebShortcut();
  }
}

void frmQMK::mnuDelete_Click() {
  const std::wstring caption = currentCaption();
  if (caption == L"Tools") {
    if (!nothingFound(lstQMK[tools])) {
      undo::Recording deletion = recordingOfShortcut(L"Delete");
      modSC::deleteShortcut(shortcuts, deletion.changes());
      tellIfFinal(deletion);
    }
  } else if (caption == L"Open") {
    deleteCatalogueEntry();
  } else if (caption == L"Web") {
    deleteWebShortcut();
  }
}

void frmQMK::renameCatalogueEntry() {
  ListView& list = currentList();
  if (list.count() == 0 || nothingFound(list)) {
    return;
  }
  const modQMKGeneral::DataEntry entry = modQMKGeneral::selectedEntry(list);
  const controls::ItemKey key = modQMKGeneral::selectedKey(list);
  const std::wstring answer = dialogs::inputBox(
      L"Rename file  " + upper(entry.name) + L"\rType: " + entry.label, L"  ", L" ");
  if (answer.empty()) {
    return;
  }
  if (const auto item = controls::findAgain(list, key)) {
    if (list.selected() != item) {
      list.select(*item);
    }
    undo::Recording renaming(&history, L"Rename", open, key);
    modQMKGeneral::RenameCatalogueFile(catalogue, answer, renaming.changes());
  }
}

void frmQMK::deleteCatalogueEntry() {
  const ListView& list = currentList();
  if (list.count() == 0 || nothingFound(list)) {
    return;
  }
  // The list may be reloaded while the message box is open.
  const modQMKGeneral::DataEntry entry = modQMKGeneral::selectedEntry(list);
  const controls::ItemKey key = modQMKGeneral::selectedKey(list);
  if (confirmed(L"Are your sure you want to delete " + upper(entry.name)) &&
      controls::findAgain(list, key)) {
    undo::Recording deletion(&history, L"Delete", open, key);
    modQMKGeneral::RemoveCatalogueEntry(entry.path(), deletion.changes());
    modQMKGeneral::LoadCatalogueView(catalogue);
    tellIfFinal(deletion);
  }
}

frmWeb& frmQMK::webDialogForShowing() {
  if (!frmWeb_ || !frmWeb_->loaded()) {
    frmWeb_ = std::make_unique<frmWeb>(webList);
  }
  return *frmWeb_;
}

void frmQMK::createWebShortcut() {
  frmWeb& dialog = webDialogForShowing();
  // A dialog that is still open may have been used for renaming until now.
  dialog.setCaption(frmWeb::createCaption);
  dialog.cmdOK.setCaption(L"Create");
  showWebDialog(dialog);
}

void frmQMK::renameWebShortcut() {
  if (nothingFound(lstQMK[web])) {
    return;
  }
  const std::size_t selected = lstQMK[web].selectedItem();
  // The dialog changes the selected item when it is confirmed. It must be one that the user has
  // chosen.
  for (ListView& list : lstQMK) {
    list.adoptSelection();
  }
  frmWeb& dialog = webDialogForShowing();
  dialog.setCaption(L"Rename Web Shortcut");
  dialog.cmdOK.setCaption(L"Rename");
  dialog.txtName.setText(lstQMK[web].text(selected));
  dialog.txtUrl.setText(lstQMK[web].subItem(selected, modQMKGeneral::urlColumn));
  showWebDialog(dialog);
}

void frmQMK::deleteWebShortcut() {
  const ListView& list = lstQMK[web];
  if (nothingFound(list)) {
    return;
  }
  const controls::ItemKey entry = list.keyOf(list.selectedItem(), modQMKGeneral::webEntry);
  if (confirmed(L"Are your sure you want to delete " + upper(entry.text)) &&
      controls::findAgain(list, entry)) {
    undo::Recording deletion(&history, L"Delete", web, entry);
    modQMKGeneral::DeleteWebEntry(webList, entry.text, deletion.changes());
  }
}

void frmQMK::lstQMK_DblClick(int index) {
  if (nothingFound(lstQMK.at(static_cast<std::size_t>(index)))) {
    return;
  }
  // Opening may find that something is not there, or that it is there again.
  lookAgainEverywhere(index);
  switch (index) {
    case tools:
      if (modSC::startSelectedShortcut(shortcuts)) {
        // A tool that starts may write the catalogue.
        modQMKGeneral::LoadCatalogueView(catalogue);
      }
      break;
    case open:
      ModQMKgeneral2::openSelectedDataFile(opening);
      break;
    case newFiles:
      ModQMKgeneral2::startNewFile(opening);
      break;
    case web:
      if (lstQMK[web].count() > 0) {
        smodBrowser::OpenURL(
            lstQMK[web].subItem(lstQMK[web].selectedItem(), modQMKGeneral::urlColumn),
            smodBrowser::showCommand);
      }
      break;
    default:
      break;
  }
}

void frmQMK::lstQMK_KeyDown(int index, const controls::KeyStroke& stroke) {
  commands.press(stroke, mainwindow::Reach::list, index);
}

bool frmQMK::Form_KeyDown(const controls::KeyStroke& stroke) {
  if (stroke == controls::KeyStroke{controls::keys::escape} && stopSearch()) {
    return true;
  }
  if (const auto tab = mainwindow::tabOfKey(stroke, TabMain.current(),
                                            static_cast<int>(TabMain.captions().size()))) {
    TabMain.setCurrent(*tab);
    return true;
  }
  return commands.press(stroke, mainwindow::Reach::window, TabMain.current());
}

void frmQMK::reloadList(int index) {
  if (index == tools) {
    modSC::LoadShortcutList(shortcuts);
  } else if (index == open) {
    modQMKGeneral::LoadCatalogueView(catalogue);
  } else if (index == web) {
    modQMKGeneral::LoadWebList(webList);
  }
}

void frmQMK::cmdBrowse_Click() {
  OC_COLOR::setButtonIdleAfterClick(cmdBrowse);
  ModQMKgeneral2::browseForDataFile(opening);
}

void frmQMK::tmrFileUpdate_Timer() { modQMKGeneral::watchCatalogue(catalogue); }

void frmQMK::mnuExit_Click() { unload(); }

void frmQMK::mnuHelpContents_Click() { modQMKGeneral::showHelpContents(diaCommon); }

void frmQMK::mnuWeb_Click() {
  smodBrowser::OpenURL(configuration::homePage, smodBrowser::showCommand);
}

void frmQMK::mnuAbout_Click() {
  if (frmAbout_ && frmAbout_->loaded()) {
    frmAbout_->activate();
    return;
  }
  frmAbout_ = std::make_unique<frmAbout>();
  frmAbout_->show();
}
