// The bytes of a shortcut file (.lnk).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform::link_bytes {

/// No plain link is longer. A longer file may be anything.
inline constexpr std::size_t longestLink = 65536;

/// The target of a link to something on a drive, where the bytes of the file leave no doubt: the
/// link is whole, it stores the target twice, both are the same text in the code page, and nothing
/// in it changes the target. Nothing for any other link and for any other file: what they lead to
/// is known to the shell alone. Raises no error.
[[nodiscard]] std::optional<std::wstring> storedTarget(std::string_view bytes);

}  // namespace platform::link_bytes
