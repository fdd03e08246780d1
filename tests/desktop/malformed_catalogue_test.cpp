// Catalogue files that no careful program writes: they are loaded, valid records are shown, and all
// foreign bytes are kept when a record is added and removed.
#include "gateway_test.h"

namespace desktop_tests {
namespace {

// Reading a list of this size and rewriting its file take long under Wine.
constexpr int longWaitMs = 60000;

struct Malformed {
  const char* name;
  std::string before;             ///< Bytes before the valid records.
  std::string after;              ///< Bytes after them.
  int shown = 0;                  ///< Rows besides those of the two valid records.
  bool holdsSoundRecords = true;  ///< Otherwise the file contains only `before`.
};

void PrintTo(const Malformed& file, std::ostream* out) { *out << file.name; }

std::string repeated(int count, const std::string& text) {
  std::string result;
  for (int index = 0; index < count; ++index) {
    result += text;
  }
  return result;
}

std::string manyRecords(int count) {
  std::string result;
  for (int number = 0; number < count; ++number) {
    result += "\"FP3\",\"D:\\many\\plot " + std::to_string(1000000 + number) +
              ".fp3\",\"11/20/2026\"\r\n";
  }
  return result;
}

class MalformedCatalogue : public GatewayTest, public ::testing::WithParamInterface<Malformed> {};

TEST_P(MalformedCatalogue, LoadsAndKeepsForeignBytes) {
  const Malformed& file = GetParam();
  const std::string sound = record(L"BI3", L"D:\\zz sound.bi3");
  const std::string doomed = record(L"FP3", L"D:\\!doomed.fp3");
  const std::string rest = file.before + (file.holdsSoundRecords ? sound : "") + file.after;
  app->writeCatalogue(file.holdsSoundRecords ? file.before + sound + doomed + file.after
                                             : file.before + file.after);
  // The first start adds the example. Its file does not exist, so the refresh of the data folder's
  // entries removes it again.
  app->start();
  HWND const splash = app->waitForSplash();
  harness::clickAt(harness::centreOf(harness::screenRect(splash)), splash);
  app->waitForMain();
  const auto list = [&] { return app->list(Tab::open); };
  const int rows = file.shown + (file.holdsSoundRecords ? 2 : 0);
  // Rows of two lists, -1 until the setting tells that the example is catalogued.
  EXPECT_TRUE(eventually(
      [&] {
        return harness::TestProfile::setting(L"CWIExample") == L"True"
                   ? std::pair(list().count(), app->list(Tab::newFile).count())
                   : std::pair(-1, -1);
      },
      std::pair(rows, 4), longWaitMs));
  app->selectTab(Tab::open);

  if (file.holdsSoundRecords) {
    ASSERT_EQ(list().cell(0, 0), L"!doomed.fp3");
    EXPECT_EQ(list().row(rows - 1),
              (std::vector<std::wstring>{L"zz sound.bi3", L"11/20/2026 9:15:00 AM",
                                         L"Planar Intercept Inventory", L"D:\\", L"BI3"}));
    // The file is missing, and the user lets its entry be removed.
    app->doubleClickRow(Tab::open, 0);
    app->waitForMessage().answer(IDNO);
    EXPECT_TRUE(eventually([&] { return list().count(); }, rows - 1, longWaitMs));
  }
  // A last line without its end got one when a record was added behind it.
  EXPECT_TRUE(eventually([&] { return app->catalogue().value_or("(none)"); },
                         ::testing::AnyOf(rest, rest + "\r\n"), longWaitMs));
}

std::string nameOf(const ::testing::TestParamInfo<Malformed>& file) { return file.param.name; }

INSTANTIATE_TEST_SUITE_P(
    File, MalformedCatalogue,
    ::testing::Values(
        Malformed{"Empty", "", "", 0, false}, Malformed{"OneByte", "x", "", 0, false},
        Malformed{"OneQuote", "\"", "", 0, false},
        Malformed{"NoFinalLineEnd", "", "\"CW3\",\"D:\\last.cw3\",\"date\"", 1},
        Malformed{"LoneLineFeeds",
                  "\"CW3\",\"D:\\one.cw3\",\"date\"\n\"CW3\",\"D:\\other.cw3\",\"date\"\n", "\n\n",
                  2},
        Malformed{
            "NulBytes",
            std::string("\"CW3\",\"D:\\a\0b.cw3\",\"\0\"\r\n", 24) + std::string("\0\0\0\r\n", 5),
            std::string("\0", 1), 1},
        Malformed{"UnbalancedQuotes", "\"CW3\",\"D:\\open.cw3\r\n", "\"CW3,D:\\x.cw3,\"date\r\n",
                  1},
        Malformed{"TwoFields", "\"CW3\",\"D:\\two.cw3\"\r\n\"CW3\"\r\n", "", 1},
        Malformed{"FiveFields", "\"CW3\",\"D:\\five.cw3\",\"date\",\"four\",\"five\"\r\n",
                  ",,,,,,,\r\n", 1},
        Malformed{"BlankLines", "\r\n   \r\n\t\r\n", "\r\n\r\n", 0},
        Malformed{"TenMegabyteLine", repeated(1024 * 1024, "0123456789") + "\r\n", "", 0},
        Malformed{"TwoHundredThousandRecords", manyRecords(200000), "", 200000}),
    nameOf);

TEST_F(GatewayTest, ATenMegabytePathIsListedAndKept) {
  GatewayApp::skipExample();
  const std::string line =
      "\"CW3\",\"D:\\" + repeated(1024 * 1024, "0123456789") + "\\deep.cw3\",\"date\"\r\n";
  const std::string sound = record(L"BI3", L"D:\\zz sound.bi3");
  app->writeCatalogue(line + sound);
  app->startToMain();
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 2, longWaitMs));
  app->selectTab(Tab::open);
  EXPECT_THAT(app->list(Tab::open).texts(), ElementsAre(L"deep.cw3", L"zz sound.bi3"));
  EXPECT_EQ(app->catalogue(), line + sound);
}

}  // namespace
}  // namespace desktop_tests
