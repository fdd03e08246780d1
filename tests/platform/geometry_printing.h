// How test results show places and sizes. Whoever compares some includes this, so that every file
// of a test program prints them alike.
#pragma once

#include <ostream>

#include "platform/geometry.h"

namespace platform {

inline void PrintTo(const Size& size, std::ostream* out) {
  *out << size.width << " x " << size.height;
}

inline void PrintTo(const Rect& rect, std::ostream* out) {
  *out << rect.width << " x " << rect.height << " at " << rect.left << ", " << rect.top;
}

}  // namespace platform
