// The frames that are drawn around and inside controls with the flat look.
#pragma once

#include <cstdint>

#include "platform/native_windows.h"

namespace flatlook {

/// State for which a frame is drawn: idle, with the pointer or the focus, or (combo boxes) with the
/// list dropped down. The numbers are those of the design.
enum class FrameStyle { idle = 1, hot = 2, down = 4 };

/// System colours, as OLE colours.
inline constexpr std::uint32_t windowBackground = 0x80000005;
inline constexpr std::uint32_t buttonFace = 0x8000000F;
inline constexpr std::uint32_t buttonShadow = 0x80000010;
inline constexpr std::uint32_t highlight3D = 0x80000014;

/// Fixed colours of the command button's frame, as COLORREF (low byte red).
inline constexpr std::uint32_t orange = 0x0080FF;
inline constexpr std::uint32_t blue = 0xFF0000;
inline constexpr std::uint32_t black = 0x000000;

/// Converts an OLE colour to COLORREF; -1 when it is not a valid one.
[[nodiscard]] std::int32_t TranslateColor(std::uint32_t oleColour);

/// Width in pixels of a combo box's drop-down button.
[[nodiscard]] int DropDownButtonWidth(platform::native::WindowHandle comboBox);

/// Draws the edges of a rectangle one pixel wide: left and top in one colour, right and bottom in
/// another, both as OLE colours. A rectangle of width 0 is one vertical line in the first colour.
/// Raises `error::overflow`, like the frames below, when a coordinate does not fit into 32 bits.
void Draw3DRect(platform::native::LineCanvas& canvas, const platform::native::Edges& rect,
                std::uint32_t topLeft, std::uint32_t bottomRight);

/// Draws a frame around a control, on its parent. Colours are OLE colours; the first is for left
/// and top.
void DrawOuterFrame(platform::native::WindowHandle control, FrameStyle style, std::uint32_t topLeft,
                    std::uint32_t bottomRight);
/// Draws a frame in the client area of a combo box, with its drop-down button.
void DrawComboFrame(platform::native::WindowHandle control, FrameStyle style, std::uint32_t topLeft,
                    std::uint32_t bottomRight);
/// Draws a frame in the client area of a command button.
void DrawButtonFrame(platform::native::WindowHandle control, FrameStyle style,
                     std::uint32_t topLeft, std::uint32_t bottomRight);

}  // namespace flatlook
