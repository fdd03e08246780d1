// Settings that anybody may have edited: the window's placement and the widths of columns. The
// input is a line with the placement, a line with the widths, and two characters for the screen's
// dpi.
#include <algorithm>
#include <string>

#include "fuzz/support/fuzz.h"
#include "mainwindow/placement.h"

using fuzz::require;
using platform::Rect;

namespace {

bool lies(const Rect& rect, const Rect& area) {
  return rect.left >= area.left && rect.top >= area.top && rect.right() <= area.right() &&
         rect.bottom() <= area.bottom();
}

void checkPlacement(const std::wstring& text, int dpi) {
  const auto placement = mainwindow::placementFromText(text);
  if (!placement) {
    return;
  }
  const Rect& rect = placement->normal;
  require(rect.width > 0 && rect.height > 0 && placement->dpi > 0, "a place has a size");
  const std::wstring written = mainwindow::placementText(*placement);
  const auto again = mainwindow::placementFromText(written);
  require(again && again->normal == rect && again->dpi == placement->dpi &&
              again->maximised == placement->maximised,
          "a place that is written is read back");
  const std::vector<Rect> areas{{0, 0, 1280, 984}, {1280, -200, 1920, 1040}};
  const Rect scaled = mainwindow::scaledAboutCentre(rect, placement->dpi, dpi);
  const Rect placed = mainwindow::broughtOntoScreen(scaled, areas);
  require(std::any_of(areas.begin(), areas.end(),
                      [&placed](const Rect& area) { return lies(placed, area); }),
          "a window is brought back onto a screen");
  require(mainwindow::broughtOntoScreen(placed, areas) == placed, "and then stays there");
  const std::vector<platform::screens::Screen> screens{{.workArea = areas[0], .dpi = dpi},
                                                       {.workArea = areas[1], .dpi = 192}};
  const Rect today = mainwindow::placeToday(*placement, screens);
  const auto on = std::find_if(screens.begin(), screens.end(), [&today](const auto& screen) {
    return lies(today, screen.workArea);
  });
  require(on != screens.end(), "a window comes back onto one of the screens");
  // Without a size it is on no screen. The system does not let a window become that small.
  const bool visible = today.width > 0 && today.height > 0;
  require(!visible || mainwindow::placeToday({.normal = today, .dpi = on->dpi}, screens) == today,
          "and has the same size at the next start");
}

void checkWidths(const std::wstring& text) {
  controls::ListView list(L"lstQMK", 1);
  list.addColumn(L"Name", 1500);
  list.addColumn(L"Date", 2000);
  list.addColumn(L"Hidden", 0);
  const std::wstring before = mainwindow::columnWidthsText(list);
  mainwindow::setColumnWidths(list, text);
  const auto& columns = list.columns();
  require(columns[2].widthTwips == 0, "a hidden column stays hidden");
  for (const std::size_t shown : {0U, 1U}) {
    require(columns[shown].widthTwips >= 15 && columns[shown].widthTwips <= 60'000,
            "a column stays visible and within bounds");
  }
  const std::wstring after = mainwindow::columnWidthsText(list);
  mainwindow::setColumnWidths(list, after);
  require(mainwindow::columnWidthsText(list) == after, "widths that are written are read back");
  require(after == before ||
              text.find_first_not_of(L"0123456789+-\t\n\v\f\r ") == std::wstring::npos ||
              text.find(L'\0') != std::wstring::npos,
          "only numbers change a width");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const std::wstring place = fuzz::wide(input.line());
  const std::wstring widths = fuzz::wide(input.line());
  const int dpi = 96 + static_cast<unsigned char>(input.character()) +
                  static_cast<unsigned char>(input.character());
  checkPlacement(place, dpi);
  checkWidths(widths);
  return 0;
}
