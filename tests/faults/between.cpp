// The questions, and the actions of other programs, the user and the system while one is open.
#include "faults/between.h"

#include <algorithm>
#include <utility>

#include "mainwindow/control_ids.h"
#include "platform/text.h"

namespace faults {

using memory::desktop;
using platform::dialogs::Answer;

namespace {

const std::vector<std::string>& knownRecords() {
  static const std::vector<std::string> records{record("fp3", "D:\\One.fp3", "1/1/2001"),
                                                record("bi3", "D:\\Two.bi3", "2/2/2002"),
                                                record("fp3", "D:\\Gone.fp3", "3/3/2003"),
                                                record("cw3", "D:\\One.fp3", "4/4/2004"),
                                                record("bs3", "D:\\A b.bs3", "5/5/2005"),
                                                record("fp3", "C:\\Tools\\One.fp3", "6/6/2006"),
                                                "odd, line\r\n"};
  return records;
}

const std::vector<std::string>& knownPages() {
  static const std::vector<std::string> records{
      record("Weather", "http://weather.example"), record("News", "http://news.example"),
      record("News", "http://news.example"),       record("News", "http://other.example"),
      record("Maps", "http://maps.example"),       "\r\n"};
  return records;
}

const std::vector<std::wstring> dataFiles{L"D:\\One.fp3", L"D:\\Two.bi3", L"D:\\A b.bs3",
                                          L"C:\\Tools\\One.fp3"};
const std::vector<std::wstring> links{L"Calc", L"Notes", L"Abc", L"Zed"};

void takeIfThere(const std::wstring& path) {
  if (desktop().has(path)) {
    desktop().take(path);
  }
}

void putLink(const std::wstring& name) {
  platform::shell_links::Link link;
  link.targetPath = L"C:\\Tools\\calc.exe";
  desktop().putLink(linkPath(name), link);
}

}  // namespace

std::wstring linkPath(const std::wstring& name) { return shortcutsFolder + L'\\' + name + L".lnk"; }

std::string Between::someRecords(const std::vector<std::string>& known) {
  std::vector<std::string> records = known;
  std::shuffle(records.begin(), records.end(), random_);
  records.resize(below(records.size() + 1));
  std::string bytes;
  for (const std::string& record : records) {
    bytes += record;
  }
  return bytes;
}

void Between::layOut() {
  for (const std::wstring& file : dataFiles) {
    desktop().putFile(file, "data of " + platform::text::toCodePage(file));
  }
  desktop().putFile(catalogueFile, someRecords(knownRecords()) + knownRecords().at(below(6)));
  desktop().putFile(webListFile, someRecords(knownPages()) + knownPages().at(below(5)));
  for (const std::wstring& name : links) {
    putLink(name);
  }
}

void Between::answer(Answer answer) { desktop().answers.push_front(answer); }

void Between::type(const std::wstring& text) { desktop().inputAnswers.emplace_front(text); }

void Between::confirmDialog() {
  frmWeb* const dialog = main_->webDialog();
  ASSERT_NE(dialog, nullptr);
  dialog->txtName.acceptTyped(L"Typed");
  meanwhile();
  if (dialog->loaded()) {
    dialog->cmdOK.fireClick();
  }
}

std::vector<Between::Question> Between::questions() {
  const auto open = [this] { main_->lstQMK[frmQMK::open].fireDoubleClick(); };
  return {
      {"delete a file", frmQMK::open,
       [this] {
         answer(Answer::yes);
         main_->mnuDelete.fireClick();
       }},
      {"rename a file", frmQMK::open,
       [this] {
         type(L"Typed name");
         main_->mnuRename.fireClick();
       }},
      {"rename a missing file", frmQMK::open,
       [this] {
         takeIfThere(path_);
         look();
         type(L"Typed name");
         main_->mnuRename.fireClick();
       }},
      {"drop a missing file", frmQMK::open,
       [this, open] {
         takeIfThere(path_);
         look();
         answer(Answer::no);
         open();
       }},
      {"locate a missing file", frmQMK::open,
       [this, open] {
         takeIfThere(path_);
         look();
         answer(Answer::yes);
         desktop().fileDialogResults.emplace_front(std::wstring(L"D:\\Two.bi3"));
         open();
       }},
      {"show a missing file elsewhere", frmQMK::open,
       [this, open] {
         const controls::ListView& list = main_->lstQMK[frmQMK::open];
         const std::wstring found = L"D:\\Found." + list.subItem(list.selectedItem(), 4);
         takeIfThere(path_);
         desktop().putFile(found, "found");
         look();
         answer(Answer::yes);
         answer(Answer::yes);
         desktop().fileDialogResults.emplace_front(found);
         open();
       }},
      {"find moved files", frmQMK::open,
       [this] {
         takeIfThere(path_);
         desktop().putFile(L"E:" + path_.substr(2), "moved");
         // The command needs to know of a missing file.
         desktop().advance(100);
         look();
         desktop().answers.assign(20, Answer::yes);
         desktop().folderDialogResults = {32755};
         main_->commands.refresh();
         main_->commands.item(ids::mnuFindMoved).fireClick();
         desktop().advance(100);
       }},
      {"open a file", frmQMK::open,
       [this, open] {
         desktop().putFile(path_, "data");
         look();
         open();
       }},
      {"browse", frmQMK::open,
       [this] {
         desktop().fileDialogResults.emplace_front(std::wstring(L"D:\\One.fp3"));
         main_->cmdBrowse.fireClick();
       },
       false},
      {"delete a shortcut", frmQMK::tools,
       [this] {
         answer(Answer::yes);
         main_->mnuDelete.fireClick();
       }},
      {"rename a shortcut", frmQMK::tools,
       [this] {
         type(L"Typed name");
         main_->mnuRename.fireClick();
       }},
      {"create a shortcut", frmQMK::tools,
       [this] {
         desktop().fileDialogResults.emplace_front(std::wstring(L"C:\\Tools\\calc.exe"));
         main_->mnuCreate.fireClick();
       },
       false},
      {"delete a web shortcut", frmQMK::web,
       [this] {
         answer(Answer::yes);
         main_->mnuDelete.fireClick();
       }},
      {"rename a web shortcut", frmQMK::web,
       [this] {
         main_->mnuRename.fireClick();
         confirmDialog();
       }},
      {"create a web shortcut", frmQMK::web,
       [this] {
         main_->mnuCreate.fireClick();
         confirmDialog();
       },
       false},
      {"exit", frmQMK::tools,
       [this] {
         answer(Answer::no);
         main_->mnuExit.fireClick();
       },
       false},
  };
}

// --- actions while a question is open ---

void Between::otherProgram() {
  switch (below(5)) {
    case 0:
    case 1:
      desktop().putFile(catalogueFile, someRecords(knownRecords()));
      break;
    case 2:
      desktop().putFile(webListFile, someRecords(knownPages()));
      break;
    case 3: {
      const std::wstring& file = oneIn(2) ? catalogueFile : webListFile;
      desktop().putFile(file, desktop().bytesOf(file).value_or("") + "new, line");
      break;
    }
    default:
      desktop().lock(oneIn(2) ? catalogueFile : webListFile);
      break;
  }
}

void Between::filesChange() {
  const std::wstring& file = oneIn(2) && !path_.empty() ? path_ : dataFiles[below(4)];
  const std::wstring& link = links[below(links.size())];
  switch (below(5)) {
    case 0:
      takeIfThere(file);
      break;
    case 1:
      desktop().putFile(file, "came back");
      break;
    case 2:
      takeIfThere(linkPath(link));
      break;
    case 3:
      putLink(link);
      break;
    default:
      if (desktop().has(file)) {
        desktop().setReadOnly(file, oneIn(2));
      }
      break;
  }
}

void Between::windowChange() {
  const auto list = below(4);
  switch (below(9)) {
    case 0:
    case 1:
      desktop().advance(1000);
      break;
    case 2:
    case 3:
      main_->lstQMK.at(list).fireKey({controls::keys::f5});
      break;
    case 4:
      main_->lstQMK.at(list).fireColumnClick(1 + static_cast<int>(below(5)));
      break;
    case 5:
      (oneIn(2) ? main_->mnuIcon : main_->mnuList).fireClick();
      break;
    case 6:
      answer(Answer::no);
      main_->fireClose(oneIn(2) ? controls::UnloadMode::user : controls::UnloadMode::sessionEnd);
      break;
    case 7:
      main_->fireLayout({900, 600}, oneIn(2) ? 96 : 144);
      break;
    default: {
      const int tab = main_->TabMain.current();
      main_->TabMain.fireSwitch(static_cast<int>(list));
      main_->TabMain.fireSwitch(tab);
      break;
    }
  }
}

void Between::change() {
  ++changes_;
  switch (below(3)) {
    case 0:
      otherProgram();
      break;
    case 1:
      filesChange();
      break;
    default:
      windowChange();
      break;
  }
}

void Between::meanwhile() {
  constexpr int mostBoxes = 2;
  if (++boxes_ > mostBoxes) {
    return;
  }
  expectOnlyTheNamedTouched();
  // Message boxes of these actions do not trigger further actions.
  const int kept = std::exchange(boxes_, mostBoxes);
  for (auto n = below(5); n > 0; --n) {
    change();
  }
  if (oneIn(2)) {
    // So that the lists show it.
    desktop().advance(1000);
    main_->lstQMK.at(static_cast<std::size_t>(main_->TabMain.current()))
        .fireKey({controls::keys::f5});
  }
  boxes_ = kept;
  // The messages so far belong to the actions, not to the question.
  desktop().messages.clear();
  look();
}

}  // namespace faults
