// The list of the Tools tab: how it shows the shortcut files, and starting them.
#include <set>
#include <tuple>

#include "harness/paths.h"
#include "shortcut_test.h"

namespace desktop_tests {
namespace {

using harness::ToolStart;

class ToolsList : public ShortcutTest {
 protected:
  /// Number of colours in the picture of an item on the screen.
  /// Number of colours of a picture, from `low` pixels above the name on.
  [[nodiscard]] std::size_t coloursOfIcon(const std::wstring& text, LONG low = 6) const {
    const RECT label = list().textOnScreen(list().find(text).value_or(0));
    const POINT middle{(label.left + label.right) / 2, label.top};
    std::set<COLORREF> colours;
    HDC const screen = GetDC(nullptr);
    // The picture is centred above the text.
    for (LONG up = low; up < 32; ++up) {
      for (LONG side = -14; side < 14; ++side) {
        colours.insert(GetPixel(screen, middle.x + side, middle.y - up));
      }
    }
    ReleaseDC(nullptr, screen);
    return colours.size();
  }

  void expectStart(std::size_t count, const std::wstring& commandLine) const {
    const ToolStart start = app->waitForToolStart(count);
    EXPECT_EQ(start.commandLine, commandLine);
    EXPECT_EQ(start.showState, L"1") << "a normal window";
    EXPECT_EQ(start.errorMode, L"0") << "the system's default, not the program's own";
  }
};

TEST_F(ToolsList, ShowsTheNameUpToItsFirstDotAndKeepsTheFile) {
  addLink(L"Shortcut to notepad.exe.lnk", L"C:\\tools\\notepad.exe");
  addLink(L"Plain.lnk", L"C:\\tools\\plain.exe");
  addLink(L"a..b.c.lnk", L"C:\\tools\\hidden.exe");
  addLink(L"\u00C9t\u00E9 1.lnk", L"C:\\tools\\a b.exe");
  harness::writeFile(link(L"notes.txt"), "no shortcut");
  app->startToMain();
  ASSERT_TRUE(eventually([&] { return list().count(); }, 4));
  std::vector<std::vector<std::wstring>> rows = list().rows();
  std::sort(rows.begin(), rows.end());
  EXPECT_EQ(rows, (std::vector<std::vector<std::wstring>>{
                      {L"Plain", L"", link(L"Plain.lnk")},
                      {L"Shortcut to notepad", L"", link(L"Shortcut to notepad.exe.lnk")},
                      {L"a", L"", link(L"a..b.c.lnk")},
                      {L"\u00C9t\u00E9 1", L"", link(L"\u00C9t\u00E9 1.lnk")}}));
  std::set<int> images;
  for (int row = 0; row < 4; ++row) {
    EXPECT_GE(list().image(row), 0);
    images.insert(list().image(row));
  }
  EXPECT_EQ(images.size(), 4U) << "two shortcuts share a picture";
}

TEST_F(ToolsList, ShowsTheIconOfAProgramOnAShareSoonAfterTheList) {
  const std::wstring program = app->testFolder() + L"\\own.exe";
  harness::copyFile(harness::standInExecutable(), program);
  addLink(L"Far.lnk", harness::networkPath(program));
  addLink(L"Dead.lnk", LR"(\\nowhere\share\dead.exe)");
  app->startToMain();
  ASSERT_TRUE(eventually([&] { return list().count(); }, 2));
  select(L"Far");
  select(L"Dead");
  EXPECT_TRUE(eventually([&] { return coloursOfIcon(L"Far"); }, Gt(3U)));
  select(L"Far");
  EXPECT_TRUE(eventually([&] { return coloursOfIcon(L"Dead"); }, 1U));
}

TEST_F(ToolsList, ShowsTheIconOfAProgramAndABlankOneWithoutAny) {
  addLink(L"Alive.lnk", addProgram(L"alive.exe"));
  addLink(L"Dead.lnk", L"X:\\gone\\dead.exe");
  addLink(L"Text.lnk", app->addFileElsewhere(L"notes.txt"));
  harness::writeFile(link(L"Broken.lnk"), "no shortcut at all");
  app->startToMain();
  ASSERT_TRUE(eventually([&] { return list().count(); }, 4));
  select(L"Dead");
  select(L"Alive");
  EXPECT_TRUE(eventually([&] { return coloursOfIcon(L"Alive"); }, Gt(3)));
  // The mark of a missing program stands on the lower half of its picture.
  constexpr LONG aboveTheMark = 21;
  EXPECT_TRUE(eventually([&] { return coloursOfIcon(L"Dead", aboveTheMark); }, 1));
  EXPECT_TRUE(eventually([&] { return coloursOfIcon(L"Dead"); }, Gt(3)));
  EXPECT_TRUE(eventually([&] { return coloursOfIcon(L"Text"); }, 1));
  EXPECT_TRUE(eventually([&] { return coloursOfIcon(L"Broken"); }, 1));
}

TEST_F(ToolsList, ADoubleClickAndEnterStartTheTargetAsItIs) {
  harness::LinkFile file;
  file.target = addProgram(L"my own tool.exe");
  file.arguments = L"/never \"passed on\"";
  file.workingFolder = app->documents();
  harness::writeLink(link(L"Own.lnk"), file);
  addLink(L"Other.lnk", addProgram(L"other.exe"));
  app->startToMain();
  ASSERT_TRUE(eventually([&] { return list().count(); }, 2));
  app->doubleClickRow(Tab::tools, L"Own");
  expectStart(1, file.target);
  select(L"Other");
  harness::pressKey(VK_RETURN);
  expectStart(2, app->folder() + L"\\other.exe");
  EXPECT_NE(app->toolStarts()[0].workingFolder, file.workingFolder);
}

TEST_F(ToolsList, ATargetThatIsNoProgramIsReported) {
  const std::wstring notes = app->addFileElsewhere(L"my notes.txt");
  addLink(L"Notes.lnk", notes);
  app->startToMain();
  app->doubleClickRow(Tab::tools, L"Notes");
  expectMessage(L"Can't start application\r5-Invalid procedure call or argument\rPath: " + notes,
                criticalIcon, okOnly, IDOK);
  EXPECT_EQ(list().count(), 1);
}

TEST_F(ToolsList, ADeadTargetIsListedAndReportedWhenStarted) {
  addLink(L"Dead.lnk", app->testFolder() + L"\\gone\\dead.exe");
  app->startToMain();
  app->doubleClickRow(Tab::tools, L"Dead");
  expectMessage(L"Can't start application\r53-File not found\rPath: " + app->testFolder() +
                    L"\\gone\\dead.exe",
                criticalIcon, okOnly, IDOK);
  EXPECT_EQ(list().count(), 1);
}

TEST_F(ToolsList, AReloadShowsIconsAndLeavesTheMarksAlone) {
  addLink(L"One.lnk", L"C:\\tools\\one.exe");
  app->startToMain();
  app->command(ids::mnuList);
  ASSERT_TRUE(eventually([&] { return list().view(); }, LV_VIEW_DETAILS));
  focusList();
  harness::pressKey(VK_F5);
  EXPECT_TRUE(eventually([&] { return list().view(); }, LV_VIEW_ICON));
  EXPECT_TRUE(app->toolbar().button(ids::buttonList).pressed);
  EXPECT_TRUE(harness::menuEntry(app->main(), ids::mnuList).checked);
  app->selectTab(Tab::newFile);
  app->selectTab(Tab::tools);
  EXPECT_TRUE(eventually([&] { return list().view(); }, LV_VIEW_DETAILS)) << "the tag was changed";
}

TEST_F(ToolsList, AReloadKeepsTheSelectedShortcut) {
  addLink(L"One.lnk", L"C:\\tools\\one.exe");
  addLink(L"Two.lnk", L"C:\\tools\\two.exe");
  app->startToMain();
  select(L"Two");
  addLink(L"Nine.lnk", L"C:\\tools\\nine.exe");
  reload(3);
  // The row that is selected, and the one that has to be.
  EXPECT_TRUE(eventually([&] { return std::tuple(list().selected(), list().find(L"Two")); },
                         ::testing::Eq()));
}

/// What a window above leaves behind is painted while they are read, with the list as it was; what
/// is sent to the window is answered; and what the user types comes afterwards, in its order.
TEST_F(ToolsList, HundredsOfShortcutsAreReadWithTheWindowAlive) {
  // What may be a variable is left to the shell's object, which takes longer.
  addLink(L"One.lnk", L"C:\\tools\\100%.exe");
  app->startToMain();
  constexpr int many = 1000;
  for (int n = 1; n < many; ++n) {
    harness::copyFile(link(L"One.lnk"), link(L"Link " + std::to_wstring(n) + L".lnk"));
  }
  focusList();
  for (const int key : {VK_F5, VK_HOME, VK_F2}) {
    harness::pressKey(static_cast<WORD>(key));
  }
  HWND const window = list().window();
  int painted = 0;
  while (list().count() == 1) {
    InvalidateRect(window, nullptr, FALSE);
    ASSERT_TRUE(harness::waitFor([&] { return GetUpdateRect(window, nullptr, FALSE) == 0; }));
    painted += list().count() == 1 ? 1 : 0;
  }
  // F5 comes before the first painting, so without any in between this would be none.
  EXPECT_GE(painted, 1);
  const auto box = [&] { return FindWindowExW(window, nullptr, L"Edit", nullptr); };
  harness::waitUntil("the box for the name of the first shortcut",
                     [&] { return box() != nullptr; });
  EXPECT_EQ(list().count(), many);
  harness::pressKey(VK_ESCAPE);
  // The key would answer the question that comes with the end.
  harness::waitUntil("the end of the box", [&] { return box() == nullptr; });
}

TEST_F(ToolsList, AnEmptyListHasNothingToRenameDeleteOrStart) {
  app->startToMain();
  ASSERT_EQ(list().count(), 0);
  app->command(ids::mnuRename);
  expectMessage(missingObject(), criticalIcon, okOnly, IDOK);
  app->command(ids::mnuDelete);
  expectMessage(missingObject(), criticalIcon, okOnly, IDOK);
  harness::bringToFront(app->main());
  harness::doubleClickAt(harness::centreOf(harness::screenRect(list().window())), app->main());
  addLink(L"One.lnk", L"C:\\tools\\one.exe");
  reload(1);
  EXPECT_FALSE(app->dialogShown());
}

}  // namespace
}  // namespace desktop_tests
