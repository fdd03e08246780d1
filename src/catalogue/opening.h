// Opening data files in the tools that own them, and starting tools on new files.
#pragma once

#include <functional>
#include <string>

#include "catalogue/catalogue_view.h"
#include "catalogue/tool_command.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/control.h"

namespace ModQMKgeneral2 {

/// What opening works with on the main window.
struct Opening {
  modQMKGeneral::CatalogueView& view;
  controls::CommonDialog& diaCommon;
  controls::Control& cmdBrowse;       ///< Its tag may hold a file name to preset in the dialog.
  std::function<void()> clickBrowse;  ///< Runs the click handler of `cmdBrowse`.
};

/// Starts a tool, then reloads the catalogue view. When it cannot be started, that is told and
/// nothing else happens.
void RunToolCommand(modQMKGeneral::CatalogueView& view, const ToolCommand& command);

/// The path as a tool expects it: never quoted, every blank replaced by a question mark.
[[nodiscard]] std::wstring EncodePath(std::wstring path);

/// Double-click on the Open tab: opens the selected data file in its tool; offers to locate a file
/// that is missing, and drops its entry when the user declines. A file whose path the tools cannot
/// read is not opened, and the user is told which characters are the reason. Raises 52 when the
/// entry may mean several files.
void OpenSelectedDataFile(Opening& opening);

/// Double-click on the New tab: starts the tool of the selected item's type on a new file.
void StartNewFile(Opening& opening);

/// The browse button: lets the user choose a data file and opens it in its tool, if the tool can
/// read its path.
void BrowseForDataFile(Opening& opening);

/// Shows the open dialog with `preset` as the file name. 0 when a file was chosen (its full path
/// is then in `path`), 32755 when the user cancelled (`path` is untouched), otherwise the number
/// of the dialog's failure. No error escapes.
int ChooseDataFile(controls::CommonDialog& dialog, const std::wstring& preset, std::wstring& path);

}  // namespace ModQMKgeneral2
