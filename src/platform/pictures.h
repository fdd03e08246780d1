// Pictures as pixels, the pictures that come with the program, and the icons of other programs.
#pragma once

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

/// Draws the first icon of a program file at `side` x `side` pixels. Nothing when the file is
/// missing, is no program or has no icons. Every handle taken on the way is given back.
[[nodiscard]] std::optional<Picture> programIcon(const std::wstring& file, int side);

}  // namespace pictures
}  // namespace platform
