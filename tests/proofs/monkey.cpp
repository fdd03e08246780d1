#include "monkey.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "harness/clipboard.h"
#include "harness/files.h"
#include "harness/input.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace proofs {
namespace {

using harness::Failure;

void input(INPUT what) { SendInput(1, &what, sizeof(INPUT)); }

void mouse(DWORD flags) {
  INPUT what{};
  what.type = INPUT_MOUSE;
  what.mi.dwFlags = flags;
  input(what);
}

void key(WORD code, DWORD flags) {
  INPUT what{};
  what.type = INPUT_KEYBOARD;
  what.ki.wVk = code;
  what.ki.dwFlags = flags;
  input(what);
}

/// Reads the text without a message to the window, because the window may disappear at any moment.
bool isExitQuestion(HWND dialog) {
  constexpr int textId = 0xFFFF;
  std::array<wchar_t, 32> text{};
  HWND const label = GetDlgItem(dialog, textId);
  return label != nullptr &&
         InternalGetWindowText(label, text.data(), static_cast<int>(text.size())) > 0 &&
         std::wstring(text.data()) == L"Exit Gateway?";
}

}  // namespace

void Monkey::note(const std::string& event) {
  constexpr std::size_t kept = 25;
  last_.push_back(event);
  if (last_.size() > kept) {
    last_.pop_front();
  }
}

HWND Monkey::dialog() const {
  for (HWND const window : harness::visibleWindows(app_.processId())) {
    if (harness::className(window) == L"#32770" && IsWindowEnabled(window) != FALSE) {
      return window;
    }
  }
  return nullptr;
}

void Monkey::act() {
  try {
    HWND const open = dialog();
    // Most of the time an open dialog is answered; otherwise clicks and keys go to the windows
    // behind it.
    if (open != nullptr && !random_.oneIn(3)) {
      inDialog(open);
    } else {
      inMain(random_.below(120));
    }
    watch();
  } catch (const Failure& failure) {
    std::string story = failure.what();
    for (const std::string& event : last_) {
      story += "\n  " + event;
    }
    throw Failure(story);
  }
}

void Monkey::watch() {
  if (!app_.running()) {
    restart();
    return;
  }
  // Repeated, because a machine that is busy or stands still for a while is not a hang.
  constexpr int mostTimes = 10;
  bool answered = false;
  DWORD lasted = 0;
  for (int asked = 0; asked < mostTimes && !answered; ++asked) {
    const DWORD start = GetTickCount();
    DWORD_PTR ignored = 0;
    answered = SendMessageTimeoutW(app_.main(), WM_NULL, 0, 0, SMTO_NORMAL, longestAnswerMs,
                                   &ignored) != 0;
    lasted = GetTickCount() - start;
  }
  if (!answered && IsWindow(app_.main()) != FALSE) {
    throw Failure("the program does not answer");
  }
  slowestMs_ = std::max(slowestMs_, lasted);
  // No dialog stays open for that many events. If the window is disabled for longer, the monkey
  // tests nothing.
  constexpr int longestDisabled = 300;
  disabled_ = IsWindowEnabled(app_.main()) != FALSE ? 0 : disabled_ + 1;
  free_ += disabled_ == 0 ? 1 : 0;
  if (disabled_ > longestDisabled) {
    throw Failure("the window stays disabled");
  }
}

void Monkey::clickSomewhere(HWND window, bool twice) {
  const RECT area = harness::screenRect(window);
  const int width = std::max(1, static_cast<int>(area.right - area.left));
  const int height = std::max(1, static_cast<int>(area.bottom - area.top));
  const POINT place{area.left + random_.below(width), area.top + random_.below(height)};
  const bool right = random_.oneIn(10);
  note((right ? "right click at " : "click at ") + std::to_string(place.x) + ", " +
       std::to_string(place.y) + (twice ? ", twice" : ""));
  waitForInput();
  SetCursorPos(place.x, place.y);
  for (int click = 0; click < (twice ? 2 : 1); ++click) {
    mouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
    mouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
  }
}

void Monkey::press(WORD code, WORD held) {
  note("key " + std::to_string(code) + " with " + std::to_string(held));
  if (held != 0) {
    key(held, 0);
  }
  key(code, 0);
  key(code, KEYEVENTF_KEYUP);
  if (held != 0) {
    key(held, KEYEVENTF_KEYUP);
  }
}

std::wstring Monkey::someText() {
  // Without quotes and commas, because with them a record contains something else than what was
  // typed.
  constexpr std::wstring_view letters = L"abc &%^.-_()\u00E4\u00E9xyz0123 ";
  std::wstring text;
  for (int left = 1 + random_.below(12); left > 0; --left) {
    text += letters.at(static_cast<std::size_t>(random_.below(static_cast<int>(letters.size()))));
  }
  return text;
}

void Monkey::copySomething() {
  const std::wstring data = app_.folder() + L"\\data";
  switch (random_.below(4)) {
    case 0:
      harness::copyFiles({data});
      break;
    case 1:
      harness::copyFiles({data + L"\\Plot 1.fp3", app_.folder() + L"\\plv3.exe", L"Q:\\gone.fp3"});
      break;
    case 2:
      harness::copyText(L"http://pasted.example/\r\n\"" + data + L"\"\r\njavascript:1");
      break;
    default:  // what the program or an earlier turn has left there
      break;
  }
}

void Monkey::inMain(int kind) {
  HWND const main = app_.main();
  constexpr std::array<WORD, 16> keys{VK_DOWN,   VK_UP,    VK_LEFT, VK_RIGHT, VK_HOME, VK_END,
                                      VK_RETURN, VK_SPACE, VK_F5,   VK_TAB,   VK_NEXT, VK_PRIOR,
                                      VK_ESCAPE, VK_F10,   VK_APPS, 'P'};
  // Not "Open Folder": the clicks that follow would go to Explorer, which changes files itself.
  constexpr std::array commands{
      ids::mnuEarlierLists, ids::mnuCreate,     ids::mnuRename,       ids::mnuDelete,
      ids::mnuList,         ids::mnuIcon,       ids::mnuHelpContents, ids::mnuWeb,
      ids::mnuAbout,        ids::mnuDelete,     ids::mnuRename,       ids::mnuNewestFirst,
      ids::mnuFitColumns,   ids::mnuCopy,       ids::mnuCopyPath,     ids::mnuRemoveFromList,
      ids::mnuAddList,      ids::mnuSaveListAs, ids::mnuFindMoved,    ids::mnuPaste,
      ids::mnuPaste,        ids::mnuUndo,       ids::mnuUndo,         ids::mnuRedo};
  if (kind < 30) {
    clickSomewhere(main, kind < 8);
  } else if (kind < 55) {
    constexpr std::array<WORD, 3> held{VK_SHIFT, VK_CONTROL, VK_SHIFT};
    press(keys.at(static_cast<std::size_t>(random_.below(keys.size()))),
          random_.oneIn(6) ? held.at(static_cast<std::size_t>(random_.below(3))) : WORD{0});
  } else if (kind < 72) {
    const int command = commands.at(static_cast<std::size_t>(random_.below(commands.size())));
    note("command " + std::to_string(command));
    if (command == ids::mnuPaste) {
      copySomething();
    }
    if (takesCommands()) {
      PostMessageW(main, WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
  } else if (kind < 84) {
    const int tab = random_.below(4);
    note("tab " + std::to_string(tab));
    // The program may be closing; then there are no tabs.
    HWND const tabs = GetDlgItem(main, ids::TabMain);
    if (takesCommands() && tabs != nullptr) {
      PostMessageW(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
    }
  } else if (kind < 89) {
    note("resize");
    SetWindowPos(main, nullptr, random_.below(200), random_.below(200), 100 + random_.below(900),
                 60 + random_.below(700), SWP_NOZORDER | SWP_ASYNCWINDOWPOS);
  } else if (kind < 91) {
    constexpr std::array<WPARAM, 4> ways{SC_MAXIMIZE, SC_RESTORE, SC_MINIMIZE, SC_RESTORE};
    note("size box");
    // A user cannot resize the window while a dialog disables it or a menu is open. The monkey
    // waits for both steps, so that no dialog opens in between: Wine would not show it again.
    if (takesCommands()) {
      const WPARAM first = ways.at(static_cast<std::size_t>(random_.below(4)));
      for (const WPARAM way : {first, WPARAM{SC_RESTORE}}) {
        SendMessageTimeoutW(main, WM_SYSCOMMAND, way, 0, SMTO_NORMAL, longestAnswerMs, nullptr);
      }
    }
  } else if (kind < 99) {
    changeFiles();
  } else if (kind >= 108) {
    inFindBox();
  } else if (kind >= 100) {
    overName();
  } else {
    note("close");
    if (takesCommands()) {
      PostMessageW(main, WM_CLOSE, 0, 0);
    }
  }
}

void Monkey::inDialog(HWND open) {
  // Closing the program takes seconds, so it is done only sometimes.
  if (isExitQuestion(open) && !random_.oneIn(20)) {
    note("no, stay");
    PostMessageW(open, WM_COMMAND, IDNO, 0);
    return;
  }
  std::vector<HWND> buttons;
  for (HWND const control : harness::children(open)) {
    const std::wstring kind = harness::className(control);
    if (kind == L"Edit" && random_.oneIn(2)) {
      const std::wstring text = someText();
      note("type " + harness::utf8(text));
      SendMessageTimeoutW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()),
                          SMTO_NORMAL, longestAnswerMs, nullptr);
    }
    if (kind == L"Button" && IsWindowVisible(control) != FALSE) {
      buttons.push_back(control);
    }
  }
  switch (random_.below(6)) {
    case 0:
      press(VK_ESCAPE);
      break;
    case 1:
      press(VK_RETURN);
      break;
    case 2:
      press(VK_TAB);
      break;
    case 3:
      clickSomewhere(open, false);
      break;
    default:
      if (!buttons.empty()) {
        HWND const button =
            buttons.at(static_cast<std::size_t>(random_.below(static_cast<int>(buttons.size()))));
        note("button " + std::to_string(GetDlgCtrlID(button)));
        endMenus();
        PostMessageW(button, BM_CLICK, 0, 0);
      } else {
        press(VK_ESCAPE);
      }
  }
}

void Monkey::waitForInput() const { harness::waitForInput(app_.main(), longestAnswerMs); }

HWND Monkey::menuOwner() const {
  // After this, a menu that the last event opened is open.
  waitForInput();
  GUITHREADINFO facts{};
  facts.cbSize = sizeof facts;
  return GetGUIThreadInfo(GetWindowThreadProcessId(app_.main(), nullptr), &facts) != FALSE &&
                 (facts.flags & GUI_INMENUMODE) != 0
             ? facts.hwndMenuOwner
             : nullptr;
}

void Monkey::endMenus() const {
  if (HWND const owner = menuOwner(); owner != nullptr) {
    SendMessageTimeoutW(owner, WM_CANCELMODE, 0, 0, SMTO_NORMAL, longestAnswerMs, nullptr);
  }
}

bool Monkey::takesCommands() const {
  return IsWindowEnabled(app_.main()) != FALSE && menuOwner() == nullptr;
}

void Monkey::tidyUp() {
  constexpr DWORD longestTidyMs = 30'000;
  const DWORD begin = GetTickCount();
  for (HWND open = dialog(); open != nullptr || IsWindowEnabled(app_.main()) == FALSE;
       open = dialog()) {
    if (GetTickCount() - begin > longestTidyMs) {
      throw Failure("the window stays disabled, and no dialog shows why");
    }
    if (open != nullptr) {
      endMenus();
      // Each kind of dialog has one of these buttons.
      for (const WPARAM button : {IDCANCEL, IDNO, IDOK}) {
        PostMessageW(open, WM_COMMAND, button, 0);
      }
    }
    harness::waitUntil("the dialog goes", [&] {
      return open == nullptr || IsWindow(open) == FALSE || IsWindowVisible(open) == FALSE ||
             dialog() != open;
    });
  }
  // A menu may still be open.
  SendMessageTimeoutW(app_.main(), WM_CANCELMODE, 0, 0, SMTO_NORMAL, longestAnswerMs, nullptr);
  harness::post(app_.main(), WM_SYSCOMMAND, SC_RESTORE);
  SetWindowPos(app_.main(), nullptr, 50, 50, 800, 600, SWP_NOZORDER);
  showEverything();
}

void Monkey::leave() {
  ULONGLONG asked = 0;
  const bool left = harness::waitFor([&] {
    constexpr ULONGLONG againMs = 2000;
    HWND const open = dialog();
    if (open != nullptr) {
      // The last event may have opened another dialog.
      PostMessageW(open, WM_COMMAND, isExitQuestion(open) ? IDYES : IDCANCEL, 0);
      PostMessageW(open, WM_COMMAND, isExitQuestion(open) ? IDYES : IDNO, 0);
    } else if (GetTickCount64() - asked > againMs) {
      PostMessageW(app_.main(), WM_CLOSE, 0, 0);
      asked = GetTickCount64();
    }
    return !app_.running();
  });
  if (!left) {
    std::string shown;
    for (HWND const window : harness::visibleWindows(app_.processId())) {
      shown += " " + harness::utf8(harness::className(window)) +
               (IsWindowEnabled(window) != FALSE ? "" : " (disabled)");
    }
    throw Failure("the program does not end; on the screen:" + shown);
  }
}

}  // namespace proofs
