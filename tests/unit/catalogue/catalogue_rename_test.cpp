#include <gtest/gtest.h>

#include "platform/faults.h"
#include "unit/support/catalogue_test.h"
#include "unit/support/fault_sweep.h"

namespace {

using memory::desktop;
using modQMKGeneral::LoadCatalogueView;
using modQMKGeneral::RenameCatalogueFile;
using unit::record;
using unit::Texts;

class CatalogueRename : public unit::CatalogueTest {
 protected:
  /// A catalogue of one data file that exists, loaded; the file is the selected item.
  void listOne(const std::string& type, const std::string& name) {
    desktop().putFile(L"D:\\d\\" + std::wstring(name.begin(), name.end()), "data");
    putCatalogue(record({type, "D:\\d\\" + name, "1/2/2003 4:05:06 PM"}));
    LoadCatalogueView(view);
  }
};

TEST_F(CatalogueRename, RenamesTheFileItsItemAndItsRecord) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L"new.fp3");
  EXPECT_FALSE(desktop().has(L"D:\\d\\old.fp3"));
  EXPECT_EQ(desktop().bytesOf(L"D:\\d\\new.fp3"), "data");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\d\\new.fp3", "1/2/2003 4:05:06 PM"}));
  EXPECT_EQ(rows(), Texts{L"new.fp3"});
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueRename, ANameWithoutExtensionGetsTheTypeInUpperCase) {
  listOne("bi3", "old.bi3");
  RenameCatalogueFile(view, L"report");
  EXPECT_EQ(catalogue(), record({"bi3", "D:\\d\\report.BI3", "1/2/2003 4:05:06 PM"}));
  EXPECT_TRUE(desktop().has(L"D:\\d\\report.BI3"));
  EXPECT_EQ(rows(), Texts{L"report.BI3"});
}

TEST_F(CatalogueRename, ANameWithTheExtensionIsKeptAsTyped) {
  listOne("BI3", "old.bi3");
  RenameCatalogueFile(view, L"report.bi3");
  EXPECT_EQ(catalogue(), record({"BI3", "D:\\d\\report.bi3", "1/2/2003 4:05:06 PM"}));
}

TEST_F(CatalogueRename, OnlyTheLastThreeCharactersCountNotTheDot) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L"plotFP3");
  EXPECT_EQ(rows(), Texts{L"plotFP3"});
}

TEST_F(CatalogueRename, ANameOfThreeCharactersAlwaysGetsTheExtension) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L"FP3");
  EXPECT_EQ(rows(), Texts{L"FP3.FP3"});
}

TEST_F(CatalogueRename, AnotherTypesExtensionIsPartOfTheName) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L"plot.bi3");
  EXPECT_EQ(rows(), Texts{L"plot.bi3.FP3"});
}

TEST_F(CatalogueRename, ABlankIsANameLikeAnother) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L" ");
  EXPECT_EQ(rows(), Texts{L" .FP3"});
}

TEST_F(CatalogueRename, AnUnknownTypeIsAnExtensionToo) {
  listOne("Xyz", "old.dat");
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(catalogue(), record({"Xyz", "D:\\d\\new.XYZ", "1/2/2003 4:05:06 PM"}));
}

TEST_F(CatalogueRename, RenamesWithADoubledSeparatorInBothPaths) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L"new.fp3");
  EXPECT_TRUE(desktop().journalHas(L"rename D:\\d\\\\old.fp3 -> D:\\d\\\\new.fp3"));
}

TEST_F(CatalogueRename, TheCatalogueBecomesTheListInItsOrderWithDatesAndCodesAsTheyWere) {
  desktop().putFile(L"D:\\b.fp3", "");
  putCatalogue(record({"fp3", "D:\\c.fp3", "3"}) + record({"FP3", "D:\\b.fp3", "2"}) +
               "no record\r\n" + record({"xyz", "E:\\a.dat", "any text", "a fourth field"}));
  LoadCatalogueView(view);
  select(list, L"b.fp3");
  RenameCatalogueFile(view, L"z.fp3");
  EXPECT_EQ(catalogue(), record({"xyz", "E:\\a.dat", "any text"}) +
                             record({"fp3", "D:\\c.fp3", "3"}) + record({"FP3", "D:\\z.fp3", "2"}));
}

TEST_F(CatalogueRename, TheRenamedItemStaysTheSelectedOne) {
  desktop().putFile(L"D:\\a.fp3", "");
  putCatalogue(record({"FP3", "D:\\a.fp3", "1"}) + record({"FP3", "D:\\b.fp3", "2"}));
  LoadCatalogueView(view);
  select(list, L"a.fp3");
  RenameCatalogueFile(view, L"z");
  EXPECT_EQ(rows(), (Texts{L"b.fp3", L"z.FP3"}));
  EXPECT_EQ(list.selected(), 1U);
}

TEST_F(CatalogueRename, OfTwoEntriesOfOneFileTheSelectedOneIsRenamed) {
  desktop().putFile(L"D:\\a.fp3", "");
  putCatalogue(record({"FP3", "D:\\a.fp3", "1"}) + record({"FP3", "D:\\a.fp3", "2"}));
  LoadCatalogueView(view);
  list.select(1);
  RenameCatalogueFile(view, L"z");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\a.fp3", "1"}) + record({"FP3", "D:\\z.FP3", "2"}));
}

TEST_F(CatalogueRename, KeepsAccentedLettersOfAllRecords) {
  desktop().putFile(L"D:\\\u00E9t\u00E9.fp3", "");
  putCatalogue(record({"FP3", "D:\\\xE9t\xE9.fp3", "1"}) + record({"CW3", "D:\\\x80.cw3", "2"}));
  LoadCatalogueView(view);
  select(list, L"\u00E9t\u00E9.fp3");
  RenameCatalogueFile(view, L"\u00FCber");
  EXPECT_EQ(catalogue(), record({"FP3",
                                 "D:\\\xFC"
                                 "ber.FP3",
                                 "1"}) +
                             record({"CW3", "D:\\\x80.cw3", "2"}));
}

TEST_F(CatalogueRename, AMissingFileIsSaidAndItsRemovalAskedForByTheDoubledPath) {
  putCatalogue(record({"FP3", "D:\\d\\gone.fp3", "1"}));
  LoadCatalogueView(view);
  RenameCatalogueFile(view, L"new");
  ASSERT_EQ(messages(), Texts{L"File does not exists, removing entry"});
  EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::critical);
  EXPECT_TRUE(
      desktop().journalHas(L"replace " + unit::temporaryFile + L" -> " + unit::catalogueFile));
  // The removal compares exactly, and the path that it gets has two separators.
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\d\\gone.fp3", "1"}));
}

TEST_F(CatalogueRename, AMissingFileWhoseRecordHasTheDoubledSeparatorLosesIt) {
  putCatalogue(record({"FP3", "D:\\d\\\\gone.fp3", "1"}) + record({"FP3", "D:\\x.fp3", "1"}));
  LoadCatalogueView(view);
  select(list, L"gone.fp3");
  // The item's folder is "D:\d\\", so the path that is looked up has three separators.
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(messages(), Texts{L"File does not exists, removing entry"});
  EXPECT_EQ(catalogue(),
            record({"FP3", "D:\\d\\\\gone.fp3", "1"}) + record({"FP3", "D:\\x.fp3", "1"}));
}

TEST_F(CatalogueRename, AnErrorInTheRemovalOfAMissingFileIsShownToo) {
  putCatalogue(record({"FP3", "D:\\d\\gone.fp3", "1"}));
  LoadCatalogueView(view);
  desktop().setReadOnly(unit::catalogueFile);
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(messages(), (Texts{L"File does not exists, removing entry",
                               L"Problem saving to QMK list\r75-Path/File access error"}));
}

TEST_F(CatalogueRename, ANameThatIsTakenIsRefusedAndNothingChanges) {
  listOne("FP3", "old.fp3");
  desktop().putFile(L"D:\\d\\taken.fp3", "other");
  const std::string before = catalogue();
  RenameCatalogueFile(view, L"taken.fp3");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r58-File already exists"});
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(rows(), Texts{L"old.fp3"});
  EXPECT_EQ(desktop().bytesOf(L"D:\\d\\taken.fp3"), "other");
}

TEST_F(CatalogueRename, ANameThatNoFileCanHaveIsRefused) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L"a*b");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r52-Bad file name or number"});
  EXPECT_TRUE(desktop().has(L"D:\\d\\old.fp3"));
}

TEST_F(CatalogueRename, ANameInAMissingFolderIsRefused) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L"nowhere\\new");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r76-Path not found"});
}

TEST_F(CatalogueRename, OnlyTheLetterCaseCanChange) {
  listOne("FP3", "old.fp3");
  RenameCatalogueFile(view, L"OLD.fp3");
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(desktop().namesIn(L"D:\\d"), Texts{L"OLD.fp3"});
  EXPECT_EQ(rows(), Texts{L"OLD.fp3"});
}

TEST_F(CatalogueRename, WithoutASelectedItemTheErrorIsShown) {
  putCatalogue("");
  LoadCatalogueView(view);
  desktop().putFile(unit::temporaryFile, "stale");
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r91-Object variable or With block "
                              L"variable not set"});
  EXPECT_FALSE(desktop().has(unit::temporaryFile));
}

TEST_F(CatalogueRename, ACatalogueThatVanishedSinceTheLoadIsAnError) {
  listOne("FP3", "old.fp3");
  desktop().take(unit::catalogueFile);
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r53-File not found"});
}

TEST_F(CatalogueRename, KeepsTheRecordsThatAnotherProgramWroteSinceTheLoad) {
  listOne("FP3", "old.fp3");
  putCatalogue(catalogue() + record({"CW3", "D:\\a.cw3", "2"}));
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(catalogue(), record({"CW3", "D:\\a.cw3", "2"}) +
                             record({"FP3", "D:\\d\\new.FP3", "1/2/2003 4:05:06 PM"}));
  EXPECT_EQ(rows(), (Texts{L"a.cw3", L"new.FP3"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueRename, KeepsTheRecordsThatAnotherProgramWritesMeanwhile) {
  listOne("FP3", "old.fp3");
  atNextReplacement([] { putCatalogue(catalogue() + record({"CW3", "D:\\a.cw3", "2"})); });
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(catalogue(), record({"CW3", "D:\\a.cw3", "2"}) +
                             record({"FP3", "D:\\d\\new.FP3", "1/2/2003 4:05:06 PM"}));
}

TEST_F(CatalogueRename, AnEntryThatAnotherProgramDropsMeanwhileStaysDropped) {
  listOne("FP3", "old.fp3");
  atNextReplacement([] { putCatalogue(record({"CW3", "D:\\a.cw3", "2"})); });
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(catalogue(), record({"CW3", "D:\\a.cw3", "2"}));
}

TEST_F(CatalogueRename, NeverWritesAListThatCouldNotBeReloaded) {
  listOne("FP3", "old.fp3");
  const std::string others = record({"CW3", "D:\\a.cw3", "2"});
  atNextReplacement([&others] {
    putCatalogue(others);
    // The replacement is the call after this; the reload comes next.
    desktop().faults().failCall(2, 70, true);
  });
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(catalogue(), others);
  EXPECT_EQ(messages(),
            Texts{L"Problem building QMK file list\rLocation: 2\r70-Permission denied"});
}

TEST_F(CatalogueRename, GivesUpWhenAnotherProgramKeepsChangingTheCatalogue) {
  listOne("FP3", "old.fp3");
  const std::string others = record({"CW3", "D:\\a.cw3", "2"});
  desktop().onReplace = [&others] { putCatalogue(others); };
  RenameCatalogueFile(view, L"new");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r70-Permission denied"});
  EXPECT_EQ(catalogue(), others);
}

TEST_F(CatalogueRename, WhateverCallFailsTheCatalogueIsTheOldOneOrTheNewOne) {
  const std::string old = record({"FP3", "D:\\d\\old.fp3", "1/2/2003 4:05:06 PM"});
  const std::string renamed = record({"FP3", "D:\\d\\new.FP3", "1/2/2003 4:05:06 PM"});
  unit::sweepFaults(
      5,
      {.prepare =
           [this] {
             if (desktop().has(L"D:\\d\\new.FP3")) {
               desktop().take(L"D:\\d\\new.FP3");
             }
             listOne("FP3", "old.fp3");
             desktop().putFile(unit::temporaryFile, "stale");
           },
       .operation = [this] { RenameCatalogueFile(view, L"new"); },
       .check =
           [&](const unit::Fault& fault) {
             const std::wstring error =
                 platform::RunTimeError(fault.happened ? fault.number : 5).numberAndDescription();
             const bool onlyReload = fault.was(L"read C:");
             if (!fault.happened) {
               EXPECT_TRUE(messages().empty());
             } else if (onlyReload) {
               EXPECT_EQ(messages(),
                         Texts{L"Problem building QMK file list\rLocation: 2\r" + error});
             } else {
               EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r" + error});
             }
             EXPECT_EQ(catalogue(), fault.happened && !onlyReload ? old : renamed);
             // The data file exists under exactly one of its names.
             EXPECT_NE(desktop().has(L"D:\\d\\old.fp3"), desktop().has(L"D:\\d\\new.FP3"));
           }});
}

}  // namespace
