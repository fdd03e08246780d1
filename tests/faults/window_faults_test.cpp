// Operations of the window that change no file: reloading, sorting, other tabs and views, dialogs.
#include <gtest/gtest.h>

#include "faults/sweep.h"

namespace faults {
namespace {

void nothing(Bench& /*bench*/) {}

void reload(Bench& bench, frmQMK::Tab tab) {
  bench.main().lstQMK.at(tab).raiseKey({controls::keys::f5});
}

std::vector<Operation> operations() {
  const auto onWebTab = [](Bench& bench) { bench.select(frmQMK::web, L"Weather"); };
  return {
      {.name = "reload the tools",
       .prepare = nothing,
       .run = [](Bench& bench) { reload(bench, frmQMK::tools); }},
      {.name = "reload the data files",
       .prepare = nothing,
       .run = [](Bench& bench) { reload(bench, frmQMK::open); }},
      {.name = "reload the web list",
       .prepare = nothing,
       .run = [](Bench& bench) { reload(bench, frmQMK::web); }},
      {.name = "sort by a column",
       .prepare = nothing,
       .run =
           [](Bench& bench) {
             controls::ListView& list = bench.main().lstQMK[frmQMK::open];
             list.raiseColumnClick(2);
             // As the next painting does.
             static_cast<void>(list.cell(0, 0));
           }},
      {.name = "go through the tabs",
       .prepare = nothing,
       .run =
           [](Bench& bench) {
             for (const int tab : {1, 2, 3, 0}) {
               bench.main().TabMain.raiseSwitch(tab);
             }
           }},
      {.name = "change the view",
       .prepare = nothing,
       .run =
           [](Bench& bench) {
             bench.main().mnuList.raiseClick();
             bench.main().mnuIcon.raiseClick();
           }},
      {.name = "change the density of the screen",
       .prepare = nothing,
       .run =
           [](Bench& bench) {
             bench.main().raiseLayout({1200, 900}, 144);
           }},
      {.name = "ask for a new web entry",
       .prepare = onWebTab,
       .run = [](Bench& bench) { bench.main().mnuCreate.raiseClick(); }},
      {.name = "ask for another name of a web entry",
       .prepare = onWebTab,
       .run = [](Bench& bench) { bench.main().mnuRename.raiseClick(); }},
      {.name = "open a web entry",
       .prepare = onWebTab,
       .run = [](Bench& bench) { bench.main().lstQMK[frmQMK::web].raiseDoubleClick(); }},
      {.name = "show the about box",
       .prepare = nothing,
       .run =
           [](Bench& bench) {
             bench.main().mnuAbout.raiseClick();
             if (frmAbout* const box = bench.main().aboutBox(); box != nullptr) {
               box->unload();
             }
           }},
  };
}

class WindowMemory : public ::testing::TestWithParam<Operation> {};

TEST_P(WindowMemory, NothingIsLostWhenItRunsOut) { sweepMemory(GetParam()); }

TEST_P(WindowMemory, NothingIsLostWhenAListIsRefused) { sweepPeers(GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Each, WindowMemory, ::testing::ValuesIn(operations()), [](const auto& tested) {
      std::string name;
      bool capital = true;
      for (const char c : tested.param.name) {
        if (c != ' ') {
          name += capital ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
        }
        capital = c == ' ';
      }
      return name;
    });

}  // namespace
}  // namespace faults
