// The one place through which every event handler runs.
#pragma once

#include <functional>
#include <type_traits>

namespace platform {

/// Runs an event handler. If an error escapes it, a run-time error report is shown and the program
/// goes on. Running out of memory is reported as `error::outOfMemory`. An empty handler does
/// nothing. Returns true when the handler ran to its end.
bool dispatch(const std::function<void()>& handler);

/// The same for a callable that is written in place. It is not copied, so no memory is allocated
/// before the errors are caught, however much it captures.
template <class Handler>
requires(!std::is_same_v<Handler, std::function<void()>>) bool dispatch(const Handler& handler) {
  return dispatch(std::function<void()>(std::ref(handler)));
}

}  // namespace platform
