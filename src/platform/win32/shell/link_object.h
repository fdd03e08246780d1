// Shortcut files by way of the shell's own link object.
#pragma once

#include <windows.h>

#include <string>

#include "platform/shell_links.h"

namespace platform::win32::link_object {

/// Writes a shortcut, with the first icon of the icon file and without a hot key. The result is
/// that of the first call that failed; `created` tells whether there was an object to call.
[[nodiscard]] HRESULT write(const std::wstring& linkPath, const shell_links::Link& link,
                            bool& created);

/// Target that the shortcut stores, as it stores it; "" when it cannot be read.
[[nodiscard]] std::wstring targetOf(const std::wstring& linkPath);

}  // namespace platform::win32::link_object
