// What version 3.0.0 makes of the files and settings, kept because it may meet those of this
// version: somebody goes back to it, or two machines share a documents folder. It must not change:
// it is a copy of what was shipped, without all that does not read.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace reader_3_0_0 {

/// The lines of a list file, each with its line end, which only the last one may lack.
[[nodiscard]] std::vector<std::string> lines(std::string_view bytes);

/// One line as it was taken apart.
struct Fields {
  std::size_t count = 0;             ///< Fields on the line; 0 for a blank line.
  std::array<std::string, 3> first;  ///< The first three, without their quotes; "" where missing.
};

/// The lines of a list file.
[[nodiscard]] std::vector<Fields> fields(std::string_view bytes);

/// A row of the Open tab, from `name` on in the order of its columns.
struct DataFile {
  std::wstring name;
  std::wstring date;
  std::wstring label;   ///< The type as the user saw it; "" for an unknown type code.
  std::wstring folder;  ///< With a trailing backslash.
  std::wstring type;    ///< Type code as stored in the record.
  std::wstring picture;
};

/// What the Open tab showed of a catalogue, in the order of the file.
[[nodiscard]] std::vector<DataFile> dataFiles(std::string_view bytes);

/// A row of the Web tab.
struct WebEntry {
  std::wstring name;
  std::wstring url;
};

/// What the Web tab showed of a web list, in the order of the file.
[[nodiscard]] std::vector<WebEntry> webEntries(std::string_view bytes);

/// Where the main window was put.
struct Placement {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  int dpi = 0;
  bool maximised = false;
  bool operator==(const Placement&) const = default;
};

/// The setting "Placement"; nothing for a text that was not taken.
[[nodiscard]] std::optional<Placement> placement(const std::wstring& text);

/// Widths in twips that the columns of a list had after its setting "Columns" was read; `designed`
/// are those before. Nothing for a text that was not taken.
[[nodiscard]] std::optional<std::vector<int>> columnWidths(const std::vector<int>& designed,
                                                           const std::wstring& text);

/// The designed widths of the columns of the lists Tools, Open, New and Web.
[[nodiscard]] const std::vector<std::vector<int>>& designedWidths();

/// Whether the setting "CWIExample" said that the example file has been listed already.
[[nodiscard]] bool exampleIsListed(const std::wstring& text);

}  // namespace reader_3_0_0
