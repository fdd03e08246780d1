// Opening web shortcuts: which address the system is asked to open, recorded by a program that is
// registered for a scheme of the test.
#include "configuration.h"
#include "harness/url_scheme.h"
#include "web_test.h"

namespace desktop_tests {
namespace {

using harness::ToolStart;

class WebOpen : public WebTest {
 protected:
  void SetUp() override {
    WebTest::SetUp();
    app->addTool(L"viewer.exe");
  }

  /// The viewer's command line for an address.
  [[nodiscard]] std::wstring commandLineFor(const std::wstring& address) const {
    return L"\"" + viewer() + L"\" \"" + address + L"\"";
  }
  [[nodiscard]] std::wstring viewer() const { return app->folder() + L"\\viewer.exe"; }

  /// Checks the command line of the latest of `count` starts of the viewer.
  void expectOpened(std::size_t count, const std::wstring& address) const {
    const ToolStart start = app->waitForToolStart(count);
    EXPECT_EQ(start.commandLine, commandLineFor(address));
    EXPECT_EQ(start.showState, L"0");
  }

  /// A web list of the addresses; each is named by its position.
  [[nodiscard]] static std::string listOf(const std::vector<std::wstring>& addresses) {
    std::string bytes;
    for (std::size_t index = 0; index < addresses.size(); ++index) {
      bytes += entry(L"entry " + std::to_wstring(index), addresses[index]);
    }
    return bytes;
  }

  const harness::UrlScheme scheme_{L"qmktest", L"\"" + viewer() + L"\" \"%1\""};
};

TEST_F(WebOpen, ADoubleClickOpensTheAddress) {
  writeWebList(listOf({L"qmktest:first", L"qmktest://host/second?a=1,2#part"}));
  startOnWebTab(2);
  app->doubleClickRow(Tab::web, 1);
  expectOpened(1, L"qmktest://host/second?a=1,2#part");
  app->doubleClickRow(Tab::web, 0);
  expectOpened(2, L"qmktest:first");
}

TEST_F(WebOpen, EnterOpensTheSelectedAddress) {
  writeWebList(listOf({L"qmktest:first", L"qmktest:caf\u00E9"}));
  startOnWebTab(2);
  selectRow(1);
  harness::pressKey(VK_RETURN);
  expectOpened(1, L"qmktest:caf\u00E9");
}

TEST_F(WebOpen, ADoubleClickInAnEmptyListOpensNothing) {
  startOnWebTab(0);
  harness::doubleClickAt(harness::centreOf(harness::screenRect(list().window())), app->main());
  // What is opened afterwards is the first that was.
  fillAndAccept(askToCreate(), L"one", L"qmktest:one");
  ASSERT_TRUE(eventually([&] { return list().count(); }, 1));
  app->doubleClickRow(Tab::web, 0);
  expectOpened(1, L"qmktest:one");
}

TEST_F(WebOpen, AnAddressIsNotReadAsACommand) {
  // The system itself replaces environment variables, so the address contains none.
  const std::wstring tricky = L"qmktest:a & b | c > d < e 100% %1 %% ^ ^& ' ; $(f)";
  writeWebList(listOf({tricky}));
  startOnWebTab(1);
  app->doubleClickRow(Tab::web, 0);
  expectOpened(1, tricky);
}

TEST_F(WebOpen, QuotesInAnAddressReachNoCommandInterpreter) {
  app->addTool(L"other.exe");
  const std::wstring address = L"qmktest:\" & other.exe & \"";
  writeWebList(harness::codePageBytes(L"one," + address + L"\r\n"));
  startOnWebTab(1);
  ASSERT_EQ(list().cell(0, 1), address);
  app->doubleClickRow(Tab::web, 0);
  expectOpened(1, address);
}

TEST_F(WebOpen, TheHelpMenuOpensTheHomePage) {
  const std::wstring page = configuration::homePage;
  const harness::UrlScheme scheme(page.substr(0, page.find(L':')), L"\"" + viewer() + L"\" \"%1\"");
  app->startToMain();
  app->command(ids::mnuWeb);
  expectOpened(1, page);
}

TEST_F(WebOpen, NamesOfProgramsReachNoCommandInterpreter) {
  app->addTool(L"other.exe");
  const std::wstring other = app->folder() + L"\\other.exe";
  const std::wstring marker = app->folder() + L"\\marker.txt";
  const std::vector<std::wstring> addresses{L"no such program.exe & \"" + other + L"\"",
                                            L"no such program.exe | " + other,
                                            L"no such program.exe & echo x > " + marker,
                                            L"echo x > " + marker,
                                            L"%COMSPEC% /c " + other,
                                            L"\" & " + other + L" & \"",
                                            L"^& " + other,
                                            L"qmktest:last"};
  writeWebList(listOf(addresses));
  startOnWebTab(static_cast<int>(addresses.size()));
  for (int row = 0; row < static_cast<int>(addresses.size()); ++row) {
    app->doubleClickRow(Tab::web, row);
  }
  // Anything that the others had started would have been started before this.
  expectOpened(1, L"qmktest:last");
  EXPECT_FALSE(harness::exists(marker));
  EXPECT_FALSE(app->dialogShown());
}

TEST_F(WebOpen, AnAddressThatNamesAProgramIsOpenedAsOne) {
  app->addTool(L"a tool.exe");
  const std::wstring tool = app->folder() + L"\\a tool.exe";
  writeWebList(listOf({tool}));
  startOnWebTab(1);
  app->doubleClickRow(Tab::web, 0);
  const ToolStart start = app->waitForToolStart();
  EXPECT_EQ(start.commandLine.substr(0, tool.size() + 2), L"\"" + tool + L"\"");
  EXPECT_EQ(start.showState, L"0");
}

TEST_F(WebOpen, AddressesThatCannotBeOpenedAreSilent) {
  writeWebList(
      listOf({L"", L"qmk-no-such-scheme:x", app->folder() + L"\\missing.html", L"qmktest:after"}));
  startOnWebTab(4);
  for (int row = 0; row < 4; ++row) {
    app->doubleClickRow(Tab::web, row);
  }
  expectOpened(1, L"qmktest:after");
  EXPECT_FALSE(app->dialogShown());
}

}  // namespace
}  // namespace desktop_tests
