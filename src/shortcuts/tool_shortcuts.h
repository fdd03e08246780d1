// Shortcut files: the writer and reader, and the shortcuts of the suite's own tools.
#pragma once

#include <string>

namespace modSC {

/// Writes the shortcut of a suite tool; an existing file of that name is overwritten. Its
/// description is its own path, its icon the target's, and it starts maximised. `reserved` is not
/// used. Raises 429 when the system cannot write shortcuts, or the number of the failed save.
void CreateToolShortcut(const std::wstring& targetPath, const std::wstring& linkPath,
                        const std::wstring& workingFolder, const std::wstring& reserved);

/// Reads the target that a shortcut stores into `target`; "" when it cannot be read.
void GetShortcutTarget(const std::wstring& linkPath, std::wstring& target);

/// Deletes a file; whatever goes wrong is ignored.
void RemoveIgnoringErrors(const std::wstring& path);

/// Makes sure that every suite tool in the application folder has a fresh shortcut in the
/// shortcuts folder, and that obsolete and misdirected ones go. Shortcuts to other programs are
/// never touched. Errors of saving, and of deleting anything but an obsolete one, go to the caller.
void ProvisionToolShortcuts();

}  // namespace modSC
