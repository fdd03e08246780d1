// Paints the program's own drawings: flat shapes, sharp at every density of the screen.
//
// A drawing is text, a statement in each line; tools/make-art makes it. Lengths are whole numbers,
// to the right and down.
//
//   size 48000 30000       the room of the drawing, once, before all others
//   fill F5EFDD PATH       paints the inside of a path with a colour
//   clip PATH              only the inside of this path is painted from now on
//   unclip                 everything is painted again
//
// A path is a row of `m X Y` (starts an outline), `l X Y` (a straight line) and `c X Y X Y X Y` (a
// curve with two control points). An outline closes by itself. Outlines of one path that run in
// opposite directions leave a hole.
#pragma once

#include <optional>
#include <string_view>

#include "platform/pictures.h"

namespace icons {

/// Paints a drawing at `size` in pixels; what no shape covers is transparent. Nothing when the
/// drawing is malformed, or goes further beyond its room than it is wide or high.
[[nodiscard]] std::optional<platform::Picture> painted(std::string_view drawing,
                                                       platform::Size size);

}  // namespace icons
