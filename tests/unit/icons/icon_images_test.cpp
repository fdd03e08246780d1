#include "icons/icon_images.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/geometry_printing.h"
#include "support/icon_program.h"

namespace {

using icon_program::bitmapHead;
using icon_program::directory;
using icon_program::doubleWord;
using icon_program::plainImage;
using icon_program::program;
using icon_program::Resource;
using icons::completeTransparency;
using icons::imageOfSize;
using icons::unpackedIcons;
using icons::unpackedImage;
using platform::Picture;
using platform::pictures::Sizes;
using Pixels = std::vector<std::uint32_t>;

constexpr std::uint32_t imageType = 3;
constexpr std::uint32_t directoryType = 14;
constexpr std::uint32_t green = 0xFF00FF00U;
constexpr std::uint32_t red = 0x80FF0000U;

auto readerOf(const std::string& bytes) {
  return [&bytes](std::uint64_t place, std::size_t size) {
    return place >= bytes.size() ? std::string() : bytes.substr(place, size);
  };
}

/// Two images of an icon that is drawn for 8 and for 4 pixels.
std::vector<Resource> twoSizes() {
  return {{imageType, 1, plainImage(8, green)},
          {imageType, 2, plainImage(4, red)},
          {directoryType, 1, directory({{8, 32, 1}, {4, 32, 2}})}};
}

TEST(ImageOfSize, TakesTheOneWithTheMostColours) {
  const std::string bytes = directory({{16, 4, 1}, {16, 32, 2}, {16, 8, 3}, {32, 32, 4}});
  EXPECT_EQ(imageOfSize(bytes, 16), 2);
  EXPECT_EQ(imageOfSize(bytes, 32), 4);
  EXPECT_EQ(imageOfSize(bytes, 24), std::nullopt);
}

TEST(ImageOfSize, OfEqualPicturesTheFirstWins) {
  EXPECT_EQ(imageOfSize(directory({{16, 32, 1}, {16, 32, 2}}), 16), 1);
  EXPECT_EQ(imageOfSize(directory({{16, 8, 5}, {16, 32, 4}, {16, 32, 3}, {16, 0, 2}}), 16), 4);
  EXPECT_EQ(imageOfSize(directory({{16, 0, 7}, {16, 0, 8}}), 16), 7);
}

TEST(ImageOfSize, OfADamagedDirectoryIsNothing) {
  const std::string bytes = directory({{16, 32, 1}, {32, 32, 2}});
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_EQ(imageOfSize(std::string_view(bytes).substr(0, size), 32), std::nullopt) << size;
  }
  EXPECT_EQ(imageOfSize("\1" + bytes.substr(1), 32), std::nullopt) << "Not an icon's";
}

TEST(UnpackedImage, With32BitsKeepsItsTransparency) {
  // Rows are stored from the lowest one up.
  const std::string image = bitmapHead(2, 32) + doubleWord(1) + doubleWord(2) +
                            doubleWord(0x80000003U) + doubleWord(green) + std::string(8, '\xFF');
  EXPECT_EQ(unpackedImage(image), (Picture{{2, 2}, {0x80000003U, green, 1, 2}}));
}

TEST(CompleteTransparency, WithoutTransparencyTheMaskCountsAndAPixelBeyondItIsLeftOut) {
  Picture picture{{3, 1}, {0x00112233U, 0x00445566U, 0x00778899U}};
  completeTransparency(picture, {false, true});
  EXPECT_EQ(picture.pixels, (Pixels{0xFF112233U, 0U, 0U}));
}

TEST(CompleteTransparency, BeyondAMaskThatIsTooShortEverythingIsLeftOut) {
  // The memory after the end of the mask says "not transparent" for every pixel.
  std::vector<bool> mask(64, false);
  mask.resize(2);
  Picture picture{{4, 1}, {1, 2, 3, 4}};
  completeTransparency(picture, mask);
  EXPECT_EQ(picture.pixels, (Pixels{0xFF000001U, 0xFF000002U, 0U, 0U}));
  Picture another{{2, 1}, {1, 2}};
  completeTransparency(another, {});
  EXPECT_EQ(another.pixels, (Pixels{0U, 0U}));
}

TEST(CompleteTransparency, APictureThatHasItsOwnIsLeftAsItIs) {
  const Pixels pixels{0x80112233U, 0x00445566U};
  Picture picture{{2, 1}, pixels};
  completeTransparency(picture, {true, false});
  EXPECT_EQ(picture.pixels, pixels);
}

TEST(UnpackedImage, Without8BitsOfTransparencyTakesTheMask) {
  const std::string rows = doubleWord(1) + doubleWord(2) + doubleWord(3) + doubleWord(4);
  const std::string mask("\x80\0\0\0\x40\0\0\0", 8);
  EXPECT_EQ(unpackedImage(bitmapHead(2, 32) + rows + mask),
            (Picture{{2, 2}, {0xFF000003U, 0, 0, 0xFF000002U}}));
}

TEST(UnpackedImage, OfFewColoursLooksThemUp) {
  const std::string palette = doubleWord(0x112233) + doubleWord(0x445566);
  const std::string none(8, '\0');
  EXPECT_EQ(
      unpackedImage(bitmapHead(2, 1) + palette + std::string("\x40\0\0\0\x80\0\0\0", 8) + none),
      (Picture{{2, 2}, {0xFF445566U, 0xFF112233U, 0xFF112233U, 0xFF445566U}}));
  EXPECT_EQ(
      unpackedImage(bitmapHead(2, 4, 2) + palette + std::string("\x01\0\0\0\x10\0\0\0", 8) + none),
      (Picture{{2, 2}, {0xFF445566U, 0xFF112233U, 0xFF112233U, 0xFF445566U}}));
  EXPECT_EQ(
      unpackedImage(bitmapHead(2, 8, 2) + palette + std::string("\0\1\0\0\1\0\0\0", 8) + none),
      (Picture{{2, 2}, {0xFF445566U, 0xFF112233U, 0xFF112233U, 0xFF445566U}}));
}

TEST(UnpackedImage, Of24BitsHasNoTransparencyOfItsOwn) {
  const std::string rows = std::string("\x01\x02\x03\x04\x05\x06\0\0", 8) +
                           std::string("\x07\x08\x09\x0A\x0B\x0C\0\0", 8);
  EXPECT_EQ(unpackedImage(bitmapHead(2, 24) + rows + std::string(8, '\0')),
            (Picture{{2, 2}, {0xFF090807U, 0xFF0C0B0AU, 0xFF030201U, 0xFF060504U}}));
}

TEST(UnpackedImage, AnIndexOutsideOfThePaletteIsBlack) {
  const std::string image = bitmapHead(1, 8, 1) + doubleWord(0x112233) +
                            std::string("\5\0\0\0", 4) + std::string(4, '\0');
  EXPECT_EQ(unpackedImage(image), (Picture{{1, 1}, {0xFF000000U}}));
}

TEST(UnpackedImage, OfPackedOrDamagedBytesIsNothing) {
  EXPECT_EQ(unpackedImage("\x89PNG\r\n\x1A\n and so on"), std::nullopt);
  const std::string image = plainImage(4, green);
  ASSERT_TRUE(unpackedImage(image));
  for (std::size_t size = 0; size < image.size(); ++size) {
    EXPECT_EQ(unpackedImage(std::string_view(image).substr(0, size)), std::nullopt) << size;
  }
  EXPECT_EQ(unpackedImage(bitmapHead(0, 32)), std::nullopt);
  EXPECT_EQ(unpackedImage(bitmapHead(257, 32) + std::string(300000, '\0')), std::nullopt);
  EXPECT_EQ(unpackedImage(bitmapHead(2, 16) + std::string(64, '\0')), std::nullopt);
  EXPECT_EQ(unpackedImage(bitmapHead(2, 4, 17) + std::string(200, '\0')), std::nullopt);
}

TEST(UnpackedIcons, AreTheFirstIconInBothSizes) {
  for (const bool wide : {true, false}) {
    const std::string file = program(twoSizes(), wide);
    const auto icons = unpackedIcons(readerOf(file), Sizes{8, 4});
    ASSERT_TRUE(icons) << wide;
    EXPECT_EQ(icons->front(), (Picture{{8, 8}, Pixels(64, green)}));
    EXPECT_EQ(icons->back(), (Picture{{4, 4}, Pixels(16, red)}));
  }
}

TEST(UnpackedIcons, MissingInOneSizeAreNothing) {
  const std::string file = program(twoSizes());
  EXPECT_FALSE(unpackedIcons(readerOf(file), Sizes{8, 16}));
  EXPECT_FALSE(unpackedIcons(readerOf(file), Sizes{16, 4}));
}

TEST(UnpackedIcons, InSeveralLanguagesAreTheSystemsBusiness) {
  std::vector<Resource> resources = twoSizes();
  resources.back().languages = 2;
  const std::string file = program(resources);
  EXPECT_FALSE(unpackedIcons(readerOf(file), Sizes{8, 4}));
}

TEST(UnpackedIcons, OfWhatIsNoProgramAreNothing) {
  const std::vector<std::string> files{"",
                                       "MZ",
                                       std::string(5000, '\xFF'),
                                       program({}),
                                       program({{imageType, 1, plainImage(8, green)}}),
                                       program({{directoryType, 1, directory({{8, 32, 1}})}})};
  for (const std::string& file : files) {
    EXPECT_FALSE(unpackedIcons(readerOf(file), Sizes{8, 8})) << file.size();
  }
}

TEST(UnpackedIcons, OfAProgramWithASpoiltMarkAreNothing) {
  const std::string file = program(twoSizes());
  const std::size_t mark = file.find(std::string("PE\0\0", 4));
  ASSERT_NE(mark, std::string::npos);
  for (std::size_t i = 0; i < 4; ++i) {
    std::string spoilt = file;
    spoilt[mark + i] = static_cast<char>(spoilt[mark + i] ^ 1);
    EXPECT_FALSE(unpackedIcons(readerOf(spoilt), Sizes{8, 4})) << i;
  }
}

TEST(UnpackedIcons, OfAnyTruncatedProgramAreNothing) {
  const std::string file = program(twoSizes());
  for (std::size_t size = 0; size < file.size(); ++size) {
    const std::string part = file.substr(0, size);
    EXPECT_FALSE(unpackedIcons(readerOf(part), Sizes{8, 4})) << size;
  }
}

TEST(UnpackedIcons, OfAnyDamagedProgramAreWholeOrNothing) {
  const std::string file = program(twoSizes());
  for (std::size_t place = 0; place < file.size(); ++place) {
    std::string damaged = file;
    damaged[place] = static_cast<char>(damaged[place] ^ '\xFF');
    if (const auto icons = unpackedIcons(readerOf(damaged), Sizes{8, 4})) {
      EXPECT_EQ(icons->front().pixels.size(), 64U) << place;
      EXPECT_EQ(icons->back().pixels.size(), 16U) << place;
    }
  }
}

}  // namespace
