#include "catalogue/catalogue_listing.h"

#include "catalogue/catalogue_file.h"
#include "catalogue/entry.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "platform/text.h"
#include "platform/trap.h"

namespace modQMKGeneral {

using platform::text::toCodePage;

bool removeFromList(CatalogueView& view, const std::wstring& path, undo::Changes* forUndo) {
  if (const auto failure = platform::trapped([&] { dropCatalogueEntry(path, forUndo); })) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
    return false;
  }
  LoadCatalogueView(view);
  return true;
}

std::optional<list_file::Merged> addCatalogueRecords(CatalogueView& view, const std::string& bytes,
                                                     undo::Changes* forUndo) {
  return undo::addRecords(
      cataloguePath(), bytes, entryOf, [&view] { LoadCatalogueView(view); }, forUndo);
}

std::string shownCatalogueRecords(const controls::ListView& list) {
  std::string bytes;
  for (std::size_t row = 0; row < list.rows(); ++row) {
    const DataEntry entry = dataEntry(list, list.itemOfRow(row));
    bytes +=
        list_file::line({toCodePage(entry.type), toCodePage(entry.path()), toCodePage(entry.date)});
  }
  return bytes;
}

}  // namespace modQMKGeneral
