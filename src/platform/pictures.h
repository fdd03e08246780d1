// Pictures as pixels, the pictures that come with the program, and the icons of other programs.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/geometry.h"

namespace platform {

/// A picture: rows from top to bottom, each pixel 0xAARRGGBB, not premultiplied.
struct Picture {
  Size size;
  std::vector<std::uint32_t> pixels;  ///< size.width * size.height of them.
  bool operator==(const Picture&) const = default;
};

namespace pictures {

/// A large and a small picture.
using Sizes = std::array<int, 2>;
using Icons = std::array<std::optional<Picture>, 2>;

/// Draws the first icon of a program file in both sizes, each a square of so many pixels; the file
/// is read only once. Nothing where the file is missing, is no program or has no icons. Every
/// handle taken on the way is given back.
[[nodiscard]] Icons programIcons(const std::wstring& file, const Sizes& sides);

}  // namespace pictures
}  // namespace platform
