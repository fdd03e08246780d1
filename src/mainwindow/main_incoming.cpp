// Entries that come from outside: pasted, dropped, found in folders; and those that are dragged
// out.
#include <utility>

#include "catalogue/catalogue_file.h"
#include "mainwindow/incoming.h"
#include "mainwindow/main_window.h"
#include "mainwindow/status_texts.h"
#include "platform/dialogs.h"
#include "platform/run_time_error.h"
#include "web/web_addresses.h"

namespace dialogs = platform::dialogs;
using platform::clipboard::Content;

void frmQMK::mnuPaste_Click() {
  const Content content = platform::clipboard::content();
  if (content == Content()) {
    tell(L"Nothing was pasted: there are no files and no text on the clipboard");
    return;
  }
  bringIn(TabMain.current(), content);
}

void frmQMK::bringIn(int tab, const Content& content) {
  if (tab == tools) {
    addShortcuts(mainwindow::pathsOf(content));
  } else if (tab == web) {
    addWebShortcuts(content);
  } else if (tab == open) {
    std::vector<std::wstring> folders;
    std::vector<std::wstring> named;
    for (std::wstring& path : mainwindow::pathsOf(content)) {
      (mainwindow::isFolder(path) ? folders : named).push_back(std::move(path));
    }
    if (folders.empty()) {
      addFiles(named, {});
    } else {
      searchFolders(
          L"Looking for data files", std::move(folders), modQMKGeneral::isDataFileName,
          [this, named](const std::vector<std::wstring>& found) { addFoundFiles(named, found); });
    }
  }
}

void frmQMK::addFoundFiles(const std::vector<std::wstring>& named,
                           const std::vector<std::wstring>& found) {
  constexpr std::size_t mostUnasked = 200;
  if (found.size() > mostUnasked &&
      dialogs::showMessage(L"Add " + std::to_wstring(found.size()) + L" files?",
                           dialogs::MessageStyle::yesNoQuestion) != dialogs::Answer::yes) {
    return;
  }
  addFiles(named, found);
}

void frmQMK::addFiles(const std::vector<std::wstring>& named,
                      const std::vector<std::wstring>& found) {
  undo::Recording adding(&history, L"Add", open);
  if (const auto files = modQMKGeneral::AddDataFiles(named, found, adding.changes())) {
    modQMKGeneral::LoadCatalogueView(catalogue);
    tell(mainwindow::addedText(
        {.added = files->added,
         .present = files->present,
         .refusals = {{files->wrongType, L"wrong type"}, {files->missing, L"not there"}}}));
  }
}

void frmQMK::addShortcuts(const std::vector<std::wstring>& paths) {
  undo::Recording adding(&history, L"Add", tools);
  const modSC::AddedShortcuts made = modSC::addShortcuts(shortcuts, paths, adding.changes());
  tell(mainwindow::addedText({.added = made.added,
                              .present = made.present,
                              .refusals = {{made.wrongType, L"wrong type"},
                                           {made.missing, L"not there"},
                                           {made.failed, made.failure}}}));
}

void frmQMK::addWebShortcuts(const Content& content) {
  const mainwindow::IncomingAddresses incoming = mainwindow::addressesOf(content);
  std::string bytes;
  for (const modQMKGeneral::WebEntry& entry : incoming.entries) {
    bytes += modQMKGeneral::webRecord(entry.name, entry.url);
  }
  list_file::Merged merged;
  if (!bytes.empty()) {
    undo::Recording adding(&history, L"Add", web);
    const auto added = modQMKGeneral::addWebRecords(webList, bytes, adding.changes());
    if (!added) {
      return;
    }
    merged = *added;
  }
  tell(mainwindow::addedText({.added = merged.added,
                              .present = merged.present,
                              .refusals = {{incoming.wrongType, L"wrong type"},
                                           {incoming.unreadable, incoming.failure}}}));
}

Content frmQMK::dragged() {
  const auto row = currentList().selectedRow();
  if (!row || TabMain.current() == newFiles) {
    return {};
  }
  if (TabMain.current() == web) {
    const std::wstring address = selectedPlace();
    return {.text = address, .address = address};
  }
  const std::wstring file = selectedFile();
  return file.empty() ? Content() : Content{.text = {}, .files = {file}};
}

void frmQMK::searchFolders(
    const std::wstring& what, std::vector<std::wstring> folders,
    std::function<bool(std::wstring_view name)> wanted,
    const std::function<void(const std::vector<std::wstring>& found)>& done) {
  const bool started =
      search_.start(std::move(folders), std::move(wanted),
                    [this, done](const mainwindow::FileSearch::Found& found) {
                      endSearch();
                      if (found) {
                        done(*found);
                      } else {
                        const platform::RunTimeError error(platform::error::outOfMemory);
                        tell(L"The search was broken off: " + error.description());
                      }
                    });
  if (!started) {
    endSearch();
    tell(L"The search cannot be started");
    return;
  }
  searchFor_ = what;
  tmrSearch.setEnabled(true);
  showStatus();
}

void frmQMK::endSearch() {
  tmrSearch.setEnabled(false);
  barStatus.setProgress(std::nullopt);
  showStatus();
}

bool frmQMK::stopSearch() {
  if (!search_.running()) {
    return false;
  }
  search_.stop();
  endSearch();
  tell(L"Stopped: nothing was changed");
  return true;
}

void frmQMK::tmrSearch_Timer() { showStatus(); }
