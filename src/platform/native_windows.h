// Native windows that the program inspects and draws on from outside: the windows of controls whose
// messages it watches.
//
// A window that no longer exists is not an error here. Functions that return something then return
// the value documented for that case, and actions do nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/geometry.h"

namespace controls {
class Control;
class Window;
}  // namespace controls

namespace platform::native {

/// A native window; `none` where there is no window.
enum class WindowHandle : std::uintptr_t { none = 0 };

/// A position in pixels.
struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

/// A rectangle given by its edges, in pixels. `right` and `bottom` are exclusive.
struct Edges {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const Edges&) const = default;
};

/// The rectangle with every edge moved inwards by so many pixels, outwards by a negative number.
/// Raises `error::overflow` when a coordinate does not fit.
[[nodiscard]] constexpr Edges inset(const Edges& rect, int by) {
  return {sum(rect.left, by), sum(rect.top, by), sum(rect.right, -by), sum(rect.bottom, -by)};
}

/// Native window of a control; `none` when it has none, as labels and controls of windows that
/// are not loaded have none.
[[nodiscard]] WindowHandle windowOf(const controls::Control& control);
/// Native window of a window; `none` when it is not loaded.
[[nodiscard]] WindowHandle windowOf(const controls::Window& window);

/// Style bits of a window, 0 for one that is gone.
[[nodiscard]] std::uint32_t style(WindowHandle window);
/// Parent, first child, and first child of a given class (`none` when there is no such window).
[[nodiscard]] WindowHandle parent(WindowHandle window);
[[nodiscard]] WindowHandle firstChild(WindowHandle window);
[[nodiscard]] WindowHandle childOfClass(WindowHandle window, const std::wstring& className);
/// The whole window in screen coordinates, and its client area in client coordinates; empty for a
/// window that no longer exists.
[[nodiscard]] Edges windowRect(WindowHandle window);
[[nodiscard]] Edges clientRect(WindowHandle window);
/// Converts a position on the screen to client coordinates of `window`.
[[nodiscard]] Point toClient(WindowHandle window, Point screen);
/// Whether the window has the keyboard focus; never true for `none`.
[[nodiscard]] bool hasFocus(WindowHandle window);
[[nodiscard]] bool enabled(WindowHandle window);
/// Whether the list of a combo box is dropped down.
[[nodiscard]] bool listDropped(WindowHandle comboBox);
/// Width in pixels of a scroll bar's thumb at the dpi of `window`.
[[nodiscard]] int thumbWidth(WindowHandle window);
/// Position of the pointer in screen coordinates.
[[nodiscard]] Point cursor();

/// Starts or restarts timer `id` of a window. The timer sends WM_TIMER messages to the window.
void setTimer(WindowHandle window, std::uintptr_t id, unsigned milliseconds);
void killTimer(WindowHandle window, std::uintptr_t id);

/// An OLE colour (a colour as 0x00BBGGRR, or 0x80000000 plus the number of a system colour) as
/// 0x00BBGGRR; nothing when it is neither.
[[nodiscard]] std::optional<std::uint32_t> translateColour(std::uint32_t oleColour);

/// Draws lines one pixel wide on the client area of a window, in client coordinates. For immediate
/// use only: no messages may be processed while the object exists.
class LineCanvas {
 public:
  /// Drawing on `none`, or on a window that no longer exists, does nothing.
  explicit LineCanvas(WindowHandle window);
  LineCanvas(const LineCanvas&) = delete;
  LineCanvas& operator=(const LineCanvas&) = delete;
  ~LineCanvas();

  /// A solid pen that is selected while the object exists; one at a time.
  class Pen {
   public:
    /// `colour` as 0x00BBGGRR.
    Pen(LineCanvas& canvas, std::uint32_t colour) : canvas_(canvas) { canvas_.takePen(colour); }
    Pen(const Pen&) = delete;
    Pen& operator=(const Pen&) = delete;
    ~Pen() { canvas_.dropPen(); }

   private:
    LineCanvas& canvas_;
  };

  /// Sets the position. It is kept when a pen is destroyed.
  void moveTo(Point place);
  /// Draws from the position to `place`, without the pixel at `place`. `place` becomes the
  /// position.
  void lineTo(Point place);

 private:
  void takePen(std::uint32_t colour);
  void dropPen();
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace platform::native
