#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "unit/support/catalogue_test.h"
#include "unit/support/fault_sweep.h"
#include "unit/support/recording_peer.h"

namespace {

using memory::desktop;
using modQMKGeneral::LoadCatalogueView;
using unit::record;
using unit::Texts;

class CatalogueView : public unit::CatalogueTest {};

TEST_F(CatalogueView, ShowsNamePictureDateLabelFolderAndCodeOfEachType) {
  putCatalogue(record({"FP3", "C:\\d\\1.fp3", "one"}) + record({"BS3", "C:\\d\\2.bs3", "two"}) +
               record({"BI3", "C:\\d\\3.bi3", "three"}) + record({"CW3", "C:\\4.cw3", "four"}));
  LoadCatalogueView(view);
  ASSERT_EQ(list.count(), 4U);
  EXPECT_EQ(row(0), (Texts{L"1.fp3", L"PV3", L"one", L"Fuel Profile", L"C:\\d\\", L"FP3"}));
  EXPECT_EQ(row(1), (Texts{L"2.bs3", L"BW3", L"two", L"Plotview Inventory", L"C:\\d\\", L"BS3"}));
  EXPECT_EQ(row(2),
            (Texts{L"3.bi3", L"BW3", L"three", L"Planar Intercept Inventory", L"C:\\d\\", L"BI3"}));
  EXPECT_EQ(row(3), (Texts{L"4.cw3", L"CW3", L"four", L"Canopy Weigh Inventory", L"C:\\", L"CW3"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueView, LowerAndUpperCaseCodesShowTheSameLabelAndKeepTheirCase) {
  putCatalogue(record({"bi3", "C:\\a.bi3", ""}) + record({"BI3", "C:\\b.bi3", ""}));
  LoadCatalogueView(view);
  ASSERT_EQ(list.count(), 2U);
  EXPECT_EQ(row(0)[3], L"Planar Intercept Inventory");
  EXPECT_EQ(row(1)[3], L"Planar Intercept Inventory");
  EXPECT_EQ(row(0)[5], L"bi3");
  EXPECT_EQ(row(1)[5], L"BI3");
}

TEST_F(CatalogueView, AnImageKeyIsNoTypeCode) {
  putCatalogue(record({"BW3", "C:\\a.x", "1"}) + record({"PV3", "C:\\b.x", "2"}) +
               record({"", "C:\\c.x", "3"}) + record({"fp33", "C:\\d.x", "4"}));
  LoadCatalogueView(view);
  ASSERT_EQ(list.count(), 4U);
  EXPECT_EQ(row(0), (Texts{L"a.x", L"", L"1", L"", L"C:\\", L"BW3"}));
  EXPECT_EQ(row(1), (Texts{L"b.x", L"", L"2", L"", L"C:\\", L"PV3"}));
  EXPECT_EQ(row(2), (Texts{L"c.x", L"", L"3", L"", L"C:\\", L""}));
  EXPECT_EQ(row(3), (Texts{L"d.x", L"", L"4", L"", L"C:\\", L"fp33"}));
}

TEST_F(CatalogueView, SkipsARecordWithoutPathFolderOrNameSilently) {
  putCatalogue(record({"FP3", "", "1"}) + record({"FP3", "name.fp3", "1"}) +
               record({"FP3", "C:\\folder\\", "1"}) + "FP3\r\n\r\n" +
               record({"FP3", "\\x.fp3", "1"}));
  LoadCatalogueView(view);
  EXPECT_EQ(rows(), Texts{L"x.fp3"});
  EXPECT_EQ(row(0)[4], L"\\");
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueView, EveryPictureNamedIsInBothImageLists) {
  for (const wchar_t* const key : {L"PV3", L"BW3", L"CW3"}) {
    EXPECT_TRUE(main.imgIcons[0].indexOf(key)) << key;
    EXPECT_TRUE(main.imgIcons[1].indexOf(key)) << key;
  }
}

TEST_F(CatalogueView, IsSortedByFileNameWhateverTheOrderInTheFile) {
  putCatalogue(record({"FP3", "C:\\b.fp3", ""}) + record({"FP3", "D:\\C.fp3", ""}) +
               record({"FP3", "A:\\z\\a.fp3", ""}));
  LoadCatalogueView(view);
  EXPECT_EQ(rows(), (Texts{L"a.fp3", L"b.fp3", L"C.fp3"}));
}

TEST_F(CatalogueView, SetsUpImagesReportViewAndSorting) {
  list.setView(controls::iconView);
  list.setSortKey(3);
  list.setSorted(false);
  list.setSortOrder(controls::descending);
  LoadCatalogueView(view);
  EXPECT_EQ(list.largeImages(), main.imgIcons.data());
  EXPECT_EQ(list.smallImages(), &main.imgIcons[1]);
  EXPECT_EQ(list.view(), controls::reportView);
  EXPECT_EQ(list.sortKey(), 0);
  EXPECT_TRUE(list.sorted());
  EXPECT_EQ(list.sortOrder(), controls::ascending);
}

TEST_F(CatalogueView, ReplacesWhatTheListHeld) {
  putCatalogue(record({"FP3", "C:\\a.fp3", "1"}));
  LoadCatalogueView(view);
  putCatalogue(record({"FP3", "C:\\b.fp3", "1"}));
  LoadCatalogueView(view);
  EXPECT_EQ(rows(), Texts{L"b.fp3"});
}

TEST_F(CatalogueView, ShowsARecordThatIsListedTwiceTwice) {
  putCatalogue(record({"FP3", "C:\\a.fp3", "1"}) + record({"FP3", "C:\\a.fp3", "2"}));
  LoadCatalogueView(view);
  EXPECT_EQ(rows(), (Texts{L"a.fp3", L"a.fp3"}));
}

TEST_F(CatalogueView, ShowsCommasAccentsAndLongPaths) {
  const std::string longFolder = "C:\\" + std::string(290, 'x') + "\\";
  putCatalogue(record({"fp3", "C:\\a, b.fp3", "20. 11. 2026, 14:30"}) +
               record({"cw3", "C:\\\xE9t\xE9\\\xFC.cw3", ""}) +
               record({"bi3", longFolder + "z.bi3", ""}));
  LoadCatalogueView(view);
  ASSERT_EQ(rows(), (Texts{L"a, b.fp3", L"z.bi3", L"\u00FC.cw3"}));
  EXPECT_EQ(row(0)[2], L"20. 11. 2026, 14:30");
  EXPECT_EQ(row(1)[4].size(), 294U);
  EXPECT_EQ(row(2)[4], L"C:\\\u00E9t\u00E9\\");
}

TEST_F(CatalogueView, TheSelectedEntryStaysSelectedWhereItIsStillThere) {
  putCatalogue(record({"FP3", "C:\\a.fp3", ""}) + record({"FP3", "C:\\b.fp3", ""}));
  LoadCatalogueView(view);
  select(list, L"b.fp3");
  putCatalogue(record({"FP3", "C:\\b.fp3", ""}) + record({"FP3", "C:\\a.fp3", ""}) +
               record({"FP3", "C:\\0.fp3", ""}));
  LoadCatalogueView(view);
  ASSERT_EQ(rows(), (Texts{L"0.fp3", L"a.fp3", L"b.fp3"}));
  EXPECT_EQ(list.selected(), 2U);
  EXPECT_EQ(list.focused(), 2U);
}

TEST_F(CatalogueView, AReloadKeepsTheScrollPositionAndPaintsTheItemsOnce) {
  std::string bytes;
  for (const char c : {'a', 'b', 'c', 'd', 'e'}) {
    bytes += record({"FP3", std::string("C:\\") + c + ".fp3", ""});
  }
  putCatalogue(bytes);
  LoadCatalogueView(view);
  RecordingListPeer peer(list);
  peer.top = 2;
  putCatalogue(record({"FP3", "C:\\0.fp3", ""}) + bytes);
  LoadCatalogueView(view);
  EXPECT_EQ(list.text(peer.top), L"c.fp3");
  const auto changes = peer.take();
  EXPECT_EQ(std::count(changes.begin(), changes.end(), controls::Change::items), 1);
}

TEST_F(CatalogueView, TheSameNameInAnotherFolderIsAnotherEntry) {
  putCatalogue(record({"FP3", "C:\\a.fp3", ""}) + record({"FP3", "D:\\a.fp3", ""}));
  LoadCatalogueView(view);
  list.select(1);
  putCatalogue(record({"FP3", "0:\\a.fp3", ""}) + record({"FP3", "C:\\a.fp3", ""}) +
               record({"FP3", "D:\\a.fp3", ""}));
  LoadCatalogueView(view);
  EXPECT_EQ(list.subItem(list.selectedItem(), 3), L"D:\\");
}

TEST_F(CatalogueView, ALockedCatalogueIsReportedWithTheLocation) {
  putCatalogue(record({"FP3", "C:\\a.fp3", ""}));
  desktop().lock(unit::catalogueFile);
  EXPECT_EQ(errorNumberOf([this] { LoadCatalogueView(view); }), 0);
  ASSERT_EQ(messages(), Texts{L"Problem building QMK file list\rLocation: 2\r"
                              L"70-Permission denied"});
  EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::information);
  EXPECT_EQ(desktop().messages[0].title, L"Quillmark Suite 3 Gateway");
}

/// A native list that refuses a change, as when the system runs out of a resource.
class RefusingPeer : public controls::ListViewPeer {
 public:
  explicit RefusingPeer(std::function<bool()> refuses) : refuses_(std::move(refuses)) {}
  void changed(controls::Change /*change*/) override {
    if (refuses_()) {
      throw platform::RunTimeError(platform::error::outOfMemory);
    }
  }
  [[nodiscard]] std::size_t topIndex() const override { return 0; }
  [[nodiscard]] controls::RowRange rowsInView() const override { return {}; }
  void scrollTo(std::size_t /*index*/) override {}

 private:
  std::function<bool()> refuses_;
};

/// Location in the failure message when the list refuses the change that `refuses` selects.
std::wstring locationWhen(modQMKGeneral::CatalogueView& view,
                          const std::function<bool()>& refuses) {
  desktop().messages.clear();
  bool refused = false;
  RefusingPeer peer([&] { return !refused && (refused = refuses()); });
  view.dataList.attach(&peer);
  LoadCatalogueView(view);
  view.dataList.attach(nullptr);
  if (desktop().messages.size() != 1) {
    return L"no message";
  }
  const std::wstring& text = desktop().messages[0].text;
  const std::wstring before = L"Problem building QMK file list\rLocation: ";
  const std::wstring after = L"\r7-Out of memory";
  if (!text.starts_with(before) || !text.ends_with(after)) {
    return text;
  }
  return text.substr(before.size(), text.size() - before.size() - after.size());
}

TEST_F(CatalogueView, TheFailureMessageNamesTheStepOfTheSetUp) {
  putCatalogue(record({"FP3", "C:\\a.fp3", ""}));
  const auto largeSet = [this] { return list.largeImages() == main.imgIcons.data(); };
  const auto smallSet = [this] { return list.smallImages() == &main.imgIcons[1]; };
  const auto reset = [this] {
    list.setImages(nullptr, nullptr);
    list.setView(controls::iconView);
    list.setSortKey(3);
    list.setSorted(false);
    list.setSortOrder(controls::descending);
  };
  reset();
  EXPECT_EQ(locationWhen(view, [&] { return largeSet() && !smallSet(); }), L"1a");
  reset();
  EXPECT_EQ(locationWhen(view, smallSet), L"1b");
  reset();
  EXPECT_EQ(locationWhen(view, [this] { return list.view() == controls::reportView; }), L"1c");
  reset();
  EXPECT_EQ(locationWhen(view, [this] { return list.sortKey() == 0; }), L"1d");
  reset();
  EXPECT_EQ(locationWhen(view, [this] { return list.sorted(); }), L"1e");
  reset();
  EXPECT_EQ(locationWhen(view, [this] { return list.sortOrder() == controls::ascending; }), L"1f");
}

TEST_F(CatalogueView, AnErrorLeavesTheCatalogueAloneWhateverCallFails) {
  const std::string bytes = record({"FP3", "C:\\a.fp3", "1"});
  unit::sweepFaults(1, {.prepare = [&] { putCatalogue(bytes); },
                        .operation = [this] { LoadCatalogueView(view); },
                        .check =
                            [&](const unit::Fault& fault) {
                              EXPECT_EQ(catalogue(), bytes);
                              EXPECT_EQ(list.count(), fault.happened ? 0U : 1U);
                              EXPECT_EQ(messages().size(), fault.happened ? 1U : 0U);
                            }});
}

class NewFileItems : public unit::CatalogueTest {};

TEST_F(NewFileItems, AreAddedInTheirOrderWithPictureAndCode) {
  const controls::ListView& fresh = main.lstQMK[frmQMK::newFiles];
  modQMKGeneral::AddNewFileItems(view);
  ASSERT_EQ(textsOf(fresh), (Texts{L"New Fuel Profile", L"New Planar Intercept",
                                   L"New Plotview Inventory", L"New Canopy Weigh Inventory"}));
  const Texts pictures{L"PV3", L"BW3", L"BW3", L"CW3"};
  const Texts codes{L"FP3", L"BI3", L"BS3", L"CW3"};
  for (std::size_t index = 0; index < 4; ++index) {
    EXPECT_EQ(fresh.icon(index), pictures[index]);
    EXPECT_EQ(fresh.subItem(index, 1), codes[index]);
  }
  EXPECT_EQ(fresh.largeImages(), main.imgIcons.data());
  EXPECT_EQ(fresh.smallImages(), &main.imgIcons[1]);
}

TEST_F(NewFileItems, AreAddedToWhatTheListHolds) {
  modQMKGeneral::AddNewFileItems(view);
  modQMKGeneral::AddNewFileItems(view);
  EXPECT_EQ(main.lstQMK[frmQMK::newFiles].count(), 8U);
}

}  // namespace
