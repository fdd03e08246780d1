#include "platform/recycle_bin.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/drives.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/deletion.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"
#include "platform/win32/shell/bin_folder.h"

namespace platform::recycle_bin {
namespace {

using win32::BinFolder;
using win32::BinText;

/// What a function that writes a path into a buffer returns for `path`; "" when it fails.
template <class Function>
std::wstring pathBy(Function function) {
  std::wstring result(MAX_PATH, L'\0');
  const DWORD length = function(result.data(), static_cast<DWORD>(result.size()));
  result.resize(length < result.size() ? length : 0);
  return result;
}

/// The path in the only form that the shell's operations take: full, short, without a prefix.
/// Nothing for a path that has no such form, or that they would take for another one.
std::optional<std::wstring> shellPath(const std::wstring& path) {
  const std::wstring ordinary = win32::ordinaryPath(path);
  // The shell would delete everything that a wildcard fits.
  if (win32::hasEmbeddedNul(path) || ordinary.find_first_of(L"*?") != std::wstring::npos) {
    return std::nullopt;
  }
  std::wstring full = pathBy([&ordinary](wchar_t* result, DWORD room) {
    return GetFullPathNameW(ordinary.c_str(), room, result, nullptr);
  });
  // Only the extended form can name a file whose name ends in a dot or a blank.
  if (full.empty() || (ordinary != path && full != ordinary)) return std::nullopt;
  return full;
}

/// The bin of an item's drive.
BinFolder binOf(const std::wstring& path) {
  const std::optional<std::wstring> full = shellPath(path);
  return full ? BinFolder(drives::rootOf(*full)) : BinFolder();
}

/// A path's folder and name, for comparisons with what the bin tells.
class Place {
 public:
  explicit Place(const std::wstring& full)
      : folder_(text::upper(full.substr(0, full.find_last_of(L'\\')))),
        name_(text::upper(full.substr(full.find_last_of(L'\\') + 1))),
        stem_(name_.substr(0, name_.find_last_of(L'.'))) {
    // The shell may know a share of this machine by the path on its drive.
    if (folder_.starts_with(L"\\\\")) belowRoot_ = folder_.substr(drives::rootOf(folder_).size());
  }
  [[nodiscard]] bool isFolder(std::wstring_view folder) const {
    return text::upperEquals(folder, folder_) ||
           (belowRoot_ && folder.size() >= rootSize && folder[1] == L':' &&
            text::upperEquals(folder.substr(rootSize), *belowRoot_));
  }
  [[nodiscard]] bool isName(std::wstring_view name) const {
    return text::upperEquals(name, name_) || text::upperEquals(name, stem_);
  }

 private:
  static constexpr std::size_t rootSize = 2;
  std::wstring folder_;
  std::wstring name_;
  std::wstring stem_;
  std::optional<std::wstring> belowRoot_;
};

/// Both names of a file that has two of them: the shell may remember either.
std::vector<Place> placesOf(const std::wstring& full) {
  std::vector<Place> places{Place(full)};
  const std::wstring longForm = pathBy([&full](wchar_t* result, DWORD room) {
    return GetLongPathNameW(full.c_str(), result, room);
  });
  if (!longForm.empty() && longForm != full) places.emplace_back(longForm);
  return places;
}

using Ids = std::set<std::string, std::less<>>;

/// What is in the bin; nothing if it cannot be read.
std::optional<Ids> idsIn(const BinFolder& bin) {
  Ids ids;
  BinText room{};
  const bool read = bin.each([&](const ITEMIDLIST& item) {
    ids.emplace(bin.idOf(item, room));
    return true;
  });
  return read ? std::optional(std::move(ids)) : std::nullopt;
}

/// Whether a file may be deleted, as a Windows error code. The shell would not say why it cannot,
/// and it would take a folder, too.
DWORD deletable(const std::wstring& native) {
  constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const win32::FileHandle file(CreateFileW(native.c_str(), DELETE, everybody, nullptr,
                                           OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  return file ? ERROR_SUCCESS : GetLastError();
}

/// A Windows error code for a result of the shell's operation, which has numbers of its own.
DWORD systemError(int result) {
  constexpr int ownFirst = 0x71;
  constexpr int ownLast = 0x88;
  constexpr int ownTooLong = 0xB7;
  constexpr int ownUnknown = 0x402;
  constexpr int noRight = 0x78;
  if (result == noRight) return ERROR_ACCESS_DENIED;
  // An operation that ended without a reason has met somebody who uses the file.
  const bool own = (result >= ownFirst && result <= ownLast) || result == ownTooLong ||
                   result >= ownUnknown || result == 0;
  return own ? ERROR_SHARING_VIOLATION : static_cast<DWORD>(result);
}

/// Lets the shell delete a file. Returns a Windows error code.
DWORD deleteByShell(const std::wstring& full) {
  std::wstring list = full;
  list.push_back(L'\0');  // a list ends in two of them
  SHFILEOPSTRUCTW order{};
  order.wFunc = FO_DELETE;
  order.pFrom = list.c_str();
  // A web page is to go without the folder of its pictures, as with `files::remove`.
  order.fFlags = FOF_ALLOWUNDO | FOF_NO_UI | FOF_NO_CONNECTED_ELEMENTS | FOF_NORECURSION;
  const int result = SHFileOperationW(&order);
  const bool gone = GetFileAttributesW(full.c_str()) == INVALID_FILE_ATTRIBUTES;
  return gone ? ERROR_SUCCESS : systemError(result);
}

/// Finds the item that is new in the bin and was at one of the places; sets `id` to what it has.
bool findNew(const BinFolder& bin, const Ids& before, const std::vector<Place>& places,
             std::string& id) {
  bool found = false;
  BinText idRoom{};
  BinText room{};
  static_cast<void>(bin.each([&](const ITEMIDLIST& item) {
    const std::string_view its = bin.idOf(item, idRoom);
    found =
        !before.contains(its) && std::any_of(places.begin(), places.end(), [&](const Place& place) {
          return place.isFolder(bin.folderOf(item, room)) && place.isName(bin.nameOf(item, room));
        });
    if (found) id = its;
    return !found;
  }));
  return found;
}

/// Passes the item to `use` if the bin has it. Returns whether it has it.
template <class Use>
bool withItem(const Item& item, Use use) {
  const BinFolder bin = binOf(item.path);
  bool found = false;
  BinText room{};
  static_cast<void>(bin.each([&](const ITEMIDLIST& its) {
    found = !item.id.empty() && bin.idOf(its, room) == item.id;
    if (found) use(bin, its);
    return !found;
  }));
  return found;
}

/// Waits for a file that the shell has put back; it may not be there at once.
bool appears(const std::wstring& path) {
  constexpr DWORD patienceMilliseconds = 2000;
  constexpr DWORD pauseMilliseconds = 20;
  const DWORD begin = GetTickCount();
  bool there = files::entryAt(path).has_value();
  while (!there && GetTickCount() - begin < patienceMilliseconds) {
    Sleep(pauseMilliseconds);
    there = files::entryAt(path).has_value();
  }
  return there;
}

/// Folder of a path, in the form for the file functions.
bool hasFolder(const std::wstring& path) {
  const std::optional<std::wstring> folder =
      win32::nativePath(path.substr(0, path.find_last_of(L"\\/") + 1));
  const DWORD found = folder ? GetFileAttributesW(folder->c_str()) : INVALID_FILE_ATTRIBUTES;
  return found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

std::optional<Item> recycle(const std::wstring& path) {
  const BinFolder bin = binOf(path);
  const std::optional<Ids> before = idsIn(bin);
  if (!before) {
    files::remove(path);
    return std::nullopt;
  }
  // All memory is taken before the file goes: without it, nobody would know what is in the bin.
  constexpr std::size_t roomForId = 4096;
  const std::wstring full = shellPath(path).value();
  const std::vector<Place> places = placesOf(full);
  std::optional<Item> item = Item{path, {}};
  item->id.reserve(roomForId);
  concerning(path, [&] {
    const std::wstring native = win32::requiredPath(path);
    win32::deleteBy(native, [&] {
      const DWORD refusal = deletable(native);
      return refusal != ERROR_SUCCESS ? refusal : deleteByShell(full);
    });
  });
  bool found = false;
  const auto failure = trapped([&] { found = findNew(bin, *before, places, item->id); });
  if (failure || !found) item.reset();
  return item;
}

bool holds(const Item& item) {
  return withItem(item, [](const BinFolder&, const ITEMIDLIST&) {});
}

void restore(const Item& item) {
  bool put = false;
  const bool found = withItem(item, [&](const BinFolder& bin, const ITEMIDLIST& its) {
    if (files::entryAt(item.path)) raiseAbout(item.path, error::fileExists);
    // The shell would make the folder again.
    if (!hasFolder(item.path)) raiseAbout(item.path, error::pathNotFound);
    put = bin.putBack(its);
  });
  if (!found) raiseAbout(item.path, error::fileNotFound);
  if (!put || !appears(item.path)) raiseAbout(item.path, error::deviceError);
}

}  // namespace platform::recycle_bin
