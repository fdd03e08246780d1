// What a change of a list keeps, and what happens when the change fails in the middle.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/item_key.h"
#include "platform/controls/list_view.h"
#include "platform/desktop_test.h"
#include "platform/run_time_error.h"
#include "unit/support/error_number.h"
#include "unit/support/recording_peer.h"

namespace controls {
namespace {

using memory::desktop;
using platform::RunTimeError;
using Texts = std::vector<std::wstring>;

/// Refuses the selected changes, like a peer when the system refuses an image list.
class RefusingPeer : public ListViewPeer {
 public:
  explicit RefusingPeer(ListView& list) : list_(list) { list_.attach(this); }
  RefusingPeer(const RefusingPeer&) = delete;
  RefusingPeer& operator=(const RefusingPeer&) = delete;
  ~RefusingPeer() override { list_.attach(nullptr); }
  void changed(Change /*change*/) override { throw RunTimeError(platform::error::outOfMemory); }
  [[nodiscard]] std::size_t topIndex() const override { return 0; }
  [[nodiscard]] controls::RowRange rowsInView() const override { return {}; }
  void scrollTo(std::size_t /*index*/) override {}

 private:
  ListView& list_;
};

class ListRebuildTest : public ::memory::DesktopTest {
 protected:
  void addAll(const Texts& texts) {
    for (const auto& text : texts) {
      list.add(text, L"", {});
    }
  }
  void rebuild(const Texts& names) {
    list.rebuild({0}, [&] {
      list.clear();
      addAll(names);
    });
  }
  /// Items of several cells, whose first two identify them.
  void rebuildRows(const std::vector<Texts>& rows) {
    list.rebuild({0, 1}, [&] {
      list.clear();
      for (const Texts& row : rows) {
        list.add(row.at(0), L"", {row.at(1), row.at(2)});
      }
    });
  }
  [[nodiscard]] std::wstring selectedText() const { return list.text(list.selectedItem()); }
  [[nodiscard]] Texts told() const {
    Texts texts;
    for (const auto& message : desktop().messages) {
      texts.push_back(message.text);
    }
    return texts;
  }

  ListView list{L"lstQMK", 1};
};

TEST_F(ListRebuildTest, SelectionFocusAndScrollPositionStayWithTheirEntries) {
  RecordingListPeer peer(list);
  addAll({L"a", L"b", L"c", L"d", L"e"});
  list.select(3);
  list.acceptFocusedRow(2);
  peer.top = 1;
  rebuild({L"0", L"a", L"e", L"d", L"x", L"b", L"c"});
  EXPECT_EQ(selectedText(), L"d");
  ASSERT_TRUE(list.focused());
  EXPECT_EQ(list.text(*list.focused()), L"c");
  EXPECT_EQ(peer.top, 5U);
}

TEST_F(ListRebuildTest, EntriesAreFoundInTheOrderThatTheListIsSortedIn) {
  RecordingListPeer peer(list);
  list.setSorted(true);
  list.setSortOrder(descending);
  addAll({L"a", L"b", L"c"});
  list.select(1);
  peer.top = 2;
  rebuild({L"c", L"a", L"bb", L"b"});
  EXPECT_EQ(selectedText(), L"b");
  EXPECT_EQ(list.selectedItem(), 2U);
  EXPECT_EQ(peer.top, 3U);
}

TEST_F(ListRebuildTest, WithoutItsEntryTheSelectionFallsToTheFirstAdded) {
  RecordingListPeer peer(list);
  addAll({L"a", L"b", L"c"});
  list.select(1);
  peer.top = 1;
  rebuild({L"c", L"a"});
  EXPECT_EQ(selectedText(), L"c");
  EXPECT_EQ(peer.top, 1U) << "Without its entry the position stays";
}

TEST_F(ListRebuildTest, TellsThePeerOnce) {
  RecordingListPeer peer(list);
  addAll({L"a", L"b"});
  peer.take();
  rebuild({L"b", L"a"});
  EXPECT_EQ(peer.take(), std::vector{Change::items});
}

TEST_F(ListRebuildTest, WorksFromAndToAnEmptyList) {
  RecordingListPeer peer(list);
  rebuild({L"a"});
  EXPECT_EQ(selectedText(), L"a");
  rebuild({});
  EXPECT_EQ(list.selected(), std::nullopt);
  EXPECT_EQ(peer.top, 0U);
}

TEST_F(ListRebuildTest, WorksWithoutAPeer) {
  addAll({L"a", L"b"});
  list.select(1);
  rebuild({L"x", L"b"});
  EXPECT_EQ(selectedText(), L"b");
}

// --- equal entries ---

TEST_F(ListRebuildTest, EqualEntriesAreToldApartByTheirOrder) {
  addAll({L"same", L"a", L"same", L"same"});
  list.select(2);
  list.acceptFocusedRow(3);
  rebuild({L"same", L"x", L"y", L"same", L"same", L"a"});
  EXPECT_EQ(list.selectedItem(), 3U);
  EXPECT_EQ(list.focused(), 4U);
}

TEST_F(ListRebuildTest, OfEqualEntriesTheLastStandsForOneThatIsGone) {
  addAll({L"same", L"same", L"same"});
  list.select(2);
  rebuild({L"x", L"same", L"same", L"y"});
  EXPECT_EQ(list.selectedItem(), 2U);
  EXPECT_FALSE(list.lostSelection());
}

TEST_F(ListRebuildTest, AllColumnsOfTheKeyCountAndNoOther) {
  rebuildRows({{L"a", L"1", L"x"}, {L"a", L"2", L"x"}, {L"b", L"2", L"x"}});
  list.select(1);
  rebuildRows({{L"b", L"2", L"x"}, {L"a", L"1", L"x"}, {L"a", L"2", L"y"}});
  EXPECT_EQ(list.selectedItem(), 2U);
}

TEST_F(ListRebuildTest, AKeyFindsItsItem) {
  rebuildRows({{L"a", L"1", L""}, {L"a", L"2", L""}, {L"a", L"1", L""}});
  const ItemKey key = list.keyOf(2, {0, 1});
  EXPECT_EQ(key.text, L"a");
  EXPECT_EQ(key.cells, (Texts{L"a", L"1"}));
  EXPECT_EQ(key.number, 1U);
  EXPECT_EQ(list.find(key), 2U);
  EXPECT_EQ(list.find(list.keyOf(0, {0, 1})), 0U);
  rebuildRows({{L"a", L"1", L""}});
  EXPECT_EQ(list.find(key), 0U);
  rebuildRows({{L"a", L"2", L""}});
  EXPECT_EQ(list.find(key), std::nullopt);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(list.keyOf(1, {0})); }), 35600);
}

TEST_F(ListRebuildTest, AnItemThatAQuestionNamedIsFoundAgainOrSaidToBeGone) {
  addAll({L"a", L"b"});
  const ItemKey key = list.keyOf(1, {0});
  rebuild({L"b", L"c"});
  EXPECT_EQ(findAgain(list, key), 0U);
  EXPECT_TRUE(desktop().messages.empty());
  rebuild({L"c"});
  EXPECT_EQ(findAgain(list, key), std::nullopt);
  EXPECT_EQ(told(), Texts{L"b is no longer in the list"});
}

// --- a selection that nobody has chosen ---

TEST_F(ListRebuildTest, ASelectionThatARebuildMadeIsNotChosen) {
  addAll({L"a", L"b"});
  list.select(1);
  rebuild({L"a", L"c"});
  ASSERT_TRUE(list.lostSelection());
  EXPECT_EQ(list.lostSelection()->text, L"b");
  EXPECT_FALSE(selectionIsChosen(list));
  EXPECT_EQ(told(), Texts{L"b is no longer in the list"});
  EXPECT_EQ(selectedText(), L"a");
}

TEST_F(ListRebuildTest, ChoosingAnItemEndsThat) {
  const auto lose = [this] {
    rebuild({L"a", L"b"});
    list.select(1);
    rebuild({L"a", L"c"});
    ASSERT_TRUE(list.lostSelection());
  };
  lose();
  list.select(0);
  EXPECT_TRUE(selectionIsChosen(list));
  lose();
  list.acceptSelection(1);
  EXPECT_TRUE(selectionIsChosen(list));
  lose();
  list.adoptSelection();
  EXPECT_TRUE(selectionIsChosen(list));
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(ListRebuildTest, TheChosenItemIsSelectedAgainWhenItIsBack) {
  addAll({L"a", L"b"});
  list.select(1);
  rebuild({L"a"});
  rebuild({L"a", L"b"});
  EXPECT_EQ(selectedText(), L"a") << "What is selected stays so by itself";
  EXPECT_TRUE(selectionIsChosen(list));
  EXPECT_EQ(selectedText(), L"b");
  EXPECT_FALSE(list.lostSelection());
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(ListRebuildTest, TheFirstItemLostIsTheOneThatWasChosen) {
  addAll({L"a", L"b", L"c"});
  list.select(2);
  rebuild({L"a", L"b"});
  rebuild({L"b"});
  ASSERT_TRUE(list.lostSelection());
  EXPECT_EQ(list.lostSelection()->text, L"c");
}

TEST_F(ListRebuildTest, AListThatWasEmptyForAWhileSelectsTheSameEntryAgain) {
  addAll({L"a", L"b", L"c"});
  list.select(1);
  rebuild({});
  ASSERT_TRUE(list.lostSelection());
  EXPECT_EQ(list.lostSelection()->text, L"b");
  rebuild({L"a", L"b"});
  EXPECT_EQ(selectedText(), L"b");
  EXPECT_EQ(list.focused(), 1U);
  EXPECT_FALSE(list.lostSelection());
}

// --- failures ---

TEST_F(ListRebuildTest, AFailureHalfWayKeepsTheItemsAddedSoFarAndTellsThePeer) {
  RecordingListPeer peer(list);
  addAll({L"a", L"b", L"c"});
  list.select(1);
  peer.take();
  EXPECT_EQ(errorNumberOf([this] {
              list.rebuild({0}, [this] {
                list.clear();
                addAll({L"x", L"b"});
                throw RunTimeError(70);
              });
            }),
            70);
  EXPECT_EQ(list.count(), 2U);
  EXPECT_EQ(selectedText(), L"b");
  EXPECT_EQ(peer.take(), std::vector{Change::items});
  EXPECT_FALSE(list.whole());
  rebuild({L"z"});
  EXPECT_TRUE(list.whole());
  EXPECT_EQ(peer.take(), std::vector{Change::items}) << "The update before has ended";
}

TEST_F(ListRebuildTest, AFailedUpdateTellsThePeerOfWhatWasChanged) {
  RecordingListPeer peer(list);
  EXPECT_THROW(list.update([this] {
    addAll({L"a"});
    throw std::bad_alloc();
  }),
               std::bad_alloc);
  EXPECT_EQ(peer.take(), std::vector{Change::items});
  addAll({L"b"});
  EXPECT_EQ(peer.take(), std::vector{Change::items}) << "The update before has ended";
}

TEST_F(ListRebuildTest, AnErrorOfThePeerGoesToTheCaller) {
  const RefusingPeer peer(list);
  EXPECT_EQ(errorNumberOf([this] { rebuild({L"a"}); }), 7);
  EXPECT_EQ(errorNumberOf([this] { list.update([] {}); }), 7);
  EXPECT_EQ(errorNumberOf([this] { list.rebuild({0}, [] { throw RunTimeError(53); }); }), 7);
  EXPECT_EQ(list.count(), 1U);
}

TEST_F(ListRebuildTest, AnItemIsThereWholeOrNotAtAll) {
  list.add(L"a", L"icon", {L"1"});
  list.completeLast(L"other", {L"2", L"3", L"4"});
  EXPECT_EQ(list.icon(0), L"other");
  EXPECT_EQ(list.subItem(0, 1), L"2");
  EXPECT_EQ(list.subItem(0, 3), L"4");
  list.add(L"b", L"", {});
  EXPECT_EQ(list.subItem(1, 1), L"");
  list.completeLast(L"", {L"9"});
  EXPECT_EQ(list.subItem(1, 1), L"9");
  EXPECT_EQ(list.subItem(0, 1), L"2");
  list.clear();
  EXPECT_EQ(errorNumberOf([this] { list.completeLast(L"", {}); }), 35600);
}

TEST_F(ListRebuildTest, AnItemThatCannotBeCompletedGoesAgain) {
  list.setSorted(true);
  list.add(L"b", L"", {L"1"});
  list.add(L"a", L"", {L"2"});
  EXPECT_EQ(list.text(0), L"a");
  list.removeLast();
  ASSERT_EQ(list.count(), 1U);
  EXPECT_EQ(list.text(0), L"b");
  EXPECT_EQ(list.selected(), 0U);
  list.removeLast();
  EXPECT_EQ(list.count(), 0U);
  EXPECT_EQ(list.selected(), std::nullopt);
  EXPECT_EQ(list.focused(), std::nullopt);
  list.removeLast();
  list.add(L"c", L"", {});
  EXPECT_EQ(list.text(0), L"c");
  EXPECT_EQ(list.subItem(0, 1), L"") << "Nothing is left of the former row";
  EXPECT_EQ(list.selected(), 0U);
}

TEST_F(ListRebuildTest, AnItemThatIsCompletedTakesItsSortedPlaceAndThePeerHears) {
  RecordingListPeer peer(list);
  list.setSortKey(1);
  list.setSorted(true);
  list.add(L"a", L"", {L"m"});
  list.add(L"b", L"", {L"z"});
  EXPECT_EQ(list.text(1), L"b");
  peer.take();
  list.completeLast(L"", {L"c"});
  EXPECT_EQ(list.text(0), L"b");
  EXPECT_EQ(peer.take(), std::vector{Change::items});
}

}  // namespace
}  // namespace controls
