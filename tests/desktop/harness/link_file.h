// Shortcut files (.lnk), read and written without the driven program.
#pragma once

#include <windows.h>

#include <string>

namespace harness {

struct LinkFile {
  std::wstring target;
  std::wstring description;
  std::wstring workingFolder;
  std::wstring icon;  ///< File that supplies the icon.
  int iconIndex = 0;
  std::wstring arguments;
  WORD hotKey = 0;
  DWORD showCommand = SW_SHOWNORMAL;  ///< As the bytes of the file have it.
};

/// Reads a shortcut without resolving it. Raises `Failure` when the file is not a shortcut.
[[nodiscard]] LinkFile readLink(const std::wstring& path);

/// Writes a shortcut; creates its folder first. Raises `Failure`.
void writeLink(const std::wstring& path, const LinkFile& link);

}  // namespace harness
