#include "platform/dispatcher.h"

#include <new>
#include <stdexcept>

#include "platform/dialogs.h"
#include "platform/run_time_error.h"

namespace platform {

bool dispatch(const std::function<void()>& handler) {
  if (!handler) {
    return true;
  }
  try {
    // A handler may be replaced, or its control destroyed, while it runs.
    const auto running = handler;
    running();
    return true;
  } catch (const RunTimeError& failure) {
    dialogs::reportRunTimeError(failure);
  } catch (const std::bad_alloc&) {
    dialogs::reportRunTimeError(RunTimeError(error::outOfMemory));
  } catch (const std::length_error&) {
    dialogs::reportRunTimeError(RunTimeError(error::outOfMemory));
  }
  return false;
}

}  // namespace platform
