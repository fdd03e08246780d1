// The folders of the shell and of the system.
#pragma once

#include <optional>
#include <string>

namespace controls {
class Window;
}

namespace platform::folders {

/// The user's documents folder, the only special folder the program asks for.
inline constexpr int personal = 5;

/// Path of a special folder exactly as the shell reports it (a drive's root keeps its backslash).
/// Nothing when the shell does not know the folder, or when it has no path. `owner` is the owner
/// window of anything that the shell shows meanwhile.
[[nodiscard]] std::optional<std::wstring> specialFolder(const controls::Window& owner, int id);

/// Folder of the system itself, without a trailing backslash.
[[nodiscard]] std::wstring windowsFolder();

}  // namespace platform::folders
