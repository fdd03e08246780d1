// The native windows of the program: those that live, and those that are about to go.
#pragma once

#include <memory>
#include <vector>

#include "platform/controls/window.h"

namespace platform::win32 {

class WindowPeer;

/// Takes a window's peer into the table of the windows that get messages.
void adopt(std::unique_ptr<WindowPeer> peer);

/// Detaches the peer of `window`, if it has one, and deletes it: at once, or when the messages of
/// it that are being handled have been left. Windows that waited for its end take input again.
void retire(const controls::Window& window);

/// Deletes the detached peers none of whose messages is being handled any more.
void deleteRetired();

/// The living windows, the youngest last. A handler may open and close windows, so ask
/// `isLive` before each use.
[[nodiscard]] std::vector<WindowPeer*> livePeers();
[[nodiscard]] bool isLive(const WindowPeer* peer);

/// Whether one of the program's windows is a main window; its peer, else nullptr.
[[nodiscard]] WindowPeer* framePeer();

/// Keeps the other windows from taking input until `window` is retired, or until `endModal`.
void beginModal(const controls::Window& window);
/// Ends what the last `beginModal` began.
void endModal();

}  // namespace platform::win32
