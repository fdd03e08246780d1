// The window with the earlier lists, as the main window shows it.
#include "earlier/earlier_dialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "mainwindow/control_ids.h"
#include "unit/support/list_file_bytes.h"
#include "unit/support/loaded_main_window.h"

namespace {

using memory::desktop;
using platform::dialogs::Answer;
using unit::bytesOf;
using unit::catalogueFile;
using unit::record;
using unit::Texts;
using unit::webListFile;

class EarlierDialog : public unit::LoadedMainWindow {
 protected:
  EarlierDialog() {
    desktop().putFile(catalogueFile, today);
    desktop().putFile(webListFile, record({"Weather", "http://weather.example"}));
    put(L"QMKFileList3 2026-11-18.txt", earlier);
    put(L"QMKFileList3 2026-11-19 080000.txt", today);
    put(L"QMKWebList 2026-11-17.txt", record({"News", "http://news.example"}));
    put(L"QMKWebList old.txt", "something else");
    switchTo(frmQMK::open);
    window.reloadList(frmQMK::open);
    window.reloadList(frmQMK::web);
  }
  static std::wstring path(const std::wstring& name) {
    return modQMKGeneral::BackupFolder() + L"\\" + name;
  }
  static void put(const std::wstring& name, const std::string& bytes) {
    desktop().putFile(path(name), bytes);
  }
  /// Opens the window, does something in it, and closes it if it is still open.
  void use(const std::function<void(frmEarlier&)>& action) {
    desktop().at(20, [this, action] {
      ASSERT_NE(window.earlierLists(), nullptr);
      action(*window.earlierLists());
      window.earlierLists()->cmdClose_Click();
    });
    window.commands.item(ids::mnuEarlierLists).fireClick();
    EXPECT_EQ(desktop().window(L"frmEarlier"), nullptr);
  }
  static Texts rowsOf(const controls::ListView& list) {
    Texts rows;
    for (std::size_t row = 0; row < list.rows(); ++row) {
      std::wstring text;
      for (std::size_t column = 0; column < list.columns().size(); ++column) {
        text += (column > 0 ? L"|" : L"") + std::wstring(list.rowCell(row, column));
      }
      rows.push_back(text);
    }
    return rows;
  }

  const std::string earlier =
      record({"fp3", "D:\\One.fp3", "1/1/2001"}) + record({"bi3", "D:\\Two.bi3", "2/2/2002"});
  const std::string today =
      record({"fp3", "D:\\One.fp3", "1/1/2001"}) + record({"cw3", "D:\\New.cw3", "3/3/2003"});
};

TEST_F(EarlierDialog, ShowsTheListsOfTheTabWithTheNewestFirst) {
  use([](frmEarlier& form) {
    EXPECT_EQ(form.caption(), L"Earlier Lists");
    EXPECT_EQ(rowsOf(form.lstCopies),
              (Texts{L"2026-11-19 08:00:00|2|62 bytes", L"2026-11-18|2|62 bytes"}));
    EXPECT_EQ(form.lstCopies.selected(), 0U);
  });
  switchTo(frmQMK::web);
  use([](frmEarlier& form) {
    EXPECT_EQ(rowsOf(form.lstCopies), (Texts{L"2026-11-17|1|30 bytes"}));
  });
}

TEST_F(EarlierDialog, DatesAndSizesDoNotWaitForTheCounts) {
  desktop().backgroundMilliseconds = 50;
  use([](frmEarlier& form) {
    EXPECT_EQ(rowsOf(form.lstCopies),
              (Texts{L"2026-11-19 08:00:00||62 bytes", L"2026-11-18||62 bytes"}));
    desktop().advance(50);
    EXPECT_EQ(form.lstCopies.subItem(1, 1), L"2");
  });
  desktop().advance(100);
}

TEST_F(EarlierDialog, CountsThatComeTooLateDoNoHarm) {
  desktop().backgroundMilliseconds = 50;
  use([](frmEarlier& /*form*/) {});
  use([](frmEarlier& /*form*/) {});
  desktop().advance(100);
}

TEST_F(EarlierDialog, SaysWhichListCannotBeRead) {
  desktop().lock(path(L"QMKFileList3 2026-11-18.txt"));
  use([](frmEarlier& form) {
    EXPECT_EQ(form.lstCopies.subItem(0, 1), L"2");
    EXPECT_EQ(form.lstCopies.subItem(1, 1), L"cannot be read");
  });
}

TEST_F(EarlierDialog, WithoutEarlierListsThereIsNothingToChoose) {
  desktop().take(modQMKGeneral::BackupFolder());
  use([](frmEarlier& form) {
    EXPECT_EQ(form.lstCopies.emptyText(), L"No earlier lists yet.");
    EXPECT_EQ(form.lstCopies.rows(), 0U);
    EXPECT_FALSE(form.cmdShow.enabled());
    EXPECT_FALSE(form.cmdRestore.enabled());
    EXPECT_FALSE(form.cmdAdd.enabled());
    EXPECT_TRUE(form.cmdClose.enabled());
    form.cmdShow_Click();
    form.cmdRestore_Click();
    form.cmdAdd_Click();
    EXPECT_EQ(form.lstEntries.rows(), 0U);
  });
}

TEST_F(EarlierDialog, ADoubleClickShowsTheEntriesAndWhatHasChanged) {
  use([](frmEarlier& form) {
    form.lstCopies.select(1);
    form.lstCopies.fireDoubleClick();
    EXPECT_EQ(form.lblEntries.caption(), L"Entries of 2026-11-18");
    EXPECT_EQ(rowsOf(form.lstEntries),
              (Texts{L"|One.fp3|D:\\|1/1/2001", L"removed since|Two.bi3|D:\\|2/2/2002",
                     L"added since|New.cw3|D:\\|3/3/2003"}));
    form.lstCopies.select(0);
    form.cmdShow.fireClick();
    EXPECT_EQ(rowsOf(form.lstEntries),
              (Texts{L"|One.fp3|D:\\|1/1/2001", L"|New.cw3|D:\\|3/3/2003"}));
  });
}

TEST_F(EarlierDialog, RestorePutsTheListInThePlaceOfThePresentOne) {
  desktop().answers = {Answer::yes};
  use([](frmEarlier& form) {
    form.lstCopies.select(1);
    form.cmdRestore.fireClick();
    EXPECT_FALSE(form.loaded());
  });
  EXPECT_EQ(desktop().messages.front().text, L"Replace the current list by the one of 2026-11-18?");
  EXPECT_EQ(bytesOf(catalogueFile), earlier);
  EXPECT_EQ(bytesOf(path(L"QMKFileList3 2026-11-20 143015.txt")), today);
  EXPECT_EQ(textsOf(window.lstQMK[frmQMK::open]), (Texts{L"One.fp3", L"Two.bi3"}));
  EXPECT_EQ(window.news(), L"Restored: the list of 2026-11-18");
}

TEST_F(EarlierDialog, NoLeavesEverythingAsItIs) {
  desktop().answers = {Answer::no};
  use([](frmEarlier& form) {
    form.cmdRestore.fireClick();
    EXPECT_TRUE(form.loaded());
  });
  EXPECT_EQ(bytesOf(catalogueFile), today);
  EXPECT_EQ(window.news(), L"");
}

TEST_F(EarlierDialog, AListThatIsGoneChangesNothing) {
  desktop().answers = {Answer::yes};
  use([](frmEarlier& form) {
    form.lstCopies.select(1);
    desktop().take(path(L"QMKFileList3 2026-11-18.txt"));
    form.cmdShow.fireClick();
    EXPECT_EQ(form.lblNews.caption(), L"Nothing was changed: File not found");
    form.cmdAdd.fireClick();
    EXPECT_EQ(form.lblNews.caption(), L"Nothing was changed: File not found");
    form.cmdRestore.fireClick();
    EXPECT_EQ(form.lblNews.caption(), L"Nothing was changed: File not found");
    EXPECT_EQ(form.lstCopies.rows(), 1U);
  });
  EXPECT_EQ(bytesOf(catalogueFile), today);
  EXPECT_EQ(window.news(), L"Nothing was changed: File not found");
}

TEST_F(EarlierDialog, TheChosenListStaysChosenWhenAnotherOneGoes) {
  put(L"QMKFileList3 2026-11-16.txt", earlier);
  put(L"QMKFileList3 2026-11-17.txt", earlier);
  desktop().answers = {Answer::yes};
  use([](frmEarlier& form) {
    EXPECT_EQ(form.lstCopies.rows(), 4U);
    form.lstCopies.select(2);
    desktop().take(path(L"QMKFileList3 2026-11-18.txt"));
    // The list cannot be put in place, so the window stays, and shows what there is now.
    desktop().setReadOnly(catalogueFile);
    form.cmdRestore.fireClick();
    EXPECT_EQ(form.lstCopies.rows(), 3U);
    EXPECT_EQ(form.lstCopies.rowCell(form.lstCopies.selected().value_or(0), 0), L"2026-11-17");
  });
}

TEST_F(EarlierDialog, WithoutACopyOfThePresentListNothingIsRestored) {
  desktop().answers = {Answer::yes};
  use([](frmEarlier& form) {
    desktop().protect(modQMKGeneral::BackupFolder());
    form.lstCopies.select(1);
    form.cmdRestore.fireClick();
    EXPECT_EQ(form.lblNews.caption(), L"Nothing was changed: Path/File access error");
  });
  EXPECT_EQ(bytesOf(catalogueFile), today);
}

TEST_F(EarlierDialog, TheListMayChangeWhileTheQuestionIsOpen) {
  desktop().answers = {Answer::yes};
  desktop().onMessage = [](const memory::Message& /*message*/) {
    desktop().putFile(catalogueFile, "theirs\r\n");
  };
  use([](frmEarlier& form) {
    form.lstCopies.select(1);
    form.cmdRestore.fireClick();
  });
  EXPECT_EQ(bytesOf(catalogueFile), earlier);
  EXPECT_EQ(bytesOf(path(L"QMKFileList3 2026-11-20 143015.txt")), "theirs\r\n");
}

TEST_F(EarlierDialog, TheProgramMayEndWhileTheQuestionIsOpen) {
  desktop().answers = {Answer::no};
  desktop().onMessage = [this](const memory::Message& /*message*/) {
    window.unload(controls::UnloadMode::forced);
  };
  desktop().at(20, [this] { window.earlierLists()->cmdRestore_Click(); });
  window.commands.item(ids::mnuEarlierLists).fireClick();
  EXPECT_EQ(desktop().window(L"frmEarlier"), nullptr);
  EXPECT_EQ(bytesOf(catalogueFile), today);
}

TEST_F(EarlierDialog, AddMissingEntriesAddsOnlyWhatTheListLacks) {
  use([](frmEarlier& form) {
    form.lstCopies.select(1);
    form.cmdAdd.fireClick();
    EXPECT_FALSE(form.loaded());
  });
  EXPECT_EQ(bytesOf(catalogueFile), today + record({"bi3", "D:\\Two.bi3", "2/2/2002"}));
  EXPECT_EQ(window.news(), L"1 added, 1 already there");
}

TEST_F(EarlierDialog, WebShortcutsComeBackToo) {
  switchTo(frmQMK::web);
  use([](frmEarlier& form) {
    EXPECT_EQ(form.lstEntries.columns().size(), 3U);
    form.cmdShow.fireClick();
    EXPECT_EQ(rowsOf(form.lstEntries), (Texts{L"removed since|News|http://news.example",
                                              L"added since|Weather|http://weather.example"}));
    form.cmdAdd.fireClick();
  });
  EXPECT_EQ(textsOf(window.lstQMK[frmQMK::web]), (Texts{L"Weather", L"News"}));
  desktop().answers = {Answer::yes};
  use([](frmEarlier& form) { form.cmdRestore.fireClick(); });
  EXPECT_EQ(textsOf(window.lstQMK[frmQMK::web]), Texts{L"News"});
}

TEST_F(EarlierDialog, ACommandThatComesAgainBringsItToTheFront) {
  use([this](frmEarlier& form) {
    window.commands.item(ids::mnuEarlierLists).fireClick();
    EXPECT_EQ(window.earlierLists(), &form);
    EXPECT_EQ(desktop().activated(L"frmEarlier"), 1);
  });
}

TEST_F(EarlierDialog, FitsIntoItsDesignedSize) {
  using platform::Rect;
  frmEarlier form(kept_lists::Which::dataFiles, {});
  EXPECT_EQ(form.designSize(), (platform::Size{640, 460}));
  form.fireLayout({640, 460}, 96);
  EXPECT_EQ(form.lblCopies.bounds(), (Rect{12, 12, 616, 15}));
  EXPECT_EQ(form.lstCopies.bounds(), (Rect{12, 31, 616, 124}));
  EXPECT_EQ(form.lblEntries.bounds(), (Rect{12, 165, 616, 15}));
  EXPECT_EQ(form.lstEntries.bounds(), (Rect{12, 184, 616, 207}));
  EXPECT_EQ(form.lblNews.bounds(), (Rect{12, 397, 616, 15}));
  EXPECT_EQ(form.cmdShow.bounds(), (Rect{12, 422, 84, 26}));
  EXPECT_EQ(form.cmdRestore.bounds(), (Rect{104, 422, 84, 26}));
  EXPECT_EQ(form.cmdAdd.bounds(), (Rect{196, 422, 148, 26}));
  EXPECT_EQ(form.cmdClose.bounds(), (Rect{544, 422, 84, 26}));
  form.fireLayout({100, 100}, 96);
  EXPECT_EQ(form.lstEntries.bounds().height, 0);
}

/// Heading and width in twips of each column.
Texts columnsOf(const controls::ListView& list) {
  Texts columns;
  for (const controls::ListView::Column& column : list.columns()) {
    columns.push_back(column.text + L" " + std::to_wstring(column.widthTwips));
  }
  return columns;
}

TEST_F(EarlierDialog, ItsListsHaveTheseColumns) {
  const frmEarlier ofFiles(kept_lists::Which::dataFiles, {});
  EXPECT_EQ(columnsOf(ofFiles.lstCopies), (Texts{L"Date 3000", L"Entries 2100", L"Size 1800"}));
  EXPECT_EQ(columnsOf(ofFiles.lstEntries),
            (Texts{L"Change 1400", L"Name 2400", L"Directory 2700", L"Last Modified 2400"}));
  const frmEarlier ofSites(kept_lists::Which::web, {});
  EXPECT_EQ(columnsOf(ofSites.lstEntries), (Texts{L"Change 1400", L"Name 2400", L"Url 5000"}));
}

TEST_F(EarlierDialog, EnterShowsAndEscCloses) {
  const frmEarlier form(kept_lists::Which::dataFiles, {});
  EXPECT_TRUE(form.cmdShow.isDefault);
  EXPECT_TRUE(form.cmdClose.isCancel);
  for (const controls::CommandButton* const button : {&form.cmdRestore, &form.cmdAdd}) {
    EXPECT_FALSE(button->isDefault || button->isCancel);
  }
}

class NotCopied : public unit::LoadedMainWindow {};

TEST_F(NotCopied, TheStatusLineSaysItOnceBehindTheNews) {
  desktop().putFile(webListFile, record({"News", "http://news.example"}));
  desktop().setNow({.day = 21});
  desktop().take(modQMKGeneral::UserFolder);
  window.tell(L"1 added");
  modQMKGeneral::AppendWebEntry(window.webList, L"a", L"http://a");
  settle();
  EXPECT_EQ(window.news(), L"1 added; The lists could not be copied to Backup: Path not found");
  window.tell(L"2 added");
  settle();
  EXPECT_EQ(window.news(), L"2 added");
}

}  // namespace
