#include "flatlook/frames.h"

#include "platform/geometry.h"

namespace flatlook {

namespace native = platform::native;
using native::Edges;
using native::inset;
using native::WindowHandle;
using platform::sum;

namespace {

Edges moved(const Edges& rect, int right, int down) {
  return {sum(rect.left, right), sum(rect.top, down), sum(rect.right, right),
          sum(rect.bottom, down)};
}

Edges taller(const Edges& rect) {
  return {rect.left, sum(rect.top, -1), rect.right, sum(rect.bottom, 1)};
}

/// The vertical line to the left of `rect`.
Edges lineBefore(const Edges& rect) {
  const int left = sum(rect.left, -1);
  return {left, rect.top, left, rect.bottom};
}

/// The innermost edges of a frame that is drawn inside its control.
void drawEdges(native::LineCanvas& canvas, const Edges& rect, FrameStyle style,
               std::uint32_t idleColour, std::uint32_t hotTopLeft, std::uint32_t hotBottomRight) {
  switch (style) {
    case FrameStyle::idle:
      Draw3DRect(canvas, taller(rect), idleColour, idleColour);
      Draw3DRect(canvas, lineBefore(taller(rect)), windowBackground, black);
      break;
    case FrameStyle::hot: {
      Edges raised = taller(rect);
      raised.right = sum(raised.right, 1);
      Draw3DRect(canvas, raised, hotTopLeft, hotBottomRight);
      break;
    }
    case FrameStyle::down: {
      const Edges larger{sum(rect.left, -1), sum(rect.top, -2), rect.right, rect.bottom};
      Draw3DRect(canvas, moved(larger, 1, 1), buttonShadow, highlight3D);
      break;
    }
  }
}

}  // namespace

std::int32_t TranslateColor(std::uint32_t oleColour) {
  const auto colour = native::translateColour(oleColour);
  return colour ? static_cast<std::int32_t>(*colour) : -1;
}

int DropDownButtonWidth(WindowHandle comboBox) { return native::thumbWidth(comboBox); }

void Draw3DRect(native::LineCanvas& canvas, const Edges& rect, std::uint32_t topLeft,
                std::uint32_t bottomRight) {
  const int lastColumn = sum(rect.right, -1);
  const int lastRow = sum(rect.bottom, -1);
  {
    const native::LineCanvas::Pen pen(canvas, static_cast<std::uint32_t>(TranslateColor(topLeft)));
    canvas.moveTo({rect.left, lastRow});
    canvas.lineTo({rect.left, rect.top});
    canvas.lineTo({lastColumn, rect.top});
  }
  if (rect.left != rect.right) {
    const native::LineCanvas::Pen pen(canvas,
                                      static_cast<std::uint32_t>(TranslateColor(bottomRight)));
    canvas.lineTo({lastColumn, lastRow});
    canvas.lineTo({rect.left, lastRow});
  }
}

void DrawOuterFrame(WindowHandle control, FrameStyle style, std::uint32_t topLeft,
                    std::uint32_t bottomRight) {
  const WindowHandle parent = native::parent(control);
  const Edges onScreen = native::windowRect(control);
  const native::Point first = native::toClient(parent, {onScreen.left, onScreen.top});
  const native::Point second = native::toClient(parent, {onScreen.right, onScreen.bottom});
  Edges rect = inset({first.x, first.y, second.x, second.y}, -2);
  const bool enabled = native::enabled(control);
  native::LineCanvas canvas(parent);
  Draw3DRect(canvas, rect, topLeft, bottomRight);
  rect = inset(rect, 1);
  const std::uint32_t inner = enabled ? buttonFace : highlight3D;
  Draw3DRect(canvas, rect, inner, inner);
  if (enabled && style != FrameStyle::idle) {
    constexpr int rings = 3;
    for (int i = 0; i < rings; ++i) {
      rect = inset(rect, 1);
      Draw3DRect(canvas, rect, highlight3D, highlight3D);
    }
  }
}

void DrawComboFrame(WindowHandle control, FrameStyle style, std::uint32_t topLeft,
                    std::uint32_t bottomRight) {
  Edges rect = native::clientRect(control);
  const bool enabled = native::enabled(control);
  native::LineCanvas canvas(control);
  Draw3DRect(canvas, rect, topLeft, bottomRight);
  rect = inset(rect, 1);
  const std::uint32_t inner = enabled ? buttonFace : highlight3D;
  Draw3DRect(canvas, rect, inner, inner);

  rect = inset(rect, 1);
  rect.left = sum(rect.right, -DropDownButtonWidth(control));
  Draw3DRect(canvas, rect, buttonFace, buttonFace);
  rect = inset(rect, 1);
  Draw3DRect(canvas, rect, buttonFace, buttonFace);
  if (enabled) {
    drawEdges(canvas, rect, style, highlight3D, highlight3D, buttonShadow);
  }
}

void DrawButtonFrame(WindowHandle control, FrameStyle style, std::uint32_t topLeft,
                     std::uint32_t bottomRight) {
  Edges rect = native::clientRect(control);
  const bool enabled = native::enabled(control);
  native::LineCanvas canvas(control);
  Draw3DRect(canvas, rect, topLeft, bottomRight);
  rect = inset(rect, 1);
  const std::uint32_t inner = enabled ? buttonFace : blue;
  Draw3DRect(canvas, rect, inner, inner);
  if (enabled) {
    drawEdges(canvas, rect, style, orange, black, black);
  }
}

}  // namespace flatlook
