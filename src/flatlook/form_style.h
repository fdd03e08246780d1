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

/// The objects of all controls that ever got the flat look, in the order of attaching. The list
/// only grows; objects of closed windows stay in it and do nothing.
[[nodiscard]] const std::vector<std::unique_ptr<cFlatControl>>& FlatControls();

/// Gives all controls of a loaded window the flat look: combo boxes and text boxes become flat and
/// get a frame (locked text boxes get none), image buttons get their idle colours.
void ApplyFlatStyle(controls::Window& form);

/// Gives a text box the frame that it could not get while its window was loaded, because its native
/// control did not exist yet. Does nothing for one that has its frame. To be called at each layout.
void attachLate(controls::Control& control, const controls::Window& form);

/// Gives an image button a set of colours.
void colour(controls::CoolButton& button, const ButtonColours& colours);
/// Colours for a button when the pointer enters it and when the pointer leaves it.
void SetButtonHot(controls::CoolButton& button);
void SetButtonIdle(controls::CoolButton& button);
/// Colours for a button that was clicked. The click opens a window on top of it, so there is no
/// notification that the pointer leaves.
void setButtonIdleAfterClick(controls::CoolButton& button);

}  // namespace OC_COLOR
