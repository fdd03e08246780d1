// How the driver of the measurements finds the parts of the plain search.
#pragma once

namespace bench {

inline constexpr const wchar_t* plainFindClass = L"PlainFind";
inline constexpr int plainFindBox = 1;
inline constexpr int plainFindList = 2;

}  // namespace bench
