// Counts live objects of each kind, in one build only. A test of long runs needs these counts, and
// not every system shows them from outside.
#pragma once

#include <typeinfo>

namespace platform::win32 {

#ifdef QMK_COUNT_OBJECTS

/// The number of live objects of a kind. The counting build defines it and makes it visible from
/// outside.
long long& liveObjects(const char* kind);

/// Records that an object of the kind was created (1) or destroyed (-1).
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
