#include "icons/scaling.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace icons {

namespace {

constexpr unsigned bits = 8;  // of one channel
constexpr unsigned alphaPlace = 3 * bits;
constexpr std::uint32_t channelMask = 0xFF;

std::uint64_t channel(std::uint32_t pixel, unsigned place) { return pixel >> place & channelMask; }

/// A row or column of the stored picture under one of the smaller picture.
struct Share {
  std::size_t from;
  std::uint64_t weight;
};

/// What stands under place `place` when `stored` rows or columns become `wanted`. The weights are
/// whole numbers: a stored one is `wanted` wide, one of the smaller picture `stored`.
std::vector<Share> sharesOf(std::uint64_t place, std::uint64_t stored, std::uint64_t wanted) {
  const std::uint64_t begin = place * stored;
  const std::uint64_t end = begin + stored;
  std::vector<Share> shares;
  for (std::uint64_t from = begin / wanted; from * wanted < end; ++from) {
    const std::uint64_t weight =
        std::min(end, (from + 1) * wanted) - std::max(begin, from * wanted);
    shares.push_back({static_cast<std::size_t>(from), weight});
  }
  return shares;
}

/// Sums of the weighted channels; the colours are weighted with the opacity, too.
struct Sums {
  std::uint64_t red = 0;
  std::uint64_t green = 0;
  std::uint64_t blue = 0;
  std::uint64_t opacity = 0;

  void add(std::uint32_t pixel, std::uint64_t weight) {
    const std::uint64_t seen = weight * channel(pixel, alphaPlace);
    red += seen * channel(pixel, 2 * bits);
    green += seen * channel(pixel, bits);
    blue += seen * channel(pixel, 0);
    opacity += seen;
  }

  [[nodiscard]] std::uint32_t pixel(std::uint64_t weight) const {
    if (opacity == 0) {
      return 0;
    }
    const auto average = [](std::uint64_t sum, std::uint64_t weights) {
      return static_cast<std::uint32_t>((sum + weights / 2) / weights);
    };
    return average(opacity, weight) << alphaPlace | average(red, opacity) << 2 * bits |
           average(green, opacity) << bits | average(blue, opacity);
  }
};

}  // namespace

platform::Picture scaledDown(const platform::Picture& picture, int side) {
  if (picture.size.width == side) {
    return picture;
  }
  const auto stored = static_cast<std::size_t>(picture.size.width);
  const auto wanted = static_cast<std::size_t>(side);
  std::vector<std::vector<Share>> shares;
  for (std::size_t place = 0; place < wanted; ++place) {
    shares.push_back(sharesOf(place, stored, wanted));
  }
  platform::Picture result{.size = {side, side}, .pixels = {}};
  result.pixels.reserve(wanted * wanted);
  for (const auto& rows : shares) {
    for (const auto& columns : shares) {
      Sums sums;
      for (const Share& row : rows) {
        for (const Share& column : columns) {
          sums.add(picture.pixels[row.from * stored + column.from], row.weight * column.weight);
        }
      }
      result.pixels.push_back(sums.pixel(stored * stored));
    }
  }
  return result;
}

}  // namespace icons
