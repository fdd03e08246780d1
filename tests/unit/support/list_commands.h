// Helpers of the tests of commands that change the list files.
#pragma once

#include <string>

#include "unit/support/list_file_bytes.h"
#include "unit/support/loaded_main_window.h"

namespace unit {

class ListCommands : public LoadedMainWindow {
 protected:
  /// Shows what is on the disk by now, with the Open tab in front.
  void showLists() {
    modQMKGeneral::LoadCatalogueView(window.catalogue);
    modQMKGeneral::LoadWebList(window.webList);
    switchTo(frmQMK::open);
  }
  /// Chooses an entry of a menu, which finds out first whether it can be chosen.
  void choose(int command) {
    window.commands.refresh();
    window.commands.item(command).fireClick();
  }
  [[nodiscard]] static std::string catalogue() {
    return memory::desktop().bytesOf(catalogueFile).value_or("missing");
  }
  [[nodiscard]] static std::string webList() {
    return memory::desktop().bytesOf(webListFile).value_or("missing");
  }
  /// The left part of the status line.
  [[nodiscard]] std::wstring news() {
    settle();
    return window.barStatus.left();
  }
};

}  // namespace unit
