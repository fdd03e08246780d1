// Icons as they lie in program files.
//
// Drawing a program's icon through the system costs dozens of questions to the window manager, and
// the lists show many icons. Those that are stored pixel by pixel at the wanted size can be taken
// from the file instead; whatever else there is stays the system's business.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/pictures.h"

namespace icons {

using platform::Picture;
using platform::pictures::Sizes;

/// Gives the bytes of a file from a place on; fewer than asked for at its end, "" past it.
using ReadAt = std::function<std::string(std::uint64_t place, std::size_t size)>;

/// Gives a picture without transparency of its own that of its mask: `clear` says of each pixel
/// whether it is left out. A pixel beyond the mask is.
void completeTransparency(Picture& picture, const std::vector<bool>& clear);

/// Number of the square image of `side` pixels with the most colours in an icon's directory (the
/// resource of type 14). Nothing when there is none of this size or `directory` is damaged.
[[nodiscard]] std::optional<std::uint16_t> imageOfSize(std::string_view directory, int side);

/// The pixels of an icon's image (the resource of type 3). Nothing when it is packed or damaged.
[[nodiscard]] std::optional<Picture> unpackedImage(std::string_view image);

/// The first icon of a program file in both sizes. Nothing when one of them is not stored pixel by
/// pixel, or has several languages, or the file is no program or a damaged one.
[[nodiscard]] std::optional<std::array<Picture, 2>> unpackedIcons(const ReadAt& file,
                                                                  const Sizes& sides);

}  // namespace icons
