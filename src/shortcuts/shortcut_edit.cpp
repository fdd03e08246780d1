#include <algorithm>
#include <array>
#include <optional>

#include "platform/controls/item_key.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/shell_links.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "shortcuts/shortcut_list.h"
#include "startup/paths.h"

namespace modSC {

using modQMKGeneral::AppFolder;
using modQMKGeneral::ShortCutsFolder;
using platform::text::upper;
using SmodMisc::CanonicalPath;
using SmodMisc::SplitPath;

namespace dialogs = platform::dialogs;
namespace files = platform::files;

namespace {

constexpr std::wstring_view linkExtension = L".lnk";

/// Shortcuts of the suite's own tools, in upper case. The first one may be deleted but not renamed.
constexpr std::array<std::wstring_view, 7> protectedNames{
    L"SPRAWL.LNK",    L"MODELHOUSE.LNK",   L"BRUSHTALLYPC.LNK", L"PLOTVIEW.LNK",
    L"IMAGEKEEP.LNK", L"CANOPY WEIGH.LNK", L"UNITSHIFT.LNK",
};

bool protectedFromRenaming(const std::wstring& name) {
  return std::find(protectedNames.begin(), protectedNames.end(), upper(name)) !=
         protectedNames.end();
}

bool protectedFromDeleting(const std::wstring& name) {
  return std::find(protectedNames.begin() + 1, protectedNames.end(), upper(name)) !=
         protectedNames.end();
}

/// Path of the selected shortcut's file. Raises `error::objectNotSet` without a selected item.
std::wstring selectedFile(const ShortcutList& shortcuts) {
  return shortcuts.list.subItem(shortcuts.list.selectedItem(), shortcut_column::file);
}

/// A shortcut file that a command may change, and the parts of its path.
struct Changeable {
  std::wstring file;  ///< Full path.
  std::wstring name;
  std::wstring folder;  ///< With a trailing backslash.
};

/// The selected shortcut. When its file is gone or `isProtected` is true for its name, shows the
/// reason and returns nothing. Raises `error::objectNotSet` without a selected item.
std::optional<Changeable> changeable(ShortcutList& shortcuts,
                                     bool (*isProtected)(const std::wstring&),
                                     const std::wstring& refusal) {
  Changeable found{selectedFile(shortcuts), {}, {}};
  if (!files::fileExists(found.file)) {
    dialogs::showMessage(L"Please select shortcut");
    return std::nullopt;
  }
  // The message box that follows is about this item. If a reload selects another one, that one is
  // not chosen.
  shortcuts.list.adoptSelection();
  SplitPath(found.file, found.name, found.folder);
  if (isProtected(found.name)) {
    dialogs::showMessage(refusal);
    return std::nullopt;
  }
  return found;
}

std::optional<Changeable> renamable(ShortcutList& shortcuts) {
  return changeable(shortcuts, protectedFromRenaming, L"Sorry, you can't rename this shortcut");
}

/// The name without the extension of shortcuts.
std::wstring bareName(const Changeable& shortcut) {
  return shortcut.name.substr(0, shortcut.name.size() - linkExtension.size());
}

/// Gives the shortcut the name that the user has chosen, "" for none, and reloads the list. Returns
/// the new path of a renamed one.
std::optional<std::wstring> rename(ShortcutList& shortcuts, const Changeable& selected,
                                   const std::wstring& answer, undo::Changes* forUndo) {
  std::optional<std::wstring> renamed;
  if (!answer.empty()) {
    if (!controls::selectionIsChosen(shortcuts.list)) {
      return std::nullopt;
    }
    if (files::fileExists(selected.folder + answer + L".lnk")) {
      dialogs::showMessage(upper(answer) + L" already exists, can't change name");
    } else {
      // The renamed shortcut moves to the program's own folder and so leaves this list.
      renamed = CanonicalPath(AppFolder()) + L"\\shortcuts\\" + answer + L".lnk";
      undo::writeFile(*renamed, forUndo, [&] { files::copy(selected.file, *renamed); });
      const std::wstring moved = selectedFile(shortcuts);
      undo::writeFile(moved, forUndo, [&moved] { files::remove(moved); });
    }
  }
  LoadShortcutList(shortcuts);
  return renamed;
}

}  // namespace

void BrowseForProgram(controls::CommonDialog& dialog, int& errorNumber, std::wstring& path) {
  path.clear();
  errorNumber = 0;
  const auto failure = platform::trapped([&dialog, &path] {
    dialog.initDir = AppFolder();
    dialog.fileName.clear();
    dialog.cancelError = true;
    dialog.dialogTitle = L"Open File";
    dialog.filter = L"Files (.exe,.hlp)|*.exe;*.hlp";
    dialog.filterIndex = 1;
    dialog.showOpen();
    path = dialog.fileName;
  });
  if (failure) {
    errorNumber = failure->number();
  }
}

void createShortcut(ShortcutList& shortcuts, undo::Changes* forUndo) {
  int errorNumber = 0;
  std::wstring program;
  BrowseForProgram(shortcuts.diaCommon, errorNumber, program);
  if (errorNumber != platform::error::cancelled) {
    writeProgramShortcut(program, forUndo);
  }
  LoadShortcutList(shortcuts);
}

std::optional<std::wstring> nameToChange(ShortcutList& shortcuts) {
  const auto selected = renamable(shortcuts);
  return selected ? std::optional(bareName(*selected)) : std::nullopt;
}

std::optional<std::wstring> renameShortcut(ShortcutList& shortcuts, undo::Changes* forUndo) {
  const auto selected = renamable(shortcuts);
  if (!selected) {
    return std::nullopt;
  }
  const std::wstring answer =
      dialogs::inputBox(L"Rename shortcut " + bareName(*selected), L"  ", L" ");
  return rename(shortcuts, *selected, answer, forUndo);
}

std::optional<std::wstring> renameShortcutTo(ShortcutList& shortcuts, const std::wstring& name,
                                             undo::Changes* forUndo) {
  const auto selected = renamable(shortcuts);
  return selected ? rename(shortcuts, *selected, name, forUndo) : std::nullopt;
}

void deleteShortcut(ShortcutList& shortcuts, undo::Changes* forUndo) {
  const auto selected =
      changeable(shortcuts, protectedFromDeleting, L"Sorry, you can't delete this shortcut");
  if (!selected) {
    return;
  }
  if (dialogs::showMessage(
          L"Are your sure you want to delete the shortcut: " + upper(selected->name),
          dialogs::MessageStyle::yesNoWarning) != dialogs::Answer::yes) {
    return;
  }
  if (!controls::selectionIsChosen(shortcuts.list)) {
    return;
  }
  const std::wstring doomed = selectedFile(shortcuts);
  if (!files::fileExists(doomed)) {
    return;
  }
  // If the shortcut could not be deleted, the reload lists it again.
  static_cast<void>(platform::trapped([&] { undo::recycle(doomed, forUndo); }));
  LoadShortcutList(shortcuts);
}

}  // namespace modSC
