#include "platform/files.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/drives.h"
#include "platform/text.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/deletion.h"
#include "platform/win32/files/open_files.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"

namespace platform::files {

using win32::existingAttributes;
using win32::outcome;
using win32::raise;
using win32::requiredPath;
using win32::whileShared;

namespace {

constexpr DWORD kindsToAskFor =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY;

bool isWanted(const WIN32_FIND_DATAW& found, unsigned attributes) {
  if ((found.dwFileAttributes & kindsToAskFor & ~attributes) != 0) return false;
  const std::wstring_view name = found.cFileName;
  return name != L"." && name != L"..";
}

/// Passes each matching entry to `take`, until that returns false.
template <class Take>
void searchWith(const std::wstring& pattern, unsigned attributes, FINDEX_INFO_LEVELS level,
                Take take) {
  // Without a last component there is nothing to search for.
  if (pattern.empty() || pattern.back() == L'\\' || pattern.back() == L'/') return;
  const std::optional<std::wstring> native = win32::nativePath(pattern);
  if (!native) return;
  WIN32_FIND_DATAW found{};
  const win32::FindHandle search(
      FindFirstFileExW(native->c_str(), level, &found, FindExSearchNameMatch, nullptr, 0));
  if (!search) return;
  do {
    if (isWanted(found, attributes) && !take(found)) return;
  } while (FindNextFileW(search.get(), &found) != 0);
}

/// Whether `path` is a simple one below a drive's root. For such paths the attributes give the same
/// answer as a search.
bool canBeAskedFor(std::wstring_view path) {
  constexpr std::size_t root = 3;
  return path.size() > root && path[1] == L':' && path[2] == L'\\' &&
         path.find_first_of(L"*?<>\"") == std::wstring_view::npos && path.back() != L'\\' &&
         path.back() != L'/' && path.back() != L'.';
}

/// Whether a search would find the path. Where possible it queries only the attributes, without
/// opening the folder. That saves round trips under Wine: row `start.splash` of ./bench includes it
/// (docs/performance.md, "Start"); no row measures it alone. On real Windows it may save little.
bool exists(const std::wstring& path, unsigned attributes) {
  if (canBeAskedFor(path)) {
    const std::optional<std::wstring> native = win32::nativePath(path);
    if (!native) return false;
    const DWORD found = GetFileAttributesW(native->c_str());
    if (found != INVALID_FILE_ATTRIBUTES) return (found & kindsToAskFor & ~attributes) == 0;
    const DWORD reason = GetLastError();
    if (reason == ERROR_FILE_NOT_FOUND || reason == ERROR_PATH_NOT_FOUND) return false;
  }
  return !findFirst(path, attributes).empty();
}

/// Raises an error for a read-only file. The system's own check would let a user with special
/// privileges pass.
void refuseReadOnly(const std::wstring& native) {
  win32::refuseProtected(GetFileAttributesW(native.c_str()));
}

/// Whether the target is the reason why a copy or a rename failed (the source exists): the name is
/// taken or impossible, the folder is missing, the disk is full.
bool isAboutTarget(DWORD systemError) {
  constexpr std::array reasons{DWORD{ERROR_FILE_EXISTS},      DWORD{ERROR_ALREADY_EXISTS},
                               DWORD{ERROR_PATH_NOT_FOUND},   DWORD{ERROR_INVALID_NAME},
                               DWORD{ERROR_HANDLE_DISK_FULL}, DWORD{ERROR_DISK_FULL}};
  return std::find(reasons.begin(), reasons.end(), systemError) != reasons.end();
}

/// A new file that is gone as soon as the handle is closed; an empty handle (see the thread's last
/// error) when it cannot be made.
win32::FileHandle madeForAMoment(const std::wstring& native) {
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return win32::FileHandle(CreateFileW(
      native.c_str(), GENERIC_WRITE | DELETE, shared, nullptr, CREATE_NEW,
      FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
}

}  // namespace

namespace {

Entry entryOf(const WIN32_FIND_DATAW& found) {
  constexpr unsigned halfBits = 32;
  const bool folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const std::uint64_t size =
      (std::uint64_t{found.nFileSizeHigh} << halfBits) | std::uint64_t{found.nFileSizeLow};
  return {found.cFileName, win32::fileTime(found.ftLastWriteTime), found.cAlternateFileName,
          folder ? 0 : size};
}

}  // namespace

std::vector<Entry> search(const std::wstring& pattern, unsigned attributes) {
  std::vector<Entry> entries;
  searchWith(pattern, attributes, FindExInfoBasic, [&entries](const WIN32_FIND_DATAW& found) {
    entries.push_back(entryOf(found));
    return true;
  });
  return entries;
}

std::vector<std::vector<Entry>> searchByExtension(const std::wstring& folder,
                                                  const std::vector<std::wstring>& extensions) {
  std::vector<std::vector<Entry>> found(extensions.size());
  std::vector<std::wstring> endings;
  endings.reserve(extensions.size());
  for (const std::wstring& extension : extensions) {
    endings.push_back(text::upper(L"." + extension));
  }
  const auto endsIn = [](std::wstring_view name, std::wstring_view ending) {
    return name.size() >= ending.size() &&
           text::upperEquals(name.substr(name.size() - ending.size()), ending);
  };
  // Short names too, because a search with a wildcard matches either name of a file.
  searchWith(folder + L"\\*", normal, FindExInfoStandard, [&](const WIN32_FIND_DATAW& entry) {
    for (std::size_t n = 0; n < endings.size(); ++n) {
      if (endsIn(entry.cFileName, endings[n]) || endsIn(entry.cAlternateFileName, endings[n])) {
        found[n].push_back(entryOf(entry));
      }
    }
    return true;
  });
  return found;
}

std::optional<Entry> entryAt(const std::wstring& path) {
  constexpr std::wstring_view longForm = LR"(\\?\)";
  const std::size_t begin = path.starts_with(longForm) ? longForm.size() : 0;
  // A search would take these as wildcards.
  if (path.find_first_of(L"*?<>\"", begin) != std::wstring::npos) return std::nullopt;
  std::optional<Entry> entry;
  searchWith(path, kindsToAskFor, FindExInfoStandard, [&entry](const WIN32_FIND_DATAW& found) {
    entry = entryOf(found);
    return false;
  });
  return entry;
}

std::wstring shortNameOfNew(const std::wstring& path) {
  return concerning(path, [&path] {
    const win32::FileHandle made = madeForAMoment(requiredPath(path));
    if (!made) raise(GetLastError());
    const std::optional<Entry> entry = entryAt(path);
    return entry ? entry->shortName : std::wstring();
  });
}

bool mayWriteTo(const std::wstring& folder) {
  const std::optional<std::wstring> native = win32::nativePath(folder + L"\\gateway3.tmp");
  if (!native || madeForAMoment(*native)) return true;
  const DWORD reason = GetLastError();
  return reason != ERROR_ACCESS_DENIED && reason != ERROR_WRITE_PROTECT;
}

std::wstring findFirst(const std::wstring& pattern, unsigned attributes) {
  std::wstring first;
  searchWith(pattern, attributes, FindExInfoBasic, [&first](const WIN32_FIND_DATAW& found) {
    first = found.cFileName;
    return false;
  });
  return first;
}

bool fileExists(const std::wstring& path) { return exists(path, normal); }

bool folderExists(const std::wstring& path) { return exists(path, Attributes::directory); }

void makeFolder(const std::wstring& path) {
  concerning(path, [&path] {
    if (CreateDirectoryW(requiredPath(path).c_str(), nullptr) == 0) {
      raise(GetLastError(), {{ERROR_ALREADY_EXISTS, error::pathFileAccess},
                             {ERROR_FILE_EXISTS, error::pathFileAccess},
                             {ERROR_FILE_NOT_FOUND, error::pathNotFound}});
    }
  });
}

void remove(const std::wstring& path) {
  concerning(path, [&path] {
    const std::wstring native = requiredPath(path);
    win32::deleteBy(native, [&native] { return outcome(DeleteFileW(native.c_str())); });
  });
}

void rename(const std::wstring& from, const std::wstring& to) {
  const std::wstring nativeFrom = requiredPath(from);
  const std::wstring nativeTo = requiredPath(to);
  concerning(from, [&nativeFrom] { existingAttributes(nativeFrom); });
  const DWORD result = whileShared([&nativeFrom, &nativeTo] {
    return outcome(MoveFileExW(nativeFrom.c_str(), nativeTo.c_str(), 0));
  });
  if (result != ERROR_SUCCESS) {
    concerning(isAboutTarget(result) ? to : from, [result] { raise(result); });
  }
}

void copy(const std::wstring& from, const std::wstring& to) {
  const std::wstring nativeFrom = requiredPath(from);
  const std::wstring nativeTo = requiredPath(to);
  concerning(from, [&nativeFrom] { existingAttributes(nativeFrom); });
  concerning(to, [&nativeTo] { refuseReadOnly(nativeTo); });
  const DWORD result = whileShared([&nativeFrom, &nativeTo] {
    return outcome(CopyFileW(nativeFrom.c_str(), nativeTo.c_str(), FALSE));
  });
  if (result != ERROR_SUCCESS) {
    concerning(isAboutTarget(result) ? to : from, [result] { raise(result); });
  }
}

namespace {

/// What the server says of the time. The file is opened for its attributes only, which keeps nobody
/// from anything.
std::optional<FileTime> modifiedByOpening(const std::wstring& native) {
  const win32::FileHandle file = win32::openShared(native, FILE_READ_ATTRIBUTES);
  FILE_BASIC_INFO basic{};
  if (!file || GetFileInformationByHandleEx(file.get(), FileBasicInfo, &basic, sizeof basic) == 0 ||
      (basic.FileAttributes & kindsToAskFor) != 0) {
    return std::nullopt;
  }
  return static_cast<FileTime>(basic.LastWriteTime.QuadPart);
}

/// Whether the time has to be asked of a server. The watch asks for one file all the time, and it
/// takes the system a hundred times as long to say what kind of drive that is on as to say the
/// time. The kind does not change: it is the drive that the program has been started from.
bool isOnServer(const std::wstring& native) {
  thread_local std::wstring asked;
  thread_local bool answer = false;
  if (native != asked) {
    answer = drives::isNetwork(native);
    asked = native;
  }
  return answer;
}

}  // namespace

std::optional<FileTime> modifiedTime(const std::wstring& path) {
  const std::optional<std::wstring> native = win32::nativePath(path);
  // The system answers what is asked of a share by name from memory, for up to ten seconds.
  if (native && isOnServer(*native)) return modifiedByOpening(*native);
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!native || GetFileAttributesExW(native->c_str(), GetFileExInfoStandard, &data) == 0 ||
      (data.dwFileAttributes & kindsToAskFor) != 0) {
    return std::nullopt;
  }
  return win32::fileTime(data.ftLastWriteTime);
}

}  // namespace platform::files
