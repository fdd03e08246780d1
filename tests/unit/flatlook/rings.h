// Expected frames of the tests: rings of pixels, drawn one over the other.
#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "platform/native_windows.h"

namespace flatlook::test {

/// Pixels by position (x, y), as 0x00BBGGRR.
using Pixels = std::map<std::pair<int, int>, std::uint32_t>;

/// Draws the visible ring of a rectangle in two colours: the bottom left corner belongs to the left
/// edge, the top right corner to the right edge.
inline void ring(Pixels& pixels, const platform::native::Edges& rect, std::uint32_t topLeft,
                 std::uint32_t bottomRight) {
  for (int x = rect.left; x < rect.right; ++x) {
    pixels[{x, rect.top}] = topLeft;
    pixels[{x, rect.bottom - 1}] = bottomRight;
  }
  for (int y = rect.top; y < rect.bottom; ++y) {
    pixels[{rect.right - 1, y}] = bottomRight;
    pixels[{rect.left, y}] = topLeft;
  }
}

/// Draws a vertical line from `top` to just above `bottom`.
inline void line(Pixels& pixels, int x, int top, int bottom, std::uint32_t colour) {
  for (int y = top; y < bottom; ++y) {
    pixels[{x, y}] = colour;
  }
}

}  // namespace flatlook::test
