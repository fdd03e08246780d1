// The four types of data files, with everything that the program knows about them.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace modQMKGeneral {

/// Numbers of the data types, as `TypeNumberFromExtension` returns them.
inline constexpr int typeFP3 = 0;
inline constexpr int typeBS3 = 1;
inline constexpr int typeBI3 = 2;
inline constexpr int typeCW3 = 3;
inline constexpr int typeUnknown = 99;

/// A type of data file, and the tool that owns it.
struct DataType {
  int number = typeUnknown;
  std::wstring_view code;       ///< In upper case, for messages and the New tab.
  std::wstring_view extension;  ///< In lower case, for searches and built records.
  std::wstring_view picture;    ///< Key in the lists' image lists.
  std::wstring_view label;      ///< Name in the Open tab's list.
  std::wstring_view filter;     ///< Name in the open dialog.
  std::wstring_view tool;       ///< Executable in the application folder.
  /// Goes between the tool and the path of a file that was chosen by browsing.
  std::wstring_view browseSwitch;
  std::wstring_view newFile;  ///< Item of the New tab.
  /// Argument that asks the tool for a new file; when empty, the type code as listed is used.
  std::wstring_view newFileRequest;
};

/// The types in the order of searches, filters and the New tab.
[[nodiscard]] std::span<const DataType> dataTypes();

/// The type of a code, in any letter case; nullptr when there is none.
[[nodiscard]] const DataType* typeOfCode(std::wstring_view code);

/// The type of a number; nullptr when there is none.
[[nodiscard]] const DataType* typeOfNumber(int number);

/// Number of the type that the extension names. An empty name counts as a fuel profile; an unknown
/// extension gives 99. Raises `error::invalidCall` for a name of one to three characters.
[[nodiscard]] int TypeNumberFromExtension(const std::wstring& fileName);

/// Filter of the open dialog for data files: "label|pattern|label|pattern".
[[nodiscard]] std::wstring dataFileFilter();

}  // namespace modQMKGeneral
