// Stable native ids of the input box's controls; its buttons have the ids by which a dialog answers
// Enter and Esc. The numbers are never reused.
#pragma once

namespace ids {

inline constexpr int inputPrompt = 1400;
inline constexpr int inputEdit = 1401;

}  // namespace ids
