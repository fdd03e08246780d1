// The copies of the two list files that are kept, by their names: "QMKFileList3 2026-11-22.txt" is
// what the list was before the first change of that day, "QMKFileList3 2026-11-22 143015.txt" what
// it was at that moment.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"

namespace kept_lists {

/// The two lists.
enum class Which { dataFiles = 0, web = 1 };
inline constexpr std::array both{Which::dataFiles, Which::web};

/// How many copies of each list are kept.
inline constexpr std::size_t most = 10;

/// Name of a list's file, without folder and ending.
[[nodiscard]] std::wstring_view nameOf(Which list);

/// Path of a list's file.
[[nodiscard]] std::wstring pathOf(Which list);

/// What a list's file contains at present; nothing when there is none. Raises what reading raises.
[[nodiscard]] std::optional<std::string> presentContents(Which list);

/// The list whose file has that path; nothing for another file.
[[nodiscard]] std::optional<Which> listAt(std::wstring_view path);

/// One copy.
struct Copy {
  std::wstring name;                        ///< Of the file, without its folder.
  platform::clock::Moment made = {};        ///< The time is 0 where the name has none.
  bool timed = false;                       ///< Whether the name has a time.
  std::uint64_t size = 0;                   ///< Bytes.
  [[nodiscard]] std::wstring date() const;  ///< As in "2026-11-22" and "2026-11-22 14:30:15".
};

/// Name of the copy of a list at a moment, with the time or without it.
[[nodiscard]] std::wstring nameOfCopy(Which list, const platform::clock::Moment& made, bool timed);

/// What the name of a file tells; nothing for a file that is no copy of that list. Its size is 0.
[[nodiscard]] std::optional<Copy> fromName(Which list, std::wstring_view name);

/// The copies of a list in a folder, the newest first; none when the folder cannot be read.
[[nodiscard]] std::vector<Copy> in(const std::wstring& folder, Which list);

/// The next second.
[[nodiscard]] platform::clock::Moment secondAfter(const platform::clock::Moment& moment);

}  // namespace kept_lists
