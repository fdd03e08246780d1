// Reads whole files.
#include <windows.h>

#include <algorithm>
#include <limits>
#include <new>

#include "platform/files.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/open_files.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"

namespace platform::files {

using win32::FileHandle;
using win32::pieceSize;
using win32::raise;
using win32::whileShared;

namespace {

constexpr DWORD shareEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
/// The program could not process a larger list file in memory anyway.
constexpr std::uint64_t largestFile = std::numeric_limits<std::int32_t>::max();
/// Number of times a file is read when it changes during the reading.
constexpr int readings = 5;

/// Opens a file; waits for a short time while others have it open. Returns ERROR_SUCCESS or the
/// error code.
DWORD open(const std::wstring& native, DWORD access, DWORD share, DWORD creation, DWORD flags,
           FileHandle& file) {
  return whileShared([&] {
    file.reset(CreateFileW(native.c_str(), access, share, nullptr, creation, flags, nullptr));
    return file ? ERROR_SUCCESS : GetLastError();
  });
}

Stamp requiredStamp(const FileHandle& file) {
  const std::optional<Stamp> stamp = win32::stampOf(file.get());
  if (!stamp) raise(GetLastError());
  return *stamp;
}

/// Up to `size` bytes from the start of the file; fewer when the file is shorter.
void readFromStart(const FileHandle& file, std::uint64_t size, std::string& bytes) {
  if (size > largestFile) throw RunTimeError(error::outOfMemory);
  try {
    // Room for a record that is going to be appended, so that this does not copy the whole content
    // again (row `add.100k` of ./bench).
    constexpr std::size_t recordRoom = 4096;
    bytes.reserve(static_cast<std::size_t>(size) + recordRoom);
    bytes.resize(static_cast<std::size_t>(size));
  } catch (const std::bad_alloc&) {
    throw RunTimeError(error::outOfMemory);
  }
  if (SetFilePointerEx(file.get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN) == 0) {
    raise(GetLastError());
  }
  std::size_t done = 0;
  while (done < bytes.size()) {
    const auto piece = static_cast<DWORD>(std::min(pieceSize, bytes.size() - done));
    DWORD read = 0;
    if (ReadFile(file.get(), bytes.data() + done, piece, &read, nullptr) == 0) {
      raise(GetLastError());
    }
    if (read == 0) break;
    done += read;
  }
  bytes.resize(done);
}

Contents readOpenFile(const FileHandle& file) {
  Contents contents;
  Stamp before = requiredStamp(file);
  for (int reading = 0; reading < readings; ++reading) {
    contents.stamp = before;
    readFromStart(file, before.size, contents.bytes);
    const Stamp after = requiredStamp(file);
    if (after == before && contents.bytes.size() == before.size) break;
    before = after;
  }
  // If the file changed during every reading, the stamp is from before the last one. It is
  // outdated, so a replacement that is based on these bytes will notice the change.
  return contents;
}

Contents read(const std::wstring& native) {
  FileHandle file;
  const DWORD result =
      open(native, GENERIC_READ, shareEverything, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, file);
  if (result != ERROR_SUCCESS) raise(result);
  return readOpenFile(file);
}

Contents readToAppend(const std::wstring& native) {
  win32::refuseProtected(GetFileAttributesW(native.c_str()),
                         FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY);
  // Asking for the right to append finds out now whether somebody keeps others from writing.
  FileHandle file;
  const DWORD result = open(native, GENERIC_READ | FILE_APPEND_DATA, shareEverything, OPEN_EXISTING,
                            FILE_FLAG_SEQUENTIAL_SCAN, file);
  if (result == ERROR_FILE_NOT_FOUND) return {};
  if (result != ERROR_SUCCESS) raise(result);
  return readOpenFile(file);
}

}  // namespace

Contents readWhole(const std::wstring& path) {
  return concerning(path, [&path] { return read(win32::requiredPath(path)); });
}

Contents readForAppending(const std::wstring& path) {
  return concerning(path, [&path] { return readToAppend(win32::requiredPath(path)); });
}

}  // namespace platform::files
