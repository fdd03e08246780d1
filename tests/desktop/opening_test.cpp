// Opening data files: the command lines that the tools receive, and what happens when tools are
// missing.
#include "gateway_test.h"

namespace desktop_tests {
namespace {

using harness::encoded;
using harness::FileDialogReader;
using harness::ToolStart;

class Opening : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  /// Lists the files, with all tools installed, and makes the Open tab the current one.
  void startWith(const std::string& catalogue, int rows) const {
    app->addAllTools();
    startWithoutTools(catalogue, rows);
  }
  void startWithoutTools(const std::string& catalogue, int rows) const {
    app->writeCatalogue(catalogue);
    app->startToMain();
    app->selectTab(Tab::open);
    ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, rows));
  }

  [[nodiscard]] std::wstring tool(const std::wstring& name) const {
    return app->folder() + L"\\" + name;
  }

  void browse() const {
    harness::bringToFront(app->main());
    harness::clickAt(harness::centreOf(harness::screenRect(app->browseButton())), app->main());
  }

  /// Checks the command line of the latest of `count` tool starts.
  void expectStart(std::size_t count, const std::wstring& commandLine) const {
    const ToolStart start = app->waitForToolStart(count);
    EXPECT_EQ(start.commandLine, commandLine);
    EXPECT_EQ(start.showState, L"1") << "a normal window";
  }
};

TEST_F(Opening, ADoubleClickStartsTheToolOfEachType) {
  const std::wstring profile = app->addFileElsewhere(L"Field Work\\a plot 1.fp3");
  const std::wstring canopy = app->addFileElsewhere(L"b.cw3");
  const std::wstring planar = app->addFileElsewhere(L"Field Work\\c.bi3");
  const std::wstring photo = app->addFileElsewhere(L"d d.bs3");
  const std::wstring upper = app->addFileElsewhere(L"E.FP3");
  startWith(record(L"fp3", profile) + record(L"CW3", canopy) + record(L"bi3", planar) +
                record(L"BS3", photo) + record(L"FP3", upper),
            5);
  app->doubleClickRow(Tab::open, L"a plot 1.fp3");
  expectStart(1, tool(L"plv3.exe ") + encoded(profile));
  app->doubleClickRow(Tab::open, L"b.cw3");
  expectStart(2, tool(L"cw3.exe ") + encoded(canopy));
  app->doubleClickRow(Tab::open, L"c.bi3");
  expectStart(3, tool(L"brtpc3.exe ") + encoded(planar));
  app->doubleClickRow(Tab::open, L"d d.bs3");
  expectStart(4, tool(L"brtpc3.exe ") + encoded(photo));
  app->doubleClickRow(Tab::open, L"E.FP3");
  expectStart(5, tool(L"plv3.exe ") + encoded(upper));
}

TEST_F(Opening, EnterOpensTheSelectedFile) {
  const std::wstring first = app->addFileElsewhere(L"a.fp3");
  const std::wstring second = app->addFileElsewhere(L"b.cw3");
  startWith(record(L"FP3", first) + record(L"CW3", second), 2);
  harness::clickAt(harness::centreOf(app->list(Tab::open).textOnScreen(1)), app->main());
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).selected(); }, 1));
  harness::pressKey(VK_RETURN);
  expectStart(1, tool(L"cw3.exe ") + encoded(second));
}

TEST_F(Opening, ADoubleClickOnWhiteSpaceOpensTheSelectedFile) {
  const std::wstring first = app->addFileElsewhere(L"a.fp3");
  const std::wstring second = app->addFileElsewhere(L"b.cw3");
  startWith(record(L"FP3", first) + record(L"CW3", second), 2);
  harness::clickAt(harness::centreOf(app->list(Tab::open).textOnScreen(1)), app->main());
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).selected(); }, 1));
  const RECT list = harness::screenRect(app->list(Tab::open).window());
  harness::doubleClickAt({list.left + 40, list.bottom - 40}, app->main());
  expectStart(1, tool(L"cw3.exe ") + encoded(second));
}

TEST_F(Opening, ADoubleClickInAnEmptyListDoesNothing) {
  startWith("", 0);
  const RECT list = harness::screenRect(app->list(Tab::open).window());
  harness::doubleClickAt(harness::centreOf(list), app->main());
  app->selectTab(Tab::newFile);
  app->doubleClickRow(Tab::newFile, 0);
  expectStart(1, tool(L"plv3.exe #NEW#"));
}

TEST_F(Opening, EachNewFileItemStartsItsTool) {
  app->addAllTools();
  app->startToMain();
  app->selectTab(Tab::newFile);
  app->doubleClickRow(Tab::newFile, L"New Fuel Profile");
  expectStart(1, tool(L"plv3.exe #NEW#"));
  app->doubleClickRow(Tab::newFile, L"New Planar Intercept");
  expectStart(2, tool(L"brtpc3.exe BI3"));
  app->doubleClickRow(Tab::newFile, L"New Plotview Inventory");
  expectStart(3, tool(L"brtpc3.exe BS3"));
  app->doubleClickRow(Tab::newFile, L"New Canopy Weigh Inventory");
  expectStart(4, tool(L"cw3.exe #NEW#"));
}

TEST_F(Opening, BrowsingStartsTheToolOfEachType) {
  const std::wstring profile = app->addFileElsewhere(L"Field Work\\a plot 1.fp3");
  const std::wstring canopy = app->addFileElsewhere(L"b.CW3");
  const std::wstring planar = app->addFileElsewhere(L"Field Work\\c.bi3");
  const std::wstring photo = app->addFileElsewhere(L"d d.bs3");
  startWith("", 0);
  browse();
  app->waitForFileDialog().open(profile);
  expectStart(1, tool(L"plv3.exe ") + encoded(profile));
  browse();
  app->waitForFileDialog().open(canopy);
  expectStart(2, tool(L"cw3.exe ") + encoded(canopy));
  browse();
  app->waitForFileDialog().open(planar);
  expectStart(3, tool(L"brtpc3.exe bpi ") + encoded(planar));
  browse();
  app->waitForFileDialog().open(photo);
  expectStart(4, tool(L"brtpc3.exe bps ") + encoded(photo));
  EXPECT_EQ(app->catalogue(), "") << "browsing does not catalogue a file";
}

TEST_F(Opening, TheFileDialogBeginsInTheDataFolderWithTheFilters) {
  startWith("", 0);
  browse();
  const FileDialogReader dialog = app->waitForFileDialog();
  EXPECT_EQ(dialog.title(), L"Open File");
  EXPECT_EQ(harness::encoded(dialog.folder()), harness::encoded(app->folder() + L"\\data"));
  EXPECT_THAT(dialog.filters(),
              ElementsAre(L"Plotscan Fuel Profile(*.fp3)", L"Brushtally Planar Intercept(*.bi3)",
                          L"Brushtally Plotview(*.bs3)", L"Canopy Weigh(*.cw3)"));
  EXPECT_EQ(dialog.chosenFilter(), 0);
  dialog.cancel();
  EXPECT_TRUE(eventually([&] { return IsWindowEnabled(app->main()); }, Ne(FALSE)));
  EXPECT_FALSE(app->dialogShown());
  EXPECT_TRUE(app->toolStarts().empty());
}

TEST_F(Opening, TheFileDialogBeginsInTheApplicationFolderWithoutADataFolder) {
  harness::removeTree(app->folder() + L"\\data");
  startWith("", 0);
  browse();
  const FileDialogReader dialog = app->waitForFileDialog();
  EXPECT_EQ(dialog.folder(), app->folder());
  dialog.cancel();
}

TEST_F(Opening, AFileOfAnotherKindCannotBeOpened) {
  const std::wstring notes = app->addFileElsewhere(L"notes.txt");
  startWith("", 0);
  browse();
  app->waitForFileDialog().open(notes);
  expectMessage(L"The file can not be opened", noIcon, okOnly, IDOK);
  EXPECT_TRUE(app->toolStarts().empty());
}

TEST_F(Opening, AnEntryOfUnknownTypeStartsNothing) {
  const std::wstring unknown = app->addFileElsewhere(L"a.xyz");
  const std::wstring known = app->addFileElsewhere(L"b.fp3");
  startWith(record(L"XYZ", unknown) + record(L"FP3", known), 2);
  app->doubleClickRow(Tab::open, L"a.xyz");
  app->doubleClickRow(Tab::open, L"b.fp3");
  expectStart(1, tool(L"plv3.exe ") + encoded(known));
  EXPECT_FALSE(app->dialogShown());
}

TEST_F(Opening, AMissingFileMayBeLocatedByHand) {
  const std::wstring folder = app->testFolder() + L"\\Field Work\\";
  const std::wstring found = app->addFileElsewhere(L"Field Work\\found it.bi3");
  const std::string catalogue = record(L"BI3", folder + L"my plot 1.bi3");
  startWith(catalogue, 1);
  app->doubleClickRow(Tab::open, 0);
  expectMessage(L"File does not exist: " + encoded(folder) +
                    L"my?plot?1.bi3\rIt may have been moved or deleted. Do you wish to locate the "
                    L"file yourself? ",
                exclamationIcon, yesAndNo, IDYES);
  const FileDialogReader dialog = app->waitForFileDialog();
  EXPECT_EQ(dialog.fileName(), L"my?plot?1.bi3");
  dialog.open(found);
  expectStart(1, tool(L"brtpc3.exe bpi ") + encoded(found));
  expectMessage(found + L"\rLet the list show it there from now on?", questionIcon, yesAndNo, IDNO);
  EXPECT_EQ(app->catalogue(), catalogue) << "the entry stays";

  // The preset is used once.
  browse();
  const FileDialogReader next = app->waitForFileDialog();
  EXPECT_EQ(next.fileName().find(L"my?plot"), std::wstring::npos);
  next.cancel();
}

TEST_F(Opening, ALocatedFileCanBeShownThereFromThenOn) {
  const std::wstring found = app->addFileElsewhere(L"Field Work\\found it.bi3");
  const std::string other = record(L"CW3", L"D:\\z.cw3");
  startWith(record(L"BI3", L"D:\\gone\\plot.bi3", L"some day") + other, 2);
  app->doubleClickRow(Tab::open, L"plot.bi3");
  expectMessage(
      L"File does not exist: D:\\gone\\plot.bi3\rIt may have been moved or deleted. Do you wish to "
      L"locate the file yourself? ",
      exclamationIcon, yesAndNo, IDYES);
  app->waitForFileDialog().open(found);
  expectStart(1, tool(L"brtpc3.exe bpi ") + encoded(found));
  expectMessage(found + L"\rLet the list show it there from now on?", questionIcon, yesAndNo,
                IDYES);
  EXPECT_TRUE(eventually([&] { return app->catalogue(); },
                         std::optional(record(L"BI3", found, L"some day") + other)));
  EXPECT_TRUE(
      eventually([&] { return app->list(Tab::open).find(L"found it.bi3").has_value(); }, true));
}

TEST_F(Opening, AMissingFileThatIsNotLocatedLosesItsEntry) {
  const std::string before = record(L"CW3", L"D:\\z.cw3");
  const std::string after = record(L"fp3", L"D:\\y.fp3", L"some day");
  startWith(before + record(L"FP3", L"D:\\gone\\a plot.fp3") + after, 3);
  app->doubleClickRow(Tab::open, 0);
  expectMessage(
      L"File does not exist: D:\\gone\\a?plot.fp3\rIt may have been moved or deleted. Do "
      L"you wish to locate the file yourself? ",
      exclamationIcon, yesAndNo, IDNO);
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 2));
  EXPECT_EQ(app->catalogue(), before + after);
  EXPECT_TRUE(app->toolStarts().empty());
}

TEST_F(Opening, AMissingToolIsReported) {
  const std::wstring profile = app->addFileElsewhere(L"my plot.fp3");
  startWithoutTools(record(L"FP3", profile), 1);
  app->doubleClickRow(Tab::open, 0);
  expectMessage(
      L"Can't start application\r53-File not found\rPath: " + tool(L"plv3.exe ") + encoded(profile),
      criticalIcon, okOnly, IDOK);
  EXPECT_EQ(app->list(Tab::open).count(), 1);
}

TEST_F(Opening, AToolThatIsNotAProgramIsReported) {
  const std::wstring profile = app->addFileElsewhere(L"a.fp3");
  harness::writeFile(tool(L"plv3.exe"), "not a program");
  startWithoutTools(record(L"FP3", profile), 1);
  app->doubleClickRow(Tab::open, 0);
  expectMessage(L"Can't start application\r5-Invalid procedure call or argument\rPath: " +
                    tool(L"plv3.exe ") + encoded(profile),
                criticalIcon, okOnly, IDOK);
}

TEST_F(Opening, BlanksInTheApplicationFolderCannotStartAnotherProgram) {
  useFolder(L"Quill mark Suite");
  GatewayApp::skipExample();
  const std::wstring decoy = app->testFolder() + L"\\Quill.exe";
  harness::copyFile(app->folder() + L"\\gateway3.exe", decoy);
  const std::wstring profile = app->addDataFile(L"a plot.fp3");
  app->addAllTools();
  app->startToMain();
  app->selectTab(Tab::open);
  app->doubleClickRow(Tab::open, L"a plot.fp3");
  expectStart(1, tool(L"plv3.exe ") + encoded(profile));
}

TEST_F(Opening, AccentsCommasAndVeryLongPathsReachTheTool) {
  const std::wstring accents = app->addFileElsewhere(L"Stra\u00DFe\\a \u00E9t\u00E9.fp3");
  const std::wstring commas = app->addFileElsewhere(L"one, two\\b,1.fp3");
  std::wstring folder = L"deep";
  while (app->testFolder().size() + folder.size() < 300) {
    folder += L"\\a folder with a long name";
  }
  const std::wstring deep = app->addFileElsewhere(folder + L"\\c.fp3");
  ASSERT_GE(deep.size(), 300U);
  startWith(record(L"FP3", accents) + record(L"FP3", commas) + record(L"FP3", deep), 3);
  app->doubleClickRow(Tab::open, 0);
  expectStart(1, tool(L"plv3.exe ") + encoded(accents));
  app->doubleClickRow(Tab::open, 1);
  expectStart(2, tool(L"plv3.exe ") + encoded(commas));
  app->doubleClickRow(Tab::open, 2);
  expectStart(3, tool(L"plv3.exe ") + encoded(deep));
}

TEST_F(Opening, TheProgramDoesNotWaitForTheTool) {
  const std::wstring profile = app->addFileElsewhere(L"a.fp3");
  SetEnvironmentVariableW(L"QMK_STANDIN_MS", nullptr);
  startWith(record(L"FP3", profile), 1);
  app->doubleClickRow(Tab::open, 0);
  harness::waitUntil("the tool's window", [] {
    return harness::visibleWindowTitled(L"Stand-in for plv3.exe") != nullptr;
  });
  app->selectTab(Tab::newFile);
  EXPECT_EQ(app->tabs().current(), Tab::newFile);
  // The tool keeps running after the program has ended.
  EXPECT_EQ(app->close(), 0U);
  EXPECT_NE(harness::visibleWindowTitled(L"Stand-in for plv3.exe"), nullptr);
  endedOnPurpose();
}

}  // namespace
}  // namespace desktop_tests
