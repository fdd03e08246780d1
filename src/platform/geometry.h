// Sizes and rectangles in pixels, and the conversions from the design's units.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include "platform/run_time_error.h"

namespace platform {

/// Converts a length or a coordinate to 32 bits. Raises `error::overflow` when it does not fit.
[[nodiscard]] constexpr int coordinate(std::int64_t exact) {
  if (exact < std::numeric_limits<int>::min() || exact > std::numeric_limits<int>::max()) {
    throw RunTimeError(error::overflow);
  }
  return static_cast<int>(exact);
}

/// Sum of two coordinates. Raises `error::overflow` when it does not fit.
[[nodiscard]] constexpr int sum(int a, int b) { return coordinate(std::int64_t{a} + b); }

/// A size in pixels.
struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

/// A rectangle in pixels, relative to the client area that contains it. `right` and `bottom` raise
/// `error::overflow` when the edge does not fit into a coordinate.
struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  [[nodiscard]] int right() const { return sum(left, width); }
  [[nodiscard]] int bottom() const { return sum(top, height); }
  bool operator==(const Rect&) const = default;
};

/// `rect` without a margin on every side; one that is all margin has no width or height left.
/// Raises 6 when a coordinate does not fit.
[[nodiscard]] constexpr Rect inset(const Rect& rect, int margin) {
  const auto shortened = [margin](int length) {
    return coordinate(std::max<std::int64_t>(0, length - 2 * std::int64_t{margin}));
  };
  return {sum(rect.left, margin), sum(rect.top, margin), shortened(rect.width),
          shortened(rect.height)};
}

/// Dots per inch of an unscaled screen; all sizes of the design are given at this density.
inline constexpr int designDpi = 96;
/// Twips (1/1440 inch) in one inch, the unit of the column widths.
inline constexpr int twipsPerInch = 1440;

/// Scales a length given at 96 dpi to `dpi`, rounded to the nearest pixel. Raises `error::overflow`
/// when it does not fit.
[[nodiscard]] constexpr int scaled(int length, int dpi) {
  return coordinate((std::int64_t{length} * dpi + designDpi / 2) / designDpi);
}

/// Converts twips to pixels at `dpi`, rounded to the nearest pixel. Raises `error::overflow` when
/// the result does not fit.
[[nodiscard]] constexpr int twipsToPixels(int twips, int dpi) {
  return coordinate((std::int64_t{twips} * dpi + twipsPerInch / 2) / twipsPerInch);
}

}  // namespace platform
