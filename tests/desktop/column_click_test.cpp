// Sorting by a click on a column's header.
#include "shortcut_test.h"

namespace desktop_tests {
namespace {

using Names = std::vector<std::wstring>;

class ColumnClick : public ShortcutTest {
 protected:
  void SetUp() override {
    ShortcutTest::SetUp();
    app->writeCatalogue("");
    harness::writeFile(app->folder() + L"\\QMKWebList.txt",
                       "\"a\",\"http://z.example/\"\r\n\"b\",\"http://y.example/\"\r\n");
    app->startToMain();
    // Start-up itself may show the first change; the second one shows that nothing else is pending.
    showRecords("");
    showRecords(records_);
    expectSorted({L"a.fp3", L"b.cw3", L"c.bi3"}, 0, HDF_SORTUP);
  }

  void showRecords(const std::string& more) const {
    const std::string marker =
        record(L"FP3", L"D:\\marker" + std::to_wstring(more.size()) + L".fp3");
    app->writeCatalogue(marker);
    harness::waitUntil("the marker is shown", [&] {
      return app->list(Tab::open).texts() ==
             Names{L"marker" + std::to_wstring(more.size()) + L".fp3"};
    });
    if (!more.empty()) {
      app->writeCatalogue(more);
      harness::waitUntil("the records are shown",
                         [&] { return app->list(Tab::open).count() == 3; });
    }
  }

  void clickHeader(int tab, int column) {
    harness::bringToFront(app->main());
    POINT place = harness::centreOf(app->list(tab).headerOnScreen(column));
    // Two clicks at one point would be a double-click.
    elsewhere_ = !elsewhere_;
    place.x += elsewhere_ ? 12 : -12;
    harness::clickAt(place, app->main());
  }

  /// The order of the Open list, and the only header with an arrow.
  void expectSorted(const Names& names, int column, int arrow) const {
    const harness::ListViewReader list = app->list(Tab::open);
    EXPECT_TRUE(eventually([&] { return list.texts(); }, names, 5000));
    EXPECT_EQ(list.texts(), names);
    std::vector<int> expected(list.columns().size(), 0);
    expected.at(static_cast<std::size_t>(column)) = arrow;
    // Two orders may have the same names, so the names alone do not show that the click has
    // arrived.
    const auto arrows = [&list] {
      std::vector<int> shown;
      for (const auto& each : list.columns()) {
        shown.push_back(each.format & (HDF_SORTUP | HDF_SORTDOWN));
      }
      return shown;
    };
    EXPECT_TRUE(eventually(arrows, expected, 5000));
  }

 private:
  bool elsewhere_ = false;
  // Each column gives another order: names abc, dates cab, kinds bac, folders bca.
  const std::string records_ = record(L"fp3", L"D:\\z\\a.fp3", L"2") +
                               record(L"cw3", L"D:\\x\\b.cw3", L"3") +
                               record(L"bi3", L"D:\\y\\c.bi3", L"1");
};

TEST_F(ColumnClick, TogglesTheDirectionWhateverColumnIsClicked) {
  app->selectTab(Tab::open);
  clickHeader(Tab::open, 0);
  expectSorted({L"c.bi3", L"b.cw3", L"a.fp3"}, 0, HDF_SORTDOWN);
  clickHeader(Tab::open, 1);
  expectSorted({L"c.bi3", L"a.fp3", L"b.cw3"}, 1, HDF_SORTUP);
  clickHeader(Tab::open, 2);
  expectSorted({L"c.bi3", L"a.fp3", L"b.cw3"}, 2, HDF_SORTDOWN);
  clickHeader(Tab::open, 2);
  expectSorted({L"b.cw3", L"a.fp3", L"c.bi3"}, 2, HDF_SORTUP);
  clickHeader(Tab::open, 1);
  expectSorted({L"b.cw3", L"a.fp3", L"c.bi3"}, 1, HDF_SORTDOWN);
  clickHeader(Tab::open, 0);
  expectSorted({L"a.fp3", L"b.cw3", L"c.bi3"}, 0, HDF_SORTUP);
}

TEST_F(ColumnClick, AReloadSortsByNameAscendingAgain) {
  app->selectTab(Tab::open);
  clickHeader(Tab::open, 1);
  expectSorted({L"b.cw3", L"a.fp3", L"c.bi3"}, 1, HDF_SORTDOWN);
  focusList(Tab::open);
  harness::pressKey(VK_F5);
  expectSorted({L"a.fp3", L"b.cw3", L"c.bi3"}, 0, HDF_SORTUP);
  // The direction of the first click after a reload does not depend on those before it.
  clickHeader(Tab::open, 0);
  expectSorted({L"c.bi3", L"b.cw3", L"a.fp3"}, 0, HDF_SORTDOWN);
  app->writeCatalogue(record(L"fp3", L"D:\\2.fp3") + record(L"fp3", L"D:\\1.fp3"));
  expectSorted({L"1.fp3", L"2.fp3"}, 0, HDF_SORTUP);
}

TEST_F(ColumnClick, AHeaderOfTheWebListSortsTheOpenList) {
  app->selectTab(Tab::web);
  clickHeader(Tab::web, 1);
  expectSorted({L"b.cw3", L"a.fp3", L"c.bi3"}, 1, HDF_SORTDOWN);
  EXPECT_THAT(app->list(Tab::web).texts(), ElementsAre(L"a", L"b"));
  clickHeader(Tab::web, 0);
  expectSorted({L"a.fp3", L"b.cw3", L"c.bi3"}, 0, HDF_SORTUP);
  EXPECT_THAT(app->list(Tab::web).texts(), ElementsAre(L"a", L"b"));
}

TEST_F(ColumnClick, SortingKeepsTheSelectedFile) {
  app->selectTab(Tab::open);
  const harness::ListViewReader open = app->list(Tab::open);
  harness::clickAt(harness::centreOf(open.textOnScreen(0)), app->main());
  ASSERT_TRUE(eventually([&] { return open.selected(); }, 0));
  clickHeader(Tab::open, 0);
  expectSorted({L"c.bi3", L"b.cw3", L"a.fp3"}, 0, HDF_SORTDOWN);
  EXPECT_TRUE(eventually([&] { return open.selected(); }, 2));
}

}  // namespace
}  // namespace desktop_tests
