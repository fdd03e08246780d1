// The look of the driven program's windows: fonts, pictures, colours on the screen.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace harness {

/// Makes a window paint everything that needs painting. Resources differ between a dialog that was
/// closed before it was painted, one that was painted, and a window that is being painted.
void paint(HWND window);

/// Height of a control's characters in pixels.
[[nodiscard]] int fontHeight(HWND control);

/// Size of the pictures of a list or a toolbar. `message` with `which` asks the control for its
/// image list.
[[nodiscard]] SIZE imageSize(HWND control, UINT message, WPARAM which);

/// Changes the system colours that a running program sees, while this object exists.
class ChangedColours {
 public:
  /// From COLOR_... to the colour; changed in the process of `window`.
  ChangedColours(HWND window, const std::map<int, COLORREF>& colours);
  ChangedColours(const ChangedColours&) = delete;
  ChangedColours& operator=(const ChangedColours&) = delete;
  ~ChangedColours();

 private:
  std::map<int, COLORREF> before_;
};

/// Contrast of two colours, from 1 (the same) to 21 (black and white), by their luminance.
[[nodiscard]] double contrast(COLORREF a, COLORREF b);

/// Text somewhere on the screen.
struct Writing {
  COLORREF background = 0;  ///< The most frequent colour.
  COLORREF text = 0;        ///< The colour with the highest contrast to it.
  std::size_t pixels = 0;   ///< Number of pixels that contrast with the background.
  [[nodiscard]] double contrast() const { return harness::contrast(background, text); }
};

/// Analyses a part of the screen.
[[nodiscard]] Writing writingAt(const RECT& place);

/// How often a colour occurs in a part of the screen.
[[nodiscard]] std::size_t pixelsOf(COLORREF colour, const RECT& place);

/// "#rrggbb".
[[nodiscard]] std::string colourText(COLORREF colour);

}  // namespace harness
