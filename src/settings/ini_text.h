// The contents of a settings file: sections in brackets, and in each of them lines of the form
// "key=value".
//
// Anybody may have edited the file. Every line that a change does not concern stays byte for byte:
// comments (";" or "#"), lines of another form, what other programs have put there. Names of
// sections and keys compare without regard to case; where a name is there twice, the first counts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ini_text {

/// The value of a key, without the blanks around it. Nothing when there is none, and for a value
/// that has other than plain printable characters (ASCII), which are all that this program writes.
[[nodiscard]] std::optional<std::wstring> valueIn(std::string_view contents,
                                                  std::string_view section, std::string_view key);

/// The contents with another value for a key. The line is changed in its place; a new one goes to
/// the end of its section, a new section to the end of the contents. A character that is not plain
/// and printable becomes "?".
[[nodiscard]] std::string withValue(std::string contents, std::string_view section,
                                    std::string_view key, std::wstring_view value);

}  // namespace ini_text
