// The main window as start-up shows it, before its lists are filled.
#pragma once

#include <string>
#include <utility>

#include "mainwindow/main_window.h"
#include "platform/desktop_test.h"
#include "startup/paths.h"

/// The folders exist; the main window is loaded, set up and shown; the watch timer is off. The
/// journal begins after that.
class MainWindowTest : public memory::DesktopTest {
 protected:
  MainWindowTest() {
    modQMKGeneral::InitUserFolders();
    window.tmrFileUpdate.setEnabled(false);
    window.load();
    window.SetupMainWindow();
    window.show();
    // There are no lists yet, so the copies of this day are done: the tests see the operations
    // alone.
    window.keeper.beforeChange();
    memory::desktop().clearJournal();
  }

  /// The user clicks a tab.
  void switchTo(int tab) { window.TabMain.fireSwitch(tab); }

  /// Adds a data file to the Open list, whose columns are date, label, folder and type.
  void addDataFile(const std::wstring& folder, const std::wstring& name,
                   const std::wstring& label = L"Fuel Profile") {
    window.lstQMK[frmQMK::open].add(name, L"PV3", {L"11/20/2026", label, folder, L"FP3"});
  }

  /// Adds an entry to the Web list.
  void addWebEntry(const std::wstring& name, const std::wstring& url) {
    window.lstQMK[frmQMK::web].add(name, L"Web", {url});
  }

  /// The only message that was shown, as text.
  static std::wstring onlyMessage() {
    const auto& messages = memory::desktop().messages;
    return messages.size() == 1 ? messages.front().text
                                : std::to_wstring(messages.size()) + L" messages";
  }

  frmQMK window;
};
