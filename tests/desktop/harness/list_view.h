// A list view of the driven program, read through the control itself.
#pragma once

#include <windows.h>

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace harness {

class ListViewReader {
 public:
  explicit ListViewReader(HWND list) : list_(list) {}

  struct Column {
    std::wstring text;
    int width = 0;   ///< Pixels.
    int format = 0;  ///< HDF_... flags of the header item.
    bool operator==(const Column&) const = default;
  };

  [[nodiscard]] HWND window() const { return list_; }
  [[nodiscard]] int count() const;
  [[nodiscard]] std::wstring cell(int row, int column) const;
  /// All columns of a row, hidden ones too.
  [[nodiscard]] std::vector<std::wstring> row(int index) const;
  [[nodiscard]] std::vector<std::vector<std::wstring>> rows() const;
  /// Texts of the first column.
  [[nodiscard]] std::vector<std::wstring> texts() const;
  /// First row with that text.
  [[nodiscard]] std::optional<int> find(const std::wstring& text) const;
  /// Position of a row's picture in the image list; negative for none.
  [[nodiscard]] int image(int row) const;

  [[nodiscard]] std::vector<Column> columns() const;
  [[nodiscard]] bool headerShown() const;
  [[nodiscard]] HWND header() const;
  /// Rectangle of a column's header on the screen.
  [[nodiscard]] RECT headerOnScreen(int column) const;
  /// LV_VIEW_... number.
  [[nodiscard]] int view() const;
  /// Window style of the list.
  [[nodiscard]] DWORD style() const;

  [[nodiscard]] std::optional<int> selected() const;
  [[nodiscard]] std::optional<int> focused() const;
  [[nodiscard]] int topRow() const;
  void scrollIntoView(int row) const;
  /// Rectangle of a row's text on the screen.
  [[nodiscard]] RECT textOnScreen(int row) const;

 private:
  HWND list_;
};

/// How test results show a column.
void PrintTo(const ListViewReader::Column& column, std::ostream* out);

}  // namespace harness
