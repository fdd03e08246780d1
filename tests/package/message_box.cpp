// Answers the set-up program for its tests:
//
//   message_box TITLE TEXT BUTTON
//   message_box --next TITLE CAPTION    pushes Next on page after page, up to the button CAPTION
//   message_box --cancel TITLE          pushes Cancel on the page that is shown, until a message
//   box
//                                       asks about it
//   message_box --running               exit status 0 while a Gateway runs, 1 while none does
//
// Without an option it waits for a message box of that title whose text begins with TEXT, pushes
// the button of that id (1 OK, 2 Cancel, 4 Retry, 6 Yes, 7 No) and prints the text.
#include <cstdio>
#include <string>

#include "harness/dialogs.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace {

using namespace harness;

void answer(const std::wstring& title, const std::wstring& beginning, int button) {
  const auto search = [&]() -> HWND {
    // The set-up program's own pages have the same title.
    for (HWND window = FindWindowW(L"#32770", title.c_str()); window != nullptr;
         window = FindWindowExW(nullptr, window, L"#32770", title.c_str())) {
      if (IsWindowVisible(window) != FALSE && isMessageBox(window) &&
          MessageBoxReader(window).text().starts_with(beginning)) {
        return window;
      }
    }
    return nullptr;
  };
  const MessageBoxReader box(waitUntilFound("the message: " + utf8(beginning), search));
  std::printf("%s\n", utf8(box.text()).c_str());
  box.answer(button);
}

/// The set-up program's window, which holds one page after the other.
HWND setUpWindow(const std::wstring& title) {
  return waitUntilFound("the set-up program", [&]() -> HWND {
    for (HWND window = FindWindowExW(nullptr, nullptr, L"#32770", nullptr); window != nullptr;
         window = FindWindowExW(nullptr, window, L"#32770", nullptr)) {
      if (IsWindowVisible(window) != FALSE && text(window).starts_with(title) &&
          !isMessageBox(window)) {
        return window;
      }
    }
    return nullptr;
  });
}

HWND shownPage(HWND window) { return FindWindowExW(window, nullptr, L"#32770", nullptr); }

void push(HWND window, int id) {
  HWND const button = GetDlgItem(window, id);
  waitUntil("the button can be pushed", [&] { return IsWindowEnabled(button) != FALSE; });
  PostMessageW(window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

void goOn(const std::wstring& title, const std::wstring& caption) {
  HWND const window = setUpWindow(title);
  for (bool last = false; !last;) {
    HWND const page = shownPage(window);
    waitUntil("the button can be pushed",
              [&] { return IsWindowEnabled(GetDlgItem(window, IDOK)) != FALSE; });
    last = text(GetDlgItem(window, IDOK)) == caption;
    push(window, IDOK);
    if (!last) {
      waitUntil("the next page", [&] { return shownPage(window) != page; });
    }
  }
}

/// The set-up program drops a Cancel that comes while it still leaves a page or returns to it.
void cancel(const std::wstring& title) {
  HWND const window = setUpWindow(title);
  constexpr int patienceForQuestion = 2000;
  const auto asks = [&] { return IsWindowEnabled(window) == FALSE; };
  waitUntil("the set-up program asks about the end", [&] {
    // It is disabled while a message box is shown, also by the one before.
    waitUntil("the page takes input", [&] { return !asks(); });
    SendMessageW(window, WM_NULL, 0, 0);
    push(window, IDCANCEL);
    return waitFor(asks, patienceForQuestion);
  });
}

/// Checks in the same way as the set-up program.
bool running() {
  HANDLE const instance = OpenMutexW(SYNCHRONIZE, FALSE, L"Local\\QuillmarkSuite3Gateway");
  if (instance != nullptr) {
    CloseHandle(instance);
  }
  return instance != nullptr;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
  if (argumentCount == 2 && std::wstring(arguments[1]) == L"--running") {
    return running() ? 0 : 1;
  }
  const bool cancels = argumentCount == 3 && std::wstring(arguments[1]) == L"--cancel";
  if (argumentCount != 4 && !cancels) {
    std::fprintf(stderr, "message_box TITLE TEXT BUTTON\n");
    return 2;
  }
  try {
    if (cancels) {
      cancel(arguments[2]);
    } else if (std::wstring(arguments[1]) == L"--next") {
      goOn(arguments[2], arguments[3]);
    } else {
      answer(arguments[1], arguments[2], std::stoi(arguments[3]));
    }
    return 0;
  } catch (const Failure& failure) {
    std::fprintf(stderr, "message_box: %s\n", failure.what());
    return 1;
  }
}
