// Taking entries out of the window: their paths, their places, whole lists; and bringing lists in.
#include <functional>
#include <optional>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_listing.h"
#include "catalogue/data_types.h"
#include "catalogue/entry.h"
#include "catalogue/stored_path.h"
#include "listfile/list_exchange.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "mainwindow/main_window.h"
#include "mainwindow/status_texts.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/explorer.h"
#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace dialogs = platform::dialogs;
namespace files = platform::files;
using controls::ListView;
using platform::trapped;

namespace {

/// The visible columns of a row, or of the headers without one.
std::vector<std::wstring> shownCells(const ListView& list, std::optional<std::size_t> row) {
  std::vector<std::wstring> cells;
  for (std::size_t column = 0; column < list.columns().size(); ++column) {
    if (list.columns()[column].widthTwips != 0) {
      cells.push_back(row ? std::wstring(list.rowCell(*row, column)) : list.columns()[column].text);
    }
  }
  return cells;
}

/// The whole list as it is shown, below the headers of its columns.
std::string table(const ListView& list) {
  std::vector<std::vector<std::wstring>> rows{shownCells(list, std::nullopt)};
  for (std::size_t row = 0; row < list.rows(); ++row) {
    rows.push_back(shownCells(list, row));
  }
  return list_file::csv(rows);
}

/// The nearest folder above a path that exists; "" when not even the drive answers.
std::wstring nearestFolder(std::wstring path) {
  const std::wstring root = platform::drives::rootOf(path);
  if (root.empty() || !platform::drives::answers(path)) {
    return {};
  }
  while (path.size() > root.size()) {
    path.resize(path.rfind(L'\\'));
    if (path.size() > root.size() && files::folderExists(path)) {
      return path;
    }
  }
  return root + L"\\";
}

/// Where the user keeps files. Without it the dialogs would begin in the current folder, which a
/// shortcut may have set.
std::wstring documentsFolder() {
  std::wstring name;
  std::wstring folder;
  SmodMisc::SplitPath(modQMKGeneral::UserFolder, name, folder);
  return folder;
}

bool hasExtension(const std::wstring& path) {
  const std::size_t dot = path.find_last_of(L".\\");
  return dot != std::wstring::npos && path[dot] == L'.';
}

/// Whether both names lead to the same file.
bool isSameFile(const std::wstring& one, const std::wstring& other) {
  return files::fileExists(one) && files::fileExists(other) &&
         files::readWhole(one).stamp == files::readWhole(other).stamp;
}

}  // namespace

std::wstring frmQMK::selectedFile() {
  const ListView& list = currentList();
  const std::size_t item = list.itemOfRow(list.selectedRow().value());
  std::wstring path;
  if (TabMain.current() == tools) {
    path = list.subItem(item, modSC::shortcut_column::file);
  } else if (TabMain.current() == open) {
    // A name that may mean several files means none.
    static_cast<void>(trapped([&] {
      path = stored_path::realFile(modQMKGeneral::dataEntry(list, item).path()).value_or(L"");
    }));
  }
  return path.empty() || !files::fileExists(path) ? std::wstring() : path;
}

void frmQMK::copy(const platform::clipboard::Content& content) {
  if (!platform::clipboard::put(content)) {
    tell(L"Nothing was copied: another program keeps the clipboard open");
  }
}

bool frmQMK::chosen(const std::function<void()>& ask) {
  const auto failure = trapped(ask);
  if (failure && failure->number() != platform::error::cancelled) {
    tell(L"The dialog cannot be shown: " + failure->description());
  }
  return !failure;
}

void frmQMK::mnuCopy_Click() {
  std::wstring text;
  for (const std::wstring& cell : shownCells(currentList(), currentList().selectedRow())) {
    text += cell + L'\t';
  }
  text.pop_back();
  const std::wstring file = selectedFile();
  copy({text, file.empty() ? std::vector<std::wstring>() : std::vector{file}});
}

void frmQMK::mnuCopyPath_Click() {
  if (const std::wstring place = selectedPlace(); !place.empty()) {
    copy({place, {}});
  }
}

void frmQMK::mnuOpenFolder_Click() {
  std::wstring path = selectedPlace();
  // The file behind a name with substitutes; the shortcut itself, if it has no target.
  const std::wstring file = selectedFile();
  if (TabMain.current() == tools ? path.empty() : !file.empty()) {
    path = file;
  }
  if (path.empty()) {
    return;
  }
  const auto failure = trapped([&] {
    if (files::entryAt(path)) {
      platform::explorer::showMarked(path);
      return;
    }
    tell(L"Not there: " + path);
    if (const std::wstring folder = nearestFolder(path); !folder.empty()) {
      platform::explorer::showFolder(folder);
    }
  });
  if (failure) {
    tell(L"The folder cannot be shown: " + failure->description());
  }
}

void frmQMK::mnuRemoveFromList_Click() {
  const modQMKGeneral::DataEntry entry = modQMKGeneral::selectedEntry(lstQMK[open]);
  undo::Recording removal(&history, modQMKGeneral::removeStep, open,
                          modQMKGeneral::selectedKey(lstQMK[open]));
  if (modQMKGeneral::removeFromList(catalogue, entry.path(), removal.changes())) {
    tell(entry.name + L" is no longer listed; the file itself stays");
  }
}

void frmQMK::mnuSaveListAs_Click() {
  const ListView& list = currentList();
  constexpr int asTable = 2;
  dialogs::SaveFileChoice choice;
  if (!chosen([&choice] {
        choice =
            dialogs::saveFile({.initialFolder = documentsFolder(),
                               .fileName = {},
                               .title = L"Save List As",
                               .filter = L"List (*.txt)|*.txt|Table for spreadsheets (*.csv)|*.csv",
                               .filterIndex = 1});
      })) {
    return;
  }
  if (!hasExtension(choice.path)) {
    choice.path += choice.filterIndex == asTable ? L".csv" : L".txt";
  }
  std::wstring name;
  std::wstring folder;
  SmodMisc::SplitPath(choice.path, name, folder);
  const std::wstring temporary = list_file::temporaryBeside(choice.path);
  const auto failure = trapped([&] {
    if (isSameFile(choice.path, modQMKGeneral::cataloguePath()) ||
        isSameFile(choice.path, modQMKGeneral::webListPath())) {
      tell(L"Nothing was saved: " + name + L" is a list of this program");
      return;
    }
    if (files::entryAt(choice.path) &&
        dialogs::showMessage(name + L" already exists. Replace it?",
                             dialogs::MessageStyle::yesNoWarning) != dialogs::Answer::yes) {
      return;
    }
    const bool csv = platform::text::upper(name).ends_with(L".CSV");
    std::string bytes = csv                         ? table(list)
                        : TabMain.current() == open ? modQMKGeneral::shownCatalogueRecords(list)
                                                    : modQMKGeneral::shownWebRecords(list);
    list_file::rewrite(choice.path, temporary, list_file::Missing::isEmpty,
                       [&bytes](const std::string& /*old*/) { return bytes; });
    tell(mainwindow::countText(TabMain.current(), {.all = list.rows()}) + L" saved in " + name);
  });
  if (failure) {
    // Nobody would tidy up in a folder of the user's.
    static_cast<void>(trapped([&temporary] { list_file::discardStale(temporary); }));
    modQMKGeneral::showListFileProblem(L"Problem saving to QMK list", *failure);
  }
}

void frmQMK::mnuAddList_Click() {
  const int tab = TabMain.current();
  std::wstring path;
  std::string bytes;
  if (!chosen([&path] {
        path = dialogs::openFile({.initialFolder = documentsFolder(),
                                  .fileName = {},
                                  .title = L"Add List",
                                  .filter = L"Lists (*.txt)|*.txt|All files (*.*)|*.*",
                                  .filterIndex = 1});
      })) {
    return;
  }
  if (const auto failure = trapped([&] { bytes = files::readWhole(path).bytes; })) {
    tell(L"Nothing was added: " + failure->description());
    return;
  }
  undo::Recording adding(&history, L"Add", tab);
  const auto merged = tab == open
                          ? modQMKGeneral::addCatalogueRecords(catalogue, bytes, adding.changes())
                          : modQMKGeneral::addWebRecords(webList, bytes, adding.changes());
  if (merged) {
    tell(mainwindow::addedText(
        {.added = merged->added,
         .present = merged->present,
         .refusals = {{merged->withoutKey, tab == open ? L"no path" : L"no address"}}}));
  }
}

void frmQMK::mnuAddFiles_Click() {
  std::vector<std::wstring> paths;
  if (!chosen([&paths] {
        paths = dialogs::openFiles({.initialFolder = modQMKGeneral::AppFolder() + L"\\data",
                                    .fileName = {},
                                    .title = L"Add to List",
                                    .filter = modQMKGeneral::dataFileFilter(),
                                    .filterIndex = 1});
      })) {
    return;
  }
  addFiles(paths, {});
}
