#include <gtest/gtest.h>

#include "catalogue/opening.h"
#include "unit/support/catalogue_test.h"

namespace {

using memory::desktop;
using memory::Start;
using ModQMKgeneral2::ChooseDataFile;
using unit::record;
using unit::Texts;

using Starts = std::vector<Start>;

class Browse : public unit::CatalogueTest {
 protected:
  Browse() {
    for (const wchar_t* const tool : {L"plv3.exe", L"cw3.exe", L"brtpc3.exe"}) {
      desktop().putProgram(std::wstring(L"C:\\App\\") + tool);
    }
    desktop().putFolder(L"C:\\App\\data");
  }
  /// Clicks the browse button and chooses `path`.
  void choose(const std::wstring& path) {
    desktop().fileDialogResults.emplace_back(path);
    main.cmdBrowse.fireClick();
  }
};

TEST_F(Browse, RunsTheCommandOfEachTypeWithTheSwitchesOfTheInventories) {
  choose(L"D:\\My Data\\a 1.fp3");
  choose(L"D:\\a.bs3");
  choose(L"C:\\App\\data\\a 1.bi3");
  choose(L"D:\\a.CW3");
  EXPECT_EQ(desktop().starts,
            (Starts{{L"C:\\App\\plv3.exe", L"C:\\App\\plv3.exe D:\\My?Data\\a?1.fp3"},
                    {L"C:\\App\\brtpc3.exe", L"C:\\App\\brtpc3.exe bps D:\\a.bs3"},
                    {L"C:\\App\\brtpc3.exe", L"C:\\App\\brtpc3.exe bpi C:\\App\\data\\a?1.bi3"},
                    {L"C:\\App\\cw3.exe", L"C:\\App\\cw3.exe D:\\a.CW3"}}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(Browse, TheSameInventoryGetsASwitchHereAndNoneOnTheDataTab) {
  putData(L"a.bi3");
  putCatalogue(dataRecord("bi3", "a.bi3"));
  modQMKGeneral::LoadCatalogueView(view);
  list.fireDoubleClick();
  choose(L"C:\\App\\data\\a.bi3");
  ASSERT_EQ(desktop().starts.size(), 2U);
  EXPECT_EQ(desktop().starts[0].commandLine, L"C:\\App\\brtpc3.exe C:\\App\\data\\a.bi3");
  EXPECT_EQ(desktop().starts[1].commandLine, L"C:\\App\\brtpc3.exe bpi C:\\App\\data\\a.bi3");
}

TEST_F(Browse, AnyOtherExtensionCanNotBeOpened) {
  choose(L"D:\\a.txt");
  ASSERT_EQ(messages(), Texts{L"The file can not be opened"});
  EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::information);
  EXPECT_TRUE(desktop().starts.empty());
}

TEST_F(Browse, CancellingDoesNothing) {
  desktop().fileDialogResults.emplace_back(32755);
  main.cmdBrowse.setTag(L"preset.fp3");
  main.cmdBrowse.fireClick();
  EXPECT_TRUE(desktop().starts.empty());
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(main.cmdBrowse.tag(), L"");
}

TEST_F(Browse, ADialogThatFailsDoesNothing) {
  desktop().fileDialogResults.emplace_back(20477);
  main.cmdBrowse.fireClick();
  EXPECT_TRUE(desktop().starts.empty());
  EXPECT_TRUE(messages().empty());
}

TEST_F(Browse, TheTagIsThePresetOnceOnly) {
  main.cmdBrowse.setTag(L"plot?1.fp3");
  desktop().fileDialogResults = {32755, 32755};
  main.cmdBrowse.fireClick();
  main.cmdBrowse.fireClick();
  ASSERT_EQ(desktop().fileDialogs.size(), 2U);
  EXPECT_EQ(desktop().fileDialogs[0].fileName, L"plot?1.fp3");
  EXPECT_EQ(desktop().fileDialogs[1].fileName, L"");
}

TEST_F(Browse, TheFileChosenBeforeIsNoPreset) {
  choose(L"D:\\a.fp3");
  choose(L"D:\\b.fp3");
  EXPECT_EQ(desktop().fileDialogs.at(1).fileName, L"");
}

TEST_F(Browse, DoesNotAddTheFileToTheCatalogueButReloadsTheView) {
  putCatalogue(record({"FP3", "D:\\listed.fp3", "1"}));
  choose(L"D:\\a.fp3");
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\listed.fp3", "1"}));
  EXPECT_EQ(rows(), Texts{L"listed.fp3"});
}

TEST_F(Browse, AMissingToolIsReported) {
  desktop().take(L"C:\\App\\brtpc3.exe");
  choose(L"D:\\a b.bs3");
  EXPECT_EQ(messages(), Texts{L"Can't start application\r53-File not found\rPath: "
                              L"C:\\App\\brtpc3.exe bps D:\\a?b.bs3"});
}

TEST_F(Browse, TheDialogHasItsTitleAndItsFiltersInTheirOrder) {
  desktop().fileDialogResults = {32755};
  main.cmdBrowse.fireClick();
  ASSERT_EQ(desktop().fileDialogs.size(), 1U);
  const auto& request = desktop().fileDialogs[0];
  EXPECT_EQ(request.title, L"Open File");
  EXPECT_EQ(request.filter,
            L"Plotscan Fuel Profile(*.fp3)|*.fp3|Brushtally Planar Intercept(*.bi3)|*.bi3|"
            L"Brushtally Plotview(*.bs3)|*.bs3|Canopy Weigh(*.cw3)|*.cw3");
  EXPECT_EQ(request.filterIndex, 1);
  EXPECT_EQ(request.initialFolder, L"C:\\App\\data");
  EXPECT_EQ(request.fileName, L"");
}

TEST_F(Browse, SetsUpTheDialogAfreshEachTime) {
  main.diaCommon.filterIndex = 4;
  main.diaCommon.dialogTitle = L"Other";
  main.diaCommon.cancelError = false;
  std::wstring path;
  desktop().fileDialogResults = {32755};
  EXPECT_EQ(ChooseDataFile(main.diaCommon, L"", path), 32755);
  EXPECT_EQ(desktop().fileDialogs.at(0).filterIndex, 1);
  EXPECT_EQ(desktop().fileDialogs.at(0).title, L"Open File");
  EXPECT_TRUE(main.diaCommon.cancelError);
}

TEST_F(Browse, TheFolderIsNamedAsItIsStored) {
  desktop().take(L"C:\\App\\data");
  desktop().putFolder(L"C:\\App\\DATA");
  desktop().fileDialogResults = {32755};
  main.cmdBrowse.fireClick();
  EXPECT_EQ(desktop().fileDialogs.at(0).initialFolder, L"C:\\App\\DATA");
}

TEST_F(Browse, WithoutADataFolderTheDialogStartsInTheApplicationFolder) {
  desktop().take(L"C:\\App\\data");
  desktop().fileDialogResults = {32755};
  main.cmdBrowse.fireClick();
  EXPECT_EQ(desktop().fileDialogs.at(0).initialFolder, L"C:\\App\\");
}

TEST_F(Browse, ChooseDataFileGivesThePathWithZero) {
  std::wstring path = L"before";
  desktop().fileDialogResults = {L"D:\\a.fp3"};
  EXPECT_EQ(ChooseDataFile(main.diaCommon, L"preset", path), 0);
  EXPECT_EQ(path, L"D:\\a.fp3");
  EXPECT_EQ(desktop().fileDialogs.at(0).fileName, L"preset");
}

TEST_F(Browse, ChooseDataFileLeavesThePathUntouchedWhenTheUserCancels) {
  std::wstring path = L"before";
  desktop().fileDialogResults = {32755};
  EXPECT_EQ(ChooseDataFile(main.diaCommon, L"preset", path), 32755);
  EXPECT_EQ(path, L"before");
}

TEST_F(Browse, ChooseDataFileReturnsAnyOtherErrorAndTheDialogsFileName) {
  std::wstring path = L"before";
  desktop().fileDialogResults = {20477};
  EXPECT_EQ(ChooseDataFile(main.diaCommon, L"pre?set", path), 20477);
  EXPECT_EQ(path, L"pre?set");
}

}  // namespace
