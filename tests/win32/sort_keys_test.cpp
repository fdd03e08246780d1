// The order of many names must be the system's own order, in every language: the keys from the
// table must agree with the system's comparison of every pair.
#include "platform/win32/system/sort_keys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using Texts = std::vector<std::wstring>;

constexpr std::size_t many = 6000;

/// Names as in real surveys, and names that hit every special rule of a language.
Texts namesFrom(const std::wstring& units, unsigned seed) {
  std::mt19937 random(seed);
  Texts names;
  for (std::size_t n = 0; n < many; ++n) {
    std::wstring name(random() % 7, L' ');
    for (wchar_t& unit : name) {
      unit = units[random() % units.size()];
    }
    names.push_back(std::move(name));
  }
  return names;
}

std::vector<std::size_t> orderOf(std::size_t count,
                                 const std::function<bool(std::size_t, std::size_t)>& less) {
  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), less);
  return order;
}

using Numbered = std::vector<std::pair<std::size_t, std::wstring>>;

/// The next few of an order from its place `from` on, with their names.
Numbered someOf(const std::vector<std::size_t>& order, std::size_t from, const Texts& names) {
  constexpr std::size_t some = 5;
  Numbered shown;
  for (std::size_t n = from; n < std::min(from + some, order.size()); ++n) {
    shown.emplace_back(order[n], names[order[n]]);
  }
  return shown;
}

void expectSystemOrder(const wchar_t* locale, const Texts& names) {
  const auto keys = platform::win32::sortKeys(
      locale, names.size(), [&names](std::size_t n) -> std::wstring_view { return names[n]; });
  ASSERT_EQ(keys.ends.size(), names.size());
  std::vector<std::string> single(names.size());
  for (std::size_t n = 0; n < names.size(); ++n) {
    platform::win32::appendSortKey(locale, names[n], single[n]);
  }
  const auto byBatch = orderOf(
      names.size(), [&keys](std::size_t a, std::size_t b) { return keys.at(a) < keys.at(b); });
  const auto bySystem = orderOf(
      names.size(), [&single](std::size_t a, std::size_t b) { return single[a] < single[b]; });
  // There are thousands; a failure shows those from the first place that differs on.
  ASSERT_EQ(byBatch.size(), bySystem.size());
  const auto place = static_cast<std::size_t>(
      std::mismatch(byBatch.begin(), byBatch.end(), bySystem.begin()).first - byBatch.begin());
  EXPECT_EQ(someOf(byBatch, place, names), someOf(bySystem, place, names))
      << "from place " << place << " in the order of " << testing::PrintToString(locale);
}

class SortKeys : public testing::TestWithParam<const wchar_t*> {};

TEST_P(SortKeys, OfPlainNamesAreInTheSystemsOrder) {
  std::wstring plain;
  for (wchar_t unit = L' '; unit <= L'~'; ++unit) {
    plain += unit;
  }
  expectSystemOrder(GetParam(), namesFrom(plain, 1));
}

TEST_P(SortKeys, OfNamesOfLettersThatMayCountAsOneAreInTheSystemsOrder) {
  expectSystemOrder(GetParam(), namesFrom(L"cChHlLdDzZsSnNjJaAeEgGyYtT", 2));
}

TEST_P(SortKeys, OfNamesWithHyphensAndApostrophesAreInTheSystemsOrder) {
  expectSystemOrder(GetParam(), namesFrom(L"aAbB-'12", 3));
}

TEST_P(SortKeys, OfNamesWithOtherLettersAreInTheSystemsOrder) {
  expectSystemOrder(GetParam(), namesFrom(L"aAoOuU\u00E4\u00D6\u00FC\u00DF\u010D\u3042z", 4));
}

TEST_P(SortKeys, OfDigitsAndDatesAreInTheSystemsOrder) {
  expectSystemOrder(GetParam(), namesFrom(L"0123456789/:. APM_()", 5));
}

INSTANTIATE_TEST_SUITE_P(Languages, SortKeys,
                         testing::Values(L"en-US", L"cs-CZ", L"hu-HU", L"da-DK", L"hr-HR",
                                         L"es-ES_tradnl", L"sv-SE", L"ja-JP"));

TEST(SortKeys, AChangeOfTheLanguageIsNoticed) {
  const Texts names = namesFrom(L"cChHzZ", 6);
  expectSystemOrder(L"en-US", names);
  expectSystemOrder(L"cs-CZ", names);
  expectSystemOrder(L"en-US", names);
}

}  // namespace
