// The code pages of the in-memory desktop.
#pragma once

#include <string>
#include <string_view>

namespace memory {

/// Number of the system's code page: 1252, 1250 or 65001 (which is UTF-8).
[[nodiscard]] int codePage();
/// Changes the system's code page. Raises `error::invalidCall` for one that is not supported here.
void setCodePage(int number);

/// Converts text to that code page. A character that it lacks becomes "?"; in 65001, which lacks
/// only lone surrogates, it becomes U+FFFD.
[[nodiscard]] std::string toBytes(std::wstring_view text, int number);
/// Converts such bytes to text. Bytes without a meaning become the character with their number, in
/// 65001 they become U+FFFD.
[[nodiscard]] std::wstring fromBytes(std::string_view bytes, int number);

}  // namespace memory
