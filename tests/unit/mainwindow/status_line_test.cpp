// What the status line says, and when.
#include <gtest/gtest.h>

#include <string>

#include "catalogue/catalogue_file.h"
#include "mainwindow/control_ids.h"
#include "mainwindow/status_texts.h"
#include "unit/support/loaded_main_window.h"

namespace {

using mainwindow::countText;
using memory::desktop;

TEST(CountText, NamesTheEntriesOfEachTab) {
  EXPECT_EQ(countText(0, {.all = 6}), L"6 shortcuts");
  EXPECT_EQ(countText(1, {.all = 279}), L"279 files");
  EXPECT_EQ(countText(2, {.all = 4}), L"4 new files");
  EXPECT_EQ(countText(3, {.all = 0}), L"0 web shortcuts");
}

TEST(CountText, OneIsSingular) {
  EXPECT_EQ(countText(0, {.all = 1}), L"1 shortcut");
  EXPECT_EQ(countText(1, {.all = 1}), L"1 file");
  EXPECT_EQ(countText(2, {.all = 1}), L"1 new file");
  EXPECT_EQ(countText(3, {.all = 1}), L"1 web shortcut");
}

TEST(CountText, TellsHowManyAreShownAndMissing) {
  EXPECT_EQ(countText(1, {.all = 279, .shown = 12, .narrowed = true}), L"279 files, 12 shown");
  EXPECT_EQ(countText(1, {.all = 279, .shown = 279, .missing = 3}), L"279 files, 3 missing");
  EXPECT_EQ(countText(1, {.all = 279, .shown = 0, .missing = 3, .narrowed = true}),
            L"279 files, 0 shown, 3 missing");
}

TEST(ShortenedInMiddle, KeepsWhatFits) {
  const auto width = [](const std::wstring& text) { return static_cast<int>(text.size()); };
  const auto shorten = [&](const std::wstring& text, int most) {
    return controls::shortenedInMiddle(text, most, width);
  };
  EXPECT_EQ(shorten(L"C:\\field\\plot.fp3", 17), L"C:\\field\\plot.fp3");
  EXPECT_EQ(shorten(L"C:\\field\\plot.fp3", 16), L"C:\\fie\u2026\\plot.fp3");
  EXPECT_EQ(shorten(L"C:\\field\\plot.fp3", 11), L"C\u2026\\plot.fp3");
  EXPECT_EQ(shorten(L"C:\\field\\plot.fp3", 10), L"\u2026\\plot.fp3");
  EXPECT_EQ(shorten(L"http://a.example/fuel/tables", 16), L"http://a\u2026/tables");
  EXPECT_EQ(shorten(L"abcdefghij", 7), L"a\u2026fghij");
}

TEST(ShortenedInMiddle, AnEndThatDoesNotFitIsShortenedToo) {
  const auto width = [](const std::wstring& text) { return static_cast<int>(text.size()); };
  for (int most = 1; most < 39; ++most) {
    const std::wstring shortened =
        controls::shortenedInMiddle(L"C:\\a very long name of a field plot.fp3", most, width);
    EXPECT_LE(static_cast<int>(shortened.size()), most);
    EXPECT_NE(shortened.find(L'\u2026'), std::wstring::npos);
  }
  EXPECT_EQ(controls::shortenedInMiddle(L"abc", 0, width), L"\u2026");
}

class StatusLine : public unit::LoadedMainWindow {
 protected:
  StatusLine() {
    desktop().putFile(L"C:\\field\\North.fp3", "x");
    addDataFile(L"C:\\field\\", L"North.fp3");
    addDataFile(L"C:\\field\\", L"South.fp3");
    addWebEntry(L"Weather", L"http://weather.example/");
    switchTo(frmQMK::open);
    settle();
  }
  [[nodiscard]] std::wstring left() const { return window.barStatus.left(); }
  [[nodiscard]] std::wstring right() const { return window.barStatus.right(); }
};

TEST_F(StatusLine, CountsTheFilesAndNamesTheSelectedOne) {
  EXPECT_EQ(left(), L"2 files, 1 missing");
  EXPECT_EQ(right(), L"C:\\field\\North.fp3");
  window.lstQMK[frmQMK::open].select(1);
  settle();
  EXPECT_EQ(right(), L"C:\\field\\South.fp3");
}

TEST_F(StatusLine, FollowsTheTab) {
  switchTo(frmQMK::web);
  settle();
  EXPECT_EQ(left(), L"1 web shortcut");
  EXPECT_EQ(right(), L"http://weather.example/");
  modQMKGeneral::AddNewFileItems(window.catalogue);
  switchTo(frmQMK::newFiles);
  settle();
  EXPECT_EQ(left(), L"4 new files");
  EXPECT_EQ(right(), L"");
  window.lstQMK[frmQMK::tools].add(L"Notes", L"", {L"", L"C:\\l\\Notes.lnk", L"C:\\t\\notes.exe"});
  switchTo(frmQMK::tools);
  settle();
  EXPECT_EQ(left(), L"1 shortcut, 1 missing");
  EXPECT_EQ(right(), L"C:\\t\\notes.exe");
}

TEST_F(StatusLine, TellsWhatTheFindBoxShows) {
  window.txtFind.acceptTyped(L"south");
  settle();
  EXPECT_EQ(left(), L"2 files, 1 shown, 1 missing");
  EXPECT_EQ(right(), L"C:\\field\\South.fp3");
  window.txtFind.acceptTyped(L"nowhere");
  settle();
  EXPECT_EQ(left(), L"2 files, 0 shown, 1 missing");
  EXPECT_EQ(right(), L"");
}

TEST_F(StatusLine, IsQuietWhenNothingHappens) {
  EXPECT_FALSE(window.tmrIdle.enabled());
  window.lstQMK[frmQMK::open].select(1);
  EXPECT_TRUE(window.tmrIdle.enabled());
  settle();
  EXPECT_FALSE(window.tmrIdle.enabled());
}

TEST_F(StatusLine, NewsStandThereForTenSeconds) {
  window.tell(L"30 added, 5 already there");
  EXPECT_EQ(left(), L"30 added, 5 already there");
  EXPECT_EQ(right(), L"C:\\field\\North.fp3");
  desktop().advance(9'990);
  EXPECT_EQ(left(), L"30 added, 5 already there");
  desktop().advance(20);
  EXPECT_EQ(left(), L"2 files, 1 missing");
  EXPECT_FALSE(window.tmrNews.enabled());
}

TEST_F(StatusLine, NewerNewsHaveTheirOwnTenSeconds) {
  window.tell(L"one");
  desktop().advance(6'000);
  window.tell(L"two");
  desktop().advance(6'000);
  EXPECT_EQ(left(), L"two");
  desktop().advance(4'010);
  EXPECT_EQ(left(), L"2 files, 1 missing");
}

TEST_F(StatusLine, ExplainsTheMarkedMenuEntryAndItsKey) {
  window.fireMenuMarked(&window.mnuDelete);
  EXPECT_EQ(window.barStatus.note(),
            L"Deletes the selected file or shortcut, after a question. (Delete)");
  window.fireMenuMarked(&window.mnuCreate);
  EXPECT_EQ(window.barStatus.note(), L"Makes a shortcut to a program, or a web shortcut. (Insert)");
  window.fireMenuMarked(&window.commands.item(ids::mnuFitColumns));
  EXPECT_EQ(window.barStatus.note(),
            L"Makes each column as wide as its longest text. (Ctrl+Num +)");
  window.fireMenuMarked(&window.mnuHelpContents);
  EXPECT_EQ(window.barStatus.note(), L"Opens the help. (F1)");
  window.fireMenuMarked(&window.mnuAbout);
  EXPECT_EQ(window.barStatus.note(),
            L"Shows the version of the program, and facts about the system.");
  window.fireMenuMarked(&window.mnuFile);
  EXPECT_EQ(window.barStatus.note(), L"") << "A menu is no command";
  window.fireMenuMarked(nullptr);
  EXPECT_EQ(window.barStatus.note(), L"");
}

TEST_F(StatusLine, EveryEntryOfAMenuIsExplained) {
  for (const controls::MenuItem* const menu : window.menuBar()) {
    for (const controls::MenuItem* const entry : menu->children()) {
      if (entry->caption() != L"-") {
        EXPECT_NE(window.commands.explanation(*entry), L"")
            << ::testing::PrintToString(entry->name());
      }
    }
  }
}

TEST(KeyName, NamesTheKeys) {
  using mainwindow::keyName;
  EXPECT_EQ(keyName({}), L"");
  EXPECT_EQ(keyName({.key = 'F', .control = true}), L"Ctrl+F");
  EXPECT_EQ(keyName({.key = 'C', .control = true, .shift = true}), L"Ctrl+Shift+C");
  EXPECT_EQ(keyName({.key = controls::keys::f2, .alt = true}), L"Alt+F2");
  EXPECT_EQ(keyName({.key = controls::keys::plus, .control = true}), L"Ctrl+Num +");
  EXPECT_EQ(keyName({controls::keys::remove}), L"Delete");
}

}  // namespace
