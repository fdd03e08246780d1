// Runs every operation of the web list on a file of arbitrary bytes. The input is the operation's
// letter, a line with a name, a line with an address, and the file.
#include <array>
#include <string>
#include <vector>

#include "fuzz/support/fuzz.h"
#include "listfile/list_file.h"
#include "platform/desktop.h"
#include "platform/text.h"
#include "web/control_ids.h"
#include "web/web_list.h"

using fuzz::require;
using fuzz::theDesktop;
using platform::text::fromCodePage;

namespace {

struct Lists {
  std::array<controls::ListView, 4> lists{
      controls::ListView{L"lstQMK", 1}, controls::ListView{L"lstQMK", 2},
      controls::ListView{L"lstQMK", 3}, controls::ListView{L"lstQMK", 4}};
  controls::TabControl tabs{L"TabMain", 5};
  controls::ImageList large;
  controls::ImageList small;
  modQMKGeneral::WebList web{lists, tabs, large, small};
};

using Items = std::vector<std::wstring>;

std::wstring item(const std::wstring& name, const std::wstring& url) { return name + L'\0' + url; }

/// The items that the list must show for a file.
Items expectedItems(const std::string& bytes) {
  Items items;
  list_file::Reader reader(bytes);
  for (list_file::Record record; reader.next(record);) {
    if (record.has(0)) {
      items.push_back(item(record.text(0), record.text(1)));
    }
  }
  return items;
}

Items shown(const Lists& lists) { return fuzz::itemsOf(lists.web.list(), 1); }

std::string recordOf(const std::wstring& name, const std::wstring& url) {
  return '"' + fuzz::asWritten(name) + "\",\"" + fuzz::asWritten(url) + "\"\r\n";
}

/// Name and address as they are read back from the file.
std::wstring readBack(const std::wstring& name, const std::wstring& url) {
  return item(fromCodePage(fuzz::asWritten(name)), fromCodePage(fuzz::asWritten(url)));
}

bool survive(const std::wstring& name, const std::wstring& url) {
  return fuzz::survives(name) && fuzz::survives(url);
}

void checkAppend(Lists& lists, const std::string& old, const std::wstring& name,
                 const std::wstring& url) {
  modQMKGeneral::AppendWebEntry(lists.web, name, url);
  require(fuzz::bytesOf(fuzz::webListFile) == fuzz::extended(old, recordOf(name, url)),
          "appending adds one record at the end");
  Items expected = expectedItems(old);
  if (survive(name, url)) {
    expected.push_back(readBack(name, url));
    require(shown(lists) == expected, "the list shows the new entry behind the old ones");
  }
}

void checkSave(Lists& lists, const std::wstring& name, const std::wstring& url) {
  modQMKGeneral::LoadWebList(lists.web);
  controls::ListView& list = lists.web.list();
  if (list.count() == 0) {
    return;
  }
  list.select(name.size() % list.count());
  const std::size_t selected = list.selectedItem();
  std::string expected;
  Items items = shown(lists);
  bool allSurvive = survive(name, url);
  for (std::size_t i = 0; i < list.count(); ++i) {
    const bool changed = i == selected;
    const std::wstring newName = changed ? name : list.text(i);
    const std::wstring newUrl = changed ? url : list.subItem(i, modQMKGeneral::urlColumn);
    expected += recordOf(newName, newUrl);
    allSurvive = allSurvive && survive(newName, newUrl);
  }
  modQMKGeneral::SaveWebList(lists.web, name, url);
  require(fuzz::bytesOf(fuzz::webListFile) == expected, "saving writes each item once, in order");
  if (allSurvive) {
    items[selected] = readBack(name, url);
    require(shown(lists) == items, "only the selected entry is another one");
  }
}

void checkDelete(Lists& lists, const std::string& old, const std::wstring& name) {
  std::string expected;
  list_file::Reader reader(old);
  for (list_file::Record record; reader.next(record);) {
    expected += record.has(0) && record.text(0) == name ? "" : record.line;
  }
  modQMKGeneral::DeleteWebEntry(lists.web, name);
  require(fuzz::bytesOf(fuzz::webListFile) == expected,
          "exactly the records of that name go, the others keep their bytes");
  modQMKGeneral::DeleteWebEntry(lists.web, name);
  require(fuzz::bytesOf(fuzz::webListFile) == expected, "deleting twice is deleting once");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const char operation = input.character();
  const std::wstring name = fuzz::wide(input.line());
  const std::wstring url = fuzz::wide(input.line());
  const std::string old(input.rest());
  fuzz::freshDesktop();
  theDesktop().putFile(fuzz::webListFile, old);
  theDesktop().putFile(fuzz::catalogueFile, "catalogue");
  Lists lists;
  for (const wchar_t* const caption : {L"Tools", L"Open", L"New", L"Web"}) {
    lists.tabs.addTab(caption);
  }
  lists.tabs.setCurrent(3);

  switch (operation) {
    case 'A':
      checkAppend(lists, old, name, url);
      break;
    case 'S':
      checkSave(lists, name, url);
      break;
    case 'D':
      checkDelete(lists, old, name);
      break;
    default:
      modQMKGeneral::LoadWebList(lists.web);
      require(shown(lists) == expectedItems(old), "the list shows each record once, in order");
      require(fuzz::bytesOf(fuzz::webListFile) == old, "showing changes nothing");
  }

  require(theDesktop().messages.empty(), "no bytes bring up a message");
  require(!theDesktop().has(fuzz::temporaryFile), "nothing is left behind");
  require(fuzz::bytesOf(fuzz::catalogueFile) == "catalogue", "the other list file is left alone");
  modQMKGeneral::LoadWebList(lists.web);
  require(shown(lists) == expectedItems(fuzz::bytesOf(fuzz::webListFile)),
          "what was written can be shown");
  return 0;
}
