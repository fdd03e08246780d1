// Leads a function that this program imports from a system library elsewhere: the program's table
// of imported addresses is changed, as the linker of no compiler is asked to do.
#pragma once

#include <windows.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace harness {

/// Lets the program call `replacement` from now on. Returns the system's function. Raises
/// `std::runtime_error` when the program does not import it.
template <class Function>
Function* redirectImport(const wchar_t* library, const char* name, Function* replacement) {
  const FARPROC real = GetProcAddress(GetModuleHandleW(library), name);
  auto* const program = std::bit_cast<std::byte*>(GetModuleHandleW(nullptr));
  const auto& dos = *std::bit_cast<const IMAGE_DOS_HEADER*>(program);
  const auto& headers = *std::bit_cast<const IMAGE_NT_HEADERS*>(program + dos.e_lfanew);
  const IMAGE_DATA_DIRECTORY& table =
      headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT];
  auto* const first = std::bit_cast<FARPROC*>(program + table.VirtualAddress);
  auto* const last = first + table.Size / sizeof(FARPROC);
  auto* const place = std::find(first, last, real);
  DWORD before = 0;
  if (place == last || VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before) == FALSE) {
    throw std::runtime_error(std::string("this program does not import ") + name);
  }
  *place = std::bit_cast<FARPROC>(replacement);
  VirtualProtect(place, sizeof *place, before, &before);
  return std::bit_cast<Function*>(real);
}

}  // namespace harness
