// The end of the user's session.
#pragma once

#include <string>

namespace controls {
class Window;
}

namespace platform::session {

/// Lets the system's screen say why the session does not end yet, beside the title of `window`.
/// Takes the place of an earlier reason.
void explainWait(const controls::Window& window, const std::wstring& reason);

/// The session needs to wait no longer for `window`.
void waitIsOver(const controls::Window& window);

}  // namespace platform::session
