#include "platform/bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace platform::bytes {
namespace {

/// Random bytes that are often the ones searched for, or their neighbours, at every position of a
/// word.
std::string someBytes(std::mt19937& random) {
  const std::string choice("\n\r\x0B\x0C\x00\x01\xFF\x8A\x8D\x7F,,", 12);
  std::string bytes(random() % 40, 'x');
  for (char& byte : bytes) {
    if (random() % 8 == 0) {
      byte = choice[random() % choice.size()];
    }
  }
  return bytes;
}

TEST(Bytes, FindingAgreesWithTheStandardLibrary) {
  std::mt19937 random(11);
  for (int round = 0; round < 100'000; ++round) {
    const std::string text = someBytes(random);
    const std::size_t from = random() % (text.size() + 1);
    ASSERT_EQ(findEither(text, '\r', '\n', from),
              std::min(text.find_first_of("\r\n", from), text.size()));
    ASSERT_EQ(findLineEnd(text, from), std::min(text.find_first_of("\r\n", from), text.size()));
    ASSERT_EQ(find(text, ',', from), std::min(text.find(',', from), text.size()));
    ASSERT_EQ(find(text, '\xFF', from), std::min(text.find('\xFF', from), text.size()));
  }
}

TEST(Bytes, ComparingAgreesWithTheStandardLibrary) {
  std::mt19937 random(12);
  const auto sign = [](int value) { return (value > 0) - (value < 0); };
  for (int round = 0; round < 100'000; ++round) {
    const std::string one = someBytes(random);
    std::string other = random() % 2 == 0 ? one : someBytes(random);
    if (!other.empty() && random() % 2 == 0) {
      other[random() % other.size()] ^= static_cast<char>(random());
    }
    ASSERT_EQ(sign(compare(one, other)), sign(one.compare(other)));
  }
}

Word unchanged(Word word) { return word; }

TEST(Bytes, CommonBeginningsAndEndingsAgreeWithTheStandardLibrary) {
  std::mt19937 random(13);
  for (int round = 0; round < 100'000; ++round) {
    const std::string one = someBytes(random);
    std::string other = random() % 4 == 0 ? someBytes(random) : one;
    if (!other.empty() && random() % 2 == 0) {
      other[random() % other.size()] ^= static_cast<char>(random());
    }
    if (random() % 4 == 0) {
      other = random() % 2 == 0 ? other + "more" : "more" + other;
    }
    const auto begin =
        std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first - one.begin();
    const auto end =
        std::mismatch(one.rbegin(), one.rend(), other.rbegin(), other.rend()).first - one.rbegin();
    ASSERT_EQ(commonLength(one, other, unchanged), static_cast<std::size_t>(begin));
    ASSERT_EQ(commonEnding(one, other), static_cast<std::size_t>(end));
  }
}

TEST(Bytes, CapitalsOfAWordAreThoseOfItsBytes) {
  for (unsigned c = 0; c < 256; ++c) {
    const bool isSmall = c >= 'a' && c <= 'z';
    const auto capital = static_cast<char>(isSmall ? c - ('a' - 'A') : c);
    for (const char neighbour : {'\0', 'z', '{', '\xFF'}) {
      std::string bytes(sizeof(Word), neighbour);
      bytes[3] = static_cast<char>(c);
      std::string capitals(sizeof(Word), neighbour == 'z' ? 'Z' : neighbour);
      capitals[3] = capital;
      EXPECT_EQ(withCapitals(wordAt(bytes.data())), wordAt(capitals.data())) << c;
      EXPECT_EQ(commonLength(bytes, capitals, withCapitals), bytes.size()) << c;
      EXPECT_EQ(commonLength(bytes.substr(0, 4), capitals, withCapitals), 4U) << c;
    }
  }
}

}  // namespace
}  // namespace platform::bytes
