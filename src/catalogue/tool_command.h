// Starting other programs.
#pragma once

#include <string>

namespace ModQMKgeneral2 {

/// A program to start: its path, and what follows the path on the command line (with the blank
/// that parts them).
struct ToolCommand {
  std::wstring executable;
  std::wstring arguments;
  /// The command line as the program receives it; the path is not quoted.
  [[nodiscard]] std::wstring text() const { return executable + arguments; }
};

/// Starts a program in a normal, focused window without waiting for it. False when it cannot be
/// started, after showing "Can't start application". Who started it reloads what it may change.
[[nodiscard]] bool StartTool(const ToolCommand& command);

}  // namespace ModQMKgeneral2
