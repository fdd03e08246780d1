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

/// Writes a shortcut; a file of that name is overwritten. Raises 429 when the system has no means
/// of writing shortcuts, or the number of the failed save (70 in use, 75 read-only, 76 ...).
void write(const std::wstring& linkPath, const Link& link);

/// Target that the shortcut stores. A shortcut that cannot be read has the target "". The link is
/// never resolved: no search, no prompt, no waiting for a drive that is away.
[[nodiscard]] std::wstring targetOf(const std::wstring& linkPath);

}  // namespace platform::shell_links
