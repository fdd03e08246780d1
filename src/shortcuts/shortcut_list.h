// The Tools tab: lists the shortcuts in the user's shortcuts folder with their programs' icons;
// creates, renames and deletes shortcuts.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/common_dialog.h"
#include "platform/controls/image_list.h"
#include "platform/controls/list_view.h"
#include "shortcuts/slow_icons.h"
#include "undo/changes.h"

namespace modSC {

/// Sub-items of the Tools list.
namespace shortcut_column {
inline constexpr std::size_t file = 2;    ///< Full path of the shortcut file.
inline constexpr std::size_t target = 3;  ///< Path of the program that it starts.
/// The columns that identify a shortcut.
inline const std::vector<std::size_t> entry{file};
}  // namespace shortcut_column

/// The parts of the main window that the shortcuts use.
struct ShortcutList {
  controls::ListView& list;
  /// [0] large and [1] small icons, keyed by the shortcut's file name.
  std::array<controls::ImageList, 2>& imgShortCut;
  controls::PictureBox& picShortCuts;
  controls::CommonDialog& diaCommon;
  /// Dots per inch that the icons are drawn for.
  int dpi = 96;
  /// Icons that come after the list is shown.
  SlowIcons slowIcons{};
};

/// Rebuilds the list and both image lists from the shortcuts folder, and shows large icons. Icons
/// of programs on network drives and removable ones are blank at first. While many are read the
/// windows are painted, with the list as it was. An error stops the rebuild and goes to the caller;
/// the items added before it stay.
void LoadShortcutList(ShortcutList& shortcuts);

/// Draws the icons of all listed shortcuts again, after `dpi` has changed.
void redrawShortcutIcons(ShortcutList& shortcuts);

/// Double-click on the Tools tab: starts the target of the selected shortcut, without the
/// shortcut's arguments. Returns false when nothing was started.
[[nodiscard]] bool startSelectedShortcut(const ShortcutList& shortcuts);

/// Shows the open dialog for a program. On success `errorNumber` is 0 and `path` is the chosen
/// file. Otherwise `errorNumber` is the number of the error (`error::cancelled` when the user
/// cancelled) and `path` is "". No error escapes.
void BrowseForProgram(controls::CommonDialog& dialog, int& errorNumber, std::wstring& path);

// `forUndo`, where it is not nullptr, gets what the operation has changed, also when it fails.

/// Create on the Tools tab: creates a shortcut to a program that the user chooses.
void createShortcut(ShortcutList& shortcuts, undo::Changes* forUndo = nullptr);

/// Writes the shortcut that Create makes for a program. Raises what writing a shortcut raises.
void writeProgramShortcut(const std::wstring& program, undo::Changes* forUndo = nullptr);

/// What became of files that were to be in the list.
struct AddedShortcuts {
  std::size_t added = 0;
  std::size_t present = 0;    ///< Shortcuts whose name is taken; what has it stays.
  std::size_t wrongType = 0;  ///< No programs, help files or shortcuts.
  std::size_t missing = 0;    ///< There is no such file.
  std::size_t failed = 0;     ///< Could not be written.
  std::wstring failure;       ///< Why the first of these could not.
};

/// Makes shortcuts to programs and help files, as Create does, and copies shortcuts into the
/// shortcuts folder under their own names. Then reloads the list; errors of that go to the caller.
AddedShortcuts addShortcuts(ShortcutList& shortcuts, const std::vector<std::wstring>& paths,
                            undo::Changes* forUndo = nullptr);

/// Whether `addShortcuts` takes a file of that name.
[[nodiscard]] bool canBeShortcut(std::wstring_view name);

/// Rename on the Tools tab. Returns the new path of the shortcut's file; nothing when it was not
/// renamed. Raises `error::objectNotSet` without a selected item, and what the copy raises.
std::optional<std::wstring> renameShortcut(ShortcutList& shortcuts,
                                           undo::Changes* forUndo = nullptr);

/// The name of the selected shortcut, without its extension, to be changed in the list itself. When
/// it cannot be renamed, shows the reason and returns nothing. Raises `error::objectNotSet` without
/// a selected item.
[[nodiscard]] std::optional<std::wstring> nameToChange(ShortcutList& shortcuts);

/// The same as Rename, with the answer that the user has given already.
std::optional<std::wstring> renameShortcutTo(ShortcutList& shortcuts, const std::wstring& name,
                                             undo::Changes* forUndo = nullptr);

/// Delete on the Tools tab; the Recycle Bin keeps the file. Raises `error::objectNotSet` without a
/// selected item.
void deleteShortcut(ShortcutList& shortcuts, undo::Changes* forUndo = nullptr);

}  // namespace modSC
