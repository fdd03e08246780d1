// Answers a message box for the tests of the set-up program:
//
//   message_box TITLE TEXT BUTTON
//   message_box --running          exit status 0 while a Gateway runs, 1 while none does
//
// Waits for a message box of that title whose text begins with TEXT, pushes the button of that id
// (2 Cancel, 4 Retry, 6 Yes, 7 No) and prints the text.
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
  if (argumentCount != 4) {
    std::fprintf(stderr, "message_box TITLE TEXT BUTTON\n");
    return 2;
  }
  try {
    answer(arguments[1], arguments[2], std::stoi(arguments[3]));
    return 0;
  } catch (const Failure& failure) {
    std::fprintf(stderr, "message_box: %s\n", failure.what());
    return 1;
  }
}
