// Shortcut files by way of the scripting object "WScript.Shell".
#pragma once

#include <string>

#include "platform/shell_links.h"

namespace platform::win32::script_link {

/// Writes a shortcut. False when the system has no such object or the object refuses the file,
/// a property or the save; nothing is on disk then that was not there before.
[[nodiscard]] bool write(const std::wstring& linkPath, const shell_links::Link& link);

/// Target that the shortcut stores; "" when the object does not tell.
[[nodiscard]] std::wstring targetOf(const std::wstring& linkPath);

/// Gives the scripting object back; to be called before this thread leaves COM.
void release();

}  // namespace platform::win32::script_link
