// Hooks the windows whose messages are attached.
#include "platform/subclass.h"

#include "platform/win32/message_chain.h"
#include "platform/win32/native_handle.h"

namespace platform::subclass {

namespace {

constexpr UINT_PTR hookId = 1;

LRESULT CALLBACK hook(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR /*id*/,
                      DWORD_PTR /*data*/) {
  if (message == WM_NCDESTROY) {
    windowIsGoing(win32::handleFrom(window));
    return win32::passOn(window, message, first, second);
  }
  return deliver(win32::handleFrom(window), message, first, second,
                 [&] { return win32::passOn(window, message, first, second); });
}

}  // namespace

bool watch(WindowHandle window) {
  return win32::hookMessages(win32::windowFrom(window), hook, hookId, 0);
}

void unwatch(WindowHandle window) {
  win32::unhookMessages(win32::windowFrom(window), hook, hookId);
}

}  // namespace platform::subclass
