// Runs every operation of the catalogue on a file of arbitrary bytes. The input consists of the
// operation's letter, a line with a path or name, and the file.
#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "fuzz/support/fuzz.h"
#include "listfile/list_file.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

using fuzz::require;
using fuzz::theDesktop;
using list_file::Record;
using platform::text::fromCodePage;
using platform::text::toCodePage;
using platform::text::upper;

namespace {

constexpr const wchar_t* dataFile = L"C:\\App\\data\\Ridge one.fp3";
const std::string dataRecords =
    "\"fp3\",\"C:\\App\\data\\Ridge one.fp3\",\"1/1/1601 12:00:01 AM\"\r\n"
    "\"cw3\",\"C:\\App\\data\\Crown.cw3\",\"1/1/1601 12:00:02 AM\"\r\n";
constexpr const char* today = "11/20/2026";

struct Lists {
  controls::ListView data{L"lstQMK", 1};
  controls::ListView fresh{L"lstQMK", 2};
  controls::ImageList large;
  controls::ImageList small;
};

/// The records of a file; they point into `bytes`.
std::vector<Record> recordsOf(const std::string& bytes) {
  std::vector<Record> records;
  list_file::Reader reader(bytes);
  for (Record record; reader.next(record);) {
    records.push_back(record);
  }
  return records;
}

std::wstring folderOf(const std::wstring& path) { return path.substr(0, path.rfind(L'\\') + 1); }

std::wstring withoutBlanks(std::wstring text) {
  while (text.ends_with(L' ')) {
    text.pop_back();
  }
  return text.substr(std::min(text.find_first_not_of(L' '), text.size()));
}

/// Runs an operation and returns the number of the error that it raises, 0 for none.
int numberOf(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const platform::RunTimeError& failure) {
    return failure.number();
  }
  return 0;
}

void checkAdd(const std::string& old, const std::wstring& path) {
  modQMKGeneral::AddOrUpdateCatalogueEntry(path, L"CW3");
  const std::string bytes = fuzz::bytesOf(fuzz::catalogueFile);
  const std::vector<Record> before = recordsOf(old);
  const std::vector<std::string> after = fuzz::linesOf(bytes);
  const std::wstring wanted = upper(path);
  const std::wstring stored = upper(fromCodePage(toCodePage(path)));
  const std::string written = fuzz::asWritten(path);
  bool found = false;
  require(after.size() >= before.size(), "adding drops no record");
  for (std::size_t i = 0; i < before.size(); ++i) {
    const std::wstring listed = upper(before[i].text(1));
    if (before[i].has(1) && (listed == wanted || listed == stored)) {
      found = true;
      const std::string stamped = '"' + std::string(before[i].fields[0]) + "\",\"" + written +
                                  "\",\"" + today + '"' + std::string(before[i].rest) + "\r\n";
      require(after[i] == stamped, "a found record gets path and date and keeps the rest");
    } else if (i + 1 < before.size()) {
      require(after[i] == before[i].line, "another record keeps its bytes");
    } else {
      require(after[i].starts_with(before[i].line), "the last record keeps its bytes");
    }
  }
  const std::string added = "\"CW3\",\"" + written + "\",\"" + today + "\"\r\n";
  require(after.size() == before.size() + (found ? 0 : 1), "a path is added once");
  require(found || bytes == fuzz::extended(old, added), "a new record stands at the end");
  if (fuzz::survives(path)) {
    modQMKGeneral::AddOrUpdateCatalogueEntry(path, L"CW3");
    const std::vector<Record> again = recordsOf(bytes);
    const bool twice = std::any_of(again.begin(), again.end(), [&written](const Record& record) {
      return record.has(1) && record.fields[1] == written;
    });
    require(twice, "what is added is read back");
    // A type code with a quote in it may destroy the path of its own record, but of no other.
    if (old.find('"') == std::string::npos || !found) {
      require(fuzz::bytesOf(fuzz::catalogueFile) == bytes, "adding twice is adding once");
    }
  }
}

void checkRemove(const std::string& old, const std::wstring& path) {
  const bool wasThere = theDesktop().bytesOf(path).has_value();
  const int failure = numberOf([&path] { modQMKGeneral::RemoveCatalogueEntry(path); });
  std::string expected;
  for (const Record& record : recordsOf(old)) {
    expected += record.has(1) && record.text(1) == path ? "" : record.line;
  }
  // Only a pattern can be found and still not be deleted.
  require(failure == 0 || path.find_first_of(L"*?") != std::wstring::npos,
          "removing ends without an error");
  require(failure != 0 || !wasThere || !theDesktop().has(path), "the data file itself goes");
  if (upper(path).find(L"QMKFILELIST3") == std::wstring::npos) {
    require(fuzz::bytesOf(fuzz::catalogueFile) == expected,
            "exactly the records of that path go, the others keep their bytes");
  }
}

std::string withoutDataFolder(const std::string& old) {
  std::string kept;
  for (const Record& record : recordsOf(old)) {
    const std::wstring folder = withoutBlanks(upper(folderOf(record.text(1))));
    kept += folder == L"C:\\APP\\DATA\\" ? "" : record.line;
  }
  return kept;
}

void checkRefresh(const std::string& old, modQMKGeneral::CatalogueView& view) {
  modQMKGeneral::RefreshDataFolderEntries(view);
  const std::string bytes = fuzz::bytesOf(fuzz::catalogueFile);
  require(bytes == fuzz::extended(withoutDataFolder(old), dataRecords),
          "files elsewhere keep their records, the data folder's come behind them");
  modQMKGeneral::RefreshDataFolderEntries(view);
  require(fuzz::bytesOf(fuzz::catalogueFile) == bytes, "refreshing twice is refreshing once");
}

/// The items that the list has to show, in no particular order.
std::vector<std::wstring> expectedItems(const std::string& bytes) {
  std::vector<std::wstring> items;
  for (const Record& record : recordsOf(bytes)) {
    const std::wstring path = record.text(1);
    const std::wstring folder = folderOf(path);
    const std::wstring name = path.substr(folder.size());
    if (!folder.empty() && !name.empty()) {
      std::wstring item = name;
      for (const std::wstring& column : {record.text(2), folder, record.text(0)}) {
        item += L'\0';
        item += column;
      }
      items.push_back(std::move(item));
    }
  }
  std::sort(items.begin(), items.end());
  return items;
}

/// The items of the list itself, without the label, which must be one of the five.
std::vector<std::wstring> shownItems(const controls::ListView& list) {
  std::vector<std::wstring> items;
  for (std::size_t i = 0; i < list.count(); ++i) {
    const std::wstring type = upper(list.subItem(i, 4));
    const bool known = type == L"FP3" || type == L"BS3" || type == L"BI3" || type == L"CW3";
    require(list.subItem(i, 2).empty() != known && list.icon(i).empty() != known,
            "a known type has picture and label, another has none");
    require(i == 0 || upper(list.text(i - 1)) <= upper(list.text(i)), "the list is sorted");
    items.push_back(list.text(i) + L'\0' + list.subItem(i, 1) + L'\0' + list.subItem(i, 3) + L'\0' +
                    list.subItem(i, 4));
  }
  std::sort(items.begin(), items.end());
  return items;
}

void checkLoad(modQMKGeneral::CatalogueView& view) {
  modQMKGeneral::LoadCatalogueView(view);
  require(theDesktop().messages.empty(), "any bytes can be shown");
  require(shownItems(view.dataList) == expectedItems(fuzz::bytesOf(fuzz::catalogueFile)),
          "the list shows each record with a folder and a name once");
}

/// Checks that the in-memory disk has renamed the file: it is at the new path and nowhere else.
/// Both paths may be spellings of one place, with other letter case, slashes, blanks or dots. In
/// that case, what is written to one is read from the other.
void checkMoved(const std::wstring& oldPath, const std::string& contents) {
  const std::wstring from = L"rename " + oldPath + L" -> ";
  const std::vector<std::wstring>& journal = theDesktop().journal();
  const auto line =
      std::find_if(journal.begin(), journal.end(),
                   [&from](const std::wstring& entry) { return entry.starts_with(from); });
  require(line != journal.end(), "the disk is asked for the rename");
  const std::wstring newPath = line->substr(from.size());
  require(theDesktop().bytesOf(newPath) == contents, "the data file has its new name");
  const std::string other = contents + contents;
  theDesktop().putFile(newPath, other);
  require(!theDesktop().has(oldPath) || theDesktop().bytesOf(oldPath) == other,
          "the data file has no longer its old name");
}

void checkRename(const std::string& old, modQMKGeneral::CatalogueView& view,
                 const std::wstring& newName) {
  modQMKGeneral::LoadCatalogueView(view);
  controls::ListView& list = view.dataList;
  if (list.count() == 0) {
    return;
  }
  list.select(newName.size() % list.count());
  const std::size_t selected = list.selectedItem();
  const std::wstring folder = list.subItem(selected, 3);
  const std::wstring path = folder + list.text(selected);
  const std::wstring oldPath = folder + L"\\" + list.text(selected);
  const std::string contents = "data";
  // Some paths name nothing, or something else after the backslash that the program adds, or the
  // catalogue itself.
  if (numberOf([&] { theDesktop().putFile(path, contents); }) != 0 ||
      theDesktop().bytesOf(oldPath) != contents || fuzz::bytesOf(fuzz::catalogueFile) != old) {
    return;
  }
  theDesktop().clearJournal();
  std::vector<std::wstring> items = fuzz::itemsOf(list, 4);
  const std::size_t count = list.count();
  modQMKGeneral::RenameCatalogueFile(view, newName);
  if (!theDesktop().messages.empty()) {
    theDesktop().messages.clear();
    require(fuzz::bytesOf(fuzz::catalogueFile) == old, "a rename that fails changes no record");
    return;
  }
  checkMoved(oldPath, contents);
  const std::string bytes = fuzz::bytesOf(fuzz::catalogueFile);
  require(fuzz::linesOf(bytes).size() == count, "each item is one record");
  if (old.find('"') != std::string::npos || !fuzz::survives(newName)) {
    return;
  }
  // All items but the renamed one are unchanged.
  items.erase(items.begin() + static_cast<std::ptrdiff_t>(selected));
  const std::vector<std::wstring> now = fuzz::itemsOf(list, 4);
  require(now.size() == count, "each record is listed again");
  std::size_t kept = 0;
  for (const std::wstring& item : now) {
    const auto found = std::find(items.begin(), items.end(), item);
    if (found != items.end()) {
      items.erase(found);
      ++kept;
    }
  }
  require(kept + 1 >= count, "a rename changes one item");
}

void run(char operation, const std::wstring& path, const std::string& old,
         modQMKGeneral::CatalogueView& view) {
  switch (operation) {
    case 'A':
      return checkAdd(old, path);
    case 'R':
      return checkRemove(old, path);
    case 'F':
      return checkRefresh(old, view);
    case 'N':
      return checkRename(old, view, path);
    case 'B':
      modQMKGeneral::BuildCatalogue(view);
      require(fuzz::bytesOf(fuzz::catalogueFile) == fuzz::extended(old, dataRecords),
              "building only adds");
      return;
    default:
      checkLoad(view);
      require(fuzz::bytesOf(fuzz::catalogueFile) == old, "showing changes nothing");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr platform::files::FileTime second = 10'000'000;
  fuzz::Input input(bytes, size);
  const char operation = input.character();
  const std::wstring path = fuzz::wide(input.line());
  const std::string old(input.rest());
  fuzz::freshDesktop();
  theDesktop().putFile(dataFile, "profile", platform::files::normal, second);
  theDesktop().putFile(L"C:\\App\\data\\Crown.cw3", "crown", platform::files::normal, 2 * second);
  theDesktop().putFile(fuzz::webListFile, "web");
  theDesktop().putFile(fuzz::catalogueFile, old);
  Lists lists;
  modQMKGeneral::CatalogueView view{lists.data, lists.fresh, lists.large, lists.small};

  run(operation, path, old, view);

  require(theDesktop().messages.empty(), "no bytes bring up a message");
  require(!theDesktop().has(fuzz::temporaryFile) || upper(path).find(L"QMK") != std::wstring::npos,
          "nothing is left behind");
  if (operation != 'R' && operation != 'N') {
    require(fuzz::bytesOf(fuzz::webListFile) == "web", "the other list file is left alone");
    require(fuzz::bytesOf(dataFile) == "profile", "data files are left alone");
    // The list must be able to show everything that was written.
    if (theDesktop().has(fuzz::catalogueFile)) {
      checkLoad(view);
    }
  }
  return 0;
}
