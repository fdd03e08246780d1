#include "platform/controls/sort_places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace controls {
namespace {

using Places = std::vector<std::uint32_t>;
using platform::text::SortKeys;

SortKeys keysOf(const std::vector<std::string>& texts) {
  SortKeys keys;
  for (const std::string& text : texts) {
    keys.bytes += text;
    keys.ends.push_back(keys.bytes.size());
  }
  return keys;
}

Places sorted(Places places, const std::vector<std::string>& texts, bool descending = false) {
  sortPlaces(places, keysOf(texts), descending);
  return places;
}

TEST(SortPlaces, ByBytesTheShorterOneFirst) {
  EXPECT_EQ(sorted({0, 1, 2, 3}, {"b", "", "ab", "a"}), (Places{1, 3, 2, 0}));
  EXPECT_EQ(sorted({0, 1, 2, 3}, {"b", "", "ab", "a"}, true), (Places{0, 2, 3, 1}));
}

TEST(SortPlaces, BytesAreNotSigned) { EXPECT_EQ(sorted({0, 1}, {"\x80", "\x7F"}), (Places{1, 0})); }

TEST(SortPlaces, AZeroByteIsMoreThanNone) {
  EXPECT_EQ(sorted({0, 1, 2}, {{"a\0\0", 3}, {"a\0", 2}, "a"}), (Places{2, 1, 0}));
}

TEST(SortPlaces, DifferencesBehindALongCommonBeginningCount) {
  const std::string same(100, 's');
  EXPECT_EQ(sorted({0, 1, 2}, {same + "12345678b", same + "12345678a", same}), (Places{2, 1, 0}));
}

TEST(SortPlaces, EqualKeysKeepTheirFormerOrder) {
  EXPECT_EQ(sorted({3, 1, 0, 2}, {"x", "x", "a", "x"}), (Places{2, 3, 1, 0}));
  EXPECT_EQ(sorted({3, 1, 0, 2}, {"x", "x", "a", "x"}, true), (Places{3, 1, 0, 2}));
}

TEST(SortPlaces, NothingAndOneAreSorted) {
  EXPECT_EQ(sorted({}, {}), Places{});
  EXPECT_EQ(sorted({0}, {"x"}), Places{0});
}

TEST(SortPlaces, AgreesWithAStableSortOfTheKeys) {
  std::mt19937 random(20261120);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::string> texts(1 + random() % 60);
    for (std::string& text : texts) {
      text.resize(random() % 14);
      for (char& c : text) {
        c = static_cast<char>(random() % 3 + (random() % 9 == 0 ? 0xFD : 0));
      }
    }
    Places places(texts.size());
    std::iota(places.begin(), places.end(), 0U);
    std::shuffle(places.begin(), places.end(), random);
    const bool descending = round % 2 == 1;
    Places expected = places;
    std::stable_sort(expected.begin(), expected.end(), [&](std::uint32_t a, std::uint32_t b) {
      return descending ? texts[b] < texts[a] : texts[a] < texts[b];
    });
    ASSERT_EQ(sorted(places, texts, descending), expected) << "round " << round;
  }
}

}  // namespace
}  // namespace controls
