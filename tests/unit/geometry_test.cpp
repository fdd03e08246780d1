#include "platform/geometry.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(Geometry, LengthsAreUnchangedAtTheDesignsDensity) {
  for (const int length : {0, 1, 7, 640}) {
    EXPECT_EQ(scaled(length, 96), length);
  }
}

TEST(Geometry, LengthsScaleToTheNearestPixel) {
  EXPECT_EQ(scaled(10, 144), 15);
  EXPECT_EQ(scaled(16, 192), 32);
  EXPECT_EQ(scaled(1, 120), 1);  // 1.25
  EXPECT_EQ(scaled(2, 120), 3);  // 2.5
  EXPECT_EQ(scaled(3, 120), 4);  // 3.75
  EXPECT_EQ(scaled(1, 144), 2);  // 1.5
}

TEST(Geometry, FifteenTwipsMakeAPixelOfTheDesign) {
  EXPECT_EQ(twipsToPixels(0, 96), 0);
  EXPECT_EQ(twipsToPixels(15, 96), 1);
  EXPECT_EQ(twipsToPixels(1440, 96), 96);
  EXPECT_EQ(twipsToPixels(1440, 144), 144);
  EXPECT_EQ(twipsToPixels(7, 96), 0);
  EXPECT_EQ(twipsToPixels(8, 96), 1);
}

TEST(Geometry, TheFarEdgesOfARectangleFollowFromItsSize) {
  const Rect rect{10, 20, 30, 40};
  EXPECT_EQ(rect.right(), 40);
  EXPECT_EQ(rect.bottom(), 60);
}

TEST(Geometry, RectanglesAndSizesCompareByAllTheirParts) {
  EXPECT_EQ((Rect{1, 2, 3, 4}), (Rect{1, 2, 3, 4}));
  EXPECT_NE((Rect{1, 2, 3, 4}), (Rect{0, 2, 3, 4}));
  EXPECT_NE((Rect{1, 2, 3, 4}), (Rect{1, 0, 3, 4}));
  EXPECT_NE((Rect{1, 2, 3, 4}), (Rect{1, 2, 0, 4}));
  EXPECT_NE((Rect{1, 2, 3, 4}), (Rect{1, 2, 3, 0}));
  EXPECT_NE((Size{1, 2}), (Size{1, 3}));
  EXPECT_NE((Size{1, 2}), (Size{2, 2}));
}

}  // namespace
}  // namespace platform
