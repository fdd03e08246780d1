#include <gtest/gtest.h>

#include <string>

#include "platform/desktop_test.h"
#include "platform/text.h"
#include "unit/support/error_number.h"

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

/// Texts in another code page than the usual one.
class MemoryCodePage : public ::memory::DesktopTest {
 protected:
  static void use(int number) { ::memory::Desktop::setCodePage(number); }
  static std::string everyByte() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
      bytes += static_cast<char>(byte);
    }
    return bytes;
  }
};

TEST_F(MemoryCodePage, IsThatOfWesternEuropeAtFirst) {
  EXPECT_EQ(::memory::codePage(), 1252);
  EXPECT_EQ(toCodePage(L"\u00E9\u0159"), "\xE9?");
  use(1250);
  ::memory::desktop().reset();
  EXPECT_EQ(::memory::codePage(), 1252);
}

TEST_F(MemoryCodePage, OfCentralEuropeHasItsOwnUpperHalf) {
  use(1250);
  EXPECT_EQ(toCodePage(fromCodePage(everyByte())), everyByte());
  EXPECT_EQ(toCodePage(L"P\u0159\u00EDklad \u0141\u00F3d\u017A"),
            "P\xF8\xED"
            "klad \xA3\xF3"
            "d\x9F");
  EXPECT_EQ(fromCodePage("\x80\xA5\xFF"), L"\u20AC\u0104\u02D9");
  EXPECT_EQ(toCodePage(L"\u00E0\u00F1\u0436"), "???");
}

TEST_F(MemoryCodePage, MayBeUtf8) {
  use(65001);
  const std::wstring text = L"a\u00E9\u0436\u65E5\U0001F332";
  const std::string bytes = "a\xC3\xA9\xD0\xB6\xE6\x97\xA5\xF0\x9F\x8C\xB2";
  EXPECT_EQ(toCodePage(text), bytes);
  EXPECT_EQ(fromCodePage(bytes), text);
  EXPECT_EQ(toCodePage(std::wstring(1, wchar_t{0xD800})), "\xEF\xBF\xBD");
}

TEST_F(MemoryCodePage, BrokenUtf8IsReplaced) {
  use(65001);
  EXPECT_EQ(fromCodePage("a\xE9z"), L"a\uFFFDz") << "a byte of another code page";
  EXPECT_EQ(fromCodePage("\xE6\x97"), L"\uFFFD") << "cut off";
  EXPECT_EQ(fromCodePage("\x80\xC0\xAF"), L"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(fromCodePage("\xED\xA0\x80"), L"\uFFFD") << "a surrogate";
}

TEST_F(MemoryCodePage, AnotherOneIsNotKnown) {
  EXPECT_EQ(errorNumberOf([] { use(932); }), 5);
  EXPECT_EQ(::memory::codePage(), 1252);
}

TEST_F(MemoryCodePage, FitsWhatIsReadBackAsItWas) {
  const std::wstring surrogate(1, wchar_t{0xDC00});
  struct Case {
    int codePage;
    std::wstring text;
    bool fits;
  };
  for (const Case& c :
       {Case{1252, L"", true}, Case{1252, L"plot?1", true}, Case{1252, L"\u00C4rger", true},
        Case{1252, L"\u20AC", true}, Case{1252, L"\u0416", false}, Case{1252, L"\u0159", false},
        Case{1252, L"\u0093", false}, Case{1252, L"a\u0301", false}, Case{1250, L"\u0159", true},
        Case{1250, L"\u00F1", false}, Case{65001, L"\u0416\u65E5\uFFFD", true},
        Case{65001, surrogate, false}, Case{1252, surrogate, false}}) {
    use(c.codePage);
    EXPECT_EQ(fitsCodePage(c.text), c.fits) << c.codePage << testing::PrintToString(c.text);
  }
}

}  // namespace
}  // namespace platform::text
