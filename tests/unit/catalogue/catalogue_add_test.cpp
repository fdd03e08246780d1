#include <gtest/gtest.h>

#include "unit/support/catalogue_test.h"
#include "unit/support/fault_sweep.h"

namespace {

using memory::desktop;
using modQMKGeneral::AddOrUpdateCatalogueEntry;
using unit::record;
using unit::Texts;

class CatalogueAdd : public unit::CatalogueTest {
 protected:
  const std::string first = record({"fp3", "D:\\One.fp3", "1/1/2001 1:00:00 AM"});
  const std::string second = record({"BI3", "D:\\Two.bi3", "2/2/2002"});
};

TEST_F(CatalogueAdd, MakesAMissingCatalogueWithTheSingleRecord) {
  AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3");
  EXPECT_EQ(catalogue(), record({"CW3", "D:\\New.cw3", "11/20/2026"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueAdd, PutsANewEntryLastWithTodaysDateWithoutATime) {
  putCatalogue(first + second);
  AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3");
  EXPECT_EQ(catalogue(), first + second + record({"CW3", "D:\\New.cw3", "11/20/2026"}));
}

TEST_F(CatalogueAdd, WritesTheTypeCodeOfANewEntryAsItWasPassed) {
  AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"Cw3");
  EXPECT_EQ(catalogue(), record({"Cw3", "D:\\New.cw3", "11/20/2026"}));
}

TEST_F(CatalogueAdd, AnEntryListedInOtherCaseChangesOnlyItsPathsCaseAndItsDate) {
  putCatalogue(first + second);
  AddOrUpdateCatalogueEntry(L"d:\\ONE.FP3", L"CW3");
  EXPECT_EQ(catalogue(), record({"fp3", "d:\\ONE.FP3", "11/20/2026"}) + second);
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueAdd, StampsEveryRecordOfThePath) {
  putCatalogue(first + second + first);
  AddOrUpdateCatalogueEntry(L"D:\\One.fp3", L"FP3");
  const std::string stamped = record({"fp3", "D:\\One.fp3", "11/20/2026"});
  EXPECT_EQ(catalogue(), stamped + second + stamped);
}

TEST_F(CatalogueAdd, CopiesOtherRecordsByteForByte) {
  const std::string foreign = " fp3 , D:\\odd.fp3,x,y\n\n\xFF\xFE,\"open\r";
  putCatalogue(foreign + first);
  AddOrUpdateCatalogueEntry(L"D:\\One.fp3", L"FP3");
  EXPECT_EQ(catalogue(), foreign + record({"fp3", "D:\\One.fp3", "11/20/2026"}));
}

TEST_F(CatalogueAdd, KeepsWhatAStampedRecordHoldsBehindItsThreeFields) {
  putCatalogue("fp3,D:\\One.fp3,1,\"four, and\",five\n");
  AddOrUpdateCatalogueEntry(L"D:\\One.fp3", L"FP3");
  EXPECT_EQ(catalogue(), "\"fp3\",\"D:\\One.fp3\",\"11/20/2026\",\"four, and\",five\r\n");
}

TEST_F(CatalogueAdd, ARecordOfTwoFieldsGetsItsDate) {
  putCatalogue("\"fp3\",\"D:\\One.fp3\"");
  AddOrUpdateCatalogueEntry(L"D:\\One.fp3", L"FP3");
  EXPECT_EQ(catalogue(), record({"fp3", "D:\\One.fp3", "11/20/2026"}));
}

TEST_F(CatalogueAdd, AnEmptyPathIsNoBlankLinesPath) {
  putCatalogue("\r\n" + first);
  AddOrUpdateCatalogueEntry(L"", L"FP3");
  EXPECT_EQ(catalogue(), "\r\n" + first + record({"FP3", "", "11/20/2026"}));
}

TEST_F(CatalogueAdd, ACommaInAPathIsProtectedByTheQuotes) {
  AddOrUpdateCatalogueEntry(L"D:\\a, b.fp3", L"FP3");
  AddOrUpdateCatalogueEntry(L"D:\\A, B.fp3", L"FP3");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\A, B.fp3", "11/20/2026"}));
}

TEST_F(CatalogueAdd, ComparesAccentedLettersWithoutCase) {
  putCatalogue(record({"fp3", "D:\\\xC9T\xC9.fp3", "1"}));
  AddOrUpdateCatalogueEntry(L"D:\\\u00E9t\u00E9.fp3", L"FP3");
  EXPECT_EQ(catalogue(), record({"fp3", "D:\\\xE9t\xE9.fp3", "11/20/2026"}));
}

TEST_F(CatalogueAdd, APathThatTheCodePageLacksIsFoundAgainAndListedOnce) {
  AddOrUpdateCatalogueEntry(L"D:\\\u0416.fp3", L"FP3");
  AddOrUpdateCatalogueEntry(L"D:\\\u0416.fp3", L"FP3");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\?.fp3", "11/20/2026"}));
}

TEST_F(CatalogueAdd, WritesTodayAsTheUserWritesADate) {
  desktop().formatDate = [](const ::memory::DateTime& day) {
    return std::to_wstring(day.year) + L"-" + std::to_wstring(day.month);
  };
  AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3");
  EXPECT_EQ(catalogue(), record({"CW3", "D:\\New.cw3", "2026-11"}));
}

TEST_F(CatalogueAdd, DiscardsAStaleTemporaryFileInEitherCase) {
  desktop().putFile(unit::temporaryFile, "stale");
  AddOrUpdateCatalogueEntry(L"D:\\One.fp3", L"FP3");
  desktop().putFile(unit::temporaryFile, "stale");
  AddOrUpdateCatalogueEntry(L"D:\\Two.fp3", L"FP3");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\One.fp3", "11/20/2026"}) +
                             record({"FP3", "D:\\Two.fp3", "11/20/2026"}));
  EXPECT_FALSE(desktop().has(unit::temporaryFile));
}

TEST_F(CatalogueAdd, LeavesTheReloadToTheWatch) {
  modQMKGeneral::LoadCatalogueView(view);
  AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3");
  EXPECT_EQ(list.count(), 0U);
  modQMKGeneral::watchCatalogue(view);
  EXPECT_EQ(rows(), Texts{L"New.cw3"});
}

TEST_F(CatalogueAdd, ShowsAnErrorAndRaisesNone) {
  putCatalogue(first);
  desktop().lock(unit::catalogueFile);
  EXPECT_EQ(errorNumberOf([] { AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3"); }), 0);
  ASSERT_EQ(messages(), Texts{L"Problem saving to QMK list\r70-Permission denied"});
  EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::information);
  EXPECT_EQ(desktop().messages[0].title, L"Quillmark Suite 3 Gateway");
  EXPECT_EQ(catalogue(), first);
}

TEST_F(CatalogueAdd, AReadOnlyCatalogueIsRefused) {
  putCatalogue(first);
  desktop().setReadOnly(unit::catalogueFile);
  AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r75-Path/File access error"});
  EXPECT_EQ(catalogue(), first);
}

TEST_F(CatalogueAdd, KeepsTheRecordsThatAnotherProgramWritesMeanwhile) {
  putCatalogue(first);
  atNextReplacement([this] { putCatalogue(second + first); });
  AddOrUpdateCatalogueEntry(L"D:\\two.bi3", L"BI3");
  EXPECT_EQ(catalogue(), record({"BI3", "D:\\two.bi3", "11/20/2026"}) + first);
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueAdd, ACatalogueThatAnotherProgramMakesMeanwhileIsKept) {
  atNextReplacement([this] { putCatalogue(second); });
  AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3");
  EXPECT_EQ(catalogue(), second + record({"CW3", "D:\\New.cw3", "11/20/2026"}));
}

TEST_F(CatalogueAdd, WhateverCallFailsTheCatalogueIsTheOldOneAndTheMessageTellsWhy) {
  const std::string added = first + record({"CW3", "D:\\New.cw3", "11/20/2026"});
  unit::sweepFaults(
      4, {.prepare =
              [&] {
                putCatalogue(first);
                desktop().putFile(unit::temporaryFile, "stale");
              },
          .operation = [] { AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3"); },
          .check =
              [&](const unit::Fault& fault) {
                if (!fault.happened) {
                  EXPECT_EQ(catalogue(), added);
                  EXPECT_TRUE(messages().empty());
                  EXPECT_FALSE(desktop().has(unit::temporaryFile));
                  return;
                }
                EXPECT_EQ(catalogue(), first);
                EXPECT_EQ(messages(),
                          Texts{L"Problem saving to QMK list\r" +
                                platform::RunTimeError(fault.number).numberAndDescription()});
                AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3");
                EXPECT_EQ(catalogue(), added);
                EXPECT_FALSE(desktop().has(unit::temporaryFile));
              }});
}

TEST_F(CatalogueAdd, WhateverCallFailsThereIsNoHalfCatalogueWhereThereWasNone) {
  unit::sweepFaults(
      3, {.prepare =
              [] {
                for (const auto& path : {unit::catalogueFile, unit::temporaryFile}) {
                  if (desktop().has(path)) {
                    desktop().take(path);
                  }
                }
              },
          .operation = [] { AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3"); },
          .check =
              [](const unit::Fault& fault) {
                EXPECT_EQ(catalogue(),
                          fault.happened ? "(none)" : record({"CW3", "D:\\New.cw3", "11/20/2026"}));
                EXPECT_EQ(messages().size(), fault.happened ? 1U : 0U);
              }});
}

}  // namespace
