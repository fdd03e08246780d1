#include "harness/windows_of_process.h"

#include <array>
#include <bit>
#include <ostream>

#include "harness/text.h"
#include "harness/wait.h"

namespace harness {
namespace {

BOOL CALLBACK collect(HWND window, LPARAM list) {
  std::bit_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

}  // namespace

LRESULT send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  // Longer than a machine may stand still, because a message cannot be sent a second time.
  constexpr UINT longestAnswerMs = 8 * patienceMs;
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, longestAnswerMs, &result) ==
      0) {
    throw Failure("a window did not answer message " + std::to_string(message) + ", error " +
                  std::to_string(GetLastError()));
  }
  return static_cast<LRESULT>(result);
}

void post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (PostMessageW(window, message, wParam, lParam) == FALSE) {
    throw Failure("message " + std::to_string(message) + " cannot be posted, error " +
                  std::to_string(GetLastError()));
  }
}

std::wstring className(HWND window) {
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

std::wstring text(HWND window) {
  const auto length = static_cast<std::size_t>(send(window, WM_GETTEXTLENGTH));
  std::wstring result(length + 1, L'\0');
  const LRESULT got = send(window, WM_GETTEXT, static_cast<WPARAM>(result.size()),
                           reinterpret_cast<LPARAM>(result.data()));
  result.resize(static_cast<std::size_t>(got));
  return result;
}

DWORD processOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

std::vector<HWND> topWindows(DWORD process) {
  std::vector<HWND> all;
  EnumWindows(collect, reinterpret_cast<LPARAM>(&all));
  std::erase_if(all, [process](HWND window) { return processOf(window) != process; });
  return all;
}

std::vector<HWND> visibleWindows(DWORD process) {
  std::vector<HWND> windows = topWindows(process);
  std::erase_if(windows, [](HWND window) { return IsWindowVisible(window) == FALSE; });
  return windows;
}

HWND visibleWindow(DWORD process, const std::wstring& classOfWindow) {
  for (HWND const window : visibleWindows(process)) {
    if (className(window) == classOfWindow) {
      return window;
    }
  }
  return nullptr;
}

void PrintTo(const NamedWindow& window, std::ostream* out) {
  if (window.handle == nullptr) {
    *out << "no window";
    return;
  }
  // The title as the system knows it, which needs no answer of the window.
  std::array<wchar_t, 256> title{};
  GetWindowTextW(window.handle, title.data(), static_cast<int>(title.size()));
  *out << window.handle << " (" << utf8(className(window.handle)) << ", \"" << utf8(title.data())
       << "\")";
}

NamedWindow windowInFront() { return {GetForegroundWindow()}; }

HWND visibleWindowTitled(const std::wstring& title) {
  HWND const window = FindWindowW(nullptr, title.c_str());
  return window != nullptr && IsWindowVisible(window) != FALSE ? window : nullptr;
}

std::vector<HWND> children(HWND window) {
  std::vector<HWND> all;
  EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&all));
  return all;
}

HWND child(HWND window, int id, const std::wstring& classOfChild) {
  for (HWND const candidate : children(window)) {
    if (GetDlgCtrlID(candidate) == id &&
        (classOfChild.empty() || className(candidate) == classOfChild)) {
      return candidate;
    }
  }
  return nullptr;
}

HWND focusIn(HWND window) {
  GUITHREADINFO facts{};
  facts.cbSize = sizeof facts;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &facts);
  return facts.hwndFocus;
}

RECT screenRect(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  return rect;
}

RECT clientOnScreen(HWND window) {
  RECT rect{};
  GetClientRect(window, &rect);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

void waitForEndOfStart(HWND main) {
  // Start-up answers messages at few moments, each of them short, before its last steps. The last
  // of several answers comes from the program's main loop.
  constexpr int answers = 6;
  constexpr DWORD pause = 20;
  for (int answer = 0; answer < answers; ++answer) {
    DWORD_PTR result = 0;
    // What keeps it from answering for so long is told by what the test waits for next.
    SendMessageTimeoutW(main, WM_NULL, 0, 0, SMTO_NORMAL, patienceMs, &result);
    Sleep(pause);
  }
}

}  // namespace harness
