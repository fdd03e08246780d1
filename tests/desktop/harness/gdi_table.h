// The table of GDI objects that the system shares with each process. Wine does not count the
// objects, but has the table.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace harness {

/// One entry of the table.
struct GdiEntry {
  std::uint64_t object;
  std::uint16_t process;
  std::uint16_t lock;
  std::uint16_t unique;
  std::uint8_t type;
  std::uint8_t flags;
  std::uint64_t user;
};

/// The whole table.
using GdiTable = std::array<GdiEntry, 0x10000>;

/// Number of objects in the table.
[[nodiscard]] inline long long objectsIn(const GdiTable& table) {
  return std::count_if(table.begin(), table.end(),
                       [](const GdiEntry& entry) { return entry.type != 0; });
}

/// Offset in bytes of the table's address in the process block (PEB) of a 64-bit process.
inline constexpr std::size_t gdiTableInBlock = 0xF8;

}  // namespace harness
