// One step of a demonstration for each start:
//
//   drive wait-splash          until the splash window is up
//   drive wait-main            until the main window is up and its first three lists are filled
//   drive tab Open             clicks a tab
//   drive wait-row "Plot 3.fp3"  until the Open list shows that row
//   drive open "Plot 3.fp3"    double-clicks that row
//   drive wait-window TITLE    until a window of that title is up
//   drive close                closes the main window and answers Yes
#include <algorithm>
#include <cstdio>
#include <string>

#include "harness/bars.h"
#include "harness/dialogs.h"
#include "harness/input.h"
#include "harness/list_view.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "platform/controls/control_ids.h"

namespace {

namespace ids = controls::ids;
using namespace harness;

constexpr int newFileItems = 4;

HWND shownWindow(const wchar_t* classOfWindow) {
  return waitUntilFound("a window " + utf8(classOfWindow), [classOfWindow]() -> HWND {
    HWND const window = FindWindowW(classOfWindow, nullptr);
    return window != nullptr && IsWindowVisible(window) != FALSE ? window : nullptr;
  });
}

HWND mainWindow() { return shownWindow(L"frmQMK"); }

ListViewReader list(HWND main, int index) {
  return ListViewReader(child(main, ids::lstQMK0 + index));
}

int rowOf(const ListViewReader& shown, const std::wstring& text) {
  return *waitUntilFound("the row " + utf8(text), [&] { return shown.find(text); });
}

void chooseTab(const std::wstring& caption) {
  HWND const main = mainWindow();
  bringToFront(main);
  const TabReader tabs(child(main, ids::TabMain));
  const std::vector<std::wstring> captions = tabs.captions();
  const auto index =
      static_cast<int>(std::find(captions.begin(), captions.end(), caption) - captions.begin());
  clickAt(centreOf(tabs.tabOnScreen(index)), main);
  waitUntil("the tab comes to the front", [&] { return tabs.current() == index; });
}

void openRow(const std::wstring& text) {
  HWND const main = mainWindow();
  bringToFront(main);
  const ListViewReader shown = list(main, 1);
  const int row = rowOf(shown, text);
  shown.scrollIntoView(row);
  doubleClickAt(centreOf(shown.textOnScreen(row)), main);
}

void closeProgram() {
  HWND const main = mainWindow();
  post(main, WM_CLOSE);
  HWND const box = waitUntilFound("the question", [main]() -> HWND {
    HWND const dialog = visibleWindow(processOf(main), L"#32770");
    return dialog != nullptr && isMessageBox(dialog) ? dialog : nullptr;
  });
  MessageBoxReader(box).answer(IDYES);
}

void run(const std::wstring& step, const std::wstring& argument) {
  if (step == L"wait-splash") {
    shownWindow(L"frmSplash");
  } else if (step == L"wait-main") {
    HWND const main = mainWindow();
    waitUntil("the lists are filled", [main] {
      return list(main, 0).count() > 0 && list(main, 1).count() > 0 &&
             list(main, 2).count() == newFileItems;
    });
  } else if (step == L"tab") {
    chooseTab(argument);
  } else if (step == L"wait-row") {
    rowOf(list(mainWindow(), 1), argument);
  } else if (step == L"open") {
    openRow(argument);
  } else if (step == L"wait-window") {
    waitUntil("the window " + utf8(argument),
              [&] { return visibleWindowTitled(argument) != nullptr; });
  } else if (step == L"close") {
    closeProgram();
  } else {
    throw Failure("unknown step " + utf8(step));
  }
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
  try {
    run(argumentCount > 1 ? arguments[1] : L"", argumentCount > 2 ? arguments[2] : L"");
    return 0;
  } catch (const Failure& failure) {
    std::fprintf(stderr, "drive: %s\n", failure.what());
    return 1;
  }
}
