#include "platform/controls/image_list.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "platform/geometry_printing.h"
#include "unit/support/error_number.h"

namespace controls {
namespace {

using platform::Picture;

constexpr std::uint32_t red = 0xFFFF0000;

Picture filled(int width, int height, std::uint32_t colour) {
  return {{width, height},
          std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), colour)};
}

TEST(ImageList, FindsPicturesByTheirExactKey) {
  ImageList list;
  list.add(L"tool", filled(1, 1, red));
  list.addResource(L"Web", L"WEB_ICON");
  EXPECT_EQ(list.indexOf(L"tool"), std::optional<std::size_t>(0));
  EXPECT_EQ(list.indexOf(L"Web"), std::optional<std::size_t>(1));
  EXPECT_EQ(list.indexOf(L"web"), std::nullopt);
  EXPECT_EQ(list.images()[0].resource, L"");
  EXPECT_EQ(list.images()[0].picture, filled(1, 1, red));
  EXPECT_EQ(list.images()[1].resource, L"WEB_ICON");
}

TEST(ImageList, ReplacesAPictureInItsPlace) {
  ImageList list;
  list.add(L"tool", filled(1, 1, red));
  list.addResource(L"Web", L"WEB_ICON");
  const unsigned before = list.revision();
  list.replace(L"Web", filled(2, 2, red));
  EXPECT_NE(list.revision(), before);
  EXPECT_EQ(list.indexOf(L"Web"), std::optional<std::size_t>(1));
  EXPECT_EQ(list.images()[1].resource, L"");
  EXPECT_EQ(list.images()[1].picture, filled(2, 2, red));
  EXPECT_EQ(list.images()[0].picture, filled(1, 1, red));
}

TEST(ImageList, ReplacesNothingWithoutTheKey) {
  ImageList list;
  list.add(L"tool", filled(1, 1, red));
  const unsigned before = list.revision();
  list.replace(L"other", filled(2, 2, red));
  EXPECT_EQ(list.revision(), before);
  EXPECT_EQ(list.images().size(), 1U);
}

TEST(ImageList, RefusesAKeyTwice) {
  ImageList list;
  list.add(L"tool", filled(1, 1, red));
  EXPECT_EQ(errorNumberOf([&list] { list.add(L"tool", {}); }), 35602);
  EXPECT_EQ(errorNumberOf([&list] { list.addResource(L"tool", L"OTHER"); }), 35602);
  EXPECT_EQ(errorNumberOf([&list] { list.addResource(L"Tool", L"OTHER"); }), 0);
  EXPECT_EQ(list.images().size(), 2U);
}

TEST(ImageList, PicturesWithoutAKeyAreNeverFound) {
  ImageList list;
  list.add(L"", filled(1, 1, red));
  EXPECT_EQ(errorNumberOf([&list] { list.add(L"", filled(1, 1, red)); }), 0);
  EXPECT_EQ(list.indexOf(L""), std::nullopt);
}

TEST(ImageList, AKeyIsFreeAgainAfterAClear) {
  ImageList list;
  list.add(L"tool", filled(1, 1, red));
  list.clear();
  EXPECT_TRUE(list.images().empty());
  EXPECT_EQ(list.indexOf(L"tool"), std::nullopt);
  EXPECT_EQ(errorNumberOf([&list] { list.add(L"tool", {}); }), 0);
}

TEST(ImageList, ItsRevisionGrowsWithEveryChangeOnly) {
  ImageList list;
  unsigned last = list.revision();
  const auto changed = [&] { return list.revision() != std::exchange(last, list.revision()); };
  list.add(L"a", filled(1, 1, red));
  EXPECT_TRUE(changed());
  list.addResource(L"b", L"B");
  EXPECT_TRUE(changed());
  list.setImageSize({16, 16});
  EXPECT_TRUE(changed());
  EXPECT_EQ(list.imageSize(), (platform::Size{16, 16}));
  list.setImageSize({16, 16});
  EXPECT_FALSE(changed());
  static_cast<void>(errorNumberOf([&list] { list.add(L"a", {}); }));
  EXPECT_FALSE(changed());
  list.clear();
  EXPECT_TRUE(changed());
}

TEST(PictureBox, AnEmptyPictureIsTransparent) {
  PictureBox box;
  box.loadEmptyPicture({2, 1});
  EXPECT_EQ(box.image(), filled(2, 1, 0));
}

TEST(PictureBox, DrawsWhereItIsTold) {
  PictureBox box;
  box.loadEmptyPicture({3, 2});
  box.draw(filled(1, 1, red), 2, 1);
  EXPECT_EQ(box.image(), (Picture{{3, 2}, {0, 0, 0, 0, 0, red}}));
}

TEST(PictureBox, CutsOffWhatLiesOutside) {
  const Picture numbered{{2, 2}, {1, 2, 3, 4}};
  PictureBox box;
  box.loadEmptyPicture({2, 2});
  box.draw(numbered, -1, -1);
  EXPECT_EQ(box.image(), (Picture{{2, 2}, {4, 0, 0, 0}}));
  box.loadEmptyPicture({2, 2});
  box.draw(numbered, 1, 1);
  EXPECT_EQ(box.image(), (Picture{{2, 2}, {0, 0, 0, 1}}));
  box.loadEmptyPicture({2, 2});
  box.draw(numbered, 5, -7);
  EXPECT_EQ(box.image(), filled(2, 2, 0));
}

TEST(PictureBox, LoadingAnEmptyPictureForgetsTheOld) {
  PictureBox box;
  box.loadEmptyPicture({1, 1});
  box.draw(filled(1, 1, red), 0, 0);
  box.loadEmptyPicture({1, 1});
  EXPECT_EQ(box.image(), filled(1, 1, 0));
}

TEST(PictureBox, LeavesAMarginOff) {
  PictureBox box;
  box.loadEmptyPicture({4, 3});
  box.draw(filled(4, 3, 9), 0, 0);
  box.draw(Picture{{2, 1}, {1, 2}}, 1, 1);
  EXPECT_EQ(box.image(1), (Picture{{2, 1}, {1, 2}}));
}

TEST(PictureBox, AMarginThatLeavesNothingGivesAnEmptyPicture) {
  PictureBox box;
  box.loadEmptyPicture({4, 3});
  EXPECT_EQ(box.image(2).pixels.size(), 0U);
  EXPECT_EQ(box.image(20).size, (platform::Size{0, 0}));
  EXPECT_TRUE(PictureBox().image(1).pixels.empty());
}

}  // namespace
}  // namespace controls
