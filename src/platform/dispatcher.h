// The one place through which every event handler runs.
#pragma once

#include <functional>

namespace platform {

/// Runs an event handler. An error that escapes it is shown as a run-time error report and the
/// program goes on; running out of memory is reported as error 7. An empty handler does nothing.
/// True when the handler ran to its end.
bool dispatch(const std::function<void()>& handler);

}  // namespace platform
