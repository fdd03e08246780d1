// The system's help viewers.
#pragma once

#include <functional>
#include <string>

namespace platform::help {

/// Help command of classic help that shows the contents.
inline constexpr int contents = 3;

/// Sends a help command for a classic help file to the viewer, without waiting for it. Ignored
/// while the viewer is still busy with the previous request. The viewer itself reports failures;
/// `refused` is called later, on this thread, if the system has no viewer for such files any more.
void showClassic(const std::wstring& file, int command, std::function<void()> refused);

/// Opens a compiled help file at its default topic. False when nothing is shown because the file or
/// the viewer is missing.
[[nodiscard]] bool showCompiled(const std::wstring& file);

/// Closes the windows of compiled help. They belong to this process, and its end does not wait for
/// them.
void close();

}  // namespace platform::help
