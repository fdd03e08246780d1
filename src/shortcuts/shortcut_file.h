// Reading and writing a shortcut file.
#pragma once

#include <string>

namespace modSC {

/// Writes the shortcut of a suite tool; an existing file of that name is overwritten. Its
/// description is its own path, its icon is the target's, and it starts maximised. `reserved` is
/// not used. Raises `error::cannotCreateObject` when the system cannot write shortcuts, or the
/// error of the failed save.
void CreateToolShortcut(const std::wstring& targetPath, const std::wstring& linkPath,
                        const std::wstring& workingFolder, const std::wstring& reserved);

/// Reads the target that a shortcut stores into `target`; "" when the shortcut cannot be read.
void GetShortcutTarget(const std::wstring& linkPath, std::wstring& target);

/// Window style of a shortcut that starts its program maximised.
inline constexpr int startMaximised = 3;

/// Deletes a file and ignores all errors.
void removeIgnoringErrors(const std::wstring& path);

}  // namespace modSC
