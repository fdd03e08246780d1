// The web list in the main window; the Web tab is the current one.
#pragma once

#include <string>
#include <vector>

#include "unit/support/error_number.h"
#include "unit/support/list_file_bytes.h"
#include "unit/support/loaded_main_window.h"
#include "web/web_list.h"

namespace unit {

class WebTest : public LoadedMainWindow {
 protected:
  WebTest() {
    main.TabMain.setCurrent(frmQMK::web);
    memory::desktop().clearJournal();
  }

  static void putWebList(const std::string& bytes) {
    memory::desktop().putFile(webListFile, bytes);
  }
  /// Contents of the web list file, "(none)" when it does not exist.
  [[nodiscard]] static std::string webList() { return bytesOf(webListFile); }

  [[nodiscard]] Texts names() const { return textsOf(main.lstQMK[frmQMK::web]); }
  [[nodiscard]] Texts addresses() const {
    Texts texts;
    for (std::size_t index = 0; index < main.lstQMK[frmQMK::web].count(); ++index) {
      texts.push_back(main.lstQMK[frmQMK::web].subItem(index, modQMKGeneral::urlColumn));
    }
    return texts;
  }

  controls::ListView& list = main.lstQMK[frmQMK::web];
  modQMKGeneral::WebList& web = main.webList;
};

}  // namespace unit
