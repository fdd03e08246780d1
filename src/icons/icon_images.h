// Reads icons directly from program files.
//
// Drawing a program's icon through the system costs dozens of round trips to Wine's window server,
// and the lists show many icons. Icons that are stored unpacked at the wanted size are therefore
// read from the file; everything else is left to the system. Rows of ./bench: `start.splash` for
// the program's own icons (some 400 round trips fewer, see docs/performance.md), `start.lists` for
// those of the shortcuts' programs. No row measures it alone. On real Windows, where drawing an
// icon needs no other process, it may save little.
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

/// Reads bytes of a file from an offset on; fewer than asked for at the end of the file, "" past
/// it.
using ReadAt = std::function<std::string(std::uint64_t place, std::size_t size)>;

/// Gives a picture without transparency the transparency of its mask: `clear[n]` says whether pixel
/// n is transparent. Pixels beyond the end of the mask are transparent.
void completeTransparency(Picture& picture, const std::vector<bool>& clear);

/// Number of the square image of `side` pixels with the most colours in an icon's directory
/// (resource type 14). Nothing when there is none of this size or `directory` is damaged.
[[nodiscard]] std::optional<std::uint16_t> imageOfSize(std::string_view directory, int side);

/// The pixels of an icon's image (resource type 3). Nothing when it is packed or damaged.
[[nodiscard]] std::optional<Picture> unpackedImage(std::string_view image);

/// The first icon of a program file in both sizes. Nothing when one of them is not stored unpacked
/// or has several languages, or when the file is damaged or no program.
[[nodiscard]] std::optional<std::array<Picture, 2>> unpackedIcons(const ReadAt& file,
                                                                  const Sizes& sides);

}  // namespace icons
