// What the words of a search find.
#include "platform/controls/find_words.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/desktop_test.h"

namespace controls {
namespace {

class FindWordsTest : public ::memory::DesktopTest {
 protected:
  /// Whether the only word of `words` is in `text`.
  static bool finds(std::wstring_view words, std::wstring_view text) {
    const FindWords made(words);
    EXPECT_EQ(made.count(), 1U);
    return made.finds(0, text);
  }
};

TEST_F(FindWordsTest, ATextWithoutWordsHasNone) {
  for (const wchar_t* const text : {L"", L" ", L"   ", L"\t \t"}) {
    EXPECT_EQ(FindWords(text).count(), 0U);
  }
  EXPECT_EQ(FindWords().count(), 0U);
}

TEST_F(FindWordsTest, BlanksAndTabsSeparateWords) {
  const FindWords words(L" one  two\tthree ");
  ASSERT_EQ(words.count(), 3U);
  EXPECT_TRUE(words.finds(0, L"xonex"));
  EXPECT_FALSE(words.finds(0, L"two"));
  EXPECT_TRUE(words.finds(1, L"two"));
  EXPECT_TRUE(words.finds(2, L"three"));
}

TEST_F(FindWordsTest, AWordIsFoundAnywhereInAText) {
  EXPECT_TRUE(finds(L"plot", L"plot"));
  EXPECT_TRUE(finds(L"plot", L"plot 12.fp3"));
  EXPECT_TRUE(finds(L"plot", L"my plot"));
  EXPECT_TRUE(finds(L"plot", L"a plot b"));
  EXPECT_TRUE(finds(L"plot", L"plplplot"));
  EXPECT_FALSE(finds(L"plot", L"plo"));
  EXPECT_FALSE(finds(L"plot", L"plo t"));
  EXPECT_FALSE(finds(L"plot", L""));
  EXPECT_TRUE(finds(L"aab", L"aaab"));
}

TEST_F(FindWordsTest, CaseDoesNotCount) {
  EXPECT_TRUE(finds(L"PLOT", L"plot"));
  EXPECT_TRUE(finds(L"plot", L"PLOT"));
  EXPECT_TRUE(finds(L"\u00FC", L"\u00DC"));
  EXPECT_TRUE(finds(L"\u0434", L"\u0414"));
}

TEST_F(FindWordsTest, ALetterWithoutAnAccentFindsItWithAnyAccent) {
  EXPECT_TRUE(finds(L"cafe", L"Caf\u00E9"));
  EXPECT_TRUE(finds(L"cafe", L"CAF\u00C9 2"));
  EXPECT_TRUE(finds(L"uber", L"\u00DCber"));
  EXPECT_TRUE(finds(L"a", L"\u00C4"));
  EXPECT_FALSE(finds(L"o", L"\u00E9"));
}

TEST_F(FindWordsTest, ALetterWithAnAccentFindsOnlyItself) {
  EXPECT_TRUE(finds(L"caf\u00E9", L"CAF\u00C9"));
  EXPECT_FALSE(finds(L"caf\u00E9", L"cafe"));
  EXPECT_FALSE(finds(L"\u00E4", L"\u00E0"));
}

TEST_F(FindWordsTest, AnAccentMayStandBehindItsLetter) {
  EXPECT_TRUE(finds(L"caf\u00E9", L"cafe\u0301")) << "In the text";
  EXPECT_TRUE(finds(L"cafe\u0301", L"caf\u00E9")) << "In the word";
  EXPECT_TRUE(finds(L"cafe\u0301", L"cafe\u0301")) << "In both";
  EXPECT_FALSE(finds(L"cafe\u0301", L"cafe"));
  EXPECT_TRUE(finds(L"cafes", L"cafe\u0301s")) << "Passed over, as it was not asked for";
  EXPECT_TRUE(finds(L"cafe", L"cafe\u0301\u0301"));
  EXPECT_FALSE(finds(L"cafes", L"cafe\u0301"));
}

TEST_F(FindWordsTest, CharactersBeyondTheTableAreFoundToo) {
  EXPECT_TRUE(finds(L"\U0001F332", L"pine \U0001F332"));
  EXPECT_FALSE(finds(L"\U0001F332", L"pine"));
}

TEST_F(FindWordsTest, ANulIsNoAccent) {
  EXPECT_FALSE(finds(L"pro", std::wstring_view(L"p\0ro", 4)));
}

TEST_F(FindWordsTest, AnAccentAloneIsFoundAsItIs) {
  EXPECT_TRUE(finds(L"\u0301", L"e\u0301"));
  EXPECT_FALSE(finds(L"\u0301", L"e"));
}

TEST_F(FindWordsTest, LongerWordsRefineShorterOnes) {
  EXPECT_TRUE(FindWords(L"plot").refines(FindWords(L"pl")));
  EXPECT_TRUE(FindWords(L"pl").refines(FindWords(L"pl")));
  EXPECT_TRUE(FindWords(L"pl x").refines(FindWords(L"pl")));
  EXPECT_TRUE(FindWords(L"pl").refines(FindWords()));
  EXPECT_FALSE(FindWords(L"pl").refines(FindWords(L"plot")));
  EXPECT_FALSE(FindWords(L"pl").refines(FindWords(L"pl x")));
  EXPECT_FALSE(FindWords(L"xpl").refines(FindWords(L"pl")));
}

TEST_F(FindWordsTest, WordsWithAccentsRefineNothing) {
  // The accent that is typed behind an "e" takes rows away that the "e" had, and may bring others.
  EXPECT_FALSE(FindWords(L"caf\u00E9s").refines(FindWords(L"caf\u00E9")));
  EXPECT_FALSE(FindWords(L"cafe\u0301").refines(FindWords(L"cafe")));
  EXPECT_FALSE(FindWords(L"cafe\u0301s x").refines(FindWords(L"cafe\u0301s")));
}

TEST_F(FindWordsTest, AreEqualWhenTheyAreTheSameWords) {
  EXPECT_EQ(FindWords(L" a b "), FindWords(L"a  b"));
  EXPECT_FALSE(FindWords(L"a b") == FindWords(L"b a"));
}

}  // namespace
}  // namespace controls
