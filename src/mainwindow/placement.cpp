#include "mainwindow/placement.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cwchar>
#include <limits>

namespace mainwindow {

using controls::ListView;
using controls::Placement;
using platform::Rect;

namespace {

/// Integers separated by blanks; nothing when the text contains anything else. Numbers that do not
/// fit become the largest or smallest that fits.
std::optional<std::vector<int>> numbers(const std::wstring& text) {
  constexpr int decimal = 10;
  constexpr long limit = std::numeric_limits<int>::max();
  std::vector<int> found;
  const wchar_t* next = text.c_str();
  while (*next != L'\0') {
    wchar_t* end = nullptr;
    const long number = std::wcstol(next, &end, decimal);
    if (end == next || (*end != L' ' && *end != L'\0')) {
      return std::nullopt;
    }
    found.push_back(static_cast<int>(std::clamp(number, -limit, limit)));
    next = end;
  }
  return found;
}

/// Length of the overlap of two intervals, 0 when they do not overlap.
std::int64_t sharedLength(int beginA, int lengthA, int beginB, int lengthB) {
  const auto end = [](int begin, int length) { return std::int64_t{begin} + length; };
  return std::max<std::int64_t>(
      0, std::min(end(beginA, lengthA), end(beginB, lengthB)) - std::max(beginA, beginB));
}

std::int64_t sharedArea(const Rect& a, const Rect& b) {
  return sharedLength(a.left, a.width, b.left, b.width) *
         sharedLength(a.top, a.height, b.top, b.height);
}

/// The one of `screens` with which a rectangle shares the largest area, or the first one. `areaOf`
/// gives the work area of each.
template <class Screens, class AreaOf>
auto screenWithMostOf(const Rect& rect, const Screens& screens, AreaOf areaOf) {
  return std::max_element(screens.begin(), screens.end(), [&](const auto& a, const auto& b) {
    return sharedArea(rect, areaOf(a)) < sharedArea(rect, areaOf(b));
  });
}

}  // namespace

std::wstring placementText(const Placement& placement) {
  std::wstring text;
  for (const int number : {placement.normal.left, placement.normal.top, placement.normal.width,
                           placement.normal.height, placement.dpi}) {
    text += std::to_wstring(number) + L' ';
  }
  return text + (placement.maximised ? L"1" : L"0");
}

std::optional<Placement> placementFromText(const std::wstring& text) {
  constexpr std::size_t numbersWritten = 6;
  // Far outside every screen, and small enough that the sum of two does not overflow.
  constexpr int limit = 1'000'000;
  const auto read = numbers(text);
  if (!read || read->size() != numbersWritten ||
      std::any_of(read->begin(), read->end(),
                  [](int number) { return number < -limit || number > limit; })) {
    return std::nullopt;
  }
  const Placement placement{.normal = {(*read)[0], (*read)[1], (*read)[2], (*read)[3]},
                            .dpi = (*read)[4],
                            .maximised = (*read)[5] == 1};
  if (placement.normal.width <= 0 || placement.normal.height <= 0 || placement.dpi <= 0) {
    return std::nullopt;
  }
  return placement;
}

Rect scaledAboutCentre(const Rect& rect, int measuredAt, int dpi) {
  const auto scaled = [measuredAt, dpi](int length) {
    return platform::coordinate(std::int64_t{length} * dpi / measuredAt);
  };
  const int width = scaled(rect.width);
  const int height = scaled(rect.height);
  const auto moved = [](int begin, int former, int length) {
    return platform::coordinate(begin + (std::int64_t{former} - length) / 2);
  };
  return {moved(rect.left, rect.width, width), moved(rect.top, rect.height, height), width, height};
}

Rect broughtOntoScreen(const Rect& rect, const std::vector<Rect>& workAreas) {
  const auto area = screenWithMostOf(rect, workAreas, [](const Rect& each) { return each; });
  if (area == workAreas.end()) {
    return rect;
  }
  Rect placed = rect;
  placed.width = std::min(rect.width, area->width);
  placed.height = std::min(rect.height, area->height);
  placed.left = std::clamp(rect.left, area->left, area->right() - placed.width);
  placed.top = std::clamp(rect.top, area->top, area->bottom() - placed.height);
  return placed;
}

Rect placeToday(const Placement& remembered,
                const std::vector<platform::screens::Screen>& screens) {
  const Rect& rect = remembered.normal;
  const auto screen =
      screenWithMostOf(rect, screens, [](const auto& each) { return each.workArea; });
  if (screen == screens.end()) {
    return rect;
  }
  // Only that screen: a window that is wider in its density must not slip onto the next one, where
  // it would be scaled once more.
  return broughtOntoScreen(scaledAboutCentre(rect, remembered.dpi, screen->dpi),
                           {screen->workArea});
}

std::wstring columnWidthsText(const ListView& list) {
  std::wstring text;
  for (const ListView::Column& column : list.columns()) {
    text += (text.empty() ? L"" : L" ") + std::to_wstring(column.widthTwips);
  }
  return text;
}

void setColumnWidths(ListView& list, const std::wstring& text) {
  constexpr int smallest = 15;
  constexpr int largest = 60'000;
  const auto widths = numbers(text);
  if (!widths || widths->size() != list.columns().size()) {
    return;
  }
  for (std::size_t i = 0; i < widths->size(); ++i) {
    if (list.columns()[i].widthTwips > 0) {
      list.setColumnWidth(i, std::clamp((*widths)[i], smallest, largest));
    }
  }
}

}  // namespace mainwindow
