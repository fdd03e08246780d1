// Records of other lists, and tables for spreadsheets.
#include "listfile/list_exchange.h"

#include <gtest/gtest.h>

#include <string>

namespace list_file {
namespace {

std::optional<std::wstring> addressOf(const Record& record) {
  return record.has(1) ? std::optional(record.text(1)) : std::nullopt;
}

Merged merge(const std::string& content, const std::string& more) {
  return merged(content, more, addressOf);
}

TEST(MergedLists, NewRecordsComeLastByteForByte) {
  const Merged result = merge("\"a\",\"1\"\r\n", "x, 2 ,odd\r\n\"b\",\"3\",\"d\",\"more\"\n");
  EXPECT_EQ(result.content, "\"a\",\"1\"\r\nx, 2 ,odd\r\n\"b\",\"3\",\"d\",\"more\"\n");
  EXPECT_EQ(result.added, 2U);
  EXPECT_EQ(result.present, 0U);
  EXPECT_EQ(result.withoutKey, 0U);
}

TEST(MergedLists, WhatIsThereIsLeftAlone) {
  const Merged result = merge("a,1\r\nb,2\r\n", "new,2\r\nc,3\r\n");
  EXPECT_EQ(result.content, "a,1\r\nb,2\r\nc,3\r\n");
  EXPECT_EQ(result.added, 1U);
  EXPECT_EQ(result.present, 1U);
}

TEST(MergedLists, ADoubleOfTheOtherListIsAddedOnce) {
  const Merged result = merge("", "a,1\r\nb,1\r\n");
  EXPECT_EQ(result.content, "a,1\r\n");
  EXPECT_EQ(result.added, 1U);
  EXPECT_EQ(result.present, 1U);
}

TEST(MergedLists, DoublesThatAreThereStay) {
  const Merged result = merge("a,1\r\nb,1\r\n", "c,1\r\n");
  EXPECT_EQ(result.content, "a,1\r\nb,1\r\n");
  EXPECT_EQ(result.present, 1U);
}

TEST(MergedLists, RecordsWithoutAnEntryAreCountedAndBlankLinesAreNot) {
  const Merged result = merge("a,1\r\n", "nothing\r\n\r\n  \r\nc,3\r\n");
  EXPECT_EQ(result.content, "a,1\r\nc,3\r\n");
  EXPECT_EQ(result.withoutKey, 1U);
  EXPECT_EQ(result.added, 1U);
}

TEST(MergedLists, MissingLineEndsAreCompleted) {
  EXPECT_EQ(merge("a,1", "b,2\r\nc,3").content, "a,1\r\nb,2\r\nc,3");
}

TEST(MergedLists, NothingToAddChangesNothing) {
  EXPECT_EQ(merge("a,1", "").content, "a,1");
  EXPECT_EQ(merge("a,1", "b,1\r\n").content, "a,1");
}

TEST(Csv, BeginsWithAMarkAndEndsEachRow) {
  EXPECT_EQ(csv({}), "\xEF\xBB\xBF");
  EXPECT_EQ(csv({{L"Name", L"Date"}, {L"a", L""}}), "\xEF\xBB\xBFName,Date\r\na,\r\n");
  EXPECT_EQ(csv({{}}), "\xEF\xBB\xBF\r\n");
}

TEST(Csv, QuotesOnlyWhatNeedsIt) {
  EXPECT_EQ(csv({{L"a,b", L"c\"d", L"e\rf", L"g\nh", L" i "}}),
            "\xEF\xBB\xBF\"a,b\",\"c\"\"d\",\"e\rf\",\"g\nh\", i \r\n");
}

TEST(Csv, HoldsEveryLetter) {
  EXPECT_EQ(csv({{L"\u007F\u0080\u07FF\u0800\uFFFD"}}),
            "\xEF\xBB\xBF\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\r\n");
  // Two halves of a character beyond the first plane, as Windows stores it, and lone halves.
  const std::wstring pair{static_cast<wchar_t>(0xD83C), static_cast<wchar_t>(0xDF32)};
  EXPECT_EQ(csv({{pair}}), "\xEF\xBB\xBF\xF0\x9F\x8C\xB2\r\n");
  const std::wstring last{static_cast<wchar_t>(0xDBFF), static_cast<wchar_t>(0xDFFF)};
  EXPECT_EQ(csv({{last}}), "\xEF\xBB\xBF\xF4\x8F\xBF\xBF\r\n");
  const std::wstring high(1, static_cast<wchar_t>(0xD83C));
  const std::wstring low(1, static_cast<wchar_t>(0xDC00));
  EXPECT_EQ(csv({{high, high + L"a", low + high}}),
            "\xEF\xBB\xBF\xEF\xBF\xBD,\xEF\xBF\xBD"
            "a,\xEF\xBF\xBD\xEF\xBF\xBD\r\n");
}

}  // namespace
}  // namespace list_file
