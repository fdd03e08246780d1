// Live objects of each kind, counted in one build only: what a long run must not let grow cannot be
// asked of every system from outside.
#pragma once

#include <typeinfo>

namespace platform::win32 {

#ifdef QMK_COUNT_OBJECTS

/// The number of live objects of a kind; the counting build defines it and shows it to others.
long long& liveObjects(const char* kind);

/// Notes that an object of the kind has come (1) or gone (-1).
template <class Kind>
void countObject(int change) noexcept {
  static long long& live = liveObjects(typeid(Kind).name());
  live += change;
}

#else

template <class Kind>
constexpr void countObject(int /*change*/) noexcept {}

#endif

}  // namespace platform::win32
