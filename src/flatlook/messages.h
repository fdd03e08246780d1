// Numbers of the window messages that the flat look handles.
#pragma once

namespace flatlook::messages {

inline constexpr unsigned setFocus = 7;
inline constexpr unsigned killFocus = 8;
inline constexpr unsigned paint = 15;
inline constexpr unsigned mouseActivate = 33;
inline constexpr unsigned command = 273;
inline constexpr unsigned timer = 275;
inline constexpr unsigned mouseMove = 512;

}  // namespace flatlook::messages
