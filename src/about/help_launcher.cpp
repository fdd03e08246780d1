#include "about/help_launcher.h"

#include "platform/browser.h"
#include "platform/files.h"
#include "platform/help.h"
#include "startup/paths.h"

namespace modQMKGeneral {
namespace {

/// The compiled help or, where the system shows none, the handbook that the set-up program
/// installs.
void showCompiledOrHandbook() {
  if (platform::help::showCompiled(AppFolder() + L"\\help\\gatewayhelp3.chm")) {
    return;
  }
  const std::wstring handbook = AppFolder() + L"\\help\\gateway-handbook.html";
  if (platform::files::fileExists(handbook)) {
    constexpr int normalWindow = 1;
    platform::browser::open(handbook, normalWindow);
  }
}

}  // namespace

void showHelpContents(controls::CommonDialog& dialog) {
  const std::wstring classic = AppFolder() + L"\\help\\gatewayhelp3.HLP";
  if (platform::files::fileExists(classic)) {
    dialog.helpFile = classic;
    dialog.helpCommand = platform::help::contents;
    // Current versions of Windows have no viewer for classic help.
    dialog.showHelp(showCompiledOrHandbook);
  } else {
    showCompiledOrHandbook();
  }
}

}  // namespace modQMKGeneral
