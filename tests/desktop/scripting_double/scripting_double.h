// Names that the tests and the double of the system's scripting object share.
#pragma once

namespace scripting_double {

/// Class of the double.
inline constexpr const wchar_t* classId = L"{6F0C2B0E-9D1B-4E1D-8B35-5C6B6D0E4A17}";

/// Environment variable with the path of the file to which the double appends a line in UTF-8 for
/// each call: "createshortcut <path>", "put <property>=<value>", "get <property>", "Save".
inline constexpr const wchar_t* logVariable = L"QMK_SCRIPTING_LOG";

/// Environment variable with the name of a property that the double refuses to set.
inline constexpr const wchar_t* refusedVariable = L"QMK_SCRIPTING_REFUSES";

}  // namespace scripting_double
