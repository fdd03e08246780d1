#include <gtest/gtest.h>

#include "unit/support/catalogue_test.h"
#include "unit/support/fault_sweep.h"

namespace {

using memory::desktop;
using modQMKGeneral::RefreshDataFolderEntries;
using unit::record;
using unit::Texts;

class CatalogueRefresh : public unit::CatalogueTest {
 protected:
  const std::string elsewhere1 = record({"FP3", "D:\\z.fp3", "1"});
  const std::string elsewhere2 = record({"CW3", "C:\\App\\a.cw3", "2"});
  const std::string gone = record({"fp3", "C:\\App\\data\\gone.fp3", "3"});
};

TEST_F(CatalogueRefresh, KeepsOtherFoldersInTheirOrderAndPutsTheDataFolderBehindThem) {
  putData(L"c.cw3");
  putData(L"p.fp3");
  putCatalogue(gone + elsewhere1 + gone + elsewhere2);
  RefreshDataFolderEntries(view);
  EXPECT_EQ(catalogue(),
            elsewhere1 + elsewhere2 + dataRecord("fp3", "p.fp3") + dataRecord("cw3", "c.cw3"));
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueRefresh, GivesTheDataFoldersRecordsTheDatesOfNow) {
  putData(L"p.fp3");
  putCatalogue(record({"FP3", "C:\\App\\data\\p.fp3", "long ago"}));
  RefreshDataFolderEntries(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "p.fp3"));
}

TEST_F(CatalogueRefresh, TheDataFolderIsKnownInAnyCase) {
  putCatalogue(record({"fp3", "c:\\APP\\DATA\\gone.fp3", "1"}) +
               record({"fp3", "C:\\app\\Data\\gone.fp3", "1"}));
  RefreshDataFolderEntries(view);
  EXPECT_EQ(catalogue(), "");
}

TEST_F(CatalogueRefresh, BlanksAroundTheFolderDoNotCount) {
  putCatalogue(record({"fp3", "  C:\\App\\data\\gone.fp3", "1"}));
  RefreshDataFolderEntries(view);
  EXPECT_EQ(catalogue(), "");
}

TEST_F(CatalogueRefresh, SubfoldersAndLongerNamesAreOtherFolders) {
  const std::string others = record({"fp3", "C:\\App\\data\\sub\\x.fp3", "1"}) +
                             record({"fp3", "C:\\App\\data2\\x.fp3", "1"}) +
                             record({"fp3", "C:\\App\\data", "1"});
  putCatalogue(others);
  RefreshDataFolderEntries(view);
  EXPECT_EQ(catalogue(), others);
}

TEST_F(CatalogueRefresh, CopiesOtherRecordsByteForByte) {
  const std::string foreign = " fp3 , D:\\odd.fp3,x,y\n\n\xFF\xFE,\"open\rx";
  putCatalogue(foreign);
  RefreshDataFolderEntries(view);
  EXPECT_EQ(catalogue(), foreign);
}

TEST_F(CatalogueRefresh, ReloadsTheView) {
  putData(L"p.fp3");
  putCatalogue(elsewhere1 + gone);
  RefreshDataFolderEntries(view);
  EXPECT_EQ(rows(), (Texts{L"p.fp3", L"z.fp3"}));
}

TEST_F(CatalogueRefresh, DeletesAStaleTemporaryFileFirst) {
  putCatalogue(elsewhere1);
  desktop().putFile(unit::temporaryFile, "stale");
  RefreshDataFolderEntries(view);
  EXPECT_EQ(catalogue(), elsewhere1);
  EXPECT_FALSE(desktop().has(unit::temporaryFile));
}

TEST_F(CatalogueRefresh, WithoutACatalogueItIsAnError) {
  putData(L"p.fp3");
  EXPECT_EQ(errorNumberOf([this] { RefreshDataFolderEntries(view); }), 53);
  EXPECT_EQ(catalogue(), "(none)");
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueRefresh, NeverLeavesTheCatalogueWithoutTheDataFolder) {
  putData(L"p.fp3");
  putCatalogue(gone);
  std::vector<std::string> seen;
  desktop().onReplace = [&seen] { seen.push_back(catalogue()); };
  RefreshDataFolderEntries(view);
  EXPECT_EQ(seen, std::vector<std::string>{gone});
  EXPECT_EQ(catalogue(), dataRecord("fp3", "p.fp3"));
}

TEST_F(CatalogueRefresh, KeepsTheRecordsThatAnotherProgramWritesMeanwhile) {
  putData(L"p.fp3");
  putCatalogue(elsewhere1);
  atNextReplacement([this] {
    putCatalogue(elsewhere1 + elsewhere2);
    putData(L"q.fp3");
  });
  RefreshDataFolderEntries(view);
  EXPECT_EQ(catalogue(),
            elsewhere1 + elsewhere2 + dataRecord("fp3", "p.fp3") + dataRecord("fp3", "q.fp3"));
}

TEST_F(CatalogueRefresh, WhateverCallFailsTheCatalogueIsTheOldOneOrTheNewOne) {
  putData(L"p.fp3");
  const std::string old = gone + elsewhere1;
  const std::string fresh = elsewhere1 + dataRecord("fp3", "p.fp3");
  int raised = 0;
  unit::sweepFaults(
      5, {.prepare =
              [&] {
                putCatalogue(old);
                desktop().putFile(unit::temporaryFile, "stale");
              },
          .operation = [&] { raised = errorNumberOf([this] { RefreshDataFolderEntries(view); }); },
          .check =
              [&](const unit::Fault& fault) {
                const bool onlyReload = fault.was(L"read C:") &&
                                        desktop().journalHas(L"replace " + unit::temporaryFile +
                                                             L" -> " + unit::catalogueFile);
                if (!fault.happened || onlyReload) {
                  EXPECT_EQ(raised, 0);
                  EXPECT_EQ(catalogue(), fresh);
                  EXPECT_EQ(messages().size(), onlyReload ? 1U : 0U);
                } else {
                  EXPECT_EQ(raised, fault.number);
                  EXPECT_EQ(catalogue(), old);
                  EXPECT_TRUE(messages().empty());
                }
                RefreshDataFolderEntries(view);
                EXPECT_EQ(catalogue(), fresh);
                EXPECT_FALSE(desktop().has(unit::temporaryFile));
              }});
}

}  // namespace
