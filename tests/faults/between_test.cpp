// Between a question and its answer: while each question or dialog is open, other programs, the
// user and the system change files, lists and windows in any order. The answer must change only
// what the question named, and afterwards the lists show what is in their files.
#include "faults/between.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "listfile/list_file.h"
#include "platform/faults.h"
#include "platform/text.h"

namespace faults {

using memory::desktop;
using platform::dialogs::Answer;

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

namespace {

std::multiset<std::wstring> without(std::multiset<std::wstring> items,
                                    const std::multiset<std::wstring>& others) {
  for (const std::wstring& other : others) {
    if (const auto found = items.find(other); found != items.end()) {
      items.erase(found);
    }
  }
  return items;
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

}  // namespace

// --- the expected state ---

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
  // Renaming writes what the list shows, whatever the file contains. Nothing else removes records
  // that it has not named.
  if (asking_ != "rename a web shortcut" || toldGone()) {
    for (const std::wstring& item : without(webListBefore_, itemsOf(webListFile))) {
      EXPECT_EQ(item.substr(0, webName_.size() + 1), webName_ + L'|');
      EXPECT_FALSE(toldGone());
    }
  }
}

void Between::expectListsShowTheirFiles() {
  desktop().onMessage = nullptr;
  desktop().onInput = nullptr;
  desktop().onFileDialog = nullptr;
  desktop().unlock(catalogueFile);
  desktop().unlock(webListFile);
  desktop().advance(2000);
  // Only the catalogue is watched. If it could not be read at one file time, the watch does not try
  // again for that time.
  for (const auto tab : {frmQMK::tools, frmQMK::open, frmQMK::web}) {
    main_->lstQMK.at(tab).fireKey({controls::keys::f5});
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
  main_->TabMain.fireSwitch(tab);
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
  Rig rig;
  main_ = &rig.main();
  layOut();
  rig.settle();
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
    // Two records of one file may have different types, and the type decides the extension.
    renamed_ = path_.substr(0, path_.rfind(L'\\') + 1) + L"Typed name.";
  } else if (asking_ == "rename a shortcut") {
    renamed_ = L"C:\\App\\shortcuts\\Typed name.lnk";
  } else if (asking_ == "create a shortcut") {
    path_.clear();
    renamed_ = linkPath(L"Shortcut to calc.exe");
  }
  desktop().answers.clear();
  desktop().onMessage = [this](const ::memory::Message& message) {
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
  desktop().faults().failNothing();
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
  EXPECT_EQ(asked_.size(), 16U) << "a question was never asked";
  EXPECT_GT(gone_, rounds / 50);
  EXPECT_GT(done_, rounds / 50);
  std::cout << "figure: between question and answer, rounds: " << rounds << '\n'
            << "figure: between question and answer, changes meanwhile: " << changes_ << '\n'
            << "figure: between question and answer, entries said to be gone: " << gone_ << '\n'
            << "figure: between question and answer, files touched as asked: " << done_ << '\n';
}

}  // namespace faults
