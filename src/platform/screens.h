// The screens that windows can be on.
#pragma once

#include <vector>

#include "platform/geometry.h"

namespace platform::screens {

/// Work areas of all screens (without task bars), in pixels of the virtual screen, the primary
/// screen's first. There is always at least one.
[[nodiscard]] std::vector<Rect> workAreas();

}  // namespace platform::screens
