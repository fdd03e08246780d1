// The Recycle Bin: deleting files so that the user can have them back.
#pragma once

#include <optional>
#include <string>

namespace platform::recycle_bin {

/// A file in the bin.
struct Item {
  std::wstring path;  ///< Where it was, as it was given.
  std::string id;     ///< Tells it from all other files in the bin; only the system reads it.
  bool operator==(const Item&) const = default;
};

/// Deletes a file with the errors of `files::remove`, but lets the bin of its drive keep it. The
/// shell shows nothing meanwhile. Nothing is returned when no bin took the file: the drive has
/// none, the file is too large for it, it is switched off. Then the file is deleted for good. If
/// the shell reports success and the file is still there, that is `error::permissionDenied`. Once
/// the file is gone no error is raised any more. All three functions are for the main thread.
[[nodiscard]] std::optional<Item> recycle(const std::wstring& path);

/// Whether the bin still has the file; false when the bin cannot be read, for whatever reason.
[[nodiscard]] bool holds(const Item& item);

/// Puts a file back where it was. Raises `error::fileNotFound` when the bin does not have it any
/// more, `error::fileExists` when something has its name by now, `error::pathNotFound` when its
/// folder is gone, `error::deviceError` when the shell has not put it there.
void restore(const Item& item);

}  // namespace platform::recycle_bin
