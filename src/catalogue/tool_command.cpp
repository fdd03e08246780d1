#include "catalogue/tool_command.h"

#include "platform/dialogs.h"
#include "platform/processes.h"
#include "platform/trap.h"

namespace ModQMKgeneral2 {

bool startTool(const ToolCommand& command) {
  const auto failure = platform::trapped(
      [&command] { platform::processes::start(command.executable, command.text()); });
  if (failure) {
    platform::dialogs::showMessage(L"Can't start application\r" + failure->numberAndDescription() +
                                       L"\rPath: " + command.text(),
                                   platform::dialogs::MessageStyle::critical);
  }
  return !failure;
}

}  // namespace ModQMKgeneral2
