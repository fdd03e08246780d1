// Hooks the windows whose messages are attached.
//
// The common controls' subclass chain keeps its order when hooks are added and removed in any
// order, which replaced window procedures do not.
#include "platform/subclass.h"

#include "platform/win32/native_handle.h"

namespace platform::subclass {

namespace {

constexpr UINT_PTR hookId = 1;

LRESULT CALLBACK hook(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR /*id*/,
                      DWORD_PTR /*data*/) {
  if (message == WM_NCDESTROY) {
    windowIsGoing(win32::handleFrom(window));
    return DefSubclassProc(window, message, first, second);
  }
  return deliver(win32::handleFrom(window), message, first, second,
                 [&] { return DefSubclassProc(window, message, first, second); });
}

}  // namespace

bool watch(WindowHandle window) {
  return SetWindowSubclass(win32::windowFrom(window), hook, hookId, 0) != 0;
}

void unwatch(WindowHandle window) { RemoveWindowSubclass(win32::windowFrom(window), hook, hookId); }

}  // namespace platform::subclass
