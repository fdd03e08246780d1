// Undo and Redo on the Tools tab.
#include <gtest/gtest.h>

#include <string>

#include "unit/support/undo_commands.h"

namespace {

using memory::desktop;

using UndoShortcuts = unit::UndoCommands;

TEST_F(UndoShortcuts, BringAShortcutBack) {
  const std::string bytes = file(folder + L"Calc.lnk");
  erase(frmQMK::tools, L"Calc");
  EXPECT_EQ(file(folder + L"Calc.lnk"), "missing");
  choose(ids::mnuUndo);
  EXPECT_EQ(file(folder + L"Calc.lnk"), bytes);
  EXPECT_EQ(selected(frmQMK::tools), L"Calc");
}

TEST_F(UndoShortcuts, BringARenamedShortcutBackIntoItsList) {
  desktop().putFile(L"C:\\App\\shortcuts\\Sums.lnk", "another one");
  const std::string bytes = file(folder + L"Calc.lnk");
  rename(frmQMK::tools, L"Calc", L"Sums");
  EXPECT_EQ(file(L"C:\\App\\shortcuts\\Sums.lnk"), bytes);
  choose(ids::mnuUndo);
  EXPECT_EQ(file(folder + L"Calc.lnk"), bytes);
  // Rename replaced that one without a question.
  EXPECT_EQ(file(L"C:\\App\\shortcuts\\Sums.lnk"), "another one");
  EXPECT_EQ(selected(frmQMK::tools), L"Calc");
  choose(ids::mnuRedo);
  EXPECT_EQ(file(folder + L"Calc.lnk"), "missing");
  EXPECT_EQ(file(L"C:\\App\\shortcuts\\Sums.lnk"), bytes);
}

TEST_F(UndoShortcuts, RemoveACreatedShortcut) {
  desktop().putProgram(L"C:\\Tools\\calc.exe");
  switchTo(frmQMK::tools);
  desktop().fileDialogResults = {L"C:\\Tools\\calc.exe"};
  choose(ids::mnuCreate);
  const std::wstring made = folder + L"Shortcut to calc.exe.lnk";
  const std::string bytes = file(made);
  EXPECT_NE(bytes, "missing");
  choose(ids::mnuUndo);
  EXPECT_EQ(file(made), "missing");
  choose(ids::mnuRedo);
  EXPECT_EQ(file(made), bytes);
}

TEST_F(UndoShortcuts, PutBackAShortcutThatANewOneHasReplaced) {
  desktop().putProgram(L"C:\\Tools\\calc.exe");
  const std::wstring made = folder + L"Shortcut to calc.exe.lnk";
  desktop().putLink(made, linkTo(L"C:\\Old.exe"));
  const std::string old = file(made);
  desktop().clipboard = {.text = {}, .files = {L"C:\\Tools\\calc.exe"}};
  switchTo(frmQMK::tools);
  choose(ids::mnuPaste);
  EXPECT_NE(file(made), old);
  choose(ids::mnuUndo);
  EXPECT_EQ(file(made), old);
}

TEST_F(UndoShortcuts, LeaveAShortcutThatWasChangedMeanwhile) {
  desktop().putProgram(L"C:\\Tools\\calc.exe");
  desktop().clipboard = {.text = {}, .files = {L"C:\\Tools\\calc.exe"}};
  switchTo(frmQMK::tools);
  choose(ids::mnuPaste);
  desktop().putFile(folder + L"Shortcut to calc.exe.lnk", "changed");
  choose(ids::mnuUndo);
  EXPECT_EQ(news(), L"Shortcut to calc.exe.lnk was changed meanwhile, nothing changed");
  EXPECT_EQ(file(folder + L"Shortcut to calc.exe.lnk"), "changed");
}

}  // namespace
