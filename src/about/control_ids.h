// Stable native ids of the about box's controls. External tests and assistive tools rely on them. A
// number is never used again, in any window of the program.
#pragma once

namespace ids {

inline constexpr int aboutOK = 1;
inline constexpr int aboutLabel1 = 1300;
inline constexpr int lblTitle = 1301;
inline constexpr int aboutTM = 1302;
inline constexpr int lblVersion = 1303;
inline constexpr int lblPath = 1304;
inline constexpr int Image1 = 1305;

}  // namespace ids
