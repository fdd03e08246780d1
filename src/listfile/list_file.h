// The list files: lines of double-quoted, comma-separated fields, rewritten so that the file is at
// every instant either the old one or the new one. The catalogue and the web list share this code.
//
// Everything here works on bytes of the system's code page; a record that an operation does not
// change keeps its bytes.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace list_file {

/// One line of a list file. The views point into the bytes that the reader was given.
struct Record {
  static constexpr std::size_t fieldsRead = 3;

  std::string_view line;  ///< With its line end; without one only at the end of the file.
  std::array<std::string_view, fieldsRead> fields;  ///< Quotes removed; "" where missing.
  std::size_t fieldCount = 0;                       ///< Fields on the line; 0 for a blank line.
  std::string_view rest;  ///< What follows the last field read, from its comma on.

  /// Whether the line holds field `n` (from 0), be it empty.
  [[nodiscard]] bool has(std::size_t n) const { return n < fieldCount; }
  /// Field `n` (from 0, below `fieldsRead`) as text; "" where missing.
  [[nodiscard]] std::wstring text(std::size_t n) const;
  /// The same into a text that is there already, whose memory is used again.
  void text(std::size_t n, std::wstring& text) const;
};

/// Reads records one after the other. A line ends with CR LF, LF or CR, or with the file. Fields
/// are separated by commas; a field in quotes may hold commas, a quote that is not closed ends
/// with its line. A field never comes from another line.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  /// Reads the next line into `record`; false at the end of the file.
  bool next(Record& record);

 private:
  std::string_view bytes_;
  std::size_t next_ = 0;  // where the next line begins
};

/// A record of the given fields, which are already in the code page, with its CR LF. Quotes inside
/// a field are not escaped; a line end inside a field becomes a blank, as it would tear the record.
[[nodiscard]] std::string line(std::initializer_list<std::string_view> fields);

/// Adds a record at the end of `content`, after ending a last line that lacks its line end.
void append(std::string& content, std::string_view record);

/// What an edit makes of one record.
enum class Change {
  none,      ///< It stays, byte for byte.
  replaced,  ///< The bytes that the edit gave stand in its place; none for its removal.
};

/// The records, with those changed that `edit` changes.
[[nodiscard]] std::string edited(std::string content,
                                 const std::function<Change(const Record&, std::string&)>& edit);

/// The records for which `keep` holds, byte for byte.
[[nodiscard]] std::string filtered(std::string content,
                                   const std::function<bool(const Record&)>& keep);

/// How a rewrite takes a file that is missing.
enum class Missing { isError, isEmpty };

/// Replaces the contents of the file at `path` by what `edit` makes of them, by way of the file
/// `temporary` beside it: deletes a stale temporary file, reads, writes the temporary file, and
/// puts it in the place of the old one in one atomic step. If another program changed the file
/// meanwhile, `edit` is called again with the new contents. Raises what reading (with
/// `Missing::isEmpty`: appending), writing and deleting the file raise; the file is then as it
/// was. Raises 70 when other programs keep changing it.
void rewrite(const std::wstring& path, const std::wstring& temporary, Missing missing,
             const std::function<std::string(std::string)>& edit);

/// Puts `bytes` in the place of the file at `path` in the same way, whatever it holds, but only
/// if it is still in the state `expected`. Raises 53 when the file is missing.
[[nodiscard]] platform::files::Replaced replaceAll(const std::wstring& path,
                                                   const std::wstring& temporary,
                                                   const std::string& bytes,
                                                   const platform::files::Stamp& expected);

/// Puts `bytes` in the place of the file at `path` in the same way, whatever it holds. They are in
/// the temporary file, and stay there on a failure, before anything else is touched. Raises what
/// writing them, and reading and deleting the file raise (53: missing), and 70 when other programs
/// keep changing it.
void overwrite(const std::wstring& path, const std::wstring& temporary, const std::string& bytes);

/// Deletes the temporary file that a failed rewrite has left behind, if there is one.
void discardStale(const std::wstring& temporary);

}  // namespace list_file
