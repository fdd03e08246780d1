#include "mainwindow/main_layout.h"

#include <algorithm>

namespace mainwindow {

using platform::scaled;

MainLayout layOut(platform::Size client, int dpi, const MeasuredParts& parts) {
  const int margin = scaled(8, dpi);
  const int padding = scaled(6, dpi);
  const platform::Size button{scaled(96, dpi), scaled(28, dpi)};

  MainLayout layout;
  layout.toolbar = {0, 0, client.width, parts.toolbarHeight};
  const int statusHeight = std::min(parts.textHeight + scaled(7, dpi), client.height);
  layout.statusBar = {0, client.height - statusHeight, client.width, statusHeight};
  const int tabsTop = parts.toolbarHeight + padding;
  layout.tabs = {margin, tabsTop, std::max(0, client.width - 2 * margin),
                 std::max(0, layout.statusBar.top - tabsTop - padding)};
  layout.list = platform::inset(parts.displayArea(layout.tabs), padding);
  layout.browseButton = {std::max(layout.list.left, layout.list.right() - button.width),
                         std::max(layout.list.top, layout.list.bottom() - button.height),
                         button.width, button.height};
  layout.listOnOpen = layout.list;
  layout.listOnOpen.height = std::max(0, layout.browseButton.top - padding - layout.listOnOpen.top);
  // The box may stand a little higher than the tabs, which are low. The tabs need the rest of the
  // row, in the smallest window, too.
  constexpr int ring = 2;
  const int boxHeight = parts.textHeight + 2 * ring;
  const int boxWidth =
      std::min(std::clamp(layout.list.width - scaled(240, dpi), scaled(120, dpi), scaled(200, dpi)),
               layout.list.width);
  const int boxBottom = layout.list.top - padding - scaled(5, dpi);
  layout.findBox = {layout.list.right() - boxWidth, std::max(0, boxBottom - boxHeight), boxWidth,
                    boxHeight};
  const int side = std::max(0, boxHeight - 2 * ring);
  layout.clearButton = {std::max(layout.findBox.left, layout.findBox.right() - ring - side),
                        layout.findBox.top + ring, side, side};
  return layout;
}

}  // namespace mainwindow
