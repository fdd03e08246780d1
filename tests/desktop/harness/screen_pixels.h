// What the screen shows.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace harness {

/// Row by row from the top; each pixel has blue in its lowest byte, then green, then red.
struct ScreenPixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;
};

/// A part of the screen, copied. Raises `Failure` when there is nothing in it.
[[nodiscard]] ScreenPixels screenPixels(const RECT& place);

}  // namespace harness
