// The shortcuts of the suite's own tools after a start.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "shortcuts/shortcut_file.h"
#include "startup/paths.h"
#include "startup/tool_provisioning.h"
#include "unit/support/error_number.h"
#include "unit/support/journal_order.h"
#include "unit/support/links.h"

namespace {

using memory::desktop;
using modSC::ProvisionToolShortcuts;
using Names = std::vector<std::wstring>;

struct ToolRow {
  const wchar_t* shortcut;
  const wchar_t* executable;
  /// The target name that keeps the shortcut of a tool that is not installed; nullptr when no
  /// target keeps it.
  const wchar_t* keeps;
};

constexpr std::array table{
    ToolRow{L"Plotview Browser.lnk", L"plv3.exe", L"Plv3.exe"},
    ToolRow{L"BrushtallyPC.lnk", L"brtpc3.exe", nullptr},
    ToolRow{L"Imagekeep.lnk", L"imgkeep3.exe", nullptr},
    ToolRow{L"Modelhouse.lnk", L"MDLHS3.EXE", L"mdlhs3.exe"},
    ToolRow{L"CanopyWeigh.lnk", L"CW3.EXE", L"cw3.Exe"},
    ToolRow{L"Unitshift.lnk", L"unishift3.exe", nullptr},
};

class ProvisioningTest : public memory::DesktopTest {
 protected:
  ProvisioningTest() {
    modQMKGeneral::InitUserFolders();
    desktop().clearJournal();
  }

  static std::wstring pathOf(const std::wstring& shortcut) {
    return L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts\\" + shortcut;
  }
  static void install(const std::wstring& executable) {
    desktop().putProgram(L"C:\\App\\" + executable);
  }
  static void installAll() {
    for (const ToolRow& tool : table) {
      install(tool.executable);
    }
  }
  /// A shortcut that the program has not just written itself.
  static void putShortcut(const std::wstring& shortcut, const std::wstring& target) {
    desktop().putLink(pathOf(shortcut), linkTo(target));
  }
  static Names shortcuts() { return desktop().namesIn(modQMKGeneral::ShortCutsFolder); }
  static std::wstring targetOf(const std::wstring& shortcut) {
    const auto link = desktop().linkAt(pathOf(shortcut));
    return link ? link->targetPath : L"no shortcut";
  }
};

// --- a fresh install ---

TEST_F(ProvisioningTest, ProgramsAndDocumentsOnANetworkPathGetTheirShortcutsToo) {
  desktop().putProgram(L"\\\\server\\suite\\App\\plv3.exe");
  desktop().putFolder(L"\\\\server\\home\\ann");
  desktop().applicationFolder = L"\\\\server\\suite\\App";
  desktop().documents = L"\\\\server\\home\\ann";
  modQMKGeneral::InitUserFolders();

  ProvisionToolShortcuts();

  EXPECT_EQ(shortcuts(), (Names{L"Plotview Browser.lnk"}));
  const auto link =
      desktop().linkAt(L"\\\\server\\home\\ann\\My QMKExtra3\\ShortCuts\\Plotview Browser.lnk");
  ASSERT_TRUE(link);
  EXPECT_EQ(link->targetPath, L"\\\\server\\suite\\App\\plv3.exe");
  EXPECT_EQ(link->workingDirectory, L"\\\\server\\suite\\App");
}

TEST_F(ProvisioningTest, AFreshInstallGetsSixShortcutsInTheOrderOfTheTable) {
  installAll();
  ProvisionToolShortcuts();
  EXPECT_EQ(shortcuts(), (Names{L"Plotview Browser.lnk", L"BrushtallyPC.lnk", L"Imagekeep.lnk",
                                L"Modelhouse.lnk", L"CanopyWeigh.lnk", L"Unitshift.lnk"}));
}

TEST_F(ProvisioningTest, EachShortcutHasAllItsProperties) {
  installAll();
  ProvisionToolShortcuts();
  ASSERT_EQ(desktop().linkWrites.size(), table.size());
  for (std::size_t row = 0; row < table.size(); ++row) {
    const std::wstring target = std::wstring(L"C:\\App\\") + table.at(row).executable;
    const auto& [path, link] = desktop().linkWrites.at(row);
    EXPECT_EQ(path, pathOf(table.at(row).shortcut));
    EXPECT_EQ(link.arguments, L"");
    EXPECT_EQ(link.description, path);
    EXPECT_EQ(link.hotKey, L"");
    EXPECT_EQ(link.iconLocation, target);
    EXPECT_EQ(link.targetPath, target);
    EXPECT_EQ(link.windowStyle, 3);
    EXPECT_EQ(link.workingDirectory, L"C:\\App");
  }
}

TEST_F(ProvisioningTest, TargetsAndShortcutsAreCanonicalTheWorkingFolderIsNot) {
  desktop().putProgram(L"C:\\Program Files\\Suite\\plv3.exe");
  desktop().alias(L"C:\\PROGRA~1", L"C:\\Program Files");
  desktop().applicationFolder = L"C:\\PROGRA~1\\SUITE";
  modQMKGeneral::ShortCutsFolder = L"C:\\USERS\\ann\\Documents\\MY qmkextra3\\shortcuts";

  ProvisionToolShortcuts();

  ASSERT_EQ(desktop().linkWrites.size(), 1U);
  const auto& [path, link] = desktop().linkWrites.front();
  EXPECT_EQ(path, pathOf(L"Plotview Browser.lnk"));
  EXPECT_EQ(link.targetPath, L"C:\\Program Files\\Suite\\plv3.exe");
  EXPECT_EQ(link.iconLocation, L"C:\\Program Files\\Suite\\plv3.exe");
  EXPECT_EQ(link.description, path);
  EXPECT_EQ(link.workingDirectory, L"C:\\PROGRA~1\\SUITE");
}

TEST_F(ProvisioningTest, AnApplicationFolderWithBlanksAndAccentsIsTakenAsItIs) {
  desktop().putProgram(L"C:\\Fl\u00E4che und H\u00F6he\\CW3.EXE");
  desktop().applicationFolder = L"C:\\Fl\u00E4che und H\u00F6he";
  ProvisionToolShortcuts();
  EXPECT_EQ(targetOf(L"CanopyWeigh.lnk"), L"C:\\Fl\u00E4che und H\u00F6he\\CW3.EXE");
}

TEST_F(ProvisioningTest, ToolsThatAreNotInstalledGetNoShortcut) {
  for (const ToolRow& tool : table) {
    desktop().take(L"C:\\App");
    desktop().putFolder(L"C:\\App");
    install(tool.executable);
    desktop().take(modQMKGeneral::ShortCutsFolder);
    desktop().putFolder(modQMKGeneral::ShortCutsFolder);
    ProvisionToolShortcuts();
    EXPECT_EQ(shortcuts(), Names{tool.shortcut});
  }
}

TEST_F(ProvisioningTest, WithoutAnyToolNothingIsWritten) {
  ProvisionToolShortcuts();
  EXPECT_TRUE(shortcuts().empty());
}

// --- the next starts ---

TEST_F(ProvisioningTest, AnInstalledToolEndsWithAFreshShortcutAtEveryStart) {
  installAll();
  ProvisionToolShortcuts();
  for (const ToolRow& tool : table) {
    platform::shell_links::Link changed = *desktop().linkAt(pathOf(tool.shortcut));
    changed.windowStyle = 1;
    changed.arguments = L"/changed";
    desktop().putLink(pathOf(tool.shortcut), changed);
  }
  desktop().linkWrites.clear();

  ProvisionToolShortcuts();

  EXPECT_EQ(desktop().linkWrites.size(), table.size());
  for (const ToolRow& tool : table) {
    EXPECT_EQ(desktop().linkAt(pathOf(tool.shortcut))->windowStyle, 3);
    EXPECT_EQ(desktop().linkAt(pathOf(tool.shortcut))->arguments, L"");
  }
}

TEST_F(ProvisioningTest, AShortcutWithTheExpectedTargetIsOverwrittenAnyOtherIsDeletedFirst) {
  installAll();
  ProvisionToolShortcuts();
  desktop().clearJournal();

  ProvisionToolShortcuts();

  for (const ToolRow& tool : table) {
    EXPECT_EQ(timesInJournal(L"remove " + pathOf(tool.shortcut)), tool.keeps == nullptr ? 1U : 0U)
        << ::testing::PrintToString(tool.shortcut);
    EXPECT_EQ(timesInJournal(L"link " + pathOf(tool.shortcut)), 1U);
  }
}

TEST_F(ProvisioningTest, AMisdirectedShortcutIsDeletedAndWrittenAfresh) {
  desktop().putProgram(L"C:\\Other\\other.exe");
  for (const ToolRow& tool : table) {
    install(tool.executable);
    putShortcut(tool.shortcut, L"C:\\Other\\other.exe");
  }
  ProvisionToolShortcuts();
  for (const ToolRow& tool : table) {
    expectInOrder({L"remove " + pathOf(tool.shortcut), L"link " + pathOf(tool.shortcut)});
    EXPECT_EQ(targetOf(tool.shortcut), std::wstring(L"C:\\App\\") + tool.executable);
  }
}

// --- tools that are not installed ---

TEST_F(ProvisioningTest, AMisdirectedShortcutOfAToolThatIsNotInstalledGoes) {
  desktop().putProgram(L"C:\\Other\\other.exe");
  for (const ToolRow& tool : table) {
    putShortcut(tool.shortcut, L"C:\\Other\\other.exe");
  }
  ProvisionToolShortcuts();
  EXPECT_TRUE(shortcuts().empty());
}

TEST_F(ProvisioningTest, OnlyThreeRowsKeepTheShortcutOfAToolThatIsElsewhere) {
  for (const ToolRow& tool : table) {
    const std::wstring target =
        std::wstring(L"C:\\Other\\") + (tool.keeps != nullptr ? tool.keeps : tool.executable);
    desktop().putProgram(target);
    putShortcut(tool.shortcut, target);
  }
  ProvisionToolShortcuts();
  EXPECT_EQ(shortcuts(), (Names{L"Plotview Browser.lnk", L"Modelhouse.lnk", L"CanopyWeigh.lnk"}));
  EXPECT_TRUE(desktop().linkWrites.empty());
}

TEST_F(ProvisioningTest, TheNameOnDiskCountsNotTheNameInTheShortcut) {
  desktop().putProgram(L"C:\\Other\\a long name.exe");
  desktop().alias(L"C:\\Other\\CW3.EXE", L"C:\\Other\\a long name.exe");
  putShortcut(L"CanopyWeigh.lnk", L"C:\\Other\\CW3.EXE");
  ProvisionToolShortcuts();
  EXPECT_TRUE(shortcuts().empty());
}

TEST_F(ProvisioningTest, AShortcutToAToolThatIsGoneGoesToo) {
  for (const ToolRow& tool : table) {
    putShortcut(tool.shortcut, std::wstring(L"C:\\Gone\\") + tool.executable);
  }
  ProvisionToolShortcuts();
  EXPECT_TRUE(shortcuts().empty());
}

TEST_F(ProvisioningTest, AShortcutWhoseTargetCannotBeReadGoes) {
  for (const ToolRow& tool : table) {
    desktop().putFile(pathOf(tool.shortcut), "no shortcut");
  }
  ProvisionToolShortcuts();
  EXPECT_TRUE(shortcuts().empty());
}

TEST_F(ProvisioningTest, BrushtallyWhoseToolIsNotInstalledGoesEvenWhenItsTargetExists) {
  desktop().putProgram(L"C:\\Other\\brtpc3.exe");
  for (int start = 0; start < 2; ++start) {
    putShortcut(L"BrushtallyPC.lnk", L"C:\\Other\\brtpc3.exe");
    ProvisionToolShortcuts();
    EXPECT_TRUE(shortcuts().empty());
  }
}

TEST_F(ProvisioningTest, ModelhouseToAFileOfThatNameElsewhereIsKept) {
  desktop().putProgram(L"C:\\Other\\mdlhs3.exe");
  putShortcut(L"Modelhouse.lnk", L"C:\\Other\\mdlhs3.exe");
  ProvisionToolShortcuts();
  EXPECT_EQ(targetOf(L"Modelhouse.lnk"), L"C:\\Other\\mdlhs3.exe");
}

TEST_F(ProvisioningTest, ModelhouseElsewhereIsTurnedToTheInstalledOne) {
  desktop().putProgram(L"C:\\Other\\mdlhs3.exe");
  install(L"MDLHS3.EXE");
  putShortcut(L"Modelhouse.lnk", L"C:\\Other\\mdlhs3.exe");
  ProvisionToolShortcuts();
  EXPECT_EQ(targetOf(L"Modelhouse.lnk"), L"C:\\App\\MDLHS3.EXE");
  EXPECT_EQ(timesInJournal(L"remove " + pathOf(L"Modelhouse.lnk")), 0U);
}

TEST_F(ProvisioningTest, UnishiftFourAloneCreatesNoShortcut) {
  install(L"unishift4.exe");
  ProvisionToolShortcuts();
  EXPECT_TRUE(shortcuts().empty());
}

TEST_F(ProvisioningTest, UnishiftFourAloneRemovesAnExistingShortcut) {
  install(L"unishift4.exe");
  putShortcut(L"Unitshift.lnk", L"C:\\App\\unishift4.exe");
  ProvisionToolShortcuts();
  EXPECT_TRUE(shortcuts().empty());
}

// --- obsolete shortcuts ---

TEST_F(ProvisioningTest, ObsoleteShortcutsAreDeletedAtEveryStart) {
  for (int start = 0; start < 2; ++start) {
    for (const wchar_t* const name : {L"PlotviewX.lnk", L"Plotview.lnk", L"Canopy Weigh.lnk"}) {
      putShortcut(name, L"C:\\Windows\\mine.exe");
    }
    ProvisionToolShortcuts();
    EXPECT_TRUE(shortcuts().empty());
  }
}

TEST_F(ProvisioningTest, AShortcutThatTheUserNamedPlotviewIsDeletedThoughItsTargetExists) {
  desktop().putProgram(L"C:\\Tools\\mine.exe");
  putShortcut(L"Plotview.lnk", L"C:\\Tools\\mine.exe");
  ProvisionToolShortcuts();
  EXPECT_FALSE(desktop().has(pathOf(L"Plotview.lnk")));
}

TEST_F(ProvisioningTest, ObsoleteShortcutsGoBeforeAnythingIsWritten) {
  installAll();
  putShortcut(L"PlotviewX.lnk", L"");
  putShortcut(L"Plotview.lnk", L"");
  putShortcut(L"Canopy Weigh.lnk", L"");
  ProvisionToolShortcuts();
  expectInOrder({L"remove " + pathOf(L"PlotviewX.lnk"), L"remove " + pathOf(L"Plotview.lnk"),
                 L"remove " + pathOf(L"Canopy Weigh.lnk"),
                 L"link " + pathOf(L"Plotview Browser.lnk")});
}

TEST_F(ProvisioningTest, MissingObsoleteShortcutsAreNoError) {
  EXPECT_EQ(errorNumberOf(ProvisionToolShortcuts), 0);
  EXPECT_EQ(linesBeginning(L"remove " + pathOf(L"PlotviewX.lnk")), 0U);
  EXPECT_EQ(timesInJournal(L"remove " + pathOf(L"Plotview.lnk") + L" failed 53"), 1U);
  EXPECT_EQ(timesInJournal(L"remove " + pathOf(L"Canopy Weigh.lnk") + L" failed 53"), 1U);
}

TEST_F(ProvisioningTest, ObsoleteShortcutsThatCannotBeDeletedAreNoErrorAndTheRestGoesOn) {
  installAll();
  for (const wchar_t* const name : {L"PlotviewX.lnk", L"Plotview.lnk", L"Canopy Weigh.lnk"}) {
    SCOPED_TRACE(::testing::PrintToString(std::wstring(name)));
    for (const bool inUse : {true, false}) {
      putShortcut(name, L"");
      if (inUse) {
        desktop().lock(pathOf(name));
      } else {
        desktop().setReadOnly(pathOf(name));
      }
      desktop().linkWrites.clear();
      EXPECT_EQ(errorNumberOf(ProvisionToolShortcuts), 0);
      EXPECT_EQ(desktop().linkWrites.size(), table.size());
      EXPECT_TRUE(desktop().has(pathOf(name)));
      desktop().take(pathOf(name));
    }
  }
}

// --- the user's own shortcuts ---

TEST_F(ProvisioningTest, ShortcutsToOtherProgramsAreNeverTouched) {
  installAll();
  const Names own{L"Shortcut to calc.exe.lnk", L"Sprawl.lnk", L"plv3.lnk",
                  L"Plotview Browser2.lnk"};
  for (const std::wstring& name : own) {
    putShortcut(name, L"C:\\Gone\\plv3.exe");
  }
  ProvisionToolShortcuts();
  for (const std::wstring& name : own) {
    EXPECT_EQ(targetOf(name), L"C:\\Gone\\plv3.exe");
    EXPECT_EQ(timesInJournal(L"remove " + pathOf(name)), 0U);
    EXPECT_EQ(timesInJournal(L"link " + pathOf(name)), 0U);
  }
}

// --- errors ---

TEST_F(ProvisioningTest, AShortcutThatCannotBeDeletedIsAnError) {
  for (const ToolRow& tool : table) {
    putShortcut(tool.shortcut, L"C:\\Gone\\x.exe");
    desktop().lock(pathOf(tool.shortcut));
    EXPECT_EQ(errorNumberOf(ProvisionToolShortcuts), 70);
    desktop().take(pathOf(tool.shortcut));
  }
}

TEST_F(ProvisioningTest, AShortcutThatCannotBeSavedIsAnErrorAndTheRowsBehindItAreNotReached) {
  installAll();
  const std::wstring locked = pathOf(L"Modelhouse.lnk");
  putShortcut(L"Modelhouse.lnk", L"C:\\App\\MDLHS3.EXE");
  desktop().lock(locked);
  EXPECT_EQ(errorNumberOf(ProvisionToolShortcuts), 70);
  EXPECT_TRUE(desktop().has(pathOf(L"Imagekeep.lnk")));
  EXPECT_FALSE(desktop().has(pathOf(L"CanopyWeigh.lnk")));
}

TEST_F(ProvisioningTest, WithoutAMeansOfWritingShortcutsItEndsWithThatError) {
  installAll();
  desktop().linkFailure = 429;
  EXPECT_EQ(errorNumberOf(ProvisionToolShortcuts), 429);
}

TEST_F(ProvisioningTest, EveryErrorBehindTheObsoleteShortcutsComesThrough) {
  installAll();
  ProvisionToolShortcuts();
  // Two attempts to delete, then six shortcuts, three of which are deleted before they are written.
  constexpr int ignored = 2;
  constexpr int all = ignored + 6 + 3;
  for (int n = 1; n <= all; ++n) {
    desktop().faults().failCall(n, 57);
    EXPECT_EQ(errorNumberOf(ProvisionToolShortcuts), n <= ignored ? 0 : 57) << n;
    desktop().faults().failNothing();
    ProvisionToolShortcuts();
  }
}

}  // namespace
