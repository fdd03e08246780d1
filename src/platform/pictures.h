// Pictures as pixels, and the icons of other programs.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/geometry.h"

namespace platform {

/// A picture: rows from top to bottom, each pixel as 0xAARRGGBB, not premultiplied.
struct Picture {
  Size size;
  std::vector<std::uint32_t> pixels;  ///< size.width * size.height of them.
  bool operator==(const Picture&) const = default;
};

namespace pictures {

/// A large and a small picture.
using Sizes = std::array<int, 2>;
using Icons = std::array<std::optional<Picture>, 2>;

/// The first icon of a program file in both sizes, each a square of the given side in pixels. The
/// file is read only once. Nothing where the file is missing, is no program or has no icons. All
/// handles that this takes are closed again.
[[nodiscard]] Icons programIcons(const std::wstring& file, const Sizes& sides);

}  // namespace pictures
}  // namespace platform
