// Where files may be that are not where the list says, and which places fit.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "catalogue/missing_files.h"

namespace modQMKGeneral {

/// A file that may be a missing one.
struct FoundFile {
  std::size_t folder = 0;  ///< Number of the missing entry's folder,
  std::size_t name = 0;    ///< and of its name there.
  std::wstring path;       ///< Where the file is.
};

/// The files with the paths of missing entries on the other drives that answer. Slow drives, too:
/// most often a memory stick or a network drive has got another letter. Asks the drives, so it may
/// take long; may be called on any thread.
[[nodiscard]] std::vector<FoundFile> onOtherDrives(const std::vector<ListedFolder>& missing);

/// The files among many that may be missing entries.
struct FoundByName {
  std::vector<FoundFile> files;
  std::size_t unclear = 0;  ///< Number of entries left out: too many files fit them equally well.
};

/// Finds the entries among `paths` by their names. Where several files have the name, the one fits
/// best that has the most folders above it in common with the entry. All that fit equally well are
/// found, unless they are too many for a question.
[[nodiscard]] FoundByName amongFiles(const std::vector<ListedFolder>& missing,
                                     const std::vector<std::wstring>& paths);

/// Entries that a folder, with the folders below it, has moved away with.
struct Move {
  std::wstring from;  ///< With a trailing backslash.
  /// Where it may be now, with trailing backslashes. Several, if they fit equally well.
  std::vector<std::wstring> to;
  std::vector<std::vector<FoundFile>> files;  ///< For each place the same entries.
  std::size_t kept = 0;  ///< Number of folders above each file that stay, at the most.
};

/// Puts together what has moved together: entries whose folders have changed in the same way. The
/// moves that keep the most folders come first, and of these the ones with the most entries.
[[nodiscard]] std::vector<Move> movesOf(const std::vector<ListedFolder>& missing,
                                        std::vector<FoundFile> found);

/// Asks about each move and returns the files that the user wants the list to show. No file is
/// returned for two different entries.
[[nodiscard]] std::vector<FoundFile> askAboutMoves(const std::vector<ListedFolder>& missing,
                                                   std::vector<Move> moves);

}  // namespace modQMKGeneral
