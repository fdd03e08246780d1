// Stable native ids of the input box's controls. The numbers are never reused.
#pragma once

namespace ids {

// The buttons have the ids by which a dialog answers Enter and Esc.
inline constexpr int inputOK = 1;
inline constexpr int inputCancel = 2;
inline constexpr int inputPrompt = 1400;
inline constexpr int inputEdit = 1401;

}  // namespace ids
