#include "harness/input.h"

#include <vector>

#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace harness {
namespace {

INPUT mouse(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  return input;
}

INPUT key(WORD code, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

void sendAll(std::vector<INPUT> inputs) {
  if (SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)) != inputs.size()) {
    throw Failure("input cannot be sent, error " + std::to_string(GetLastError()));
  }
}

/// Moves the pointer and waits until it stays there. A display server reports a pointer move a
/// moment later, and such a report of the previous move could move the pointer back.
void settleAt(POINT place) {
  constexpr int looks = 4;
  int right = 0;
  waitUntil("the pointer stays where it was moved", [&] {
    POINT now{};
    GetCursorPos(&now);
    const bool there = now.x == place.x && now.y == place.y;
    right = there ? right + 1 : 0;
    if (!there) {
      SetCursorPos(place.x, place.y);
    }
    return right == looks;
  });
}

void goTo(POINT place, HWND expected) {
  HWND const root = GetAncestor(expected, GA_ROOT);
  waitUntil("the place to click is not covered",
            [&] { return GetAncestor(WindowFromPoint(place), GA_ROOT) == root; });
  settleAt(place);
}

void clicks(POINT place, HWND expected, int count) {
  goTo(place, expected);
  std::vector<INPUT> inputs;
  for (int click = 0; click < count; ++click) {
    inputs.push_back(mouse(MOUSEEVENTF_LEFTDOWN));
    inputs.push_back(mouse(MOUSEEVENTF_LEFTUP));
  }
  sendAll(inputs);
}

}  // namespace

void bringToFront(HWND window) {
  waitUntil("the window comes to the front", [window] {
    SetForegroundWindow(window);
    return GetForegroundWindow() == window;
  });
}

POINT centreOf(const RECT& rect) {
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void moveTo(POINT place) { settleAt(place); }

void waitForInput(HWND window, UINT boundMs) {
  // Sent messages are processed before input, and after each one the program processes one piece of
  // input.
  constexpr int pieces = 8;
  for (int sent = 0; sent < pieces; ++sent) {
    SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, boundMs, nullptr);
  }
}

void clickAt(POINT place, HWND expected) { clicks(place, expected, 1); }

void rightClickAt(POINT place, HWND expected) {
  goTo(place, expected);
  sendAll({mouse(MOUSEEVENTF_RIGHTDOWN), mouse(MOUSEEVENTF_RIGHTUP)});
}

void doubleClickAt(POINT place, HWND expected) { clicks(place, expected, 2); }

void beginDrag(POINT from, POINT to, HWND expected) {
  goTo(from, expected);
  sendAll({mouse(MOUSEEVENTF_LEFTDOWN)});
  send(expected, WM_NULL);
  // A drag begins with a short way on the window itself.
  for (int step = 1; step <= 4; ++step) {
    moveTo({from.x + 3 * step, from.y});
    send(expected, WM_NULL);
  }
  const int steps = 8;
  for (int step = 1; step <= steps; ++step) {
    moveTo({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
  }
}

void endDrag() { sendAll({mouse(MOUSEEVENTF_LEFTUP)}); }

void drag(POINT from, POINT to, HWND expected) {
  goTo(from, expected);
  sendAll({mouse(MOUSEEVENTF_LEFTDOWN)});
  // The window must see the way of the pointer, not only its end.
  const int steps = 6;
  for (int step = 1; step <= steps; ++step) {
    moveTo({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
    send(expected, WM_NULL);
  }
  sendAll({mouse(MOUSEEVENTF_LEFTUP)});
  send(expected, WM_NULL);
}

void pressKey(WORD code, WORD held) {
  pressKeys(held != 0 ? std::vector<WORD>{held, code} : std::vector<WORD>{code});
}

void pressKeys(const std::vector<WORD>& codes) {
  std::vector<INPUT> inputs;
  for (const WORD code : codes) {
    inputs.push_back(key(code, 0));
  }
  for (auto code = codes.rbegin(); code != codes.rend(); ++code) {
    inputs.push_back(key(*code, KEYEVENTF_KEYUP));
  }
  sendAll(inputs);
}

void typeText(const std::wstring& text) {
  std::vector<INPUT> inputs;
  for (const wchar_t character : text) {
    for (const DWORD flags :
         {DWORD{KEYEVENTF_UNICODE}, DWORD{KEYEVENTF_UNICODE | KEYEVENTF_KEYUP}}) {
      INPUT input{};
      input.type = INPUT_KEYBOARD;
      input.ki.wScan = static_cast<WORD>(character);
      input.ki.dwFlags = flags;
      inputs.push_back(input);
    }
  }
  sendAll(inputs);
}

void pushButton(HWND dialog, int id) {
  HWND const button = child(dialog, id, L"Button");
  if (button == nullptr) {
    throw Failure("the dialog has no button " + std::to_string(id));
  }
  post(button, BM_CLICK);
}

}  // namespace harness
