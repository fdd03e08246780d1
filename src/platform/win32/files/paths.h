// Paths in the form in which Windows takes them at any length.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace platform::win32 {

/// `path` as the file functions take it: one that is too long for them in the ordinary form is
/// given in the extended form, in which every length works. Nothing for a path with an embedded
/// NUL, which Windows would silently cut off there, and for one that cannot be completed.
[[nodiscard]] std::optional<std::wstring> nativePath(const std::wstring& path);

/// The same; raises 52 instead of giving nothing.
[[nodiscard]] std::wstring requiredPath(const std::wstring& path);

/// Whether text would be cut off by a function that takes it up to its first NUL.
[[nodiscard]] inline bool hasEmbeddedNul(const std::wstring& text) {
  return text.find(L'\0') != std::wstring::npos;
}

/// Raises `error::pathFileAccess` when a file has one of the `refused` attributes. A sufficiently
/// privileged user would get past the system's own check. `INVALID_FILE_ATTRIBUTES`, those of a
/// file that is missing, pass.
void refuseProtected(DWORD attributes, DWORD refused = FILE_ATTRIBUTE_READONLY);

}  // namespace platform::win32
