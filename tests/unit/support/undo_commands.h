// Undo and Redo on the three lists of the main window.
#pragma once

#include <string>

#include "mainwindow/control_ids.h"
#include "unit/support/links.h"
#include "unit/support/list_commands.h"

namespace unit {

class UndoCommands : public ListCommands {
 protected:
  UndoCommands() {
    memory::desktop().putFile(L"C:\\Field\\One.fp3", "one");
    memory::desktop().putFile(L"C:\\Field\\Two.bi3", "two");
    memory::desktop().putFile(catalogueFile, both);
    memory::desktop().putFile(webListFile, sites);
    for (const wchar_t* const name : {L"Calc.lnk", L"Notes.lnk"}) {
      memory::desktop().putLink(folder + name, linkTo(L"C:\\Tools\\calc.exe"));
    }
    memory::desktop().putFolder(L"C:\\App\\shortcuts");
    modSC::LoadShortcutList(window.shortcuts);
    showLists();
  }
  void select(int tab, const std::wstring& name) {
    switchTo(tab);
    LoadedMainWindow::select(window.lstQMK.at(static_cast<std::size_t>(tab)), name);
  }
  void erase(int tab, const std::wstring& name) {
    select(tab, name);
    memory::desktop().answers = {platform::dialogs::Answer::yes};
    choose(ids::mnuDelete);
  }
  void rename(int tab, const std::wstring& name, const std::wstring& newName) {
    select(tab, name);
    memory::desktop().inputAnswers = {newName};
    choose(ids::mnuRename);
  }
  /// What an entry of the Edit menu says; "-" in front of one that is disabled.
  std::wstring entry(int command) {
    window.commands.refresh();
    return (window.commands.item(command).enabled() ? L"" : L"-") +
           window.commands.item(command).caption();
  }
  [[nodiscard]] static std::string file(const std::wstring& path) {
    return memory::desktop().bytesOf(path).value_or("missing");
  }
  [[nodiscard]] std::wstring selected(int tab) const {
    const controls::ListView& list = window.lstQMK.at(static_cast<std::size_t>(tab));
    return list.selected() ? std::wstring(list.text(*list.selected())) : L"none";
  }

  const std::string one = "fp3, C:\\Field\\One.fp3 ,1,more\n";
  const std::string two = "\"BI3\",\"C:\\Field\\Two.bi3\",\"2\"\r\n";
  const std::string both = one + two;
  const std::string sites =
      "\"Weather\",\"http://w.example\"\r\n\"Maps\",\"http://m.example\"\r\n"
      "\"Weather\",\"http://other.example\"\r\n";
  const std::wstring folder = L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts\\";
};

}  // namespace unit
