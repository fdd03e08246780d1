// Waiting for something to become true, with a bound.
#pragma once

#include <windows.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace harness {

/// The driven program did not do what a step needs; ends the test with its text.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& text) : std::runtime_error(text) {}
};

/// Longest wait for anything that a person would expect at once. Generous, because the machine may
/// be busy; nothing waits longer than it has to.
inline constexpr int patienceMs = 15000;

/// Time between two looks.
inline constexpr int pollMs = 10;

/// More than this does not count of the time from one look to the next: then the whole machine
/// stood still, as a virtual one does at times, and the driven program with it.
inline constexpr ULONGLONG longestPollMs = 1000;

/// Asks `condition` until it holds; false when it did not within `boundMs` milliseconds.
template <class Condition>
[[nodiscard]] bool waitFor(Condition condition, int boundMs = patienceMs) {
  ULONGLONG waited = 0;
  for (ULONGLONG last = GetTickCount64(); !condition();) {
    if (waited >= static_cast<ULONGLONG>(boundMs)) {
      return false;
    }
    Sleep(pollMs);
    const ULONGLONG now = GetTickCount64();
    waited += std::min(now - last, longestPollMs);
    last = now;
  }
  return true;
}

/// Asks `search` until it gives something (non-null, non-empty optional); raises `Failure` naming
/// `what` when it never did.
template <class Search>
[[nodiscard]] auto waitUntilFound(const std::string& what, Search search,
                                  int boundMs = patienceMs) {
  auto result = search();
  if (!waitFor([&] { return static_cast<bool>(result) || static_cast<bool>(result = search()); },
               boundMs)) {
    throw Failure("not found in time: " + what);
  }
  return result;
}

/// Waits for `condition`; raises `Failure` naming `what` when it never held.
template <class Condition>
void waitUntil(const std::string& what, Condition condition, int boundMs = patienceMs) {
  if (!waitFor(condition, boundMs)) {
    throw Failure("did not happen in time: " + what);
  }
}

}  // namespace harness
