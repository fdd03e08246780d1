// Counts the timers of windows: nothing in the system lists them, so that the linker leads the
// calls that start and end them through here.
#include <algorithm>
#include <set>
#include <utility>

#include "desktop_facts.h"

using StartTimer = UINT_PTR WINAPI(HWND, UINT_PTR, UINT, TIMERPROC);
using EndTimer = BOOL WINAPI(HWND, UINT_PTR);

extern "C" {
extern StartTimer* const realStartTimer asm("__real___imp_SetTimer");
extern EndTimer* const realEndTimer asm("__real___imp_KillTimer");
}

namespace {

std::set<std::pair<HWND, UINT_PTR>>& timers() {
  static std::set<std::pair<HWND, UINT_PTR>> running;
  return running;
}

UINT_PTR WINAPI startTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
  const UINT_PTR result = realStartTimer(window, id, milliseconds, procedure);
  if (result != 0 && window != nullptr) {
    timers().emplace(window, id);
  }
  return result;
}

BOOL WINAPI endTimer(HWND window, UINT_PTR id) {
  timers().erase({window, id});
  return realEndTimer(window, id);
}

}  // namespace

extern "C" {
extern StartTimer* const countedStartTimer asm("__wrap___imp_SetTimer");
extern EndTimer* const countedEndTimer asm("__wrap___imp_KillTimer");
StartTimer* const countedStartTimer = startTimer;
EndTimer* const countedEndTimer = endTimer;
}

namespace flat_tests {

int timerCount() {
  // A window's timers go with it.
  std::erase_if(timers(), [](const auto& timer) { return IsWindow(timer.first) == 0; });
  return static_cast<int>(timers().size());
}

bool hasTimer(HWND window, UINT_PTR id) { return timers().contains({window, id}); }

}  // namespace flat_tests
