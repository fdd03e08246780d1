// The clipboard of the desktop.
#pragma once

#include <string>
#include <vector>

namespace platform::clipboard {

/// What is copied; either part may be empty.
struct Content {
  std::wstring text;
  std::vector<std::wstring> files;  ///< Full paths, as Explorer copies files.
  bool operator==(const Content&) const = default;
};

/// Replaces what is on the clipboard. False when another program does not let go of it.
[[nodiscard]] bool put(const Content& content);

}  // namespace platform::clipboard
