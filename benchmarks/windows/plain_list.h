// How the driver of the measurements finds the parts of the plain list, and what it can tell it.
#pragma once

namespace bench {

inline constexpr const wchar_t* plainListClass = L"PlainList";
inline constexpr int plainBox = 1;
inline constexpr int plainRows = 2;
/// An empty list in the same place, as on another tab.
inline constexpr int plainOther = 3;

/// Messages to the window: reads the catalogue again; shows the list with that id, hides the other.
inline constexpr unsigned plainReload = 0x8000 + 1;
inline constexpr unsigned plainShow = 0x8000 + 2;

}  // namespace bench
