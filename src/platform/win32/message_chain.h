// Seeing the messages of native windows before they do.
//
// The common controls' own subclassing keeps its chain in a window property and asks the window
// manager for it once for each hook and message. While a window is built that was every third
// question the program put to it.
#pragma once

#include <windows.h>

namespace platform::win32 {

/// Gets the messages of a window together with what was given to `hookMessages`. It returns the
/// result, for which it may ask the others with `passOn`.
using MessageHook = LRESULT(CALLBACK*)(HWND window, UINT message, WPARAM first, LPARAM second,
                                       UINT_PTR id, DWORD_PTR data);

/// Puts a hook before those that a window has; one that is there with this `id` only gets the new
/// `data`. The hook goes with the window at the latest. False when the window is gone or belongs
/// to another thread.
[[nodiscard]] bool hookMessages(HWND window, MessageHook hook, UINT_PTR id, DWORD_PTR data);

/// Takes a hook off, also in the middle of its own message. Nothing happens when it is not there.
void unhookMessages(HWND window, MessageHook hook, UINT_PTR id);

/// Hands a message to the hooks after the calling one, the window itself coming last; to nobody
/// when the window has gone in between.
LRESULT passOn(HWND window, UINT message, WPARAM first, LPARAM second);

}  // namespace platform::win32
