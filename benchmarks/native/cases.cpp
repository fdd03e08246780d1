#include "native/cases.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "catalogue/catalogue_file.h"
#include "catalogue_lists.h"
#include "catalogue_text.h"
#include "listfile/list_file.h"
#include "platform/desktop.h"
#include "platform/text.h"

namespace bench {
namespace {

using controls::ListView;

/// Keeps the optimizer from removing work whose result is not used.
void require(bool held) {
  if (!held) {
    throw std::logic_error("a case did not do its work");
  }
}

void putCatalogue(std::size_t records) {
  memory::desktop().reset();
  memory::desktop().putFile(modQMKGeneral::cataloguePath(), catalogueText(records));
}

std::shared_ptr<CatalogueLists> loadedView(std::size_t records) {
  putCatalogue(records);
  auto view = std::make_shared<CatalogueLists>();
  modQMKGeneral::LoadCatalogueView(view->catalogue);
  require(!view->dataList.text(0).empty());
  return view;
}

std::function<void()> readRecords(std::size_t records) {
  return [bytes = catalogueText(records), records] {
    list_file::Reader reader(bytes);
    std::size_t count = 0;
    for (list_file::Record record; reader.next(record);) {
      count += record.has(2) ? 1 : 0;
    }
    require(count == records);
  };
}

std::function<void()> dropRecord(std::size_t records) {
  return [bytes = catalogueText(records), records] {
    std::size_t n = 0;
    const std::string kept = list_file::filtered(
        bytes, [&n, records](const list_file::Record&) { return n++ != records / 2; });
    require(kept.size() < bytes.size());
  };
}

std::function<void()> addEntry(std::size_t records) {
  putCatalogue(records);
  // From the second call on, this updates the record that the first call added.
  return [] { modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\Elsewhere\\added.fp3", L"FP3"); };
}

std::function<void()> removeEntry(std::size_t records) {
  putCatalogue(records);
  return [path = platform::text::fromCodePage(recordPath(records / 2, records))] {
    // The first call removes the record; the later ones search the whole file just the same.
    modQMKGeneral::RemoveCatalogueEntry(path);
  };
}

std::function<void()> loadView(std::size_t records) {
  return [view = loadedView(records), records] {
    modQMKGeneral::LoadCatalogueView(view->catalogue);
    require(!view->dataList.text(records - 1).empty());
  };
}

std::function<void()> sortView(std::size_t records) {
  return [view = loadedView(records), records] {
    ListView& list = view->dataList;
    for (const std::size_t column : {modQMKGeneral::data_column::date, std::size_t{0}}) {
      list.setSortKey(static_cast<int>(column));
      require(!list.text(records - 1).empty());
    }
  };
}

std::function<void()> findRow(std::size_t records) {
  return [view = loadedView(records)] { require(!view->dataList.findRow(L"no such name", 0)); };
}

std::function<void()> find(std::size_t records) {
  auto view = loadedView(records);
  // A list searches the columns that it shows.
  constexpr int anyWidth = 1500;
  for (std::size_t column = 0; column < modQMKGeneral::data_column::type; ++column) {
    view->dataList.addColumn(L"Column", anyWidth);
  }
  return [view, records] {
    ListView& list = view->dataList;
    const std::wstring word = L"burn";
    for (std::size_t length = 1; length <= word.size(); ++length) {
      list.setFind(word.substr(0, length));
      require(list.rows() > 0 && list.rows() < records);
    }
    for (std::size_t length = word.size(); length-- > 0;) {
      list.setFind(word.substr(0, length));
      require(list.rows() > 0);
    }
    require(list.rows() == records);
  };
}

}  // namespace

const std::vector<Case>& cases() {
  static const std::vector<Case> all{
      {"read_records", readRecords}, {"drop_record", dropRecord},
      {"add_entry", addEntry},       {"remove_entry", removeEntry},
      {"load_view", loadView},       {"sort_view_twice", sortView},
      {"find_row", findRow},         {"find", find},
  };
  return all;
}

}  // namespace bench
