// A drive that has got another letter since the program was last started from it: a stick that was
// E: and is F: now.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/missing_files.h"
#include "catalogue/moved_records.h"

namespace modQMKGeneral {

/// The letter, as in "E:", of the drive that a path is on, as a capital. "" for a network path, a
/// network drive and everything else without a letter of its own.
[[nodiscard]] std::wstring ownLetter(const std::wstring& path);

/// The entries that lie on the drive `before`, are missing there, and have a file of the same path
/// on the drive `now` that is not listed yet. None, unless most of all missing entries lie on
/// `before`. Asks the drives, so it may take long; may be called on any thread.
[[nodiscard]] std::vector<PathChange> entriesThatFollow(std::vector<ListedFolder> entries,
                                                        const std::wstring& before,
                                                        const std::wstring& now);

/// Pairs of letters that are to stay as they are, in the form in which they are stored:
/// "E:F: G:H:".
[[nodiscard]] bool hasPair(std::wstring_view pairs, const std::wstring& before,
                           const std::wstring& now);
[[nodiscard]] std::wstring withPair(const std::wstring& pairs, const std::wstring& before,
                                    const std::wstring& now);

/// As in "This stick was E:, now it is F:. Change 14 entries?"
[[nodiscard]] std::wstring driveQuestion(const std::wstring& before, const std::wstring& now,
                                         std::size_t entries);

}  // namespace modQMKGeneral
