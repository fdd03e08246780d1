#include "icons/icon_images.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
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
using icons::imageFor;
using icons::storedIcons;
using icons::StoredImage;
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

/// Most files have no packed image.
std::optional<Picture> nonePacked(std::string_view /*image*/, int side) {
  ADD_FAILURE() << "asked to unpack an image of " << side;
  return std::nullopt;
}

TEST(ImageFor, TakesTheOneWithTheMostColours) {
  const std::string bytes = directory({{16, 4, 1}, {16, 32, 2}, {16, 8, 3}, {32, 32, 4}});
  EXPECT_EQ(imageFor(bytes, 16), (StoredImage{2, 16}));
  EXPECT_EQ(imageFor(bytes, 32), (StoredImage{4, 32}));
}

TEST(ImageFor, OfEqualPicturesTheFirstWins) {
  EXPECT_EQ(imageFor(directory({{16, 32, 1}, {16, 32, 2}}), 16), (StoredImage{1, 16}));
  EXPECT_EQ(imageFor(directory({{16, 8, 5}, {16, 32, 4}, {16, 32, 3}, {16, 0, 2}}), 16),
            (StoredImage{4, 16}));
  EXPECT_EQ(imageFor(directory({{16, 0, 7}, {16, 0, 8}}), 16), (StoredImage{7, 16}));
}

TEST(ImageFor, ASizeThatIsMissingTakesTheNextLargerOne) {
  const std::string bytes = directory({{64, 32, 1}, {16, 32, 2}, {32, 4, 3}, {48, 32, 4}});
  EXPECT_EQ(imageFor(bytes, 24), (StoredImage{3, 32})) << "Rather few colours than far too large";
  EXPECT_EQ(imageFor(bytes, 33), (StoredImage{4, 48}));
  EXPECT_EQ(imageFor(bytes, 8), (StoredImage{2, 16}));
}

TEST(ImageFor, ASmallerOneIsNeverStretched) {
  EXPECT_EQ(imageFor(directory({{16, 32, 1}, {48, 32, 2}}), 49), std::nullopt);
}

TEST(ImageFor, TheLargestIconHas256Pixels) {
  const std::string bytes = directory({{48, 32, 1}, {256, 32, 2}});
  EXPECT_EQ(imageFor(bytes, 256), (StoredImage{2, 256}));
  EXPECT_EQ(imageFor(bytes, 64), (StoredImage{2, 256}));
  EXPECT_EQ(imageFor(bytes, 257), std::nullopt);
}

TEST(ImageFor, OfADamagedDirectoryIsNothing) {
  const std::string bytes = directory({{16, 32, 1}, {32, 32, 2}});
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_EQ(imageFor(std::string_view(bytes).substr(0, size), 32), std::nullopt) << size;
  }
  EXPECT_EQ(imageFor("\1" + bytes.substr(1), 32), std::nullopt) << "Not an icon's";
}

TEST(ImageFor, APictureThatIsNotSquareIsPassedOver) {
  std::string bytes = directory({{16, 32, 1}, {32, 32, 2}});
  bytes[7] = 8;  // the height of the first one
  EXPECT_EQ(imageFor(bytes, 16), (StoredImage{2, 32}));
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

TEST(StoredIcons, AreTheFirstIconInBothSizes) {
  for (const bool wide : {true, false}) {
    const std::string file = program(twoSizes(), wide);
    const auto icons = storedIcons(readerOf(file), Sizes{8, 4}, nonePacked);
    ASSERT_TRUE(icons) << wide;
    EXPECT_EQ(icons->front(), (Picture{{8, 8}, Pixels(64, green)}));
    EXPECT_EQ(icons->back(), (Picture{{4, 4}, Pixels(16, red)}));
  }
}

TEST(StoredIcons, WithoutTheWantedSizeAreMadeFromTheNextLargerOne) {
  const std::string file = program(twoSizes());
  const auto icons = storedIcons(readerOf(file), Sizes{6, 3}, nonePacked);
  ASSERT_TRUE(icons);
  EXPECT_EQ(icons->front(), (Picture{{6, 6}, Pixels(36, green)}));
  EXPECT_EQ(icons->back(), (Picture{{3, 3}, Pixels(9, red)}));
}

TEST(StoredIcons, ThatWouldHaveToBeStretchedAreNothing) {
  const std::string file = program(twoSizes());
  EXPECT_FALSE(storedIcons(readerOf(file), Sizes{8, 16}, nonePacked));
  EXPECT_FALSE(storedIcons(readerOf(file), Sizes{16, 4}, nonePacked));
}

TEST(StoredIcons, ThatArePackedAreUnpackedByTheSystem) {
  std::vector<Resource> resources = twoSizes();
  resources.front().bytes = "\x89PNG";
  const std::string file = program(resources);
  const auto icons = storedIcons(readerOf(file), Sizes{5, 4},
                                 [](std::string_view image, int side) -> std::optional<Picture> {
                                   EXPECT_EQ(image, "\x89PNG");
                                   EXPECT_EQ(side, 8);
                                   return Picture{{8, 8}, Pixels(64, green)};
                                 });
  ASSERT_TRUE(icons);
  EXPECT_EQ(icons->front(), (Picture{{5, 5}, Pixels(25, green)}));
  EXPECT_EQ(icons->back(), (Picture{{4, 4}, Pixels(16, red)}));
}

TEST(StoredIcons, ThatTheSystemCannotUnpackAreNothing) {
  std::vector<Resource> resources = twoSizes();
  resources.front().bytes = "\x89PNG";
  const std::string file = program(resources);
  EXPECT_FALSE(
      storedIcons(readerOf(file), Sizes{8, 4}, [](std::string_view, int) { return std::nullopt; }));
  EXPECT_FALSE(storedIcons(readerOf(file), Sizes{8, 4}, [](std::string_view, int) {
    return Picture{{7, 7}, Pixels(49, green)};
  })) << "Not the size that the directory says";
}

TEST(StoredIcons, InSeveralLanguagesAreTheSystemsBusiness) {
  std::vector<Resource> resources = twoSizes();
  resources.back().languages = 2;
  const std::string file = program(resources);
  EXPECT_FALSE(storedIcons(readerOf(file), Sizes{8, 4}, nonePacked));
}

TEST(StoredIcons, OfWhatIsNoProgramAreNothing) {
  const std::vector<std::string> files{"",
                                       "MZ",
                                       std::string(5000, '\xFF'),
                                       program({}),
                                       program({{imageType, 1, plainImage(8, green)}}),
                                       program({{directoryType, 1, directory({{8, 32, 1}})}})};
  for (const std::string& file : files) {
    EXPECT_FALSE(storedIcons(readerOf(file), Sizes{8, 8}, nonePacked)) << file.size();
  }
}

TEST(StoredIcons, OfAProgramWithASpoiltMarkAreNothing) {
  const std::string file = program(twoSizes());
  const std::size_t mark = file.find(std::string("PE\0\0", 4));
  ASSERT_NE(mark, std::string::npos);
  for (std::size_t i = 0; i < 4; ++i) {
    std::string spoilt = file;
    spoilt[mark + i] = static_cast<char>(spoilt[mark + i] ^ 1);
    EXPECT_FALSE(storedIcons(readerOf(spoilt), Sizes{8, 4}, nonePacked)) << i;
  }
}

TEST(StoredIcons, OfAnyTruncatedProgramAreNothing) {
  const std::string file = program(twoSizes());
  for (std::size_t size = 0; size < file.size(); ++size) {
    const std::string part = file.substr(0, size);
    EXPECT_FALSE(storedIcons(readerOf(part), Sizes{8, 4}, nonePacked)) << size;
  }
}

TEST(StoredIcons, OfAnyDamagedProgramAreWholeOrNothing) {
  const std::string file = program(twoSizes());
  for (std::size_t place = 0; place < file.size(); ++place) {
    std::string damaged = file;
    damaged[place] = static_cast<char>(damaged[place] ^ '\xFF');
    const auto refused = [](std::string_view, int) { return std::nullopt; };
    if (const auto icons = storedIcons(readerOf(damaged), Sizes{8, 4}, refused)) {
      EXPECT_EQ(icons->front().pixels.size(), 64U) << place;
      EXPECT_EQ(icons->back().pixels.size(), 16U) << place;
    }
  }
}

}  // namespace
