#include "platform/plain_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/code_page_text.h"
#include "platform/text.h"

namespace platform::text {
namespace {

/// Texts of few characters, so that they are often equal: both letter cases, the neighbours of the
/// alphabet, and characters that are not plain, some of which look like plain ones.
std::wstring someText(std::mt19937& random) {
  const std::wstring units = L"aAzZ@[`{\\ \u00E4\u00C4\u0131\u017F\u00B5\u20AC\u0160";
  std::wstring text(random() % 6, L' ');
  for (wchar_t& unit : text) {
    unit = units[random() % units.size()];
  }
  return text;
}

TEST(PlainText, ComparisonsAgreeWithTheirDefinition) {
  std::mt19937 random(7);
  int equal = 0;
  for (int round = 0; round < 200'000; ++round) {
    const std::wstring text = someText(random);
    const std::string bytes = toCodePage(text);
    const std::wstring other = random() % 2 == 0 ? text : someText(random);
    const std::wstring wanted = upper(other);
    ASSERT_EQ(upperEquals(text, wanted), upper(text) == wanted);
    ASSERT_EQ(CodePageText(other).equals(bytes), fromCodePage(bytes) == other);
    ASSERT_EQ(CodePageText(wanted, CodePageText::Letters::capitals).equals(bytes),
              upper(fromCodePage(bytes)) == wanted);
    equal += upperEquals(text, wanted) ? 1 : 0;
  }
  EXPECT_GT(equal, 50'000) << "The texts were chosen to agree often";
  EXPECT_LT(equal, 190'000);
}

TEST(PlainText, LongTextsAreComparedToTheirEnd) {
  const std::wstring folder = L"C:\\Field data\\Unit 17\\";
  for (const std::wstring& name : {L"ridge.fp3", L"\u00C4hren.fp3", L"caf\u00E9", L""}) {
    const std::wstring path = folder + name;
    const std::string bytes = toCodePage(path);
    EXPECT_TRUE(CodePageText(path).equals(bytes));
    EXPECT_TRUE(CodePageText(upper(path), CodePageText::Letters::capitals).equals(bytes));
    EXPECT_FALSE(CodePageText(upper(path)).equals(bytes));
    EXPECT_FALSE(CodePageText(path).equals(bytes + "x"));
    EXPECT_FALSE(CodePageText(path).equals(bytes + "\xE9"));
    EXPECT_FALSE(CodePageText(path + L"x").equals(bytes));
    EXPECT_FALSE(CodePageText(path + L"\u00E9").equals(bytes));
    for (std::size_t n = 0; n < bytes.size(); ++n) {
      std::string other = bytes;
      other[n] = other[n] == '#' ? '!' : '#';
      EXPECT_FALSE(CodePageText(path).equals(other)) << n;
    }
  }
}

TEST(PlainText, WideningTakesPlainBytesOnly) {
  std::wstring text = L"left over";
  EXPECT_TRUE(plain::widen("Plot 1~\x01", text));
  EXPECT_EQ(text, L"Plot 1~\x01");
  EXPECT_TRUE(plain::widen("", text));
  EXPECT_EQ(text, L"");
  EXPECT_FALSE(plain::widen("Plot \x80", text));
}

TEST(PlainText, AConversionIntoAnOldTextLeavesNothingOfIt) {
  std::wstring text = L"a long text that was there before";
  fromCodePage("\xC4rger", text);
  EXPECT_EQ(text, L"\u00C4rger");
  fromCodePage("plain", text);
  EXPECT_EQ(text, L"plain");
}

}  // namespace
}  // namespace platform::text
