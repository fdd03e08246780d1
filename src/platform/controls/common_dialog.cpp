#include "platform/controls/common_dialog.h"

#include <utility>

#include "platform/dialogs.h"
#include "platform/help.h"

namespace controls {

void CommonDialog::showOpen() {
  try {
    fileName = platform::dialogs::openFile({initDir, fileName, dialogTitle, filter, filterIndex});
  } catch (const platform::RunTimeError& failure) {
    if (failure.number() != platform::error::cancelled || cancelError) {
      throw;
    }
  }
}

void CommonDialog::showHelp(std::function<void()> refused) const {
  platform::help::showClassic(helpFile, helpCommand, std::move(refused));
}

}  // namespace controls
