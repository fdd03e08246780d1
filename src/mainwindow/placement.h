// What the main window keeps for the user between runs: its placement and the widths of the
// columns.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/controls/list_view.h"
#include "platform/controls/window.h"
#include "platform/geometry.h"
#include "platform/screens.h"

namespace mainwindow {

/// A placement as settings text: left, top, width, height in pixels, the dpi they were measured at,
/// and 1 for maximised; separated by blanks.
[[nodiscard]] std::wstring placementText(const controls::Placement& placement);

/// Reads what `placementText` wrote; nothing when the text is anything else.
[[nodiscard]] std::optional<controls::Placement> placementFromText(const std::wstring& text);

/// The rectangle scaled from `measuredAt` to `dpi`, with its centre unchanged. Raises
/// `error::overflow` when a coordinate does not fit.
[[nodiscard]] platform::Rect scaledAboutCentre(const platform::Rect& rect, int measuredAt, int dpi);

/// The rectangle moved, and made smaller if necessary, so that it is completely inside one work
/// area: the one with which it shares the largest area, or the first one.
[[nodiscard]] platform::Rect broughtOntoScreen(const platform::Rect& rect,
                                               const std::vector<platform::Rect>& workAreas);

/// Where a remembered window goes on the screens of today: onto the screen that it was on, or else
/// the first one, with its size in the density of that screen. Without a screen it stays where it
/// was. Raises `error::overflow` when a coordinate does not fit.
[[nodiscard]] platform::Rect placeToday(const controls::Placement& remembered,
                                        const std::vector<platform::screens::Screen>& screens);

/// Widths of a list's columns in twips, separated by blanks.
[[nodiscard]] std::wstring columnWidthsText(const controls::ListView& list);

/// Sets the column widths of a list to what `columnWidthsText` wrote. A text that does not fit the
/// list changes nothing. A hidden column stays hidden, and no other column becomes hidden.
void setColumnWidths(controls::ListView& list, const std::wstring& text);

}  // namespace mainwindow
