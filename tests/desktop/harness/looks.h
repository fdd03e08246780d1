// What the driven program's windows look like: fonts, pictures, colours on the screen.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace harness {

/// Has everything painted in a window that waits for it. A dialog that is closed before it was
/// painted holds less than one that was seen; a window that is just being painted holds more.
void paint(HWND window);

/// Height of a control's characters in pixels.
[[nodiscard]] int fontHeight(HWND control);

/// Size of the pictures of a list or a toolbar, which tells its image list in answer to `message`
/// with `which`.
[[nodiscard]] SIZE imageSize(HWND control, UINT message, WPARAM which);

/// Other system colours, as a running program is told of them, until the end of this object.
class ChangedColours {
 public:
  /// COLOR_... to colour; changed in the process of `window`.
  ChangedColours(HWND window, const std::map<int, COLORREF>& colours);
  ChangedColours(const ChangedColours&) = delete;
  ChangedColours& operator=(const ChangedColours&) = delete;
  ~ChangedColours();

 private:
  std::map<int, COLORREF> before_;
};

/// How far two colours stand apart, from 1 (the same) to 21 (black and white), by the luminance
/// that people see.
[[nodiscard]] double contrast(COLORREF a, COLORREF b);

/// What is written somewhere on the screen.
struct Writing {
  COLORREF background = 0;  ///< The most frequent colour.
  COLORREF text = 0;        ///< The colour that stands apart from it most.
  std::size_t pixels = 0;   ///< How many pixels stand apart from the background.
  [[nodiscard]] double contrast() const { return harness::contrast(background, text); }
};

/// Looks at a part of the screen.
[[nodiscard]] Writing writingAt(const RECT& place);

/// How often a colour occurs in a part of the screen.
[[nodiscard]] std::size_t pixelsOf(COLORREF colour, const RECT& place);

/// "#rrggbb".
[[nodiscard]] std::string colourText(COLORREF colour);

}  // namespace harness
