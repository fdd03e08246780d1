// Shortcut files (.lnk).
#pragma once

#include <string>

namespace platform::shell_links {

/// Properties of a shortcut, in the order in which they are written.
struct Link {
  std::wstring arguments;
  std::wstring description;
  std::wstring hotKey;        ///< "" for none.
  std::wstring iconLocation;  ///< File that supplies the icon, its first icon.
  std::wstring targetPath;
  int windowStyle = 1;  ///< 1 normal, 3 maximised, 7 minimised.
  std::wstring workingDirectory;
};

/// Writes a shortcut; an existing file of that name is overwritten. Raises
/// `error::cannotCreateObject` when the system cannot write shortcuts, or the error of the failed
/// save (`error::permissionDenied`: in use, `error::pathFileAccess`: read-only,
/// `error::pathNotFound` ...).
void write(const std::wstring& linkPath, const Link& link);

/// Target that the shortcut stores, "" when the shortcut cannot be read. The link is never
/// resolved: no search, no prompt, no waiting for a disconnected drive.
[[nodiscard]] std::wstring targetOf(const std::wstring& linkPath);

}  // namespace platform::shell_links
