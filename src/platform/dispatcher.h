// The one place through which every event handler runs.
#pragma once

#include <functional>
#include <type_traits>

namespace platform {

/// Runs an event handler. An error that escapes it is shown as a run-time error report and the
/// program goes on; running out of memory is reported as error 7. An empty handler does nothing.
/// True when the handler ran to its end.
bool dispatch(const std::function<void()>& handler);

/// The same for what is written down where it is to run. Nothing is copied, so that no memory is
/// needed before the errors are caught, however much it captures.
template <class Handler>
requires(!std::is_same_v<Handler, std::function<void()>>) bool dispatch(const Handler& handler) {
  return dispatch(std::function<void()>(std::ref(handler)));
}

}  // namespace platform
