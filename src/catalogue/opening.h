// Opening data files in the tools that own them, and starting tools on new files.
#pragma once

#include <functional>
#include <string>

#include "catalogue/catalogue_view.h"
#include "catalogue/tool_command.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/control.h"
#include "undo/history.h"

namespace ModQMKgeneral2 {

/// The parts of the main window that opening uses.
struct Opening {
  modQMKGeneral::CatalogueView& view;
  controls::CommonDialog& diaCommon;
  controls::Control& cmdBrowse;       ///< Its tag may hold a file name to preset in the dialog.
  std::function<void()> clickBrowse;  ///< Runs the click handler of `cmdBrowse`.
  /// Says in the status line what has been done.
  std::function<void(const std::wstring& news)> tell;
  std::wstring browsed{};  ///< The file that `cmdBrowse` has last opened in its tool; "" for none.
  undo::History* history = nullptr;  ///< Remembers what is changed; nullptr: nobody does.
};

/// Starts a tool, then reloads the catalogue view. If the tool cannot be started, a message is
/// shown, nothing else happens, and false is returned.
bool RunToolCommand(modQMKGeneral::CatalogueView& view, const ToolCommand& command);

/// The path in the form that a tool expects: never quoted, every blank replaced by a question mark.
[[nodiscard]] std::wstring encodePath(std::wstring path);

/// Double-click on the Open tab: opens the selected data file in its tool. If the file is missing,
/// offers to locate it, and drops its entry when the user declines. If the user locates it, the
/// entry may show it there from then on. A file whose path the tools cannot read is not opened; a
/// message names the characters that are the reason. Raises `error::badFileName` when the entry may
/// mean several files.
void openSelectedDataFile(Opening& opening);

/// Double-click on the New tab: starts the tool of the selected item's type on a new file.
void startNewFile(Opening& opening);

/// The browse button: the user chooses a data file, which is opened in its tool if the tool can
/// read its path.
void browseForDataFile(Opening& opening);

/// Shows the open dialog with `preset` as the file name. Returns 0 when a file was chosen (`path`
/// is then its full path), `error::cancelled` when the user cancelled (`path` is unchanged),
/// otherwise the number of the dialog's error. No error escapes.
int ChooseDataFile(controls::CommonDialog& dialog, const std::wstring& preset, std::wstring& path);

}  // namespace ModQMKgeneral2
