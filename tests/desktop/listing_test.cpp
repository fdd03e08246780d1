// Copying entries, showing where they are, and lists that go out and come in.
#include "gateway_test.h"
#include "harness/clipboard.h"
#include "harness/files.h"
#include "harness/paths.h"
#include "harness/status_bar.h"

namespace desktop_tests {
namespace {

using harness::clipboardFiles;
using harness::clipboardText;
using harness::FileDialogReader;

class Listing : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    plot_ = app->addFileElsewhere(L"Field Work\\plot \u00E4, 1.fp3");
    app->writeCatalogue(record(L"fp3", plot_, L"1/2/2026") +
                        record(L"CW3", L"C:\\Gone\\far.cw3", L"1/3/2026"));
    harness::writeFile(webList(), "\"Home\",\"http://home.example/\"\r\n");
    app->startToMain();
    app->selectTab(Tab::open);
    ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 2));
    harness::bringToFront(app->main());
    selectRow(Tab::open, L"plot \u00E4, 1.fp3");
  }

  [[nodiscard]] std::wstring webList() const { return app->folder() + L"\\QMKWebList.txt"; }

  void selectRow(int tab, const std::wstring& text) const {
    const auto list = app->list(tab);
    const auto row = list.find(text);
    ASSERT_TRUE(row.has_value());
    harness::clickAt(harness::centreOf(list.textOnScreen(*row)), app->main());
    ASSERT_TRUE(eventually([&] { return list.selected(); }, row));
  }

  void run(int command) const {
    PostMessageW(app->main(), WM_COMMAND, static_cast<WPARAM>(command), 0);
  }

  /// The left part of the status line.
  [[nodiscard]] std::wstring status() const {
    return harness::StatusBarReader(GetDlgItem(app->main(), ids::barStatus)).part(0);
  }

  [[nodiscard]] FileDialogReader fileDialog() const { return app->waitForFileDialog(); }

  std::wstring plot_;
};

TEST_F(Listing, CopyPutsTheRowAndTheFileOnTheClipboard) {
  harness::pressKey('C', VK_CONTROL);
  const std::wstring folder = plot_.substr(0, plot_.rfind(L'\\') + 1);
  EXPECT_TRUE(eventually(clipboardText, L"plot \u00E4, 1.fp3\t1/2/2026\tFuel Profile\t" + folder));
  EXPECT_EQ(clipboardFiles(), std::vector<std::wstring>{plot_});
  selectRow(Tab::open, L"far.cw3");
  harness::pressKey('C', VK_CONTROL);
  EXPECT_TRUE(eventually(clipboardText, L"far.cw3\t1/3/2026\tCanopy Weigh Inventory\tC:\\Gone\\"));
  EXPECT_TRUE(clipboardFiles().empty());
}

TEST_F(Listing, CopyPathPutsThePathOnTheClipboard) {
  harness::pressKeys({VK_CONTROL, VK_SHIFT, 'C'});
  EXPECT_TRUE(eventually(clipboardText, plot_));
  EXPECT_TRUE(clipboardFiles().empty());
  app->selectTab(Tab::web);
  selectRow(Tab::web, L"Home");
  run(ids::mnuCopyPath);
  EXPECT_TRUE(eventually(clipboardText, L"http://home.example/"));
}

TEST_F(Listing, CtrlCInTheFindBoxIsTheBoxs) {
  harness::pressKey('F', VK_CONTROL);
  harness::typeText(L"plot");
  harness::pressKey('A', VK_CONTROL);
  harness::pressKey('C', VK_CONTROL);
  EXPECT_TRUE(eventually(clipboardText, L"plot"));
}

TEST_F(Listing, ABusyClipboardIsTold) {
  ASSERT_NE(OpenClipboard(nullptr), 0);
  run(ids::mnuCopyPath);
  const bool told = eventually([&] { return status(); },
                               L"Nothing was copied: another program keeps the clipboard open");
  CloseClipboard();
  EXPECT_TRUE(told);
}

TEST_F(Listing, RemoveFromListLeavesTheFile) {
  harness::pressKey(VK_DELETE, VK_CONTROL);
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
  EXPECT_EQ(harness::readFile(app->cataloguePath()),
            record(L"CW3", L"C:\\Gone\\far.cw3", L"1/3/2026"));
  EXPECT_TRUE(harness::readFile(plot_).has_value());
  EXPECT_TRUE(eventually([&] { return status(); },
                         L"plot \u00E4, 1.fp3 is no longer listed; the file itself stays"));
}

TEST_F(Listing, FilesOfTheDataFolderStayListed) {
  app->addDataFile(L"own.fp3");
  harness::writeFile(app->cataloguePath(),
                     record(L"fp3", app->folder() + L"\\data\\own.fp3", L"1/2/2026"));
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
  selectRow(Tab::open, L"own.fp3");
  harness::pressKey(VK_DELETE, VK_CONTROL);
  EXPECT_TRUE(eventually([&] { return status(); }, L"Files of the data folder are always listed"));
  EXPECT_EQ(app->list(Tab::open).count(), 1);
}

TEST_F(Listing, SaveListAsWritesWhatIsShown) {
  harness::pressKey('F', VK_CONTROL);
  harness::typeText(L"gone");
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
  run(ids::mnuSaveListAs);
  const std::wstring file = app->folder() + L"\\Mine";
  EXPECT_EQ(fileDialog().title(), L"Save List As");
  fileDialog().open(file);
  EXPECT_TRUE(eventually([&] { return harness::readFile(file + L".txt"); },
                         record(L"CW3", L"C:\\Gone\\far.cw3", L"1/3/2026")));
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 file saved in Mine.txt"));
  run(ids::mnuSaveListAs);
  fileDialog().open(file + L".csv");
  EXPECT_TRUE(
      eventually([&] { return harness::readFile(file + L".csv"); },
                 std::string("\xEF\xBB\xBFRecently Used Files,Last Modified,Type,Directory"
                             "\r\nfar.cw3,1/3/2026,Canopy Weigh Inventory,C:\\Gone\\\r\n")));
}

TEST_F(Listing, SaveListAsAsksBeforeItReplacesAFile) {
  const std::wstring file = app->folder() + L"\\Mine.txt";
  harness::writeFile(file, "mine");
  run(ids::mnuSaveListAs);
  fileDialog().open(file);
  expectMessage(L"Mine.txt already exists. Replace it?", exclamationIcon, yesAndNo, IDNO);
  EXPECT_EQ(harness::readFile(file), "mine");
  run(ids::mnuSaveListAs);
  fileDialog().open(app->cataloguePath());
  EXPECT_TRUE(eventually([&] { return status(); },
                         L"Nothing was saved: QMKFileList3.txt is a list of this program"));
}

TEST_F(Listing, AddListAddsWhatIsNotThere) {
  const std::wstring file = app->folder() + L"\\Other.txt";
  const std::string before = *harness::readFile(app->cataloguePath());
  harness::writeFile(file, record(L"cw3", L"c:\\gone\\FAR.cw3", L"9/9/2009") +
                               record(L"BI3", L"C:\\Gone\\new.bi3", L"9/9/2009"));
  run(ids::mnuAddList);
  EXPECT_EQ(fileDialog().title(), L"Add List");
  fileDialog().open(file);
  EXPECT_TRUE(eventually([&] { return harness::readFile(app->cataloguePath()); },
                         before + record(L"BI3", L"C:\\Gone\\new.bi3", L"9/9/2009")));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 3));
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 added, 1 already there"));
}

TEST_F(Listing, AddToListTakesSeveralFiles) {
  app->addDataFile(L"one more.bi3");
  app->addDataFile(L"other.txt");
  const std::string before = *harness::readFile(app->cataloguePath());
  harness::pressKey('O', VK_CONTROL);
  EXPECT_EQ(fileDialog().title(), L"Add to List");
  fileDialog().open(L"\"one more.bi3\" \"other.txt\"");
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 added, 1 not added: wrong type"));
  EXPECT_EQ(harness::readFile(app->cataloguePath())->substr(0, before.size()), before);
  EXPECT_EQ(app->list(Tab::open).count(), 3);
  harness::pressKey('O', VK_CONTROL);
  fileDialog().open(plot_);
  EXPECT_TRUE(eventually([&] { return status(); }, L"0 added, 1 already there"));
}

TEST_F(Listing, OpenFolderShowsTheFolder) {
  harness::pressKey('E', VK_CONTROL);
  HWND shown = nullptr;
  EXPECT_TRUE(happens("Explorer's window", [&] {
    shown = FindWindowW(L"ExplorerWClass", nullptr);
    return shown != nullptr;
  }));
  PostMessageW(shown, WM_CLOSE, 0, 0);
}

}  // namespace
}  // namespace desktop_tests
