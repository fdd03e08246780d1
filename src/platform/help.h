// The system's help viewers.
#pragma once

#include <string>

namespace platform::help {

/// Command of classic help that shows the contents.
inline constexpr int contents = 3;

/// Asks the viewer for a classic help file with a help command, without waiting for it; ignored
/// while the viewer has not dealt with the request before. Failures are the viewer's to report.
void showClassic(const std::wstring& file, int command);

/// Opens a compiled help file at its default topic. A missing file or viewer shows nothing.
void showCompiled(const std::wstring& file);

}  // namespace platform::help
