// What the commands of the main window do on the tab in front.
#include <cwchar>
#include <limits>

#include "about/help_launcher.h"
#include "catalogue/catalogue_file.h"
#include "configuration.h"
#include "flatlook/form_style.h"
#include "mainwindow/main_window.h"
#include "platform/controls/item_key.h"
#include "platform/dialogs.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "web/browser.h"

namespace data_column = modQMKGeneral::data_column;
namespace dialogs = platform::dialogs;
using controls::ListView;
using platform::text::upper;

namespace {

/// A view mode kept as text; an empty one is the icon view.
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

void frmQMK::setCommandsEnabled(bool create, bool rename, bool remove) {
  barMain.setButtonEnabled(L"Create", create);
  barMain.setButtonEnabled(L"Rename", rename);
  barMain.setButtonEnabled(L"Delete", remove);
  barMain.setButtonEnabled(L"Icon", true);
  mnuCreate.setEnabled(create);
  mnuRename.setEnabled(rename);
  mnuDelete.setEnabled(remove);
  mnuIcon.setEnabled(true);
}

void frmQMK::setToolTips(const std::wstring& create, const std::wstring& rename,
                         const std::wstring& remove) {
  barMain.setButtonToolTip(L"Create", create);
  barMain.setButtonToolTip(L"Rename", rename);
  barMain.setButtonToolTip(L"Delete", remove);
}

void frmQMK::setEditCaptions(const std::wstring& create, const std::wstring& rename,
                             const std::wstring& remove) {
  mnuCreate.setCaption(create);
  mnuRename.setCaption(rename);
  mnuDelete.setCaption(remove);
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
  // What a tab does not name keeps what the tab before it left there.
  switch (newTab) {
    case tools:
      setCommandsEnabled(true, true, true);
      setToolTips(L"Create shortcut", L"Rename shortcut", L"Delete shortcut");
      setEditCaptions(L"Create Shortcut", L"Rename Shortcut", L"Delete Shortcut");
      break;
    case open:
      setCommandsEnabled(false, true, true);
      setToolTips(barMain.button(L"Create").toolTip, L"Rename File", L"Delete File");
      setEditCaptions(mnuCreate.caption(), L"Rename File", L"Delete File");
      break;
    case fresh:
      setCommandsEnabled(false, false, false);
      setEditCaptions(L"Create", L"Rename", L"Delete");
      break;
    case web:
      setCommandsEnabled(true, true, true);
      setToolTips(L"Create web shortcut", L"Rename web shortcut", L"Delete web shortcut");
      setEditCaptions(L"Create Web Shortcut", L"Rename Web Shortcut", L"Delete Web Shortcut");
      // Entering the web list always shows its columns, whatever its tag remembers.
      lstQMK[web].setView(controls::reportView);
      showViewMode(true);
      break;
    default:
      break;
  }
}

void frmQMK::barMain_ButtonClick(const std::wstring& key) {
  if (key == L"Create") {
    mnuCreate_Click();
  } else if (key == L"Rename") {
    mnuRename_Click();
  } else if (key == L"Exit") {
    mnuExit_Click();
  } else if (key == L"Icon") {
    mnuIcon_Click();
  } else if (key == L"List") {
    mnuList_Click();
  } else if (key == L"Help") {
    mnuHelpContents_Click();
  } else if (key == L"Delete") {
    mnuDelete_Click();
  }
}

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
  // Whatever list was clicked, the data list is sorted.
  ListView& list = lstQMK[open];
  list.update([&list, column] {
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
    modSC::CreateShortcut(shortcuts);
  } else if (caption == L"Web") {
    createWebShortcut();
  }
}

void frmQMK::mnuRename_Click() {
  const std::wstring caption = currentCaption();
  if (caption == L"Tools") {
    modSC::RenameShortcut(shortcuts);
  } else if (caption == L"Open") {
    renameCatalogueEntry();
  } else if (caption == L"Web") {
    renameWebShortcut();
  }
}

void frmQMK::mnuDelete_Click() {
  const std::wstring caption = currentCaption();
  if (caption == L"Tools") {
    modSC::DeleteShortcut(shortcuts);
  } else if (caption == L"Open") {
    deleteCatalogueEntry();
  } else if (caption == L"Web") {
    deleteWebShortcut();
  }
}

void frmQMK::renameCatalogueEntry() {
  ListView& list = currentList();
  if (list.count() == 0) {
    return;
  }
  const std::size_t selected = list.selectedItem();
  const std::wstring prompt = L"Rename file  " + upper(list.text(selected)) + L"\rType: " +
                              list.subItem(selected, data_column::label);
  const controls::ItemKey entry = list.keyOf(selected, data_column::entry);
  const std::wstring answer = dialogs::inputBox(prompt, L"  ", L" ");
  if (answer.empty()) {
    return;
  }
  if (const auto item = controls::findAgain(list, entry)) {
    if (list.selected() != item) {
      list.select(*item);
    }
    modQMKGeneral::RenameCatalogueFile(catalogue, answer);
  }
}

void frmQMK::deleteCatalogueEntry() {
  const ListView& list = currentList();
  if (list.count() == 0) {
    return;
  }
  const std::size_t selected = list.selectedItem();
  // The list may be reloaded while the question waits.
  const controls::ItemKey entry = list.keyOf(selected, data_column::entry);
  const std::wstring path = list.subItem(selected, data_column::folder) + list.text(selected);
  if (confirmed(L"Are your sure you want to delete " + upper(entry.text)) &&
      controls::findAgain(list, entry)) {
    modQMKGeneral::RemoveCatalogueEntry(path);
    modQMKGeneral::LoadCatalogueView(catalogue);
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
  // An open dialog may have been renaming until now.
  dialog.setCaption(frmWeb::createCaption);
  dialog.cmdOK.setCaption(L"Create");
  showWebDialog(dialog);
}

void frmQMK::renameWebShortcut() {
  const std::size_t selected = lstQMK[web].selectedItem();
  // The dialog changes what is selected when it is confirmed, but only what somebody has chosen.
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
  const controls::ItemKey entry = list.keyOf(list.selectedItem(), modQMKGeneral::webEntry);
  if (confirmed(L"Are your sure you want to delete " + upper(entry.text)) &&
      controls::findAgain(list, entry)) {
    modQMKGeneral::DeleteWebEntry(webList, entry.text);
  }
}

void frmQMK::lstQMK_DblClick(int index) {
  switch (index) {
    case tools:
      modSC::StartSelectedShortcut(shortcuts);
      break;
    case open:
      ModQMKgeneral2::OpenSelectedDataFile(opening);
      break;
    case fresh:
      ModQMKgeneral2::StartNewFile(opening);
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

void frmQMK::lstQMK_KeyDown(int index, controls::ListKey key) {
  switch (key) {
    case controls::ListKey::remove:
      mnuDelete.raiseClick();
      break;
    case controls::ListKey::rename:
      mnuRename.raiseClick();
      break;
    case controls::ListKey::insert:
      mnuCreate.raiseClick();
      break;
    case controls::ListKey::reload:
      if (index == tools) {
        modSC::LoadShortcutList(shortcuts);
      } else if (index == open) {
        modQMKGeneral::LoadCatalogueView(catalogue);
      } else if (index == web) {
        modQMKGeneral::LoadWebList(webList);
      }
      break;
  }
}

void frmQMK::cmdBrowse_Click() {
  OC_COLOR::SetButtonIdleAfterClick(cmdBrowse);
  ModQMKgeneral2::BrowseForDataFile(opening);
}

void frmQMK::tmrFileUpdate_Timer() { modQMKGeneral::WatchCatalogue(catalogue); }

void frmQMK::mnuExit_Click() { unload(); }

void frmQMK::mnuHelpContents_Click() { modQMKGeneral::ShowHelpContents(diaCommon); }

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
