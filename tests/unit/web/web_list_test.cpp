#include "web/web_list.h"

#include <gtest/gtest.h>

#include "unit/support/fault_sweep.h"
#include "unit/support/web_test.h"

namespace {

using memory::desktop;
using modQMKGeneral::AppendWebEntry;
using modQMKGeneral::DeleteWebEntry;
using modQMKGeneral::LoadWebList;
using modQMKGeneral::SaveWebList;
using unit::record;
using unit::Texts;

class WebList : public unit::WebTest {
 protected:
  const std::string one = record({"One", "http://one/"});
  const std::string two = record({"Two", "http://two/"});
};

// --- loading ---

TEST_F(WebList, AMissingFileIsAnEmptyListWithoutAMessage) {
  list.add(L"left over", L"Web", {L"http://x/"});
  LoadWebList(web);
  EXPECT_EQ(list.count(), 0U);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(webList(), "(none)");
}

TEST_F(WebList, ShowsNamePictureAndAddressInTheOrderOfTheFile) {
  putWebList(two + one);
  LoadWebList(web);
  EXPECT_EQ(names(), (Texts{L"Two", L"One"}));
  EXPECT_EQ(addresses(), (Texts{L"http://two/", L"http://one/"}));
  EXPECT_EQ(list.icon(0), L"Web");
  EXPECT_EQ(list.icon(1), L"Web");
}

TEST_F(WebList, ReplacesWhatTheListHeld) {
  putWebList(one);
  LoadWebList(web);
  LoadWebList(web);
  EXPECT_EQ(names(), Texts{L"One"});
}

TEST_F(WebList, SetsUpImagesAndReportView) {
  list.setView(controls::iconView);
  LoadWebList(web);
  EXPECT_EQ(list.largeImages(), &main.imgIcons[0]);
  EXPECT_EQ(list.smallImages(), &main.imgIcons[1]);
  EXPECT_EQ(list.view(), controls::reportView);
  EXPECT_TRUE(main.imgIcons[0].indexOf(L"Web"));
  EXPECT_TRUE(main.imgIcons[1].indexOf(L"Web"));
}

TEST_F(WebList, ReadsCommasAccentsAndFieldsWithoutQuotes) {
  putWebList("\"a, b\",\"http://x/?a,b\"\r\n\xE9t\xE9, http://y/ \r\n");
  LoadWebList(web);
  EXPECT_EQ(names(), (Texts{L"a, b", L"\u00E9t\u00E9"}));
  EXPECT_EQ(addresses(), (Texts{L"http://x/?a,b", L"http://y/"}));
}

TEST_F(WebList, TheSelectedEntryStaysSelected) {
  putWebList(one + two);
  LoadWebList(web);
  list.select(1);
  putWebList(record({"Zero", ""}) + one + two);
  LoadWebList(web);
  EXPECT_EQ(list.selected(), 2U);
}

TEST_F(WebList, AnErrorWhileReadingIsShown) {
  putWebList(one);
  desktop().lock(unit::webListFile);
  EXPECT_EQ(errorNumberOf([this] { LoadWebList(web); }), 0);
  ASSERT_EQ(messages(), Texts{L"Problem reading Web file list\r70-Permission denied"});
  EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::information);
  EXPECT_EQ(desktop().messages[0].title, L"Quillmark Suite 3 Gateway");
}

// --- appending ---

TEST_F(WebList, AppendingMakesAMissingFile) {
  AppendWebEntry(web, L"One", L"http://one/");
  EXPECT_EQ(webList(), one);
  EXPECT_EQ(names(), Texts{L"One"});
}

TEST_F(WebList, AppendingPutsTheEntryLastAndReloads) {
  putWebList(two);
  AppendWebEntry(web, L"One", L"http://one/");
  EXPECT_EQ(webList(), two + one);
  EXPECT_EQ(names(), (Texts{L"Two", L"One"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(WebList, TextsAreStoredAsTheyAre) {
  AppendWebEntry(web, L"", L"");
  AppendWebEntry(web, L"  a, b  ", L" no address ");
  AppendWebEntry(web, L"\u00E9t\u00E9 \u20AC", L"C:\\Windows\\notepad.exe");
  EXPECT_EQ(webList(), record({"", ""}) + record({"  a, b  ", " no address "}) +
                           record({"\xE9t\xE9 \x80", "C:\\Windows\\notepad.exe"}));
  EXPECT_EQ(names(), (Texts{L"", L"  a, b  ", L"\u00E9t\u00E9 \u20AC"}));
  EXPECT_EQ(addresses(), (Texts{L"", L" no address ", L"C:\\Windows\\notepad.exe"}));
}

TEST_F(WebList, ANameWithACommaSurvivesWritingAndReading) {
  AppendWebEntry(web, L"a,b", L"http://x/,y");
  EXPECT_EQ(names(), Texts{L"a,b"});
  EXPECT_EQ(addresses(), Texts{L"http://x/,y"});
}

TEST_F(WebList, ANameWithAQuoteIsCutButDamagesNoOtherRecord) {
  putWebList(one);
  AppendWebEntry(web, L"say \"hi\", you", L"http://x/");
  AppendWebEntry(web, L"Two", L"http://two/");
  EXPECT_EQ(webList(), one + record({"say \"hi\", you", "http://x/"}) + two);
  EXPECT_EQ(names(), (Texts{L"One", L"say ", L"Two"}));
}

TEST_F(WebList, ACharacterThatTheCodePageLacksBecomesAQuestionMark) {
  AppendWebEntry(web, L"\u0416\u2033\uFF02", L"http://\u0416/");
  EXPECT_EQ(webList(), record({"???", "http://?/"}));
}

TEST_F(WebList, AppendingTwiceTheSameNameGivesTwoRecordsAndDeletingRemovesBoth) {
  putWebList(two);
  AppendWebEntry(web, L"One", L"http://one/");
  AppendWebEntry(web, L"One", L"http://one/");
  EXPECT_EQ(webList(), two + one + one);
  DeleteWebEntry(web, L"One");
  EXPECT_EQ(webList(), two);
  EXPECT_EQ(names(), Texts{L"Two"});
}

TEST_F(WebList, AppendingLeavesErrorsToTheCaller) {
  putWebList(one);
  desktop().setReadOnly(unit::webListFile);
  EXPECT_EQ(errorNumberOf([this] { AppendWebEntry(web, L"Two", L"http://two/"); }), 75);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(webList(), one);
}

TEST_F(WebList, AppendingKeepsWhatAnotherProgramWritesMeanwhile) {
  putWebList(one);
  const std::string other = record({"Other", "http://o/"});
  atNextReplacement([&] { putWebList(one + other); });
  AppendWebEntry(web, L"Two", L"http://two/");
  EXPECT_EQ(webList(), one + other + two);
}

TEST_F(WebList, WhateverCallFailsAnAppendLeavesTheOldOrTheNewFile) {
  int raised = 0;
  unit::sweepFaults(
      5,
      {.prepare =
           [this] {
             putWebList(one);
             desktop().putFile(unit::temporaryFile, "stale");
           },
       .operation =
           [&] { raised = errorNumberOf([this] { AppendWebEntry(web, L"Two", L"http://two/"); }); },
       .check =
           [&](const unit::Fault& fault) {
             const bool onlyReload = fault.was(L"read C:");
             const bool saved = !fault.happened || onlyReload;
             EXPECT_EQ(webList(), saved ? one + two : one);
             EXPECT_EQ(raised, saved ? 0 : fault.number);
             EXPECT_EQ(messages().size(), onlyReload ? 1U : 0U);
           }});
}

// --- saving ---

TEST_F(WebList, SavingRenamesAndReAddressesTheSelectedEntry) {
  putWebList(one + two);
  LoadWebList(web);
  list.select(0);
  SaveWebList(web, L"New", L"http://new/");
  EXPECT_EQ(webList(), record({"New", "http://new/"}) + two);
  EXPECT_EQ(names(), (Texts{L"New", L"Two"}));
  EXPECT_EQ(addresses(), (Texts{L"http://new/", L"http://two/"}));
  EXPECT_EQ(list.selected(), 0U);
  EXPECT_TRUE(messages().empty());
}

TEST_F(WebList, SavingWritesTheItemsOfTheListOfTheTabInFrontAndChangesItsSelectedItem) {
  putWebList(one + two);
  LoadWebList(web);
  controls::ListView& data = main.lstQMK[frmQMK::open];
  data.add(L"a.fp3", L"PV3", {L"1/1/2001", L"Fuel Profile", L"C:\\", L"FP3"});
  data.add(L"b.fp3", L"PV3", {L"2/2/2002", L"Fuel Profile", L"C:\\", L"FP3"});
  data.select(1);
  main.TabMain.setCurrent(frmQMK::open);
  SaveWebList(web, L"New", L"http://new/");
  EXPECT_EQ(webList(), record({"a.fp3", "1/1/2001"}) + record({"New", "http://new/"}));
  EXPECT_EQ(data.text(1), L"New");
  EXPECT_EQ(data.subItem(1, 1), L"http://new/");
  EXPECT_EQ(names(), (Texts{L"a.fp3", L"New"}));
}

TEST_F(WebList, SavingInASortedListFollowsTheItemToItsNewPlace) {
  controls::ListView& data = main.lstQMK[frmQMK::open];
  putWebList("");
  data.add(L"a", L"", {L"1"});
  data.add(L"b", L"", {L"2"});
  data.setSorted(true);
  data.select(0);
  main.TabMain.setCurrent(frmQMK::open);
  SaveWebList(web, L"z", L"9");
  EXPECT_EQ(webList(), record({"b", "2"}) + record({"z", "9"}));
}

TEST_F(WebList, SavingWithoutASelectedItemIsTheCallersErrorAndWritesNothing) {
  putWebList(one);
  EXPECT_EQ(errorNumberOf([this] { SaveWebList(web, L"New", L"http://new/"); }), 91);
  EXPECT_EQ(webList(), one);
  EXPECT_TRUE(messages().empty());
}

TEST_F(WebList, SavingDiscardsAStaleTemporaryFile) {
  putWebList(one);
  LoadWebList(web);
  desktop().putFile(unit::temporaryFile, "stale");
  SaveWebList(web, L"Two", L"http://two/");
  EXPECT_EQ(webList(), two);
  EXPECT_FALSE(desktop().has(unit::temporaryFile));
}

TEST_F(WebList, SavingAMissingFileIsShownAndTheItemIsChangedAlready) {
  putWebList(one);
  LoadWebList(web);
  desktop().take(unit::webListFile);
  EXPECT_EQ(errorNumberOf([this] { SaveWebList(web, L"Two", L"http://two/"); }), 0);
  ASSERT_EQ(messages(), Texts{L"Problem saving to QMK list\r53-File not found"});
  EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::information);
  EXPECT_EQ(names(), Texts{L"Two"});
}

TEST_F(WebList, SavingAMissingOrLockedListLeavesTheNewContentsInTheTemporaryFile) {
  putWebList(one);
  LoadWebList(web);
  desktop().lock(unit::webListFile);
  SaveWebList(web, L"Two", L"http://two/");
  EXPECT_EQ(unit::bytesOf(unit::temporaryFile), two);
  desktop().unlock(unit::webListFile);
  EXPECT_EQ(webList(), one);
  desktop().take(unit::webListFile);
  SaveWebList(web, L"Three", L"http://three/");
  EXPECT_EQ(unit::bytesOf(unit::temporaryFile), record({"Three", "http://three/"}));
  EXPECT_EQ(messages(), (Texts{L"Problem saving to QMK list\r70-Permission denied",
                               L"Problem saving to QMK list\r53-File not found"}));
}

TEST_F(WebList, SavingReplacesWhatAnotherProgramWritesMeanwhile) {
  putWebList(one);
  LoadWebList(web);
  atNextReplacement([this] { putWebList(one + one); });
  SaveWebList(web, L"Two", L"http://two/");
  EXPECT_EQ(webList(), two);
}

TEST_F(WebList, SavingGivesUpAListThatOthersKeepChanging) {
  putWebList(one);
  LoadWebList(web);
  int tries = 0;
  desktop().onReplace = [&] { putWebList(one + std::to_string(++tries)); };
  SaveWebList(web, L"Two", L"http://two/");
  EXPECT_EQ(tries, 50);
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r70-Permission denied"});
}

TEST_F(WebList, WhateverCallFailsASaveLeavesTheOldOrTheNewFileAndSaysSo) {
  unit::sweepFaults(
      5, {.prepare =
              [this] {
                putWebList(one);
                LoadWebList(web);
                list.select(0);
                desktop().putFile(unit::temporaryFile, "stale");
              },
          .operation = [this] { SaveWebList(web, L"Two", L"http://two/"); },
          .check =
              [&](const unit::Fault& fault) {
                if (!fault.happened) {
                  EXPECT_EQ(webList(), two);
                  EXPECT_TRUE(messages().empty());
                  return;
                }
                const bool onlyReload = desktop().journalHas(L"replace " + unit::temporaryFile +
                                                             L" -> " + unit::webListFile);
                const std::wstring error =
                    platform::RunTimeError(fault.number).numberAndDescription();
                EXPECT_EQ(webList(), onlyReload ? two : one);
                EXPECT_EQ(messages(), Texts{(onlyReload ? L"Problem reading Web file list\r"
                                                        : L"Problem saving to QMK list\r") +
                                            error});
                EXPECT_EQ(list.count(), onlyReload ? 0U : 1U);
              }});
}

// --- deleting ---

TEST_F(WebList, DeletingDropsEveryRecordOfTheName) {
  putWebList(one + two + record({"One", "http://another/"}));
  DeleteWebEntry(web, L"One");
  EXPECT_EQ(webList(), two);
  EXPECT_EQ(names(), Texts{L"Two"});
}

TEST_F(WebList, DeletingComparesExactly) {
  const std::string others = record({"ONE", "1"}) + record({"One ", "2"}) + record({"On", "3"});
  putWebList(others);
  DeleteWebEntry(web, L"One");
  EXPECT_EQ(webList(), others);
}

TEST_F(WebList, DeletingANameThatIsNotThereRewritesTheFileUnchangedAndReloads) {
  const std::string foreign = "odd line\n\n" + one + "\"x\",\"y\",\"z\"";
  putWebList(foreign);
  DeleteWebEntry(web, L"Nobody");
  EXPECT_EQ(webList(), foreign);
  EXPECT_EQ(names(), (Texts{L"odd line", L"One", L"x"}));
  EXPECT_TRUE(
      desktop().journalHas(L"replace " + unit::temporaryFile + L" -> " + unit::webListFile));
}

TEST_F(WebList, DeletingAnEmptyNameDropsNoBlankLine) {
  putWebList("\r\n" + record({"", "http://x/"}) + one);
  DeleteWebEntry(web, L"");
  EXPECT_EQ(webList(), "\r\n" + one);
}

TEST_F(WebList, DeletingDiscardsAStaleTemporaryFile) {
  putWebList(one + two);
  desktop().putFile(unit::temporaryFile, "stale");
  DeleteWebEntry(web, L"One");
  EXPECT_EQ(webList(), two);
  EXPECT_FALSE(desktop().has(unit::temporaryFile));
}

TEST_F(WebList, DeletingFromAMissingFileIsTheCallersError) {
  EXPECT_EQ(errorNumberOf([this] { DeleteWebEntry(web, L"One"); }), 53);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(webList(), "(none)");
}

TEST_F(WebList, DeletingKeepsWhatAnotherProgramWritesMeanwhile) {
  putWebList(one);
  atNextReplacement([this] { putWebList(one + two + one); });
  DeleteWebEntry(web, L"One");
  EXPECT_EQ(webList(), two);
}

TEST_F(WebList, WhateverCallFailsADeletionLeavesTheOldOrTheNewFile) {
  int raised = 0;
  unit::sweepFaults(
      5, {.prepare =
              [this] {
                putWebList(one + two);
                desktop().putFile(unit::temporaryFile, "stale");
              },
          .operation = [&] { raised = errorNumberOf([this] { DeleteWebEntry(web, L"One"); }); },
          .check =
              [&](const unit::Fault& fault) {
                const bool onlyReload =
                    fault.happened && desktop().journalHas(L"replace " + unit::temporaryFile +
                                                           L" -> " + unit::webListFile);
                const bool saved = !fault.happened || onlyReload;
                EXPECT_EQ(webList(), saved ? two : one + two);
                EXPECT_EQ(raised, saved ? 0 : fault.number);
                EXPECT_EQ(messages().size(), onlyReload ? 1U : 0U);
              }});
}

TEST_F(WebList, TheCatalogueAndTheWebListShareTheTemporaryFileAndNothingElse) {
  desktop().putFile(unit::catalogueFile, "catalogue");
  putWebList(one);
  AppendWebEntry(web, L"Two", L"http://two/");
  EXPECT_TRUE(desktop().journalHas(L"write C:\\App\\qmklist.tmp"));
  EXPECT_EQ(unit::bytesOf(unit::catalogueFile), "catalogue");
}

}  // namespace
