#include "platform/dispatcher.h"

#include "platform/dialogs.h"
#include "platform/trap.h"

namespace platform {

bool dispatch(const std::function<void()>& handler) {
  if (!handler) {
    return true;
  }
  const auto failure = trapped([&handler] {
    // A copy, because a handler may be replaced, or its control destroyed, while it runs.
    const auto running = handler;
    running();
  });
  if (!failure) {
    return true;
  }
  // If there is no memory to show this report, the lack of memory is reported instead.
  if (const auto unreported = trapped([&failure] { dialogs::reportRunTimeError(*failure); })) {
    dialogs::reportRunTimeError(*unreported);
  }
  return false;
}

}  // namespace platform
