// Text conversions of the tests.
#pragma once

#include <cstdint>
#include <string>

namespace harness {

[[nodiscard]] std::string utf8(const std::wstring& text);
[[nodiscard]] std::wstring fromUtf8(const std::string& bytes);
/// Bytes in the system's code page, the encoding of the list files.
[[nodiscard]] std::string codePageBytes(const std::wstring& text);
[[nodiscard]] std::wstring fromCodePage(const std::string& bytes);
/// A path as it appears in command lines: every blank is a question mark.
[[nodiscard]] std::wstring encoded(std::wstring path);
/// Today's date as the program writes it.
[[nodiscard]] std::wstring today();

/// A time as the program writes it: short date, blank, time with seconds.
[[nodiscard]] std::wstring dateAndTime(std::uint64_t changeTime);

}  // namespace harness
