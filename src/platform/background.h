// Work that may take long and must not hold up the windows.
#pragma once

#include <functional>

namespace platform::background {

/// Runs `work` on a thread of its own and then `done` on this one, the thread of the windows, while
/// messages are processed. `work` must use nothing that others change meanwhile; what it raises
/// ends it, and `done` follows all the same. False when the system cannot start a thread; neither
/// is run then. If the program ends earlier, `work` is broken off and `done` is not run.
[[nodiscard]] bool run(std::function<void()> work, std::function<void()> done);

}  // namespace platform::background
