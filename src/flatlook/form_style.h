// The flat look of whole windows, and the colours of image buttons.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "flatlook/flat_control.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/window.h"

namespace OC_COLOR {

/// Colours of an image button in one state, as COLORREF (low byte red).
struct ButtonColours {
  std::uint32_t background;
  std::uint32_t lines;  ///< Dark shadow, highlight and light shadow.
};
inline constexpr ButtonColours idleColours{0xFFC0C0, 0x000000};  ///< Pale blue, black.
inline constexpr ButtonColours hotColours{0xC0FFFF, 0x0080FF};   ///< Pale yellow, orange.

/// The objects of all controls that were ever given the flat look, in the order of their
/// attaching. It only grows; the objects of closed windows stay in it, inert.
[[nodiscard]] const std::vector<std::unique_ptr<cFlatControl>>& FlatControls();

/// Gives all controls of a loaded window the flat look: combo boxes and text boxes become flat and
/// get a frame (locked text boxes none), image buttons get their idle colours.
void ApplyFlatStyle(controls::Window& form);

/// Colours of a button that the pointer has entered, and left.
void SetButtonHot(controls::CoolButton& button);
void SetButtonIdle(controls::CoolButton& button);
/// Colours of a button that was clicked: it opens something that lies over it, and no pointer will
/// leave it then.
void SetButtonIdleAfterClick(controls::CoolButton& button);

}  // namespace OC_COLOR
