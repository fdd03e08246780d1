// A picture is shown as it was drawn for the size, or made smaller; it is never stretched up to
// 400 %.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstddef>
#include <cstdlib>
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
using platform::win32::Icon;
using platform::win32::loadIcon;
using platform::win32::loadPicture;
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

/// The average difference of the channels of two pictures of one size.
double difference(const Picture& first, const Picture& second) {
  constexpr int channels = 4;
  long long sum = 0;
  for (std::size_t i = 0; i < first.pixels.size(); ++i) {
    for (unsigned place = 0; place < channels * 8; place += 8) {
      sum += std::abs(static_cast<int>(first.pixels[i] >> place & 0xFFU) -
                      static_cast<int>(second.pixels[i] >> place & 0xFFU));
    }
  }
  return static_cast<double>(sum) / (channels * static_cast<double>(first.pixels.size()));
}

Size sizeOf(const BitmapHandle& bitmap) {
  BITMAP facts{};
  GetObjectW(bitmap.get(), sizeof facts, &facts);
  return {static_cast<int>(facts.bmWidth), static_cast<int>(facts.bmHeight)};
}

/// One row of a bitmap.
std::vector<COLORREF> rowOf(const BitmapHandle& bitmap, int row) {
  const platform::win32::MemoryDc memory(CreateCompatibleDC(nullptr));
  const platform::win32::Selection selected(memory.get(), bitmap.get());
  std::vector<COLORREF> colours;
  for (int column = 0; column < sizeOf(bitmap).width; ++column) {
    colours.push_back(GetPixel(memory.get(), column, row));
  }
  return colours;
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

TEST(OwnIcon, TooLargeForAnIconIsPutTogetherFromItsQuarters) {
  for (const int side : {288, 384}) {
    const auto whole = storedPicture(L"ABOUT", side);
    ASSERT_TRUE(whole) << side;
    ASSERT_EQ(whole->size, (Size{side, side}));
    const int half = side / 2;
    for (int quarter = 0; quarter < 4; ++quarter) {
      const auto part = loaded((L"ABOUT_" + std::to_wstring(quarter + 1)).c_str(), half);
      ASSERT_TRUE(part);
      Picture cut{{half, half}, {}};
      for (int row = 0; row < half; ++row) {
        const std::ptrdiff_t line = quarter / 2 * half + row;
        const auto from = whole->pixels.begin() + line * side + (quarter % 2 == 0 ? 0 : half);
        cut.pixels.insert(cut.pixels.end(), from, from + half);
      }
      EXPECT_EQ(cut, *part) << quarter;
    }
    // The same drawing: every quarter is at its place.
    const auto small = storedPicture(L"ABOUT", 96);
    ASSERT_TRUE(small);
    EXPECT_LT(difference(scaledDown(*whole, 96), *small), 2.0);
    const auto icon = pictureFromIcon(loadIcon(L"ABOUT", {side, side}).get());
    ASSERT_TRUE(icon);
    EXPECT_EQ(*icon, *whole);
  }
}

TEST(OwnIcon, BetweenIconAndQuartersIsMadeFromTheQuarters) {
  const auto picture = storedPicture(L"ABOUT", 264);
  const auto whole = storedPicture(L"ABOUT", 288);
  ASSERT_TRUE(picture && whole);
  EXPECT_EQ(*picture, scaledDown(*whole, 264));
}

TEST(SplashPicture, At400PercentIsShownAsItIsStored) {
  const BitmapHandle picture = loadPicture(L"SPLASH", 384, {1920, 1200});
  ASSERT_TRUE(picture);
  EXPECT_EQ(sizeOf(picture), (Size{1920, 1200}));
  const BitmapHandle stored(static_cast<HBITMAP>(
      LoadImageW(GetModuleHandleW(nullptr), L"SPLASH_400", IMAGE_BITMAP, 0, 0, 0)));
  ASSERT_TRUE(stored);
  for (const int row : {300, 600, 900}) {
    EXPECT_EQ(rowOf(picture, row), rowOf(stored, row)) << row;
  }
}

TEST(SplashPicture, BetweenTwoDensitiesIsMadeFromTheLargerOne) {
  // The picture for 200 % is missing here, and would give nothing.
  const BitmapHandle picture = loadPicture(L"SPLASH", 216, {1080, 675});
  ASSERT_TRUE(picture);
  EXPECT_EQ(sizeOf(picture), (Size{1080, 675}));
  EXPECT_EQ(sizeOf(loadPicture(L"SPLASH", 336, {1680, 1050})), (Size{1680, 1050}));
  EXPECT_FALSE(loadPicture(L"SPLASH", 192, {960, 600})) << "no other density is taken";
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
