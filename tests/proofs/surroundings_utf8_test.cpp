// A machine whose code page is UTF-8: every character can be written to the list files and read
// back.
#include "surroundings_test.h"

namespace proofs {
namespace {

/// Simulates such a machine by a build of the program whose manifest requests that code page.
class Utf8Program {
 public:
  Utf8Program() {
    SetEnvironmentVariableW(L"QMK_GATEWAY",
                            (harness::buildFolder() + L"\\gateway3_utf8.exe").c_str());
  }
  Utf8Program(const Utf8Program&) = delete;
  Utf8Program& operator=(const Utf8Program&) = delete;
  ~Utf8Program() { SetEnvironmentVariableW(L"QMK_GATEWAY", nullptr); }
};

TEST_F(Surroundings, TheCodePageIsUtf8) {
  app_.kill();
  const Utf8Program program;
  GatewayApp app;
  GatewayApp::skipExample();
  const std::wstring all = L"A\u00E4\u0159\u0416\u65E5\u672C\uFF76\u20AC\U0001F600";
  const std::wstring plot = app.addDataFile(all + L".fp3");
  // The second record is not valid UTF-8, as if an old program had written it.
  const std::string kept = "\"fp3\",\"C:\\a\\" + harness::utf8(L"\u0434\u6F22") +
                           ".fp3\",\"1/2/2003\"\r\n\"fp3\",\"C:\\a\\Z\xE4\x80\xFF.fp3\",\"1\"\r\n";
  app.writeCatalogue(kept);
  harness::writeFile(app.folder() + L"\\QMKWebList.txt",
                     "\"" + harness::utf8(all) + "\",\"http://x/\"\r\n");
  app.startToMain();
  harness::waitUntil("the data folder is catalogued",
                     [&] { return app.list(Tab::open).count() == 3; });
  EXPECT_TRUE(app.list(Tab::open).find(all + L".fp3").has_value());
  EXPECT_TRUE(app.list(Tab::open).find(L"\u0434\u6F22.fp3").has_value());
  EXPECT_TRUE(app.list(Tab::web).find(all).has_value());
  EXPECT_TRUE(app.catalogue()->starts_with(kept)) << *app.catalogue();
  EXPECT_NE(app.catalogue()->find(harness::utf8(plot)), std::string::npos) << *app.catalogue();
  EXPECT_EQ(app.close(), 0U);
  figure("surroundings, code page 65001", "every character kept");
}

}  // namespace
}  // namespace proofs
