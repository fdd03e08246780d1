// What the main window keeps for the user between runs.
#include "mainwindow/main_window.h"
#include "mainwindow/placement.h"
#include "platform/screens.h"
#include "platform/settings.h"

namespace settings = platform::settings;

namespace {

constexpr const wchar_t* section = L"General";
constexpr const wchar_t* placementKey = L"Placement";
constexpr const wchar_t* newestFirstKey = L"NewestFirst";

std::wstring columnsKey(std::size_t list) { return L"Columns" + std::to_wstring(list); }

}  // namespace

void frmQMK::restorePlace() {
  auto placement = mainwindow::placementFromText(settings::read(section, placementKey, L""));
  if (!placement || peer() == nullptr) {
    return;
  }
  // The screens may have been rearranged, or changed their dpi, since then.
  placement->normal = mainwindow::placeToday(*placement, platform::screens::all());
  peer()->place(*placement);
}

void frmQMK::restoreColumnWidths() {
  for (std::size_t i = 0; i < lstQMK.size(); ++i) {
    mainwindow::setColumnWidths(lstQMK.at(i), settings::read(section, columnsKey(i), L""));
  }
  if (settings::read(section, newestFirstKey, L"") == L"1") {
    setNewestFirst(true);
  }
}

void frmQMK::remember() const {
  // A window that was never laid out has no placement of its own yet.
  if (peer() == nullptr || !laidOut()) {
    return;
  }
  settings::write(section, placementKey, mainwindow::placementText(peer()->placement()));
  for (std::size_t i = 0; i < lstQMK.size(); ++i) {
    settings::write(section, columnsKey(i), mainwindow::columnWidthsText(lstQMK.at(i)));
  }
  const std::wstring newestFirst = lstQMK[open].ranking() ? L"1" : L"0";
  if (settings::read(section, newestFirstKey, L"0") != newestFirst) {
    settings::write(section, newestFirstKey, newestFirst);
  }
}
