#include "platform/win32/files/paths.h"

#include <windows.h>

#include <string_view>

#include "platform/run_time_error.h"
#include "platform/win32/errors.h"

namespace platform::win32 {
namespace {

// A folder's path must leave room for a short file name, so folders fail at a smaller length than
// files.
constexpr std::size_t longestOrdinaryPath = MAX_PATH - 12;

bool beginsWith(std::wstring_view text, std::wstring_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

}  // namespace

std::optional<std::wstring> nativePath(const std::wstring& path) {
  if (hasEmbeddedNul(path)) return std::nullopt;
  if (path.size() < longestOrdinaryPath || beginsWith(path, LR"(\\?\)") ||
      beginsWith(path, LR"(\\.\)")) {
    return path;
  }
  // The extended form is not interpreted, so slashes, doubled separators and dots must be resolved
  // first.
  const DWORD room = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  if (room == 0) return std::nullopt;
  std::wstring full(room, L'\0');
  const DWORD length = GetFullPathNameW(path.c_str(), room, full.data(), nullptr);
  if (length == 0 || length >= room) return std::nullopt;
  full.resize(length);
  if (beginsWith(full, LR"(\\)")) return LR"(\\?\UNC\)" + full.substr(2);
  return LR"(\\?\)" + full;
}

std::wstring ordinaryPath(std::wstring path) {
  constexpr std::wstring_view extended = LR"(\\?\)";
  constexpr std::wstring_view extendedShare = LR"(\\?\UNC\)";
  if (beginsWith(path, extendedShare)) return LR"(\\)" + path.substr(extendedShare.size());
  const std::size_t colon = extended.size() + 1;
  if (beginsWith(path, extended) && path.size() > colon && path[colon] == L':') {
    path.erase(0, extended.size());
  }
  return path;
}

std::wstring requiredPath(const std::wstring& path) {
  std::optional<std::wstring> native = nativePath(path);
  if (!native) raiseAbout(path, error::badFileName);
  return *std::move(native);
}

DWORD existingAttributes(const std::wstring& native) {
  const DWORD attributes = GetFileAttributesW(native.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    raise(GetLastError(), {{ERROR_PATH_NOT_FOUND, error::fileNotFound}});
  }
  return attributes;
}

void refuseProtected(DWORD attributes, DWORD refused) {
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & refused) != 0) {
    throw RunTimeError(error::pathFileAccess);
  }
}

}  // namespace platform::win32
