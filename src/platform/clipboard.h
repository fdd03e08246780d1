// The clipboard of the desktop.
#pragma once

#include <string>
#include <vector>

namespace platform::clipboard {

/// What is copied or pasted, dragged or dropped; each part may be empty.
struct Content {
  std::wstring text;
  std::vector<std::wstring> files{};  ///< Full paths, as Explorer copies files.
  std::wstring address{};             ///< As browsers drag a link.
  bool operator==(const Content&) const = default;
};

/// Replaces what is on the clipboard. False when another program does not let go of it.
[[nodiscard]] bool put(const Content& content);

/// What is on the clipboard; empty parts for everything else, and when another program does not let
/// go of it.
[[nodiscard]] Content content();

}  // namespace platform::clipboard
