// Functions of system libraries that the program does not import.
//
// The system loads imported libraries before any code of the program runs. Unless a library is in
// the system's list of known ones, it is searched for in the program's own folder first, so whoever
// can put a file there could run code in the program. Libraries that are not in the list are
// therefore loaded here, when they are needed.
#pragma once

#include <windows.h>

#include <bit>

namespace platform::win32 {

/// From now on libraries that are loaded by their bare name, by whatever code, come from the
/// system's folder only, and never from the current one, which a shortcut or a document may have
/// set.
void searchSystemFolderOnly();

/// A library in the system's folder; no other folder is searched. Null when there is none. It stays
/// loaded.
[[nodiscard]] HMODULE systemLibrary(const wchar_t* name);

/// The same by its full path, which is how a Windows 7 without updates has to be asked.
[[nodiscard]] HMODULE systemLibraryByPath(const wchar_t* name);

/// A function of a library in the system's folder; null when there is no such library or function.
template <class Function>
[[nodiscard]] Function* systemFunction(const wchar_t* library, const char* name) {
  HMODULE module = systemLibrary(library);
  return module == nullptr ? nullptr : std::bit_cast<Function*>(GetProcAddress(module, name));
}

}  // namespace platform::win32
