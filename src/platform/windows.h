// Native windows for the program's window objects.
//
// A window object and its controls work without any of this; these calls make them visible. The
// native side has peers, which mirror property changes and call the controls' `raise...` functions.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/geometry.h"

namespace controls {
class Window;
}

namespace platform::windows {

/// Creates the native window (hidden) and the native controls of `window`, and attaches their
/// peers. Raises `error::outOfMemory` when the system refuses to create a window.
void create(controls::Window& window);

/// Detaches all peers of `window` and destroys its native windows and timers.
void destroy(controls::Window& window);

/// Processes messages until `window` is no longer loaded. The program's other windows take no input
/// meanwhile.
void runModal(controls::Window& window);

/// The program's main loop: processes messages until `mainWindow` is no longer loaded.
void run(controls::Window& mainWindow);

/// Paints what is waiting to be painted in the program's windows. Nothing else is processed: what
/// the user types and clicks stays where it is, in its order.
void paintPending();

/// A text style of the program's windows.
struct Font {
  int pointSize = 9;
  bool bold = false;
  bool operator==(const Font&) const = default;
};

/// Height in pixels of `text` when it is broken into lines of at most `width` pixels.
[[nodiscard]] int textHeight(const std::wstring& text, const Font& font, int width, int dpi);

/// Size in pixels of `text` on one line in `font` at `dpi`.
[[nodiscard]] Size textSize(const std::wstring& text, const Font& font, int dpi);

/// Width in pixels of the widest of `count` texts, each on one line; `textAt(n)` is text number n.
/// Kerning is left out of account, except for the widest one.
[[nodiscard]] int widestText(std::size_t count,
                             const std::function<std::wstring_view(std::size_t)>& textAt,
                             const Font& font, int dpi);

}  // namespace platform::windows
