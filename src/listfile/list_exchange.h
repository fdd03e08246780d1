// Lists that come from elsewhere or go elsewhere: records of another list file, and tables for
// spreadsheets.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "listfile/list_file.h"

namespace list_file {

/// What identifies the entry of a record; nothing for a record that has no entry.
using KeyOf = std::function<std::optional<std::wstring>(const Record&)>;

/// A list with the records of another one behind its own.
struct Merged {
  std::string content;
  std::size_t added = 0;
  std::size_t present = 0;     ///< Records whose entry the list has already, or has by now.
  std::size_t withoutKey = 0;  ///< Records without an entry. Blank lines are not counted.
};

/// Appends to `content` the records of `more` whose entry it does not have yet, byte for byte and
/// in their order.
[[nodiscard]] Merged merged(std::string content, std::string_view more, const KeyOf& keyOf);

/// The rows as comma-separated values (RFC 4180), in UTF-8 with a byte order mark, so that
/// spreadsheets read every letter. A broken surrogate becomes U+FFFD.
[[nodiscard]] std::string csv(const std::vector<std::vector<std::wstring>>& rows);

}  // namespace list_file
