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

/// A function of a library in the system's folder (no other folder is searched); null when there is
/// no such library or function. The library stays loaded.
template <class Function>
[[nodiscard]] Function* systemFunction(const wchar_t* library, const char* name) {
  HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  return module == nullptr ? nullptr : std::bit_cast<Function*>(GetProcAddress(module, name));
}

}  // namespace platform::win32
