#include "platform/win32/modality.h"

#include <new>
#include <utility>

#include "platform/win32/parameters.h"

namespace platform::win32 {
namespace {

bool isOwn(HWND window) {
  return GetWindowLongPtrW(window, GWLP_HINSTANCE) == parameterFrom(GetModuleHandleW(nullptr));
}

// A named function: on 32-bit Windows a lambda does not have the calling convention of a callback.
BOOL CALLBACK collectIfEnabled(HWND window, LPARAM list) {
  if (IsWindowEnabled(window) == 0) return TRUE;
  try {
    pointerFrom<std::vector<HWND>>(list)->push_back(window);
    return TRUE;
  } catch (const std::bad_alloc&) {
    // An exception must not pass through the system's code, and the message that is about to be
    // shown may be the one about missing memory.
    return FALSE;
  }
}

/// The enabled top-level windows of this thread, foremost first. If there is no memory for all of
/// them, only the foremost ones.
std::vector<HWND> enabledWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), collectIfEnabled, parameterFrom(&windows));
  return windows;
}

/// Tool tips and the like are top-level windows too, but cannot own a dialog.
bool canOwn(HWND window) {
  return IsWindowVisible(window) != 0 && (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) != 0;
}

}  // namespace

HWND dialogOwner() {
  // The main window may be the active one before it is shown.
  if (HWND active = GetActiveWindow(); active != nullptr && IsWindowVisible(active) != 0) {
    return active;
  }
  for (HWND window : enabledWindows()) {
    if (canOwn(window)) return window;
  }
  return nullptr;
}

ModalScope::ModalScope(HWND except) : disabled_(enabledWindows()) {
  std::erase_if(disabled_, [except](HWND window) {
    return window == except || (IsWindowVisible(window) == 0 && !isOwn(window));
  });
  for (HWND window : disabled_) {
    EnableWindow(window, FALSE);
  }
}

void ModalScope::lift() {
  for (HWND window : std::exchange(disabled_, {})) {
    if (IsWindow(window) != 0) EnableWindow(window, TRUE);
  }
}

}  // namespace platform::win32
