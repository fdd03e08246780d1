// Keys as the system's messages name them.
#pragma once

#include <windows.h>

#include "platform/controls/key_stroke.h"

namespace platform::win32 {

/// Whether a key is down, as of the message that is being handled.
[[nodiscard]] inline bool held(int key) { return GetKeyState(key) < 0; }

/// A key that went down, with the keys that are held with it.
[[nodiscard]] inline controls::KeyStroke strokeOf(WPARAM key) {
  return {static_cast<int>(key), held(VK_CONTROL), held(VK_SHIFT), held(VK_MENU)};
}

}  // namespace platform::win32
