#include "platform/session.h"

#include <windows.h>

#include "platform/controls/window.h"

namespace platform::session {
namespace {

HWND nativeWindow(const controls::Window& window) {
  return window.peer() == nullptr ? nullptr : static_cast<HWND>(window.peer()->handle());
}

}  // namespace

void explainWait(const controls::Window& window, const std::wstring& reason) {
  ShutdownBlockReasonCreate(nativeWindow(window), reason.c_str());
}

void waitIsOver(const controls::Window& window) {
  ShutdownBlockReasonDestroy(nativeWindow(window));
}

}  // namespace platform::session
