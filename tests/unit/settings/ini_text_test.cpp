#include "settings/ini_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using ini_text::valueIn;
using ini_text::withValue;

const std::string sample =
    "; carried around\r\n"
    "[Other]\r\nPlacement=9\r\n"
    "\r\n"
    " [ General ] x\r\n"
    "Placement = 1 2 3 \r\n"
    "# Columns0=7\r\n"
    "nonsense\r\n"
    "newestfirst=1\n"
    "\r\n"
    "[After]\r\nLater=5\r\n";

TEST(IniText, FindsTheValueOfItsSection) {
  EXPECT_EQ(valueIn(sample, "General", "Placement"), L"1 2 3");
  EXPECT_EQ(valueIn(sample, "Other", "Placement"), L"9");
  EXPECT_EQ(valueIn(sample, "After", "Later"), L"5");
}

TEST(IniText, NamesCompareWithoutRegardToCase) {
  EXPECT_EQ(valueIn(sample, "GENERAL", "NewestFirst"), L"1");
}

TEST(IniText, WhatIsNotThereHasNoValue) {
  EXPECT_EQ(valueIn(sample, "General", "Later"), std::nullopt);     // another section's
  EXPECT_EQ(valueIn(sample, "General", "Columns0"), std::nullopt);  // a comment
  EXPECT_EQ(valueIn(sample, "General", "nonsense"), std::nullopt);
  EXPECT_EQ(valueIn(sample, "General", "Place"), std::nullopt);
  EXPECT_EQ(valueIn(sample, "Gen", "Placement"), std::nullopt);
  EXPECT_EQ(valueIn("", "General", "Placement"), std::nullopt);
  EXPECT_EQ(valueIn("Placement=1\r\n", "General", "Placement"), std::nullopt);  // before a section
}

TEST(IniText, TheFirstOfTwoCounts) {
  EXPECT_EQ(valueIn("[General]\na=1\na=2\n", "General", "a"), L"1");
  EXPECT_EQ(valueIn("[General]\nb=1\n[General]\na=2\n", "General", "a"), std::nullopt);
}

TEST(IniText, AnyLineEndEndsALine) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    EXPECT_EQ(valueIn("[General]" + end + "a=1" + end + "b=2" + end, "General", "b"), L"2");
  }
  EXPECT_EQ(valueIn("[General]\r\na=1", "General", "a"), L"1");
}

TEST(IniText, AMarkOfUtf8AtTheBeginningIsNoPartOfALine) {
  EXPECT_EQ(valueIn("\xEF\xBB\xBF[General]\r\na=1\r\n", "General", "a"), L"1");
}

TEST(IniText, AnEmptyValueIsAValue) {
  EXPECT_EQ(valueIn("[General]\r\na=\r\n", "General", "a"), L"");
  EXPECT_EQ(valueIn("[General]\r\na= \t \r\n", "General", "a"), L"");
}

TEST(IniText, AValueMayHaveEqualsSignsAndBrackets) {
  EXPECT_EQ(valueIn("[General]\na=b=[c]\n", "General", "a"), L"b=[c]");
}

TEST(IniText, OtherCharactersThanPlainOnesAreNoValue) {
  EXPECT_EQ(valueIn("[General]\na=\xC3\xA4\n", "General", "a"), std::nullopt);
  EXPECT_EQ(valueIn(std::string("[General]\na=1\0002\n", 16), "General", "a"), std::nullopt);
  EXPECT_EQ(valueIn("[General]\na=1\x7F\n", "General", "a"), std::nullopt);
  EXPECT_EQ(valueIn("[General]\na=~ !\n", "General", "a"), L"~ !");
}

TEST(IniText, ABracketThatDoesNotCloseBeginsNoSection) {
  EXPECT_EQ(valueIn("[General]\n[Other\na=1\n", "General", "a"), L"1");
}

TEST(IniText, AValueIsChangedInItsPlace) {
  std::string wanted = sample;
  wanted.replace(wanted.find(" 1 2 3 "), 7, "4");
  EXPECT_EQ(withValue(sample, "General", "Placement", L"4"), wanted);
}

TEST(IniText, ANewValueGoesToTheEndOfItsSection) {
  std::string wanted = sample;
  wanted.insert(wanted.find("newestfirst=1\n") + 14, "Drive=E:\r\n");
  EXPECT_EQ(withValue(sample, "General", "Drive", L"E:"), wanted);
}

TEST(IniText, ANewValueStandsBehindACommentOnlyIfALineFollows) {
  EXPECT_EQ(withValue("[General]\r\n; note\r\n", "General", "a", L"1"),
            "[General]\r\na=1\r\n; note\r\n");
  EXPECT_EQ(withValue("[General]\r\n; note\r\nb=2\r\n", "General", "a", L"1"),
            "[General]\r\n; note\r\nb=2\r\na=1\r\n");
}

TEST(IniText, ANewSectionGoesToTheEnd) {
  EXPECT_EQ(withValue("", "General", "a", L"1"), "[General]\r\na=1\r\n");
  EXPECT_EQ(withValue("; note\r\n", "General", "a", L"1"), "; note\r\n[General]\r\na=1\r\n");
}

TEST(IniText, ALastLineWithoutAnEndIsCompletedFirst) {
  EXPECT_EQ(withValue("; note", "General", "a", L"1"), "; note\r\n[General]\r\na=1\r\n");
  EXPECT_EQ(withValue("[General]", "General", "a", L"1"), "[General]\r\na=1\r\n");
  EXPECT_EQ(withValue("[General]\r\nb=2", "General", "a", L"1"), "[General]\r\nb=2\r\na=1\r\n");
  EXPECT_EQ(withValue("[General]\r\nb=2\r", "General", "a", L"1"), "[General]\r\nb=2\ra=1\r\n");
  EXPECT_EQ(withValue("[General]\r\na=2", "General", "a", L"1"), "[General]\r\na=1");
}

TEST(IniText, AFileOfTwoByteCharactersKeepsItsBytesAndTakesValues) {
  const std::string wide("\xFF\xFE[\0G\0]\0\r\0\n\0", 12);
  const std::string once = withValue(wide, "General", "a", L"1");
  EXPECT_EQ(once, wide + "\r\n[General]\r\na=1\r\n");
  EXPECT_EQ(withValue(once, "General", "a", L"1"), once);
}

TEST(IniText, OtherCharactersAreWrittenAsQuestionMarks) {
  EXPECT_EQ(withValue("", "General", "a", L"x\u00E4\r\ny\u20AC~ "), "[General]\r\na=x???y?~ \r\n");
}

}  // namespace
