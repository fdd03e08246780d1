// Sizes and rectangles in pixels, and the conversions from the design's units.
#pragma once

namespace platform {

/// A size in pixels.
struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

/// A rectangle in pixels, relative to the client area that holds it.
struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  [[nodiscard]] int right() const { return left + width; }
  [[nodiscard]] int bottom() const { return top + height; }
  bool operator==(const Rect&) const = default;
};

/// `rect` without a margin on every side; one that is all margin has no width or height left.
[[nodiscard]] constexpr Rect withoutMargin(const Rect& rect, int margin) {
  const auto shortened = [margin](int length) {
    return length > 2 * margin ? length - 2 * margin : 0;
  };
  return {rect.left + margin, rect.top + margin, shortened(rect.width), shortened(rect.height)};
}

/// Dots per inch of an unscaled screen; all sizes of the design are given at this density.
inline constexpr int designDpi = 96;
/// Twips (1/1440 inch) in one inch, the unit of the column widths.
inline constexpr int twipsPerInch = 1440;

/// Scales a length given at 96 dpi to `dpi`, rounded to the nearest pixel.
[[nodiscard]] constexpr int scaled(int length, int dpi) {
  return (length * dpi + designDpi / 2) / designDpi;
}

/// Converts twips to pixels at `dpi`, rounded to the nearest pixel.
[[nodiscard]] constexpr int twipsToPixels(int twips, int dpi) {
  return (twips * dpi + twipsPerInch / 2) / twipsPerInch;
}

}  // namespace platform
