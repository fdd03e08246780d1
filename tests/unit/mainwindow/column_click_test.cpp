// Sorting the data list by a click on a column header.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/catalogue_view.h"
#include "unit/support/main_window_fixture.h"

namespace {

using controls::ascending;
using controls::descending;
using controls::ListView;
using memory::desktop;

class ColumnClickTest : public MainWindowTest {
 protected:
  ColumnClickTest() {
    list.add(L"b.fp3", L"", {L"2", L"Canopy", L"C:\\x\\", L"CW3"});
    list.add(L"a.fp3", L"", {L"3", L"Profile", L"C:\\y\\", L"FP3"});
    list.add(L"C.fp3", L"", {L"1", L"Brush", L"C:\\z\\", L"BI3"});
    list.setSortKey(0);
    list.setSortOrder(ascending);
    list.setSorted(true);
  }

  [[nodiscard]] std::vector<std::wstring> names() const {
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < list.count(); ++i) {
      names.push_back(list.text(i));
    }
    return names;
  }

  ListView& list = window.lstQMK[frmQMK::open];
};

using Names = std::vector<std::wstring>;

TEST_F(ColumnClickTest, TheFirstClickOnAnAscendingListSortsDescending) {
  list.fireColumnClick(1);
  EXPECT_EQ(list.sortKey(), 0);
  EXPECT_EQ(list.sortOrder(), descending);
  EXPECT_TRUE(list.sorted());
  EXPECT_EQ(names(), (Names{L"C.fp3", L"b.fp3", L"a.fp3"}));
}

TEST_F(ColumnClickTest, TwoClicksOnTheSameHeaderBringTheDirectionBack) {
  list.fireColumnClick(1);
  list.fireColumnClick(1);
  EXPECT_EQ(list.sortOrder(), ascending);
  EXPECT_EQ(names(), (Names{L"a.fp3", L"b.fp3", L"C.fp3"}));
}

TEST_F(ColumnClickTest, EachColumnSortsByItsOwnText) {
  for (int column = 1; column <= 5; ++column) {
    list.fireColumnClick(column);
    EXPECT_EQ(list.sortKey(), column - 1);
  }
  // The fifth click again sorts descending, by the type codes.
  EXPECT_EQ(names(), (Names{L"a.fp3", L"b.fp3", L"C.fp3"}));
}

TEST_F(ColumnClickTest, TheDirectionTogglesAlsoWhenAnotherColumnIsClicked) {
  list.fireColumnClick(2);
  EXPECT_EQ(list.sortOrder(), descending);
  EXPECT_EQ(names(), (Names{L"a.fp3", L"b.fp3", L"C.fp3"}));
  list.fireColumnClick(3);
  EXPECT_EQ(list.sortOrder(), ascending);
  EXPECT_EQ(names(), (Names{L"C.fp3", L"b.fp3", L"a.fp3"}));
  list.fireColumnClick(2);
  EXPECT_EQ(list.sortOrder(), descending);
}

TEST_F(ColumnClickTest, AnyOrderButAscendingBecomesAscending) {
  list.setSortOrder(7);
  list.fireColumnClick(1);
  EXPECT_EQ(list.sortOrder(), ascending);
}

TEST_F(ColumnClickTest, AnUnsortedListIsSortedByTheClick) {
  list.setSorted(false);
  list.fireColumnClick(1);
  EXPECT_TRUE(list.sorted());
}

TEST_F(ColumnClickTest, AClickOnAnyOtherListSortsTheDataListNotTheClickedOne) {
  addWebEntry(L"Zebra", L"http://z.example");
  addWebEntry(L"Aardvark", L"http://a.example");
  for (const frmQMK::Tab clicked : {frmQMK::tools, frmQMK::newFiles, frmQMK::web}) {
    const int before = list.sortOrder();
    window.lstQMK.at(clicked).fireColumnClick(2);
    EXPECT_EQ(list.sortKey(), 1);
    EXPECT_NE(list.sortOrder(), before);
    EXPECT_FALSE(window.lstQMK.at(clicked).sorted());
    EXPECT_EQ(window.lstQMK.at(clicked).sortKey(), 0);
    EXPECT_EQ(window.lstQMK.at(clicked).sortOrder(), ascending);
  }
  EXPECT_EQ(window.lstQMK[frmQMK::web].text(0), L"Zebra");
}

TEST_F(ColumnClickTest, ASortKeyTooLargeForSixteenBitsIsAnOverflow) {
  list.fireColumnClick(32769);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{6});
  EXPECT_EQ(desktop().messages.front().text, L"Run-time error '6':\r\n\r\nOverflow");
  // The steps after the failing one did not happen.
  EXPECT_FALSE(list.sorted());
  EXPECT_EQ(list.sortKey(), 0);
  EXPECT_EQ(list.sortOrder(), ascending);
}

TEST_F(ColumnClickTest, TheLargestSixteenBitSortKeyIsNone) {
  list.fireColumnClick(32768);
  EXPECT_TRUE(desktop().errorReports.empty());
  EXPECT_EQ(list.sortKey(), 32767);
}

TEST_F(ColumnClickTest, TheNextReloadGoesBackToFileNameAscending) {
  desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                    "\"FP3\",\"C:\\x\\b.fp3\",\"1\"\r\n\"FP3\",\"C:\\x\\a.fp3\",\"2\"\r\n");
  list.fireColumnClick(4);
  modQMKGeneral::LoadCatalogueView(window.catalogue);
  EXPECT_EQ(list.sortKey(), 0);
  EXPECT_EQ(list.sortOrder(), ascending);
  EXPECT_EQ(names(), (Names{L"a.fp3", L"b.fp3"}));
}

TEST_F(ColumnClickTest, TheSelectionStaysWithItsEntry) {
  list.select(0);
  ASSERT_EQ(list.text(list.selectedItem()), L"a.fp3");
  list.fireColumnClick(1);
  EXPECT_EQ(list.text(list.selectedItem()), L"a.fp3");
}

}  // namespace
