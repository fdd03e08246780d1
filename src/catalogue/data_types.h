// The four types of data files: everything that the program knows of them, once.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace modQMKGeneral {

/// Numbers of the data types, as `TypeNumberFromExtension` gives them.
inline constexpr int typeFP3 = 0;
inline constexpr int typeBS3 = 1;
inline constexpr int typeBI3 = 2;
inline constexpr int typeCW3 = 3;
inline constexpr int typeUnknown = 99;

/// A type of data file, and the tool that owns it.
struct DataType {
  int number = typeUnknown;
  std::wstring_view code;       ///< In upper case, as messages and the New tab have it.
  std::wstring_view extension;  ///< In lower case, as searches and the records of a build have it.
  std::wstring_view picture;    ///< Key in the lists' pictures.
  std::wstring_view label;      ///< In the Open tab's list.
  std::wstring_view filter;     ///< Name in the dialog that opens a file.
  std::wstring_view tool;       ///< Executable in the application folder.
  /// What stands between the tool and the path of a file that was chosen by browsing.
  std::wstring_view browseSwitch;
  std::wstring_view newFile;  ///< Item of the New tab.
  /// What asks the tool for a new file; empty where the type code, as it is listed, does.
  std::wstring_view newFileRequest;
  /// How far the load of the view has come when it knows the type, or that it is none of them.
  const wchar_t* location = L"6";
};

/// The types in the order in which searches, filters and the New tab have them.
[[nodiscard]] std::span<const DataType> dataTypes();

/// The type of a code, in any letter case; nullptr when there is none.
[[nodiscard]] const DataType* typeOfCode(std::wstring_view code);

/// The type of a number; nullptr when there is none.
[[nodiscard]] const DataType* typeOfNumber(int number);

/// Number of the type that the extension names; an empty name counts as a fuel profile, an
/// unknown extension is 99. Raises `error::invalidCall` for a name of one to three characters.
[[nodiscard]] int TypeNumberFromExtension(const std::wstring& fileName);

/// What the dialog that opens a data file offers: "label|pattern|label|pattern".
[[nodiscard]] std::wstring dataFileFilter();

}  // namespace modQMKGeneral
