#include "platform/controls/list_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "unit/support/error_number.h"
#include "unit/support/recording_peer.h"

namespace controls {
namespace {

using memory::desktop;
using Texts = std::vector<std::wstring>;

class ListViewTest : public ::memory::DesktopTest {
 protected:
  void addAll(const Texts& texts) {
    for (const auto& text : texts) {
      list.add(text, L"", {});
    }
  }
  [[nodiscard]] Texts texts() const {
    Texts shown;
    for (std::size_t index = 0; index < list.count(); ++index) {
      shown.push_back(list.text(index));
    }
    return shown;
  }
  [[nodiscard]] std::wstring selectedText() const { return list.text(list.selectedItem()); }

  ListView list{L"lstQMK", 1};
};

TEST_F(ListViewTest, ItemsKeepTheOrderOfTheirAddition) {
  addAll({L"b", L"a", L"C"});
  EXPECT_EQ(texts(), (Texts{L"b", L"a", L"C"}));
  EXPECT_EQ(list.count(), 3U);
}

TEST_F(ListViewTest, AnItemKeepsWhatItWasAddedWith) {
  list.add(L"text", L"icon", {L"one", L"two"});
  EXPECT_EQ(list.text(0), L"text");
  EXPECT_EQ(list.icon(0), L"icon");
  EXPECT_EQ(list.subItem(0, 1), L"one");
  EXPECT_EQ(list.subItem(0, 2), L"two");
}

TEST_F(ListViewTest, SubItemsThatWereNeverSetAreEmpty) {
  list.add(L"text", L"", {L"one"});
  EXPECT_EQ(list.subItem(0, 0), L"");
  EXPECT_EQ(list.subItem(0, 2), L"");
  list.setSubItem(0, 4, L"four");
  EXPECT_EQ(list.subItem(0, 1), L"one");
  EXPECT_EQ(list.subItem(0, 3), L"");
  EXPECT_EQ(list.subItem(0, 4), L"four");
  EXPECT_EQ(errorNumberOf([this] { list.setSubItem(0, 0, L"x"); }), 35600);
}

TEST_F(ListViewTest, AnIndexWithoutAnItemRaises) {
  addAll({L"a"});
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(list.text(1)); }), 35600);
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(list.icon(1)); }), 35600);
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(list.subItem(1, 1)); }), 35600);
  EXPECT_EQ(errorNumberOf([this] { list.setText(1, L""); }), 35600);
  EXPECT_EQ(errorNumberOf([this] { list.setSubItem(1, 1, L""); }), 35600);
  EXPECT_EQ(errorNumberOf([this] { list.select(1); }), 35600);
  EXPECT_EQ(errorNumberOf([this] { list.acceptSelection(1); }), 35600);
  EXPECT_EQ(errorNumberOf([this] { list.acceptFocusedRow(1); }), 35600);
  EXPECT_EQ(list.selected(), std::optional<std::size_t>(0));
}

TEST_F(ListViewTest, TheFirstItemOfAnEmptyListIsSelected) {
  EXPECT_EQ(list.selected(), std::nullopt);
  addAll({L"a", L"b"});
  EXPECT_EQ(list.selectedItem(), 0U);
  EXPECT_EQ(list.focused(), std::optional<std::size_t>(0));
}

TEST_F(ListViewTest, TheFirstAddedStaysSelectedWhereverItIsSortedTo) {
  list.setSorted(true);
  addAll({L"m", L"a", L"z"});
  EXPECT_EQ(list.selectedItem(), 1U);
  EXPECT_EQ(selectedText(), L"m");
}

TEST_F(ListViewTest, NothingIsSelectedAfterAClear) {
  addAll({L"a", L"b"});
  list.select(1);
  list.clear();
  EXPECT_EQ(list.count(), 0U);
  EXPECT_EQ(list.selected(), std::nullopt);
  EXPECT_EQ(list.focused(), std::nullopt);
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(list.selectedItem()); }), 91);
  addAll({L"c"});
  EXPECT_EQ(selectedText(), L"c");
}

TEST_F(ListViewTest, TheSelectionMovesWithTheFocus) {
  addAll({L"a", L"b", L"c"});
  list.select(1);
  EXPECT_EQ(list.selectedItem(), 1U);
  EXPECT_EQ(list.focused(), std::optional<std::size_t>(1));
  list.acceptSelection(2);
  EXPECT_EQ(list.selectedItem(), 2U);
  list.acceptFocusedRow(0);
  EXPECT_EQ(list.selectedItem(), 2U);
  EXPECT_EQ(list.focused(), std::optional<std::size_t>(0));
}

TEST_F(ListViewTest, SortsWithoutRegardToCase) {
  addAll({L"b", L"A", L"C", L"a", L"\u00E9", L"B", L"\u00C9"});
  list.setSorted(true);
  EXPECT_EQ(texts(), (Texts{L"A", L"a", L"b", L"B", L"C", L"\u00E9", L"\u00C9"}));
}

TEST_F(ListViewTest, EqualTextsKeepTheirOrderBothWaysRound) {
  list.setSorted(true);
  for (const auto* const number : {L"1", L"2", L"3"}) {
    list.add(L"same", L"", {number});
    list.add(L"SAME", L"", {std::wstring(number) + L"'"});
  }
  list.add(L"other", L"", {L"0"});
  const auto numbers = [this] {
    Texts found;
    for (std::size_t index = 0; index < list.count(); ++index) {
      found.push_back(list.subItem(index, 1));
    }
    return found;
  };
  EXPECT_EQ(numbers(), (Texts{L"0", L"1", L"1'", L"2", L"2'", L"3", L"3'"}));
  list.setSortOrder(descending);
  EXPECT_EQ(numbers(), (Texts{L"1", L"1'", L"2", L"2'", L"3", L"3'", L"0"}));
}

TEST_F(ListViewTest, SortsByAnyColumn) {
  list.add(L"a", L"", {L"z"});
  list.add(L"b", L"", {L"y", L"2"});
  list.add(L"c", L"", {L"x", L"1"});
  list.setSorted(true);
  list.setSortKey(1);
  EXPECT_EQ(texts(), (Texts{L"c", L"b", L"a"}));
  list.setSortKey(2);
  EXPECT_EQ(texts(), (Texts{L"a", L"c", L"b"})) << "A missing sub-item is an empty text";
  list.setSortKey(7);
  EXPECT_EQ(texts(), (Texts{L"a", L"c", L"b"})) << "A column that no item has changes nothing";
  list.setSortKey(0);
  list.setSortOrder(descending);
  EXPECT_EQ(texts(), (Texts{L"c", L"b", L"a"}));
}

TEST_F(ListViewTest, SortsOnlyWhenAskedTo) {
  addAll({L"b", L"a"});
  list.setSortKey(0);
  list.setSortOrder(ascending);
  EXPECT_EQ(texts(), (Texts{L"b", L"a"}));
  list.setSorted(true);
  EXPECT_EQ(texts(), (Texts{L"a", L"b"}));
  list.setSorted(false);
  addAll({L"0"});
  EXPECT_EQ(texts(), (Texts{L"a", L"b", L"0"}));
}

TEST_F(ListViewTest, AnItemAddedToASortedListTakesItsPlace) {
  list.setSorted(true);
  addAll({L"d", L"b"});
  EXPECT_EQ(texts(), (Texts{L"b", L"d"}));
  addAll({L"c", L"a"});
  EXPECT_EQ(texts(), (Texts{L"a", L"b", L"c", L"d"}));
}

TEST_F(ListViewTest, ARenamedItemMovesToItsNewPlace) {
  list.setSorted(true);
  addAll({L"a", L"b", L"c"});
  list.select(0);
  list.setText(0, L"z");
  EXPECT_EQ(texts(), (Texts{L"b", L"c", L"z"}));
  EXPECT_EQ(selectedText(), L"z");
}

TEST_F(ListViewTest, ASubItemMovesItsItemOnlyInTheSortedColumn) {
  list.setSorted(true);
  list.setSortKey(2);
  list.add(L"first", L"", {L"", L"b"});
  list.add(L"second", L"", {L"", L"c"});
  list.setText(0, L"zzz");
  list.setSubItem(0, 1, L"zzz");
  EXPECT_EQ(texts(), (Texts{L"zzz", L"second"}));
  list.setSubItem(0, 2, L"d");
  EXPECT_EQ(texts(), (Texts{L"second", L"zzz"}));
}

TEST_F(ListViewTest, SelectionAndFocusFollowTheirItemsThroughASort) {
  addAll({L"b", L"a", L"c"});
  list.select(2);
  list.acceptFocusedRow(1);
  list.setSorted(true);
  list.setSortOrder(descending);
  EXPECT_EQ(selectedText(), L"c");
  EXPECT_EQ(list.selectedItem(), 0U);
  EXPECT_EQ(list.focused(), std::optional<std::size_t>(2));
}

TEST_F(ListViewTest, FindsTheNextItemThatBeginsWithAText) {
  addAll({L"Alpha", L"beta", L"alphabet", L"Gamma"});
  EXPECT_EQ(list.findRow(L"alpha", 0), std::optional<std::size_t>(0));
  EXPECT_EQ(list.findRow(L"ALPHA", 1), std::optional<std::size_t>(2));
  EXPECT_EQ(list.findRow(L"alpha", 3), std::optional<std::size_t>(0)) << "Wraps round";
  EXPECT_EQ(list.findRow(L"b", 1), std::optional<std::size_t>(1)) << "Begins where it is told";
  EXPECT_EQ(list.findRow(L"alphabets", 0), std::nullopt);
  EXPECT_EQ(list.findRow(L"lpha", 0), std::nullopt);
  EXPECT_EQ(list.findRow(L"gamma", 4), std::optional<std::size_t>(3)) << "From behind the last";
}

TEST_F(ListViewTest, FindsInTheDisplayedOrder) {
  addAll({L"x2", L"x1"});
  list.setSorted(true);
  EXPECT_EQ(list.findRow(L"x", 0), std::optional<std::size_t>(0));
  EXPECT_EQ(list.text(0), L"x1");
  list.clear();
  EXPECT_EQ(list.findRow(L"x", 0), std::nullopt);
  EXPECT_EQ(list.findRow(L"", 0), std::nullopt);
}

TEST_F(ListViewTest, TellsItsPeerOfEachChange) {
  RecordingListPeer peer(list);
  list.addColumn(L"Name", 1440);
  EXPECT_EQ(peer.take(), std::vector{Change::columns});
  addAll({L"a"});
  EXPECT_EQ(peer.take(), std::vector{Change::items});
  list.setText(0, L"b");
  EXPECT_EQ(peer.take(), std::vector{Change::items});
  list.select(0);
  EXPECT_EQ(peer.take(), std::vector{Change::selection});
  list.setView(reportView);
  list.setView(reportView);
  EXPECT_EQ(peer.take(), std::vector{Change::view});
  list.setHeadersHidden(true);
  EXPECT_EQ(peer.take(), std::vector{Change::columns});
  list.acceptSelection(0);
  list.acceptFocusedRow(0);
  EXPECT_TRUE(peer.take().empty()) << "What comes from the native list does not go back to it";
  const ImageList images;
  list.setImages(&images, nullptr);
  EXPECT_EQ(peer.take(), std::vector{Change::images});
  EXPECT_EQ(list.largeImages(), &images);
  EXPECT_EQ(list.smallImages(), nullptr);
}

TEST_F(ListViewTest, ASortTellsOfTheArrowAndOfTheItems) {
  RecordingListPeer peer(list);
  list.setSorted(true);
  EXPECT_EQ(peer.take(), (std::vector{Change::sorting, Change::items}));
}

TEST_F(ListViewTest, AnUpdateTellsOfMoreImagesOnceAtItsEnd) {
  RecordingListPeer peer(list);
  const ImageList images;
  const ImageList others;
  list.update([&] {
    for (const ImageList* const large : {&images, &others}) {
      for (const ImageList* const small : {&images, &others}) {
        list.setImages(large, small);
        EXPECT_EQ(peer.take(), std::vector{Change::images}) << "other lists are told at once";
        list.setImages(large, small);
        EXPECT_TRUE(peer.take().empty());
      }
    }
  });
  EXPECT_EQ(peer.take(), (std::vector{Change::images, Change::items}));
  list.update([&] {});
  EXPECT_EQ(peer.take(), std::vector{Change::items}) << "the images have been told";
}

TEST_F(ListViewTest, AnUpdateTellsOnceAtItsEnd) {
  RecordingListPeer peer(list);
  list.update([&] {
    addAll({L"a", L"b"});
    list.update([this] {
      list.clear();
      addAll({L"c"});
    });
    EXPECT_TRUE(peer.take().empty());
  });
  EXPECT_EQ(peer.take(), std::vector{Change::items});
}

TEST_F(ListViewTest, HandlersAreOptionalAndTheirErrorsReported) {
  list.fireDoubleClick();
  list.fireColumnClick(1);
  list.fireKey({controls::keys::remove});
  EXPECT_TRUE(desktop().messages.empty());

  int column = 0;
  std::optional<controls::KeyStroke> key;
  list.onColumnClick = [&column](int clicked) { column = clicked; };
  list.onKey = [&key](const controls::KeyStroke& pressed) { key = pressed; };
  list.onDoubleClick = [this] { static_cast<void>(list.selectedItem()); };
  list.fireColumnClick(3);
  list.fireKey({controls::keys::f2, true});
  list.fireDoubleClick();
  EXPECT_EQ(column, 3);
  EXPECT_EQ(key, (controls::KeyStroke{controls::keys::f2, true}));
  EXPECT_EQ(desktop().errorReports, std::vector<int>{91});
}

TEST_F(ListViewTest, AMillionItemsAreNoTrouble) {
  list.setSorted(true);
  list.reserve(1'000'000);
  list.update([this] {
    for (int n = 0; n < 1'000'000; ++n) {
      list.add(std::to_wstring(n % 1000), L"", {});
    }
  });
  EXPECT_EQ(list.text(0), L"0");
  EXPECT_EQ(list.text(999'999), L"999");
}

}  // namespace
}  // namespace controls
