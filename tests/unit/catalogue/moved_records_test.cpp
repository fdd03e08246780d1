// Records that get another path.
#include "catalogue/moved_records.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/support/catalogue_test.h"

namespace {

using memory::desktop;
using modQMKGeneral::changedText;
using modQMKGeneral::changePaths;
using modQMKGeneral::PathChange;
using unit::record;
using unit::Texts;

class MovedRecords : public unit::CatalogueTest {
 protected:
  /// What became of the changes, as text.
  static std::wstring change(const std::vector<PathChange>& changes) {
    const auto result = changePaths(changes);
    return result ? changedText(*result) : L"failed";
  }
  const std::string other = record({"BI3", "D:\\Two.bi3", "2/2/2002"});
};

TEST(ChangedText, CountsEntries) {
  EXPECT_EQ(changedText({12, 2}), L"12 entries changed, 2 already listed");
  EXPECT_EQ(changedText({1, 0}), L"1 entry changed");
  EXPECT_EQ(changedText({0, 3}), L"0 entries changed, 3 already listed");
}

TEST_F(MovedRecords, OnlyThePathChanges) {
  putCatalogue(other + "\"Fp3\" junk, \"C:\\Old\\1.fp3\" junk ,\" 1 \",\"four, and\",five\n" +
               other);
  EXPECT_EQ(change({{L"c:\\old\\1.FP3", L"D:\\New\\1.fp3"}}), L"1 entry changed");
  EXPECT_EQ(catalogue(),
            other + "\"Fp3\" junk, \"D:\\New\\1.fp3\" junk ,\" 1 \",\"four, and\",five\n" + other);
}

TEST_F(MovedRecords, APathWithoutQuotesGetsThem) {
  putCatalogue("fp3 , C:\\Old\\1.fp3 , 1\rfp3,C:\\Old\\2.fp3");
  EXPECT_EQ(change({{L"C:\\Old\\1.fp3", L"D:\\A, B\\1.fp3"}, {L"C:\\Old\\2.fp3", L"D:\\2.fp3"}}),
            L"2 entries changed");
  EXPECT_EQ(catalogue(), "fp3 , \"D:\\A, B\\1.fp3\" , 1\rfp3,\"D:\\2.fp3\"");
}

TEST_F(MovedRecords, AMissingQuoteStaysMissing) {
  putCatalogue("\"fp3\",\"C:\\Old\\1.fp3\r\n" + other);
  EXPECT_EQ(change({{L"C:\\Old\\1.fp3", L"D:\\1.fp3"}}), L"1 entry changed");
  EXPECT_EQ(catalogue(), "\"fp3\",\"D:\\1.fp3\r\n" + other);
}

TEST_F(MovedRecords, ATargetThatIsListedIsSkippedAndCounted) {
  const std::string first = record({"FP3", "C:\\Old\\1.fp3", "1"});
  const std::string listed = record({"FP3", "d:\\NEW\\1.fp3", "2"});
  putCatalogue(first + record({"FP3", "C:\\Old\\2.fp3", "1"}) + listed);
  EXPECT_EQ(
      change({{L"C:\\Old\\1.fp3", L"D:\\New\\1.fp3"}, {L"C:\\Old\\2.fp3", L"D:\\New\\2.fp3"}}),
      L"1 entry changed, 1 already listed");
  EXPECT_EQ(catalogue(), first + record({"FP3", "D:\\New\\2.fp3", "1"}) + listed);
}

TEST_F(MovedRecords, TwoEntriesDoNotGetOnePath) {
  putCatalogue(record({"FP3", "C:\\A\\1.fp3", "1"}) + record({"FP3", "C:\\B\\1.fp3", "1"}));
  EXPECT_EQ(change({{L"C:\\A\\1.fp3", L"D:\\1.fp3"}, {L"C:\\B\\1.fp3", L"D:\\1.fp3"}}),
            L"1 entry changed, 1 already listed");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\1.fp3", "1"}) + record({"FP3", "C:\\B\\1.fp3", "1"}));
}

TEST_F(MovedRecords, EveryRecordOfAnEntryChanges) {
  putCatalogue(record({"FP3", "C:\\A\\1.fp3", "1"}) + record({"FP3", "c:\\a\\1.fp3", "2"}));
  EXPECT_EQ(change({{L"C:\\A\\1.fp3", L"D:\\1.fp3"}, {L"c:\\a\\1.fp3", L"D:\\1.fp3"}}),
            L"2 entries changed");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\1.fp3", "1"}) + record({"FP3", "D:\\1.fp3", "2"}));
}

TEST_F(MovedRecords, ANameThatTheCodePageLacksIsWrittenInItsShortForm) {
  desktop().giveShortNames(L"D:");
  desktop().putFile(L"D:\\\u0416\u0416.fp3", "");
  putCatalogue(record({"FP3", "C:\\??.fp3", "1"}));
  EXPECT_EQ(change({{L"C:\\??.fp3", L"D:\\\u0416\u0416.fp3"}}), L"1 entry changed");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\__~1.FP3", "1"}));
}

TEST_F(MovedRecords, SuchANameIsListedAlreadyInEitherForm) {
  desktop().giveShortNames(L"D:");
  desktop().putFile(L"D:\\\u0416\u0416.fp3", "");
  for (const char* const form : {"D:\\__~1.FP3", "D:\\??.fp3"}) {
    const std::string old = record({"FP3", "C:\\??.fp3", "1"}) + record({"FP3", form, "1"});
    putCatalogue(old);
    EXPECT_EQ(change({{L"C:\\??.fp3", L"D:\\\u0416\u0416.fp3"}}),
              L"0 entries changed, 1 already listed");
    EXPECT_EQ(catalogue(), old);
  }
}

TEST_F(MovedRecords, AnotherProgramMayWriteMeanwhile) {
  putCatalogue(record({"FP3", "C:\\A\\1.fp3", "1"}) + record({"FP3", "C:\\A\\2.fp3", "1"}));
  const std::string others = record({"FP3", "D:\\1.fp3", "9"});
  atNextReplacement([&] { putCatalogue(others + catalogue()); });
  EXPECT_EQ(change({{L"C:\\A\\1.fp3", L"D:\\1.fp3"}, {L"C:\\A\\2.fp3", L"D:\\2.fp3"}}),
            L"1 entry changed, 1 already listed");
  EXPECT_EQ(catalogue(),
            others + record({"FP3", "C:\\A\\1.fp3", "1"}) + record({"FP3", "D:\\2.fp3", "1"}));
}

TEST_F(MovedRecords, AFailureIsReportedAndChangesNothing) {
  const std::string old = record({"FP3", "C:\\A\\1.fp3", "1"});
  putCatalogue(old);
  desktop().setReadOnly(unit::catalogueFile);
  EXPECT_EQ(change({{L"C:\\A\\1.fp3", L"D:\\1.fp3"}}), L"failed");
  EXPECT_EQ(catalogue(), old);
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r75-Path/File access error"});
}

TEST_F(MovedRecords, WhatIsNotThereIsTakenOut) {
  desktop().putFile(L"D:\\1.fp3", "");
  std::vector<PathChange> changes{{L"C:\\1.fp3", L"D:\\1.fp3"}, {L"C:\\2.fp3", L"D:\\2.fp3"}};
  EXPECT_EQ(modQMKGeneral::dropThoseGone(changes), 1U);
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes.front().to, L"D:\\1.fp3");
}

}  // namespace
