// Starting other programs.
#pragma once

#include <string>

namespace ModQMKgeneral2 {

/// A program to start: its path, and the text that follows the path on the command line (including
/// the blank between them).
struct ToolCommand {
  std::wstring executable;
  std::wstring arguments;
  /// The command line that the program receives. The path is not quoted.
  [[nodiscard]] std::wstring text() const { return executable + arguments; }
};

/// Starts a program in a normal, focused window without waiting for it. If it cannot be started,
/// shows "Can't start application" and returns false. Reloading the lists is left to the caller.
[[nodiscard]] bool startTool(const ToolCommand& command);

}  // namespace ModQMKgeneral2
