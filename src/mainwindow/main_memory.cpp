// What the main window keeps for the user between runs.
#include "mainwindow/main_window.h"
#include "mainwindow/placement.h"
#include "platform/screens.h"

namespace key = settings::key;

namespace {

std::wstring columnsKey(std::size_t list) { return key::columns + std::to_wstring(list); }

}  // namespace

void frmQMK::restorePlace() {
  auto placement = mainwindow::placementFromText(kept.value(key::placement, L""));
  if (!placement || peer() == nullptr) {
    return;
  }
  // The screens may have been rearranged, or changed their dpi, since then.
  placement->normal = mainwindow::placeToday(*placement, platform::screens::all());
  peer()->place(*placement);
}

void frmQMK::restoreColumnWidths() {
  for (std::size_t i = 0; i < lstQMK.size(); ++i) {
    mainwindow::setColumnWidths(lstQMK.at(i), kept.value(columnsKey(i), L""));
  }
  if (kept.value(key::newestFirst, L"") == L"1") {
    setNewestFirst(true);
  }
}

void frmQMK::remember() {
  // A window that was never laid out has no placement of its own yet.
  if (peer() == nullptr || !laidOut()) {
    return;
  }
  std::vector<settings::Value> values{
      {key::placement, mainwindow::placementText(peer()->placement())}};
  for (std::size_t i = 0; i < lstQMK.size(); ++i) {
    values.push_back({columnsKey(i), mainwindow::columnWidthsText(lstQMK.at(i))});
  }
  const std::wstring newestFirst = lstQMK[open].ranking() ? L"1" : L"0";
  if (kept.value(key::newestFirst, L"0") != newestFirst) {
    values.push_back({key::newestFirst, newestFirst});
  }
  // The window is going, so nobody can be told of a file that cannot be written.
  static_cast<void>(kept.keep(values));
}
