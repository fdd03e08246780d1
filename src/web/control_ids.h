// Stable native ids of the web dialog's controls. Outside tests and assistive tools rely on them:
// numbers are never reused, in no window of the program.
#pragma once

namespace ids {

// The buttons have the ids by which a dialog answers Enter and Esc.
inline constexpr int webOK = 1;
inline constexpr int webCancel = 2;
inline constexpr int webLabel1 = 1200;
inline constexpr int txtName = 1201;
inline constexpr int webLabel2 = 1202;
inline constexpr int txtUrl = 1203;

}  // namespace ids
