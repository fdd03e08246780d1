#include <windows.h>

#include "harness/input.h"
#include "harness/looks.h"
#include "harness/paths.h"
#include "harness/process.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "windows/driven_gateway.h"
#include "windows/driver_rows.h"

namespace bench {
namespace {

constexpr const char* toSplash = "start.splash";
constexpr const char* toLists = "start.lists";

std::wstring emptyWindow() { return harness::buildFolder() + L"\\empty_window.exe"; }

/// Time from the start of the empty program until its window is painted.
double emptyToWindow() {
  // CreateProcessW needs the quotes; the argument makes the program stay.
  const harness::Job job;
  std::wstring commandLine = L"\"" + emptyWindow() + L"\" stay";
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  const std::int64_t begin = now();
  if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                     nullptr, nullptr, &startup, &process) == 0) {
    throw harness::Failure("cannot start the empty program");
  }
  AssignProcessToJobObject(job.get(), process.hProcess);
  ResumeThread(process.hThread);
  HWND window = nullptr;
  waitClosely("the empty window", [&window] {
    window = FindWindowW(L"EmptyWindow", nullptr);
    return window != nullptr && IsWindowVisible(window) != 0;
  });
  harness::paint(window);
  const double took = milliseconds(begin, now());
  job.end();
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return took;
}

/// Time from the start of the empty program until it ends by itself.
double emptyLife() {
  const harness::Job job;
  const std::int64_t begin = now();
  const harness::Process process(emptyWindow(), harness::buildFolder(), job);
  WaitForSingleObject(process.handle(), INFINITE);
  return milliseconds(begin, now());
}

struct GatewayStart {
  double toSplash = 0;
  double toLists = 0;
};

GatewayStart startOnce(DrivenGateway& gateway) {
  GatewayStart start;
  gateway.resetCatalogue();
  const std::int64_t begin = now();
  gateway.app.start();
  HWND splash = nullptr;
  waitClosely("the splash window", [&] { return (splash = DrivenGateway::splash()) != nullptr; });
  harness::paint(splash);
  start.toSplash = milliseconds(begin, now());

  harness::clickAt(harness::centreOf(harness::screenRect(splash)), splash);
  waitClosely("the end of the splash window", [splash] { return IsWindow(splash) == 0; });
  const std::int64_t closed = now();
  gateway.findLists();
  waitClosely("full lists", [&gateway] { return gateway.usuallyFilled(); });
  gateway.paint();
  start.toLists = milliseconds(closed, now());
  gateway.stop();
  return start;
}

}  // namespace

void measureStart(const Table& table) {
  table.section({toSplash, toLists}, [&table] {
    DrivenGateway gateway;
    gateway.addUsualData();
    // The first start creates the shortcuts, and the system reads the files for the first time.
    static_cast<void>(startOnce(gateway));
    static_cast<void>(emptyLife());
    Pair splash;
    Pair lists;
    for (int run = 0; run < table.runs(9); ++run) {
      splash.theirs.push_back(emptyToWindow());
      const GatewayStart start = startOnce(gateway);
      splash.ours.push_back(start.toSplash);
      lists.ours.push_back(start.toLists);
      lists.theirs.push_back(emptyLife());
    }
    table.printRatio(toSplash, splash, 1.7);
    table.printRatio(toLists, lists, 0.5);
  });
}

}  // namespace bench
