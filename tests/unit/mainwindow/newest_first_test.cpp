// The order by date, and columns as wide as their texts.
#include <gtest/gtest.h>

#include <string>

#include "catalogue/catalogue_view.h"
#include "mainwindow/control_ids.h"
#include "unit/support/loaded_main_window.h"

namespace {

using memory::desktop;
using unit::Texts;

class NewestFirst : public unit::LoadedMainWindow {
 protected:
  NewestFirst() {
    desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                      "\"fp3\",\"C:\\f\\b.fp3\",\"11/16/2026 2:30:15 PM\"\r\n"
                      "\"fp3\",\"C:\\f\\unreadable z.fp3\",\"long ago\"\r\n"
                      "\"fp3\",\"C:\\f\\a.fp3\",\"11/17/2026\"\r\n"
                      "\"fp3\",\"C:\\f\\unreadable a.fp3\",\"\"\r\n"
                      "\"fp3\",\"C:\\f\\c.fp3\",\"9/1/2026 10:00:00 AM\"\r\n");
    load();
    switchTo(frmQMK::open);
  }
  void load() { modQMKGeneral::LoadCatalogueView(window.catalogue); }
  void choose() { window.commands.item(ids::mnuNewestFirst).fireClick(); }
  [[nodiscard]] bool checked() { return window.commands.item(ids::mnuNewestFirst).checked(); }

  const Texts byName{L"a.fp3", L"b.fp3", L"c.fp3", L"unreadable a.fp3", L"unreadable z.fp3"};
  const Texts byDate{L"a.fp3", L"b.fp3", L"c.fp3", L"unreadable z.fp3", L"unreadable a.fp3"};
  controls::ListView& list = window.lstQMK[frmQMK::open];
};

TEST_F(NewestFirst, IsOffAtFirst) {
  EXPECT_FALSE(checked());
  EXPECT_EQ(textsOf(list), byName);
}

TEST_F(NewestFirst, SortsByDateUnreadableOnesLastInTheOrderOfTheFile) {
  choose();
  EXPECT_TRUE(checked());
  EXPECT_EQ(textsOf(list), byDate);
}

TEST_F(NewestFirst, ChosenAgainItSortsByNameAgain) {
  choose();
  choose();
  EXPECT_FALSE(checked());
  EXPECT_EQ(textsOf(list), byName);
}

TEST_F(NewestFirst, HoldsAfterEachLoad) {
  choose();
  desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                    "\"fp3\",\"C:\\f\\old.fp3\",\"1/1/2020\"\r\n"
                    "\"fp3\",\"C:\\f\\zzz new.fp3\",\"1/1/2026\"\r\n");
  load();
  EXPECT_EQ(textsOf(list), (Texts{L"zzz new.fp3", L"old.fp3"}));
}

TEST_F(NewestFirst, AClickOnAHeaderSortsAsEverAndSwitchesItOff) {
  choose();
  window.lstQMK_ColumnClick(frmQMK::open, 1);
  EXPECT_FALSE(checked());
  EXPECT_EQ(textsOf(list), Texts(byName.rbegin(), byName.rend())) << "The first click: descending";
}

TEST_F(NewestFirst, IsRememberedForTheNextStart) {
  choose();
  desktop().answers = {platform::dialogs::Answer::yes};
  window.unload();
  static_cast<void>(desktop().messages.size());
  EXPECT_EQ(desktop().setting(L"General", L"NewestFirst"), L"1");
  frmQMK next;
  next.load();
  next.SetupMainWindow();
  EXPECT_TRUE(next.commands.item(ids::mnuNewestFirst).checked());
  EXPECT_TRUE(next.lstQMK[frmQMK::open].ranking());
}

TEST_F(NewestFirst, SwitchedOffItIsForgotten) {
  desktop().setSetting(L"General", L"NewestFirst", L"1");
  desktop().answers = {platform::dialogs::Answer::yes};
  window.unload();
  static_cast<void>(desktop().messages.size());
  EXPECT_EQ(desktop().setting(L"General", L"NewestFirst"), L"0");
}

TEST_F(NewestFirst, NeverUsedItStoresNothing) {
  desktop().answers = {platform::dialogs::Answer::yes};
  window.unload();
  static_cast<void>(desktop().messages.size());
  EXPECT_EQ(desktop().setting(L"General", L"NewestFirst"), std::nullopt);
}

TEST_F(NewestFirst, AnOddSettingIsOff) {
  for (const wchar_t* const value : {L"", L"0", L"2", L"True", L"11", L" 1"}) {
    desktop().setSetting(L"General", L"NewestFirst", value);
    frmQMK next;
    next.load();
    next.SetupMainWindow();
    EXPECT_FALSE(next.commands.item(ids::mnuNewestFirst).checked());
  }
}

class FitColumns : public NewestFirst {
 protected:
  FitColumns() { window.fireLayout({800, 600}, 96); }
  /// Width of a column in pixels at 96 dpi.
  [[nodiscard]] int width(std::size_t column) const {
    return platform::twipsToPixels(list.columns()[column].widthTwips, 96);
  }
};

TEST_F(FitColumns, MeasuresAllRowsAndTheHeader) {
  EXPECT_TRUE(window.fireKeyDown({.key = controls::keys::plus, .control = true}));
  // A character is 7 pixels wide here.
  EXPECT_EQ(width(0), 19 * 7 + 24) << "The header";
  EXPECT_EQ(width(1), 21 * 7 + 14) << "A cell";
  EXPECT_EQ(width(2), 12 * 7 + 14);
  EXPECT_EQ(width(3), 9 * 7 + 24);
  EXPECT_EQ(list.columns()[4].widthTwips, 0) << "A hidden column stays hidden";
}

TEST_F(FitColumns, ThePictureTakesRoomToo) {
  list.setText(0, std::wstring(30, L'x'));
  list.fireFitColumn(0);
  EXPECT_EQ(width(0), 30 * 7 + 14 + 20);
}

TEST_F(FitColumns, HiddenRowsCountToo) {
  window.txtFind.acceptTyped(L"nothing of this kind");
  list.fireFitColumn(1);
  EXPECT_EQ(width(1), 21 * 7 + 14);
}

TEST_F(FitColumns, AColumnIsNotWiderThanTheList) {
  list.setText(0, std::wstring(500, L'x'));
  list.fireFitColumn(0);
  EXPECT_EQ(width(0), list.bounds().width - 22);
}

TEST_F(FitColumns, ADividerFitsItsColumnOnly) {
  const int before = width(0);
  list.fireFitColumn(1);
  EXPECT_EQ(width(0), before);
  EXPECT_EQ(width(1), 21 * 7 + 14);
  list.fireFitColumn(99);
}

TEST_F(FitColumns, HiddenHeadersDoNotCount) {
  controls::ListView& tools = window.lstQMK[frmQMK::tools];
  tools.add(L"xy", L"", {L"", L"", L""});
  tools.fireFitColumn(0);
  EXPECT_EQ(platform::twipsToPixels(tools.columns()[0].widthTwips, 96), 2 * 7 + 14 + 20);
}

TEST_F(FitColumns, GrowsWithTheDensity) {
  window.fireLayout({1600, 1200}, 192);
  list.fireFitColumn(1);
  EXPECT_EQ(platform::twipsToPixels(list.columns()[1].widthTwips, 192), 2 * (21 * 7 + 14));
}

TEST_F(FitColumns, IsForListViewOnly) {
  EXPECT_TRUE(window.commands.enabled(ids::mnuFitColumns));
  window.mnuIcon_Click();
  EXPECT_FALSE(window.commands.enabled(ids::mnuFitColumns));
}

TEST_F(FitColumns, AnEmptyListShowsItsHeaders) {
  list.clear();
  list.fireFitColumn(3);
  EXPECT_EQ(width(3), 9 * 7 + 24);
}

}  // namespace
