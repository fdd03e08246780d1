// The code pages of the desktop in memory.
#pragma once

#include <string>
#include <string_view>

namespace desktop {

/// Number of the system's code page: 1252, 1250 or 65001 (which is UTF-8).
[[nodiscard]] int codePage();
/// Makes it another one. Raises 5 for one that is not known here.
void setCodePage(int number);

/// Bytes of that code page. A character that it lacks becomes "?"; in 65001, which lacks only lone
/// surrogates, U+FFFD.
[[nodiscard]] std::string toBytes(std::wstring_view text, int number);
/// Text from such bytes; bytes that stand for nothing keep their number, in 65001 they become
/// U+FFFD.
[[nodiscard]] std::wstring fromBytes(std::string_view bytes, int number);

}  // namespace desktop
