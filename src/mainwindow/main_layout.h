// Where the parts of the main window stand.
#pragma once

#include <functional>

#include "platform/geometry.h"

namespace mainwindow {

/// What the layout needs to know besides the client area.
struct MeasuredParts {
  int toolbarHeight = 0;  ///< Pixels.
  /// The part of the tab control below its tabs, for a tab control at the given place.
  std::function<platform::Rect(const platform::Rect&)> displayArea;
};

/// Places in the client area, in pixels.
struct MainLayout {
  platform::Rect toolbar;
  platform::Rect tabs;
  platform::Rect list;          ///< Lists of the tabs without a button.
  platform::Rect listOnOpen;    ///< The Open tab's list, above its button.
  platform::Rect browseButton;  ///< On the Open tab, right-aligned below the list.
};

/// Lays the window out: toolbar above, tab control filling the rest, lists filling the tabs. No
/// rectangle is ever negative, however small the client area.
[[nodiscard]] MainLayout layOut(platform::Size client, int dpi, const MeasuredParts& parts);

}  // namespace mainwindow
