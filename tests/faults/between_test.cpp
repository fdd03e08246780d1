// Between a question and its answer: every question and dialog, and while it is up other programs,
// the user and the system change files, lists and windows in any order. Whatever they do, only what
// the question named is touched, and at rest the lists show what is in their files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue/list_file.h"
#include "faults/sweep.h"
#include "platform/desktop_test.h"
#include "platform/text.h"

namespace faults {
namespace {

using desktop::desktop;
using platform::dialogs::Answer;

using Files = std::map<std::wstring, std::string>;

/// The items that a list file stands for, each with its cells in one text.
std::multiset<std::wstring> itemsOf(const std::wstring& path) {
  std::multiset<std::wstring> items;
  const std::string bytes = desktop().bytesOf(path).value_or("");
  list_file::Reader reader(bytes);
  for (list_file::Record record; reader.next(record);) {
    if (path == webListFile) {
      if (record.has(0)) {
        items.insert(record.text(0) + L'|' + record.text(1));
      }
    } else if (const auto file = record.text(1);
               file.find(L'\\') != std::wstring::npos && file.back() != L'\\') {
      items.insert(record.text(0) + L'|' + file + L'|' + record.text(2));
    }
  }
  return items;
}

std::multiset<std::wstring> without(std::multiset<std::wstring> items,
                                    const std::multiset<std::wstring>& others) {
  for (const std::wstring& other : others) {
    if (const auto found = items.find(other); found != items.end()) {
      items.erase(found);
    }
  }
  return items;
}

class Between : public ::desktop::DesktopTest {
 protected:
  void round(unsigned seed);
  int changes_ = 0;
  int gone_ = 0;
  int done_ = 0;
  std::map<std::string, int> asked_;
  std::string asking_;

 private:
  /// A question with what its answer may do.
  struct Question {
    std::string name;
    frmQMK::Tab tab;
    std::function<void()> ask;
    bool namesItem = true;
  };
  std::size_t below(std::size_t most) { return random_() % most; }
  bool oneIn(unsigned n) { return random_() % n == 0; }
  std::string someRecords(const std::vector<std::string>& known);
  void layOut();
  std::vector<Question> questions();
  bool selectSome(frmQMK::Tab tab);
  void answer(Answer answer);
  void type(const std::wstring& text);
  void confirmDialog();

  void change();
  void otherProgram();
  void filesChange();
  void windowChange();
  /// While a box is up.
  void meanwhile();
  /// Notes what there is now; what is different at the next look has been done by the program.
  void look();
  void expectOnlyTheNamedTouched();
  void expectListsShowTheirFiles();
  [[nodiscard]] bool toldGone() const;

  std::mt19937 random_;
  frmQMK* main_ = nullptr;
  std::wstring path_;     // of the file that the question names
  std::wstring renamed_;  // how the path of that file may begin afterwards
  std::wstring webName_;  // name of the web shortcut that the question names
  State before_;
  std::multiset<std::wstring> catalogueBefore_;
  std::multiset<std::wstring> webListBefore_;
  bool missed_ = false;  // the file that was to be renamed was said to be missing
  int boxes_ = 0;
};

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

std::wstring linkPath(const std::wstring& name) { return shortcutsFolder + L'\\' + name + L".lnk"; }

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
    dialog->cmdOK.raiseClick();
  }
}

std::vector<Between::Question> Between::questions() {
  const auto open = [this] { main_->lstQMK[frmQMK::open].raiseDoubleClick(); };
  return {
      {"delete a file", frmQMK::open,
       [this] {
         answer(Answer::yes);
         main_->mnuDelete.raiseClick();
       }},
      {"rename a file", frmQMK::open,
       [this] {
         type(L"Typed name");
         main_->mnuRename.raiseClick();
       }},
      {"rename a missing file", frmQMK::open,
       [this] {
         takeIfThere(path_);
         look();
         type(L"Typed name");
         main_->mnuRename.raiseClick();
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
      {"open a file", frmQMK::open,
       [this, open] {
         desktop().putFile(path_, "data");
         look();
         open();
       }},
      {"browse", frmQMK::open,
       [this] {
         desktop().fileDialogResults.emplace_front(std::wstring(L"D:\\One.fp3"));
         main_->cmdBrowse.raiseClick();
       },
       false},
      {"delete a shortcut", frmQMK::tools,
       [this] {
         answer(Answer::yes);
         main_->mnuDelete.raiseClick();
       }},
      {"rename a shortcut", frmQMK::tools,
       [this] {
         type(L"Typed name");
         main_->mnuRename.raiseClick();
       }},
      {"create a shortcut", frmQMK::tools,
       [this] {
         desktop().fileDialogResults.emplace_front(std::wstring(L"C:\\Tools\\calc.exe"));
         main_->mnuCreate.raiseClick();
       },
       false},
      {"delete a web shortcut", frmQMK::web,
       [this] {
         answer(Answer::yes);
         main_->mnuDelete.raiseClick();
       }},
      {"rename a web shortcut", frmQMK::web,
       [this] {
         main_->mnuRename.raiseClick();
         confirmDialog();
       }},
      {"create a web shortcut", frmQMK::web,
       [this] {
         main_->mnuCreate.raiseClick();
         confirmDialog();
       },
       false},
      {"exit", frmQMK::tools,
       [this] {
         answer(Answer::no);
         main_->mnuExit.raiseClick();
       },
       false},
  };
}

// --- what happens meanwhile ---

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
      main_->lstQMK.at(list).raiseKey(controls::ListKey::reload);
      break;
    case 4:
      main_->lstQMK.at(list).raiseColumnClick(1 + static_cast<int>(below(5)));
      break;
    case 5:
      (oneIn(2) ? main_->mnuIcon : main_->mnuList).raiseClick();
      break;
    case 6:
      answer(Answer::no);
      main_->raiseClose(oneIn(2) ? controls::UnloadMode::user : controls::UnloadMode::sessionEnd);
      break;
    case 7:
      main_->raiseLayout({900, 600}, oneIn(2) ? 96 : 144);
      break;
    default: {
      const int tab = main_->TabMain.current();
      main_->TabMain.raiseSwitch(static_cast<int>(list));
      main_->TabMain.raiseSwitch(tab);
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
  // The boxes of what happens meanwhile are left alone.
  const int kept = std::exchange(boxes_, mostBoxes);
  for (auto n = below(5); n > 0; --n) {
    change();
  }
  if (oneIn(2)) {
    // So that the lists know of it.
    desktop().advance(1000);
    main_->lstQMK.at(static_cast<std::size_t>(main_->TabMain.current()))
        .raiseKey(controls::ListKey::reload);
  }
  boxes_ = kept;
  // What has been told so far was about that.
  desktop().messages.clear();
  look();
}

// --- what is right ---

void Between::look() {
  before_ = stateOf(*main_);
  catalogueBefore_ = itemsOf(catalogueFile);
  webListBefore_ = itemsOf(webListFile);
}

bool Between::toldGone() const {
  const auto& messages = desktop().messages;
  return std::any_of(messages.begin(), messages.end(), [](const auto& message) {
    return message.text.ends_with(L" is no longer in the list");
  });
}

void Between::expectOnlyTheNamedTouched() {
  const State now = stateOf(*main_);
  std::set<std::wstring> paths;
  for (const State* const state : {&std::as_const(before_), &now}) {
    for (const auto& [path, bytes] : state->files) {
      paths.insert(path);
    }
  }
  for (const std::wstring& path : paths) {
    if (path == catalogueFile || path == webListFile || before_.file(path) == now.file(path)) {
      continue;
    }
    const bool named = path == path_ && now.file(path) == "(none)";
    const bool renamed = !renamed_.empty() && path.starts_with(renamed_);
    EXPECT_TRUE((named || renamed) && !toldGone()) << platform::text::toCodePage(path);
    EXPECT_NE(asking_, "drop a missing file");
    EXPECT_NE(asking_, "locate a missing file");
    EXPECT_NE(asking_, "open a file");
    EXPECT_FALSE(missed_) << "only an entry was said to go";
    ++done_;
  }
  const auto lost = without(catalogueBefore_, itemsOf(catalogueFile));
  for (const std::wstring& item : lost) {
    EXPECT_NE(item.find(L'|' + path_ + L'|'), std::wstring::npos)
        << platform::text::toCodePage(item);
    EXPECT_FALSE(toldGone());
  }
  // The renaming writes what the list shows, whatever the file holds; nothing else takes away what
  // it has not named.
  if (asking_ != "rename a web shortcut" || toldGone()) {
    for (const std::wstring& item : without(webListBefore_, itemsOf(webListFile))) {
      EXPECT_EQ(item.substr(0, webName_.size() + 1), webName_ + L'|');
      EXPECT_FALSE(toldGone());
    }
  }
}

std::multiset<std::wstring> shown(const controls::ListView& list, bool web) {
  std::multiset<std::wstring> items;
  for (std::size_t i = 0; i < list.count(); ++i) {
    items.insert(web ? list.text(i) + L'|' + list.subItem(i, 1)
                     : list.subItem(i, 4) + L'|' + list.subItem(i, 3) + list.text(i) + L'|' +
                           list.subItem(i, 1));
  }
  return items;
}

void Between::expectListsShowTheirFiles() {
  desktop().onMessage = nullptr;
  desktop().onInput = nullptr;
  desktop().onFileDialog = nullptr;
  desktop().unlock(catalogueFile);
  desktop().unlock(webListFile);
  desktop().advance(2000);
  // Only the catalogue is watched; and a time at which it could not be read is not tried again.
  for (const auto tab : {frmQMK::tools, frmQMK::open, frmQMK::web}) {
    main_->lstQMK.at(tab).raiseKey(controls::ListKey::reload);
  }
  EXPECT_EQ(shown(main_->lstQMK[frmQMK::open], false), itemsOf(catalogueFile));
  EXPECT_EQ(shown(main_->lstQMK[frmQMK::web], true), itemsOf(webListFile));
  std::multiset<std::wstring> files;
  for (const std::wstring& name : desktop().namesIn(shortcutsFolder)) {
    files.insert(shortcutsFolder + L'\\' + name);
  }
  std::multiset<std::wstring> listed;
  const controls::ListView& tools = main_->lstQMK[frmQMK::tools];
  for (std::size_t i = 0; i < tools.count(); ++i) {
    listed.insert(tools.subItem(i, 2));
  }
  EXPECT_EQ(listed, files);
}

// --- a round ---

bool Between::selectSome(frmQMK::Tab tab) {
  main_->TabMain.raiseSwitch(tab);
  controls::ListView& list = main_->lstQMK.at(tab);
  if (list.count() == 0) {
    return false;
  }
  const std::size_t index = below(list.count());
  list.acceptSelection(index);
  path_ = tab == frmQMK::open    ? list.subItem(index, 3) + list.text(index)
          : tab == frmQMK::tools ? list.subItem(index, 2)
                                 : L"";
  webName_ = tab == frmQMK::web ? list.text(index) : L"";
  return true;
}

void Between::round(unsigned seed) {
  random_.seed(seed);
  Bench bench;
  main_ = &bench.main();
  layOut();
  bench.settle();
  main_->tmrFileUpdate.setEnabled(true);
  if (oneIn(2)) {
    desktop().advance(1000);
  }
  const auto all = questions();
  const Question& question = all[below(all.size())];
  path_.clear();
  renamed_.clear();
  webName_.clear();
  if (!selectSome(question.tab) && question.namesItem) {
    return;
  }
  asking_ = question.name;
  ++asked_[asking_];
  missed_ = false;
  if (asking_.starts_with("rename a") && question.tab == frmQMK::open) {
    // Two records of one file may differ in their types, of which comes the extension.
    renamed_ = path_.substr(0, path_.rfind(L'\\') + 1) + L"Typed name.";
  } else if (asking_ == "rename a shortcut") {
    renamed_ = L"C:\\App\\shortcuts\\Typed name.lnk";
  } else if (asking_ == "create a shortcut") {
    path_.clear();
    renamed_ = linkPath(L"Shortcut to calc.exe");
  }
  desktop().answers.clear();
  desktop().onMessage = [this](const ::desktop::Message& message) {
    const bool missed = message.text == L"File does not exists, removing entry";
    if (missed || message.answer != Answer::ok) {
      meanwhile();
    }
    missed_ = missed_ || missed;
  };
  desktop().onInput = [this](const auto& /*input*/) { meanwhile(); };
  desktop().onFileDialog = [this] { meanwhile(); };
  boxes_ = 0;
  look();
  question.ask();
  desktop().failNothing();
  gone_ += toldGone() ? 1 : 0;
  expectOnlyTheNamedTouched();
  expectListsShowTheirFiles();
}

TEST_F(Between, OnlyWhatAQuestionNamedIsTouched) {
  const char* const wanted = std::getenv("QMK_BETWEEN_ROUNDS");
  const int rounds = wanted == nullptr ? 500 : std::atoi(wanted);
  for (int seed = 1; seed <= rounds && !HasFailure(); ++seed) {
    SCOPED_TRACE("round " + std::to_string(seed));
    round(static_cast<unsigned>(seed));
    if (HasFailure()) {
      std::cout << asking_ << '\n';
    }
  }
  EXPECT_EQ(asked_.size(), 14U) << "a question was never asked";
  EXPECT_GT(gone_, rounds / 50);
  EXPECT_GT(done_, rounds / 50);
  std::cout << "figure: between question and answer, rounds: " << rounds << '\n'
            << "figure: between question and answer, changes meanwhile: " << changes_ << '\n'
            << "figure: between question and answer, entries said to be gone: " << gone_ << '\n'
            << "figure: between question and answer, files touched as asked: " << done_ << '\n';
}

}  // namespace
}  // namespace faults
