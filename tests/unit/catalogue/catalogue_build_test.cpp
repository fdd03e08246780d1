#include <gtest/gtest.h>

#include "unit/support/catalogue_test.h"
#include "unit/support/fault_sweep.h"

namespace {

using memory::desktop;
using modQMKGeneral::BuildCatalogue;
using modQMKGeneral::LoadCatalogueView;
using unit::record;
using unit::Texts;

class CatalogueBuild : public unit::CatalogueTest {};

TEST_F(CatalogueBuild, AMissingCatalogueBecomesTheDataFolderInTheOrderOfTypes) {
  putData(L"c.cw3");
  putData(L"s.bs3");
  putData(L"i.bi3");
  putData(L"p.fp3");
  LoadCatalogueView(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "p.fp3") + dataRecord("bi3", "i.bi3") +
                             dataRecord("bs3", "s.bs3") + dataRecord("cw3", "c.cw3"));
  EXPECT_EQ(rows(), (Texts{L"c.cw3", L"i.bi3", L"p.fp3", L"s.bs3"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueBuild, WritesTheFilesOfATypeAsTheDirectoryListsThem) {
  putData(L"z.fp3");
  putData(L"a.fp3");
  putData(L"m.fp3");
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(),
            dataRecord("fp3", "z.fp3") + dataRecord("fp3", "a.fp3") + dataRecord("fp3", "m.fp3"));
}

TEST_F(CatalogueBuild, KeepsTheRecordsThatAreThereAndAddsTheOthersBehind) {
  putCatalogue(record({"FP3", "D:\\x.fp3", "1/2/2003"}));
  putData(L"p.fp3");
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\x.fp3", "1/2/2003"}) + dataRecord("fp3", "p.fp3"));
}

TEST_F(CatalogueBuild, ListsAgainWhatIsListedAlready) {
  putData(L"p.fp3");
  BuildCatalogue(view);
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "p.fp3") + dataRecord("fp3", "p.fp3"));
}

TEST_F(CatalogueBuild, EndsALastLineThatAnotherProgramLeftOpen) {
  putCatalogue("\"FP3\",\"D:\\x.fp3\",\"1\"");
  putData(L"p.fp3");
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\x.fp3", "1"}) + dataRecord("fp3", "p.fp3"));
}

TEST_F(CatalogueBuild, LeavesOutHiddenAndSystemFilesFoldersAndOtherTypes) {
  putData(L"p.fp3");
  desktop().putFile(L"C:\\App\\data\\hidden.fp3", "", platform::files::hidden);
  desktop().putFile(L"C:\\App\\data\\system.fp3", "", platform::files::system);
  desktop().putFolder(L"C:\\App\\data\\folder.fp3");
  desktop().putFile(L"C:\\App\\data\\folder.fp3\\inner.fp3", "");
  putData(L"note.txt");
  putData(L"picture.bw3");
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "p.fp3"));
}

TEST_F(CatalogueBuild, WritesTheCodeInLowerCaseAndTheNameAsItIsStored) {
  putData(L"PLOT, old.FP3");
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "PLOT, old.FP3"));
  EXPECT_EQ(rows(), Texts{L"PLOT, old.FP3"});
}

TEST_F(CatalogueBuild, NamesTheDataFolderInLowerCaseHoweverItIsStored) {
  desktop().putFile(L"C:\\App\\DATA\\p.fp3", "", platform::files::normal,
                    memory::fileTime({.day = 16}));
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "p.fp3"));
}

TEST_F(CatalogueBuild, WritesTheDateAndTimeOfTheLastModificationAsTheUserWritesThem) {
  desktop().formatDateAndTime = [](const ::memory::DateTime& moment) {
    return L"day " + std::to_wstring(moment.day) + L" hour " + std::to_wstring(moment.hour);
  };
  putData(L"p.fp3");
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), record({"fp3", "C:\\App\\data\\p.fp3", "day 16 hour 14"}));
  EXPECT_EQ(row(0)[2], L"day 16 hour 14");
}

TEST_F(CatalogueBuild, ReloadsTheView) {
  putData(L"p.fp3");
  BuildCatalogue(view);
  EXPECT_EQ(rows(), Texts{L"p.fp3"});
}

TEST_F(CatalogueBuild, WithoutDataFolderAndCatalogueLoadingMakesAnEmptyCatalogue) {
  LoadCatalogueView(view);
  EXPECT_EQ(catalogue(), "");
  EXPECT_EQ(list.count(), 0U);
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueBuild, WithAnEmptyDataFolderLoadingMakesAnEmptyCatalogue) {
  desktop().putFolder(L"C:\\App\\data");
  LoadCatalogueView(view);
  EXPECT_EQ(catalogue(), "");
  EXPECT_EQ(list.count(), 0U);
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueBuild, StopsWhenTheCatalogueIsStillNotFoundAfterwards) {
  // Another program hides the temporary file just before it replaces the list.
  desktop().onReplace = [] { desktop().setHidden(unit::temporaryFile); };
  putData(L"p.fp3");
  LoadCatalogueView(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "p.fp3"));
  EXPECT_EQ(list.count(), 0U);
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueBuild, AStaleHiddenTemporaryFileDoesNotHideTheCatalogue) {
  desktop().putFile(unit::temporaryFile, "stale", platform::files::hidden);
  putData(L"p.fp3");
  LoadCatalogueView(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "p.fp3"));
  EXPECT_TRUE(platform::files::fileExists(unit::catalogueFile));
  EXPECT_EQ(list.count(), 1U);
}

TEST_F(CatalogueBuild, LeavesErrorsToTheCaller) {
  putCatalogue("");
  desktop().setReadOnly(unit::catalogueFile);
  EXPECT_EQ(errorNumberOf([this] { BuildCatalogue(view); }), 75);
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueBuild, AnErrorWhileTheLoadBuildsIsTheLoadsToReport) {
  desktop().putFolder(unit::temporaryFile);
  LoadCatalogueView(view);
  EXPECT_EQ(messages(), Texts{L"Problem building QMK file list\rLocation: 2\r75-Path/File access "
                              L"error"});
}

TEST_F(CatalogueBuild, KeepsTheRecordsThatAnotherProgramWritesMeanwhile) {
  putCatalogue(record({"FP3", "D:\\x.fp3", "1"}));
  putData(L"p.fp3");
  atNextReplacement([] {
    putCatalogue(record({"FP3", "D:\\x.fp3", "1"}) + record({"CW3", "D:\\y.cw3", "2"}));
  });
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\x.fp3", "1"}) + record({"CW3", "D:\\y.cw3", "2"}) +
                             dataRecord("fp3", "p.fp3"));
}

TEST_F(CatalogueBuild, ACharacterThatTheCodePageLacksDamagesNoOtherRecord) {
  putData(L"plot \u0416.fp3");
  putData(L"\u00E9t\u00E9.fp3");
  BuildCatalogue(view);
  EXPECT_EQ(catalogue(), dataRecord("fp3", "plot ?.fp3") + dataRecord("fp3", "\xE9t\xE9.fp3"));
  EXPECT_EQ(rows(), (Texts{L"plot ?.fp3", L"\u00E9t\u00E9.fp3"}));
}

TEST_F(CatalogueBuild, WhateverCallFailsTheCatalogueIsTheOldOneOrTheNewOne) {
  const std::string old = record({"FP3", "D:\\x.fp3", "1"});
  const std::string built = old + dataRecord("fp3", "p.fp3");
  putData(L"p.fp3");
  int raised = 0;
  unit::sweepFaults(
      5, {.prepare =
              [&] {
                putCatalogue(old);
                desktop().putFile(unit::temporaryFile, "stale");
              },
          .operation = [&] { raised = errorNumberOf([this] { BuildCatalogue(view); }); },
          .check =
              [&](const unit::Fault& fault) {
                if (!fault.happened) {
                  EXPECT_EQ(raised, 0);
                  EXPECT_EQ(catalogue(), built);
                  EXPECT_TRUE(messages().empty());
                } else if (fault.was(L"read C:")) {
                  // Only the reload failed, and it shows its own message.
                  EXPECT_EQ(raised, 0);
                  EXPECT_EQ(catalogue(), built);
                  ASSERT_EQ(messages().size(), 1U);
                  EXPECT_TRUE(
                      messages()[0].starts_with(L"Problem building QMK file list\rLocation: 2\r" +
                                                std::to_wstring(fault.number) + L"-"));
                } else {
                  EXPECT_EQ(raised, fault.number);
                  EXPECT_EQ(catalogue(), old);
                  EXPECT_TRUE(messages().empty());
                }
              }});
}

}  // namespace
