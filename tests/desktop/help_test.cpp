// The program's help, asked for in every way, with no help file and with one of each kind.
#include <windows.h>
// The list of modules relies on the first.
#include <tlhelp32.h>

#include <cwchar>

#include "gateway_test.h"

namespace desktop_tests {
namespace {

/// Ways in which a person asks for help.
enum class HelpWay { menu, toolbar, key };

/// What runs, or what a process has loaded, at one moment.
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

  /// Whether the viewer of compiled help has been called into the program.
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

  /// Whether the program has started the viewer of classic help and it is running.
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

  /// The program takes clicks and does what they ask.
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

TEST_P(HelpAsked, ClassicHelpWinsOverCompiledHelp) {
  harness::makeFolder(app->folder() + L"\\help");
  harness::writeFile(app->folder() + L"\\help\\gatewayhelp3.HLP", "not really help");
  harness::writeFile(app->folder() + L"\\help\\gatewayhelp3.chm", "not really help");
  // Where the viewer of classic help is looked for first; it is not part of every system.
  app->addTool(L"winhlp32.exe");
  app->startToMain();
  ask(GetParam());
  const harness::ToolStart start = app->waitForToolStart();
  EXPECT_NE(start.commandLine.find(L"winhlp32.exe"), std::wstring::npos)
      << harness::utf8(start.commandLine);
  expectAnswers();
  EXPECT_FALSE(compiledViewerLoaded());
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

TEST_F(Help, AClassicFileThatIsNoneLeavesTheProgramGoing) {
  harness::makeFolder(app->folder() + L"\\help");
  harness::writeFile(app->folder() + L"\\help\\gatewayhelp3.HLP", "not really help");
  app->startToMain();
  ask(HelpWay::menu);
  // The viewer waits for an answer to its own message; the program does not wait with it.
  EXPECT_TRUE(happens("the viewer of classic help runs", [&] { return classicViewerRuns(); }));
  expectAnswers();
  ask(HelpWay::menu);
  expectAnswers();
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
