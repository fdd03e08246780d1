#include "platform/folders.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shlobj.h>

#include <array>

#include "platform/controls/window.h"
#include "platform/win32/handles.h"

namespace platform::folders {

std::optional<std::wstring> specialFolder(const controls::Window& owner, int id) {
  HWND window = owner.peer() != nullptr ? static_cast<HWND>(owner.peer()->handle()) : nullptr;
  win32::TaskMemory<ITEMIDLIST> items;
  if (SHGetSpecialFolderLocation(window, id, items.out()) != S_OK || !items) return std::nullopt;
  std::array<wchar_t, MAX_PATH> path{};
  if (SHGetPathFromIDListW(items.get(), path.data()) == 0) return std::nullopt;
  return path.data();
}

std::wstring windowsFolder() {
  // Not the one of the session that a terminal server may give each user.
  std::wstring folder(GetSystemWindowsDirectoryW(nullptr, 0), L'\0');
  folder.resize(GetSystemWindowsDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
  return folder;
}

}  // namespace platform::folders
