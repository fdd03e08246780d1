// Steps of a demonstration, for scripts that take pictures in between. One start takes one or more
// steps, separated by "+"; most take an argument:
//
//   drive wait-splash          until the splash window is up and painted
//   drive wait-main            until the main window is up and its first three lists are filled;
//                              with "empty", until the third is
//   drive tab Open             clicks a tab
//   drive wait-row "Plot 3.fp3"  until the Open list shows that row
//   drive select "Plot 3.fp3"  clicks that row of the list in front
//   drive open "Plot 3.fp3"    double-clicks that row of the list in front
//   drive header 2             clicks the header of a column of the list in front
//   drive wait-window TITLE    until a window of that title is up
//   drive wait-dialog          until a dialog is up
//   drive menu 2               opens a menu of the menu bar, the first is 1
//   drive context              asks for the menu of the list in front
//   drive command 2033         chooses a menu command by its id
//   drive hover 2100           points at a toolbar button, or at a control of the window in front
//   drive hover-row Gone.fp3   points at the name of that row of the list in front
//   drive click 2100           clicks there
//   drive press 2100           holds the mouse button down there, until "release"
//   drive wait-tip             until a tool tip is up
//   drive copy-file PATH       puts a file or a folder on the clipboard, as Explorer copies it
//   drive key 27               presses a key by its virtual code
//   drive type TEXT            types text into whatever has the focus
//   drive push 2               pushes a button of the dialog in front by its id
//   drive size 800x600         gives the main window a size
//   drive maximise             or all of the screen
//   drive close                closes the main window and answers Yes
//   drive picture FILE         writes all that the screen shows to a PNG file
#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "harness/bars.h"
#include "harness/clipboard.h"
#include "harness/dialogs.h"
#include "harness/input.h"
#include "harness/list_view.h"
#include "harness/looks.h"
#include "harness/permission.h"
#include "harness/picture.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "mainwindow/control_ids.h"
#include "web/control_ids.h"

namespace {

using namespace harness;

using Argument = const std::wstring&;

constexpr int newFileItems = 4;
constexpr const wchar_t* menuClass = L"#32768";
constexpr const wchar_t* dialogClass = L"#32770";

HWND visibleWindowOfClass(const wchar_t* classOfWindow) {
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, classOfWindow, nullptr)) != nullptr) {
    if (IsWindowVisible(window) != FALSE) {
      return window;
    }
  }
  return nullptr;
}

HWND shownWindow(const wchar_t* classOfWindow) {
  return waitUntilFound("a window " + utf8(classOfWindow),
                        [classOfWindow] { return visibleWindowOfClass(classOfWindow); });
}

HWND mainWindow() { return shownWindow(L"frmQMK"); }

ListViewReader list(HWND main, int index) {
  return ListViewReader(child(main, ids::lstQMK0 + index));
}

ListViewReader listInFront() {
  HWND const main = mainWindow();
  bringToFront(main);
  return list(main, TabReader(child(main, ids::TabMain)).current());
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

POINT placeOfRow(const std::wstring& text) {
  const ListViewReader shown = listInFront();
  const int row = rowOf(shown, text);
  shown.scrollIntoView(row);
  return centreOf(shown.textOnScreen(row));
}

void selectRow(const std::wstring& text) {
  clickAt(placeOfRow(text), mainWindow());
  waitUntil("the row is selected",
            [&] { return listInFront().selected() == listInFront().find(text); });
}

void openMenu(int number) {
  bringToFront(mainWindow());
  pressKey(VK_F10);
  for (int step = 1; step < number; ++step) {
    pressKey(VK_RIGHT);
  }
  pressKey(VK_DOWN);
  waitUntil("the menu opens", [] { return visibleWindowOfClass(menuClass) != nullptr; });
}

void contextMenu() {
  HWND const shown = listInFront().window();
  post(shown, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(shown), -1);
  waitUntil("the menu opens", [] { return visibleWindowOfClass(menuClass) != nullptr; });
}

/// A toolbar button, or a control of the window in front.
RECT placeOf(int id) {
  if (id >= ids::buttonDelete && id <= ids::buttonHelp) {
    return ToolbarReader(child(mainWindow(), ids::barMain)).buttonOnScreen(id);
  }
  HWND const control = waitUntilFound("control " + std::to_string(id),
                                      [id]() -> HWND { return child(GetForegroundWindow(), id); });
  return screenRect(control);
}

void button(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

void resize(const std::wstring& size) {
  const auto by = size.find(L'x');
  SetWindowPos(mainWindow(), nullptr, 0, 0, std::stoi(size), std::stoi(size.substr(by + 1)),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

HWND waitForDialog() {
  return waitUntilFound("a dialog", []() -> HWND {
    HWND const front = GetForegroundWindow();
    return className(front) == dialogClass && IsWindowVisible(front) != FALSE ? front : nullptr;
  });
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

void waitForMain(Argument empty) {
  HWND const main = mainWindow();
  const int least = empty.empty() ? 1 : 0;
  waitUntil("the lists are filled", [main, least] {
    return list(main, 0).count() >= least && list(main, 1).count() >= least &&
           list(main, 2).count() == newFileItems;
  });
  // Its last steps show the tab Tools, whatever has been chosen by then.
  waitForEndOfStart(main);
}

struct Step {
  const wchar_t* name;
  void (*run)(Argument);
};

constexpr std::array steps{
    Step{L"wait-splash", [](Argument) { harness::paint(shownWindow(L"frmSplash")); }},
    Step{L"wait-main", waitForMain},
    Step{L"tab", chooseTab},
    Step{L"wait-row", [](Argument text) { rowOf(list(mainWindow(), 1), text); }},
    Step{L"select", selectRow},
    Step{L"open", [](Argument text) { doubleClickAt(placeOfRow(text), mainWindow()); }},
    Step{L"header",
         [](Argument column) {
           clickAt(centreOf(listInFront().headerOnScreen(std::stoi(column) - 1)), mainWindow());
         }},
    Step{L"wait-window",
         [](Argument title) {
           waitUntil("the window " + utf8(title),
                     [&] { return visibleWindowTitled(title) != nullptr; });
         }},
    Step{L"wait-dialog", [](Argument) { waitForDialog(); }},
    Step{L"menu", [](Argument number) { openMenu(std::stoi(number)); }},
    Step{L"context", [](Argument) { contextMenu(); }},
    Step{L"command",
         [](Argument id) { post(mainWindow(), WM_COMMAND, static_cast<WPARAM>(std::stoi(id))); }},
    Step{L"hover-row",
         [](Argument text) {
           const ListViewReader list = listInFront();
           moveTo(centreOf(list.textOnScreen(list.find(text).value())));
         }},
    Step{L"hover", [](Argument id) { moveTo(centreOf(placeOf(std::stoi(id)))); }},
    Step{L"press",
         [](Argument id) {
           moveTo(centreOf(placeOf(std::stoi(id))));
           button(MOUSEEVENTF_LEFTDOWN);
         }},
    Step{L"click",
         [](Argument id) {
           const POINT place = centreOf(placeOf(std::stoi(id)));
           clickAt(place, GetForegroundWindow());
         }},
    Step{L"release",
         [](Argument) {
           moveTo({0, 0});
           button(MOUSEEVENTF_LEFTUP);
         }},
    Step{L"wait-tip", [](Argument) { shownWindow(TOOLTIPS_CLASSW); }},
    Step{L"copy-file", [](Argument path) { copyFiles({path}); }},
    Step{L"key", [](Argument code) { pressKey(static_cast<WORD>(std::stoi(code))); }},
    Step{L"type", [](Argument text) { typeText(text); }},
    Step{L"push", [](Argument id) { pushButton(waitForDialog(), std::stoi(id)); }},
    Step{L"size", resize},
    Step{L"maximise", [](Argument) { ShowWindowAsync(mainWindow(), SW_MAXIMIZE); }},
    Step{L"close", [](Argument) { closeProgram(); }},
    Step{L"picture", [](Argument file) { takePicture(allScreens(), file); }},
};

void run(const std::wstring& name, Argument argument) {
  const auto* const step = std::find_if(steps.begin(), steps.end(),
                                        [&name](const Step& each) { return each.name == name; });
  if (step == steps.end()) {
    throw Failure("unknown step " + utf8(name));
  }
  step->run(argument);
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
  if (!profileIsForTests()) {
    return profileRefused;
  }
  try {
    std::vector<std::wstring> step;
    for (int index = 1; index <= argumentCount; ++index) {
      if (index < argumentCount && arguments[index] != std::wstring(L"+")) {
        step.emplace_back(arguments[index]);
        continue;
      }
      step.resize(2);
      run(step[0], step[1]);
      step.clear();
    }
    return 0;
  } catch (const Failure& failure) {
    std::fprintf(stderr, "drive: %s\n", failure.what());
    return 1;
  }
}
