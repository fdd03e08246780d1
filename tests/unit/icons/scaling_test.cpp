#include "icons/scaling.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/geometry_printing.h"

namespace {

using icons::scaledDown;
using platform::Picture;
using Pixels = std::vector<std::uint32_t>;

constexpr std::uint32_t black = 0xFF000000U;
constexpr std::uint32_t white = 0xFFFFFFFFU;
constexpr std::uint32_t clear = 0U;

TEST(ScaledDown, AtItsOwnSizeKeepsEveryPixel) {
  const Picture picture{{2, 2}, {0x80112233U, clear, 0x00FFFFFFU, white}};
  EXPECT_EQ(scaledDown(picture, 2), picture);
}

TEST(ScaledDown, APixelIsTheAverageOfThoseThatItStandsFor) {
  const Picture picture{{2, 2}, {0xFF102030U, 0xFF304050U, 0xFF506070U, 0xFF708090U}};
  EXPECT_EQ(scaledDown(picture, 1), (Picture{{1, 1}, {0xFF405060U}}));
}

TEST(ScaledDown, KeepsTheOrderOfRowsAndColumns) {
  Picture picture{{4, 4}, {}};
  for (const std::uint32_t upper : {0xFF110000U, 0xFF330000U}) {
    for (int row = 0; row < 2; ++row) {
      for (const std::uint32_t pixel : {upper, upper, upper + 0x22U, upper + 0x22U}) {
        picture.pixels.push_back(pixel);
      }
    }
  }
  EXPECT_EQ(scaledDown(picture, 2),
            (Picture{{2, 2}, {0xFF110000U, 0xFF110022U, 0xFF330000U, 0xFF330022U}}));
}

TEST(ScaledDown, APixelUnderTwoIsSharedBetweenThem) {
  // Three columns become two, so each half of the middle one belongs to one of them.
  Picture picture{{3, 3}, {}};
  for (int row = 0; row < 3; ++row) {
    picture.pixels.insert(picture.pixels.end(), {black, black, white});
  }
  const std::uint32_t third = 0xFFAAAAAAU;  // two thirds white
  EXPECT_EQ(scaledDown(picture, 2), (Picture{{2, 2}, {black, third, black, third}}));
}

TEST(ScaledDown, TheColourOfAClearPixelDoesNotCount) {
  const Picture picture{{2, 2}, {0xFF00FF00U, 0x00FF0000U, 0x000000FFU, 0xFF00FF00U}};
  EXPECT_EQ(scaledDown(picture, 1), (Picture{{1, 1}, {0x8000FF00U}}));
}

TEST(ScaledDown, WhatIsClearStaysClear) {
  EXPECT_EQ(scaledDown({{3, 3}, Pixels(9, 0x00ABCDEFU)}, 2), (Picture{{2, 2}, Pixels(4, clear)}));
}

TEST(ScaledDown, OneColourKeepsItAtEverySize) {
  constexpr int largest = 64;
  const Picture picture{{largest, largest}, Pixels(std::size_t{largest} * largest, 0x7F3579BDU)};
  for (int side = 1; side <= largest; ++side) {
    const auto pixels = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    EXPECT_EQ(scaledDown(picture, side), (Picture{{side, side}, Pixels(pixels, 0x7F3579BDU)}));
  }
}

}  // namespace
