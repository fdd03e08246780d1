#include "catalogue/catalogue_view.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "catalogue/catalogue_file.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "platform/dialogs.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

using controls::ListView;

namespace files = platform::files;

namespace {

/// Tells the failure message how far the load has come.
using Location = const wchar_t*;

/// How the view shows a type of data file.
struct Kind {
  std::wstring_view picture;
  std::wstring_view label;
};

/// Picture and label of a record by its type code; both empty for an unknown code.
Kind kindOf(std::wstring_view typeCode, Location& location) {
  const auto is = [typeCode](std::wstring_view type) {
    return platform::text::upperEquals(typeCode, type);
  };
  location = L"4";
  if (is(L"FP3")) {
    return {L"PV3", L"Fuel Profile"};
  }
  location = L"5";
  if (is(L"BS3")) {
    return {L"BW3", L"Plotview Inventory"};
  }
  location = L"6";
  if (is(L"BI3")) {
    return {L"BW3", L"Planar Intercept Inventory"};
  }
  if (is(L"CW3")) {
    return {L"CW3", L"Canopy Weigh Inventory"};
  }
  return {};
}

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

/// About as many lines as there are, rather a few more; the beginning of a long file stands for
/// all.
std::size_t approximateLines(std::string_view bytes) {
  constexpr std::size_t sample = std::size_t{1} << 16U;
  const std::string_view front = bytes.substr(0, sample);
  const auto lines = static_cast<std::size_t>(std::count(front.begin(), front.end(), '\n')) + 1;
  return bytes.size() <= sample ? lines : bytes.size() / sample * (lines + lines / 64 + 1);
}

void addRecords(ListView& list, std::string_view bytes, Location& location) {
  list.reserve(approximateLines(bytes));
  list_file::Reader reader(bytes);
  // Outside the loop, so that a million records are not as many allocations.
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
      const Kind kind = kindOf(type, location);
      location = L"7";
      record.text(2, date);
      list.completeLast(kind.picture, {date, kind.label, folder, type});
    } catch (...) {
      // Half an item would lead to a file in no folder.
      list.removeLast();
      throw;
    }
  }
}

void fill(CatalogueView& view, Location& location) {
  // Until all of it is shown, what is shown is no state of the file.
  view.shown = {};
  setUpList(view, location);
  location = L"2";
  if (!files::fileExists(CatalogueFile())) {
    AppendDataFolderRecords();
    if (!files::fileExists(CatalogueFile())) {
      return;
    }
  }
  const files::Contents contents = files::readWhole(CatalogueFile());
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
    ShowListFileProblem(std::wstring(L"Problem building QMK file list\rLocation: ") + location,
                        *failure);
  }
}

void AddNewFileItems(CatalogueView& view) {
  ListView& list = view.newList;
  list.update([&] {
    list.setImages(&view.largeImages, &view.smallImages);
    list.add(L"New Fuel Profile", L"PV3", {L"FP3"});
    list.add(L"New Planar Intercept", L"BW3", {L"BI3"});
    list.add(L"New Plotview Inventory", L"BW3", {L"BS3"});
    list.add(L"New Canopy Weigh Inventory", L"CW3", {L"CW3"});
  });
}

void WatchCatalogue(CatalogueView& view) {
  if (view.ticking) {
    return;
  }
  const auto modified = files::modifiedTime(CatalogueFile());
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
  // What was read counts, not what the file is by now: a change made in between must be seen by
  // the next tick. Where nothing could be read, the file's time keeps the message from coming
  // back every second.
  if (view.shown.present) {
    view.lastSeen = view.shown.modified;
  } else {
    view.lastSeen = files::modifiedTime(CatalogueFile()).value_or(view.lastSeen);
  }
}

}  // namespace modQMKGeneral
