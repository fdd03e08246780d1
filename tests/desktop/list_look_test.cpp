// The look of the lists: the columns of the report view, the positions of the icons.
#include "gateway_test.h"
#include "harness/link_file.h"
#include "harness/looks.h"

namespace desktop_tests {
namespace {

using ::testing::IsEmpty;

class ListLook : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  void addShortcut(const std::wstring& name) const {
    harness::LinkFile link;
    link.target = L"C:\\tools\\" + name + L".exe";
    harness::writeLink(app->shortCutsFolder() + L"\\" + name + L".lnk", link);
  }

  /// Rows whose names cover each other.
  [[nodiscard]] std::vector<std::pair<std::size_t, std::size_t>> coveredNames(int tab) const {
    const harness::ListViewReader list = app->list(tab);
    std::vector<RECT> places;
    places.reserve(static_cast<std::size_t>(list.count()));
    for (int row = 0; row < list.count(); ++row) {
      places.push_back(list.textOnScreen(row));
    }
    std::vector<std::pair<std::size_t, std::size_t>> covered;
    for (std::size_t a = 0; a < places.size(); ++a) {
      for (std::size_t b = a + 1; b < places.size(); ++b) {
        RECT both{};
        if (IntersectRect(&both, &places[a], &places[b]) != FALSE) {
          covered.emplace_back(a, b);
        }
      }
    }
    return covered;
  }
};

TEST_F(ListLook, TheDefaultSizeShowsAllColumnsOfTheOpenList) {
  std::string records;
  constexpr int enoughToScroll = 60;
  for (int file = 0; file < enoughToScroll; ++file) {
    records += record(L"FP3", L"C:\\field\\" + std::to_wstring(file) + L".fp3");
  }
  app->writeCatalogue(records);
  app->startToMain();
  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, enoughToScroll));
  const DWORD style = app->list(Tab::open).style();
  EXPECT_NE(style & WS_VSCROLL, 0U);
  EXPECT_EQ(style & WS_HSCROLL, 0U);
  const RECT last = app->list(Tab::open).headerOnScreen(3);
  EXPECT_LE(last.right, harness::clientOnScreen(app->list(Tab::open).window()).right);
  const RECT window = harness::screenRect(app->main());
  constexpr int screenWidth = 1280;
  EXPECT_LE(window.right - window.left, screenWidth);
}

TEST_F(ListLook, ARowThatReadsOtherwiseAfterAReloadIsPaintedAgain) {
  const std::string other = record(L"FP3", L"D:\\spruce.fp3");
  app->writeCatalogue(other + record(L"FP3", L"D:\\i.fp3"));
  app->startToMain();
  app->selectTab(Tab::open);
  const auto written = [this] {
    const harness::ListViewReader list = app->list(Tab::open);
    return harness::writingAt(list.textOnScreen(0)).pixels;
  };
  ASSERT_TRUE(eventually([&] { return written(); }, Gt(0U)));
  const std::size_t before = written();
  app->writeCatalogue(other + record(L"FP3", L"D:\\a long name in many letters.fp3"));
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).cell(0, 0); },
                         L"a long name in many letters.fp3"));
  EXPECT_TRUE(eventually([&] { return written(); }, Gt(2 * before), 2000));
}

TEST_F(ListLook, IconsStandApartAfterAReloadWithMoreOfThem) {
  addShortcut(L"Alder");
  app->startToMain();
  app->selectTab(Tab::tools);
  ASSERT_EQ(app->list(Tab::tools).count(), 1);
  constexpr int more = 30;
  for (int n = 0; n < more; ++n) {
    addShortcut(L"Shortcut " + std::to_wstring(n));
  }
  harness::send(app->list(Tab::tools).window(), WM_KEYDOWN, VK_F5);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::tools).count(); }, 1 + more));
  EXPECT_TRUE(eventually([&] { return coveredNames(Tab::tools); }, IsEmpty(), 2000));
}

TEST_F(ListLook, MoreIconsThanFitCanBeScrolledTo) {
  constexpr int enoughToScroll = 60;
  addShortcut(L"Alder");
  app->startToMain();
  app->selectTab(Tab::tools);
  EXPECT_EQ(app->list(Tab::tools).style() & WS_VSCROLL, 0U);
  for (int n = 0; n < enoughToScroll; ++n) {
    addShortcut(L"Shortcut " + std::to_wstring(n));
  }
  harness::send(app->list(Tab::tools).window(), WM_KEYDOWN, VK_F5);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::tools).count(); }, 1 + enoughToScroll));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::tools).style() & WS_VSCROLL; }, Ne(0U)));
  app->command(ids::mnuList);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::tools).view(); }, LV_VIEW_DETAILS));
  app->command(ids::mnuIcon);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::tools).view(); }, LV_VIEW_ICON));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::tools).style() & WS_VSCROLL; }, Ne(0U)));
}

TEST_F(ListLook, IconsStandApartAfterTheColumnsWereShown) {
  for (const wchar_t* const name : {L"Alder", L"Birch", L"Cedar"}) {
    addShortcut(name);
  }
  harness::writeFile(app->folder() + L"\\QMKWebList.txt",
                     "\"Maps\",\"http://m.example/\"\r\n\"Soil\",\"http://s.example/\"\r\n");
  app->startToMain();
  for (const int tab : {Tab::web, Tab::newFile, Tab::tools}) {
    SCOPED_TRACE("tab " + std::to_string(tab));
    app->selectTab(tab);
    ASSERT_GE(app->list(tab).count(), 2);
    app->command(ids::mnuList);
    ASSERT_TRUE(eventually([&] { return app->list(tab).view(); }, LV_VIEW_DETAILS));
    EXPECT_THAT(coveredNames(tab), IsEmpty());
    app->command(ids::mnuIcon);
    ASSERT_TRUE(eventually([&] { return app->list(tab).view(); }, LV_VIEW_ICON));
    EXPECT_TRUE(eventually([&] { return coveredNames(tab); }, IsEmpty(), 2000));
    // In a row, not in a column: they fill the list from left to right.
    EXPECT_GT(app->list(tab).textOnScreen(1).left, app->list(tab).textOnScreen(0).right);
  }
}

}  // namespace
}  // namespace desktop_tests
