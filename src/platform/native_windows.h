// Native windows that the program looks at, and draws on, from outside: the windows of controls
// whose messages it watches.
//
// A window that is gone is no error anywhere here: questions about it have the answers that are
// given for it, and actions on it do nothing.
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

/// A place in pixels.
struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

/// A rectangle by its edges, in pixels; right and bottom lie just outside it.
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
/// Parent, first child, and first child of a class (`none` when there is no such window).
[[nodiscard]] WindowHandle parent(WindowHandle window);
[[nodiscard]] WindowHandle firstChild(WindowHandle window);
[[nodiscard]] WindowHandle childOfClass(WindowHandle window, const std::wstring& className);
/// Whole window in screen coordinates, and its client area in its own; empty for one that is gone.
[[nodiscard]] Edges windowRect(WindowHandle window);
[[nodiscard]] Edges clientRect(WindowHandle window);
/// A place of the screen in the client coordinates of `window`.
[[nodiscard]] Point toClient(WindowHandle window, Point screen);
/// Whether the window has the keyboard focus; never true for `none`.
[[nodiscard]] bool hasFocus(WindowHandle window);
[[nodiscard]] bool enabled(WindowHandle window);
/// Whether the list of a combo box is dropped down.
[[nodiscard]] bool listDropped(WindowHandle comboBox);
/// Width in pixels of a scroll bar's thumb at the density of `window`.
[[nodiscard]] int thumbWidth(WindowHandle window);
/// Position of the pointer in screen coordinates.
[[nodiscard]] Point cursor();

/// Starts (or starts afresh) timer `id` of a window, which sends it WM_TIMER messages.
void setTimer(WindowHandle window, std::uintptr_t id, unsigned milliseconds);
void killTimer(WindowHandle window, std::uintptr_t id);

/// An OLE colour (a colour as 0x00BBGGRR, or 0x80000000 plus the number of a system colour) as
/// 0x00BBGGRR; nothing when it is neither.
[[nodiscard]] std::optional<std::uint32_t> translateColour(std::uint32_t oleColour);

/// Lines one pixel wide on the client area of a window, in its client coordinates. It belongs to
/// the moment: no messages may be processed while it lives.
class LineCanvas {
 public:
  /// On a window that is gone, or `none`, drawing does nothing.
  explicit LineCanvas(WindowHandle window);
  LineCanvas(const LineCanvas&) = delete;
  LineCanvas& operator=(const LineCanvas&) = delete;
  ~LineCanvas();

  /// A solid pen in use as long as the object lives; one at a time.
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

  /// Sets the position, which also outlives a pen.
  void moveTo(Point place);
  /// Draws from the position to `place`, without the pixel at `place`, and moves there.
  void lineTo(Point place);

 private:
  void takePen(std::uint32_t colour);
  void dropPen();
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace platform::native
