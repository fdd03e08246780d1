// An icon is shown as it was drawn for the size, or made smaller; it is never stretched up to 400
// %. A drawing is painted for the size.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "harness/paths.h"
#include "icons/scaling.h"
#include "platform/pictures.h"
#include "platform/win32/pictures/icon_pictures.h"
#include "platform/win32/pictures/image_resources.h"

namespace {

using icons::scaledDown;
using platform::Picture;
using platform::Size;
using platform::win32::BitmapHandle;
using platform::win32::drawnPicture;
using platform::win32::Icon;
using platform::win32::loadDrawing;
using platform::win32::loadDrawingWithHoles;
using platform::win32::loadIcon;
using platform::win32::pictureFromIcon;
using platform::win32::storedPicture;

/// The picture as the system loads it.
std::optional<Picture> loaded(HMODULE from, const wchar_t* name, int side) {
  const Icon icon(
      static_cast<HICON>(LoadImageW(from, name, IMAGE_ICON, side, side, LR_DEFAULTCOLOR)));
  return pictureFromIcon(icon.get());
}

std::optional<Picture> loaded(const wchar_t* name, int side) {
  return loaded(GetModuleHandleW(nullptr), name, side);
}

Size sizeOf(const BitmapHandle& bitmap) {
  BITMAP facts{};
  GetObjectW(bitmap.get(), sizeof facts, &facts);
  return {static_cast<int>(facts.bmWidth), static_cast<int>(facts.bmHeight)};
}

class OwnIconOfSize : public ::testing::TestWithParam<int> {};

TEST_P(OwnIconOfSize, IsThePictureThatWasDrawnForIt) {
  const auto picture = storedPicture(L"TB_HELP", GetParam());
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->size, (Size{GetParam(), GetParam()}));
  EXPECT_EQ(*picture, loaded(L"TB_HELP", GetParam()));
  EXPECT_EQ(*picture, pictureFromIcon(loadIcon(L"TB_HELP", {GetParam(), GetParam()}).get()));
}

INSTANTIATE_TEST_SUITE_P(Of, OwnIconOfSize, ::testing::Values(24, 30, 36, 42, 48, 60, 72, 96));

TEST(OwnIcon, BetweenTwoSizesIsMadeFromTheLargerOne) {
  for (const auto& [side, larger] : {std::pair{54, 60}, {25, 30}, {84, 96}, {16, 24}}) {
    const auto picture = storedPicture(L"TB_HELP", side);
    const auto drawn = storedPicture(L"TB_HELP", larger);
    ASSERT_TRUE(picture && drawn) << side;
    EXPECT_EQ(*picture, scaledDown(*drawn, side)) << side;
    const auto icon = pictureFromIcon(loadIcon(L"TB_HELP", {side, side}).get());
    ASSERT_TRUE(icon) << side;
    EXPECT_EQ(icon->size, (Size{side, side}));
    EXPECT_EQ(*icon, *picture) << side;
  }
}

TEST(OwnIcon, BeyondTheLargestIsTheSystemsBusiness) {
  EXPECT_FALSE(storedPicture(L"TB_HELP", 97));
  const auto icon = pictureFromIcon(loadIcon(L"TB_HELP", {120, 120}).get());
  ASSERT_TRUE(icon);
  EXPECT_EQ(icon->size, (Size{120, 120}));
}

TEST(OwnIcon, WithoutAResourceIsNothing) {
  EXPECT_FALSE(storedPicture(L"NO_SUCH_ICON", 16));
  EXPECT_FALSE(loadIcon(L"NO_SUCH_ICON", {16, 16}));
}

TEST(OwnDrawing, FillsABitmapOfAnySize) {
  const BitmapHandle bitmap = loadDrawing(L"SPLASH", {481, 299});
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(sizeOf(bitmap), (Size{481, 299}));
  const auto picture = drawnPicture(L"SPLASH", {481, 299});
  ASSERT_TRUE(picture);
  const platform::win32::MemoryDc memory(CreateCompatibleDC(nullptr));
  const platform::win32::Selection selected(memory.get(), bitmap.get());
  for (int row = 0; row < 299; row += 23) {
    for (int column = 0; column < 481; column += 16) {
      const COLORREF shown = GetPixel(memory.get(), column, row);
      const std::uint32_t painted = 0xFF000000U | std::uint32_t{GetRValue(shown)} << 16U |
                                    std::uint32_t{GetGValue(shown)} << 8U | GetBValue(shown);
      ASSERT_EQ(painted, picture->pixels[static_cast<std::size_t>(row) * 481 + column])
          << column << ", " << row;
    }
  }
}

TEST(OwnDrawing, AsAnIconKeepsItsHoles) {
  for (const int side : {96, 250, 384}) {
    const auto picture = pictureFromIcon(loadDrawingWithHoles(L"ABOUT", {side, side}).get());
    ASSERT_TRUE(picture) << side;
    EXPECT_EQ(picture, drawnPicture(L"ABOUT", {side, side})) << side;
    EXPECT_EQ(picture->pixels.front(), 0U) << "beside the arch at " << side;
  }
}

class OwnDrawingAtScale : public ::testing::TestWithParam<int> {};

TEST_P(OwnDrawingAtScale, TheSplashPictureHasNoHole) {
  const auto picture = drawnPicture(L"SPLASH", {480 * GetParam() / 100, 300 * GetParam() / 100});
  ASSERT_TRUE(picture);
  EXPECT_TRUE(std::ranges::all_of(picture->pixels,
                                  [](std::uint32_t pixel) { return pixel >> 24U == 255; }));
  // Paper behind the name, dark ground behind the copyright line.
  EXPECT_EQ(picture->pixels.front(), 0xFFF5EFDDU);
  EXPECT_EQ(picture->pixels.back(), 0xFF1E4632U);
}

TEST_P(OwnDrawingAtScale, TheGateOfTheAboutBoxStandsFree) {
  const int side = 96 * GetParam() / 100;
  const auto picture = drawnPicture(L"ABOUT", {side, side});
  ASSERT_TRUE(picture);
  const auto middle = static_cast<std::size_t>(side) * (side / 2);
  EXPECT_EQ(picture->pixels.front(), 0U);
  EXPECT_EQ(picture->pixels[middle], 0U) << "beside the gate";
  EXPECT_EQ(picture->pixels[middle + side / 10], 0xFF2F6B46U) << "its left side";
}

INSTANTIATE_TEST_SUITE_P(Of, OwnDrawingAtScale,
                         ::testing::Values(100, 125, 150, 175, 200, 250, 300, 350, 400));

TEST(OwnDrawing, WithoutAResourceIsNothing) {
  EXPECT_FALSE(drawnPicture(L"NO_SUCH_DRAWING", {16, 16}));
  EXPECT_FALSE(loadDrawing(L"NO_SUCH_DRAWING", {16, 16}));
  EXPECT_FALSE(loadDrawingWithHoles(L"NO_SUCH_DRAWING", {16, 16}));
}

TEST(IconOfAProgram, IsNeverStretchedWhileItHasALargerOne) {
  const std::wstring file = harness::gatewayExecutable();
  HMODULE program = LoadLibraryExW(file.c_str(), nullptr,
                                   LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
  ASSERT_NE(program, nullptr);
  const auto drawn = [&](int side) {
    auto picture = loaded(program, L"AA_PROGRAM", side);
    EXPECT_TRUE(picture) << side;
    return picture.value_or(Picture{});
  };
  const auto exact = platform::pictures::programIcons(file, {128, 64});
  EXPECT_EQ(exact.front(), drawn(128));
  EXPECT_EQ(exact.back(), drawn(64));
  const auto between = platform::pictures::programIcons(file, {112, 26});
  EXPECT_EQ(between.front(), scaledDown(drawn(128), 112));
  EXPECT_EQ(between.back(), scaledDown(drawn(28), 26));
  FreeLibrary(program);
}

}  // namespace
