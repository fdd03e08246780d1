// The program's windows and the loops that feed them messages.
#pragma once

#include <memory>

#include "platform/controls/window.h"

namespace platform::win32 {

class WindowPeer;

/// Takes a window's peer into the table of the windows that get messages.
void adopt(std::unique_ptr<WindowPeer> peer);

/// Detaches the peer of `window`, if it has one, and deletes it: at once, or when the messages of
/// it that are being handled have been left. Windows that waited for its end take input again.
void retire(const controls::Window& window);

/// Whether one of the program's windows is a main window; its peer, else nullptr.
[[nodiscard]] WindowPeer* framePeer();

}  // namespace platform::win32
