// Reading the system's registry.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform::registry {

/// Predefined roots.
enum class Root { currentUser, localMachine };

/// Access requested when a key is opened: full access.
inline constexpr std::uint32_t allAccess = 0x2003F;

/// Types of values that the program distinguishes.
inline constexpr std::uint32_t typeString = 1;
inline constexpr std::uint32_t typeNumber = 4;

/// A value as stored. Text is in UTF-16 code units, two bytes each, low byte first. It ends in a
/// NUL if the NUL was stored.
struct Value {
  std::uint32_t type = 0;
  std::vector<std::uint8_t> bytes;
};

/// Opens `key` with `access` and reads `name` from it into a buffer of `bufferBytes`. Nothing when
/// the key cannot be opened, the value is missing, or it does not fit into the buffer. The key is
/// closed in every case.
[[nodiscard]] std::optional<Value> query(Root root, const std::wstring& key,
                                         const std::wstring& name, std::uint32_t access,
                                         std::size_t bufferBytes);

}  // namespace platform::registry
