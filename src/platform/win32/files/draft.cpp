// A temporary file that replaces another file.
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/open_files.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"

namespace platform::files {

using win32::FileHandle;
using win32::outcome;
using win32::pieceSize;
using win32::raise;
using win32::whileShared;

namespace {

/// FileRenameInfoEx, which the headers declare only when older systems are not supported.
constexpr auto renameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

bool isAlreadyThere(DWORD error) {
  return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS;
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

/// Creates the file, replacing a stale one that nobody has open.
DWORD createAnew(const std::wstring& native, FileHandle& file) {
  const auto create = [&] {
    // Others may read it; nobody else may write, delete or replace it.
    file.reset(CreateFileW(native.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                           CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? ERROR_SUCCESS : GetLastError();
  };
  DWORD result = create();
  if (isAlreadyThere(result)) {
    win32::refuseProtected(GetFileAttributesW(native.c_str()), protectedKinds);
    const DWORD removal = outcome(DeleteFileW(native.c_str()));
    if (removal != ERROR_SUCCESS && removal != ERROR_FILE_NOT_FOUND) {
      return removal == ERROR_ACCESS_DENIED && isBeingDeleted(native) ? ERROR_SHARING_VIOLATION
                                                                      : removal;
    }
    result = create();
  }
  // Another program was faster and is using the file now, or still has the one of the last time.
  return isAlreadyThere(result) || (result == ERROR_ACCESS_DENIED && isBeingDeleted(native))
             ? ERROR_SHARING_VIOLATION
             : result;
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

/// A hard link to a file, so that a write up to the last instant before its replacement can still
/// be found. On file systems without hard links this check is left out.
class SecondName {
 public:
  SecondName(const std::wstring& file, std::wstring name) : name_(std::move(name)) {
    made_ = link(file) || (DeleteFileW(name_.c_str()) != 0 && link(file));
  }
  SecondName(const SecondName&) = delete;
  SecondName& operator=(const SecondName&) = delete;
  ~SecondName() {
    if (made_) DeleteFileW(name_.c_str());
  }
  /// Whether the file has changed from `expected` by now.
  [[nodiscard]] bool changedFrom(const Stamp& expected) const {
    if (!made_) return false;
    const FileHandle file(CreateFileW(name_.c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    const std::optional<Stamp> now = file ? win32::stampOf(file.get()) : std::nullopt;
    return now && *now != expected;
  }
  /// Restores the file under the name `to`. On failure the file stays under the second name.
  [[nodiscard]] DWORD putBack(const std::wstring& to) {
    made_ = false;
    return whileShared([this, &to] {
      return outcome(MoveFileExW(name_.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING));
    });
  }

 private:
  [[nodiscard]] bool link(const std::wstring& file) const {
    return CreateHardLinkW(name_.c_str(), file.c_str(), nullptr) != 0;
  }
  std::wstring name_;
  bool made_ = false;
};

}  // namespace

struct Draft::State {
  State(std::wstring given, std::wstring nativeForm)
      : path(std::move(given)), native(std::move(nativeForm)) {}

  std::wstring path;  ///< As it was given.
  std::wstring native;
  FileHandle file;

  void create();
  void createFile();
  void write(std::string_view bytes) const;
  [[nodiscard]] Replaced replace(const std::wstring& to, const Stamp& expected);
  /// Result of one try. Any Windows error code except a sharing violation ends the tries.
  struct Attempt {
    DWORD error = ERROR_SUCCESS;
    Replaced replaced = Replaced::yes;
  };
  [[nodiscard]] Attempt replaceExisting(const std::wstring& to, const Stamp& expected);
  [[nodiscard]] Replaced takeFreeName(const std::wstring& to);
};

void Draft::State::create() {
  // The path is set here, because the draft may be created again during a replacement, where errors
  // would get the target's path.
  concerning(path, [this] { createFile(); });
}

void Draft::State::createFile() {
  // Longer than for other files, because the wait is for a whole rewrite of a list.
  constexpr DWORD patienceMilliseconds = 1000;
  constexpr DWORD longestPauseMilliseconds = 8;
  const DWORD begin = GetTickCount();
  DWORD result = createAnew(native, file);
  for (DWORD pause = 1;
       result == ERROR_SHARING_VIOLATION && GetTickCount() - begin < patienceMilliseconds;
       pause = std::min(2 * pause, longestPauseMilliseconds)) {
    Sleep(pause);
    result = createAnew(native, file);
  }
  if (result != ERROR_SUCCESS) raise(result, {{ERROR_FILE_NOT_FOUND, error::pathNotFound}});
}

Draft::State::Attempt Draft::State::replaceExisting(const std::wstring& to, const Stamp& expected) {
  // Nobody can write to the file after the comparison, because writing is not shared. Access for
  // deletion is requested so that this fails for everything for which a deletion would fail.
  FileHandle target(CreateFileW(to.c_str(), GENERIC_READ | DELETE,
                                FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!target) return {.error = GetLastError()};
  const std::optional<Stamp> current = win32::stampOf(target.get());
  if (!current) return {.error = GetLastError()};
  if (*current != expected) return {.replaced = Replaced::changedSince};
  // Newer file systems replace a file that is open, by this handle too. Readers keep the old file
  // until they close it.
  if (renameOpenFile(file, to, renameInfoEx,
                     FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS) ==
      ERROR_SUCCESS) {
    file.reset();
    return {};
  }
  // Older ones replace only a file that nobody has open. Anybody who writes between the reset and
  // the replacement writes to the old file, which the second name still refers to.
  SecondName old(to, native + L".old");
  target.reset();
  const DWORD error = renameOpenFile(file, to, FileRenameInfo, FILE_RENAME_FLAG_REPLACE_IF_EXISTS);
  if (error != ERROR_SUCCESS) {
    // The target could be opened a moment ago, so the access rights are not the reason. Somebody is
    // reading it in a way that prevents only a replacement.
    return {.error = error == ERROR_ACCESS_DENIED ? ERROR_SHARING_VIOLATION : error};
  }
  file.reset();
  if (!old.changedFrom(expected)) return {};
  if (const DWORD failure = old.putBack(to); failure != ERROR_SUCCESS) return {.error = failure};
  create();
  return {.replaced = Replaced::changedSince};
}

Replaced Draft::State::takeFreeName(const std::wstring& to) {
  const DWORD result =
      whileShared([this, &to] { return renameOpenFile(file, to, FileRenameInfo, 0); });
  if (isAlreadyThere(result)) return Replaced::changedSince;
  if (result != ERROR_SUCCESS) raise(result);
  file.reset();
  return Replaced::yes;
}

void Draft::State::write(std::string_view bytes) const {
  if (SetFilePointerEx(file.get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN) == 0 ||
      SetEndOfFile(file.get()) == 0) {
    raise(GetLastError());
  }
  std::size_t done = 0;
  while (done < bytes.size()) {
    const auto piece = static_cast<DWORD>(std::min(pieceSize, bytes.size() - done));
    DWORD written = 0;
    if (WriteFile(file.get(), bytes.data() + done, piece, &written, nullptr) == 0) {
      raise(GetLastError());
    }
    if (written == 0) throw RunTimeError(error::diskFull);
    done += written;
  }
  // A network drive may report only now that the disk is full.
  if (FlushFileBuffers(file.get()) == 0) raise(GetLastError());
}

Replaced Draft::State::replace(const std::wstring& to, const Stamp& expected) {
  const std::wstring nativeTo = win32::requiredPath(to);
  if (!expected.present) return takeFreeName(nativeTo);
  const DWORD attributes = GetFileAttributesW(nativeTo.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    raise(GetLastError(), {{ERROR_PATH_NOT_FOUND, error::fileNotFound}});
  }
  win32::refuseProtected(attributes, protectedKinds);
  Attempt attempt;
  const DWORD result = whileShared([&] {
    attempt = replaceExisting(nativeTo, expected);
    return attempt.error;
  });
  if (result != ERROR_SUCCESS) raise(result, {{ERROR_PATH_NOT_FOUND, error::fileNotFound}});
  return attempt.replaced;
}

Draft::Draft(const std::wstring& path)
    : state_(std::make_unique<State>(path, win32::requiredPath(path))) {
  state_->create();
}

Draft::~Draft() = default;

void Draft::write(std::string_view bytes) {
  concerning(state_->path, [&] { state_->write(bytes); });
}

Replaced Draft::replace(const std::wstring& to, const Stamp& expected) {
  return concerning(to, [&] { return state_->replace(to, expected); });
}

}  // namespace platform::files
