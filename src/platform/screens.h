// The screens that windows can be on.
#pragma once

#include <vector>

#include "platform/geometry.h"

namespace platform::screens {

struct Screen {
  Rect workArea;        ///< Without task bars, in pixels of the virtual screen.
  int dpi = designDpi;  ///< Dots per inch of this screen; those of the others may differ.
  bool operator==(const Screen&) const = default;
};

/// All screens, the primary one first. There is always at least one.
[[nodiscard]] std::vector<Screen> all();

}  // namespace platform::screens
