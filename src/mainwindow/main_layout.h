// Positions of the main window's parts.
#pragma once

#include <functional>

#include "platform/geometry.h"

namespace mainwindow {

/// What the layout needs to know besides the client area.
struct MeasuredParts {
  int toolbarHeight = 0;  ///< Pixels.
  int textHeight = 0;     ///< Of a line of text; pixels.
  /// The area of a tab control below its tabs, for a tab control with the given bounds.
  std::function<platform::Rect(const platform::Rect&)> displayArea;
};

/// Rectangles in the client area, in pixels.
struct MainLayout {
  platform::Rect toolbar;
  platform::Rect tabs;
  platform::Rect list;          ///< Lists of the tabs without a button.
  platform::Rect listOnOpen;    ///< The Open tab's list, above its button.
  platform::Rect browseButton;  ///< On the Open tab, right-aligned below the list.
  platform::Rect findBox;       ///< At the end of the row of tabs.
  platform::Rect clearButton;   ///< At the end of that box, inside its frame.
  platform::Rect statusBar;
};

/// Lays the window out: the toolbar above, the status line below, the tab control in the rest, the
/// lists filling the tabs.
/// No rectangle has a negative size, however small the client area is.
[[nodiscard]] MainLayout layOut(platform::Size client, int dpi, const MeasuredParts& parts);

}  // namespace mainwindow
