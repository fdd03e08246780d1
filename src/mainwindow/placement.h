// What the main window remembers for the user from run to run: its place, and the widths of the
// columns.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/controls/list_view.h"
#include "platform/controls/window.h"
#include "platform/geometry.h"

namespace mainwindow {

/// A placement as settings text: left, top, width, height in pixels, the dpi they were measured
/// at, and 1 for maximised; parted by blanks.
[[nodiscard]] std::wstring placementText(const controls::Placement& placement);

/// Reads what `placementText` wrote; nothing when the text is anything else.
[[nodiscard]] std::optional<controls::Placement> placementFromText(const std::wstring& text);

/// The rectangle as large at `dpi` as it was at `measuredAt`, with its centre where it was.
/// Raises 6 when a coordinate does not fit.
[[nodiscard]] platform::Rect scaledAboutCentre(const platform::Rect& rect, int measuredAt, int dpi);

/// The rectangle moved, and made smaller where it must be, so that it lies wholly in one of the
/// work areas: the one that it shares the largest area with, or the first.
[[nodiscard]] platform::Rect broughtOntoScreen(const platform::Rect& rect,
                                               const std::vector<platform::Rect>& workAreas);

/// Widths of a list's columns in twips, parted by blanks.
[[nodiscard]] std::wstring columnWidthsText(const controls::ListView& list);

/// Gives the columns of a list the widths that `columnWidthsText` wrote. A text that does not fit
/// the list changes nothing; a hidden column stays hidden, and no other column gets hidden.
void setColumnWidths(controls::ListView& list, const std::wstring& text);

}  // namespace mainwindow
