#include "platform/dispatcher.h"

#include "platform/dialogs.h"
#include "platform/trap.h"

namespace platform {

bool dispatch(const std::function<void()>& handler) {
  if (!handler) {
    return true;
  }
  const auto failure = trapped([&handler] {
    // A handler may be replaced, or its control destroyed, while it runs.
    const auto running = handler;
    running();
  });
  if (!failure) {
    return true;
  }
  // A report for which there is no memory gives way to the report about that.
  if (const auto unreported = trapped([&failure] { dialogs::reportRunTimeError(*failure); })) {
    dialogs::reportRunTimeError(*unreported);
  }
  return false;
}

}  // namespace platform
