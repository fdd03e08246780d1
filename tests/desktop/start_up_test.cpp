// The start with an empty profile and with a used one, the second copy, and starts that fail.
#include "gateway_test.h"
#include "harness/end_of_session.h"

namespace desktop_tests {
namespace {

using harness::isFolder;

class StartUp : public GatewayTest {
 protected:
  /// Starts the program and closes the splash with a click; checks nothing that follows.
  void startPastSplash() const {
    app->start();
    HWND const splash = app->waitForSplash();
    harness::clickAt(harness::centreOf(harness::screenRect(splash)), splash);
  }

  /// Prevents the program from creating a folder: a hidden file has its name. A search does not
  /// find the file, and the folder cannot be created.
  static void blockFolder(const std::wstring& path) {
    harness::writeFile(path, "");
    ASSERT_NE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN), FALSE);
  }

  /// Number of records of the catalogue that name a file.
  [[nodiscard]] int recordsOf(const std::string& fileName) const {
    const std::string bytes = app->catalogue().value_or("");
    int count = 0;
    for (std::size_t at = bytes.find(fileName); at != std::string::npos;
         at = bytes.find(fileName, at + 1)) {
      ++count;
    }
    return count;
  }
};

TEST_F(StartUp, FirstStartMakesTheFolders) {
  app->start();
  app->waitForSplash();
  EXPECT_TRUE(
      happens("the shortcuts folder is made", [&] { return isFolder(app->shortCutsFolder()); }));
  EXPECT_TRUE(happens("the folder of photos is made",
                      [&] { return isFolder(app->folder() + L"\\PhotoImages"); }));
  app->waitForMain();
}

TEST_F(StartUp, FirstStartMakesAnEmptyCatalogueWhenThereAreNoDataFiles) {
  app->startToMain();
  EXPECT_TRUE(eventually([&] { return app->catalogue(); }, ""));
  EXPECT_EQ(app->list(Tab::open).count(), 0);
}

TEST_F(StartUp, FirstStartCataloguesTheExampleOnceAndNotesIt) {
  app->addDataFile(L"CWIexample.cw3");
  EXPECT_EQ(harness::TestProfile::setting(L"CWIExample"), std::nullopt);
  app->startToMain();
  EXPECT_TRUE(eventually([&] { return harness::TestProfile::setting(L"CWIExample"); }, L"True"));
  EXPECT_TRUE(
      eventually([&] { return app->list(Tab::open).texts(); }, ElementsAre(L"CWIexample.cw3")));
  EXPECT_EQ(recordsOf("CWIexample.cw3"), 1);
  ASSERT_EQ(app->close(), 0U);

  app->startToMain();
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
  EXPECT_EQ(recordsOf("CWIexample.cw3"), 1);
}

TEST_F(StartUp, RenewsTheEntriesOfTheDataFolderAndKeepsTheOthers) {
  const std::wstring elsewhere = app->testFolder() + L"\\Field Work\\Plot 3.fp3";
  const std::string foreign = record(L"FP3", elsewhere) + record(L"bs3", L"C:\\gone\\old.bs3");
  app->writeCatalogue(record(L"BI3", app->folder() + L"\\DATA\\vanished.bi3") + foreign +
                      record(L"CW3", app->folder() + L"\\data\\d.cw3", L"long ago"));
  const std::vector<std::pair<std::wstring, std::wstring>> dataFiles = {
      {L"fp3", L"a.fp3"}, {L"bi3", L"b b.bi3"}, {L"bs3", L"c.bs3"}, {L"cw3", L"d.cw3"}};
  std::string expected = foreign;
  for (const auto& [code, name] : dataFiles) {
    const std::wstring path = app->addDataFile(name);
    expected += record(code, path, harness::dateAndTime(harness::changeTime(path)));
  }
  GatewayApp::skipExample();
  app->startToMain();
  EXPECT_TRUE(eventually([&] { return app->catalogue(); }, expected));
}

TEST_F(StartUp, WorksInAFolderWithBlanksAndAccents) {
  useFolder(L"Quillmark Suite 3 f\u00FCr \u00C9lodie");
  const std::wstring path = app->addDataFile(L"Pr\u00FCfung 1.fp3");
  app->startToMain();
  EXPECT_TRUE(isFolder(app->folder() + L"\\PhotoImages"));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).rows(); },
                         ElementsAre(ElementsAre(
                             L"Pr\u00FCfung 1.fp3", harness::dateAndTime(harness::changeTime(path)),
                             L"Fuel Profile", app->folder() + L"\\data\\", L"fp3"))));
}

TEST_F(StartUp, ASecondCopySaysSoAndEnds) {
  HWND const first = app->startToMain();
  harness::removeTree(app->userFolder());
  const auto second = app->startSecondCopy();
  const harness::MessageBoxReader box = app->waitForMessage(second->id());
  EXPECT_EQ(box.text(), L"Error: you already have Quillmark Running");
  EXPECT_EQ(box.title(), L"Quillmark Suite 3 Gateway");
  EXPECT_EQ(box.icon(), criticalIcon);
  EXPECT_EQ(box.buttons(), okOnly);
  EXPECT_TRUE(isFolder(app->shortCutsFolder())) << "made before the copy is noticed";
  EXPECT_EQ(harness::visibleWindow(second->id(), L"frmQMK"), nullptr);
  EXPECT_EQ(harness::visibleWindow(second->id(), L"frmSplash"), nullptr);
  box.answer(IDOK);
  EXPECT_TRUE(happens("the second copy ends", [&] { return !second->running(); }));
  EXPECT_TRUE(app->running());
  EXPECT_NE(IsWindowVisible(first), FALSE);
}

TEST_F(StartUp, ASecondCopyThatTheEndOfTheSessionEndsForgetsNoPlace) {
  const std::wstring place = L"60 45 700 520 96 0";
  harness::TestProfile::setSetting(L"Placement", place);
  app->startToMain();
  const auto second = app->startSecondCopy();
  const harness::MessageBoxReader box = app->waitForMessage(second->id());
  ASSERT_EQ(box.text(), L"Error: you already have Quillmark Running");
  HWND const hidden = harness::waitUntilFound("the main window of the copy", [&]() -> HWND {
    for (HWND const window : harness::topWindows(second->id())) {
      if (harness::className(window) == L"frmQMK") {
        return window;
      }
    }
    return nullptr;
  });
  EXPECT_TRUE(harness::EndOfSession(hidden).mayEnd())
      << "it only says that it is one copy too many";
  harness::post(hidden, WM_ENDSESSION, TRUE);
  EXPECT_TRUE(happens("the second copy ends", [&] { return !second->running(); }));
  EXPECT_EQ(harness::TestProfile::setting(L"Placement"), place);
}

TEST_F(StartUp, WithoutADocumentsFolderItReportsAndEnds) {
  harness::removeTree(app->documents());
  app->start();
  // The shell decides which path it reports for a missing documents folder.
  const harness::MessageBoxReader box = app->waitForMessage();
  EXPECT_THAT(harness::utf8(box.text()),
              ::testing::StartsWith("Run-time error '76':\r\n\r\nPath not found\r\n\r\n"));
  EXPECT_THAT(harness::utf8(box.text()), ::testing::EndsWith("\\My QMKExtra3"));
  EXPECT_EQ(box.icon(), criticalIcon);
  box.answer(IDOK);
  app->waitForExit();
  endedOnPurpose();
}

TEST_F(StartUp, ADocumentsFolderThatIsBlockedIsNamed) {
  blockFolder(app->userFolder());
  app->start();
  expectMessage(runTimeError(75, L"Path/File access error", app->userFolder()), criticalIcon,
                okOnly, IDOK);
  app->waitForExit();
  endedOnPurpose();
}

TEST_F(StartUp, AnApplicationFolderThatCannotBeWrittenToIsNamed) {
  const std::wstring photos = app->folder() + L"\\PhotoImages";
  blockFolder(photos);
  app->start();
  expectMessage(runTimeError(75, L"Path/File access error", photos), criticalIcon, okOnly, IDOK);
  app->waitForExit();
  endedOnPurpose();
}

TEST_F(StartUp, EachStepThatFailsIsReportedAndTheNextOnesStillRun) {
  const std::wstring path = app->addDataFile(L"a.fp3");
  app->writeCatalogue("");
  HANDLE const lock = CreateFileW(app->cataloguePath().c_str(), GENERIC_READ, 0, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(lock, INVALID_HANDLE_VALUE);
  startPastSplash();
  expectMessage(L"Problem saving to QMK list\r70-Permission denied", noIcon, okOnly, IDOK);
  expectMessage(L"Problem building QMK file list\rLocation: 2\r70-Permission denied", noIcon,
                okOnly, IDOK);
  expectMessage(runTimeError(70, L"Permission denied", app->cataloguePath()), criticalIcon, okOnly,
                IDOK);
  CloseHandle(lock);
  app->waitForMain();
  EXPECT_EQ(app->list(Tab::newFile).count(), 4);
  // The watch is running: what another program writes now is shown.
  app->writeCatalogue(record(L"fp3", path));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
}

}  // namespace
}  // namespace desktop_tests
