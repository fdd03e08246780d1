// The program's help, opened in every way, without a help file and with one of each kind.
#include <windows.h>
// Needs <windows.h> first.
#include <tlhelp32.h>

#include <cwchar>

#include "gateway_test.h"

namespace desktop_tests {
namespace {

/// Ways in which a user opens the help.
enum class HelpWay { menu, toolbar, key };

/// The running processes, or the libraries of a process, at one moment.
class Snapshot {
 public:
  Snapshot(DWORD what, DWORD process) : handle_(CreateToolhelp32Snapshot(what, process)) {}
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;
  ~Snapshot() { CloseHandle(handle_); }
  [[nodiscard]] HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

class Help : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  void ask(HelpWay way) const {
    harness::bringToFront(app->main());
    switch (way) {
      case HelpWay::menu:
        app->command(ids::mnuHelpContents);
        break;
      case HelpWay::toolbar:
        harness::clickAt(harness::centreOf(app->toolbar().buttonOnScreen(ids::buttonHelp)),
                         app->main());
        break;
      case HelpWay::key:
        harness::pressKey(VK_F1);
        break;
    }
  }

  /// Whether the program has loaded the viewer of compiled help.
  [[nodiscard]] bool compiledViewerLoaded() const {
    const Snapshot modules(TH32CS_SNAPMODULE, app->processId());
    MODULEENTRY32W module{};
    module.dwSize = sizeof(module);
    for (BOOL more = Module32FirstW(modules.get(), &module); more != FALSE;
         more = Module32NextW(modules.get(), &module)) {
      if (_wcsicmp(module.szModule, L"hhctrl.ocx") == 0) {
        return true;
      }
    }
    return false;
  }

  /// Whether the program has started the viewer of classic help and the viewer is running.
  [[nodiscard]] bool classicViewerRuns() const {
    const Snapshot processes(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W process{};
    process.dwSize = sizeof(process);
    for (BOOL more = Process32FirstW(processes.get(), &process); more != FALSE;
         more = Process32NextW(processes.get(), &process)) {
      if (process.th32ParentProcessID == app->processId() &&
          _wcsicmp(process.szExeFile, L"winhlp32.exe") == 0) {
        return true;
      }
    }
    return false;
  }

  /// Checks that the program handles clicks.
  void expectAnswers() const {
    app->selectTab(Tab::web);
    app->selectTab(Tab::newFile);
    EXPECT_TRUE(app->running());
    EXPECT_EQ(app->list(Tab::newFile).count(), 4);
    EXPECT_FALSE(app->dialogShown());
  }
};

class HelpAsked : public Help, public ::testing::WithParamInterface<HelpWay> {};

TEST_P(HelpAsked, WithoutAnyFileTheProgramGoesOn) {
  app->startToMain();
  EXPECT_FALSE(compiledViewerLoaded());
  ask(GetParam());
  EXPECT_TRUE(happens("the viewer is asked", [&] { return compiledViewerLoaded(); }));
  expectAnswers();
  ask(GetParam());
  expectAnswers();
}

TEST_P(HelpAsked, ClassicHelpIsAskedFirstAndCompiledHelpTakesOverWhereItsViewerShowsNothing) {
  harness::makeFolder(app->folder() + L"\\help");
  harness::writeFile(app->folder() + L"\\help\\gatewayhelp3.HLP", "not really help");
  harness::writeFile(app->folder() + L"\\help\\gatewayhelp3.chm", "not really help");
  // The viewer of classic help is searched for here first. This one shows nothing and ends, as the
  // one of current versions of Windows does.
  app->addTool(L"winhlp32.exe");
  app->startToMain();
  ask(GetParam());
  const harness::ToolStart start = app->waitForToolStart();
  EXPECT_NE(start.commandLine.find(L"winhlp32.exe"), std::wstring::npos)
      << harness::utf8(start.commandLine);
  EXPECT_TRUE(happens("compiled help is asked", [&] { return compiledViewerLoaded(); }));
  expectAnswers();
}

INSTANTIATE_TEST_SUITE_P(By, HelpAsked,
                         ::testing::Values(HelpWay::menu, HelpWay::toolbar, HelpWay::key),
                         [](const auto& way) {
                           switch (way.param) {
                             case HelpWay::menu:
                               return "Menu";
                             case HelpWay::toolbar:
                               return "Toolbar";
                             case HelpWay::key:
                               break;
                           }
                           return "Key";
                         });

TEST_F(Help, ClassicHelpWinsOverCompiledHelpAndAFileThatIsNoneLeavesTheProgramGoing) {
  harness::makeFolder(app->folder() + L"\\help");
  harness::writeFile(app->folder() + L"\\help\\gatewayhelp3.HLP", "not really help");
  harness::writeFile(app->folder() + L"\\help\\gatewayhelp3.chm", "not really help");
  app->startToMain();
  ask(HelpWay::menu);
  // The viewer waits for an answer to its own message; the program does not wait with it.
  EXPECT_TRUE(happens("the viewer of classic help runs", [&] { return classicViewerRuns(); }));
  expectAnswers();
  ask(HelpWay::menu);
  expectAnswers();
  EXPECT_FALSE(compiledViewerLoaded());
}

TEST_F(Help, ACompiledFileThatIsNoneLeavesTheProgramGoing) {
  harness::makeFolder(app->folder() + L"\\help");
  harness::writeFile(app->folder() + L"\\help\\gatewayhelp3.chm", "not really help");
  app->startToMain();
  ask(HelpWay::menu);
  EXPECT_TRUE(happens("the viewer is asked", [&] { return compiledViewerLoaded(); }));
  expectAnswers();
}

}  // namespace
}  // namespace desktop_tests
