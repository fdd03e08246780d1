#include "platform/win32/system_library.h"

#include <array>
#include <string>

namespace platform::win32 {

void searchSystemFolderOnly() {
  // Not imported: a Windows 7 without updates lacks the function, and would refuse to start a
  // program that imports it.
  using Call = BOOL WINAPI(DWORD);
  auto* const call = std::bit_cast<Call*>(
      GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories"));
  if (call == nullptr || call(LOAD_LIBRARY_SEARCH_SYSTEM32) == 0) {
    // The next best: at least the current folder is not searched.
    SetDllDirectoryW(L"");
  }
}

HMODULE systemLibrary(const wchar_t* name) {
  HMODULE const module = LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (module != nullptr || GetLastError() != ERROR_INVALID_PARAMETER) return module;
  return systemLibraryByPath(name);
}

HMODULE systemLibraryByPath(const wchar_t* name) {
  std::array<wchar_t, MAX_PATH> folder{};
  const UINT length = GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
  if (length == 0 || length >= folder.size()) return nullptr;
  const std::wstring path = std::wstring(folder.data(), length) + L'\\' + name;
  // So that what the library itself needs is searched for beside it, not beside the program.
  return LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace platform::win32
