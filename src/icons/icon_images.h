// Reads icons directly from program files.
//
// Drawing a program's icon through the system costs dozens of round trips to Wine's window server,
// and the lists show many icons. Icons that are stored unpacked are therefore read from the file;
// the system only unpacks the others. If an icon is not stored in the wanted size, the next larger
// image is made smaller here, because the system may stretch a smaller one. Rows of ./bench:
// `start.splash` for the program's own icons (some 400 round trips fewer, see docs/performance.md),
// `start.lists` for those of the shortcuts' programs. No row measures it alone. On real Windows,
// where drawing an icon needs no other process, it may save little.
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

/// One of an icon's images.
struct StoredImage {
  std::uint16_t number;  ///< Of the resource.
  int side;              ///< In pixels.
  bool operator==(const StoredImage&) const = default;
};

/// The image of an icon's directory (resource type 14) to draw at `side` pixels: the smallest
/// square one that need not be stretched, and of those the one with the most colours. Nothing when
/// all are smaller or `directory` is damaged.
[[nodiscard]] std::optional<StoredImage> imageFor(std::string_view directory, int side);

/// The pixels of an icon's image (resource type 3). Nothing when it is packed or damaged.
[[nodiscard]] std::optional<Picture> unpackedImage(std::string_view image);

/// Unpacks an icon's image that `unpackedImage` cannot read; `side` is its size in pixels. Nothing
/// when it is damaged.
using Unpack = std::function<std::optional<Picture>(std::string_view image, int side)>;

/// The first icon of a program file in both sizes; one that is not stored in a size is made from
/// the next larger image. Nothing when all images are smaller, when one of the two cannot be
/// unpacked or has several languages, or when the file is damaged or no program.
[[nodiscard]] std::optional<std::array<Picture, 2>> storedIcons(const ReadAt& file,
                                                                const Sizes& sides,
                                                                const Unpack& unpack);

}  // namespace icons
