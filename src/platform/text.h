// Letter case, order and encoding of text, as the user's system defines them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform::text {

/// Upper-cases every letter, whatever the user's locale; the length never changes.
[[nodiscard]] std::wstring upper(std::wstring_view text);

/// Bytes whose plain byte order is the user's locale order of the texts, without regard to case.
/// Two texts that differ only in case have the same key.
[[nodiscard]] std::string sortKey(std::wstring_view text);

/// Text from bytes of the system's code page. Bytes that stand for nothing become U+FFFD or the
/// code page's own substitute; the call never fails.
[[nodiscard]] std::wstring fromCodePage(std::string_view bytes);

/// Bytes of the system's code page. A character that the code page lacks becomes "?", never a
/// look-alike, so that no text can turn into a quote, a comma or a line end.
[[nodiscard]] std::string toCodePage(std::wstring_view text);

}  // namespace platform::text
