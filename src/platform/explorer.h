// Showing files where they lie, in the system's own windows.
#pragma once

#include <string>

namespace platform::explorer {

/// Opens the folder of a file or folder, with that one marked in it. Raises what starting a program
/// raises.
void showMarked(const std::wstring& path);

/// Opens a folder, with or without a trailing backslash. Raises what starting a program raises.
void showFolder(const std::wstring& folder);

}  // namespace platform::explorer
