// Keys in the system's messages.
#pragma once

#include <windows.h>

#include "platform/controls/key_stroke.h"

namespace platform::win32 {

/// Whether a key was down when the current message was sent.
[[nodiscard]] inline bool held(int key) { return GetKeyState(key) < 0; }

/// A key that was pressed, with the modifier keys that are held.
[[nodiscard]] inline controls::KeyStroke strokeOf(WPARAM key) {
  return {static_cast<int>(key), held(VK_CONTROL), held(VK_SHIFT), held(VK_MENU)};
}

}  // namespace platform::win32
