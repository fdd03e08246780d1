// The list of the Open tab: what it makes of the catalogue file, and how it follows it.
#include <tuple>

#include "gateway_test.h"

namespace desktop_tests {
namespace {

using harness::ListViewReader;
using Rows = std::vector<std::vector<std::wstring>>;

constexpr const wchar_t* date = L"11/20/2026 9:15:00 AM";
// The watch ticks once a second; the rest is for a busy machine.
constexpr int twoSeconds = 2000;
// Long enough for two ticks of the watch.
constexpr int twoLooksMs = 2500;

class CatalogueView : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  [[nodiscard]] ListViewReader list() const { return app->list(Tab::open); }

  void startWith(const std::string& catalogue) const {
    app->writeCatalogue(catalogue);
    app->startToMain();
  }

  /// Atomically replaces the catalogue file, as a careful program does.
  void replaceCatalogue(const std::string& bytes, std::uint64_t changeTime = 0) const {
    const std::wstring fresh = app->testFolder() + L"\\fresh.txt";
    harness::writeFile(fresh, bytes);
    if (changeTime != 0) {
      harness::setChangeTime(fresh, changeTime);
    }
    // The program may be reading it at this moment, so a careful program tries again.
    harness::waitUntil("the catalogue file is replaced", [&] {
      return MoveFileExW(fresh.c_str(), app->cataloguePath().c_str(), MOVEFILE_REPLACE_EXISTING) !=
             FALSE;
    });
  }

  void expectRows(const Rows& rows) const {
    EXPECT_TRUE(eventually([&] { return list().rows(); }, rows, 5000));
    EXPECT_EQ(list().rows(), rows);
  }
};

TEST_F(CatalogueView, ShowsEveryKindOfRecordSortedByName) {
  const std::wstring deep = L"C:\\" + std::wstring(140, L'x') + L"\\" + std::wstring(140, L'y');
  ASSERT_GE(deep.size(), 280U);
  startWith(record(L"fp3", L"D:\\Plots\\zebra.fp3") + record(L"FP3", L"D:\\Plots\\Yard 1.FP3") +
            record(L"bs3", L"D:\\x\\c.bs3") + record(L"BS3", L"D:\\x\\d.bs3") +
            record(L"bi3", L"D:\\x\\B.bi3") + record(L"BI3", L"D:\\x\\a.bi3") +
            record(L"cw3", L"D:\\x\\e.cw3") + record(L"Cw3", L"D:\\x\\f.cw3", L"any text") +
            record(L"BW3", L"D:\\x\\h1.bw3") + record(L"PV3", L"D:\\x\\h2.pv3") +
            record(L"xyz", L"D:\\x\\h3.xyz") + record(L"", L"D:\\x\\h4.fp3") +
            record(L"FP3", L"no backslash.fp3") + record(L"FP3", L"D:\\only a folder\\") +
            record(L"FP3", L"") + record(L"FP3", L"D:\\one, two\\g,1.fp3") +
            record(L"FP3", L"D:\\Stra\u00DFe\\\u00E9t\u00E9.fp3") +
            record(L"FP3", deep + L"\\long name.fp3") + record(L"FP3", L"E:\\root.fp3", L""));
  expectRows({{L"a.bi3", date, L"Planar Intercept Inventory", L"D:\\x\\", L"BI3"},
              {L"B.bi3", date, L"Planar Intercept Inventory", L"D:\\x\\", L"bi3"},
              {L"c.bs3", date, L"Plotview Inventory", L"D:\\x\\", L"bs3"},
              {L"d.bs3", date, L"Plotview Inventory", L"D:\\x\\", L"BS3"},
              {L"e.cw3", date, L"Canopy Weigh Inventory", L"D:\\x\\", L"cw3"},
              {L"\u00E9t\u00E9.fp3", date, L"Fuel Profile", L"D:\\Stra\u00DFe\\", L"FP3"},
              {L"f.cw3", L"any text", L"Canopy Weigh Inventory", L"D:\\x\\", L"Cw3"},
              {L"g,1.fp3", date, L"Fuel Profile", L"D:\\one, two\\", L"FP3"},
              {L"h1.bw3", date, L"", L"D:\\x\\", L"BW3"},
              {L"h2.pv3", date, L"", L"D:\\x\\", L"PV3"},
              {L"h3.xyz", date, L"", L"D:\\x\\", L"xyz"},
              {L"h4.fp3", date, L"", L"D:\\x\\", L""},
              {L"long name.fp3", date, L"Fuel Profile", deep + L"\\", L"FP3"},
              {L"root.fp3", L"", L"Fuel Profile", L"E:\\", L"FP3"},
              {L"Yard 1.FP3", date, L"Fuel Profile", L"D:\\Plots\\", L"FP3"},
              {L"zebra.fp3", date, L"Fuel Profile", L"D:\\Plots\\", L"fp3"}});
}

TEST_F(CatalogueView, GivesEachKindItsPicture) {
  startWith(record(L"FP3", L"D:\\1.fp3") + record(L"BS3", L"D:\\2.bs3") +
            record(L"bi3", L"D:\\3.bi3") + record(L"cw3", L"D:\\4.cw3") +
            record(L"BW3", L"D:\\5.bw3") + record(L"xyz", L"D:\\6.xyz"));
  ASSERT_TRUE(eventually([&] { return list().count(); }, 6));
  EXPECT_GE(list().image(0), 0);
  EXPECT_GE(list().image(1), 0);
  EXPECT_GE(list().image(3), 0);
  EXPECT_EQ(list().image(1), list().image(2)) << "the two inventories share a picture";
  EXPECT_NE(list().image(0), list().image(1));
  EXPECT_NE(list().image(0), list().image(3));
  EXPECT_NE(list().image(1), list().image(3));
  EXPECT_LT(list().image(4), 0) << "a picture's key is not a type code";
  EXPECT_LT(list().image(5), 0);
}

TEST_F(CatalogueView, ShowsWhatAnotherProgramWritesWithinTwoSeconds) {
  startWith(record(L"FP3", L"D:\\1.fp3"));
  // The first change shows that the watch is running.
  replaceCatalogue(record(L"FP3", L"D:\\1.fp3") + record(L"FP3", L"D:\\2.fp3"));
  ASSERT_TRUE(eventually([&] { return list().count(); }, 2));
  replaceCatalogue(record(L"BI3", L"D:\\3.bi3"));
  EXPECT_TRUE(eventually([&] { return list().texts(); }, ElementsAre(L"3.bi3"), twoSeconds));
}

TEST_F(CatalogueView, FollowsTheFileOnEveryTab) {
  startWith("");
  app->selectTab(Tab::web);
  replaceCatalogue(record(L"FP3", L"D:\\2.fp3"));
  EXPECT_TRUE(eventually([&] { return list().count(); }, 1));
  EXPECT_EQ(app->tabs().current(), Tab::web);
}

TEST_F(CatalogueView, LooksOnlyAtTheTimeOfTheLastChange) {
  startWith(record(L"FP3", L"D:\\1.fp3"));
  // Start-up itself may show the first change; only the watch shows the second one.
  for (const wchar_t* name : {L"first.fp3", L"2.fp3"}) {
    replaceCatalogue(record(L"FP3", L"D:\\" + std::wstring(name)));
    ASSERT_TRUE(eventually([&] { return list().texts(); }, ElementsAre(name)));
  }
  const std::uint64_t seen = harness::changeTime(app->cataloguePath());
  replaceCatalogue(record(L"FP3", L"D:\\3.fp3"), seen);
  EXPECT_TRUE(stays([&] { return list().texts(); }, ElementsAre(L"2.fp3"), twoLooksMs));
  // An older time is another time, too.
  harness::setChangeTime(app->cataloguePath(), seen - 600000000);
  EXPECT_TRUE(eventually([&] { return list().texts(); }, ElementsAre(L"3.fp3")));
}

TEST_F(CatalogueView, AVanishedFileLeavesTheListAlone) {
  startWith(record(L"FP3", L"D:\\1.fp3"));
  replaceCatalogue(record(L"FP3", L"D:\\2.fp3"));
  ASSERT_TRUE(eventually([&] { return list().texts(); }, ElementsAre(L"2.fp3")));
  harness::removeFile(app->cataloguePath());
  // Rows, whether there is a dialog, whether there is the file.
  EXPECT_TRUE(stays(
      [&] {
        return std::tuple(list().count(), app->dialogShown(),
                          harness::exists(app->cataloguePath()));
      },
      std::tuple(1, false, false), twoLooksMs));
  app->writeCatalogue(record(L"FP3", L"D:\\9.fp3"));
  EXPECT_TRUE(eventually([&] { return list().texts(); }, ElementsAre(L"9.fp3")));
}

TEST_F(CatalogueView, AReloadKeepsSelectionFocusAndScrollPosition) {
  std::string records;
  for (int number = 100; number < 300; ++number) {
    records += record(L"FP3", L"D:\\plot " + std::to_wstring(number) + L".fp3");
  }
  startWith(records);
  ASSERT_TRUE(eventually([&] { return list().count(); }, 200));
  app->selectTab(Tab::open);
  list().scrollIntoView(0);
  list().scrollIntoView(120);
  harness::clickAt(harness::centreOf(list().textOnScreen(115)), app->main());
  ASSERT_TRUE(eventually([&] { return list().selected(); }, 115));
  const std::wstring top = list().cell(list().topRow(), 0);
  replaceCatalogue(record(L"FP3", L"D:\\aaa.fp3") + record(L"FP3", L"D:\\bbb.fp3") + records);
  ASSERT_TRUE(eventually([&] { return list().count(); }, 202));
  EXPECT_TRUE(eventually([&] { return list().selected(); }, 117));
  EXPECT_EQ(list().focused(), 117);
  EXPECT_EQ(list().cell(117, 0), L"plot 215.fp3");
  EXPECT_EQ(list().cell(list().topRow(), 0), top);
}

TEST_F(CatalogueView, AMissingCatalogueIsBuiltFromTheDataFolder) {
  std::string expected;
  for (const auto& [code, name] : std::vector<std::pair<std::wstring, std::wstring>>{
           {L"fp3", L"z.fp3"}, {L"bi3", L"y.bi3"}, {L"bs3", L"x.bs3"}, {L"cw3", L"w.cw3"}}) {
    const std::wstring path = app->addDataFile(name);
    expected += record(code, path, harness::dateAndTime(harness::changeTime(path)));
  }
  app->addDataFile(L"notes.txt");
  app->startToMain();
  EXPECT_TRUE(eventually([&] { return app->catalogue(); }, expected));
  EXPECT_TRUE(eventually([&] { return list().texts(); },
                         ElementsAre(L"w.cw3", L"x.bs3", L"y.bi3", L"z.fp3")));
}

TEST_F(CatalogueView, DeletingAnEntryDeletesTheFileAndKeepsEveryOtherRecord) {
  const std::wstring doomed = app->addFileElsewhere(L"Field Work\\Plot 3.fp3");
  const std::string before = "\"FP3\",\"D:\\\\odd spacing.fp3\" , \"x\",\"more\"\r\n";
  const std::string after = record(L"CW3", L"D:\\zz.cw3");
  startWith(before + record(L"FP3", doomed) + after);
  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return list().count(); }, 3));
  const int row = list().find(L"Plot 3.fp3").value_or(-1);
  harness::clickAt(harness::centreOf(list().textOnScreen(row)), app->main());
  ASSERT_TRUE(eventually([&] { return list().selected(); }, row));
  app->command(ids::mnuDelete);
  expectMessage(L"Are your sure you want to delete PLOT 3.FP3", exclamationIcon, yesAndNo, IDYES);
  EXPECT_TRUE(eventually([&] { return list().count(); }, 2));
  EXPECT_EQ(app->catalogue(), before + after);
  EXPECT_FALSE(harness::exists(doomed));
}

TEST_F(CatalogueView, RenamingAnEntryRenamesTheFileAndRewritesTheCatalogueInListOrder) {
  const std::wstring old = app->addFileElsewhere(L"Field Work\\b.bi3");
  startWith(record(L"CW3", L"D:\\z.cw3", L"some day") + record(L"bi3", old) +
            record(L"FP3", L"D:\\a.fp3"));
  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return list().count(); }, 3));
  harness::clickAt(harness::centreOf(list().textOnScreen(1)), app->main());
  ASSERT_TRUE(eventually([&] { return list().selected(); }, 1));
  app->command(ids::mnuRename);
  const harness::InputBoxReader box = app->waitForInputBox();
  EXPECT_EQ(box.prompt(), L"Rename file  B.BI3\rType: Planar Intercept Inventory");
  EXPECT_EQ(box.title(), L"  ");
  EXPECT_EQ(box.answer(), L" ");
  EXPECT_EQ(box.selection(), std::pair(0, 1));
  box.type(L"report");
  box.ok();
  const std::wstring renamed = app->testFolder() + L"\\Field Work\\report.BI3";
  EXPECT_TRUE(happens("the file has its new name", [&] { return harness::exists(renamed); }));
  EXPECT_FALSE(harness::exists(old));
  EXPECT_TRUE(
      eventually([&] { return list().texts(); }, ElementsAre(L"a.fp3", L"report.BI3", L"z.cw3")));
  EXPECT_EQ(app->catalogue(), record(L"FP3", L"D:\\a.fp3") + record(L"bi3", renamed) +
                                  record(L"CW3", L"D:\\z.cw3", L"some day"));
}

}  // namespace
}  // namespace desktop_tests
