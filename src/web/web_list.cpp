#include "web/web_list.h"

#include <utility>

#include "listfile/list_file.h"
#include "listfile/list_keeper.h"
#include "listfile/suite_lists.h"
#include "platform/controls/item_key.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

using controls::ListView;
using list_file::Missing;
using list_file::Reader;
using list_file::Record;
using platform::trapped;
using platform::text::toCodePage;

namespace files = platform::files;

namespace {

/// All items of a list as the contents of the file.
std::string recordsOf(const ListView& list) {
  std::string bytes;
  for (std::size_t index = 0; index < list.count(); ++index) {
    bytes += webRecord(list.text(index), list.subItem(index, urlColumn));
  }
  return bytes;
}

void fill(WebList& web) {
  web.list().clear();
  web.list().setImages(&web.largeImages, &web.smallImages);
  web.list().setView(controls::reportView);
  if (!files::fileExists(webListPath())) {
    return;
  }
  const files::Contents contents = files::readWhole(webListPath());
  listWasRead(kept_lists::Which::web, contents.stamp.size);
  Reader reader(contents.bytes);
  for (Record record; reader.next(record);) {
    if (record.has(0)) {
      web.list().add(record.text(0), L"Web", {record.text(1)});
    }
  }
}

}  // namespace

std::optional<std::wstring> webEntryOf(const Record& record) {
  return record.has(urlColumn) ? std::optional(record.text(0) + L'\n' + record.text(urlColumn))
                               : std::nullopt;
}

std::wstring webListPath() { return AppFolder() + L"\\QMKWebList.txt"; }

void LoadWebList(WebList& web) {
  const auto failure = trapped([&web] { web.list().rebuild(webEntry, [&web] { fill(web); }); });
  if (failure) {
    listWasRead(kept_lists::Which::web, std::nullopt);
    showListFileProblem(L"Problem reading Web file list", *failure);
  }
}

void AppendWebEntry(WebList& web, const std::wstring& name, const std::wstring& url,
                    undo::Changes* forUndo) {
  undo::rewriteList(
      webListPath(), Missing::isEmpty,
      [&](std::string bytes) {
        list_file::append(bytes, webRecord(name, url));
        return bytes;
      },
      webEntryOf, forUndo);
  LoadWebList(web);
}

bool SaveWebList(WebList& web, const std::wstring& name, const std::wstring& url,
                 undo::Changes* forUndo) {
  ListView& list = web.lists.at(static_cast<std::size_t>(web.tabs.current()));
  if (!web.list().whole()) {
    // A list that could not be read completely must not be written to the file.
    LoadWebList(web);
  }
  if (!web.list().whole() || !controls::selectionIsChosen(list)) {
    return false;
  }
  list.update([&] {
    // Between the two calls a sorted list may move the item.
    list.setText(list.selectedItem(), name);
    list.setSubItem(list.selectedItem(), urlColumn, url);
  });
  const auto failure = trapped([&] {
    // The file gets the contents of the list, whatever the file contains.
    undo::overwriteList(webListPath(), recordsOf(list), webEntryOf, forUndo);
    LoadWebList(web);
  });
  if (failure) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
  }
  return true;
}

std::string webRecord(const std::wstring& name, const std::wstring& url) {
  return list_file::line({toCodePage(name), toCodePage(url)});
}

std::optional<list_file::Merged> addWebRecords(WebList& web, const std::string& bytes,
                                               undo::Changes* forUndo) {
  return undo::addRecords(
      webListPath(), bytes, webEntryOf, [&web] { LoadWebList(web); }, forUndo);
}

std::string shownWebRecords(const ListView& list) {
  std::string bytes;
  for (std::size_t row = 0; row < list.rows(); ++row) {
    const std::size_t item = list.itemOfRow(row);
    bytes += webRecord(list.text(item), list.subItem(item, urlColumn));
  }
  return bytes;
}

void DeleteWebEntry(WebList& web, const std::wstring& name, undo::Changes* forUndo) {
  undo::rewriteList(
      webListPath(), Missing::isError,
      [&](std::string old) {
        return list_file::filtered(std::move(old), [&name](const Record& record) {
          return !record.has(0) || record.text(0) != name;
        });
      },
      webEntryOf, forUndo);
  LoadWebList(web);
}

}  // namespace modQMKGeneral
