// The list files: lines of double-quoted, comma-separated fields. A rewrite replaces the file
// atomically. The catalogue and the web list share this code.
//
// Everything here works on bytes of the system's code page. A record that an operation does not
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

/// What the program writes behind a record.
inline constexpr std::string_view lineEnd = "\r\n";

/// One line of a list file. The views point into the bytes that were given to the reader.
struct Record {
  static constexpr std::size_t fieldsRead = 3;

  std::string_view line;  ///< With its line end, which only the last line may lack.
  std::array<std::string_view, fieldsRead> fields;  ///< Quotes removed; "" where missing.
  std::size_t fieldCount = 0;                       ///< Fields on the line; 0 for a blank line.
  std::string_view rest;  ///< Everything after the last field read, from its comma on.

  /// Whether the line has a field `n` (from 0), even an empty one.
  [[nodiscard]] bool has(std::size_t n) const { return n < fieldCount; }
  /// Field `n` (from 0, below `fieldsRead`) as text; "" where missing.
  [[nodiscard]] std::wstring text(std::size_t n) const;
  /// The same into an existing text, to reuse its memory.
  void text(std::size_t n, std::wstring& text) const;
};

/// Reads records one after the other. A line ends with CR LF, LF or CR, or at the end of the file.
/// Fields are separated by commas. A quoted field may contain commas; a missing closing quote is
/// taken to be at the end of the line. A field never contains text of another line.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  /// Reads the next line into `record`; false at the end of the file.
  bool next(Record& record);

 private:
  std::string_view bytes_;
  std::size_t next_ = 0;  // offset of the next line
};

/// A record of the given fields, which are already in the code page, with CR LF. Quotes inside a
/// field are not escaped. A line end inside a field becomes a blank, because it would split the
/// record.
[[nodiscard]] std::string line(std::initializer_list<std::string_view> fields);

/// Appends a record to `content`. First completes a last line that has no line end.
void append(std::string& content, std::string_view record);

/// What an edit does with a record.
enum class Change {
  none,      ///< It stays, byte for byte.
  replaced,  ///< The bytes that the edit gave stand in its place; none for its removal.
};

/// Returns `content` with the changes that `edit` makes.
[[nodiscard]] std::string edited(std::string content,
                                 const std::function<Change(const Record&, std::string&)>& edit);

/// Returns the records for which `keep` is true, byte for byte.
[[nodiscard]] std::string filtered(std::string content,
                                   const std::function<bool(const Record&)>& keep);

/// What a rewrite does when the file is missing.
enum class Missing { isError, isEmpty };

/// Replaces the contents of the file at `path` by the result of `edit`: deletes a stale temporary
/// file, creates `temporary` beside the file, reads the file, writes the new contents to
/// `temporary`, and atomically replaces the file by it. If another program changed the file
/// meanwhile, `edit` is called again with the new contents. Raises what reading (with
/// `Missing::isEmpty`: reading for appending), writing and deleting the file raise; the file is
/// then unchanged. Raises `error::permissionDenied` when other programs keep changing the file.
void rewrite(const std::wstring& path, const std::wstring& temporary, Missing missing,
             const std::function<std::string(std::string)>& edit);

/// Replaces the file at `path` by `bytes` in the same way, but only if it is still in the state
/// `expected`. Raises `error::fileNotFound` when the file is missing.
[[nodiscard]] platform::files::Replaced replaceAll(const std::wstring& path,
                                                   const std::wstring& temporary,
                                                   const std::string& bytes,
                                                   const platform::files::Stamp& expected);

/// Replaces the file at `path` by `bytes` in the same way, whatever it contains. The bytes are
/// written to the temporary file before anything else is changed, and stay there after a failure.
/// Raises what writing them and what reading and deleting the file raise (`error::fileNotFound`:
/// missing), and `error::permissionDenied` when other programs keep changing the file. `replacing`
/// is called with the contents that are about to be replaced.
void overwrite(const std::wstring& path, const std::wstring& temporary, const std::string& bytes,
               const std::function<void(const std::string& old)>& replacing = {});

/// Path of the temporary file for a rewrite of the file at `path`: in the same folder.
[[nodiscard]] std::wstring temporaryBeside(const std::wstring& path);

/// Deletes a temporary file that a failed rewrite has left behind, if there is one.
void discardStale(const std::wstring& temporary);

}  // namespace list_file
