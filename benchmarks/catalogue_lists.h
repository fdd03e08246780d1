// The catalogue's lists as the main window owns them, without native controls.
#pragma once

#include "catalogue/catalogue_view.h"

namespace bench {

/// The lists of the Open and the New tab, and the view that fills them.
struct CatalogueLists {
  controls::ListView dataList{L"lstQMK", 1};
  controls::ListView newFiles{L"lstQMK", 2};
  controls::ImageList largeImages;
  controls::ImageList smallImages;
  modQMKGeneral::CatalogueView catalogue{dataList, newFiles, largeImages, smallImages};
};

}  // namespace bench
