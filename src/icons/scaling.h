// Draws a picture smaller than it is stored.
#pragma once

#include "platform/pictures.h"

namespace icons {

/// A square picture at `side` pixels, which must not be more than it has. Each pixel is the average
/// of those that it stands for. The colour of a transparent pixel does not count, so that no
/// dark edge appears around the drawing.
[[nodiscard]] platform::Picture scaledDown(const platform::Picture& picture, int side);

}  // namespace icons
