// Counts the timers of windows. The system has no list of them, so the linker redirects the calls
// that start and end timers to this file.
#include <algorithm>
#include <set>
#include <utility>

#include "desktop_facts.h"

// The names that the linker's --wrap gives to the two imports. 32-bit Windows decorates them.
#ifdef _WIN64
#define TIMER_SYMBOL(kind, name, argumentBytes) "__" kind "___imp_" name
#else
#define TIMER_SYMBOL(kind, name, argumentBytes) "___" kind "__imp__" name "@" argumentBytes
#endif

using StartTimer = UINT_PTR WINAPI(HWND, UINT_PTR, UINT, TIMERPROC);
using EndTimer = BOOL WINAPI(HWND, UINT_PTR);

extern "C" {
extern StartTimer* const realStartTimer asm(TIMER_SYMBOL("real", "SetTimer", "16"));
extern EndTimer* const realEndTimer asm(TIMER_SYMBOL("real", "KillTimer", "8"));
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
extern StartTimer* const countedStartTimer asm(TIMER_SYMBOL("wrap", "SetTimer", "16"));
extern EndTimer* const countedEndTimer asm(TIMER_SYMBOL("wrap", "KillTimer", "8"));
StartTimer* const countedStartTimer = startTimer;
EndTimer* const countedEndTimer = endTimer;
}

namespace flat_tests {

int timerCount() {
  // A window's timers are destroyed with it.
  std::erase_if(timers(), [](const auto& timer) { return IsWindow(timer.first) == 0; });
  return static_cast<int>(timers().size());
}

bool hasTimer(HWND window, UINT_PTR id) { return timers().contains({window, id}); }

}  // namespace flat_tests
