// A list that shows only what the user looks for.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/controls/list_view.h"
#include "platform/desktop_test.h"
#include "unit/support/error_number.h"
#include "unit/support/recording_peer.h"

namespace controls {
namespace {

using Texts = std::vector<std::wstring>;

class ListNarrowing : public ::memory::DesktopTest {
 protected:
  ListNarrowing() {
    list.addColumn(L"Name", 1500);
    list.addColumn(L"Folder", 2000);
    list.addColumn(L"Secret", 0);
    list.add(L"North 1.fp3", L"pv3", {L"C:\\field\\", L"alpha"});
    list.add(L"South 2.fp3", L"pv3", {L"C:\\field\\", L"beta"});
    list.add(L"North 3.bi3", L"bw3", {L"D:\\office\\", L"gamma"});
    list.add(L"West 4.bi3", L"bw3", {L"D:\\office\\", L"delta"});
  }

  [[nodiscard]] Texts shown() const {
    Texts texts;
    for (std::size_t row = 0; row < list.rows(); ++row) {
      texts.emplace_back(list.rowCell(row, 0));
    }
    return texts;
  }

  [[nodiscard]] std::wstring selected() const {
    const auto row = list.selectedRow();
    return row ? std::wstring(list.rowCell(*row, 0)) : L"none";
  }

  ListView list{L"lstQMK", 1};
};

TEST_F(ListNarrowing, ShowsEverythingAtFirst) {
  EXPECT_FALSE(list.narrowed());
  EXPECT_EQ(list.rows(), 4U);
  EXPECT_EQ(list.findText(), L"");
}

TEST_F(ListNarrowing, ARowStaysWhenEveryWordIsInOneOfItsColumns) {
  list.setFind(L"north");
  EXPECT_EQ(shown(), (Texts{L"North 1.fp3", L"North 3.bi3"}));
  list.setFind(L"office north");
  EXPECT_EQ(shown(), (Texts{L"North 3.bi3"}));
  list.setFind(L"NORTH field");
  EXPECT_EQ(shown(), (Texts{L"North 1.fp3"}));
  list.setFind(L"north west");
  EXPECT_EQ(shown(), Texts{});
}

TEST_F(ListNarrowing, AWordIsNotSpreadOverTwoColumns) {
  list.setFind(L"fp3C:");
  EXPECT_EQ(shown(), Texts{});
}

TEST_F(ListNarrowing, HiddenColumnsDoNotCount) {
  list.setFind(L"alpha");
  EXPECT_EQ(shown(), Texts{});
  list.setColumnWidth(2, 100);
  list.setFind(L"alpha ");
  list.setFind(L"alph");
  EXPECT_EQ(shown(), (Texts{L"North 1.fp3"}));
}

TEST_F(ListNarrowing, InIconViewTheSameColumnsCount) {
  list.setView(iconView);
  list.setFind(L"office");
  EXPECT_EQ(list.rows(), 2U);
}

TEST_F(ListNarrowing, TheListKeepsAllItsItems) {
  list.setFind(L"west");
  EXPECT_EQ(list.count(), 4U);
  EXPECT_EQ(list.text(0), L"North 1.fp3");
  EXPECT_EQ(list.cell(1, 1), L"C:\\field\\");
}

TEST_F(ListNarrowing, RowsAndItemsAreToldApart) {
  list.setFind(L"office");
  EXPECT_EQ(list.itemOfRow(0), 2U);
  EXPECT_EQ(list.itemOfRow(1), 3U);
  EXPECT_EQ(list.rowOf(2), 0U);
  EXPECT_EQ(list.rowOf(0), std::nullopt);
  EXPECT_EQ(list.rowOf(std::nullopt), std::nullopt);
  EXPECT_EQ(list.rowIcon(0), L"bw3");
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(list.itemOfRow(2)); }), 35600);
}

TEST_F(ListNarrowing, WhenTheSelectionIsNarrowedAwayTheFirstRowIsSelected) {
  list.select(0);
  list.setFind(L"office");
  EXPECT_EQ(selected(), L"North 3.bi3");
  EXPECT_EQ(list.focusedRow(), 0U);
  EXPECT_EQ(list.selectedItem(), 2U);
}

TEST_F(ListNarrowing, ASelectedRowThatIsShownStaysSelected) {
  list.select(3);
  list.setFind(L"office");
  EXPECT_EQ(selected(), L"West 4.bi3");
}

TEST_F(ListNarrowing, WhenNothingIsShownNoRowIsSelectedAndTheSelectionComesBack) {
  list.select(3);
  list.setFind(L"nowhere");
  EXPECT_EQ(list.rows(), 0U);
  EXPECT_EQ(list.selectedRow(), std::nullopt);
  EXPECT_EQ(list.emptyText(), L"Nothing matches");
  list.setFind(L"4");
  EXPECT_EQ(selected(), L"West 4.bi3");
  list.setFind(L"");
  EXPECT_EQ(selected(), L"West 4.bi3");
}

TEST_F(ListNarrowing, WhenTheTextIsEmptiedTheSelectionStaysAndIsShown) {
  list.select(0);
  list.setFind(L"office");
  RecordingListPeer peer(list);
  list.setFind(L"");
  EXPECT_EQ(selected(), L"North 3.bi3");
  EXPECT_EQ(peer.take(), (std::vector<Change>{Change::items, Change::selection}));
}

TEST_F(ListNarrowing, TheSameWordsChangeNothing) {
  list.setFind(L"office");
  RecordingListPeer peer(list);
  list.setFind(L" office  ");
  EXPECT_EQ(peer.take(), std::vector<Change>{});
  EXPECT_EQ(list.findText(), L" office  ");
}

TEST_F(ListNarrowing, ALetterMoreAndALetterLessFindTheSameAsAtOnce) {
  const std::wstring text = L"north 3 of";
  for (std::size_t end = 0; end <= text.size(); ++end) {
    list.setFind(text.substr(0, end));
    const Texts step = shown();
    list.setFind(L"");
    list.setFind(text.substr(0, end));
    EXPECT_EQ(shown(), step) << end;
  }
  for (std::size_t end = text.size(); end-- > 0;) {
    list.setFind(text.substr(0, end));
    const Texts step = shown();
    list.setFind(L"");
    list.setFind(text.substr(0, end));
    EXPECT_EQ(shown(), step) << end;
  }
}

TEST_F(ListNarrowing, AChangeOfTheItemsIsSeenWhenALetterIsDeleted) {
  list.setFind(L"o");
  list.setFind(L"of");
  list.setText(0, L"none");
  list.setFind(L"o");
  EXPECT_EQ(list.rows(), 4U);
  list.setFind(L"of");
  list.add(L"xo", L"", {L"", L""});
  list.setFind(L"o");
  EXPECT_EQ(list.rows(), 5U);
  list.setSorted(true);
  list.setFind(L"of");
  list.setSortOrder(descending);
  list.setFind(L"o");
  EXPECT_EQ(list.rowCell(0, 0), L"xo");
}

TEST_F(ListNarrowing, AChangeOfTheItemsIsSeenWhenALetterIsTyped) {
  list.setFind(L"n");
  ASSERT_EQ(list.rows(), 2U);
  list.add(L"North 5.cw3", L"cw3", {L"E:\\"});
  list.setFind(L"no");
  EXPECT_EQ(shown(), (Texts{L"North 1.fp3", L"North 3.bi3", L"North 5.cw3"}));
}

TEST_F(ListNarrowing, ASelectionThatMovedByItIsNotChosen) {
  list.select(0);
  EXPECT_FALSE(list.lostSelection());
  list.setFind(L"office");
  ASSERT_TRUE(list.lostSelection());
  EXPECT_EQ(list.find(*list.lostSelection()), 0U);
  list.setFind(L"west");
  EXPECT_EQ(list.find(*list.lostSelection()), 0U) << "Still the one that was chosen";
  list.acceptSelectedRow(0);
  EXPECT_FALSE(list.lostSelection());
}

TEST_F(ListNarrowing, ReloadsKeepTheText) {
  list.setFind(L"office");
  list.rebuild({0}, [this] {
    list.clear();
    list.add(L"East 5.bi3", L"bw3", {L"D:\\office\\", L""});
    list.add(L"North 1.fp3", L"pv3", {L"C:\\field\\", L""});
  });
  EXPECT_EQ(list.findText(), L"office");
  EXPECT_EQ(shown(), (Texts{L"East 5.bi3"}));
  EXPECT_EQ(selected(), L"East 5.bi3");
}

TEST_F(ListNarrowing, AReloadKeepsTheSelectedRowOfTheNarrowedList) {
  list.setFind(L"office");
  list.acceptSelectedRow(1);
  list.rebuild({0}, [this] {
    list.clear();
    list.add(L"A 0.bi3", L"bw3", {L"D:\\office\\", L""});
    list.add(L"West 4.bi3", L"bw3", {L"D:\\office\\", L""});
  });
  EXPECT_EQ(selected(), L"West 4.bi3");
}

TEST_F(ListNarrowing, AReloadScrollsToTheRowThatWasFirst) {
  list.setFind(L"office");
  RecordingListPeer peer(list);
  peer.top = 1;
  list.rebuild({0}, [this] {
    list.clear();
    list.add(L"A 0.bi3", L"bw3", {L"D:\\office\\", L""});
    list.add(L"hidden", L"", {L"elsewhere", L""});
    list.add(L"B 0.bi3", L"bw3", {L"D:\\office\\", L""});
    list.add(L"West 4.bi3", L"bw3", {L"D:\\office\\", L""});
  });
  EXPECT_EQ(peer.top, 2U);
}

TEST_F(ListNarrowing, SortsKeepIt) {
  list.setFind(L"office");
  list.setSorted(true);
  list.setSortOrder(descending);
  EXPECT_EQ(shown(), (Texts{L"West 4.bi3", L"North 3.bi3"}));
  list.setSortOrder(ascending);
  EXPECT_EQ(shown(), (Texts{L"North 3.bi3", L"West 4.bi3"}));
}

TEST_F(ListNarrowing, AChangedTextComesAndGoes) {
  list.setFind(L"north");
  list.setText(3, L"North 4.bi3");
  EXPECT_EQ(shown(), (Texts{L"North 1.fp3", L"North 3.bi3", L"North 4.bi3"}));
  list.setText(0, L"East");
  EXPECT_EQ(shown(), (Texts{L"North 3.bi3", L"North 4.bi3"}));
}

TEST_F(ListNarrowing, AnAddedItemIsShownIfItFits) {
  list.setFind(L"north");
  list.add(L"North 9", L"", {L"", L""});
  list.add(L"South 9", L"", {L"", L""});
  EXPECT_EQ(list.rows(), 3U);
  list.update([this] { list.removeLast(); });
  EXPECT_EQ(list.rows(), 3U);
  EXPECT_EQ(list.count(), 5U);
}

TEST_F(ListNarrowing, ManyDifferentFoldersAreAllToldApart) {
  ListView many(L"many", 2);
  many.addColumn(L"Name", 100);
  many.addColumn(L"Folder", 100);
  many.update([&] {
    for (int n = 0; n < 3000; ++n) {
      many.add(L"x", L"", {L"folder " + std::to_wstring(n % 700) + L";"});
    }
  });
  many.setFind(L"37;");
  std::size_t expected = 0;
  for (int n = 0; n < 3000; ++n) {
    const std::wstring folder = L"folder " + std::to_wstring(n % 700) + L";";
    expected += folder.find(L"37;") != std::wstring::npos ? 1 : 0;
  }
  EXPECT_EQ(many.rows(), expected);
}

TEST_F(ListNarrowing, TypingJumpsAmongTheRows) {
  list.setFind(L"bi3");
  EXPECT_EQ(list.findRow(L"we", 0), 1U);
  EXPECT_EQ(list.findRow(L"n", 1), 0U) << "Wraps round";
  EXPECT_EQ(list.findRow(L"so", 0), std::nullopt) << "Not shown";
}

TEST_F(ListNarrowing, AnEmptyListSaysWhatToDo) {
  ListView empty(L"empty", 2);
  EXPECT_EQ(empty.emptyText(), L"");
  empty.setEmptyText(L"Nothing yet.");
  EXPECT_EQ(empty.emptyText(), L"Nothing yet.");
  empty.setFind(L"x");
  EXPECT_EQ(empty.emptyText(), L"Nothing yet.") << "It is not the search that hides anything";
}

TEST_F(ListNarrowing, TellsThatOtherRowsOrAnotherSelectionIsShown) {
  int told = 0;
  list.onShown = [&told] { ++told; };
  list.setFind(L"north");
  EXPECT_EQ(told, 1);
  list.acceptSelectedRow(1);
  EXPECT_EQ(told, 2);
  list.select(0);
  EXPECT_EQ(told, 3);
  list.setText(0, L"x");
  EXPECT_EQ(told, 4);
}

TEST_F(ListNarrowing, TheRevisionChangesWithTheItemsOnly) {
  const auto before = list.revision();
  list.setFind(L"north");
  list.acceptSelectedRow(1);
  EXPECT_EQ(list.revision(), before);
  list.setText(0, L"x");
  EXPECT_NE(list.revision(), before);
}

TEST_F(ListNarrowing, RemarksAreAskedForRows) {
  EXPECT_EQ(list.remarkOn(0), L"");
  list.remark = [](std::size_t row) { return row == 1 ? L"gone" : L""; };
  EXPECT_EQ(list.remarkOn(1), L"gone");
  EXPECT_EQ(list.remarkOn(0), L"");
  EXPECT_EQ(list.remarkOn(4), L"") << "No such row";
}

TEST_F(ListNarrowing, WithoutANativeListAllRowsAreInView) {
  list.setFind(L"north");
  EXPECT_EQ(list.rowsInView(), (RowRange{0, 2}));
  RecordingListPeer peer(list);
  peer.top = 1;
  EXPECT_EQ(list.rowsInView(), (RowRange{1, 1})) << "Not more than there are";
  peer.visible = 1;
  peer.top = 0;
  EXPECT_EQ(list.rowsInView(), (RowRange{0, 1}));
  peer.top = 9;
  EXPECT_EQ(list.rowsInView(), (RowRange{2, 0}));
}

// --- ranking ---

class ListRanking : public ListNarrowing {
 protected:
  static ListView::Ranking byLastDigit() {
    return {0, [](std::size_t count, const std::function<std::wstring_view(std::size_t)>& textAt) {
              std::vector<std::uint64_t> ranks;
              for (std::size_t n = 0; n < count; ++n) {
                const std::wstring_view text = textAt(n);
                const std::size_t digit = text.find_first_of(L"0123456789");
                ranks.push_back(digit == std::wstring_view::npos
                                    ? 0
                                    : static_cast<std::uint64_t>(text[digit]) << 40U);
              }
              return ranks;
            }};
  }
};

TEST_F(ListRanking, TheHighestRankComesFirst) {
  list.setRanking(byLastDigit());
  EXPECT_EQ(shown(), (Texts{L"West 4.bi3", L"North 3.bi3", L"South 2.fp3", L"North 1.fp3"}));
}

TEST_F(ListRanking, EqualRanksStayInTheOrderOfAddingWhateverTheSortWas) {
  list.setSorted(true);
  list.setSortOrder(descending);
  list.add(L"b", L"", {});
  list.add(L"c", L"", {});
  list.add(L"a", L"", {});
  EXPECT_EQ(list.text(0), L"West 4.bi3");
  list.setRanking(byLastDigit());
  EXPECT_EQ(shown(), (Texts{L"West 4.bi3", L"North 3.bi3", L"South 2.fp3", L"North 1.fp3", L"b",
                            L"c", L"a"}));
}

TEST_F(ListRanking, HoldsForWhatIsAddedAndChanged) {
  list.setRanking(byLastDigit());
  list.add(L"East 9", L"", {});
  EXPECT_EQ(list.text(0), L"East 9");
  list.setText(0, L"East 0");
  EXPECT_EQ(list.text(4), L"East 0");
  list.update([this] {
    list.add(L"Up 7", L"", {});
    list.completeLast(L"", {L"folder"});
  });
  EXPECT_EQ(list.text(0), L"Up 7");
}

TEST_F(ListRanking, WithoutItTheSortKeyDecidesAgain) {
  list.setSorted(true);
  list.setRanking(byLastDigit());
  list.setSortKey(0);
  EXPECT_EQ(list.text(0), L"West 4.bi3") << "The sort key waits";
  list.setRanking(std::nullopt);
  EXPECT_EQ(list.text(0), L"North 1.fp3");
  EXPECT_FALSE(list.ranking());
}

TEST_F(ListRanking, NarrowsInItsOrder) {
  list.setRanking(byLastDigit());
  list.setFind(L"north");
  EXPECT_EQ(shown(), (Texts{L"North 3.bi3", L"North 1.fp3"}));
}

// --- the editor of a name ---

class ListNameEditor : public ListNarrowing {
 protected:
  ListNameEditor() {
    list.onNameTyped = [this](const ItemKey& item, const std::wstring& name) {
      typed.push_back(item.text + L">" + name);
    };
  }
  void edit() { list.editName({list.keyOf(1, {0}), L"South 2.fp3", 7}); }
  Texts typed;
};

TEST_F(ListNameEditor, IsOpenUntilANameIsTyped) {
  EXPECT_FALSE(list.nameEditor());
  RecordingListPeer peer(list);
  edit();
  ASSERT_TRUE(list.nameEditor());
  EXPECT_EQ(list.nameEditor()->stem, 7U);
  EXPECT_EQ(peer.take(), (std::vector<Change>{Change::editor}));
  list.fireNameTyped(L"East.fp3");
  EXPECT_FALSE(list.nameEditor());
  EXPECT_EQ(typed, (Texts{L"South 2.fp3>East.fp3"}));
  EXPECT_EQ(peer.take(), (std::vector<Change>{Change::editor}));
}

TEST_F(ListNameEditor, AnUnchangedOrBlankNameChangesNothing) {
  for (const wchar_t* const name : {L"South 2.fp3", L"", L" ", L" \t "}) {
    edit();
    list.fireNameTyped(name);
    EXPECT_FALSE(list.nameEditor());
  }
  EXPECT_EQ(typed, Texts{});
}

TEST_F(ListNameEditor, NothingHappensWhenItIsClosedAlready) {
  list.fireNameTyped(L"East.fp3");
  edit();
  list.closeNameEditor();
  list.fireNameTyped(L"East.fp3");
  EXPECT_EQ(typed, Texts{});
  RecordingListPeer peer(list);
  list.closeNameEditor();
  EXPECT_EQ(peer.take(), std::vector<Change>{});
}

TEST_F(ListNameEditor, AReloadDoesNotChangeWhichItemIsMeant) {
  edit();
  list.rebuild({0}, [this] {
    list.clear();
    list.add(L"A new one", L"", {});
    list.add(L"South 2.fp3", L"", {});
  });
  ASSERT_TRUE(list.nameEditor());
  EXPECT_EQ(list.find(list.nameEditor()->item), 1U);
}

TEST_F(ListNameEditor, ASlowClickIsTold) {
  int clicks = 0;
  list.fireNameClick();
  list.onNameClick = [&clicks] { ++clicks; };
  list.fireNameClick();
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace controls
