#include "about/help_launcher.h"

#include "platform/files.h"
#include "platform/help.h"
#include "startup/paths.h"

namespace modQMKGeneral {

void showHelpContents(controls::CommonDialog& dialog) {
  const std::wstring classic = AppFolder() + L"\\help\\gatewayhelp3.HLP";
  if (platform::files::fileExists(classic)) {
    dialog.helpFile = classic;
    dialog.helpCommand = platform::help::contents;
    dialog.showHelp();
  } else {
    platform::help::showCompiled(AppFolder() + L"\\help\\gatewayhelp3.chm");
  }
}

}  // namespace modQMKGeneral
