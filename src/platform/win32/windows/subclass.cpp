// Windows whose messages are handed over.
//
// The window procedure is replaced, and the chain of hooks is in this process's memory. The common
// controls' own subclassing keeps its chain in a window property and looks it up for every hook and
// message. Under Wine that is a round trip to the window server. Row start.splash of ./bench shows
// it. On real Windows the look-up needs no other process, so this may save little there.
#include "platform/subclass.h"

#include <bit>
#include <functional>
#include <unordered_map>

#include "platform/win32/native_handle.h"

namespace platform::subclass {

namespace {

/// The procedures that the windows had before. Only the thread of the windows comes here.
std::unordered_map<HWND, WNDPROC>& formerProcedures() {
  static auto& all = *new std::unordered_map<HWND, WNDPROC>;
  return all;
}

LRESULT CALLBACK handOver(HWND window, UINT message, WPARAM first, LPARAM second) {
  const auto known = formerProcedures().find(window);
  if (known == formerProcedures().end()) {
    return DefWindowProcW(window, message, first, second);
  }
  const auto original = [window, former = known->second](unsigned code, std::uintptr_t low,
                                                         std::intptr_t high) -> std::intptr_t {
    return CallWindowProcW(former, window, code, low, high);
  };
  const WindowHandle handle = win32::handleFrom(window);
  if (message == WM_NCDESTROY) {
    windowIsGoing(handle);
  }
  // A reference, so that no memory is needed for each message.
  const LRESULT result = deliver(handle, message, first, second, std::ref(original));
  if (message == WM_NCDESTROY) {
    windowIsGone(handle);
    formerProcedures().erase(window);
  }
  return result;
}

}  // namespace

bool watch(WindowHandle handle) {
  HWND const window = win32::windowFrom(handle);
  if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) {
    return false;
  }
  // Once replaced, the procedure stays: another program's may have been put before it.
  auto& all = formerProcedures();
  const auto [place, added] = all.emplace(window, nullptr);
  if (added) {
    place->second = std::bit_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(&handOver)));
  }
  if (place->second == nullptr) {
    all.erase(place);
    return false;
  }
  return true;
}

void unwatch(WindowHandle /*window*/) {}

}  // namespace platform::subclass
