// The catalogue and its lists in the main window.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_view.h"
#include "unit/support/error_number.h"
#include "unit/support/list_file_bytes.h"
#include "unit/support/loaded_main_window.h"

namespace unit {

class CatalogueTest : public LoadedMainWindow {
 protected:
  /// Writes the catalogue as another program would.
  static void putCatalogue(const std::string& bytes) {
    memory::desktop().putFile(catalogueFile, bytes);
  }
  /// Contents of the catalogue, "(none)" when it does not exist.
  [[nodiscard]] static std::string catalogue() { return bytesOf(catalogueFile); }

  /// A data file of the data folder, last modified on 16 November 2026 at 2:30:15 PM.
  static void putData(const std::wstring& name) {
    memory::desktop().putFile(L"C:\\App\\data\\" + name, "data", platform::files::normal,
                              memory::fileTime({.day = 16}));
  }
  /// Its record as the build writes it.
  [[nodiscard]] static std::string dataRecord(const std::string& type, const std::string& name) {
    return record({type, "C:\\App\\data\\" + name, "11/16/2026 2:30:15 PM"});
  }

  /// A row of the data list: text, picture, sub-items 1 to 4.
  [[nodiscard]] Texts row(std::size_t index) const {
    const controls::ListView& shown = main.lstQMK[frmQMK::open];
    return {shown.text(index),       shown.icon(index),       shown.subItem(index, 1),
            shown.subItem(index, 2), shown.subItem(index, 3), shown.subItem(index, 4)};
  }
  [[nodiscard]] Texts rows() const { return textsOf(main.lstQMK[frmQMK::open]); }

  controls::ListView& list = main.lstQMK[frmQMK::open];
  modQMKGeneral::CatalogueView& view = main.catalogue;
};

}  // namespace unit
