// Stable native ids of the web dialog's controls. External tests and assistive tools rely on them.
// A number is never used again, in any window of the program.
#pragma once

namespace ids {

// The buttons have the ids for which a dialog handles Enter and Esc.
inline constexpr int webOK = 1;
inline constexpr int webCancel = 2;
inline constexpr int webLabel1 = 1200;
inline constexpr int txtName = 1201;
inline constexpr int webLabel2 = 1202;
inline constexpr int txtUrl = 1203;

}  // namespace ids
