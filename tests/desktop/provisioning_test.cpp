// The shortcuts of the suite's own tools, which every start updates.
#include "shortcut_test.h"

namespace desktop_tests {
namespace {

class Provisioning : public ShortcutTest {
 protected:
  [[nodiscard]] std::vector<std::wstring> links() const {
    return harness::namesIn(app->shortCutsFolder());
  }

  /// Checks a shortcut that a start writes for an installed tool.
  void expectFresh(const std::wstring& name, const std::wstring& executable) const {
    SCOPED_TRACE(harness::utf8(name));
    const harness::LinkFile written = harness::readLink(link(name));
    const std::wstring target = app->folder() + L"\\" + executable;
    EXPECT_EQ(written.target, target);
    EXPECT_EQ(written.description, link(name));
    EXPECT_EQ(written.workingFolder, app->folder());
    EXPECT_EQ(written.icon, target);
    EXPECT_EQ(written.iconIndex, 0);
    EXPECT_EQ(written.arguments, L"");
    EXPECT_EQ(written.hotKey, 0);
    EXPECT_EQ(written.showCommand, 3U);
  }

  void expectAllFresh() const {
    EXPECT_THAT(links(), ElementsAre(L"BrushtallyPC.lnk", L"CanopyWeigh.lnk", L"Imagekeep.lnk",
                                     L"Modelhouse.lnk", L"Plotview Browser.lnk", L"Unitshift.lnk"));
    expectFresh(L"Plotview Browser.lnk", L"plv3.exe");
    expectFresh(L"BrushtallyPC.lnk", L"brtpc3.exe");
    expectFresh(L"Imagekeep.lnk", L"imgkeep3.exe");
    expectFresh(L"Modelhouse.lnk", L"MDLHS3.EXE");
    expectFresh(L"CanopyWeigh.lnk", L"CW3.EXE");
    expectFresh(L"Unitshift.lnk", L"unishift3.exe");
  }

  /// Copies the stand-in to a folder outside the application folder and returns its full path.
  [[nodiscard]] std::wstring addProgramElsewhere(const std::wstring& name) const {
    std::wstring path = app->addFileElsewhere(L"Else where\\" + name);
    harness::copyFile(app->folder() + L"\\gateway3.exe", path);
    return path;
  }
};

TEST_F(Provisioning, AnEmptyFolderGetsAShortcutForEachTool) {
  app->addAllTools();
  app->startToMain();
  expectAllFresh();
  EXPECT_TRUE(eventually([&] { return list().texts(); },
                         UnorderedElementsAre(L"BrushtallyPC", L"CanopyWeigh", L"Imagekeep",
                                              L"Modelhouse", L"Plotview Browser", L"Unitshift")));
  app->doubleClickRow(Tab::tools, L"Unitshift");
  EXPECT_EQ(app->waitForToolStart().commandLine, app->folder() + L"\\unishift3.exe");
}

TEST_F(Provisioning, AnApplicationFolderWithBlanksAndAccents) {
  useFolder(L"Quillmark Suite 3 f\u00FCr \u00C9lodie");
  GatewayApp::skipExample();
  app->addAllTools();
  app->startToMain();
  expectAllFresh();
  EXPECT_TRUE(eventually([&] { return list().count(); }, 6));
  app->doubleClickRow(Tab::tools, L"CanopyWeigh");
  EXPECT_EQ(app->waitForToolStart().commandLine, app->folder() + L"\\CW3.EXE");
  // Outdated ones there are found and replaced, too.
  ASSERT_EQ(app->close(), 0U);
  addLink(L"CanopyWeigh.lnk", L"C:\\gone\\CW3.EXE");
  addLink(L"Plotview.lnk", L"C:\\gone\\plv3.exe");
  app->startToMain();
  expectAllFresh();
}

TEST_F(Provisioning, OnlyInstalledToolsGetAShortcut) {
  app->addTool(L"plv3.exe");
  app->addTool(L"unishift4.exe");
  app->startToMain();
  EXPECT_THAT(links(), ElementsAre(L"Plotview Browser.lnk"));
  expectFresh(L"Plotview Browser.lnk", L"plv3.exe");
}

TEST_F(Provisioning, ObsoleteShortcutsAreRemovedWhateverTheyPointTo) {
  addLink(L"PlotviewX.lnk", addProgramElsewhere(L"plv3.exe"));
  addLink(L"Plotview.lnk", addProgramElsewhere(L"own.exe"));
  harness::writeFile(link(L"Canopy Weigh.lnk"), "no shortcut at all");
  app->startToMain();
  EXPECT_THAT(links(), ElementsAre());
}

TEST_F(Provisioning, AWrongShortcutOfAnInstalledToolIsWrittenAfresh) {
  app->addAllTools();
  harness::LinkFile stale;
  stale.target = L"C:\\gone\\other.exe";
  stale.description = L"old";
  stale.workingFolder = L"C:\\gone";
  stale.arguments = L"/old";
  stale.icon = L"C:\\gone\\icon.ico";
  stale.iconIndex = 2;
  for (const wchar_t* name : {L"Plotview Browser.lnk", L"BrushtallyPC.lnk", L"Modelhouse.lnk",
                              L"CanopyWeigh.lnk", L"Unitshift.lnk"}) {
    harness::writeLink(link(name), stale);
  }
  harness::writeFile(link(L"Imagekeep.lnk"), "no shortcut at all");
  app->startToMain();
  expectAllFresh();
}

TEST_F(Provisioning, AShortcutToTheToolElsewhereIsTurnedToTheInstalledOne) {
  app->addTool(L"MDLHS3.EXE");
  addLink(L"Modelhouse.lnk", addProgramElsewhere(L"mdlhs3.exe"));
  app->startToMain();
  expectFresh(L"Modelhouse.lnk", L"MDLHS3.EXE");
}

TEST_F(Provisioning, WithoutTheToolThreeShortcutsStayIfTheirTargetDoes) {
  std::vector<std::string> before;
  const std::vector<std::pair<const wchar_t*, const wchar_t*>> kept = {
      {L"Plotview Browser.lnk", L"plv3.exe"},
      {L"Modelhouse.lnk", L"mdlhs3.exe"},
      {L"CanopyWeigh.lnk", L"Cw3.exe"}};
  for (const auto& [name, executable] : kept) {
    addLink(name, addProgramElsewhere(executable));
    before.push_back(harness::readFile(link(name)).value_or(""));
  }
  addLink(L"BrushtallyPC.lnk", addProgramElsewhere(L"brtpc3.exe"));
  addLink(L"Imagekeep.lnk", addProgramElsewhere(L"imgkeep3.exe"));
  addLink(L"Unitshift.lnk", addProgramElsewhere(L"unishift4.exe"));
  app->startToMain();
  EXPECT_THAT(links(), ElementsAre(L"CanopyWeigh.lnk", L"Modelhouse.lnk", L"Plotview Browser.lnk"));
  for (std::size_t index = 0; index < kept.size(); ++index) {
    EXPECT_EQ(harness::readFile(link(kept[index].first)), before[index]);
  }
}

TEST_F(Provisioning, WithoutToolAndTargetEveryShortcutGoes) {
  for (const wchar_t* name : {L"Plotview Browser.lnk", L"BrushtallyPC.lnk", L"Imagekeep.lnk",
                              L"CanopyWeigh.lnk", L"Unitshift.lnk"}) {
    addLink(name, L"C:\\gone\\plv3.exe");
  }
  addLink(L"Modelhouse.lnk", addProgramElsewhere(L"another.exe"));
  app->startToMain();
  EXPECT_THAT(links(), ElementsAre());
}

TEST_F(Provisioning, ForeignShortcutsAreLeftAlone) {
  app->addAllTools();
  addLink(L"Notes.lnk", L"C:\\gone\\notes.exe");
  addLink(L"Plotview 2.lnk", addProgramElsewhere(L"plv3.exe"));
  harness::writeFile(link(L"Broken.lnk"), "no shortcut at all");
  harness::writeFile(link(L"readme.txt"), "text");
  const std::vector<std::wstring> names = links();
  std::vector<std::string> before;
  before.reserve(names.size());
  for (const std::wstring& name : names) {
    before.push_back(harness::readFile(link(name)).value_or(""));
  }
  app->startToMain();
  EXPECT_EQ(links().size(), 10U);
  for (std::size_t index = 0; index < names.size(); ++index) {
    EXPECT_EQ(harness::readFile(link(names[index])), before[index]) << harness::utf8(names[index]);
  }
}

TEST_F(Provisioning, ALockedShortcutIsReportedAndTheStartGoesOn) {
  app->addAllTools();
  addLink(L"Imagekeep.lnk", L"C:\\gone\\imgkeep3.exe");
  const LockedFile lock(link(L"Imagekeep.lnk"));
  app->start();
  expectMessage(runTimeError(70, L"Permission denied", link(L"Imagekeep.lnk")), criticalIcon,
                okOnly, IDOK);
  app->waitForMain();
  EXPECT_TRUE(eventually([&] { return app->list(Tab::newFile).count(); }, 4));
  // The tools before it have theirs, those after it have not.
  EXPECT_THAT(links(), ElementsAre(L"BrushtallyPC.lnk", L"Imagekeep.lnk", L"Plotview Browser.lnk"));
  EXPECT_TRUE(eventually([&] { return list().count(); }, 3));
}

TEST_F(Provisioning, ALockedObsoleteShortcutIsNoError) {
  app->addAllTools();
  addLink(L"Plotview.lnk", L"C:\\gone\\plv3.exe");
  const LockedFile lock(link(L"Plotview.lnk"));
  app->startToMain();
  EXPECT_TRUE(harness::exists(link(L"Plotview.lnk")));
  EXPECT_EQ(links().size(), 7U);
}

TEST_F(Provisioning, AReadOnlyObsoleteShortcutIsNoErrorAndEveryToolGetsItsShortcut) {
  app->addAllTools();
  const std::vector<std::wstring> obsolete{L"PlotviewX.lnk", L"Plotview.lnk", L"Canopy Weigh.lnk"};
  for (const std::wstring& name : obsolete) {
    addLink(name, L"C:\\gone\\plv3.exe");
    ASSERT_NE(SetFileAttributesW(link(name).c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
  }
  app->startToMain();
  EXPECT_EQ(links().size(), obsolete.size() + 6);
  for (const std::wstring& name : obsolete) {
    // Otherwise the folder of the test could not be removed.
    EXPECT_NE(SetFileAttributesW(link(name).c_str(), FILE_ATTRIBUTE_NORMAL), FALSE);
    harness::removeFile(link(name));
  }
  expectAllFresh();
}

}  // namespace
}  // namespace desktop_tests
