// Keys of the keyboard.
#pragma once

namespace controls {

/// Virtual key codes of keys that have no character. The code of a letter or digit is its
/// character; of a letter, the capital.
namespace keys {
inline constexpr int tab = 0x09;
inline constexpr int enter = 0x0D;
inline constexpr int escape = 0x1B;
inline constexpr int down = 0x28;
inline constexpr int insert = 0x2D;
inline constexpr int remove = 0x2E;
inline constexpr int plus = 0x6B;  ///< Of the number pad.
inline constexpr int f1 = 0x70;
inline constexpr int f2 = 0x71;
inline constexpr int f5 = 0x74;
}  // namespace keys

/// A key that is pressed, and the modifier keys that are held.
struct KeyStroke {
  int key = 0;  ///< 0 stands for no key.
  bool control = false;
  bool shift = false;
  bool alt = false;
  bool operator==(const KeyStroke&) const = default;
};

}  // namespace controls
