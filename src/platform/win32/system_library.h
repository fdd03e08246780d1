// Functions of system libraries that the program does not import.
//
// An imported library is looked for before any of the program's code runs, and, unless Windows
// keeps it in its list of known ones, in the program's own folder first: whoever can put a file
// there would run with the program. What the list lacks is therefore loaded here, when it is
// needed.
#pragma once

#include <windows.h>

#include <bit>

namespace platform::win32 {

/// A function of a library in the system's folder, and nowhere else; null when there is no such
/// library or function. The library stays loaded.
template <class Function>
[[nodiscard]] Function* systemFunction(const wchar_t* library, const char* name) {
  HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  return module == nullptr ? nullptr : std::bit_cast<Function*>(GetProcAddress(module, name));
}

}  // namespace platform::win32
