// Stable native ids of the controls of the window with the earlier lists. External tests and
// assistive tools rely on them. A number is never used again, in any window of the program.
#pragma once

namespace ids {

// The buttons have the ids for which a dialog handles Enter and Esc.
inline constexpr int earlierShow = 1;
inline constexpr int earlierClose = 2;
inline constexpr int lblCopies = 1500;
inline constexpr int lstCopies = 1501;
inline constexpr int lblEntries = 1502;
inline constexpr int lstEntries = 1503;
inline constexpr int lblEarlierNews = 1504;
inline constexpr int earlierRestore = 1505;
inline constexpr int earlierAdd = 1506;

}  // namespace ids
