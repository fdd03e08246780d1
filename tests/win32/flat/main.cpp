// Tests of the flat look on native controls.
#include <gmock/gmock.h>
#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <array>
#include <cstdio>

#include "desktop_facts.h"
#include "platform/text.h"

namespace {

/// A message box of the program's code, such as an error report, makes the running test fail and is
/// closed, because nobody else would press its button.
BOOL CALLBACK refuse(HWND window, LPARAM /*unused*/) {
  constexpr int textId = 0xFFFF;
  HWND const label = GetDlgItem(window, textId);
  if (IsWindowVisible(window) != 0 && label != nullptr) {
    std::array<wchar_t, 1024> text{};
    GetWindowTextW(label, text.data(), static_cast<int>(text.size()));
    ADD_FAILURE() << "the test did not expect this message: "
                  << platform::text::toCodePage(text.data());
    PostMessageW(window, WM_CLOSE, 0, 0);
  }
  return TRUE;
}

void CALLBACK lookForMessages(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
  EnumThreadWindows(GetCurrentThreadId(), refuse, 0);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  // Results must be on the disk even if the run is interrupted.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  ::testing::InitGoogleMock(&argumentCount, arguments);
  INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_STANDARD_CLASSES | ICC_USEREX_CLASSES};
  InitCommonControlsEx(&classes);
  const flat_tests::DistinctColours colours;
  flat_tests::countTimers();
  constexpr UINT lookMs = 100;
  SetTimer(nullptr, 0, lookMs, lookForMessages);
  return RUN_ALL_TESTS();
}
