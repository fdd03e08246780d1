#include <gtest/gtest.h>

#include "unit/support/catalogue_test.h"
#include "unit/support/fault_sweep.h"

namespace {

using memory::desktop;
using modQMKGeneral::RemoveCatalogueEntry;
using unit::record;
using unit::Texts;

class CatalogueRemove : public unit::CatalogueTest {
 protected:
  const std::string first = record({"fp3", "D:\\One.fp3", "1"});
  const std::string second = record({"BI3", "D:\\Two.bi3", "2"});
};

TEST_F(CatalogueRemove, DropsEveryRecordOfThePathAndDeletesTheFile) {
  putCatalogue(first + second + first);
  desktop().putFile(L"D:\\One.fp3", "data");
  RemoveCatalogueEntry(L"D:\\One.fp3");
  EXPECT_EQ(catalogue(), second);
  EXPECT_FALSE(desktop().has(L"D:\\One.fp3"));
}

TEST_F(CatalogueRemove, KeepsARecordThatDiffersOnlyInCaseButDeletesTheFile) {
  putCatalogue(first + second);
  desktop().putFile(L"D:\\One.fp3", "data");
  RemoveCatalogueEntry(L"d:\\one.fp3");
  EXPECT_EQ(catalogue(), first + second);
  EXPECT_FALSE(desktop().has(L"D:\\One.fp3"));
}

TEST_F(CatalogueRemove, DropsTheRecordOfAFileThatIsGone) {
  putCatalogue(first + second);
  RemoveCatalogueEntry(L"D:\\One.fp3");
  EXPECT_EQ(catalogue(), second);
}

TEST_F(CatalogueRemove, DeletesAFileThatIsNotListed) {
  putCatalogue(second);
  desktop().putFile(L"D:\\One.fp3", "data");
  RemoveCatalogueEntry(L"D:\\One.fp3");
  EXPECT_EQ(catalogue(), second);
  EXPECT_FALSE(desktop().has(L"D:\\One.fp3"));
}

TEST_F(CatalogueRemove, DeletesTheFileOnlyAfterItsRecordIsGone) {
  putCatalogue(first);
  desktop().putFile(L"D:\\One.fp3", "data");
  RemoveCatalogueEntry(L"D:\\One.fp3");
  const auto replaced =
      desktop().journalPlace(L"replace " + unit::temporaryFile + L" -> " + unit::catalogueFile);
  const auto removed = desktop().journalPlace(L"recycle D:\\One.fp3");
  ASSERT_TRUE(replaced && removed);
  EXPECT_LT(*replaced, *removed);
}

TEST_F(CatalogueRemove, KeepsTheLastFileOfACatalogueThatBecomesEmpty) {
  putCatalogue(first);
  RemoveCatalogueEntry(L"D:\\One.fp3");
  EXPECT_EQ(catalogue(), "");
}

TEST_F(CatalogueRemove, CopiesOtherRecordsByteForByte) {
  const std::string foreign = " fp3 , D:\\odd.fp3,x,y\n\n\xFF\xFE,\"open\r";
  putCatalogue(foreign + first + "D:\\One.fp3");
  RemoveCatalogueEntry(L"D:\\One.fp3");
  EXPECT_EQ(catalogue(), foreign + "D:\\One.fp3");
}

TEST_F(CatalogueRemove, AnEmptyPathDropsNoLineThatHasNone) {
  putCatalogue("\r\nx\r\n" + first);
  RemoveCatalogueEntry(L"");
  EXPECT_EQ(catalogue(), "\r\nx\r\n" + first);
}

TEST_F(CatalogueRemove, DeletesAStaleTemporaryFileFirst) {
  putCatalogue(first + second);
  desktop().putFile(unit::temporaryFile, "stale");
  RemoveCatalogueEntry(L"D:\\One.fp3");
  EXPECT_EQ(catalogue(), second);
  EXPECT_FALSE(desktop().has(unit::temporaryFile));
}

TEST_F(CatalogueRemove, DoesNotReloadTheView) {
  putCatalogue(first + second);
  modQMKGeneral::LoadCatalogueView(view);
  RemoveCatalogueEntry(L"D:\\One.fp3");
  EXPECT_EQ(list.count(), 2U);
}

TEST_F(CatalogueRemove, WithoutACatalogueItIsAnErrorAndTheFileStays) {
  desktop().putFile(L"D:\\One.fp3", "data");
  EXPECT_EQ(errorNumberOf([] { RemoveCatalogueEntry(L"D:\\One.fp3"); }), 53);
  EXPECT_TRUE(desktop().has(L"D:\\One.fp3"));
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueRemove, AReadOnlyDataFileIsAnErrorAfterItsRecordIsGone) {
  putCatalogue(first + second);
  desktop().putFile(L"D:\\One.fp3", "data");
  desktop().setReadOnly(L"D:\\One.fp3");
  EXPECT_EQ(errorNumberOf([] { RemoveCatalogueEntry(L"D:\\One.fp3"); }), 75);
  EXPECT_EQ(catalogue(), second);
  EXPECT_TRUE(desktop().has(L"D:\\One.fp3"));
}

TEST_F(CatalogueRemove, AQuestionMarkInAPathNeverDeletesAnotherFile) {
  putCatalogue(record({"fp3", "D:\\plot?.fp3", "1"}) + second);
  desktop().putFile(L"D:\\plot1.fp3", "data");
  EXPECT_EQ(errorNumberOf([] { RemoveCatalogueEntry(L"D:\\plot?.fp3"); }), 0);
  EXPECT_EQ(catalogue(), second);
  EXPECT_TRUE(desktop().has(L"D:\\plot1.fp3"));
}

TEST_F(CatalogueRemove, KeepsTheRecordsThatAnotherProgramWritesMeanwhile) {
  putCatalogue(first);
  atNextReplacement([this] { putCatalogue(first + second); });
  RemoveCatalogueEntry(L"D:\\One.fp3");
  EXPECT_EQ(catalogue(), second);
}

TEST_F(CatalogueRemove, WhateverCallFailsTheCatalogueIsTheOldOneOrTheNewOne) {
  int raised = 0;
  unit::sweepFaults(
      5, {.prepare =
              [this] {
                putCatalogue(first + second);
                desktop().putFile(unit::temporaryFile, "stale");
                desktop().putFile(L"D:\\One.fp3", "data");
              },
          .operation =
              [&raised] { raised = errorNumberOf([] { RemoveCatalogueEntry(L"D:\\One.fp3"); }); },
          .check =
              [&](const unit::Fault& fault) {
                const bool fileStayed = fault.was(L"recycle D:\\One.fp3");
                EXPECT_EQ(raised, fault.happened ? fault.number : 0);
                EXPECT_TRUE(messages().empty());
                EXPECT_EQ(catalogue(), fault.happened && !fileStayed ? first + second : second);
                EXPECT_EQ(desktop().has(L"D:\\One.fp3"), fault.happened);
                RemoveCatalogueEntry(L"D:\\One.fp3");
                EXPECT_EQ(catalogue(), second);
                EXPECT_FALSE(desktop().has(L"D:\\One.fp3"));
                EXPECT_FALSE(desktop().has(unit::temporaryFile));
              }});
}

}  // namespace
