// Opening and renaming with names that the code page cannot hold.
#include <gtest/gtest.h>

#include "catalogue/opening.h"
#include "unit/support/fault_sweep.h"
#include "unit/support/unheld_names.h"

namespace {

using memory::desktop;
using memory::Start;
using modQMKGeneral::LoadCatalogueView;
using modQMKGeneral::RenameCatalogueFile;
using platform::dialogs::Answer;
using unit::beech;
using unit::beetle;
using unit::japanese;
using unit::record;
using unit::suite;
using unit::Texts;

using Starts = std::vector<Start>;

class OpeningUnheldNames : public unit::UnheldNamesTest {};
class RenamingUnheldNames : public unit::UnheldNamesTest {};

TEST_F(OpeningUnheldNames, OpeningHandsOverAPathThatTheToolCanRead) {
  desktop().giveShortNames(L"C:");
  moveTo(suite);
  put(suite + L"\\data\\my " + japanese + L".bi3");
  const std::wstring tool = suite + L"\\brtpc3.exe";
  for (const char* const listed :
       {"C:\\??? Suite\\data\\my ???.bi3", "C:\\___SUI~1\\data\\MY___~1.BI3"}) {
    SCOPED_TRACE(listed);
    desktop().starts.clear();
    show(record({"BI3", listed, "1"}));
    doubleClick();
    EXPECT_EQ(desktop().starts, (Starts{{tool, tool + L" C:\\___SUI~1\\data\\MY___~1.BI3"}}));
  }
  EXPECT_TRUE(messages().empty());
}

TEST_F(OpeningUnheldNames, OpeningSaysWhichCharactersTheToolsLack) {
  moveTo(suite);
  put(suite + L"\\data\\my plot.fp3");
  show(record({"FP3", "C:\\??? Suite\\data\\my plot.fp3", "1"}));
  doubleClick();
  EXPECT_TRUE(desktop().starts.empty());
  ASSERT_EQ(messages(),
            Texts{L"The tools can not be given this name: " + suite +
                  L"\\data\\my plot.fp3\rThe system's code page lacks these characters: "
                  L"\u0416 \u0443 \u043A"});
  EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::information);
}

TEST_F(OpeningUnheldNames, OpeningStartsNothingWhenTheEntryMayMeanAnotherFile) {
  moveTo(L"C:\\App");
  put(L"C:\\Data\\" + beetle + L".fp3");
  put(L"C:\\Data\\" + beech + L".fp3");
  show(record({"FP3", "C:\\Data\\???.fp3", "1"}));
  doubleClick();
  EXPECT_TRUE(desktop().starts.empty());
  EXPECT_EQ(desktop().errorReports, std::vector<int>{52});
}

TEST_F(OpeningUnheldNames, AMissingFileIsAskedAboutAlthoughItsNameFitsAnotherAsAPattern) {
  moveTo(L"C:\\App");
  put(L"C:\\Data\\abc.fp3");
  show(record({"FP3", "C:\\Data\\???.fp3", "1"}));
  desktop().answers = {Answer::no};
  doubleClick();
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_TRUE(messages()[0].starts_with(L"File does not exist: C:\\Data\\???.fp3\r"));
  EXPECT_EQ(moved(), "");
  EXPECT_TRUE(desktop().has(L"C:\\Data\\abc.fp3"));
}

TEST_F(OpeningUnheldNames, AChosenFileIsHandedOverInAFormThatTheToolCanRead) {
  desktop().putFolder(L"D:");
  desktop().giveShortNames(L"C:");
  moveTo(L"C:\\App");
  put(L"C:\\My Data\\" + beetle + L".fp3");
  put(L"D:\\My Data\\" + beetle + L".fp3");
  desktop().fileDialogResults = {L"C:\\My Data\\" + beetle + L".fp3",
                                 L"D:\\My Data\\" + beetle + L".fp3"};
  main.cmdBrowse.fireClick();
  main.cmdBrowse.fireClick();
  EXPECT_EQ(desktop().starts,
            (Starts{{L"C:\\App\\plv3.exe", L"C:\\App\\plv3.exe C:\\My?Data\\___~1.FP3"}}));
  EXPECT_EQ(messages(), Texts{L"The tools can not be given this name: D:\\My Data\\" + beetle +
                              L".fp3\rThe system's code page lacks these characters: "
                              L"\u0416 \u0443 \u043A"});
}

TEST_F(OpeningUnheldNames, AFileOfAnotherKindCannotBeOpenedWhateverItsName) {
  desktop().fileDialogResults = {L"C:\\Data\\" + beetle + L".txt"};
  main.cmdBrowse.fireClick();
  EXPECT_EQ(messages(), Texts{L"The file can not be opened"});
}

TEST_F(RenamingUnheldNames, ARenamedFileIsListedInItsShortForm) {
  desktop().giveShortNames(L"C:");
  put(L"C:\\My Data\\Beta.bi3");
  putCatalogue(record({"bi3", "C:\\My Data\\Beta.bi3", "1"}));
  LoadCatalogueView(view);
  RenameCatalogueFile(view, beetle);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(desktop().namesIn(L"C:\\My Data"), Texts{beetle + L".BI3"});
  EXPECT_EQ(catalogue(), record({"bi3", "C:\\My Data\\___~1.BI3", "1"}));
  EXPECT_EQ(rows(), Texts{L"___~1.BI3"});
  // The entry can still be renamed: in another letter case, to a plain name, and to nothing.
  RenameCatalogueFile(view, L"\u0436\u0443\u043A.BI3");
  EXPECT_EQ(desktop().namesIn(L"C:\\My Data"), Texts{L"\u0436\u0443\u043A.BI3"});
  EXPECT_EQ(catalogue(), record({"bi3", "C:\\My Data\\___~1.BI3", "1"}));
  RenameCatalogueFile(view, L"Beta");
  EXPECT_EQ(desktop().namesIn(L"C:\\My Data"), Texts{L"Beta.BI3"});
  EXPECT_EQ(catalogue(), record({"bi3", "C:\\My Data\\Beta.BI3", "1"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(RenamingUnheldNames, ARenameWithoutAShortFormIsRefusedBeforeAnythingIsTouched) {
  put(L"D:\\Data\\Beta.bi3");
  const std::string old = record({"bi3", "D:\\Data\\Beta.bi3", "1"});
  putCatalogue(old);
  LoadCatalogueView(view);
  for (const std::wstring& name : {beetle, std::wstring(L"\u0416?"), beetle + L"\\x" + beetle}) {
    desktop().messages.clear();
    RenameCatalogueFile(view, name);
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_TRUE(messages()[0].starts_with(L"Problem saving to QMK list\r"));
    EXPECT_EQ(desktop().namesIn(L"D:\\Data"), Texts{L"Beta.bi3"});
    EXPECT_EQ(catalogue(), old);
  }
  desktop().messages.clear();
  RenameCatalogueFile(view, beetle);
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r52-Bad file name or number"});
}

TEST_F(RenamingUnheldNames, ARenameToTheNameOfAnotherFileIsRefusedAsBefore) {
  desktop().giveShortNames(L"C:");
  put(L"C:\\Data\\Beta.bi3");
  put(L"C:\\Data\\" + beetle + L".bi3");
  putCatalogue(record({"bi3", "C:\\Data\\Beta.bi3", "1"}));
  LoadCatalogueView(view);
  RenameCatalogueFile(view, beetle + L".bi3");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r58-File already exists"});
  EXPECT_TRUE(desktop().has(L"C:\\Data\\Beta.bi3"));
}

TEST_F(RenamingUnheldNames, ARenameWorksOnTheFileBehindTheSubstitutes) {
  put(L"D:\\" + beetle + L"\\" + japanese + L".bi3");
  putCatalogue(record({"bi3", "D:\\???\\???.bi3", "1"}));
  LoadCatalogueView(view);
  RenameCatalogueFile(view, L"plain");
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(desktop().namesIn(L"D:\\" + beetle), Texts{L"plain.BI3"});
  EXPECT_EQ(catalogue(), record({"bi3", "D:\\???\\plain.BI3", "1"}));
}

TEST_F(RenamingUnheldNames, ARenameTouchesNothingWhenTheEntryMayMeanAnotherFile) {
  put(L"D:\\Data\\" + beetle + L".bi3");
  put(L"D:\\Data\\" + beech + L".bi3");
  const std::string old = record({"bi3", "D:\\Data\\???.bi3", "1"});
  putCatalogue(old);
  LoadCatalogueView(view);
  RenameCatalogueFile(view, L"plain");
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r52-Bad file name or number"});
  EXPECT_EQ(catalogue(), old);
  EXPECT_EQ(desktop().namesIn(L"D:\\Data"), (Texts{beetle + L".bi3", beech + L".bi3"}));
}

TEST_F(RenamingUnheldNames, WhateverCallFailsARenameLeavesTheFileUnderOneNameAndSaysSo) {
  desktop().giveShortNames(L"C:");
  unit::sweepFaults(6, {.prepare =
                            [&] {
                              if (desktop().has(L"C:\\Data")) {
                                desktop().take(L"C:\\Data");
                              }
                              put(L"C:\\Data\\Beta.bi3");
                              putCatalogue(record({"bi3", "C:\\Data\\Beta.bi3", "1"}));
                              LoadCatalogueView(view);
                            },
                        .operation = [&] { RenameCatalogueFile(view, beetle); },
                        .check =
                            [&](const unit::Fault& fault) {
                              EXPECT_EQ(messages().size(), fault.happened ? 1U : 0U);
                              const bool renamed = desktop().has(L"C:\\Data\\" + beetle + L".BI3");
                              EXPECT_NE(renamed, desktop().has(L"C:\\Data\\Beta.bi3"));
                              EXPECT_EQ(desktop().namesIn(L"C:\\Data").size(), 1U);
                              if (fault.was(L"short name of new ")) {
                                EXPECT_FALSE(renamed);
                              }
                            }});
}

}  // namespace
