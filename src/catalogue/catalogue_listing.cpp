#include "catalogue/catalogue_listing.h"

#include "catalogue/catalogue_file.h"
#include "catalogue/entry.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "platform/text.h"
#include "platform/trap.h"

namespace modQMKGeneral {

using platform::text::toCodePage;

bool removeFromList(CatalogueView& view, const std::wstring& path) {
  if (const auto failure = platform::trapped([&path] { dropCatalogueEntry(path); })) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
    return false;
  }
  LoadCatalogueView(view);
  return true;
}

std::optional<list_file::Merged> addCatalogueRecords(CatalogueView& view,
                                                     const std::string& bytes) {
  const auto path = [](const list_file::Record& record) {
    const std::wstring listed = record.text(pathField);
    return listed.find(L'\\') == std::wstring::npos ? std::nullopt
                                                    : std::optional(platform::text::upper(listed));
  };
  return addRecords(cataloguePath(), bytes, path, [&view] { LoadCatalogueView(view); });
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
