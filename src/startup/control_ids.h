// Stable native ids of the splash window's controls. External tests and assistive tools rely on
// them. A number is never used again, in any window of the program.
#pragma once

namespace ids {

inline constexpr int splashTitle = 1100;
inline constexpr int splashTM = 1101;
inline constexpr int splashApp = 1102;
inline constexpr int splashCopyRight = 1103;
inline constexpr int splashSuite = 1104;
inline constexpr int Timer1 = 1110;
inline constexpr int Timer2 = 1111;

}  // namespace ids
