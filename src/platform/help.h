// The system's help viewers.
#pragma once

#include <string>

namespace platform::help {

/// Help command of classic help that shows the contents.
inline constexpr int contents = 3;

/// Sends a help command for a classic help file to the viewer, without waiting for it. Ignored
/// while the viewer is still busy with the previous request. The viewer itself reports failures.
void showClassic(const std::wstring& file, int command);

/// Opens a compiled help file at its default topic. Shows nothing when the file or the viewer is
/// missing.
void showCompiled(const std::wstring& file);

}  // namespace platform::help
