// What is pasted and dropped, and what is dragged out.
#include "mainwindow/incoming.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "mainwindow/control_ids.h"
#include "unit/support/list_commands.h"

namespace {

using memory::desktop;
using platform::clipboard::Content;
using platform::dialogs::Answer;
using unit::catalogueFile;
using unit::webListFile;

class Incoming : public unit::ListCommands {
 protected:
  Incoming() {
    desktop().putFile(L"C:\\Field\\Ridge.fp3", "ridge");
    desktop().putFile(catalogueFile, "\"FP3\",\"C:\\Field\\Ridge.fp3\",\"1/2/2026\"\r\n");
    desktop().putFile(webListFile, "\"Weather\",\"http://weather.example\"\r\n");
    showLists();
    desktop().clearJournal();
  }
  void paste(const Content& content) {
    desktop().clipboard = content;
    window.lstQMK.at(static_cast<std::size_t>(window.TabMain.current()))
        .fireKey({.key = 'V', .control = true});
  }
  void drop(frmQMK::Tab tab, const Content& content) { window.lstQMK.at(tab).fireDropped(content); }
  [[nodiscard]] bool takes(frmQMK::Tab tab, const Content& content) const {
    return window.lstQMK.at(tab).fireTakes(content);
  }
  static Content filesOf(std::vector<std::wstring> files) {
    return {.text = {}, .files = std::move(files)};
  }
  static Content textOf(std::wstring text) { return {.text = std::move(text)}; }
};

// --- Open ---

TEST_F(Incoming, PastedFilesAreAdded) {
  desktop().putFile(L"D:\\a.fp3", "x");
  desktop().putFile(L"D:\\b.txt", "x");
  const std::string before = catalogue();
  paste(filesOf({L"D:\\a.fp3", L"D:\\b.txt", L"D:\\gone.bi3", L"C:\\Field\\Ridge.fp3"}));
  EXPECT_EQ(catalogue(),
            "\"FP3\",\"C:\\Field\\Ridge.fp3\",\"11/20/2026\"\r\n"
            "\"FP3\",\"D:\\a.fp3\",\"11/20/2026\"\r\n");
  EXPECT_EQ(news(), L"1 added, 1 already there, 1 not added: wrong type, 1 not added: not there");
}

TEST_F(Incoming, PastedTextIsPathsWithOrWithoutQuotes) {
  for (const wchar_t* const name : {L"a.fp3", L"b c.fp3", L"d.fp3"}) {
    desktop().putFile(std::wstring(L"D:\\") + name, "x");
  }
  paste(textOf(L"D:\\a.fp3\r\n  \"D:\\b c.fp3\"\t\n\n\t\rD:\\d.fp3"));
  EXPECT_EQ(news(), L"3 added");
  EXPECT_TRUE(
      catalogue().ends_with("\"FP3\",\"D:\\a.fp3\",\"11/20/2026\"\r\n"
                            "\"FP3\",\"D:\\b c.fp3\",\"11/20/2026\"\r\n"
                            "\"FP3\",\"D:\\d.fp3\",\"11/20/2026\"\r\n"));
}

TEST_F(Incoming, OnlyPairsOfQuotesAreTakenOff) {
  EXPECT_EQ(mainwindow::pathsOf(textOf(L"\"\"\n\"\n\"a")),
            (std::vector<std::wstring>{L"", L"\"", L"\"a"}));
}

TEST_F(Incoming, ASearchThatDoesNotRunHasFoundNothing) {
  const mainwindow::FileSearch search;
  EXPECT_FALSE(search.running());
  EXPECT_EQ(search.progress(), 0);
  EXPECT_EQ(search.found(), 0U);
}

TEST_F(Incoming, FilesCountMoreThanTheText) {
  desktop().putFile(L"D:\\a.fp3", "x");
  desktop().putFile(L"D:\\b.fp3", "x");
  paste({.text = L"D:\\b.fp3", .files = {L"D:\\a.fp3"}});
  EXPECT_EQ(catalogue().find("b.fp3"), std::string::npos);
  EXPECT_EQ(news(), L"1 added");
}

TEST_F(Incoming, PathsThatMayMeanAnythingAreNotThere) {
  desktop().putFile(L"D:\\a.fp3", "x");
  desktop().putFile(L"D:\\CON.fp3", "x");
  const std::string before = catalogue();
  paste(textOf(
      L"D:\\*.fp3\nD:\\?.fp3\nD:\\CON.fp3\nD:\\a.fp3:b.fp3\na.fp3\n..\\a.fp3\n\"\n\"\".fp3\nD:\\" +
      std::wstring(32'000, L'x') + L".fp3"));
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(news(), L"0 added, 1 not added: wrong type, 8 not added: not there");
}

TEST_F(Incoming, NothingToPasteIsSaid) {
  paste({});
  EXPECT_EQ(news(), L"Nothing was pasted: there are no files and no text on the clipboard");
  desktop().clipboardBusy = true;
  window.tmrNews_Timer();
  paste(textOf(L"D:\\a.fp3"));
  EXPECT_EQ(news(), L"Nothing was pasted: there are no files and no text on the clipboard");
}

TEST_F(Incoming, NewTakesNothing) {
  switchTo(frmQMK::newFiles);
  EXPECT_FALSE(window.commands.enabled(ids::mnuPaste));
  EXPECT_FALSE(takes(frmQMK::newFiles, filesOf({L"C:\\Field\\Ridge.fp3"})));
  const std::string before = catalogue();
  drop(frmQMK::newFiles, filesOf({L"D:\\a.fp3"}));
  EXPECT_EQ(catalogue(), before);
  EXPECT_EQ(window.lstQMK[frmQMK::newFiles].fireDragged(), Content());
}

TEST_F(Incoming, AFailedDropIsReported) {
  desktop().putFile(L"D:\\a.fp3", "x");
  desktop().setReadOnly(catalogueFile);
  drop(frmQMK::open, filesOf({L"D:\\a.fp3"}));
  EXPECT_EQ(messages(), (unit::Texts{L"Problem saving to QMK list\r75-Path/File access error"}));
}

TEST_F(Incoming, OpenTakesDataFilesAndFolders) {
  desktop().putFolder(L"D:\\Folder");
  desktop().slowDrives.insert(L"S:");
  EXPECT_TRUE(takes(frmQMK::open, filesOf({L"D:\\x.txt", L"D:\\a.FP3"})));
  EXPECT_TRUE(takes(frmQMK::open, filesOf({L"D:\\Folder"})));
  EXPECT_TRUE(takes(frmQMK::open, filesOf({L"D:\\"})));
  EXPECT_TRUE(takes(frmQMK::open, filesOf({L"S:\\may be a folder"})));
  EXPECT_TRUE(takes(frmQMK::open, textOf(L"\"D:\\Folder\"")));
  EXPECT_FALSE(takes(frmQMK::open, filesOf({L"D:\\x.txt", L"D:\\y.lnk"})));
  EXPECT_FALSE(takes(frmQMK::open, textOf(L"some text\nmore")));
  EXPECT_FALSE(takes(frmQMK::open, {}));
}

// --- folders ---

class IncomingFolders : public Incoming {
 protected:
  /// Folders of folders with so many data files.
  static void fill(int files) {
    for (int n = 0; n < files; ++n) {
      desktop().putFile(
          L"D:\\Season\\" + std::to_wstring(n % 7) + L"\\" + std::to_wstring(n) + L".fp3", "x");
    }
    desktop().putFile(L"D:\\Season\\notes.txt", "x");
  }
};

TEST_F(IncomingFolders, AllDataFilesBelowAreAddedInOneReplacement) {
  fill(200);
  int replaced = 0;
  desktop().onReplace = [&replaced] { ++replaced; };
  desktop().putFile(L"D:\\more.cw3", "x");
  drop(frmQMK::open, filesOf({L"D:\\more.cw3", L"D:\\Season", L"D:\\gone.cw3"}));
  EXPECT_EQ(news(), L"201 added, 1 not added: not there");
  EXPECT_EQ(window.lstQMK[frmQMK::open].count(), 202U);
  EXPECT_EQ(replaced, 1);
  EXPECT_NE(catalogue().find("\"FP3\",\"D:\\Season\\3\\3.fp3\",\"11/20/2026\"\r\n"),
            std::string::npos);
}

TEST_F(IncomingFolders, TheStatusLineShowsHowFarItIs) {
  fill(3);
  desktop().backgroundMilliseconds = 1000;
  drop(frmQMK::open, filesOf({L"D:\\Season"}));
  EXPECT_EQ(window.barStatus.left(), L"Looking for data files: 0 found (Esc stops)");
  EXPECT_EQ(window.barStatus.right(), L"");
  EXPECT_EQ(window.barStatus.progress(), 0);
  desktop().advance(500);
  EXPECT_EQ(window.barStatus.progress(), 0);
  EXPECT_TRUE(window.tmrSearch.enabled());
  desktop().advance(600);
  EXPECT_EQ(window.barStatus.progress(), std::nullopt);
  EXPECT_EQ(news(), L"3 added");
  EXPECT_FALSE(window.tmrSearch.enabled());
}

TEST_F(IncomingFolders, EscStopsTheSearch) {
  fill(3);
  const std::string before = catalogue();
  desktop().backgroundMilliseconds = 1000;
  drop(frmQMK::open, filesOf({L"D:\\Season"}));
  EXPECT_TRUE(window.fireKeyDown({.key = controls::keys::escape}));
  EXPECT_EQ(news(), L"Stopped: nothing was changed");
  EXPECT_EQ(window.barStatus.progress(), std::nullopt);
  desktop().advance(2000);
  EXPECT_EQ(catalogue(), before);
  EXPECT_FALSE(window.fireKeyDown({.key = controls::keys::escape}));
}

TEST_F(IncomingFolders, AnotherDropReplacesTheSearch) {
  fill(3);
  desktop().putFile(L"D:\\Other\\one.fp3", "x");
  desktop().backgroundMilliseconds = 1000;
  drop(frmQMK::open, filesOf({L"D:\\Season"}));
  drop(frmQMK::open, filesOf({L"D:\\Other"}));
  desktop().advance(1500);
  EXPECT_EQ(news(), L"1 added");
  EXPECT_EQ(catalogue().find("Season"), std::string::npos);
}

TEST_F(IncomingFolders, ManyFilesAreAskedAbout) {
  fill(201);
  const std::string before = catalogue();
  desktop().answers = {Answer::no, Answer::yes};
  drop(frmQMK::open, filesOf({L"D:\\Season"}));
  settle();
  EXPECT_EQ(catalogue(), before);
  drop(frmQMK::open, filesOf({L"D:\\Season"}));
  EXPECT_EQ(news(), L"201 added");
  EXPECT_EQ(messages(), (unit::Texts{L"Add 201 files?", L"Add 201 files?"}));
}

TEST_F(IncomingFolders, AWindowThatIsGoneIsNotTold) {
  fill(3);
  desktop().backgroundMilliseconds = 1000;
  const std::string before = catalogue();
  {
    frmQMK other;
    other.bringIn(frmQMK::open, filesOf({L"D:\\Season"}));
  }
  desktop().advance(2000);
  EXPECT_EQ(catalogue(), before);
}

// --- Tools ---

TEST_F(Incoming, ProgramsBecomeShortcutsAsCreateMakesThem) {
  desktop().putProgram(L"D:\\Tools\\Plot.exe");
  desktop().putFile(L"D:\\Tools\\Plot.HLP", "x");
  desktop().putFile(L"D:\\Tools\\Plot.txt", "x");
  switchTo(frmQMK::tools);
  paste(filesOf({L"D:\\Tools\\Plot.exe", L"D:\\Tools\\Plot.HLP", L"D:\\Tools\\Plot.txt",
                 L"D:\\Tools\\Gone.exe", L"D:\\Tools\\*.exe"}));
  EXPECT_EQ(news(), L"2 added, 1 not added: wrong type, 2 not added: not there");
  const auto link =
      desktop().linkAt(modQMKGeneral::ShortCutsFolder + L"\\Shortcut to Plot.exe.lnk");
  ASSERT_TRUE(link);
  EXPECT_EQ(link->targetPath, L"D:\\Tools\\Plot.exe");
  EXPECT_EQ(link->workingDirectory, L"D:\\Tools\\");
  EXPECT_EQ(link->description, L"Plot.exe");
  EXPECT_EQ(link->windowStyle, 3);
  EXPECT_EQ(textsOf(window.lstQMK[frmQMK::tools]).size(), 2U);
}

TEST_F(Incoming, ShortcutsAreCopiedUnderTheirNames) {
  desktop().putLink(L"D:\\Desk\\Notes.LNK", {.targetPath = L"C:\\Windows\\notes.exe"});
  drop(frmQMK::tools, filesOf({L"D:\\Desk\\Notes.LNK"}));
  EXPECT_EQ(news(), L"1 added");
  EXPECT_TRUE(desktop().has(L"D:\\Desk\\Notes.LNK"));
  const std::wstring copy = modQMKGeneral::ShortCutsFolder + L"\\Notes.LNK";
  EXPECT_EQ(desktop().bytesOf(copy), desktop().bytesOf(L"D:\\Desk\\Notes.LNK"));
  desktop().putFile(L"D:\\Desk\\Notes.LNK", "other");
  drop(frmQMK::tools, filesOf({L"D:\\Desk\\Notes.LNK", copy}));
  EXPECT_EQ(news(), L"0 added, 2 already there");
  EXPECT_NE(desktop().bytesOf(copy), "other");
}

TEST_F(Incoming, AShortcutThatCannotBeWrittenIsSaidAndTheOthersAreMade) {
  desktop().putProgram(L"D:\\a.exe");
  desktop().putLink(L"D:\\b.lnk", {.targetPath = L"C:\\Windows\\notes.exe"});
  desktop().putFile(modQMKGeneral::ShortCutsFolder + L"\\Shortcut to a.exe.lnk", "x");
  desktop().setReadOnly(modQMKGeneral::ShortCutsFolder + L"\\Shortcut to a.exe.lnk");
  drop(frmQMK::tools, filesOf({L"D:\\a.exe", L"D:\\b.lnk"}));
  EXPECT_EQ(news(), L"1 added, 1 not added: Path/File access error");
}

TEST_F(Incoming, ToolsTakesProgramsHelpAndShortcuts) {
  for (const wchar_t* const path : {L"D:\\a.exe", L"D:\\a.HLP", L"D:\\a.Lnk"}) {
    EXPECT_TRUE(takes(frmQMK::tools, filesOf({L"D:\\x.txt", path})));
    EXPECT_TRUE(takes(frmQMK::tools, textOf(path)));
  }
  EXPECT_FALSE(takes(frmQMK::tools, filesOf({L"D:\\a.fp3", L"D:\\exe", L"D:\\a.url"})));
}

// --- Web ---

TEST_F(Incoming, AddressesBecomeWebShortcuts) {
  switchTo(frmQMK::web);
  paste(textOf(L"https://fuel.example/a?b\r\nno address\r\nMy page\tftp://files.example\r\n"));
  EXPECT_EQ(webList(),
            "\"Weather\",\"http://weather.example\"\r\n"
            "\"fuel.example\",\"https://fuel.example/a?b\"\r\n"
            "\"My page\",\"ftp://files.example\"\r\n");
  EXPECT_EQ(news(), L"2 added, 1 not added: wrong type");
  EXPECT_EQ(window.lstQMK[frmQMK::web].count(), 3U);
}

TEST_F(Incoming, AnAddressFromABrowserCountsMoreThanItsText) {
  drop(frmQMK::web, {.text = L"Fuel", .files = {}, .address = L"http://fuel.example/"});
  EXPECT_EQ(news(), L"1 added");
  EXPECT_TRUE(webList().ends_with("\"fuel.example\",\"http://fuel.example/\"\r\n"));
}

TEST_F(Incoming, WhatIsThereIsNotAddedTwice) {
  drop(frmQMK::web, textOf(L"Weather\thttp://weather.example\nhttp://x\nhttp://x"));
  EXPECT_EQ(news(), L"1 added, 2 already there");
}

TEST_F(Incoming, UrlFilesKeepTheirNames) {
  desktop().putFile(L"D:\\Fuel page.URL", "[InternetShortcut]\r\nURL=http://fuel.example/\r\n");
  desktop().putFile(L"D:\\Local.url", "[InternetShortcut]\r\nURL=file:///C:/x\r\n");
  drop(frmQMK::web,
       filesOf({L"D:\\Fuel page.URL", L"D:\\Local.url", L"D:\\Gone.url", L"D:\\a.fp3"}));
  EXPECT_EQ(webList(),
            "\"Weather\",\"http://weather.example\"\r\n"
            "\"Fuel page\",\"http://fuel.example/\"\r\n");
  EXPECT_EQ(news(), L"1 added, 2 not added: wrong type, 1 not added: File not found");
}

TEST_F(Incoming, NoAddressChangesNothing) {
  desktop().setReadOnly(webListFile);
  drop(frmQMK::web, textOf(L"javascript:alert(1)"));
  EXPECT_EQ(news(), L"0 added, 1 not added: wrong type");
  window.tmrNews_Timer();
  drop(frmQMK::web, textOf(L"http://x"));
  EXPECT_EQ(messages(), (unit::Texts{L"Problem saving to QMK list\r75-Path/File access error"}));
  EXPECT_EQ(news(), L"1 file");
}

TEST_F(Incoming, WebTakesUrlFilesAndAddresses) {
  EXPECT_TRUE(takes(frmQMK::web, filesOf({L"D:\\x.txt", L"D:\\a.Url"})));
  EXPECT_TRUE(takes(frmQMK::web, textOf(L"text\nhttp://x")));
  EXPECT_TRUE(takes(frmQMK::web, {.text = L"text", .files = {}, .address = L"http://x"}));
  EXPECT_FALSE(takes(frmQMK::web, filesOf({L"D:\\a.fp3"})));
  EXPECT_FALSE(takes(frmQMK::web, textOf(L"file:///C:/x")));
}

// --- dragging out ---

TEST_F(Incoming, RowsAreDraggedOutAsFilesAndAddresses) {
  window.lstQMK[frmQMK::open].select(0);
  EXPECT_EQ(window.lstQMK[frmQMK::open].fireDragged(), filesOf({L"C:\\Field\\Ridge.fp3"}));
  desktop().take(L"C:\\Field\\Ridge.fp3");
  EXPECT_EQ(window.lstQMK[frmQMK::open].fireDragged(), Content());
  switchTo(frmQMK::web);
  EXPECT_EQ(
      window.lstQMK[frmQMK::web].fireDragged(),
      (Content{
          .text = L"http://weather.example", .files = {}, .address = L"http://weather.example"}));
  window.txtFind.setText(L"nothing like it");
  window.txtFind_Typed();
  EXPECT_EQ(window.lstQMK[frmQMK::web].fireDragged(), Content());
}

TEST_F(Incoming, AToolIsDraggedOutAsItsShortcut) {
  desktop().putLink(modQMKGeneral::ShortCutsFolder + L"\\Notes.lnk",
                    {.targetPath = L"C:\\Windows\\notes.exe"});
  switchTo(frmQMK::tools);
  window.reloadList(frmQMK::tools);
  window.lstQMK[frmQMK::tools].select(0);
  EXPECT_EQ(window.lstQMK[frmQMK::tools].fireDragged(),
            filesOf({modQMKGeneral::ShortCutsFolder + L"\\Notes.lnk"}));
}

}  // namespace
