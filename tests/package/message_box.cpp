// Answers the set-up program for its tests:
//
//   message_box TITLE TEXT BUTTON
//   message_box --next TITLE CAPTION    pushes Next on page after page, up to the button CAPTION
//   message_box --cancel TITLE          pushes Cancel on the page that is shown and says Yes to the
//                                       question about it, until the window has gone
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

/// The message box of that title whose text begins so, null where none is shown.
HWND shownMessage(const std::wstring& title, const std::wstring& beginning) {
  // The set-up program's own pages have the same title.
  for (HWND window = FindWindowW(L"#32770", title.c_str()); window != nullptr;
       window = FindWindowExW(nullptr, window, L"#32770", title.c_str())) {
    if (IsWindowVisible(window) != FALSE && isMessageBox(window) &&
        MessageBoxReader(window).text().starts_with(beginning)) {
      return window;
    }
  }
  return nullptr;
}

void answer(const std::wstring& title, const std::wstring& beginning, int button) {
  const MessageBoxReader box(waitUntilFound("the message: " + utf8(beginning),
                                            [&] { return shownMessage(title, beginning); }));
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

/// The page that is shown, null between two pages. The caption of the button belongs to it.
HWND shownPage(HWND window) {
  HWND const page = FindWindowExW(window, nullptr, L"#32770", nullptr);
  return page != nullptr && IsWindowVisible(page) != FALSE ? page : nullptr;
}

void push(HWND window, int id) {
  PostMessageW(window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(window, id)));
}

/// Waits for each page before it pushes: what is pushed between two pages counts for the second.
void goOn(const std::wstring& title, const std::wstring& caption) {
  HWND const window = setUpWindow(title);
  HWND page = nullptr;
  for (bool last = false; !last;) {
    page = waitUntilFound("the next page", [&]() -> HWND {
      HWND const shown = shownPage(window);
      return shown != page ? shown : nullptr;
    });
    waitUntil("the button can be pushed",
              [&] { return IsWindowEnabled(GetDlgItem(window, IDOK)) != FALSE; });
    last = text(GetDlgItem(window, IDOK)) == caption;
    push(window, IDOK);
  }
}

/// The set-up program drops a Cancel that comes while it still leaves a page or returns to it. One
/// that comes late makes it ask twice. So each question is answered, and Cancel is pushed again
/// where none is asked.
void cancel(const std::wstring& title) {
  HWND const window = setUpWindow(title);
  constexpr int patienceForQuestion = 2000;
  constexpr int patienceForEnd = 60000;
  const auto gone = [&] { return IsWindow(window) == FALSE; };
  const auto question = [&] { return shownMessage(title, L"Are you sure"); };
  waitUntil(
      "the set-up program ends after Cancel",
      [&] {
        if (HWND const box = question()) {
          MessageBoxReader(box).answer(IDYES);
        } else if (IsWindowEnabled(window) != FALSE) {
          push(window, IDCANCEL);
          (void)waitFor([&] { return gone() || question() != nullptr; }, patienceForQuestion);
        }
        return gone();
      },
      patienceForEnd);
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
