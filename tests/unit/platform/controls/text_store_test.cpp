#include "platform/controls/text_store.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace controls {
namespace {

TEST(TextStore, KeepsEveryTextAsItWas) {
  TextStore store;
  std::vector<std::pair<TextStore::Ref, std::wstring>> stored;
  // Enough for several blocks, with texts of all lengths at the ends of blocks.
  for (std::size_t n = 0; n < 20'000; ++n) {
    std::wstring text(n % 97, static_cast<wchar_t>(L'a' + n % 26));
    const TextStore::Ref ref = n % 2 == 0 ? store.add(text) : store.addShared(text);
    stored.emplace_back(ref, std::move(text));
  }
  for (const auto& [ref, text] : stored) {
    ASSERT_EQ(store.at(ref), text);
  }
}

TEST(TextStore, TheEmptyTextIsNumberZeroAndNoOtherIs) {
  TextStore store;
  EXPECT_EQ(store.add(L""), 0U);
  EXPECT_EQ(store.addShared(L""), 0U);
  EXPECT_NE(store.add(L"first"), 0U);
  EXPECT_EQ(store.at(0), L"");
}

TEST(TextStore, ATextMayBeLongerThanABlockAndHoldAnything) {
  TextStore store;
  const std::wstring longText(3'000'000, L'x');
  const std::wstring odd{L"a\0b\xFFFF", 4};
  const TextStore::Ref first = store.add(longText);
  const TextStore::Ref second = store.add(odd);
  EXPECT_EQ(store.at(first), longText);
  EXPECT_EQ(store.at(second), odd);
}

TEST(TextStore, EqualTextsThatComeOneAfterTheOtherAreStoredOnce) {
  TextStore store;
  const TextStore::Ref one = store.addShared(L"C:\\Data\\");
  const TextStore::Ref other = store.addShared(L"D:\\Elsewhere\\");
  EXPECT_EQ(store.addShared(L"C:\\Data\\"), one);
  EXPECT_EQ(store.addShared(L"D:\\Elsewhere\\"), other);
  EXPECT_NE(store.add(L"C:\\Data\\"), one);
}

TEST(TextStore, AfterClearingNothingOldIsHandedOut) {
  TextStore store;
  store.addShared(L"old");
  store.clear();
  const TextStore::Ref next = store.addShared(L"new");
  EXPECT_EQ(store.at(next), L"new");
  EXPECT_EQ(store.at(store.addShared(L"old")), L"old");
}

}  // namespace
}  // namespace controls
