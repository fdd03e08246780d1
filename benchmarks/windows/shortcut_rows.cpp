#include <windows.h>

#include <string>

#include "harness/files.h"
#include "harness/input.h"
#include "harness/link_file.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "windows/capture.h"
#include "windows/driven_gateway.h"
#include "windows/driver_rows.h"

namespace bench {
namespace {

constexpr const char* startRow = "start.400";
constexpr int startShortcuts = 400;
constexpr double mostTimes = 1.5;

struct Size {
  int shortcuts;
  const char* row;
};
constexpr Size sizes[] = {{20, "shortcuts.20"}, {startShortcuts, "shortcuts.400"}};

/// A person's shortcuts start about that many programs; each has its own icon.
constexpr int programs = 20;

/// Adds shortcuts until there are `count` with the program's own ones. The floor gets the names of
/// their programs.
void addShortcuts(const DrivenGateway& gateway, int count) {
  const std::wstring folder = gateway.app.shortCutsFolder();
  std::string names;
  for (int n = 0; n < programs; ++n) {
    const std::wstring program =
        gateway.app.folder() + L"\\program " + std::to_wstring(n) + L".exe";
    harness::copyFile(harness::gatewayExecutable(), program);
    names += harness::codePageBytes(program + L"\r\n");
  }
  for (int n = ownShortcuts; n < count; ++n) {
    harness::LinkFile link;
    link.target = gateway.app.folder() + L"\\program " + std::to_wstring(n % programs) + L".exe";
    link.workingFolder = gateway.app.folder();
    link.icon = link.target;
    harness::writeLink(folder + L"\\Shortcut " + std::to_wstring(n) + L".lnk", link);
  }
  harness::writeFile(folder + L"\\programs.txt", names);
}

double floorOnce(const DrivenGateway& gateway) {
  return printedTime(L"shortcut_floor.exe", gateway.app.shortCutsFolder());
}

/// F5 on Tools, until everything is painted. Before each one a shortcut comes or goes, so that the
/// list shows that it was loaded. The key is sent as a message: the time that the system needs to
/// turn the keyboard's input into messages is not the program's.
double reloadOnce(const DrivenGateway& gateway, int count) {
  const std::wstring folder = gateway.app.shortCutsFolder();
  const std::wstring changing = folder + L"\\Shortcut that comes and goes.lnk";
  if (harness::exists(changing)) {
    DeleteFileW(changing.c_str());
  } else {
    harness::copyFile(folder + L"\\Shortcut " + std::to_wstring(ownShortcuts) + L".lnk", changing);
    ++count;
  }
  return timed([&gateway, count] {
    PostMessageW(gateway.list(harness::Tab::tools), WM_KEYDOWN, VK_F5, 1);
    waitClosely("all shortcuts after F5",
                [&gateway, count] { return gateway.count(harness::Tab::tools) == count; });
    gateway.paint();
  });
}

/// From the end of the splash until the list of shortcuts is complete and painted.
double startOnce(DrivenGateway& gateway, int count) {
  gateway.app.start();
  HWND splash = nullptr;
  waitClosely("the splash window", [&] { return (splash = DrivenGateway::splash()) != nullptr; });
  harness::clickAt(harness::centreOf(harness::screenRect(splash)), splash);
  waitClosely("the end of the splash window", [splash] { return IsWindow(splash) == 0; });
  const std::int64_t closed = now();
  gateway.findLists();
  waitClosely("all shortcuts", [&gateway, count] {
    return IsWindowVisible(gateway.main()) != 0 && gateway.count(harness::Tab::tools) == count;
  });
  gateway.paint();
  const double took = milliseconds(closed, now());
  gateway.stop();
  return took;
}

}  // namespace

void measureShortcuts(const Table& table) {
  for (const Size& size : sizes) {
    table.section({size.row}, [&] {
      DrivenGateway gateway;
      gateway.app.addAllTools();
      addShortcuts(gateway, size.shortcuts);
      gateway.app.startToMain();
      gateway.findLists();
      static_cast<void>(floorOnce(gateway));
      const Pair pair = Pair::inTurns(
          table.runs(9), [&] { return reloadOnce(gateway, size.shortcuts); },
          [&] { return floorOnce(gateway); });
      table.printRatio(size.row, pair, mostTimes);
      gateway.stop();
    });
  }
  table.section({startRow}, [&table] {
    DrivenGateway gateway;
    gateway.app.addAllTools();
    addShortcuts(gateway, startShortcuts);
    static_cast<void>(startOnce(gateway, startShortcuts));
    const Pair pair = Pair::inTurns(
        table.runs(5), [&] { return startOnce(gateway, startShortcuts); },
        [&] { return floorOnce(gateway); });
    table.printRatio(startRow, pair, mostTimes);
  });
}

}  // namespace bench
