#include "catalogue/opening.h"

#include <gtest/gtest.h>

#include "unit/support/catalogue_test.h"
#include "unit/support/fault_sweep.h"

namespace {

using memory::desktop;
using memory::Start;
using ModQMKgeneral2::encodePath;
using ModQMKgeneral2::RunToolCommand;
using platform::dialogs::Answer;
using platform::dialogs::MessageStyle;
using unit::record;
using unit::Texts;

using Starts = std::vector<Start>;

class Opening : public unit::CatalogueTest {
 protected:
  Opening() {
    for (const wchar_t* const tool : {L"plv3.exe", L"cw3.exe", L"brtpc3.exe"}) {
      desktop().putProgram(std::wstring(L"C:\\App\\") + tool);
    }
  }
  /// A catalogue of one entry, loaded.
  void listOne(const std::string& type, const std::string& path) {
    putCatalogue(record({type, path, "1"}));
    modQMKGeneral::LoadCatalogueView(view);
  }
  void doubleClick(frmQMK::Tab tab) { main.lstQMK.at(tab).fireDoubleClick(); }
  const std::wstring missingQuestionEnd =
      L"\rIt may have been moved or deleted. Do you wish to locate the file yourself? ";
};

TEST(EncodePath, ReplacesEveryBlankByAQuestionMarkAndQuotesNothing) {
  EXPECT_EQ(encodePath(L"C:\\My Data\\plot 1.fp3"), L"C:\\My?Data\\plot?1.fp3");
  EXPECT_EQ(encodePath(L"  "), L"??");
  EXPECT_EQ(encodePath(L""), L"");
  EXPECT_EQ(encodePath(L"C:\\a,\t\u00A0b.fp3"), L"C:\\a,\t\u00A0b.fp3");
}

TEST_F(Opening, AToolThatNeedsAnAdministratorGetsTheSameFile) {
  desktop().elevated[L"C:\\App\\plv3.exe"] = true;
  putData(L"a b.fp3");
  listOne("FP3", "C:\\App\\data\\a b.fp3");
  doubleClick(frmQMK::open);
  EXPECT_EQ(desktop().elevatedStarts, (Starts{{L"C:\\App\\plv3.exe", L"C:\\App\\data\\a?b.fp3"}}));
}

TEST_F(Opening, AUserWhoRefusesTheRightsOfAnAdministratorIsToldThatTheToolCannotBeStarted) {
  desktop().elevated[L"C:\\App\\plv3.exe"] = false;
  putData(L"a.fp3");
  listOne("FP3", "C:\\App\\data\\a.fp3");
  doubleClick(frmQMK::open);
  EXPECT_EQ(messages(), Texts{L"Can't start application\r5-Invalid procedure call or argument\r"
                              L"Path: C:\\App\\plv3.exe C:\\App\\data\\a.fp3"});
}

TEST_F(Opening, TheDataTabGivesEachToolTheFileAndNothingElse) {
  struct Case {
    const char* type;
    const char* name;
    const wchar_t* tool;
  };
  for (const Case& c : {Case{"FP3", "a.fp3", L"plv3.exe"}, Case{"CW3", "a.cw3", L"cw3.exe"},
                        Case{"BI3", "a.bi3", L"brtpc3.exe"}, Case{"BS3", "a.bs3", L"brtpc3.exe"},
                        Case{"bi3", "a.bi3", L"brtpc3.exe"}, Case{"fP3", "a.fp3", L"plv3.exe"}}) {
    SCOPED_TRACE(c.type);
    const std::string name = c.name;
    putData(std::wstring(name.begin(), name.end()));
    listOne(c.type, "C:\\App\\data\\" + name);
    desktop().starts.clear();
    doubleClick(frmQMK::open);
    const std::wstring tool = std::wstring(L"C:\\App\\") + c.tool;
    EXPECT_EQ(
        desktop().starts,
        (Starts{{tool, tool + L" C:\\App\\data\\" + std::wstring(name.begin(), name.end())}}));
  }
  EXPECT_TRUE(messages().empty());
}

TEST_F(Opening, APathWithBlanksReachesTheToolWithQuestionMarksAndNoQuotes) {
  desktop().putFile(L"D:\\My Data\\plot 1, old.fp3", "");
  listOne("FP3", "D:\\My Data\\plot 1, old.fp3");
  doubleClick(frmQMK::open);
  EXPECT_EQ(desktop().starts,
            (Starts{{L"C:\\App\\plv3.exe", L"C:\\App\\plv3.exe D:\\My?Data\\plot?1,?old.fp3"}}));
}

TEST_F(Opening, ABlankInTheApplicationFolderStaysOneAndTheToolIsNamedExplicitly) {
  desktop().applicationFolder = L"C:\\Program Files\\Q 3";
  desktop().putProgram(L"C:\\Program Files\\Q 3\\plv3.exe");
  desktop().putProgram(L"C:\\Program.exe");
  desktop().putFile(L"D:\\a b.fp3", "");
  desktop().putFile(L"C:\\Program Files\\Q 3\\QMKFileList3.txt",
                    record({"FP3", "D:\\a b.fp3", ""}));
  modQMKGeneral::LoadCatalogueView(view);
  doubleClick(frmQMK::open);
  EXPECT_EQ(desktop().starts, (Starts{{L"C:\\Program Files\\Q 3\\plv3.exe",
                                       L"C:\\Program Files\\Q 3\\plv3.exe D:\\a?b.fp3"}}));
}

TEST_F(Opening, AnEmptyListOpensNothing) {
  doubleClick(frmQMK::open);
  doubleClick(frmQMK::newFiles);
  EXPECT_TRUE(desktop().starts.empty());
  EXPECT_TRUE(messages().empty());
}

TEST_F(Opening, TheSelectedItemIsOpened) {
  desktop().putFile(L"D:\\a.fp3", "");
  desktop().putFile(L"D:\\b.fp3", "");
  putCatalogue(record({"FP3", "D:\\a.fp3", ""}) + record({"FP3", "D:\\b.fp3", ""}));
  modQMKGeneral::LoadCatalogueView(view);
  select(list, L"b.fp3");
  doubleClick(frmQMK::open);
  EXPECT_EQ(desktop().starts, (Starts{{L"C:\\App\\plv3.exe", L"C:\\App\\plv3.exe D:\\b.fp3"}}));
}

TEST_F(Opening, AnyOtherTypeDoesNothing) {
  desktop().putFile(L"D:\\a.fp3", "");
  for (const char* const type : {"BW3", "PV3", "XYZ", "", "FP33"}) {
    listOne(type, "D:\\a.fp3");
    doubleClick(frmQMK::open);
  }
  EXPECT_TRUE(desktop().starts.empty());
  EXPECT_TRUE(messages().empty());
}

TEST_F(Opening, AMissingFileOfAnyTypeIsAskedAboutInItsEncodedForm) {
  listOne("XYZ", "D:\\My Data\\plot 1.fp3");
  desktop().answers = {Answer::no};
  doubleClick(frmQMK::open);
  ASSERT_EQ(messages(),
            Texts{L"File does not exist: D:\\My?Data\\plot?1.fp3" + missingQuestionEnd});
  EXPECT_EQ(desktop().messages[0].style, MessageStyle::yesNoWarning);
  EXPECT_EQ(desktop().messages[0].title, L"Quillmark Suite 3 Gateway");
  EXPECT_TRUE(desktop().starts.empty());
}

TEST_F(Opening, DecliningToLocateAMissingFileRemovesItsEntry) {
  const std::string other = record({"FP3", "D:\\other.fp3", "1"});
  putCatalogue(record({"FP3", "D:\\a b.fp3", "1"}) + other);
  modQMKGeneral::LoadCatalogueView(view);
  select(list, L"a b.fp3");
  desktop().answers = {Answer::no};
  doubleClick(frmQMK::open);
  EXPECT_EQ(catalogue(), other);
  EXPECT_EQ(rows(), Texts{L"other.fp3"});
  EXPECT_TRUE(desktop().fileDialogs.empty());
}

TEST_F(Opening, AcceptingToLocateAMissingFilePresetsItsNameWithQuestionMarksForBlanks) {
  listOne("FP3", "D:\\My Data\\plot 1.fp3");
  desktop().answers = {Answer::yes};
  desktop().fileDialogResults = {32755};
  doubleClick(frmQMK::open);
  ASSERT_EQ(desktop().fileDialogs.size(), 1U);
  EXPECT_EQ(desktop().fileDialogs[0].fileName, L"plot?1.fp3");
  EXPECT_EQ(main.cmdBrowse.tag(), L"");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\My Data\\plot 1.fp3", "1"}));
  EXPECT_EQ(messages().size(), 1U);
}

TEST_F(Opening, ALocatedFileIsOpenedAsTheBrowseButtonDoes) {
  listOne("BI3", "D:\\gone.bi3");
  desktop().answers = {Answer::yes};
  desktop().fileDialogResults = {L"E:\\found it.bi3"};
  doubleClick(frmQMK::open);
  EXPECT_EQ(desktop().starts,
            (Starts{{L"C:\\App\\brtpc3.exe", L"C:\\App\\brtpc3.exe bpi E:\\found?it.bi3"}}));
}

// --- the offer after a file was located ---

const std::wstring offer = L"E:\\found it.bi3\rLet the list show it there from now on?";

/// A missing file, and the one that the user finds.
class LocatedFile : public Opening {
 protected:
  LocatedFile() {
    putCatalogue("\"bi3\",\"D:\\gone.bi3\",\"1\",more\n" + record({"FP3", "D:\\other.fp3", "2"}));
    modQMKGeneral::LoadCatalogueView(view);
    select(list, L"gone.bi3");
    desktop().putFile(L"E:\\found it.bi3", "");
    desktop().fileDialogResults = {L"E:\\found it.bi3"};
  }
  void locate(Answer toOffer) {
    desktop().answers = {Answer::yes, toOffer};
    doubleClick(frmQMK::open);
  }
  const std::string before =
      "\"bi3\",\"D:\\gone.bi3\",\"1\",more\n" + record({"FP3", "D:\\other.fp3", "2"});
  const std::string after =
      "\"bi3\",\"E:\\found it.bi3\",\"1\",more\n" + record({"FP3", "D:\\other.fp3", "2"});
};

TEST_F(LocatedFile, YesLetsTheListShowItThere) {
  locate(Answer::yes);
  EXPECT_EQ(catalogue(), after);
  EXPECT_EQ(rows(), (Texts{L"found it.bi3", L"other.fp3"}));
  EXPECT_EQ(list.text(list.selectedItem()), L"found it.bi3");
  EXPECT_FALSE(list.lostSelection().has_value());
  EXPECT_EQ(main.news(), L"1 entry changed");
  ASSERT_EQ(messages().size(), 2U);
  EXPECT_EQ(messages().back(), offer);
  EXPECT_EQ(desktop().messages[1].style, MessageStyle::yesNoQuestion);
}

TEST_F(LocatedFile, TheToolStartsFirst) {
  locate(Answer::yes);
  const auto started = desktop().journalPlace(L"start C:\\App\\brtpc3.exe");
  const auto asked = desktop().journalPlace(L"message " + offer);
  ASSERT_TRUE(started && asked);
  EXPECT_LT(*started, *asked);
}

TEST_F(LocatedFile, NoLeavesTheList) {
  locate(Answer::no);
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(messages().size(), 2U);
}

TEST_F(LocatedFile, NothingIsOfferedWhenTheToolDoesNotStart) {
  desktop().take(L"C:\\App\\brtpc3.exe");
  locate(Answer::yes);
  EXPECT_EQ(catalogue(), before);
  ASSERT_EQ(messages().size(), 2U);
  EXPECT_TRUE(messages().back().starts_with(L"Can't start application"));
}

TEST_F(LocatedFile, NothingIsOfferedForAFileOfAnotherType) {
  desktop().putFile(L"E:\\other.fp3", "");
  desktop().fileDialogResults = {L"E:\\other.fp3"};
  locate(Answer::yes);
  EXPECT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(messages().size(), 1U);
}

TEST_F(LocatedFile, NothingIsOfferedAfterCancel) {
  // An earlier file that was opened does not count.
  main.cmdBrowse.fireClick();
  desktop().fileDialogResults = {32755};
  locate(Answer::yes);
  EXPECT_EQ(messages().size(), 1U);
}

TEST_F(LocatedFile, AFileThatIsListedAlreadyIsNotListedTwice) {
  putCatalogue(before + record({"BI3", "e:\\FOUND IT.bi3", "3"}));
  modQMKGeneral::LoadCatalogueView(view);
  select(list, L"gone.bi3");
  locate(Answer::yes);
  EXPECT_EQ(catalogue(), before + record({"BI3", "e:\\FOUND IT.bi3", "3"}));
  EXPECT_EQ(main.news(), L"0 entries changed, 1 already listed");
  EXPECT_EQ(messages().size(), 2U);
}

TEST_F(LocatedFile, AnEntryThatIsGoneMeanwhileIsNotAddedAnew) {
  desktop().onMessage = [this](const ::memory::Message& message) {
    if (message.text == offer) {
      putCatalogue(record({"FP3", "D:\\other.fp3", "2"}));
      modQMKGeneral::LoadCatalogueView(view);
    }
  };
  locate(Answer::yes);
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\other.fp3", "2"}));
  EXPECT_EQ(messages().back(), L"gone.bi3 is no longer in the list");
}

TEST_F(LocatedFile, AFileThatIsGoneMeanwhileChangesNothing) {
  desktop().onMessage = [](const ::memory::Message& message) {
    if (message.text == offer) {
      desktop().take(L"E:\\found it.bi3");
    }
  };
  locate(Answer::yes);
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(main.news(), L"Nothing was changed: E:\\found it.bi3 is no longer there");
  EXPECT_EQ(messages().size(), 2U);
}

TEST_F(LocatedFile, AFailureIsReported) {
  desktop().setReadOnly(unit::catalogueFile);
  locate(Answer::yes);
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(messages().back(), L"Problem saving to QMK list\r75-Path/File access error");
}

TEST_F(Opening, TheListMayBeReloadedWhileTheQuestionIsUp) {
  listOne("FP3", "D:\\gone.fp3");
  desktop().answers = {Answer::no};
  desktop().onMessage = [this](const ::memory::Message&) {
    putCatalogue(record({"FP3", "D:\\gone.fp3", "1"}) + record({"FP3", "D:\\0.fp3", "1"}));
    modQMKGeneral::LoadCatalogueView(view);
    list.select(0);
  };
  doubleClick(frmQMK::open);
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\0.fp3", "1"}));
}

TEST_F(Opening, AnErrorWhileTheEntryIsRemovedIsReported) {
  listOne("FP3", "D:\\gone.fp3");
  desktop().answers = {Answer::no};
  desktop().setReadOnly(unit::catalogueFile);
  doubleClick(frmQMK::open);
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\gone.fp3", "1"}));
}

TEST_F(Opening, DecliningLeavesTheOldOrTheNewCatalogueWhateverCallFails) {
  const std::string gone = record({"FP3", "D:\\gone.fp3", "1"});
  const std::string other = record({"FP3", "D:\\other.fp3", "1"});
  unit::sweepFaults(
      4, {.prepare =
              [&] {
                putCatalogue(gone + other);
                modQMKGeneral::LoadCatalogueView(view);
                select(list, L"gone.fp3");
                desktop().answers = {Answer::no};
                desktop().errorReports.clear();
              },
          .operation = [this] { doubleClick(frmQMK::open); },
          .check =
              [&](const unit::Fault& fault) {
                const bool onlyReload = fault.was(L"read C:") &&
                                        desktop().journalHas(L"replace " + unit::temporaryFile +
                                                             L" -> " + unit::catalogueFile);
                EXPECT_EQ(catalogue(), fault.happened && !onlyReload ? gone + other : other);
                EXPECT_EQ(desktop().errorReports.size(), fault.happened && !onlyReload ? 1U : 0U);
                EXPECT_EQ(messages().size(), fault.happened ? 2U : 1U);
              }});
}

TEST_F(Opening, ANewFileItemStartsTheToolWithNewOrWithTheTypeCode) {
  modQMKGeneral::AddNewFileItems(view);
  controls::ListView& fresh = main.lstQMK[frmQMK::newFiles];
  for (std::size_t index = 0; index < 4; ++index) {
    fresh.select(index);
    doubleClick(frmQMK::newFiles);
  }
  EXPECT_EQ(desktop().starts, (Starts{{L"C:\\App\\plv3.exe", L"C:\\App\\plv3.exe #NEW#"},
                                      {L"C:\\App\\brtpc3.exe", L"C:\\App\\brtpc3.exe BI3"},
                                      {L"C:\\App\\brtpc3.exe", L"C:\\App\\brtpc3.exe BS3"},
                                      {L"C:\\App\\cw3.exe", L"C:\\App\\cw3.exe #NEW#"}}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(Opening, AnUnknownNewFileItemDoesNothing) {
  main.lstQMK[frmQMK::newFiles].add(L"Other", L"", {L"XYZ"});
  doubleClick(frmQMK::newFiles);
  EXPECT_TRUE(desktop().starts.empty());
}

TEST_F(Opening, StartingAToolReloadsTheView) {
  putCatalogue(record({"FP3", "D:\\a.fp3", "1"}));
  RunToolCommand(view, {L"C:\\App\\plv3.exe", L" #NEW#"});
  EXPECT_EQ(rows(), Texts{L"a.fp3"});
  EXPECT_EQ(desktop().journal().front(), L"start C:\\App\\plv3.exe");
}

TEST_F(Opening, AToolThatIsMissingIsReportedWithItsCommandLineAndNothingElseChanges) {
  desktop().take(L"C:\\App\\plv3.exe");
  desktop().putFile(L"D:\\a b.fp3", "");
  listOne("FP3", "D:\\a b.fp3");
  putCatalogue("");
  doubleClick(frmQMK::open);
  ASSERT_EQ(messages(), Texts{L"Can't start application\r53-File not found\rPath: "
                              L"C:\\App\\plv3.exe D:\\a?b.fp3"});
  EXPECT_EQ(desktop().messages[0].style, MessageStyle::critical);
  EXPECT_EQ(desktop().messages[0].title, L"Quillmark Suite 3 Gateway");
  EXPECT_EQ(rows(), Texts{L"a b.fp3"});
}

TEST_F(Opening, AToolThatIsNoProgramIsReported) {
  desktop().putFile(L"C:\\App\\cw3.exe", "text");
  RunToolCommand(view, {L"C:\\App\\cw3.exe", L" #NEW#"});
  EXPECT_EQ(messages(), Texts{L"Can't start application\r5-Invalid procedure call or argument\r"
                              L"Path: C:\\App\\cw3.exe #NEW#"});
}

TEST_F(Opening, AFailedReloadAfterTheStartIsTheReloadsToReport) {
  putCatalogue("");
  desktop().lock(unit::catalogueFile);
  RunToolCommand(view, {L"C:\\App\\cw3.exe", L" #NEW#"});
  EXPECT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(messages(),
            Texts{L"Problem building QMK file list\rLocation: 2\r70-Permission denied"});
}

}  // namespace
