#include "icons/drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/geometry_printing.h"

namespace {

using icons::painted;
using platform::Picture;
using platform::Size;

constexpr std::uint32_t nothing = 0U;
constexpr std::uint32_t full = 0xFFFF0000U;
constexpr std::uint32_t other = 0xFF0000FFU;

/// A drawing with a room of 4 by 4.
Picture paintedInFour(const std::string& statements, Size size = {4, 4}) {
  const auto picture = painted("size 4 4\n" + statements, size);
  EXPECT_TRUE(picture) << statements;
  return picture.value_or(Picture{});
}

/// The colour of one pixel of it.
std::uint32_t pixelAt(const Picture& picture, int column, int row) {
  const std::size_t place = static_cast<std::size_t>(row) * picture.size.width + column;
  return place < picture.pixels.size() ? picture.pixels[place] : 0x12345678U;
}

int alphaAt(const Picture& picture, int column, int row) {
  return static_cast<int>(pixelAt(picture, column, row) >> 24U);
}

/// The painted area in pixels.
double areaOf(const Picture& picture) {
  double sum = 0;
  for (const std::uint32_t pixel : picture.pixels) {
    sum += static_cast<double>(pixel >> 24U) / 255;
  }
  return sum;
}

TEST(Drawing, WithoutShapesIsTransparent) {
  EXPECT_EQ(paintedInFour("", {2, 3}), (Picture{{2, 3}, std::vector<std::uint32_t>(6, nothing)}));
  EXPECT_EQ(painted("size 4 4", {1, 1}), (Picture{{1, 1}, {nothing}})) << "no end of line";
}

TEST(Drawing, AShapeOnWholePixelsFillsThem) {
  const Picture picture = paintedInFour("fill FF0000 m 1 1 l 3 1 l 3 2 l 1 2\n");
  EXPECT_EQ(picture, (Picture{{4, 4},
                              {nothing, nothing, nothing, nothing,  //
                               nothing, full, full, nothing,        //
                               nothing, nothing, nothing, nothing,  //
                               nothing, nothing, nothing, nothing}}));
}

TEST(Drawing, TheOrderOfTheCornersMakesNoDifference) {
  EXPECT_EQ(paintedInFour("fill FF0000 m 1 1 l 3 1 l 3 2 l 1 2\n"),
            paintedInFour("fill FF0000 m 1 2 l 3 2 l 3 1 l 1 1\n"));
}

TEST(Drawing, IsAsLargeAsItIsWanted) {
  EXPECT_EQ(paintedInFour("fill FF0000 m 0 0 l 4 0 l 4 2 l 0 2\n", {1, 2}),
            (Picture{{1, 2}, {full, nothing}}));
  EXPECT_EQ(paintedInFour("fill FF0000 m 2 0 l 4 0 l 4 4 l 2 4\n", {2, 1}),
            (Picture{{2, 1}, {nothing, full}}));
}

TEST(Drawing, APixelThatIsPartlyCoveredIsTransparentInPart) {
  // Three quarters of the width and half of the height.
  const Picture picture = paintedInFour("fill FF0000 m 0 0 l 3 0 l 3 2 l 0 2\n", {1, 1});
  EXPECT_EQ(picture.pixels.front(), 0x60FF0000U);
}

TEST(Drawing, ALaterShapeLiesOverAnEarlierOne) {
  const Picture picture = paintedInFour(
      "fill FF0000 m 0 0 l 4 0 l 4 4 l 0 4\n"
      "fill 0000FF m 0 0 l 4 0 l 4 1 l 0 1\n",
      {1, 4});
  EXPECT_EQ(picture, (Picture{{1, 4}, {other, full, full, full}}));
}

TEST(Drawing, ColoursMixWhereAShapeCoversAPart) {
  const std::string half = "fill 0000FF m 0 0 l 2 0 l 2 4 l 0 4\n";
  EXPECT_EQ(paintedInFour("fill FF0000 m 0 0 l 4 0 l 4 4 l 0 4\n" + half, {1, 1}).pixels.front(),
            0xFF800080U)
      << "half of each";
  // Of a pixel that is half red, a blue half leaves a quarter of red and a quarter free.
  EXPECT_EQ(paintedInFour("fill FF0000 m 0 0 l 2 0 l 2 4 l 0 4\n" + half, {1, 1}).pixels.front(),
            0xC05500AAU);
}

TEST(Drawing, ASlopeCoversWhatIsBelowIt) {
  // A right angle above the diagonal: each pixel on it is half covered.
  const Picture picture = paintedInFour("fill FF0000 m 0 0 l 4 0 l 4 4\n");
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      EXPECT_EQ(alphaAt(picture, i, j), i == j ? 128 : i > j ? 255 : 0) << i << ", " << j;
    }
  }
}

TEST(Drawing, AFlatSlopeIsSharedByThePixelsOfARow) {
  const Picture picture = paintedInFour("fill FF0000 m 0 4 l 4 0 l 4 4\n", {4, 1});
  EXPECT_EQ(alphaAt(picture, 0, 0), 32);
  EXPECT_EQ(alphaAt(picture, 1, 0), 96);
  EXPECT_EQ(alphaAt(picture, 2, 0), 159);
  EXPECT_EQ(alphaAt(picture, 3, 0), 223);
}

TEST(Drawing, OutlinesInOppositeDirectionsLeaveAHole) {
  const Picture picture =
      paintedInFour("fill FF0000 m 0 0 l 4 0 l 4 4 l 0 4 m 1 1 l 1 3 l 3 3 l 3 1\n");
  EXPECT_DOUBLE_EQ(areaOf(picture), 12);
  EXPECT_EQ(pixelAt(picture, 1, 1), nothing);
  EXPECT_EQ(pixelAt(picture, 2, 2), nothing);
  EXPECT_EQ(pixelAt(picture, 3, 2), full);
}

TEST(Drawing, TwoOutlinesInOneDirectionCoverTheirCommonPartOnce) {
  const Picture picture =
      paintedInFour("fill FF0000 m 0 0 l 3 0 l 3 4 l 0 4 m 1 0 l 4 0 l 4 4 l 1 4\n");
  EXPECT_EQ(picture, (Picture{{4, 4}, std::vector<std::uint32_t>(16, full)}));
}

TEST(Drawing, ACircleHasItsArea) {
  constexpr double pi = 3.14159265;
  const std::string circle =
      "size 2000 2000\nfill FF0000 m 2000 1000 c 2000 1552 1552 2000 1000 2000 c 448 2000 0 1552 0 "
      "1000 c 0 448 448 0 1000 0 c 1552 0 2000 448 2000 1000\n";
  for (const int side : {16, 100, 333}) {
    const auto picture = painted(circle, {side, side});
    ASSERT_TRUE(picture);
    const double radius = side / 2.0;
    EXPECT_NEAR(areaOf(*picture) / (pi * radius * radius), 1, 0.004) << side;
    // No edge of the lines that replace the curve is visible.
    for (int row = 0; row < side; ++row) {
      for (int column = 0; column < side; ++column) {
        const double distance = std::hypot(column + 0.5 - radius, row + 0.5 - radius);
        const double covered = std::min(std::max(radius - distance + 0.5, 0.0), 1.0);
        EXPECT_NEAR(alphaAt(*picture, column, row) / 255.0, covered, 0.25)
            << column << ", " << row << " of " << side;
      }
    }
  }
}

TEST(Drawing, OnlyTheInsideOfAClipIsPainted) {
  const std::string whole = "fill FF0000 m 0 0 l 4 0 l 4 4 l 0 4\n";
  const Picture picture = paintedInFour("clip m 0 0 l 2 0 l 2 4 l 0 4\n" + whole +
                                        "unclip\nfill 0000FF m 2 3 l 4 3 l 4 4 l 2 4\n");
  EXPECT_EQ(picture, (Picture{{4, 4},
                              {full, full, nothing, nothing,  //
                               full, full, nothing, nothing,  //
                               full, full, nothing, nothing,  //
                               full, full, other, other}}));
  EXPECT_EQ(paintedInFour("clip m 0 0 l 2 0 l 2 4 l 0 4\n" + whole, {1, 1}).pixels.front(),
            0x80FF0000U);
}

TEST(Drawing, ANewClipTakesThePlaceOfTheFormer) {
  const Picture picture = paintedInFour(
      "clip m 0 0 l 2 0 l 2 4 l 0 4\nclip m 2 0 l 4 0 l 4 4 l 2 4\n"
      "fill FF0000 m 0 0 l 4 0 l 4 4 l 0 4\n",
      {2, 1});
  EXPECT_EQ(picture, (Picture{{2, 1}, {nothing, full}}));
}

TEST(Drawing, WhatIsOutsideItsRoomIsNotPainted) {
  const Picture all{{4, 4}, std::vector<std::uint32_t>(16, full)};
  EXPECT_EQ(paintedInFour("fill FF0000 m -4 -4 l 8 -4 l 8 8 l -4 8\n"), all);
  EXPECT_EQ(paintedInFour("fill FF0000 m -2 1 l 6 1 l 6 3 l -2 3\n", {4, 2}),
            paintedInFour("fill FF0000 m 0 1 l 4 1 l 4 3 l 0 3\n", {4, 2}));
  for (const char* const beside : {"m -3 0 l -1 0 l -1 4 l -3 4", "m 5 0 l 7 0 l 7 4 l 5 4",
                                   "m 0 -3 l 4 -3 l 4 -1 l 0 -1", "m 0 5 l 4 5 l 4 7 l 0 7"}) {
    EXPECT_DOUBLE_EQ(areaOf(paintedInFour(std::string("fill FF0000 ") + beside + "\n")), 0)
        << beside;
  }
  // A slope from outside to outside.
  const Picture slope = paintedInFour("fill FF0000 m -4 8 l 8 -4 l 8 8\n");
  EXPECT_EQ(alphaAt(slope, 0, 3), 128);
  EXPECT_EQ(alphaAt(slope, 3, 0), 128);
  EXPECT_EQ(alphaAt(slope, 0, 2), 0);
  EXPECT_EQ(alphaAt(slope, 1, 3), 255);
}

TEST(Drawing, OnePaintingLeavesNothingForTheNextShape) {
  const Picture picture = paintedInFour(
      "fill FF0000 m 0 0 l 4 0 l 4 4 l 0 4\nfill 0000FF m 1 1 l 2 1 l 2 2 l 1 2\n"
      "fill 0000FF m 3 0 l 4 0 l 4 4\n");
  EXPECT_EQ(pixelAt(picture, 1, 1), other);
  EXPECT_EQ(pixelAt(picture, 2, 1), full);
  EXPECT_EQ(pixelAt(picture, 1, 2), full);
}

TEST(Drawing, AShapeWithoutAnInsidePaintsNothing) {
  for (const char* const path : {"", " m 1 1", " m 1 1 l 3 3", " m 1 1 l 3 1 l 2 1"}) {
    EXPECT_DOUBLE_EQ(areaOf(paintedInFour(std::string("fill FF0000") + path + "\n")), 0) << path;
  }
}

class MalformedDrawing : public ::testing::TestWithParam<const char*> {};

TEST_P(MalformedDrawing, IsNoPicture) { EXPECT_FALSE(painted(GetParam(), {4, 4})); }

INSTANTIATE_TEST_SUITE_P(
    Of, MalformedDrawing,
    ::testing::Values(
        "", "\n", "room 4 4\n", "size\n", "size 4\n", "size 4 x\n", "size 4x 4\n", "size 0 4\n",
        "size 4 0\n", "size -4 4\n", "size 4 -4\n", "size 4 99999999999\n", "size 4 4\n\n",
        "size 4 4\nsize 4 4\n", "size 4 4\nfill\n", "size 4 4\nfill red m 0 0\n",
        "size 4 4\nfill FF0000 0 0\n", "size 4 4\nfill FF0000 m\n", "size 4 4\nfill FF0000 m 0\n",
        "size 4 4\nfill FF0000 m 0 0 l 1\n", "size 4 4\nfill FF0000 l 0 0\n",
        "size 4 4\nfill FF0000 m 0 0 q 1 1 1 1 1 1\n", "size 4 4\nfill FF0000 m 0 0 c 1 1 1 1 1\n",
        "size 4 4\nfill FF0000 m 0 0 c 1 1 1 1\n", "size 4 4\nfill FF0000 m 0 9\n",
        "size 4 4\nfill FF0000 m 9 0\n", "size 4 4\nfill FF0000 m -5 0\n",
        "size 4 4\nfill FF0000 m 0 -5\n", "size 4 4\nclip l 0 0\n", "size 4 4\nhide m 0 0\n",
        "size 4 4\nfill FF0000 m 0 0.5\n"));

TEST(Drawing, WithoutRoomInPixelsIsNoPicture) {
  EXPECT_FALSE(painted("size 4 4\n", {0, 4}));
  EXPECT_FALSE(painted("size 4 4\n", {4, 0}));
  EXPECT_FALSE(painted("size 4 4\n", {-4, 4}));
}

}  // namespace
