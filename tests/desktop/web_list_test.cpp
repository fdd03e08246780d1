// The web list file: how the Web tab shows it, deleting, and files that no careful program writes.
#include "web_test.h"

namespace desktop_tests {
namespace {

// Showing a field of ten megabytes takes long under Wine.
constexpr int longWaitMs = 60000;

class WebListFile : public WebTest {
 protected:
  /// Deletes the selected entry and answers the question about it.
  void deleteSelected(const std::wstring& upperName, int answer = IDYES) const {
    app->command(ids::mnuDelete);
    expectMessage(L"Are your sure you want to delete " + upperName, exclamationIcon, yesAndNo,
                  answer);
  }
};

TEST_F(WebListFile, AMissingFileIsAnEmptyList) {
  startOnWebTab(0);
  EXPECT_FALSE(app->dialogShown());
  EXPECT_FALSE(harness::exists(webListPath()));
  EXPECT_EQ(list().view(), LV_VIEW_DETAILS);
  EXPECT_TRUE(list().headerShown());
}

TEST_F(WebListFile, EntriesShowInTheOrderOfTheFile) {
  writeWebList("\"zebra, striped\",\"http://z/?a=1,2\"\r\nant,http://a/\r\n\"Caf\xE9\",\"\"\r\n");
  startOnWebTab(3);
  expectRows(
      {{L"zebra, striped", L"http://z/?a=1,2"}, {L"ant", L"http://a/"}, {L"Caf\u00E9", L""}});
  EXPECT_GE(list().image(0), 0);
  EXPECT_EQ(list().image(0), list().image(2));
}

TEST_F(WebListFile, DeletingDropsAllEntriesOfExactlyThatName) {
  const std::string others = entry(L"site", L"http://lower/") + entry(L"Sites", L"http://more/");
  writeWebList(entry(L"Site", L"http://one/") + others + entry(L"Site", L"http://two/"));
  startOnWebTab(4);
  selectRow(3);
  deleteSelected(L"SITE", IDNO);
  EXPECT_EQ(list().count(), 4);
  deleteSelected(L"SITE");
  expectWebList(others);
  expectRows({{L"site", L"http://lower/"}, {L"Sites", L"http://more/"}});
  EXPECT_FALSE(harness::exists(app->folder() + L"\\qmklist.tmp"));
}

TEST_F(WebListFile, EntriesWithoutANameAreDeletedToo) {
  writeWebList(entry(L"", L"http://nameless/") + entry(L"One", L"http://one/"));
  startOnWebTab(2);
  selectRow(1);
  harness::pressKey(VK_UP);
  ASSERT_TRUE(eventually([&] { return list().selected(); }, 0));
  deleteSelected(L"");
  expectWebList(entry(L"One", L"http://one/"));
  expectRows({{L"One", L"http://one/"}});
}

TEST_F(WebListFile, DeletingFromAVanishedFileIsReported) {
  writeWebList(entry(L"One", L"http://one/"));
  startOnWebTab(1);
  selectRow(0);
  harness::removeFile(webListPath());
  deleteSelected(L"ONE");
  expectMessage(runTimeError(53, L"File not found", webListPath()), criticalIcon, okOnly, IDOK);
  expectRows({{L"One", L"http://one/"}});
  EXPECT_FALSE(harness::exists(webListPath()));
}

TEST_F(WebListFile, AStaleTemporaryFileIsNoObstacle) {
  const std::wstring temporary = app->folder() + L"\\qmklist.tmp";
  harness::writeFile(temporary, "left behind by an interrupted run\r\n");
  writeWebList(entry(L"One", L"http://one/") + entry(L"Two", L"http://two/"));
  startOnWebTab(2);
  selectRow(0);
  deleteSelected(L"ONE");
  expectWebList(entry(L"Two", L"http://two/"));
  EXPECT_FALSE(harness::exists(temporary));
}

struct Malformed {
  const char* name;
  std::string bytes;
  int rows = 0;
};

void PrintTo(const Malformed& file, std::ostream* out) { *out << file.name; }

class MalformedWebList : public WebListFile, public ::testing::WithParamInterface<Malformed> {};

TEST_P(MalformedWebList, LoadsAndKeepsForeignBytesThroughAnAddAndADelete) {
  const std::string& bytes = GetParam().bytes;
  const int rows = GetParam().rows;
  writeWebList(bytes);
  app->startToMain();
  app->selectTab(Tab::web);
  ASSERT_TRUE(eventually([&] { return list().count(); }, rows, longWaitMs));

  fillAndAccept(askToCreate(), L"zz new", L"http://new/");
  // A last line without a line end gets one.
  const bool ended = bytes.empty() || bytes.ends_with('\n');
  const std::string kept = bytes + (ended ? "" : "\r\n");
  EXPECT_TRUE(eventually([&] { return webList(); }, kept + entry(L"zz new", L"http://new/")));
  ASSERT_TRUE(eventually([&] { return list().count(); }, rows + 1, longWaitMs));
  EXPECT_EQ(list().row(rows), (std::vector<std::wstring>{L"zz new", L"http://new/"}));

  harness::bringToFront(app->main());
  harness::clickAt(harness::centreOf(list().textOnScreen(rows)), app->main());
  ASSERT_TRUE(eventually([&] { return list().selected(); }, rows, longWaitMs));
  deleteSelected(L"ZZ NEW");
  EXPECT_TRUE(eventually([&] { return webList(); }, kept));
  EXPECT_TRUE(eventually([&] { return list().count(); }, rows, longWaitMs));
}

INSTANTIATE_TEST_SUITE_P(
    File, MalformedWebList,
    ::testing::Values(
        Malformed{"Empty", "", 0}, Malformed{"OneByte", "x", 1}, Malformed{"OneQuote", "\"", 1},
        Malformed{"NoFinalLineEnd", "\"a\",\"http://a/\"\r\n\"b\",\"http://b/\"", 2},
        Malformed{"LoneLineFeeds", "\"a\",\"http://a/\"\n\n\"b\",\"http://b/\"\n", 2},
        Malformed{"NulBytes", std::string("\"a\0b\",\"\0\"\r\n", 11) + std::string("\0\0\0\r\n", 5),
                  2},
        Malformed{"UnbalancedQuotes", "\"a,http://a/\r\nb\",\"http://b/\r\nc\"\"d,e\"\r\n", 3},
        Malformed{"OneField", "\"a\"\r\nb\r\n", 2},
        Malformed{"FiveFields", "\"a\",\"http://a/\",\"3\",\"4\",\"5\"\r\n,,,,\r\n", 2},
        Malformed{"BlankLines", "\r\n   \r\n\t\r\n", 0},
        Malformed{"TenMegabyteLine",
                  "\"a\",\"" + std::string(std::size_t{10} * 1024 * 1024, 'x') + "\"\r\n", 1}),
    [](const auto& file) { return std::string(file.param.name); });

}  // namespace
}  // namespace desktop_tests
