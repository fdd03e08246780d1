// Putting a finished file in the place of another in one step.
#include <windows.h>

#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/files.h"
#include "platform/win32/errors.h"
#include "platform/win32/file_stamp.h"
#include "platform/win32/handles.h"
#include "platform/win32/paths.h"

namespace platform::files {

using win32::FileHandle;
using win32::raise;
using win32::whileShared;

namespace {

/// FileRenameInfoEx, which the headers declare only when nothing older than it is supported.
constexpr auto renameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

/// What came of one try; a Windows error code other than "shared" ends the tries.
struct Attempt {
  DWORD error = ERROR_SUCCESS;
  Replaced replaced = Replaced::yes;
};

/// Replaces `to` while it may still be open, by us among others: readers keep the old file until
/// they close it. Only newer file systems can do so; false where it did not work.
bool renameOverOpenFile(const std::wstring& from, const std::wstring& to) {
  const FileHandle source(CreateFileW(from.c_str(), DELETE | SYNCHRONIZE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!source) return false;
  const std::size_t nameBytes = to.size() * sizeof(wchar_t);
  std::vector<std::byte> buffer(sizeof(FILE_RENAME_INFO) + nameBytes);
  FILE_RENAME_INFO header{};
  header.Flags = FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS;
  header.FileNameLength = static_cast<DWORD>(nameBytes);
  std::memcpy(buffer.data(), &header, sizeof header);
  std::memcpy(buffer.data() + offsetof(FILE_RENAME_INFO, FileName), to.data(), nameBytes);
  return SetFileInformationByHandle(source.get(), renameInfoEx, buffer.data(),
                                    static_cast<DWORD>(buffer.size())) != 0;
}

/// Replaces an existing file that is still in the state `expected`.
Attempt replaceExisting(const std::wstring& from, const std::wstring& to, const Stamp& expected) {
  // Sharing everything but writing keeps the file as it is from the comparison on, and asking
  // for deletion fails for whatever a deletion would fail for.
  FileHandle target(CreateFileW(to.c_str(), GENERIC_READ | DELETE,
                                FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!target) return {.error = GetLastError()};
  const std::optional<Stamp> current = win32::stampOf(target.get());
  if (!current) return {.error = GetLastError()};
  if (*current != expected) return {.replaced = Replaced::changedSince};
  if (renameOverOpenFile(from, to)) return {};
  // Older systems replace only a file that nobody has open.
  target.reset();
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) ==
      0) {
    const DWORD error = GetLastError();
    // We were let at the target a moment ago, so it is not the rights that are wanting: somebody
    // is reading it, in a way that only stands in the way of a replacement.
    return {.error = error == ERROR_ACCESS_DENIED ? ERROR_SHARING_VIOLATION : error};
  }
  return {};
}

Replaced moveToFreeName(const std::wstring& from, const std::wstring& to) {
  const DWORD result = whileShared([&from, &to]() -> DWORD {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0 ? ERROR_SUCCESS
                                                                              : GetLastError();
  });
  if (result == ERROR_SUCCESS) return Replaced::yes;
  if (result == ERROR_ALREADY_EXISTS || result == ERROR_FILE_EXISTS) {
    return Replaced::changedSince;
  }
  raise(result);
}

}  // namespace

Replaced replace(const std::wstring& from, const std::wstring& to, const Stamp& expected) {
  const std::wstring nativeFrom = win32::requiredPath(from);
  const std::wstring nativeTo = win32::requiredPath(to);
  if (!expected.present) return moveToFreeName(nativeFrom, nativeTo);

  const DWORD attributes = GetFileAttributesW(nativeTo.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    raise(GetLastError(), {{ERROR_PATH_NOT_FOUND, error::fileNotFound}});
  }
  if ((attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
    throw RunTimeError(error::pathFileAccess);
  }
  Attempt attempt;
  const DWORD result = whileShared([&] {
    attempt = replaceExisting(nativeFrom, nativeTo, expected);
    return attempt.error;
  });
  if (result != ERROR_SUCCESS) raise(result, {{ERROR_PATH_NOT_FOUND, error::fileNotFound}});
  return attempt.replaced;
}

}  // namespace platform::files
