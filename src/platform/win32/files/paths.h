// Converts paths to a form that Windows accepts at any length.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace platform::win32 {

/// `path` in the form for the file functions: a path that is too long for the ordinary form is
/// returned in the extended form, which has no limit. Nothing for a path with an embedded NUL
/// (Windows would cut it off there) and for one that cannot be completed.
[[nodiscard]] std::optional<std::wstring> nativePath(const std::wstring& path);

/// The same, but raises `error::badFileName` instead of returning nothing.
[[nodiscard]] std::wstring requiredPath(const std::wstring& path);

/// The path without the prefix of the extended form, which must not appear in texts and file names:
/// "\\\\?\\C:\\App" gives "C:\\App", "\\\\?\\UNC\\server\\share" gives "\\\\server\\share".
[[nodiscard]] std::wstring ordinaryPath(std::wstring path);

/// Whether a function that reads text up to its first NUL would cut it off.
[[nodiscard]] inline bool hasEmbeddedNul(const std::wstring& text) {
  return text.find(L'\0') != std::wstring::npos;
}

/// Attributes of an existing file. Raises `error::fileNotFound` when it or its folder is missing.
DWORD existingAttributes(const std::wstring& native);

/// Raises `error::pathFileAccess` when a file has one of the `refused` attributes. A sufficiently
/// privileged user would get past the system's own check. `INVALID_FILE_ATTRIBUTES`, those of a
/// file that is missing, pass.
void refuseProtected(DWORD attributes, DWORD refused = FILE_ATTRIBUTE_READONLY);

}  // namespace platform::win32
