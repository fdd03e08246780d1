#include <gtest/gtest.h>

#include <string>

#include "platform/text.h"

namespace platform::text {
namespace {

TEST(MemoryText, UpperCasesEveryAlphabetAndKeepsTheLength) {
  EXPECT_EQ(upper(L"aZ9 \u00E4\u00FF"), L"AZ9 \u00C4\u0178");
  EXPECT_EQ(upper(L"\u03B1\u0436\u0161"), L"\u0391\u0416\u0160");
  EXPECT_EQ(upper(L"\u00DF\u00B5\u0131"), L"\u00DF\u00B5\u0131");
  EXPECT_EQ(upper(std::wstring(L"a\0b", 3)), std::wstring(L"A\0B", 3));
  EXPECT_EQ(upper(L""), L"");
}

TEST(MemoryText, SortKeysIgnoreCaseAndOrderByCharacter) {
  const auto sortKey = [](std::wstring_view text) {
    return sortKeys(1, [text](std::size_t) { return text; }).bytes;
  };
  EXPECT_EQ(sortKey(L"Stra\u00DFe \u00E9"), sortKey(L"STRA\u00DFE \u00C9"));
  EXPECT_LT(sortKey(L"a"), sortKey(L"B"));
  EXPECT_LT(sortKey(L"A"), sortKey(L"ab"));
  EXPECT_LT(sortKey(L"z"), sortKey(L"\u00E9"));
  EXPECT_LT(sortKey(L"\u00FE"), sortKey(L"\u0391")) << "Bytes compare without a sign";
  EXPECT_LT(sortKey(L""), sortKey(L"a"));
}

TEST(MemoryText, EveryByteOfTheCodePageComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  EXPECT_EQ(toCodePage(fromCodePage(bytes)), bytes);
}

TEST(MemoryText, TheUpperHalfIsTheCodePagesOwn) {
  EXPECT_EQ(fromCodePage("\x80\x85\x93\x99\xE4"), L"\u20AC\u2026\u201C\u2122\u00E4");
  EXPECT_EQ(toCodePage(L"\u20AC\u00AE"), "\x80\xAE");
}

TEST(MemoryText, WhatTheCodePageLacksIsAQuestionMarkAndNoLookAlike) {
  EXPECT_EQ(toCodePage(L"a\u0416b\u2033\uFF02\uFF0C\u2028c"), "a?b????c");
  EXPECT_EQ(toCodePage(L"\u0080\u0093"), "??") << "Their bytes stand for something else";
}

}  // namespace
}  // namespace platform::text
