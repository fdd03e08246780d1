// What the random user and the system do.
#include "faults/random_use.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "listfile/list_file.h"
#include "mainwindow/control_ids.h"

namespace faults {

using memory::desktop;
using platform::dialogs::Answer;

std::wstring RandomUse::someName() {
  const std::wstring units = L"ab ,\"'%&.\u00E4\u20AC?\\x12";
  std::wstring name(1 + below(9), L'x');
  for (wchar_t& unit : name) {
    if (oneIn(2)) {
      unit = units[below(units.size())];
    }
  }
  return name;
}

void RandomUse::prepareAnswers() {
  desktop().answers.assign(40, oneIn(2) ? Answer::yes : Answer::no);
  desktop().inputAnswers.clear();
  desktop().fileDialogResults.clear();
  desktop().saveDialogResults.clear();
  desktop().folderDialogResults.clear();
  desktop().filesDialogResults.assign(
      10, std::vector<std::wstring>{L"D:\\One.fp3", L"D:\\Two.bi3", L"C:\\Tools\\calc.exe"});
  desktop().clipboardBusy = oneIn(8);
  for (int n = 0; n < 10; ++n) {
    desktop().inputAnswers.emplace_back(oneIn(4) ? L"" : someName());
    desktop().folderDialogResults.emplace_back(std::wstring(oneIn(2) ? L"D:" : L"C:\\App"));
    if (oneIn(3)) {
      desktop().folderDialogResults.back() = 32755;
      desktop().fileDialogResults.emplace_back(32755);
      desktop().saveDialogResults.emplace_back(32755);
    } else if (oneIn(3)) {
      // For commands that add a list, and for one that saves it in the place of the program's own.
      desktop().fileDialogResults.emplace_back(oneIn(2) ? catalogueFile : webListFile);
      desktop().saveDialogResults.emplace_back(platform::dialogs::SaveFileChoice{
          oneIn(2) ? catalogueFile : webListFile, 1 + static_cast<int>(below(2))});
    } else {
      desktop().saveDialogResults.emplace_back(platform::dialogs::SaveFileChoice{
          L"D:\\Saved " + std::to_wstring(below(3)) + (oneIn(2) ? L".csv" : L""), 1});
      desktop().fileDialogResults.emplace_back(
          std::wstring(oneIn(2) ? L"D:\\One.fp3" : L"C:\\Tools\\calc.exe"));
    }
  }
}

void RandomUse::otherProgram() {
  std::string bytes = desktop().bytesOf(catalogueFile).value_or("");
  switch (below(6)) {
    case 0:
      list_file::append(bytes,
                        record("fp3", "D:\\Found " + std::to_string(below(9)) + ".fp3", "x"));
      desktop().putFile(catalogueFile, bytes);
      break;
    case 1:
      desktop().putFile(catalogueFile, bytes.substr(0, below(bytes.size() + 1)));
      break;
    case 2:
      desktop().putFile(L"D:\\Two.bi3", "two");
      break;
    case 3:
      desktop().take(catalogueFile);
      desktop().putFile(catalogueFile, record("cw3", "D:\\Only.cw3", "y"));
      break;
    case 4:
      desktop().putFile(webListFile,
                        record("Page " + std::to_string(below(9)), "http://x.example"));
      break;
    default:
      desktop().putFile(L"C:\\App\\data\\New " + std::to_wstring(below(9)) + L".bs3", "z");
      break;
  }
}

void RandomUse::drives() {
  desktop().slowDrives.clear();
  desktop().missingDrives.clear();
  for (const wchar_t* const drive : {L"C:", L"D:", L"E:"}) {
    if (oneIn(3)) {
      desktop().slowDrives.insert(drive);
    }
    if (oneIn(4)) {
      desktop().missingDrives.insert(drive);
    }
  }
  desktop().backgroundMilliseconds = static_cast<int>(below(3000));
  if (!oneIn(4)) {  // sometimes the system does not say so
    main_->fireDrivesChanged();
  }
}

void RandomUse::settingsFile() {
  constexpr const wchar_t* path = L"C:\\App\\gateway3.ini";
  if (desktop().has(path)) {
    desktop().setReadOnly(path, oneIn(3));
  }
  // As if the program began once more, at another letter.
  main_->afterStart();
}

void RandomUse::system() {
  switch (below(6)) {
    case 0:
      drives();
      break;
    case 4:
      settingsFile();
      break;
    case 1:
      desktop().classicHelp = oneIn(2);
      desktop().compiledHelp = oneIn(2);
      break;
    case 2:
      desktop().elevated.clear();
      if (oneIn(2)) {
        desktop().elevated[L"C:\\Tools\\calc.exe"] = oneIn(2);
      }
      break;
    case 3:
      main_->fireLayout({900, 700}, oneIn(2) ? 96 : 144);
      break;
    default:
      main_->fireClose(oneIn(2) ? controls::UnloadMode::sessionEnd : controls::UnloadMode::forced);
      break;
  }
}

void RandomUse::select() {
  controls::ListView& list = main_->lstQMK.at(below(4));
  if (list.rows() > 0) {
    list.acceptSelectedRow(below(list.rows()));
  }
}

std::wstring RandomUse::someWords() {
  // What all entries have, some, or none; and what is typed letter by letter.
  constexpr std::array words{L"",       L"o",          L".",   L"FP3 d:", L"Page",
                             L"gone 3", L"no such \\", L"new", L"\u00C9", L"tools calc"};
  const std::wstring& typed = main_->txtFind.text();
  switch (below(5)) {
    case 0:
      return typed + someName();
    case 1:
      return typed.substr(0, typed.empty() ? 0 : typed.size() - 1);
    default:
      return words.at(below(words.size()));
  }
}

void RandomUse::find() {
  constexpr std::array keys{controls::keys::down, controls::keys::enter, controls::keys::escape};
  switch (below(8)) {
    case 0:
      main_->txtFind.fireKey({keys.at(below(keys.size()))});
      break;
    case 1:
      main_->cmdClearFind.fireClick();
      break;
    case 2:
      main_->fireKeyDown({.key = 'F', .control = true});
      break;
    default:
      main_->txtFind.acceptTyped(someWords());
      break;
  }
}

void RandomUse::order() {
  controls::ListView& list = main_->lstQMK.at(below(4));
  switch (below(5)) {
    case 0:
      main_->commands.item(ids::mnuNewestFirst).fireClick();
      break;
    case 1:
      main_->commands.item(ids::mnuFitColumns).fireClick();
      break;
    case 2:
      list.fireFitColumn(below(6));
      break;
    case 3:
      list.fireScroll();
      break;
    default:
      // The program has nothing else to do.
      desktop().advance(10 + static_cast<int>(below(20)));
      break;
  }
}

std::wstring RandomUse::nameTyped(const controls::ListView& list) {
  switch (below(6)) {
    case 0:
      return oneIn(2) ? L"" : L" \t ";
    case 1:
      return list.nameEditor() ? list.nameEditor()->text : L"Same";
    case 2:
      return list.count() > 0 ? list.text(below(list.count())) : L"Other";
    case 3:
      return someName();
    default:
      return L"Typed " + std::to_wstring(below(50));
  }
}

void RandomUse::editName() {
  controls::ListView& list = main_->lstQMK.at(below(4));
  if (oneIn(4)) {
    list.fireNameClick();
  } else {
    list.fireKey({controls::keys::f2});
  }
  if (oneIn(4)) {
    return;  // the editor stays open
  }
  if (oneIn(3)) {
    act();
  }
  if (oneIn(5)) {
    list.closeNameEditor();
  } else {
    list.fireNameTyped(nameTyped(list));
  }
}

const mainwindow::Command& RandomUse::someCommand() {
  const auto rows = mainwindow::commandTable().rows;
  return rows[below(rows.size())];
}

void RandomUse::command() {
  const auto list = static_cast<int>(below(4));
  switch (below(14)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
      // Any command, including those that are in no menu.
      if (const auto& row = someCommand(); row.id != ids::mnuExit || oneIn(100)) {
        if (row.id == ids::mnuEarlierLists) {
          arrangeEarlierLists();
        }
        main_->commands.item(row.id).fireClick();
      }
      break;
    case 6:
      if (const auto& row = someCommand(); row.key.reach == mainwindow::Reach::window) {
        main_->fireKeyDown(row.key.stroke);
      }
      break;
    case 7:
      main_->cmdBrowse.fireClick();
      break;
    case 8:
    case 9:
      main_->lstQMK.at(static_cast<std::size_t>(list)).fireDoubleClick();
      break;
    case 10:
      main_->lstQMK.at(static_cast<std::size_t>(list))
          .fireColumnClick(1 + static_cast<int>(below(5)));
      break;
    case 11:
      main_->lstQMK.at(static_cast<std::size_t>(list)).fireKey(someCommand().key.stroke);
      break;
    case 12:
      main_->lstQMK.at(static_cast<std::size_t>(list)).fireContextMenu(1, 2);
      break;
    default:
      main_->TabMain.fireSwitch(static_cast<int>(below(4)));
      break;
  }
}

void RandomUse::arrangeEarlierLists() {
  constexpr int apart = 7;
  const auto arrange = [](int moment, const std::function<void(frmEarlier&)>& action) {
    desktop().at(moment, [action] {
      if (auto* const form = desktop().window(L"frmEarlier")) {
        action(dynamic_cast<frmEarlier&>(*form));
      }
    });
  };
  int moment = 1;
  for (std::size_t clicks = below(4); clicks > 0; --clicks, moment += apart) {
    arrange(moment, [row = random_(), button = below(4)](frmEarlier& form) {
      if (const std::size_t rows = form.lstCopies.rows(); rows > 0) {
        form.lstCopies.acceptSelectedRow(row % rows);
      }
      const std::array<controls::CommandButton*, 3> buttons{&form.cmdShow, &form.cmdRestore,
                                                            &form.cmdAdd};
      if (button < buttons.size()) {
        buttons.at(button)->fireClick();
      } else {
        form.lstCopies.fireDoubleClick();
      }
    });
  }
  arrange(moment, [](frmEarlier& form) { form.cmdClose.fireClick(); });
}

void RandomUse::dialogs() {
  if (frmWeb* const dialog = main_->webDialog(); dialog != nullptr && dialog->loaded()) {
    dialog->txtName.setText(someName());
    dialog->txtUrl.setText(L"http://" + someName());
    if (oneIn(3)) {
      dialog->cmdCancel.fireClick();
    } else {
      dialog->cmdOK.fireClick();
    }
  } else if (frmAbout* const box = main_->aboutBox(); box != nullptr && box->loaded()) {
    box->cmdOK.fireClick();
  }
}

void RandomUse::act() {
  switch (below(14)) {
    case 0:
      otherProgram();
      break;
    case 5:
      system();
      break;
    case 1:
      desktop().advance(static_cast<int>(below(2500)));
      break;
    case 2:
    case 3:
      select();
      break;
    case 4:
      dialogs();
      break;
    case 9:
      find();
      break;
    case 10:
      order();
      break;
    case 11:
      editName();
      break;
    case 12:
      renameNarrowed();
      break;
    case 13:
      drag();
      break;
    default:
      command();
      break;
  }
}

}  // namespace faults
