#include "platform/win32/modality.h"

#include "platform/win32/parameters.h"

namespace platform::win32 {
namespace {

bool takesInput(HWND window) {
  return IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0;
}

// A named function: on 32-bit Windows a lambda has not the calling convention of a callback.
BOOL CALLBACK collectIfInput(HWND window, LPARAM list) {
  if (takesInput(window)) pointerFrom<std::vector<HWND>>(list)->push_back(window);
  return TRUE;
}

/// The top-level windows of this thread that take input, foremost first.
std::vector<HWND> inputWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), collectIfInput, parameterFrom(&windows));
  return windows;
}

/// Tool tips and the like are top-level windows too, but nothing can belong to them.
bool canOwn(HWND window) { return (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) != 0; }

}  // namespace

HWND dialogOwner() {
  if (HWND active = GetActiveWindow(); active != nullptr) return active;
  for (HWND window : inputWindows()) {
    if (canOwn(window)) return window;
  }
  return nullptr;
}

ModalScope::ModalScope(HWND owner) {
  for (HWND window : inputWindows()) {
    if (window == owner) continue;
    disabled_.push_back(window);
    EnableWindow(window, FALSE);
  }
}

ModalScope::~ModalScope() {
  for (HWND window : disabled_) {
    if (IsWindow(window) != 0) EnableWindow(window, TRUE);
  }
}

}  // namespace platform::win32
