#include "catalogue/catalogue_view.h"

#include <string>
#include <utility>

#include "catalogue/catalogue_file.h"
#include "catalogue/list_file.h"
#include "platform/dialogs.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "startup/paths.h"

namespace modQMKGeneral {

using controls::ListView;
using platform::RunTimeError;

namespace files = platform::files;

namespace {

/// Tells the failure message how far the load has come.
using Location = const wchar_t*;

/// Picture and label of a record by its type code; both empty for an unknown code.
std::pair<const wchar_t*, const wchar_t*> pictureAndLabel(const std::wstring& typeCode,
                                                          Location& location) {
  const std::wstring type = platform::text::upper(typeCode);
  location = L"4";
  if (type == L"FP3") {
    return {L"PV3", L"Fuel Profile"};
  }
  location = L"5";
  if (type == L"BS3") {
    return {L"BW3", L"Plotview Inventory"};
  }
  location = L"6";
  if (type == L"BI3") {
    return {L"BW3", L"Planar Intercept Inventory"};
  }
  if (type == L"CW3") {
    return {L"CW3", L"Canopy Weigh Inventory"};
  }
  return {L"", L""};
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

void addRecords(ListView& list, std::string_view bytes, Location& location) {
  list_file::Reader reader(bytes);
  for (list_file::Record record; reader.next(record);) {
    location = L"3";
    std::wstring name;
    std::wstring folder;
    SmodMisc::SplitPath(record.text(1), name, folder);
    if (name.empty() || folder.empty()) {
      continue;
    }
    std::wstring type = record.text(0);
    const auto [picture, label] = pictureAndLabel(type, location);
    location = L"7";
    list.add(
        {std::move(name), picture, {record.text(2), label, std::move(folder), std::move(type)}});
  }
}

std::wstring pathOf(const ListView& list, std::size_t index) {
  return list.subItem(index, data_column::folder) + list.text(index);
}

}  // namespace

void LoadCatalogueView(CatalogueView& view) {
  Location location = L"1";
  try {
    const ListView::KeepPlace keep(view.dataList, pathOf);
    setUpList(view, location);
    location = L"2";
    if (!files::fileExists(CatalogueFile())) {
      AppendDataFolderRecords();
      if (!files::fileExists(CatalogueFile())) {
        return;
      }
    }
    const files::Contents contents = files::readWhole(CatalogueFile());
    view.shown = contents.stamp;
    addRecords(view.dataList, contents.bytes, location);
    location = L"8";
  } catch (const RunTimeError& failure) {
    ShowListFileProblem(std::wstring(L"Problem building QMK file list\rLocation: ") + location,
                        failure);
  }
}

void AddNewFileItems(CatalogueView& view) {
  const ListView::Update update(view.newList);
  view.newList.setImages(&view.largeImages, &view.smallImages);
  view.newList.add({L"New Fuel Profile", L"PV3", {L"FP3"}});
  view.newList.add({L"New Planar Intercept", L"BW3", {L"BI3"}});
  view.newList.add({L"New Plotview Inventory", L"BW3", {L"BS3"}});
  view.newList.add({L"New Canopy Weigh Inventory", L"CW3", {L"CW3"}});
}

void WatchCatalogue(CatalogueView& view) {
  if (view.ticking || !files::fileExists(CatalogueFile())) {
    return;
  }
  if (files::modifiedTime(CatalogueFile()) == view.lastSeen) {
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
  view.shown = {};
  LoadCatalogueView(view);
  // What was read counts, not what the file is by now: a change made in between must be seen by
  // the next tick. Where nothing could be read, the file's time keeps the message from coming
  // back every second.
  if (view.shown.present) {
    view.lastSeen = view.shown.modified;
  } else if (files::fileExists(CatalogueFile())) {
    view.lastSeen = files::modifiedTime(CatalogueFile());
  }
}

}  // namespace modQMKGeneral
