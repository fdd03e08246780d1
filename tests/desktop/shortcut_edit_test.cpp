// Creating, renaming and deleting tool shortcuts.
#include "shortcut_test.h"

namespace desktop_tests {
namespace {

class ShortcutEdit : public ShortcutTest {
 protected:
  void create(const std::wstring& program) const {
    app->command(ids::mnuCreate);
    app->waitForFileDialog().open(program);
  }

  /// Renames the selected shortcut and answers with a new name.
  void rename(const std::wstring& answer) const {
    app->command(ids::mnuRename);
    const harness::InputBoxReader box = app->waitForInputBox();
    box.type(answer);
    box.ok();
  }

  /// A protected shortcut is refused. Written after the start, which would remove most of them.
  void expectRefused(const std::wstring& name, int command, const std::wstring& message) {
    SCOPED_TRACE(harness::utf8(name));
    addLink(name, L"C:\\tools\\a.exe");
    reload(1);
    select(name.substr(0, name.find(L'.')));
    app->command(command);
    expectMessage(message, noIcon, okOnly, IDOK);
    EXPECT_TRUE(harness::exists(link(name)));
    harness::removeFile(link(name));
    reload(0);
  }
};

TEST_F(ShortcutEdit, CreateWritesALinkToTheChosenProgram) {
  app->startToMain();
  const std::wstring program = addProgram(L"My Calc.exe");
  app->command(ids::mnuCreate);
  const harness::FileDialogReader dialog = app->waitForFileDialog();
  EXPECT_EQ(dialog.title(), L"Open File");
  EXPECT_EQ(dialog.folder(), app->folder());
  EXPECT_THAT(dialog.filters(), ElementsAre(L"Files (.exe,.hlp)"));
  EXPECT_EQ(dialog.fileName(), L"");
  dialog.open(program);
  EXPECT_TRUE(
      eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Shortcut to My Calc")));
  const harness::LinkFile written = harness::readLink(link(L"Shortcut to My Calc.exe.lnk"));
  EXPECT_EQ(written.target, program);
  EXPECT_EQ(written.description, L"My Calc.exe");
  EXPECT_EQ(written.workingFolder, app->folder() + L"\\");
  EXPECT_EQ(written.icon, program);
  EXPECT_EQ(written.iconIndex, 0);
  EXPECT_EQ(written.arguments, L"");
  EXPECT_EQ(written.hotKey, 0);
  EXPECT_EQ(written.showCommand, 3U);
  app->doubleClickRow(Tab::tools, L"Shortcut to My Calc");
  EXPECT_EQ(app->waitForToolStart().commandLine, program);
}

TEST_F(ShortcutEdit, CreatingTwiceGivesOneItem) {
  app->startToMain();
  const std::wstring first = addProgram(L"calc.exe");
  create(first);
  EXPECT_TRUE(
      eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Shortcut to calc")));
  const std::wstring second = app->testFolder() + L"\\other\\calc.exe";
  harness::makeFolder(app->testFolder() + L"\\other");
  harness::copyFile(first, second);
  create(second);
  const std::wstring written = link(L"Shortcut to calc.exe.lnk");
  // The program may be in the middle of writing it.
  const auto target = [&]() -> std::wstring {
    try {
      return harness::readLink(written).target;
    } catch (const harness::Failure&) {
      return L"(not whole)";
    }
  };
  EXPECT_TRUE(eventually(target, second));
  EXPECT_TRUE(
      eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Shortcut to calc")));
  EXPECT_THAT(harness::namesIn(app->shortCutsFolder()), ElementsAre(L"Shortcut to calc.exe.lnk"));
}

TEST_F(ShortcutEdit, ACancelledDialogOnlyReloadsTheList) {
  app->startToMain();
  addLink(L"New.lnk", L"C:\\tools\\new.exe");
  app->command(ids::mnuCreate);
  app->waitForFileDialog().cancel();
  EXPECT_TRUE(eventually([&] { return list().texts(); }, UnorderedElementsAre(L"New")));
  EXPECT_THAT(harness::namesIn(app->shortCutsFolder()), ElementsAre(L"New.lnk"));
}

TEST_F(ShortcutEdit, RenamingMovesTheLinkToTheProgramsOwnFolder) {
  harness::makeFolder(app->folder() + L"\\shortcuts");
  addLink(L"Foo.lnk", L"C:\\tools\\foo.exe");
  addLink(L"Stays.lnk", L"C:\\tools\\stays.exe");
  app->startToMain();
  const std::string bytes = harness::readFile(link(L"Foo.lnk")).value_or("");
  select(L"Foo");
  app->command(ids::mnuRename);
  const harness::InputBoxReader box = app->waitForInputBox();
  EXPECT_EQ(box.prompt(), L"Rename shortcut Foo");
  EXPECT_EQ(box.title(), L"  ");
  EXPECT_EQ(box.answer(), L" ");
  EXPECT_EQ(box.selection(), std::pair(0, 1));
  box.type(L"Bar baz");
  box.ok();
  EXPECT_TRUE(eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Stays")));
  EXPECT_FALSE(harness::exists(link(L"Foo.lnk")));
  EXPECT_EQ(harness::readFile(app->folder() + L"\\shortcuts\\Bar baz.lnk"), bytes);
}

TEST_F(ShortcutEdit, OkWithoutTypingRenamesToABlank) {
  harness::makeFolder(app->folder() + L"\\shortcuts");
  addLink(L"Foo.lnk", L"C:\\tools\\foo.exe");
  app->startToMain();
  select(L"Foo");
  app->command(ids::mnuRename);
  app->waitForInputBox().ok();
  EXPECT_TRUE(eventually([&] { return list().count(); }, 0));
  EXPECT_THAT(harness::namesIn(app->folder() + L"\\shortcuts"), ElementsAre(L" .lnk"));
}

TEST_F(ShortcutEdit, RenamingWithoutTheProgramsShortcutsFolderIsReported) {
  addLink(L"Foo.lnk", L"C:\\tools\\foo.exe");
  app->startToMain();
  select(L"Foo");
  rename(L"Bar");
  expectMessage(runTimeError(76, L"Path not found", app->folder() + L"\\shortcuts\\Bar.lnk"),
                criticalIcon, okOnly, IDOK);
  EXPECT_TRUE(harness::exists(link(L"Foo.lnk")));
  addLink(L"More.lnk", L"C:\\tools\\more.exe");
  EXPECT_EQ(list().count(), 1) << "nothing happens after the failure";
  reload(2);
}

TEST_F(ShortcutEdit, AnExistingNameIsRefused) {
  harness::makeFolder(app->folder() + L"\\shortcuts");
  addLink(L"Foo.lnk", L"C:\\tools\\foo.exe");
  addLink(L"Bar.lnk", L"C:\\tools\\bar.exe");
  app->startToMain();
  select(L"Foo");
  addLink(L"More.lnk", L"C:\\tools\\more.exe");
  rename(L"Bar");
  expectMessage(L"BAR already exists, can't change name", noIcon, okOnly, IDOK);
  EXPECT_TRUE(
      eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Bar", L"Foo", L"More")))
      << "reloaded";
  EXPECT_TRUE(harness::namesIn(app->folder() + L"\\shortcuts").empty());
}

TEST_F(ShortcutEdit, CancelAndAnEmptyNameOnlyReloadTheList) {
  harness::makeFolder(app->folder() + L"\\shortcuts");
  addLink(L"Foo.lnk", L"C:\\tools\\foo.exe");
  app->startToMain();
  select(L"Foo");
  addLink(L"Later.lnk", L"C:\\tools\\later.exe");
  app->command(ids::mnuRename);
  app->waitForInputBox().cancel();
  EXPECT_TRUE(eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Foo", L"Later")));
  addLink(L"Third.lnk", L"C:\\tools\\third.exe");
  rename(L"");
  EXPECT_TRUE(
      eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Foo", L"Later", L"Third")));
  EXPECT_TRUE(harness::namesIn(app->folder() + L"\\shortcuts").empty());
}

TEST_F(ShortcutEdit, DeletingAsksFirst) {
  addLink(L"Shortcut to calc.exe.lnk", L"C:\\tools\\calc.exe");
  app->startToMain();
  select(L"Shortcut to calc");
  addLink(L"Later.lnk", L"C:\\tools\\later.exe");
  const std::wstring question =
      L"Are your sure you want to delete the shortcut: SHORTCUT TO CALC.EXE.LNK";
  app->command(ids::mnuDelete);
  expectMessage(question, exclamationIcon, yesAndNo, IDNO);
  EXPECT_TRUE(harness::exists(link(L"Shortcut to calc.exe.lnk")));
  harness::send(app->main(), WM_NULL);
  EXPECT_EQ(list().count(), 1) << "No does not reload";
  app->command(ids::mnuDelete);
  expectMessage(question, exclamationIcon, yesAndNo, IDYES);
  EXPECT_TRUE(eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Later")));
  EXPECT_FALSE(harness::exists(link(L"Shortcut to calc.exe.lnk")));
}

TEST_F(ShortcutEdit, ALinkThatCannotBeDeletedStaysWithoutAWord) {
  addLink(L"Foo.lnk", L"C:\\tools\\foo.exe");
  app->startToMain();
  select(L"Foo");
  addLink(L"Later.lnk", L"C:\\tools\\later.exe");
  const LockedFile lock(link(L"Foo.lnk"));
  app->command(ids::mnuDelete);
  expectMessage(L"Are your sure you want to delete the shortcut: FOO.LNK", exclamationIcon,
                yesAndNo, IDYES);
  EXPECT_TRUE(eventually([&] { return list().texts(); }, UnorderedElementsAre(L"Foo", L"Later")));
  EXPECT_FALSE(app->dialogShown());
}

TEST_F(ShortcutEdit, AVanishedFileCannotBeSelected) {
  addLink(L"Foo.lnk", L"C:\\tools\\foo.exe");
  app->startToMain();
  select(L"Foo");
  harness::removeFile(link(L"Foo.lnk"));
  for (const int command : {ids::mnuRename, ids::mnuDelete}) {
    app->command(command);
    expectMessage(L"Please select shortcut", noIcon, okOnly, IDOK);
  }
  EXPECT_EQ(list().count(), 1) << "the list is not reloaded";
}

TEST_F(ShortcutEdit, ProtectedNamesCannotBeDeletedInAnyLetterCase) {
  app->startToMain();
  for (const wchar_t* name : {L"modelhouse.LNK", L"BRUSHTALLYPC.lnk", L"Plotview.lnk",
                              L"imageKEEP.Lnk", L"canopy weigh.lnk", L"UNITSHIFT.LNK"}) {
    expectRefused(name, ids::mnuDelete, L"Sorry, you can't delete this shortcut");
  }
}

TEST_F(ShortcutEdit, ProtectedNamesCannotBeRenamedInAnyLetterCase) {
  app->startToMain();
  for (const wchar_t* name :
       {L"MODELHOUSE.lnk", L"brushtallypc.LNK", L"PlotVIEW.lnk", L"Imagekeep.lnk", L"SPRAWL.lnk",
        L"Canopy Weigh.lnk", L"unitShift.lnk"}) {
    expectRefused(name, ids::mnuRename, L"Sorry, you can't rename this shortcut");
  }
}

TEST_F(ShortcutEdit, NamesLikeTheProtectedOnesAreFree) {
  app->startToMain();
  addLink(L"Sprawl.lnk", L"C:\\tools\\a.exe");
  reload(1);
  select(L"Sprawl");
  app->command(ids::mnuDelete);
  expectMessage(L"Are your sure you want to delete the shortcut: SPRAWL.LNK", exclamationIcon,
                yesAndNo, IDYES);
  ASSERT_TRUE(eventually([&] { return list().count(); }, 0));
  addLink(L"CanopyWeigh.lnk", L"C:\\tools\\a.exe");
  reload(1);
  select(L"CanopyWeigh");
  app->command(ids::mnuRename);
  app->waitForInputBox().cancel();
}

}  // namespace
}  // namespace desktop_tests
