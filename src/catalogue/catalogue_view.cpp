#include "catalogue/catalogue_view.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "catalogue/catalogue_file.h"
#include "catalogue/data_types.h"
#include "listfile/list_file.h"
#include "listfile/list_keeper.h"
#include "listfile/suite_lists.h"
#include "platform/dialogs.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

using controls::ListView;

namespace files = platform::files;

namespace {

/// The stage of the load, for the failure message.
using Location = const wchar_t*;

void setUpList(CatalogueView& view, Location& location) {
  ListView& list = view.dataList;
  location = L"1";
  list.clear();
  location = L"1a";
  list.setImages(&view.largeImages, list.smallImages());
  location = L"1b";
  list.setImages(list.largeImages(), &view.smallImages);
  location = L"1c";
  list.setView(controls::reportView);
  location = L"1d";
  list.setSortKey(0);
  location = L"1e";
  list.setSorted(true);
  location = L"1f";
  list.setSortOrder(controls::ascending);
}

/// Approximate number of lines, rather too high than too low. For a long file it is estimated from
/// the beginning.
std::size_t approximateLines(std::string_view bytes) {
  constexpr std::size_t sample = std::size_t{1} << 16U;
  const std::string_view front = bytes.substr(0, sample);
  const auto lines = static_cast<std::size_t>(std::count(front.begin(), front.end(), '\n')) + 1;
  return bytes.size() <= sample ? lines : bytes.size() / sample * (lines + lines / 64 + 1);
}

void addRecords(ListView& list, std::string_view bytes, Location& location) {
  constexpr DataType unknown;
  list.reserve(approximateLines(bytes));
  list_file::Reader reader(bytes);
  // Outside the loop to reuse their memory: otherwise a million records cost millions of
  // allocations.
  std::wstring path;
  std::wstring type;
  std::wstring date;
  for (list_file::Record record; reader.next(record);) {
    record.text(1, path);
    const std::size_t nameStart = path.rfind(L'\\') + 1;
    const std::wstring_view name = std::wstring_view(path).substr(nameStart);
    const std::wstring_view folder = std::wstring_view(path).substr(0, nameStart);
    if (name.empty() || folder.empty()) {
      continue;
    }
    location = L"3";
    list.add(name, {}, {});
    try {
      record.text(0, type);
      // Stages "4" to "6" test for the types, which cannot fail: no message would name them. An
      // unknown type has no picture and no label.
      const DataType* const known = typeOfCode(type);
      const DataType& shown = known == nullptr ? unknown : *known;
      location = L"7";
      record.text(2, date);
      list.completeLast(shown.picture, {date, shown.label, folder, type});
    } catch (...) {
      // An incomplete item would have no folder and lead to a wrong file.
      list.removeLast();
      throw;
    }
  }
}

void fill(CatalogueView& view, Location& location) {
  // Until the whole file is shown, the list matches no state of the file.
  view.shown = {};
  setUpList(view, location);
  location = L"2";
  if (!files::fileExists(cataloguePath())) {
    appendDataFolderRecords();
    if (!files::fileExists(cataloguePath())) {
      return;
    }
  }
  const files::Contents contents = files::readWhole(cataloguePath());
  listWasRead(kept_lists::Which::dataFiles, contents.stamp.size);
  addRecords(view.dataList, contents.bytes, location);
  view.shown = contents.stamp;
  location = L"8";
}

}  // namespace

void LoadCatalogueView(CatalogueView& view) {
  Location location = L"1";
  const auto failure = platform::trapped(
      [&] { view.dataList.rebuild(data_column::entry, [&] { fill(view, location); }); });
  if (failure) {
    listWasRead(kept_lists::Which::dataFiles, std::nullopt);
    showListFileProblem(std::wstring(L"Problem building QMK file list\rLocation: ") + location,
                        *failure);
  }
}

void AddNewFileItems(CatalogueView& view) {
  ListView& list = view.newFiles;
  list.update([&] {
    list.setImages(&view.largeImages, &view.smallImages);
    for (const DataType& type : dataTypes()) {
      list.add(type.newFile, type.picture, {type.code});
    }
  });
}

void watchCatalogue(CatalogueView& view) {
  if (view.ticking) {
    return;
  }
  const auto modified = files::modifiedTime(cataloguePath());
  if (!modified || *modified == view.lastSeen) {
    return;
  }
  struct Ticking {
    bool& flag;
    explicit Ticking(bool& f) : flag(f) { flag = true; }
    Ticking(const Ticking&) = delete;
    Ticking& operator=(const Ticking&) = delete;
    ~Ticking() { flag = false; }
  };
  const Ticking ticking(view.ticking);
  LoadCatalogueView(view);
  // The stamp from the reading counts, not the file's present one: the next tick must notice a
  // change made in between. If nothing could be read, the file's present time is used, so that the
  // message does not come back every second.
  if (view.shown.present) {
    view.lastSeen = view.shown.modified;
  } else {
    view.lastSeen = files::modifiedTime(cataloguePath()).value_or(view.lastSeen);
  }
}

}  // namespace modQMKGeneral
