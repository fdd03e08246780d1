// Reads and writes shortcut files with the shell's own link object.
#pragma once

#include <windows.h>

#include <string>

#include "platform/shell_links.h"

namespace platform::win32::link_object {

/// Writes a shortcut, with the first icon of the icon file and without a hot key. Returns the
/// result of the first call that failed. `created` is set to whether the object could be created.
[[nodiscard]] HRESULT write(const std::wstring& linkPath, const shell_links::Link& link,
                            bool& created);

/// Target exactly as the shortcut stores it; "" when it cannot be read.
[[nodiscard]] std::wstring targetOf(const std::wstring& linkPath);

}  // namespace platform::win32::link_object
