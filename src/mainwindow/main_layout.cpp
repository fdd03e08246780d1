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
  const int tabsTop = parts.toolbarHeight + padding;
  layout.tabs = {margin, tabsTop, std::max(0, client.width - 2 * margin),
                 std::max(0, client.height - tabsTop - margin)};
  layout.list = platform::inset(parts.displayArea(layout.tabs), padding);
  layout.browseButton = {std::max(layout.list.left, layout.list.right() - button.width),
                         std::max(layout.list.top, layout.list.bottom() - button.height),
                         button.width, button.height};
  layout.listOnOpen = layout.list;
  layout.listOnOpen.height = std::max(0, layout.browseButton.top - padding - layout.listOnOpen.top);
  return layout;
}

}  // namespace mainwindow
