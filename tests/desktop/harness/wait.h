// Waiting for a condition, with a time limit.
#pragma once

#include <windows.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace harness {

/// The driven program did not do what a step needs. Ends the test with this text.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& text) : std::runtime_error(text) {}
};

/// Longest wait for anything that a user would expect at once. Generous, because the machine may be
/// busy; no wait is longer than necessary.
inline constexpr int patienceMs = 15000;

/// Time between two polls.
inline constexpr int pollMs = 10;

/// Of the time between two polls at most this much counts. More means that the whole machine stood
/// still, as virtual machines sometimes do, and the driven program with it.
inline constexpr ULONGLONG longestPollMs = 1000;

/// Polls `condition` until it is true; returns false when it was not true within `boundMs`
/// milliseconds.
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

/// Polls `search` until it returns something (non-null, non-empty optional). Raises `Failure` with
/// `what` when it never does.
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

/// Waits for `condition`. Raises `Failure` with `what` when it does not become true.
template <class Condition>
void waitUntil(const std::string& what, Condition condition, int boundMs = patienceMs) {
  if (!waitFor(condition, boundMs)) {
    throw Failure("did not happen in time: " + what);
  }
}

}  // namespace harness
