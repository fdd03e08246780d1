// Reads and writes shortcut files with the scripting object "WScript.Shell".
#pragma once

#include <string>

#include "platform/shell_links.h"

namespace platform::win32::script_link {

/// Writes a shortcut. Returns false when the system has no such object, or when it refuses the
/// file, a property or the save; nothing new is on the disk then.
[[nodiscard]] bool write(const std::wstring& linkPath, const shell_links::Link& link);

/// Target that the shortcut stores; "" when the object does not return it.
[[nodiscard]] std::wstring targetOf(const std::wstring& linkPath);

/// Releases the scripting object. Must be called before this thread leaves COM.
void release();

}  // namespace platform::win32::script_link
