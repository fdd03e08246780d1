// Counts the timers of windows. The system has no list of them, so the calls that start and end
// timers are led here.
#include <set>
#include <utility>

#include "desktop_facts.h"
#include "harness/imports.h"

namespace {

using StartTimer = UINT_PTR WINAPI(HWND, UINT_PTR, UINT, TIMERPROC);
using EndTimer = BOOL WINAPI(HWND, UINT_PTR);

std::set<std::pair<HWND, UINT_PTR>>& timers() {
  static std::set<std::pair<HWND, UINT_PTR>> running;
  return running;
}

StartTimer* realStartTimer = nullptr;
EndTimer* realEndTimer = nullptr;

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

namespace flat_tests {

void countTimers() {
  realStartTimer = harness::redirectImport(L"user32.dll", "SetTimer", &startTimer);
  realEndTimer = harness::redirectImport(L"user32.dll", "KillTimer", &endTimer);
}

int timerCount() {
  // A window's timers are destroyed with it.
  std::erase_if(timers(), [](const auto& timer) { return IsWindow(timer.first) == 0; });
  return static_cast<int>(timers().size());
}

bool hasTimer(HWND window, UINT_PTR id) { return timers().contains({window, id}); }

}  // namespace flat_tests
