#include "platform/geometry.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/geometry_printing.h"
#include "unit/support/error_number.h"

namespace platform {
namespace {

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

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

TEST(Geometry, CoordinatesReachToTheEndsOfTheirRange) {
  EXPECT_EQ(coordinate(most), most);
  EXPECT_EQ(coordinate(least), least);
  EXPECT_EQ(sum(most - 1, 1), most);
  EXPECT_EQ(sum(least + 1, -1), least);
  EXPECT_EQ((Rect{1, 2, most - 1, most - 2}.right()), most);
  EXPECT_EQ((Rect{1, 2, most - 1, most - 2}.bottom()), most);
  EXPECT_EQ(inset({most - 1, most - 1, most, most}, 1), (Rect{most, most, most - 2, most - 2}));
  EXPECT_EQ(scaled(most, designDpi), most);
  EXPECT_EQ(scaled(most / 2, 2 * designDpi), most - 1);
  EXPECT_EQ(twipsToPixels(most, twipsPerInch), most);
}

TEST(Geometry, ACoordinateBeyondThemIsAnOverflow) {
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(coordinate(std::int64_t{most} + 1)); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(coordinate(std::int64_t{least} - 1)); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(sum(most, 1)); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(sum(least, -1)); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(Rect{2, 0, most - 1, 0}.right()); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(Rect{0, 2, 0, most - 1}.bottom()); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(inset({most, 0, 9, 9}, 1)); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(inset({0, most, 9, 9}, 1)); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(inset({0, 0, most, 9}, -1)); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(scaled(most, designDpi + 1)); }), 6);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(twipsToPixels(most, twipsPerInch + 1)); }), 6);
}

TEST(Geometry, AMarginIsTakenOffEverySide) {
  EXPECT_EQ(inset({10, 20, 30, 40}, 3), (Rect{13, 23, 24, 34}));
  EXPECT_EQ(inset({10, 20, 7, 6}, 3), (Rect{13, 23, 1, 0}));
  EXPECT_EQ(inset({10, 20, 5, 0}, 3), (Rect{13, 23, 0, 0}));
  EXPECT_EQ(inset({0, 0, least, least}, 3), (Rect{3, 3, 0, 0}));
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
