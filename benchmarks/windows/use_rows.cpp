#include <windows.h>

#include "harness/input.h"
#include "harness/paths.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "windows/driven_gateway.h"
#include "windows/driver_rows.h"
#include "windows/process_facts.h"
#include "windows/started_tool.h"

namespace bench {
namespace {

constexpr const char* doubleClickRow = "open.tool";
constexpr const char* idleRow = "idle.minute";
constexpr const char* sizeRow = "exe.size";

/// Receives the start time of the tool.
class StartedTool {
 public:
  StartedTool()
      : memory_(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                   sizeof(std::int64_t), startedMemory)),
        event_(CreateEventW(nullptr, FALSE, FALSE, startedEvent)),
        moment_(static_cast<const volatile std::int64_t*>(
            MapViewOfFile(memory_, FILE_MAP_READ, 0, 0, sizeof(std::int64_t)))) {}
  StartedTool(const StartedTool&) = delete;
  StartedTool& operator=(const StartedTool&) = delete;
  ~StartedTool() {
    UnmapViewOfFile(const_cast<const std::int64_t*>(moment_));
    CloseHandle(event_);
    CloseHandle(memory_);
  }
  [[nodiscard]] std::int64_t wait() const {
    constexpr DWORD bound = 20000;
    if (WaitForSingleObject(event_, bound) != WAIT_OBJECT_0) {
      throw harness::Failure("the tool did not run");
    }
    return *moment_;
  }

 private:
  HANDLE memory_;
  HANDLE event_;
  const volatile std::int64_t* moment_;
};

double bareStart(const StartedTool& tool, const std::wstring& path, const std::wstring& file) {
  std::wstring commandLine = path + L" " + file;
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  const std::int64_t begin = now();
  if (CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &startup, &process) == 0) {
    throw harness::Failure("cannot start the tool");
  }
  const std::int64_t ran = tool.wait();
  WaitForSingleObject(process.hProcess, INFINITE);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return milliseconds(begin, ran);
}

/// The double-click is sent as messages: the time that the system needs to turn mouse input into
/// messages is not the program's.
double doubleClick(const DrivenGateway& gateway, const StartedTool& tool) {
  HWND const list = gateway.list(harness::Tab::open);
  constexpr LPARAM place = MAKELPARAM(30, 40);
  const std::int64_t begin = now();
  PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
  PostMessageW(list, WM_LBUTTONUP, 0, place);
  PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
  PostMessageW(list, WM_LBUTTONUP, 0, place);
  return milliseconds(begin, tool.wait());
}

/// A point on the screen that the window does not cover.
POINT besideTheWindow(HWND window) {
  const RECT covered = harness::screenRect(window);
  const POINT corner{GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1};
  return PtInRect(&covered, corner) != 0 ? POINT{0, 0} : corner;
}

}  // namespace

void measureDoubleClick(const Table& table) {
  table.section({doubleClickRow}, [&table] {
    DrivenGateway gateway;
    gateway.addUsualData();
    const std::wstring file = gateway.app.folder() + L"\\data\\plot 0.fp3";
    for (const wchar_t* const name : {L"\\plv3.exe", L"\\brtpc3.exe", L"\\CW3.EXE"}) {
      CopyFileW((harness::buildFolder() + L"\\started_tool.exe").c_str(),
                (gateway.app.folder() + name).c_str(), FALSE);
    }
    const std::wstring path = gateway.app.folder() + L"\\plv3.exe";
    gateway.startToOpenTab();
    const StartedTool tool;
    static_cast<void>(bareStart(tool, path, file));
    static_cast<void>(doubleClick(gateway, tool));
    // The pause keeps a click from counting as part of the previous double-click. Work after a
    // pause is slower, so both sides have the pause.
    const auto pause = [] { Sleep(GetDoubleClickTime() + 100); };
    const Pair pair = Pair::inTurns(
        table.runs(15),
        [&] {
          pause();
          const double took = doubleClick(gateway, tool);
          gateway.paint();
          return took;
        },
        [&] {
          pause();
          return bareStart(tool, path, file);
        });
    table.printRatio(doubleClickRow, pair, 1.2);
    gateway.stop();
  });
}

void measureIdle(const Table& table) {
  table.section({idleRow}, [&table] {
    DrivenGateway gateway;
    gateway.addUsualData();
    gateway.startToOpenTab();
    const ProcessFacts facts(gateway.app.process().handle(),
                             gateway.app.folder() + L"\\gateway3.exe");
    // Wine polls the pointer twenty times a second while it is over a control that uses
    // TrackMouseEvent.
    harness::moveTo(besideTheWindow(gateway.main()));
    // Work that start-up has left is not part of the idle minute.
    constexpr DWORD calm = 3000;
    Sleep(calm);
    const double minutes = table.quick() ? 0.2 : 1.0;
    const double before = facts.processorTime();
    Sleep(static_cast<DWORD>(minutes * 60000));
    const double used = (facts.processorTime() - before) / minutes;
    table.print({idleRow, used, 20.0, Limit::atMost, used, 0, 1});
    gateway.stop();
  });
}

void measureSize(const Table& table) {
  table.section({sizeRow}, [&table] {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(harness::gatewayExecutable().c_str(), GetFileExInfoStandard, &data) ==
        0) {
      throw harness::Failure("there is no program file");
    }
    const double megabytes = data.nFileSizeLow / 1e6;
    table.print({sizeRow, megabytes, 1.6, Limit::atMost, megabytes, 0, 1});
  });
}

}  // namespace bench
