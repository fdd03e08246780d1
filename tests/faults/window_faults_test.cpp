// Operations of the window that change no file: reloading, sorting, other tabs and views, dialogs.
#include <gtest/gtest.h>

#include "faults/sweep.h"
#include "mainwindow/control_ids.h"
#include "platform/run_time_error.h"

namespace faults {
namespace {

using memory::desktop;

void reload(Rig& rig, frmQMK::Tab tab) { rig.main().lstQMK.at(tab).fireKey({controls::keys::f5}); }

std::vector<Operation> operationsOnWindows() {
  const auto onWebTab = [](Rig& rig) { rig.select(frmQMK::web, L"Weather"); };
  return {
      {.name = "reload the tools",
       .prepare = prepareNothing,
       .run = [](Rig& rig) { reload(rig, frmQMK::tools); }},
      {.name = "reload the tools with one on a share",
       .prepare =
           [](Rig& rig) {
             platform::shell_links::Link link;
             link.targetPath = L"\\\\server\\tools\\far.exe";
             desktop().putProgram(link.targetPath);
             desktop().setIcon(link.targetPath, 0xFF0000FF);
             desktop().putLink(shortcutsFolder + L"\\Far.lnk", link);
             rig.settle();
           },
       .run =
           [](Rig& rig) {
             reload(rig, frmQMK::tools);
             desktop().advance(0);
           }},
      {.name = "reload the data files",
       .prepare = prepareNothing,
       .run = [](Rig& rig) { reload(rig, frmQMK::open); }},
      {.name = "reload the web list",
       .prepare = prepareNothing,
       .run = [](Rig& rig) { reload(rig, frmQMK::web); }},
      {.name = "sort by a column",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             controls::ListView& list = rig.main().lstQMK[frmQMK::open];
             list.fireColumnClick(2);
             // As the next painting does.
             static_cast<void>(list.cell(0, 0));
           }},
      {.name = "narrow a list",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             rig.main().TabMain.fireSwitch(frmQMK::open);
             for (const wchar_t* const text : {L"f", L"fp", L"fp3 g", L"fp3", L""}) {
               rig.main().txtFind.acceptTyped(text);
             }
           }},
      {.name = "show the newest files first",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             rig.main().commands.item(ids::mnuNewestFirst).fireClick();
             // As the next painting does.
             static_cast<void>(rig.main().lstQMK[frmQMK::open].cell(0, 0));
           }},
      {.name = "fit the columns",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             rig.main().TabMain.fireSwitch(frmQMK::open);
             rig.main().commands.item(ids::mnuFitColumns).fireClick();
           }},
      {.name = "copy an entry and its path",
       .prepare = [](Rig& rig) { rig.select(frmQMK::open, L"One.fp3"); },
       .run =
           [](Rig& rig) {
             rig.main().commands.item(ids::mnuCopyPath).fireClick();
             rig.main().commands.item(ids::mnuCopy).fireClick();
           }},
      {.name = "show the folder of an entry",
       .prepare = [](Rig& rig) { rig.select(frmQMK::open, L"Gone.fp3"); },
       .run = [](Rig& rig) { rig.main().commands.item(ids::mnuOpenFolder).fireClick(); },
       .told =
           [](const Fault& fault) {
             return Texts{L"status: The folder cannot be shown: " +
                          platform::RunTimeError(fault.number).description()};
           }},
      {.name = "look for what is not there",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             rig.main().TabMain.fireSwitch(frmQMK::open);
             rig.main().fireDrivesChanged();
             desktop().advance(100);
           }},
      {.name = "go through the tabs",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             for (const int tab : {1, 2, 3, 0}) {
               rig.main().TabMain.fireSwitch(tab);
             }
           }},
      {.name = "change the view",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             rig.main().mnuList.fireClick();
             rig.main().mnuIcon.fireClick();
           }},
      {.name = "change the density of the screen",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             rig.main().fireLayout({1200, 900}, 144);
           }},
      {.name = "ask for a new web entry",
       .prepare = onWebTab,
       .run = [](Rig& rig) { rig.main().mnuCreate.fireClick(); }},
      {.name = "ask for another name of a web entry",
       .prepare = onWebTab,
       .run = [](Rig& rig) { rig.main().mnuRename.fireClick(); }},
      {.name = "open a web entry",
       .prepare = onWebTab,
       .run = [](Rig& rig) { rig.main().lstQMK[frmQMK::web].fireDoubleClick(); }},
      {.name = "ask for help that no viewer shows",
       .prepare =
           [](Rig& /*rig*/) {
             desktop().putFile(L"C:\\App\\help\\gatewayhelp3.HLP", "help");
             desktop().putFile(L"C:\\App\\help\\gateway-handbook.html", "handbook");
             desktop().classicHelp = false;
             desktop().compiledHelp = false;
           },
       .run =
           [](Rig& rig) {
             rig.main().mnuHelpContents.fireClick();
             desktop().advance(0);
           }},
      {.name = "refuse the end of the session",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             script([] { desktop().answers = {platform::dialogs::Answer::no}; });
             rig.main().fireClose(controls::UnloadMode::sessionEnd);
           }},
      {.name = "show the about box",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             rig.main().mnuAbout.fireClick();
             if (frmAbout* const box = rig.main().aboutBox(); box != nullptr) {
               box->unload();
             }
           }},
  };
}

class WindowMemory : public ::testing::TestWithParam<Operation> {};

TEST_P(WindowMemory, NothingIsLostWhenItRunsOut) { sweepMemory(GetParam()); }

TEST_P(WindowMemory, NothingIsLostWhenAListIsRefused) { sweepPeers(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Each, WindowMemory, ::testing::ValuesIn(operationsOnWindows()),
                         nameOfTest);

}  // namespace
}  // namespace faults
