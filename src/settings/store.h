// What the program stores of its own between two runs: the place of its window, the widths of its
// columns and the like.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace settings {

/// The names of the stored values.
namespace key {
inline constexpr const wchar_t* example = L"CWIExample";
inline constexpr const wchar_t* placement = L"Placement";
inline constexpr const wchar_t* newestFirst = L"NewestFirst";
inline constexpr const wchar_t* columns = L"Columns";  ///< With the number of the list (from 0).
inline constexpr const wchar_t* drive = L"Drive";      ///< That the program was started from.
inline constexpr const wchar_t* drivesKept =
    L"DrivesKept";  ///< Pairs that are to stay as they are.
}  // namespace key

/// A value to be stored.
struct Value {
  std::wstring key;
  std::wstring text;
};

/// The store: a file "gateway3.ini" beside the program if there is one when the object is made,
/// else the user's part of the registry. A copy of the program that is carried around leaves
/// nothing on the machines where it was used.
class Store {
 public:
  Store();

  /// Whether the file is the store.
  [[nodiscard]] bool isFile() const { return contents_.has_value(); }
  /// The text of a value; `otherwise` when there is none. The file is not read again.
  [[nodiscard]] std::wstring value(const std::wstring& key, const std::wstring& otherwise) const;
  /// Stores values. The file is written whole or not at all, and not at all when it has these
  /// values already. Returns false when the file cannot be written. Raises
  /// `error::pathFileAccess` when the registry refuses a value.
  [[nodiscard]] bool keep(const std::vector<Value>& values);
  /// Whether the store can be written to, as far as that can be told without writing.
  [[nodiscard]] bool canKeep() const;

 private:
  /// Contents of the file when they were last read or written; nothing for the registry.
  std::optional<std::string> contents_;
};

}  // namespace settings
