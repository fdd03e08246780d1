// Random use of the whole window on the in-memory desktop, under the sanitizers: commands in any
// order, any answers, a find box that anything is typed into, other programs that write meanwhile,
// and a watch that ticks while a box is open.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "catalogue/catalogue_view.h"
#include "catalogue/stored_path.h"
#include "faults/between.h"
#include "faults/random_use.h"
#include "listfile/list_file.h"
#include "mainwindow/control_ids.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "web/web_list.h"

namespace faults {

using memory::desktop;
using platform::text::toCodePage;

namespace {

constexpr int deepest = 3;

/// A part of a text without blanks, to look for; "" when there is none.
std::wstring wordOf(std::wstring_view text, std::size_t from, std::size_t length) {
  const std::wstring_view part = text.substr(std::min(from, text.size()), length);
  return std::wstring(part.substr(0, part.find(L' ')));
}

/// The items of a list file that are gone or changed. Not those with a quotation mark: a record
/// cannot hold one, so that such a text is read in another way once it has been written.
std::multiset<std::wstring> lost(std::multiset<std::wstring> before, const std::wstring& path) {
  std::erase_if(before,
                [](const std::wstring& item) { return item.find(L'"') != std::wstring::npos; });
  for (const std::wstring& item : itemsOf(path)) {
    if (const auto found = before.find(item); found != before.end()) {
      before.erase(found);
    }
  }
  return before;
}

/// Checks that all files are as they were, except for those that may change.
void expectOthersUntouched(const State& before, const State& now,
                           const std::function<bool(const std::wstring&)>& mayChange) {
  for (const auto& [path, bytes] : before.files) {
    if (!mayChange(path)) {
      EXPECT_EQ(now.file(path), bytes) << toCodePage(path);
    }
  }
}

}  // namespace

void RandomUse::meanwhile() {
  if (depth_ >= deepest) {
    return;
  }
  ++depth_;
  otherProgram();
  desktop().advance(1000);
  if (oneIn(4)) {
    act();
  }
  --depth_;
}

// --- renaming in a narrowed list ---

void RandomUse::renameNarrowed() {
  if (depth_ > 0) {
    return;
  }
  // Only `disturb` changes something meanwhile, so that everything else is the program's doing.
  depth_ = deepest;
  constexpr std::array tabs{frmQMK::open, frmQMK::open, frmQMK::web, frmQMK::tools};
  const auto tab = tabs.at(below(tabs.size()));
  controls::ListView& list = main_->lstQMK.at(tab);
  main_->TabMain.fireSwitch(tab);
  list.closeNameEditor();
  list.fireKey({controls::keys::f5});
  if (list.whole() && list.count() > 1) {
    const std::size_t item = below(list.count());
    const std::wstring_view cell = list.cell(item, oneIn(3) ? 1 : 0);
    main_->txtFind.acceptTyped(wordOf(cell, below(6), 1 + below(4)));
    if (list.rows() > 0) {
      list.acceptSelectedRow(below(list.rows()));
      if (tab == frmQMK::open) {
        renameFile(list);
      } else if (tab == frmQMK::web) {
        renamePage(list);
      } else {
        renameShortcut(list);
      }
    }
  }
  depth_ = 0;
}

void RandomUse::disturb(frmQMK::Tab tab, bool boxIsUp) {
  controls::ListView& list = main_->lstQMK.at(tab);
  // While a box is up, the user cannot type in the find box.
  const std::size_t kinds = boxIsUp ? 5 : 6;
  for (auto n = below(4); n > 0; --n) {
    switch (below(kinds)) {
      case 0: {
        std::string bytes = desktop().bytesOf(catalogueFile).value_or("");
        list_file::append(bytes,
                          record("bi3", "D:\\Meanwhile " + std::to_string(below(9)) + ".bi3", "m"));
        desktop().putFile(catalogueFile, bytes);
        break;
      }
      case 1:
        desktop().advance(1000);
        break;
      case 2:
        main_->commands.item(ids::mnuNewestFirst).fireClick();
        break;
      case 3:
        list.fireColumnClick(1 + static_cast<int>(below(4)));
        break;
      case 4:
        list.fireKey({controls::keys::f5});
        break;
      default:
        main_->txtFind.acceptTyped(someWords());
        break;
    }
  }
}

void RandomUse::renameFile(controls::ListView& list) {
  const std::size_t chosen = list.selectedItem();
  const std::wstring path =
      list.subItem(chosen, modQMKGeneral::data_column::folder) + list.text(chosen);
  std::multiset<std::wstring> items;
  State before;
  std::wstring file;  // the list may hold another form of its name
  const auto look = [&] {
    items = itemsOf(catalogueFile);
    before = stateOf(*main_);
    static_cast<void>(
        platform::trapped([&] { file = stored_path::realFile(path).value_or(path); }));
  };
  if (oneIn(2)) {
    list.fireKey({controls::keys::f2});
    ASSERT_TRUE(list.nameEditor()) << "a file that is selected can be renamed";
    disturb(frmQMK::open, false);
    look();
    list.fireNameTyped(nameTyped(list));
  } else {
    desktop().inputAnswers.front() = nameTyped(list);
    desktop().onInput = [&](const ::memory::Input&) {
      disturb(frmQMK::open, true);
      look();
    };
    main_->mnuRename.fireClick();
    desktop().onInput = nullptr;
  }
  const auto changed = lost(items, catalogueFile);
  for (const std::wstring& item : changed) {
    EXPECT_NE(item.find(L'|' + path + L'|'), std::wstring::npos)
        << "renaming " << toCodePage(path) << " has changed " << toCodePage(item);
  }
  renamed_ += changed.empty() ? 0 : 1;
  expectOthersUntouched(before, stateOf(*main_), [&file](const std::wstring& other) {
    return other == file || other == catalogueFile;
  });
}

void RandomUse::renamePage(controls::ListView& list) {
  const std::size_t chosen = list.selectedItem();
  const std::wstring page =
      list.text(chosen) + L'|' + list.subItem(chosen, modQMKGeneral::urlColumn);
  main_->mnuRename.fireClick();
  frmWeb* const dialog = main_->webDialog();
  ASSERT_TRUE(dialog != nullptr && dialog->loaded());
  dialog->txtName.acceptTyped(nameTyped(list));
  const auto items = itemsOf(webListFile);
  const State before = stateOf(*main_);
  dialog->cmdOK.fireClick();
  const auto changed = lost(items, webListFile);
  for (const std::wstring& item : changed) {
    EXPECT_EQ(toCodePage(item), toCodePage(page));
  }
  EXPECT_LE(changed.size(), 1U);
  EXPECT_EQ(itemsOf(webListFile).size(), items.size());
  renamed_ += changed.empty() ? 0 : 1;
  expectOthersUntouched(before, stateOf(*main_),
                        [](const std::wstring& other) { return other == webListFile; });
}

void RandomUse::renameShortcut(controls::ListView& list) {
  const std::wstring path = list.subItem(list.selectedItem(), modSC::shortcut_column::file);
  State before;
  if (oneIn(2)) {
    list.fireKey({controls::keys::f2});
    ASSERT_TRUE(list.nameEditor());
    disturb(frmQMK::tools, false);
    before = stateOf(*main_);
    list.fireNameTyped(nameTyped(list));
  } else {
    desktop().inputAnswers.front() = nameTyped(list);
    desktop().onInput = [&](const ::memory::Input&) {
      disturb(frmQMK::tools, true);
      before = stateOf(*main_);
    };
    main_->mnuRename.fireClick();
    desktop().onInput = nullptr;
  }
  const State now = stateOf(*main_);
  renamed_ += now.file(path) == "(none)" ? 1 : 0;
  expectOthersUntouched(before, now, [&path](const std::wstring& other) {
    // Where a renamed shortcut goes.
    return other == path || other.starts_with(L"C:\\App\\shortcuts\\");
  });
}

// --- what must always hold ---

void RandomUse::expectShownIsWhatMatches() {
  for (const controls::ListView& list : main_->lstQMK) {
    const controls::FindWords words(list.findText());
    std::vector<std::size_t> matching;
    for (std::size_t item = 0; item < list.count(); ++item) {
      std::size_t found = 0;
      for (std::size_t word = 0; word < words.count(); ++word) {
        bool holds = false;
        for (std::size_t column = 0; column < list.columns().size(); ++column) {
          holds = holds || (list.columns()[column].widthTwips > 0 &&
                            words.finds(word, list.cell(item, column)));
        }
        found += holds ? 1 : 0;
      }
      if (found == words.count()) {
        matching.push_back(item);
      }
    }
    std::vector<std::size_t> shown;
    for (std::size_t row = 0; row < list.rows(); ++row) {
      shown.push_back(list.itemOfRow(row));
      static_cast<void>(list.remarkOn(row));  // as painting does
    }
    ASSERT_EQ(shown, matching) << "with \"" << toCodePage(list.findText()) << '"';
    narrowed_ += shown.size() < list.count() ? 1 : 0;
  }
}

void RandomUse::use(unsigned seed, int events) {
  random_.seed(seed);
  // Every second program is carried around, and its drive had another letter.
  Rig rig([seed] {
    if (seed % 2 == 0) {
      desktop().putFile(L"C:\\App\\gateway3.ini", "[General]\r\nDrive=E:\r\n");
    }
  });
  main_ = &rig.main();
  main_->tmrFileUpdate.setEnabled(true);
  desktop().onMessage = [this](const ::memory::Message&) { meanwhile(); };
  desktop().onPump = [this] { meanwhile(); };
  for (int n = 0; n < events && main_->loaded() && !HasFailure(); ++n) {
    SCOPED_TRACE("seed " + std::to_string(seed) + ", event " + std::to_string(n));
    prepareAnswers();
    desktop().clearJournal();
    desktop().messages.clear();
    act();
    if (main_->loaded()) {
      expectShownIsWhatMatches();
    }
    ++events_;
  }
  if (!main_->loaded()) {
    return;
  }
  // Afterwards the Open list has what is in the file.
  desktop().onMessage = nullptr;
  desktop().onPump = nullptr;
  desktop().advance(4000);  // a search in the background may still add something
  desktop().putFile(catalogueFile, record("fp3", "D:\\Last.fp3", "z"));
  desktop().advance(2000);
  EXPECT_EQ(main_->lstQMK[frmQMK::open].count(), 1U) << "seed " << seed;
}

TEST_F(RandomUse, FindsNothingThatTheSanitizersObjectToAndLosesNothing) {
  const char* const wanted = std::getenv("QMK_RANDOM_USES");
  const int uses = wanted == nullptr ? 60 : std::atoi(wanted);
  constexpr int events = 400;
  for (int seed = 1; seed <= uses; ++seed) {
    desktop().reset();
    use(static_cast<unsigned>(seed), events);
    if (HasFailure()) {
      return;
    }
  }
  // Otherwise the checks of the narrowed lists have checked nothing.
  EXPECT_GT(renamed_, uses);
  EXPECT_GT(narrowed_, uses);
  std::cout << "figure: random use in memory, events: " << events_ << '\n'
            << "figure: random use in memory, entries of narrowed lists renamed: " << renamed_
            << '\n';
}

}  // namespace faults
