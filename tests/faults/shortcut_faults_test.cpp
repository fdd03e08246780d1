// Operations on shortcut files.
#include <gtest/gtest.h>

#include "faults/sweep.h"
#include "platform/run_time_error.h"
#include "shortcuts/shortcut_file.h"
#include "startup/tool_provisioning.h"

namespace faults {
namespace {

using memory::desktop;
using platform::dialogs::Answer;

/// When the first failures did not end the operation.
Texts reportedAtLast(Fault fault) {
  fault.path = fault.lastPath;
  return {errorReport(fault)};
}

Texts reported(const Fault& fault) {
  // What is kept for Undo is read; without it the operation goes on.
  return fault.was(L"read " + shortcutsFolder) || fault.was(L"read C:\\App\\shortcuts\\")
             ? reportedAtLast(fault)
             : Texts{errorReport(fault)};
}

void selectCalc(Rig& rig) { rig.select(frmQMK::tools, L"Calc"); }

void create(Rig& rig) {
  rig.main().TabMain.fireSwitch(frmQMK::tools);
  script([] { desktop().fileDialogResults = {L"C:\\Tools\\calc.exe"}; });
  rig.main().mnuCreate.fireClick();
}

/// Only a cancelled dialog writes no shortcut. After another failure of the dialog the operation
/// continues without a path.
bool dialogFailed(const Fault& fault) {
  const std::wstring withoutPath = shortcutsFolder + L"\\Shortcut to .lnk";
  const bool memoryRanOut = fault.call.empty() && fault.now.files.contains(withoutPath);
  if (!fault.was(L"open file dialog") && !memoryRanOut) {
    return false;
  }
  auto files = fault.now.files;
  const bool written = files.erase(withoutPath) > 0;
  EXPECT_EQ(files, fault.old.files);
  const bool cancelled = fault.number == platform::error::cancelled;
  if (fault.forever && !cancelled) {
    EXPECT_FALSE(written);
    EXPECT_EQ(fault.now.messages, reportedAtLast(fault));
  } else {
    EXPECT_EQ(written, !cancelled);
    EXPECT_TRUE(fault.now.messages.empty());
  }
  return true;
}

void rename(Rig& rig) {
  script([] { desktop().inputAnswers = {L"Sums"}; });
  rig.main().mnuRename.fireClick();
}

/// Types another name over that of the selected shortcut.
void renameInList(Rig& rig) {
  controls::ListView& list = rig.main().lstQMK[frmQMK::tools];
  list.fireKey({controls::keys::f2});
  list.fireNameTyped(L"Sums");
}

const std::wstring droppedProgram = L"D:\\Fuel.exe";
const std::wstring droppedLink = L"D:\\Desk.lnk";

void putProgramsElsewhere(Rig& rig) {
  desktop().putProgram(droppedProgram);
  desktop().putLink(droppedLink, {.targetPath = droppedProgram});
  rig.main().TabMain.fireSwitch(frmQMK::tools);
}

void drop(Rig& rig) {
  rig.main().lstQMK[frmQMK::tools].fireDropped(
      {.text = {}, .files = {droppedProgram, droppedLink}});
}

/// One of the shortcuts could not be made; the status line says so, and the list has the other.
bool othersAreMade(const Fault& fault) {
  const bool read = fault.was(L"read ") && fault.now.messages != fault.clean.messages;
  const bool link = fault.was(L"link ");
  if (!read && !link && !fault.was(L"copy ")) {
    return false;
  }
  const std::wstring reason = platform::RunTimeError(fault.number).description();
  const bool both = !read && fault.forever && fault.failures > 1;
  EXPECT_EQ(fault.now.messages, Texts{both ? L"status: 0 added, 2 not added: " + reason
                                           : L"status: 1 added, 1 not added: " + reason});
  expectWholeFiles(fault);
  return true;
}

void erase(Rig& rig) {
  script([] { desktop().answers = {Answer::yes}; });
  rig.main().mnuDelete.fireClick();
}

/// Whether memory ran out at a point where errors are ignored.
bool memoryRanOutUnnoticed(const Fault& fault) {
  return fault.call.empty() && fault.now.messages == fault.clean.messages;
}

/// An error of the deletion is ignored, and the list is loaded again.
bool deletionIsIgnored(const Fault& fault) {
  const bool stays = memoryRanOutUnnoticed(fault) && fault.now.files == fault.old.files;
  if (!fault.was(L"recycle ") && !stays) {
    return false;
  }
  EXPECT_EQ(fault.now.files, fault.old.files);
  EXPECT_EQ(fault.now.lists, fault.old.lists);
  EXPECT_EQ(fault.now.messages, fault.clean.messages);
  return true;
}

void putToolLinks(Rig& rig) {
  platform::shell_links::Link link;
  link.targetPath = L"C:\\Tools\\calc.exe";
  for (const wchar_t* const name : {L"PlotviewX.lnk", L"Plotview.lnk", L"Plotview Browser.lnk",
                                    L"Imagekeep.lnk", L"BrushtallyPC.lnk"}) {
    desktop().putLink(shortcutsFolder + L"\\" + name, link);
  }
  rig.settle();
}

void provision(Rig& /*rig*/) { Rig::handle(modSC::ProvisionToolShortcuts); }

/// A shortcut of the suite's own tools, which is deleted before it is written again.
bool isToolLink(const std::wstring& path) {
  return path == shortcutsFolder + L"\\Plotview Browser.lnk" ||
         path == shortcutsFolder + L"\\BrushtallyPC.lnk";
}

/// Errors of removing the obsolete shortcuts are ignored.
bool removalIsIgnored(const Fault& fault) {
  const bool ignored = fault.was(L"remove " + shortcutsFolder + L"\\PlotviewX.lnk") ||
                       fault.was(L"remove " + shortcutsFolder + L"\\Plotview.lnk") ||
                       fault.was(L"remove " + shortcutsFolder + L"\\Canopy Weigh.lnk");
  if (memoryRanOutUnnoticed(fault)) {
    auto files = fault.now.files;
    for (const wchar_t* const name : {L"PlotviewX.lnk", L"Plotview.lnk"}) {
      files.erase(shortcutsFolder + L"\\" + name);
    }
    EXPECT_EQ(files, fault.clean.files);
    EXPECT_EQ(fault.now.lists, fault.clean.lists);
    return true;
  }
  if (ignored) {
    expectWholeFiles(fault, isToolLink);
  }
  if (ignored && !fault.forever) {
    EXPECT_TRUE(fault.now.messages.empty());
  } else if (ignored) {
    EXPECT_EQ(fault.now.messages, reportedAtLast(fault));
  }
  return ignored;
}

void start(Rig& rig) { rig.main().lstQMK[frmQMK::tools].fireDoubleClick(); }

Texts cannotStart(const Fault& fault) {
  if (fault.was(L"read ")) {
    return {catalogueProblem(fault)};
  }
  return {L"Can't start application\r" + fault.reason() + L"\rPath: C:\\Tools\\calc.exe"};
}

bool dataListIsEmptyAfterReading(const Fault& fault) {
  std::vector<Texts> expected = fault.old.lists;
  if (fault.was(L"read ")) {
    expected.at(frmQMK::open).clear();
  }
  return fault.now.lists == expected;
}

std::vector<Operation> operationsOnShortcuts() {
  return {
      {.name = "create",
       .prepare = [](Rig& /*rig*/) {},
       .run = create,
       .told = reported,
       .goesOn = dialogFailed},
      {.name = "rename", .prepare = selectCalc, .run = rename, .told = reported},
      {.name = "renameInNarrowedList",
       .prepare =
           [](Rig& rig) {
             selectCalc(rig);
             rig.main().txtFind.acceptTyped(L"CAL");
           },
       .run = renameInList,
       .told = reported},
      {.name = "drop",
       .prepare = putProgramsElsewhere,
       .run = drop,
       .told = reported,
       .goesOn = othersAreMade},
      {.name = "erase",
       .prepare = selectCalc,
       .run = erase,
       .told = reported,
       .goesOn = deletionIsIgnored},
      {.name = "provision",
       .prepare = putToolLinks,
       .run = provision,
       .told = reported,
       .goesOn = removalIsIgnored,
       .mayBeGone = isToolLink},
      {.name = "start",
       .prepare = selectCalc,
       .run = start,
       .told = cannotStart,
       .listsAreRight = dataListIsEmptyAfterReading},
      {.name = "startElevated",
       .prepare =
           [](Rig& rig) {
             desktop().elevated[L"C:\\Tools\\calc.exe"] = true;
             selectCalc(rig);
           },
       .run = start,
       .told = cannotStart,
       .listsAreRight = dataListIsEmptyAfterReading},
  };
}

class ShortcutFaults : public ::testing::TestWithParam<Operation> {};

TEST_P(ShortcutFaults, NoCallThatFailsLosesAnything) { sweepCalls(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Each, ShortcutFaults, ::testing::ValuesIn(operationsOnShortcuts()),
                         nameOfTest);

std::vector<Operation> looking() {
  std::vector<Operation> all = operationsOnShortcuts();
  // A start makes no calls that only read.
  std::erase_if(all,
                [](const Operation& operation) { return operation.name.starts_with("start"); });
  return all;
}

class LookFaults : public ::testing::TestWithParam<Operation> {};

TEST_P(LookFaults, NothingIsLostWhenACallFindsNothingOrMemoryRunsOut) { sweepLooks(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Each, LookFaults, ::testing::ValuesIn(looking()), nameOfTest);

class ShortcutMemory : public ::testing::TestWithParam<Operation> {};

TEST_P(ShortcutMemory, NothingIsLostWhenItRunsOut) { sweepMemory(GetParam()); }

TEST_P(ShortcutMemory, NothingIsLostWhenAListIsRefused) { sweepPeers(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Each, ShortcutMemory, ::testing::ValuesIn(operationsOnShortcuts()),
                         nameOfTest);

}  // namespace
}  // namespace faults
