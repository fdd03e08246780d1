#include "platform/draft_steps.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/win32/errors.h"
#include "platform/win32/files/open_files.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"

namespace platform::files::steps {

using win32::FileHandle;
using win32::openShared;
using win32::outcome;
using win32::pieceSize;
using win32::raise;
using win32::requiredPath;

namespace {

/// FileRenameInfoEx, which the headers declare only when older systems are not supported.
constexpr auto renameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

bool isAlreadyThere(DWORD error) {
  return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS;
}

bool isInUse(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

/// What a draft can neither be nor replace: a file that must not be written to, and a folder.
constexpr DWORD protectedKinds = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY;

/// Whether a name belongs to a file that was deleted but is still open somewhere. It is listed
/// until it is closed, and nothing else about it can be asked.
bool isBeingDeleted(const std::wstring& native) {
  if (GetFileAttributesW(native.c_str()) != INVALID_FILE_ATTRIBUTES ||
      GetLastError() != ERROR_ACCESS_DENIED) {
    return false;
  }
  WIN32_FIND_DATAW found{};
  return static_cast<bool>(win32::FindHandle(FindFirstFileW(native.c_str(), &found)));
}

/// Renames the open file.
DWORD renameOpenFile(const FileHandle& file, const std::wstring& to, FILE_INFO_BY_HANDLE_CLASS kind,
                     DWORD flags) {
  const std::size_t nameBytes = to.size() * sizeof(wchar_t);
  // The structure already has room for one character, which holds the NUL.
  std::vector<std::byte> buffer(sizeof(FILE_RENAME_INFO) + nameBytes);
  FILE_RENAME_INFO header{};
  header.Flags = flags;
  header.FileNameLength = static_cast<DWORD>(nameBytes);
  std::memcpy(buffer.data(), &header, sizeof header);
  std::memcpy(buffer.data() + offsetof(FILE_RENAME_INFO, FileName), to.data(), nameBytes);
  return outcome(SetFileInformationByHandle(file.get(), kind, buffer.data(),
                                            static_cast<DWORD>(buffer.size())));
}

/// Whether two names in one folder are of one file.
bool isSameFile(const std::wstring& first, const std::wstring& second) {
  const auto stampOf = [](const std::wstring& native) {
    const FileHandle file = openShared(native, FILE_READ_ATTRIBUTES);
    return file ? win32::stampOf(file.get()) : std::nullopt;
  };
  const std::optional<Stamp> one = stampOf(first);
  return one && one == stampOf(second);
}

/// Whether a file has exactly that content. False if it cannot be read.
bool hasContent(const FileHandle& file, std::string_view bytes) {
  if (SetFilePointerEx(file.get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN) == 0) return false;
  std::vector<char> piece(std::min(pieceSize, bytes.size() + 1));
  std::size_t done = 0;
  for (;;) {
    DWORD read = 0;
    if (ReadFile(file.get(), piece.data(), static_cast<DWORD>(piece.size()), &read, nullptr) == 0) {
      return false;
    }
    if (read == 0) return done == bytes.size();
    if (read > bytes.size() - done || std::memcmp(bytes.data() + done, piece.data(), read) != 0) {
      return false;
    }
    done += read;
  }
}

}  // namespace

struct HeldFile::State {
  FileHandle file;
};

HeldFile::HeldFile() : state_(std::make_unique<State>()) {}

HeldFile::~HeldFile() = default;

void HeldFile::close() noexcept { state_->file.reset(); }

Step HeldFile::create(const std::wstring& path, bool passing) {
  const std::wstring native = requiredPath(path);
  const DWORD flags =
      passing ? FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE : FILE_ATTRIBUTE_NORMAL;
  // Others may read it; nobody else may write, delete or replace it.
  state_->file.reset(CreateFileW(native.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                                 CREATE_NEW, flags, nullptr));
  if (state_->file) return Step::done;
  const DWORD error = GetLastError();
  if (isAlreadyThere(error)) return Step::taken;
  // Another program still has the file of the last time.
  if (error == ERROR_SHARING_VIOLATION ||
      (error == ERROR_ACCESS_DENIED && isBeingDeleted(native))) {
    return Step::inUse;
  }
  raise(error, {{ERROR_FILE_NOT_FOUND, error::pathNotFound}});
}

void HeldFile::write(std::string_view bytes) {
  const HANDLE file = state_->file.get();
  if (SetFilePointerEx(file, LARGE_INTEGER{}, nullptr, FILE_BEGIN) == 0 ||
      SetEndOfFile(file) == 0) {
    raise(GetLastError());
  }
  std::size_t done = 0;
  while (done < bytes.size()) {
    const auto piece = static_cast<DWORD>(std::min(pieceSize, bytes.size() - done));
    DWORD written = 0;
    if (WriteFile(file, bytes.data() + done, piece, &written, nullptr) == 0) {
      raise(GetLastError());
    }
    if (written == 0) throw RunTimeError(error::diskFull);
    done += written;
  }
  // A network drive may report only now that the disk is full.
  if (FlushFileBuffers(file) == 0) raise(GetLastError());
}

std::optional<Stamp> HeldFile::stamp() const { return win32::stampOf(state_->file.get()); }

Step HeldFile::renameOverOpen(const std::wstring& to) {
  const DWORD result =
      renameOpenFile(state_->file, requiredPath(to), renameInfoEx,
                     FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS);
  return result == ERROR_SUCCESS ? Step::done : Step::notOffered;
}

Step HeldFile::renameOverClosed(const std::wstring& to) {
  const DWORD result = renameOpenFile(state_->file, requiredPath(to), FileRenameInfo,
                                      FILE_RENAME_FLAG_REPLACE_IF_EXISTS);
  if (result == ERROR_SUCCESS) return Step::done;
  // The target could be opened a moment ago, so the access rights are not the reason. Somebody is
  // reading it in a way that prevents only a replacement.
  if (result == ERROR_ACCESS_DENIED || isInUse(result)) return Step::inUse;
  raise(result, {{ERROR_PATH_NOT_FOUND, error::fileNotFound}});
}

Step HeldFile::renameToFree(const std::wstring& to) {
  const DWORD result = renameOpenFile(state_->file, requiredPath(to), FileRenameInfo, 0);
  if (result == ERROR_SUCCESS) return Step::done;
  if (isAlreadyThere(result)) return Step::taken;
  if (isInUse(result)) return Step::inUse;
  raise(result);
}

struct Target::State {
  FileHandle file;
};

Target::Target() : state_(std::make_unique<State>()) {}

Target::~Target() = default;

void Target::close() noexcept { state_->file.reset(); }

Step Target::open(const std::wstring& path, const Stamp* expected, const std::string* bytes) {
  const std::wstring native = requiredPath(path);
  const auto missing = {win32::Meaning{ERROR_PATH_NOT_FOUND, error::fileNotFound}};
  const DWORD attributes = GetFileAttributesW(native.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) raise(GetLastError(), missing);
  win32::refuseProtected(attributes, protectedKinds);
  // Writing is not shared. Access for deletion is requested so that this fails for everything for
  // which a deletion would fail.
  state_->file.reset(CreateFileW(native.c_str(), GENERIC_READ | DELETE,
                                 FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
  const std::optional<Stamp> current =
      state_->file ? win32::stampOf(state_->file.get()) : std::nullopt;
  if (!current) {
    const DWORD error = GetLastError();
    if (isInUse(error)) return Step::inUse;
    raise(error, missing);
  }
  const bool same = expected == nullptr || (*current == *expected &&
                                            (bytes == nullptr || hasContent(state_->file, *bytes)));
  return same ? Step::done : Step::changed;
}

Step discard(const std::wstring& path) {
  const std::wstring native = requiredPath(path);
  // Opening tells in one call that there is no such file, or that somebody holds it. These are the
  // usual cases, and many may be asking at the same time.
  const FileHandle file =
      openShared(native, DELETE | FILE_READ_ATTRIBUTES, FILE_FLAG_OPEN_REPARSE_POINT);
  DWORD result = file ? ERROR_SUCCESS : GetLastError();
  if (result == ERROR_FILE_NOT_FOUND) return Step::done;
  if (result != ERROR_SHARING_VIOLATION) {
    const DWORD attributes = GetFileAttributesW(native.c_str());
    win32::refuseProtected(attributes, protectedKinds);
  }
  if (file) {
    FILE_DISPOSITION_INFO deletion{.DeleteFile = TRUE};
    result = outcome(
        SetFileInformationByHandle(file.get(), FileDispositionInfo, &deletion, sizeof deletion));
  }
  if (result == ERROR_SUCCESS) return Step::done;
  if (result == ERROR_SHARING_VIOLATION ||
      (result == ERROR_ACCESS_DENIED && isBeingDeleted(native))) {
    return Step::inUse;
  }
  raise(result);
}

Step addName(const std::wstring& file, const std::wstring& name) {
  const std::wstring first = requiredPath(file);
  const std::wstring second = requiredPath(name);
  if (CreateHardLinkW(second.c_str(), first.c_str(), nullptr) != 0) return Step::done;
  return isAlreadyThere(GetLastError()) && isSameFile(first, second) ? Step::done
                                                                     : Step::notOffered;
}

Step compare(const std::wstring& name, const Stamp& expected, const std::string* bytes) {
  const FileHandle file =
      openShared(requiredPath(name), bytes == nullptr ? FILE_READ_ATTRIBUTES : GENERIC_READ);
  const std::optional<Stamp> now = file ? win32::stampOf(file.get()) : std::nullopt;
  if (!now) return Step::done;
  const bool same = *now == expected && (bytes == nullptr || hasContent(file, *bytes));
  return same ? Step::done : Step::changed;
}

std::optional<std::string> linesBehind(const std::wstring& name, std::uint64_t size) {
  const FileHandle file = openShared(requiredPath(name), GENERIC_READ);
  const std::optional<Stamp> now = file ? win32::stampOf(file.get()) : std::nullopt;
  if (!now || now->size <= size || now->size - size > pieceSize) return std::nullopt;
  // With the last character before them.
  const std::uint64_t begin = size == 0 ? 0 : size - 1;
  LARGE_INTEGER place{};
  place.QuadPart = static_cast<LONGLONG>(begin);
  std::string bytes(static_cast<std::size_t>(now->size - begin), '\0');
  DWORD read = 0;
  if (SetFilePointerEx(file.get(), place, nullptr, FILE_BEGIN) == 0 ||
      ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) == 0 ||
      read != bytes.size() || (size > 0 && bytes.front() != '\n' && bytes.front() != '\r')) {
    return std::nullopt;
  }
  return size == 0 ? bytes : bytes.substr(1);
}

Step append(const std::wstring& path, std::string_view bytes) {
  // Nobody else may write meanwhile: not every file system appends in one step.
  const FileHandle file(CreateFileW(requiredPath(path).c_str(), FILE_APPEND_DATA, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) {
    const DWORD error = GetLastError();
    if (isInUse(error)) return Step::inUse;
    raise(error);
  }
  DWORD written = 0;
  if (WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ==
      0) {
    raise(GetLastError());
  }
  if (written != bytes.size()) throw RunTimeError(error::diskFull);
  return Step::done;
}

Step putBack(const std::wstring& name, const std::wstring& to) {
  const DWORD result = outcome(
      MoveFileExW(requiredPath(name).c_str(), requiredPath(to).c_str(), MOVEFILE_REPLACE_EXISTING));
  if (result == ERROR_SUCCESS) return Step::done;
  if (isInUse(result)) return Step::inUse;
  raise(result, {{ERROR_PATH_NOT_FOUND, error::fileNotFound}});
}

void removeName(const std::wstring& name) noexcept {
  if (const auto native = win32::nativePath(name)) DeleteFileW(native->c_str());
}

void wait(int milliseconds) { Sleep(static_cast<DWORD>(milliseconds)); }

}  // namespace platform::files::steps
