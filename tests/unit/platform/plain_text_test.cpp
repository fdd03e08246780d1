#include "platform/plain_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

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
    ASSERT_EQ(codePageEquals(bytes, other), fromCodePage(bytes) == other);
    ASSERT_EQ(upperCodePageEquals(bytes, wanted), upper(fromCodePage(bytes)) == wanted);
    equal += upperEquals(text, wanted) ? 1 : 0;
  }
  EXPECT_GT(equal, 50'000) << "The texts were chosen to agree often";
  EXPECT_LT(equal, 190'000);
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
