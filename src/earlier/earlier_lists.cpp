#include "earlier/earlier_lists.h"

#include <unordered_set>
#include <utility>

#include "catalogue/catalogue_file.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "startup/paths.h"
#include "web/web_list.h"

namespace earlier_lists {

using list_file::Record;

namespace files = platform::files;

namespace {

/// Reads the entries of a list file one after the other.
class Entries {
 public:
  Entries(Which list, std::string_view bytes) : list_(list), reader_(bytes) {}
  /// False behind the last one. Lines that the lists do not show are passed over.
  bool next(Entry& entry) {
    for (Record record; reader_.next(record);) {
      if (list_ == Which::web ? web(record, entry) : dataFile(record, entry)) {
        return true;
      }
    }
    return false;
  }

 private:
  static bool web(const Record& record, Entry& entry) {
    record.text(0, entry.name);
    record.text(modQMKGeneral::urlColumn, entry.place);
    return record.has(0);
  }
  bool dataFile(const Record& record, Entry& entry) {
    constexpr std::size_t dateField = 2;
    record.text(modQMKGeneral::pathField, path_);
    const std::size_t nameStart = path_.rfind(L'\\') + 1;
    entry.name.assign(path_, nameStart);
    entry.place.assign(path_, 0, nameStart);
    record.text(dateField, entry.date);
    return !entry.name.empty() && !entry.place.empty();
  }
  Which list_;
  list_file::Reader reader_;
  std::wstring path_;
};

/// What tells one entry from the others.
std::wstring keyOf(Which list, const Entry& entry) {
  return list == Which::web ? entry.name + L'\n' + entry.place
                            : platform::text::upper(entry.place + entry.name);
}

std::unordered_set<std::wstring> keysOf(Which list, std::string_view bytes) {
  std::unordered_set<std::wstring> keys;
  Entries entries(list, bytes);
  for (Entry entry; entries.next(entry);) {
    keys.insert(keyOf(list, entry));
  }
  return keys;
}

}  // namespace

std::size_t countOf(Which list, std::string_view bytes) {
  std::size_t count = 0;
  Entries entries(list, bytes);
  for (Entry entry; entries.next(entry);) {
    ++count;
  }
  return count;
}

void compare(Which list, std::string_view earlier, std::string_view today,
             const std::function<void(const Entry& entry, Since since)>& take) {
  const std::unordered_set<std::wstring> now = keysOf(list, today);
  std::unordered_set<std::wstring> before;
  Entries ofEarlier(list, earlier);
  for (Entry entry; ofEarlier.next(entry);) {
    std::wstring key = keyOf(list, entry);
    take(entry, now.contains(key) ? Since::same : Since::removed);
    before.insert(std::move(key));
  }
  Entries ofToday(list, today);
  for (Entry entry; ofToday.next(entry);) {
    if (!before.contains(keyOf(list, entry))) {
      take(entry, Since::added);
    }
  }
}

std::wstring sizeText(std::uint64_t bytes) {
  constexpr std::uint64_t kilobyte = 1024;
  return bytes < kilobyte ? std::to_wstring(bytes) + (bytes == 1 ? L" byte" : L" bytes")
                          : std::to_wstring((bytes + kilobyte / 2) / kilobyte) + L" KB";
}

std::string contentsOf(const kept_lists::Copy& copy) {
  return files::readWhole(modQMKGeneral::BackupFolder() + L"\\" + copy.name).bytes;
}

void restore(Which list, const std::string& bytes, modQMKGeneral::ListKeeper& keeper,
             undo::Changes* forUndo) {
  // Inside the replacement: what is kept is exactly what is replaced, even if another program
  // writes the list in this moment.
  undo::rewriteList(
      kept_lists::pathOf(list), list_file::Missing::isEmpty,
      [&](const std::string& old) {
        if (!old.empty() && old != bytes) {
          keeper.keepNow(list, old);
        }
        return bytes;
      },
      list == Which::web ? modQMKGeneral::webEntryOf : modQMKGeneral::entryOf, forUndo);
}

}  // namespace earlier_lists
