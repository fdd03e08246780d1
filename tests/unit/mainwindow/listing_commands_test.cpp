// Copying entries, showing where they are, and lists that go out and come in.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "mainwindow/control_ids.h"
#include "unit/support/list_commands.h"

namespace {

using memory::desktop;
using memory::Start;
using platform::dialogs::Answer;
using platform::dialogs::SaveFileChoice;
using unit::catalogueFile;
using unit::webListFile;

class ListingCommands : public unit::ListCommands {
 protected:
  ListingCommands() {
    desktop().putProgram(L"C:\\Windows\\explorer.exe");
    desktop().putFile(L"C:\\App\\data\\Plot.fp3", "plot");
    desktop().putFile(L"C:\\Field\\Ridge.fp3", "ridge");
    desktop().putFile(catalogueFile,
                      "\"FP3\",\"C:\\Field\\Ridge.fp3\",\"1/2/2026\",\"more\"\r\n"
                      "\"BI3\",\"C:\\Old\\Deep\\Slope.bi3\",\"1/3/2026\"\r\n"
                      "\"fp3\",\"C:\\App\\data\\Plot.fp3\",\"1/4/2026\"\r\n");
    desktop().putFile(webListFile, "\"Weather\",\"http://weather.example\"\r\n");
    showLists();
    select(list, L"Ridge.fp3");
    desktop().clearJournal();
  }
  void run(int id) { window.commands.item(id).fireClick(); }
  void toTools(const std::wstring& target) {
    controls::ListView& tools = window.lstQMK[frmQMK::tools];
    tools.add(L"Notes", L"", {L"", L"C:\\Links\\Notes.lnk", target});
    switchTo(frmQMK::tools);
    tools.select(0);
  }

  controls::ListView& list = window.lstQMK[frmQMK::open];
};

// --- Copy, Copy Path ---

TEST_F(ListingCommands, CopyTakesTheShownColumnsAndTheFile) {
  list.fireKey({.key = 'C', .control = true});
  EXPECT_EQ(desktop().clipboard.text, L"Ridge.fp3\t1/2/2026\tFuel Profile\tC:\\Field\\");
  EXPECT_EQ(desktop().clipboard.files, std::vector<std::wstring>{L"C:\\Field\\Ridge.fp3"});
}

TEST_F(ListingCommands, CopyOfAMissingFileIsTextOnly) {
  select(list, L"Slope.bi3");
  run(ids::mnuCopy);
  EXPECT_EQ(desktop().clipboard.text,
            L"Slope.bi3\t1/3/2026\tPlanar Intercept Inventory\tC:\\Old\\Deep\\");
  EXPECT_TRUE(desktop().clipboard.files.empty());
}

TEST_F(ListingCommands, CopyOnToolsTakesTheShortcut) {
  desktop().putFile(L"C:\\Links\\Notes.lnk", "link");
  toTools(L"C:\\Tools\\notes.exe");
  run(ids::mnuCopy);
  EXPECT_EQ(desktop().clipboard.files, std::vector<std::wstring>{L"C:\\Links\\Notes.lnk"});
  run(ids::mnuCopyPath);
  EXPECT_EQ(desktop().clipboard.text, L"C:\\Tools\\notes.exe");
}

TEST_F(ListingCommands, CopyOnWebTakesNameAndAddress) {
  switchTo(frmQMK::web);
  run(ids::mnuCopy);
  EXPECT_EQ(desktop().clipboard,
            (platform::clipboard::Content{L"Weather\thttp://weather.example", {}}));
  run(ids::mnuCopyPath);
  EXPECT_EQ(desktop().clipboard, (platform::clipboard::Content{L"http://weather.example", {}}));
}

TEST_F(ListingCommands, CopyKeepsTheColumnsOfAnEntryWithoutAName) {
  switchTo(frmQMK::web);
  controls::ListView& web = window.lstQMK[frmQMK::web];
  web.setText(web.selectedItem(), L"");
  run(ids::mnuCopy);
  EXPECT_EQ(desktop().clipboard.text, L"\thttp://weather.example");
}

TEST_F(ListingCommands, CopyPathIsTextWithoutQuotes) {
  list.fireKey({.key = 'C', .control = true, .shift = true});
  EXPECT_EQ(desktop().clipboard, (platform::clipboard::Content{L"C:\\Field\\Ridge.fp3", {}}));
}

TEST_F(ListingCommands, ABusyClipboardIsTold) {
  desktop().clipboardBusy = true;
  run(ids::mnuCopyPath);
  EXPECT_EQ(news(), L"Nothing was copied: another program keeps the clipboard open");
}

TEST_F(ListingCommands, NothingIsCopiedWithoutARow) {
  window.txtFind.acceptTyped(L"no such file");
  for (const int id :
       {ids::mnuCopy, ids::mnuCopyPath, ids::mnuOpenFolder, ids::mnuRemoveFromList}) {
    EXPECT_FALSE(window.commands.enabled(id)) << id;
  }
  list.fireKey({.key = 'C', .control = true});
  list.fireKey({.key = controls::keys::remove, .control = true});
  EXPECT_TRUE(desktop().journal().empty());
  EXPECT_EQ(news(), L"3 files, 0 shown");
  window.txtFind.acceptTyped(L"");
  switchTo(frmQMK::newFiles);
  EXPECT_FALSE(window.commands.enabled(ids::mnuCopy));
}

// --- Open Folder ---

TEST_F(ListingCommands, OpenFolderMarksTheFile) {
  list.fireKey({.key = 'E', .control = true});
  ASSERT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(desktop().starts.front().commandLine, L"explorer.exe /select,\"C:\\Field\\Ridge.fp3\"");
}

TEST_F(ListingCommands, OpenFolderOfAMissingFileShowsTheNearestFolder) {
  desktop().putFolder(L"C:\\Old");
  select(list, L"Slope.bi3");
  run(ids::mnuOpenFolder);
  ASSERT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(desktop().starts.front().commandLine, L"explorer.exe \"C:\\Old\"");
  EXPECT_EQ(news(), L"Not there: C:\\Old\\Deep\\Slope.bi3");
}

TEST_F(ListingCommands, OpenFolderGoesUpToTheDrive) {
  select(list, L"Slope.bi3");
  run(ids::mnuOpenFolder);
  ASSERT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(desktop().starts.front().commandLine, L"explorer.exe C:\\");
}

TEST_F(ListingCommands, OpenFolderOnAMissingDriveOnlyTells) {
  desktop().missingDrives.insert(L"C:");
  select(list, L"Slope.bi3");
  run(ids::mnuOpenFolder);
  EXPECT_TRUE(desktop().starts.empty());
  EXPECT_EQ(news(), L"Not there: C:\\Old\\Deep\\Slope.bi3");
}

TEST_F(ListingCommands, OpenFolderOnToolsMarksTheTarget) {
  desktop().putProgram(L"C:\\Tools\\notes.exe");
  toTools(L"C:\\Tools\\notes.exe");
  run(ids::mnuOpenFolder);
  ASSERT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(desktop().starts.front().commandLine, L"explorer.exe /select,\"C:\\Tools\\notes.exe\"");
}

TEST_F(ListingCommands, OpenFolderWithoutATargetMarksTheShortcut) {
  desktop().putFile(L"C:\\Links\\Notes.lnk", "link");
  toTools(L"");
  run(ids::mnuOpenFolder);
  ASSERT_EQ(desktop().starts.size(), 1U);
  EXPECT_EQ(desktop().starts.front().commandLine, L"explorer.exe /select,\"C:\\Links\\Notes.lnk\"");
}

TEST_F(ListingCommands, OpenFolderTellsWhatFails) {
  desktop().take(L"C:\\Windows\\explorer.exe");
  run(ids::mnuOpenFolder);
  EXPECT_EQ(news(), L"The folder cannot be shown: File not found");
}

// --- Remove from List ---

TEST_F(ListingCommands, RemoveTakesTheRecordAndLeavesTheFile) {
  list.fireKey({.key = controls::keys::remove, .control = true});
  EXPECT_EQ(catalogue(),
            "\"BI3\",\"C:\\Old\\Deep\\Slope.bi3\",\"1/3/2026\"\r\n"
            "\"fp3\",\"C:\\App\\data\\Plot.fp3\",\"1/4/2026\"\r\n");
  EXPECT_EQ(desktop().bytesOf(L"C:\\Field\\Ridge.fp3"), "ridge");
  EXPECT_EQ(textsOf(list), (unit::Texts{L"Plot.fp3", L"Slope.bi3"}));
  EXPECT_EQ(news(), L"Ridge.fp3 is no longer listed; the file itself stays");
}

TEST_F(ListingCommands, FilesOfTheDataFolderStayListed) {
  select(list, L"Plot.fp3");
  EXPECT_FALSE(window.commands.enabled(ids::mnuRemoveFromList));
  EXPECT_EQ(window.commands.explanation(window.commands.item(ids::mnuRemoveFromList)),
            L"Files of the data folder are always listed");
  const std::string before = catalogue();
  list.fireKey({.key = controls::keys::remove, .control = true});
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(news(), L"Files of the data folder are always listed");
  select(list, L"Ridge.fp3");
  EXPECT_TRUE(window.commands.enabled(ids::mnuRemoveFromList));
  EXPECT_EQ(window.commands.explanation(window.commands.item(ids::mnuRemoveFromList)),
            L"Takes the entry out of the list. The file itself stays. (Ctrl+Delete)");
}

TEST_F(ListingCommands, RemoveIsOfTheOpenTabOnly) {
  for (const int tab : {frmQMK::tools, frmQMK::newFiles, frmQMK::web}) {
    switchTo(tab);
    EXPECT_FALSE(window.commands.enabled(ids::mnuRemoveFromList)) << tab;
    window.lstQMK.at(static_cast<std::size_t>(tab))
        .fireKey({.key = controls::keys::remove, .control = true});
  }
  EXPECT_TRUE(desktop().journal().empty());
}

TEST_F(ListingCommands, AFailedRemoveIsReported) {
  desktop().setReadOnly(catalogueFile);
  const std::string before = catalogue();
  run(ids::mnuRemoveFromList);
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(messages(), (unit::Texts{L"Problem saving to QMK list\r75-Path/File access error"}));
}

// --- Save List As ---

TEST_F(ListingCommands, SaveWritesWhatIsShownAsAList) {
  window.txtFind.acceptTyped(L"1/2/2026");
  desktop().saveDialogResults = {SaveFileChoice{L"D:\\Mine", 1}};
  desktop().putFolder(L"D:\\");
  run(ids::mnuSaveListAs);
  EXPECT_EQ(desktop().bytesOf(L"D:\\Mine.txt"),
            "\"FP3\",\"C:\\Field\\Ridge.fp3\",\"1/2/2026\"\r\n");
  EXPECT_FALSE(desktop().has(L"D:\\qmklist.tmp"));
  EXPECT_EQ(news(), L"1 file saved in Mine.txt");
  EXPECT_EQ(desktop().fileDialogs.front().title, L"Save List As");
  EXPECT_EQ(desktop().fileDialogs.front().initialFolder, L"C:\\Users\\Ann\\Documents\\");
}

TEST_F(ListingCommands, SaveWritesATable) {
  desktop().saveDialogResults = {SaveFileChoice{L"C:\\Field\\Mine.v2", 2},
                                 SaveFileChoice{L"C:\\Field\\Mine", 2}};
  run(ids::mnuSaveListAs);  // an extension of the user's own counts
  EXPECT_NE(desktop().bytesOf(L"C:\\Field\\Mine.v2"), std::nullopt);
  run(ids::mnuSaveListAs);
  EXPECT_EQ(desktop().bytesOf(L"C:\\Field\\Mine.csv"),
            "\xEF\xBB\xBFRecently Used Files,Last Modified,Type,Directory\r\n"
            "Plot.fp3,1/4/2026,Fuel Profile,C:\\App\\data\\\r\n"
            "Ridge.fp3,1/2/2026,Fuel Profile,C:\\Field\\\r\n"
            "Slope.bi3,1/3/2026,Planar Intercept Inventory,C:\\Old\\Deep\\\r\n");
}

TEST_F(ListingCommands, SaveOfTheWebList) {
  switchTo(frmQMK::web);
  desktop().saveDialogResults = {SaveFileChoice{L"C:\\Field\\Web.TXT", 1},
                                 SaveFileChoice{L"C:\\Field\\Web.CSV", 1}};
  run(ids::mnuSaveListAs);
  EXPECT_EQ(desktop().bytesOf(L"C:\\Field\\Web.TXT"), webList());
  EXPECT_EQ(news(), L"1 web shortcut saved in Web.TXT");
  run(ids::mnuSaveListAs);
  EXPECT_EQ(desktop().bytesOf(L"C:\\Field\\Web.CSV"),
            "\xEF\xBB\xBFName,Url\r\nWeather,http://weather.example\r\n");
}

TEST_F(ListingCommands, SaveAsksBeforeItReplacesAFile) {
  desktop().putFile(L"C:\\Field\\Mine.txt", "mine");
  desktop().saveDialogResults = {SaveFileChoice{L"C:\\Field\\Mine", 1},
                                 SaveFileChoice{L"C:\\Field\\Mine", 1}};
  desktop().answers = {Answer::no, Answer::yes};
  run(ids::mnuSaveListAs);
  EXPECT_EQ(desktop().bytesOf(L"C:\\Field\\Mine.txt"), "mine");
  run(ids::mnuSaveListAs);
  EXPECT_EQ(desktop().bytesOf(L"C:\\Field\\Mine.txt").value_or("").substr(0, 5), "\"fp3\"");
  EXPECT_EQ(messages(), (unit::Texts{L"Mine.txt already exists. Replace it?",
                                     L"Mine.txt already exists. Replace it?"}));
}

TEST_F(ListingCommands, SaveNeverReplacesAListOfTheProgram) {
  window.txtFind.acceptTyped(L"ridge");
  const std::string before = catalogue();
  for (const std::wstring& own : {std::wstring(L"C:\\App\\qmkfilelist3.txt"), webListFile}) {
    desktop().saveDialogResults = {SaveFileChoice{own, 1}};
    run(ids::mnuSaveListAs);
    EXPECT_TRUE(news().starts_with(L"Nothing was saved: ")) << own;
  }
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(webList(), "\"Weather\",\"http://weather.example\"\r\n");
}

TEST_F(ListingCommands, ACancelledSaveDoesNothing) {
  desktop().saveDialogResults = {platform::error::cancelled, 20477};
  run(ids::mnuSaveListAs);
  EXPECT_EQ(news(), L"3 files, 1 missing");
  run(ids::mnuSaveListAs);
  EXPECT_TRUE(news().starts_with(L"The dialog cannot be shown: "));
}

TEST_F(ListingCommands, AFailedSaveIsReported) {
  desktop().saveDialogResults = {SaveFileChoice{L"D:\\No such\\Mine.txt", 1}};
  run(ids::mnuSaveListAs);
  EXPECT_EQ(messages(), (unit::Texts{L"Problem saving to QMK list\r76-Path not found"}));
}

TEST_F(ListingCommands, AFailedSaveLeavesNothingBehind) {
  desktop().putFile(L"C:\\Field\\Mine.txt", "mine");
  desktop().setReadOnly(L"C:\\Field\\Mine.txt");
  desktop().saveDialogResults = {SaveFileChoice{L"C:\\Field\\Mine.txt", 1}};
  desktop().answers = {Answer::yes};
  run(ids::mnuSaveListAs);
  EXPECT_FALSE(desktop().has(L"C:\\Field\\qmklist.tmp"));
  EXPECT_EQ(desktop().bytesOf(L"C:\\Field\\Mine.txt"), "mine");
  EXPECT_EQ(messages().back(), L"Problem saving to QMK list\r75-Path/File access error");
}

// --- Add List ---

TEST_F(ListingCommands, AddListAddsWhatIsNotThere) {
  desktop().putFile(L"D:\\Other.txt",
                    "\"FP3\",\"c:\\field\\RIDGE.fp3\",\"9/9/2009\"\r\n"
                    "\"XX\", C:\\Far\\New.cw3 ,\"9/9/2009\",\"kept\"\n"
                    "\"FP3\",\"no folder.fp3\",\"9/9/2009\"\r\n");
  const std::string before = catalogue();
  desktop().fileDialogResults = {L"D:\\Other.txt"};
  run(ids::mnuAddList);
  EXPECT_EQ(catalogue(), before + "\"XX\", C:\\Far\\New.cw3 ,\"9/9/2009\",\"kept\"\n");
  EXPECT_EQ(news(), L"1 added, 1 already there, 1 not added: no path");
  EXPECT_EQ(textsOf(list), (unit::Texts{L"New.cw3", L"Plot.fp3", L"Ridge.fp3", L"Slope.bi3"}));
  EXPECT_EQ(desktop().fileDialogs.front().title, L"Add List");
  EXPECT_EQ(desktop().fileDialogs.front().initialFolder, L"C:\\Users\\Ann\\Documents\\");
}

TEST_F(ListingCommands, AddListOnWebComparesNameAndAddress) {
  switchTo(frmQMK::web);
  desktop().putFile(L"D:\\Other.txt",
                    "\"Weather\",\"http://weather.example\"\r\n"
                    "\"Weather\",\"http://other.example\"\r\n"
                    "\"weather\",\"http://weather.example\"\r\n"
                    "\"alone\"\r\n");
  desktop().fileDialogResults = {L"D:\\Other.txt"};
  run(ids::mnuAddList);
  EXPECT_EQ(webList(),
            "\"Weather\",\"http://weather.example\"\r\n"
            "\"Weather\",\"http://other.example\"\r\n"
            "\"weather\",\"http://weather.example\"\r\n");
  EXPECT_EQ(news(), L"2 added, 1 already there, 1 not added: no address");
  EXPECT_EQ(window.lstQMK[frmQMK::web].count(), 3U);
}

TEST_F(ListingCommands, AddListKeepsWhatOthersWriteMeanwhile) {
  desktop().putFile(L"D:\\Other.txt", "\"CW3\",\"C:\\Far\\New.cw3\",\"x\"\r\n");
  const std::string before = catalogue();
  atNextReplacement([&] {
    desktop().putFile(catalogueFile, before + "\"CW3\",\"C:\\Far\\Theirs.cw3\",\"y\"\r\n");
  });
  desktop().fileDialogResults = {L"D:\\Other.txt"};
  run(ids::mnuAddList);
  EXPECT_EQ(catalogue(), before +
                             "\"CW3\",\"C:\\Far\\Theirs.cw3\",\"y\"\r\n"
                             "\"CW3\",\"C:\\Far\\New.cw3\",\"x\"\r\n");
  EXPECT_EQ(news(), L"1 added");
}

TEST_F(ListingCommands, AnUnreadableListAddsNothing) {
  const std::string before = catalogue();
  desktop().fileDialogResults = {L"C:\\Field\\Missing.txt", platform::error::cancelled};
  run(ids::mnuAddList);
  EXPECT_EQ(news(), L"Nothing was added: File not found");
  run(ids::mnuAddList);
  EXPECT_EQ(catalogue(), before);
}

TEST_F(ListingCommands, AFailedAddIsReported) {
  desktop().putFile(L"D:\\Other.txt", "\"CW3\",\"C:\\Far\\New.cw3\",\"x\"\r\n");
  desktop().setReadOnly(catalogueFile);
  desktop().fileDialogResults = {L"D:\\Other.txt"};
  run(ids::mnuAddList);
  EXPECT_EQ(messages(), (unit::Texts{L"Problem saving to QMK list\r75-Path/File access error"}));
}

// --- Add to List ---

TEST_F(ListingCommands, AddToListAddsFilesOfTheFourTypes) {
  for (const wchar_t* const name : {L"a.fp3", L"b.BI3", L"c.bs3", L"d.Cw3", L"e.txt", L"fp3"}) {
    desktop().putFile(std::wstring(L"D:\\New\\") + name, "x");
  }
  const std::string before = catalogue();
  desktop().filesDialogResults = {std::vector<std::wstring>{
      L"D:\\New\\b.BI3", L"D:\\New\\a.fp3", L"D:\\New\\c.bs3", L"D:\\New\\d.Cw3", L"D:\\New\\e.txt",
      L"D:\\New\\fp3", L"D:\\New\\gone.fp3", L"D:\\New\\A.FP3"}};
  window.fireKeyDown({.key = 'O', .control = true});
  EXPECT_EQ(catalogue(), before +
                             "\"BI3\",\"D:\\New\\b.BI3\",\"11/20/2026\"\r\n"
                             "\"FP3\",\"D:\\New\\a.fp3\",\"11/20/2026\"\r\n"
                             "\"BS3\",\"D:\\New\\c.bs3\",\"11/20/2026\"\r\n"
                             "\"CW3\",\"D:\\New\\d.Cw3\",\"11/20/2026\"\r\n");
  EXPECT_EQ(news(), L"4 added, 1 already there, 2 not added: wrong type, 1 not added: not there");
  EXPECT_EQ(list.count(), 7U);
  EXPECT_EQ(desktop().fileDialogs.front().title, L"Add to List");
}

TEST_F(ListingCommands, AddToListDatesWhatIsThere) {
  desktop().filesDialogResults = {std::vector<std::wstring>{L"c:\\field\\RIDGE.fp3"}};
  run(ids::mnuAddFiles);
  EXPECT_EQ(catalogue(),
            "\"FP3\",\"c:\\field\\RIDGE.fp3\",\"11/20/2026\",\"more\"\r\n"
            "\"BI3\",\"C:\\Old\\Deep\\Slope.bi3\",\"1/3/2026\"\r\n"
            "\"fp3\",\"C:\\App\\data\\Plot.fp3\",\"1/4/2026\"\r\n");
  EXPECT_EQ(news(), L"0 added, 1 already there");
}

TEST_F(ListingCommands, AddToListDatesEveryRecordOfAFile) {
  desktop().putFile(catalogueFile, "a,C:\\Field\\Ridge.fp3,x\r\nb,C:\\Field\\ridge.FP3,y\r\n");
  desktop().filesDialogResults = {std::vector<std::wstring>{L"C:\\Field\\Ridge.fp3"}};
  run(ids::mnuAddFiles);
  EXPECT_EQ(catalogue(),
            "\"a\",\"C:\\Field\\Ridge.fp3\",\"11/20/2026\"\r\n"
            "\"b\",\"C:\\Field\\Ridge.fp3\",\"11/20/2026\"\r\n");
  EXPECT_EQ(news(), L"0 added, 1 already there");
}

TEST_F(ListingCommands, AddToListMakesAMissingCatalogue) {
  desktop().take(catalogueFile);
  desktop().filesDialogResults = {std::vector<std::wstring>{L"C:\\Field\\Ridge.fp3"}};
  run(ids::mnuAddFiles);
  EXPECT_EQ(catalogue(), "\"FP3\",\"C:\\Field\\Ridge.fp3\",\"11/20/2026\"\r\n");
}

TEST_F(ListingCommands, AddToListKnowsTheFormsOfAPath) {
  desktop().giveShortNames(L"D:");
  desktop().putFile(L"D:\\\u0416\u0416.fp3", "x");
  desktop().putFile(L"D:\\plain.fp3", "x");
  const std::vector<std::wstring> both{L"D:\\\u0416\u0416.fp3", L"D:\\plain.fp3"};
  desktop().filesDialogResults = {both, both};
  run(ids::mnuAddFiles);
  const std::string once = catalogue();
  EXPECT_EQ(news(), L"2 added");
  run(ids::mnuAddFiles);
  EXPECT_EQ(catalogue(), once);
  EXPECT_EQ(news(), L"0 added, 2 already there");
}

TEST_F(ListingCommands, AddToListWithNothingToAddWritesNothing) {
  desktop().filesDialogResults = {std::vector<std::wstring>{L"D:\\e.txt"},
                                  platform::error::cancelled};
  desktop().setReadOnly(catalogueFile);
  run(ids::mnuAddFiles);
  EXPECT_EQ(news(), L"0 added, 1 not added: wrong type");
  run(ids::mnuAddFiles);
  switchTo(frmQMK::web);
  EXPECT_FALSE(window.commands.enabled(ids::mnuAddFiles));
  run(ids::mnuAddFiles);
  EXPECT_EQ(desktop().fileDialogs.size(), 2U);
}

TEST_F(ListingCommands, AFailedAddToListIsReported) {
  const std::string before = catalogue();
  desktop().setReadOnly(catalogueFile);
  desktop().filesDialogResults = {std::vector<std::wstring>{L"C:\\Field\\Ridge.fp3"}};
  run(ids::mnuAddFiles);
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(messages(), (unit::Texts{L"Problem saving to QMK list\r75-Path/File access error"}));
}

}  // namespace
