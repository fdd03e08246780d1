// The messages that the program's windows post to themselves. They stand in one place so that no
// two are the same: several parts of the program see the messages of one window.
#pragma once

#include <windows.h>

namespace platform::win32::own_message {

/// To a window: lay the controls out, now that the message before is done with.
inline constexpr UINT layout = WM_APP + 1;
/// To a window: look after the focus, now that the message before is done with.
inline constexpr UINT focus = WM_APP + 2;
/// To a list: show the selection again, after the native list has finished changing it.
inline constexpr UINT selection = WM_APP + 3;
/// To a list: the editor of a name is done.
inline constexpr UINT nameDone = WM_APP + 4;
/// To a list: take what was dropped, after the other program has been let go.
inline constexpr UINT dropped = WM_APP + 5;

}  // namespace platform::win32::own_message
