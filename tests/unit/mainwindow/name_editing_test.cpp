// Changing a name in the list itself.
#include <gtest/gtest.h>

#include <string>

#include "catalogue/catalogue_view.h"
#include "mainwindow/control_ids.h"
#include "unit/support/links.h"
#include "unit/support/loaded_main_window.h"

namespace {

using memory::desktop;
using unit::Texts;
namespace keys = controls::keys;

constexpr const wchar_t* links = L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts\\";

class NameEditing : public unit::LoadedMainWindow {
 protected:
  NameEditing() {
    desktop().putFile(L"C:\\f\\plot.12.fp3", "x");
    desktop().putFile(L"C:\\f\\other.fp3", "x");
    desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                      "\"fp3\",\"C:\\f\\other.fp3\",\"1\"\r\n"
                      "\"fp3\",\"C:\\f\\plot.12.fp3\",\"2\"\r\n");
    modQMKGeneral::LoadCatalogueView(window.catalogue);
    desktop().putFolder(L"C:\\App\\shortcuts");
    for (const wchar_t* const name : {L"Notes.exe", L"Other", L"Modelhouse"}) {
      platform::shell_links::Link link;
      link.targetPath = L"C:\\t\\n.exe";
      desktop().putLink(links + std::wstring(name) + L".lnk", link);
    }
    modSC::LoadShortcutList(window.shortcuts);
    addWebEntry(L"Weather", L"http://weather.example/");
    desktop().clearJournal();
  }

  void pressF2(int tab) { window.lstQMK.at(static_cast<std::size_t>(tab)).fireKey({keys::f2}); }

  controls::ListView& data = window.lstQMK[frmQMK::open];
  controls::ListView& tools = window.lstQMK[frmQMK::tools];
};

TEST_F(NameEditing, OnOpenTheStemOfTheNameIsSelected) {
  switchTo(frmQMK::open);
  data.select(1);
  pressF2(frmQMK::open);
  ASSERT_TRUE(data.nameEditor());
  EXPECT_EQ(data.nameEditor()->text, L"plot.12.fp3");
  EXPECT_EQ(data.nameEditor()->stem, 7U);
}

TEST_F(NameEditing, ANameWithoutAStemIsSelectedAsAWhole) {
  switchTo(frmQMK::open);
  for (const wchar_t* const name : {L"plot", L".fp3"}) {
    data.setText(0, name);
    data.select(0);
    data.setSorted(false);
    pressF2(frmQMK::open);
    ASSERT_TRUE(data.nameEditor());
    EXPECT_EQ(data.nameEditor()->stem, data.nameEditor()->text.size());
  }
}

TEST_F(NameEditing, EnterDoesWhatRenameDoes) {
  switchTo(frmQMK::open);
  data.select(1);
  pressF2(frmQMK::open);
  data.fireNameTyped(L"field plot");
  EXPECT_TRUE(desktop().has(L"C:\\f\\field plot.FP3"));
  EXPECT_EQ(desktop().bytesOf(L"C:\\App\\QMKFileList3.txt"),
            "\"fp3\",\"C:\\f\\field plot.FP3\",\"2\"\r\n\"fp3\",\"C:\\f\\other.fp3\",\"1\"\r\n");
  EXPECT_TRUE(desktop().inputs.empty());
}

TEST_F(NameEditing, AFailureIsShownAsByRename) {
  switchTo(frmQMK::open);
  data.select(1);
  pressF2(frmQMK::open);
  data.fireNameTyped(L"other.fp3");
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_TRUE(messages()[0].starts_with(L"Problem saving to QMK list\r58-"));
  EXPECT_TRUE(desktop().has(L"C:\\f\\plot.12.fp3"));
}

TEST_F(NameEditing, EscOrABlankNameLeaveEverythingAsItWas) {
  switchTo(frmQMK::open);
  for (const wchar_t* const name : {L"", L"  ", L"other.fp3"}) {
    data.select(0);
    pressF2(frmQMK::open);
    data.fireNameTyped(name);
  }
  pressF2(frmQMK::open);
  data.closeNameEditor();
  EXPECT_EQ(desktop().journal(), Texts{});
}

TEST_F(NameEditing, AReloadDoesNotChangeWhichEntryIsMeant) {
  switchTo(frmQMK::open);
  data.select(1);
  pressF2(frmQMK::open);
  desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                    "\"fp3\",\"C:\\f\\zebra.fp3\",\"3\"\r\n"
                    "\"fp3\",\"C:\\f\\plot.12.fp3\",\"2\"\r\n"
                    "\"fp3\",\"C:\\f\\aaa.fp3\",\"3\"\r\n");
  modQMKGeneral::LoadCatalogueView(window.catalogue);
  data.select(0);
  ASSERT_TRUE(data.nameEditor());
  data.fireNameTyped(L"new.fp3");
  EXPECT_TRUE(desktop().has(L"C:\\f\\new.fp3"));
  EXPECT_EQ(textsOf(data), (Texts{L"aaa.fp3", L"new.fp3", L"zebra.fp3"}));
}

TEST_F(NameEditing, AnEntryThatIsGoneIsNotRenamed) {
  switchTo(frmQMK::open);
  data.select(1);
  pressF2(frmQMK::open);
  desktop().putFile(L"C:\\App\\QMKFileList3.txt", "\"fp3\",\"C:\\f\\other.fp3\",\"1\"\r\n");
  modQMKGeneral::LoadCatalogueView(window.catalogue);
  data.fireNameTyped(L"new.fp3");
  EXPECT_EQ(onlyMessage(), L"plot.12.fp3 is no longer in the list");
  EXPECT_TRUE(desktop().has(L"C:\\f\\plot.12.fp3"));
}

TEST_F(NameEditing, OnToolsTheNameIsTheFilesWithoutItsExtension) {
  tools.select(0);
  EXPECT_EQ(tools.text(0), L"Notes");
  pressF2(frmQMK::tools);
  ASSERT_TRUE(tools.nameEditor());
  EXPECT_EQ(tools.nameEditor()->text, L"Notes.exe");
  EXPECT_EQ(tools.nameEditor()->stem, 9U);
  tools.fireNameTyped(L"Field notes");
  EXPECT_TRUE(desktop().has(L"C:\\App\\shortcuts\\Field notes.lnk"));
  EXPECT_FALSE(desktop().has(links + std::wstring(L"Notes.exe.lnk")));
  EXPECT_EQ(tools.count(), 2U);
}

TEST_F(NameEditing, TheStatusLineSaysWhereARenamedShortcutWent) {
  tools.select(0);
  pressF2(frmQMK::tools);
  tools.fireNameTyped(L"Field notes");
  EXPECT_EQ(window.barStatus.left(), L"Field notes.lnk is in C:\\App\\shortcuts now");
}

TEST_F(NameEditing, TheMenusRenameSaysItToo) {
  tools.select(0);
  desktop().inputAnswers = {L"Field notes"};
  window.mnuRename_Click();
  EXPECT_EQ(window.barStatus.left(), L"Field notes.lnk is in C:\\App\\shortcuts now");
}

TEST_F(NameEditing, AProtectedShortcutIsRefusedAtOnce) {
  tools.select(1);
  ASSERT_EQ(tools.text(1), L"Other");
  tools.select(2);
  pressF2(frmQMK::tools);
  EXPECT_EQ(onlyMessage(), L"Sorry, you can't rename this shortcut");
  EXPECT_FALSE(tools.nameEditor());
}

TEST_F(NameEditing, ANameThatExistsIsRefusedAsByRename) {
  tools.select(0);
  pressF2(frmQMK::tools);
  tools.fireNameTyped(L"Other");
  EXPECT_EQ(onlyMessage(), L"OTHER already exists, can't change name");
  EXPECT_EQ(tools.count(), 3U);
}

TEST_F(NameEditing, AShortcutWhoseFileIsGoneIsRefused) {
  tools.select(0);
  desktop().take(links + std::wstring(L"Notes.exe.lnk"));
  pressF2(frmQMK::tools);
  EXPECT_EQ(onlyMessage(), L"Please select shortcut");
}

TEST_F(NameEditing, OnWebF2OpensTheDialog) {
  switchTo(frmQMK::web);
  pressF2(frmQMK::web);
  ASSERT_NE(window.webDialog(), nullptr);
  EXPECT_EQ(window.webDialog()->caption(), L"Rename Web Shortcut");
  EXPECT_FALSE(window.lstQMK[frmQMK::web].nameEditor());
}

TEST_F(NameEditing, ASlowClickEditsOnToolsAndOpenOnly) {
  for (int tab = 0; tab < 4; ++tab) {
    switchTo(tab);
    window.lstQMK.at(static_cast<std::size_t>(tab)).fireNameClick();
  }
  EXPECT_TRUE(tools.nameEditor());
  EXPECT_TRUE(data.nameEditor());
  EXPECT_FALSE(window.lstQMK[frmQMK::newFiles].nameEditor());
  EXPECT_FALSE(window.lstQMK[frmQMK::web].nameEditor());
  EXPECT_EQ(window.webDialog(), nullptr);
}

TEST_F(NameEditing, OnNewAndInAnEmptyListF2DoesNothing) {
  modQMKGeneral::AddNewFileItems(window.catalogue);
  switchTo(frmQMK::newFiles);
  pressF2(frmQMK::newFiles);
  EXPECT_FALSE(window.lstQMK[frmQMK::newFiles].nameEditor());
  switchTo(frmQMK::open);
  data.clear();
  pressF2(frmQMK::open);
  EXPECT_FALSE(data.nameEditor());
  switchTo(frmQMK::tools);
  tools.clear();
  pressF2(frmQMK::tools);
  EXPECT_FALSE(tools.nameEditor());
}

}  // namespace
