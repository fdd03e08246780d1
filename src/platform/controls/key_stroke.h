// Keys of the keyboard.
#pragma once

namespace controls {

/// Numbers of the keys that have no character, as the system numbers them. A letter or a digit has
/// the number of its character; letters that of the capital.
namespace keys {
inline constexpr int tab = 0x09;
inline constexpr int insert = 0x2D;
inline constexpr int remove = 0x2E;
inline constexpr int f1 = 0x70;
inline constexpr int f2 = 0x71;
inline constexpr int f5 = 0x74;
}  // namespace keys

/// A key that goes down, and the keys that are held meanwhile.
struct KeyStroke {
  int key = 0;  ///< 0 stands for no key.
  bool control = false;
  bool shift = false;
  bool alt = false;
  bool operator==(const KeyStroke&) const = default;
};

}  // namespace controls
