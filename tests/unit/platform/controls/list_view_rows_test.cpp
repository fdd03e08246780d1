// How a list stores its rows: what happens when they get longer, and when they are sorted.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/controls/list_view.h"
#include "platform/desktop_test.h"

namespace controls {
namespace {

using memory::desktop;
using Texts = std::vector<std::wstring>;

class ListViewRows : public ::memory::DesktopTest {
 protected:
  /// Everything that an item holds, its icon first.
  [[nodiscard]] Texts row(std::size_t index, std::size_t subItems) const {
    Texts cells{list.icon(index)};
    for (std::size_t column = 0; column <= subItems; ++column) {
      cells.emplace_back(list.cell(index, column));
    }
    return cells;
  }

  ListView list{L"lstQMK", 1};
};

TEST_F(ListViewRows, KeepTheirCellsWhenALongerOneIsAdded) {
  list.add(L"a", L"ia", {L"a1"});
  list.add(L"b", L"ib", {L"b1"});
  list.add(L"c", L"ic", {L"c1"});
  list.add(L"d", L"id", {L"d1", L"d2", L"d3"});
  EXPECT_EQ(row(0, 3), (Texts{L"ia", L"a", L"a1", L"", L""}));
  EXPECT_EQ(row(1, 3), (Texts{L"ib", L"b", L"b1", L"", L""}));
  EXPECT_EQ(row(2, 3), (Texts{L"ic", L"c", L"c1", L"", L""}));
  EXPECT_EQ(row(3, 3), (Texts{L"id", L"d", L"d1", L"d2", L"d3"}));
}

TEST_F(ListViewRows, KeepTheirCellsWhenASubItemFurtherToTheRightIsSet) {
  list.add(L"a", L"ia", {L"a1"});
  list.add(L"b", L"ib", {L"b1"});
  list.add(L"c", L"ic", {L"c1"});
  list.setSubItem(1, 2, L"b2");
  list.setSubItem(2, 4, L"c4");
  EXPECT_EQ(row(0, 4), (Texts{L"ia", L"a", L"a1", L"", L"", L""}));
  EXPECT_EQ(row(1, 4), (Texts{L"ib", L"b", L"b1", L"b2", L"", L""}));
  EXPECT_EQ(row(2, 4), (Texts{L"ic", L"c", L"c1", L"", L"", L"c4"}));
}

TEST_F(ListViewRows, KeepTheirCellsWhenRoomIsMadeForMore) {
  list.add(L"a", L"ia", {});
  list.add(L"b", L"ib", {});
  list.addColumn(L"one", 100);
  list.addColumn(L"two", 100);
  list.addColumn(L"three", 100);
  list.reserve(100);
  EXPECT_EQ(row(0, 2), (Texts{L"ia", L"a", L"", L""}));
  EXPECT_EQ(row(1, 2), (Texts{L"ib", L"b", L"", L""}));
}

TEST_F(ListViewRows, AreSortedOnceForAllThatIsRead) {
  for (const wchar_t* const text : {L"d", L"b", L"c", L"a"}) {
    list.add(text, L"", {text});
  }
  list.setSorted(true);
  EXPECT_EQ(desktop().sorts, 0) << "Nobody has looked yet";
  for (std::size_t index = 0; index < list.count(); ++index) {
    EXPECT_EQ(list.text(index), list.subItem(index, 1));
  }
  EXPECT_EQ(list.selectedItem(), 3U);
  EXPECT_EQ(list.findRow(L"c", 0), std::optional<std::size_t>(2));
  EXPECT_EQ(desktop().sorts, 1);
}

TEST_F(ListViewRows, AreSortedAgainOnlyForWhatChangesTheirOrder) {
  for (const wchar_t* const text : {L"b", L"a"}) {
    list.add(text, L"", {L"x"});
  }
  list.setSorted(true);
  EXPECT_EQ(list.text(0), L"a");
  list.setSubItem(0, 1, L"z");
  EXPECT_EQ(list.text(0), L"a");
  EXPECT_EQ(desktop().sorts, 1) << "Sorted is by the text";
  list.setText(0, L"c");
  EXPECT_EQ(list.text(0), L"b");
  EXPECT_EQ(desktop().sorts, 2);
  list.add(L"a", L"", {});
  EXPECT_EQ(list.text(0), L"a");
  EXPECT_EQ(desktop().sorts, 3);
  list.setSortOrder(descending);
  EXPECT_EQ(list.text(0), L"c");
  list.setSortKey(1);
  EXPECT_EQ(list.text(0), L"c") << "Its sub-item is the last";
  EXPECT_EQ(desktop().sorts, 5);
}

TEST_F(ListViewRows, OfAListThatIsNotSortedAreNeverSorted) {
  list.add(L"b", L"", {});
  list.add(L"a", L"", {});
  list.setSortKey(0);
  list.setSortOrder(descending);
  list.setText(0, L"0");
  EXPECT_EQ(list.text(0), L"0");
  list.setSorted(true);
  EXPECT_EQ(list.text(0), L"a");
  list.setSorted(false);
  list.add(L"z", L"", {});
  EXPECT_EQ(list.text(2), L"z");
  EXPECT_EQ(desktop().sorts, 1);
}

TEST_F(ListViewRows, AreGoneAfterAClearAndNothingIsSorted) {
  list.setSorted(true);
  list.add(L"b", L"", {});
  list.clear();
  EXPECT_EQ(list.findRow(L"b", 0), std::nullopt);
  EXPECT_EQ(desktop().sorts, 0);
}

}  // namespace
}  // namespace controls
