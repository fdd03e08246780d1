#include "mainwindow/commands.h"

#include <functional>
#include <type_traits>

#include "catalogue/catalogue_file.h"
#include "catalogue/entry.h"
#include "mainwindow/control_ids.h"
#include "mainwindow/main_window.h"

namespace mainwindow {

namespace {

/// A handler of the main window as a row holds it, whatever it takes.
template <auto Handler>
void run(frmQMK& form, int list) {
  if constexpr (std::is_invocable_v<decltype(Handler), frmQMK&, int>) {
    std::invoke(Handler, form, list);
  } else if constexpr (std::is_invocable_v<decltype(Handler), frmQMK&>) {
    std::invoke(Handler, form);
  } else {
    Handler();
  }
}

constexpr OnTab allowed{.enabled = true};

constexpr OnTab forbidden{.enabled = false};
/// Of the commands for the two list files.
constexpr std::array<OnTab, 4> onLists{{forbidden, allowed, forbidden, allowed}};

const controls::ListView& listOf(const frmQMK& form) {
  return form.lstQMK.at(static_cast<std::size_t>(form.TabMain.current()));
}

bool showsColumns(const frmQMK& form) { return listOf(form).view() == controls::reportView; }

bool hasRow(const frmQMK& form) { return listOf(form).selectedRow().has_value(); }

bool isRemovable(const frmQMK& form) {
  return hasRow(form) &&
         !modQMKGeneral::isOfDataFolder(modQMKGeneral::selectedEntry(listOf(form)).path());
}

const wchar_t* whyNotRemovable(const frmQMK& form) {
  return hasRow(form) ? L"Files of the data folder are always listed" : nullptr;
}

template <undo::Way way>
bool canGo(const frmQMK& form) {
  return form.history.canGo(way);
}

template <undo::Way way>
std::wstring captionOf(const frmQMK& form) {
  const std::wstring what = form.history.what(way);
  return std::wstring(way == undo::Way::back ? L"Undo" : L"Redo") +
         (what.empty() ? what : L" " + what);
}

template <undo::Way way>
const wchar_t* whyNotGo(const frmQMK& /*form*/) {
  return way == undo::Way::back ? L"There is nothing to undo" : L"There is nothing to redo";
}

bool missesFiles(const frmQMK& form) { return form.filesThere.missing() > 0; }

const wchar_t* whyNotFound(const frmQMK& /*form*/) {
  return L"No file of the list is known to be missing";
}

constexpr std::array rows{
    Command{.id = ids::mnuExit,
            .name = L"mnuExit",
            .caption = L"Exit",
            .menu = Menu::file,
            .explanation = L"Ends the program.",
            .button = {L"Exit", ids::buttonExit, L"Exit", L"TB_EXIT", L"Exit Quillmark Suite"},
            .handler = run<&frmQMK::mnuExit_Click>},
    Command{.id = ids::mnuCreate,
            .name = L"mnuCreate",
            .caption = L"Create",
            .menu = Menu::edit,
            .explanation = L"Makes a shortcut to a program, or a web shortcut.",
            .button = {L"Create", ids::buttonCreate, L"Create", L"TB_CREATE",
                       L"Create a file or shortcut"},
            .key = {{controls::keys::insert}},
            .handler = run<&frmQMK::mnuCreate_Click>,
            .onTab = {{{L"Create Shortcut", L"Create shortcut", true},
                       {nullptr, nullptr, false},
                       {L"Create", nullptr, false},
                       {L"Create Web Shortcut", L"Create web shortcut", true}}}},
    Command{.id = ids::mnuRename,
            .name = L"mnuRename",
            .caption = L"Rename",
            .menu = Menu::edit,
            .explanation =
                L"Asks for another name of the selected entry. F2 changes it in the list itself.",
            .button = {L"Rename", ids::buttonRename, L"Rename", L"TB_RENAME",
                       L"Rename file or shortcut"},
            .handler = run<&frmQMK::mnuRename_Click>,
            .onTab = {{{L"Rename Shortcut", L"Rename shortcut", true},
                       {L"Rename File", L"Rename File", true},
                       {L"Rename", nullptr, false},
                       {L"Rename Web Shortcut", L"Rename web shortcut", true}}}},
    Command{.id = ids::mnuDelete,
            .name = L"mnuDelete",
            .caption = L"Delete File",
            .menu = Menu::edit,
            .explanation = L"Deletes the selected file or shortcut, after a question.",
            .button = {L"Delete", ids::buttonDelete, L"Delete", L"TB_DELETE",
                       L"Delete File or Shortcut"},
            .key = {{controls::keys::remove}},
            .handler = run<&frmQMK::mnuDelete_Click>,
            .onTab = {{{L"Delete Shortcut", L"Delete shortcut", true},
                       {L"Delete File", L"Delete File", true},
                       {L"Delete", nullptr, false},
                       {L"Delete Web Shortcut", L"Delete web shortcut", true}}}},
    Command{.id = ids::mnuUndo,
            .name = L"mnuUndo",
            .caption = L"Undo",
            .menu = Menu::edit,
            .separated = true,
            .explanation = L"Takes back the last change of a list or a file.",
            .key = {{.key = 'Z', .control = true}},
            .handler = run<&frmQMK::mnuUndo_Click>,
            .captionNow = captionOf<undo::Way::back>,
            .available = canGo<undo::Way::back>,
            .refusal = whyNotGo<undo::Way::back>},
    Command{.id = ids::mnuRedo,
            .name = L"mnuRedo",
            .caption = L"Redo",
            .menu = Menu::edit,
            .explanation = L"Makes the change again that was undone last.",
            .key = {{.key = 'Y', .control = true}},
            .handler = run<&frmQMK::mnuRedo_Click>,
            .captionNow = captionOf<undo::Way::again>,
            .available = canGo<undo::Way::again>,
            .refusal = whyNotGo<undo::Way::again>},
    Command{.id = ids::mnuCopy,
            .name = L"mnuCopy",
            .caption = L"Copy",
            .menu = Menu::edit,
            .separated = true,
            .explanation = L"Copies the selected row as text, and its file for pasting elsewhere.",
            .key = {{.key = 'C', .control = true}},
            .handler = run<&frmQMK::mnuCopy_Click>,
            .available = hasRow,
            .onTab = {{allowed, allowed, forbidden, allowed}}},
    Command{.id = ids::mnuCopyPath,
            .name = L"mnuCopyPath",
            .caption = L"Copy Path",
            .menu = Menu::edit,
            .explanation = L"Copies the path, the target or the address as text.",
            .key = {{.key = 'C', .control = true, .shift = true}},
            .handler = run<&frmQMK::mnuCopyPath_Click>,
            .available = hasRow,
            .onTab = {{allowed, allowed, forbidden, allowed}}},
    Command{.id = ids::mnuPaste,
            .name = L"mnuPaste",
            .caption = L"Paste",
            .menu = Menu::edit,
            .explanation = L"Adds the copied files or addresses to the list.",
            .key = {{.key = 'V', .control = true}},
            .handler = run<&frmQMK::mnuPaste_Click>,
            .onTab = {{allowed, allowed, forbidden, allowed}}},
    Command{.id = ids::mnuOpenFolder,
            .name = L"mnuOpenFolder",
            .caption = L"Open Folder",
            .menu = Menu::edit,
            .explanation = L"Shows the file, or the program of the shortcut, in its folder.",
            .key = {{.key = 'E', .control = true}},
            .handler = run<&frmQMK::mnuOpenFolder_Click>,
            .available = hasRow,
            .onTab = {{allowed, allowed, forbidden, forbidden}}},
    Command{.id = ids::mnuRemoveFromList,
            .name = L"mnuRemoveFromList",
            .caption = L"Remove from List",
            .menu = Menu::edit,
            .explanation = L"Takes the entry out of the list. The file itself stays.",
            .key = {{.key = controls::keys::remove, .control = true}},
            .handler = run<&frmQMK::mnuRemoveFromList_Click>,
            .available = isRemovable,
            .refusal = whyNotRemovable,
            .onTab = {{forbidden, allowed, forbidden, forbidden}}},
    Command{.id = ids::mnuAddFiles,
            .name = L"mnuAddFiles",
            .caption = L"Add to List...",
            .menu = Menu::edit,
            .separated = true,
            .explanation = L"Adds data files to the list, several at a time.",
            .key = {{.key = 'O', .control = true}, Reach::window},
            .handler = run<&frmQMK::mnuAddFiles_Click>,
            .onTab = {{forbidden, allowed, forbidden, forbidden}}},
    Command{.id = ids::mnuAddList,
            .name = L"mnuAddList",
            .caption = L"Add List...",
            .menu = Menu::edit,
            .explanation = L"Adds the entries of another list that are not here yet.",
            .handler = run<&frmQMK::mnuAddList_Click>,
            .onTab = onLists},
    Command{.id = ids::mnuSaveListAs,
            .name = L"mnuSaveListAs",
            .caption = L"Save List As...",
            .menu = Menu::edit,
            .explanation = L"Saves what the list shows as a list file or as a table.",
            .handler = run<&frmQMK::mnuSaveListAs_Click>,
            .onTab = onLists},
    Command{.id = ids::mnuEarlierLists,
            .name = L"mnuEarlierLists",
            .caption = L"Earlier Lists...",
            .menu = Menu::edit,
            .explanation = L"Shows what the list was on earlier days, and brings entries back.",
            .handler = run<&frmQMK::mnuEarlierLists_Click>,
            .onTab = onLists},
    Command{.id = ids::mnuFindMoved,
            .name = L"mnuFindMoved",
            .caption = L"Find Moved Files...",
            .menu = Menu::edit,
            .explanation = L"Looks for missing files elsewhere and changes their entries.",
            .handler = run<&frmQMK::mnuFindMoved_Click>,
            .available = missesFiles,
            .refusal = whyNotFound,
            .onTab = {{forbidden, allowed, forbidden, forbidden}}},
    Command{
        .id = ids::mnuList,
        .name = L"mnuList",
        .caption = L"List View",
        .menu = Menu::view,
        .explanation = L"Shows the list with its columns.",
        .button = {L"List", ids::buttonList, L"listview", L"TB_LISTVIEW", L"List view mode", true},
        .handler = run<&frmQMK::mnuList_Click>},
    Command{
        .id = ids::mnuIcon,
        .name = L"mnuIcon",
        .caption = L"Icon View",
        .menu = Menu::view,
        .explanation = L"Shows the list as pictures with names.",
        .button = {L"Icon", ids::buttonIcon, L"IconView", L"TB_ICONVIEW", L"Icon view mode", true},
        .handler = run<&frmQMK::mnuIcon_Click>,
        .onTab = {{allowed, allowed, allowed, allowed}}},
    Command{.id = ids::mnuNewestFirst,
            .name = L"mnuNewestFirst",
            .caption = L"Newest First",
            .menu = Menu::view,
            .separated = true,
            .explanation = L"Sorts the files by date, the newest ones first.",
            .handler = run<&frmQMK::mnuNewestFirst_Click>},
    Command{.id = ids::mnuFitColumns,
            .name = L"mnuFitColumns",
            .caption = L"Fit Columns",
            .menu = Menu::view,
            .explanation = L"Makes each column as wide as its longest text.",
            .key = {{.key = controls::keys::plus, .control = true}, Reach::window},
            .handler = run<&frmQMK::mnuFitColumns_Click>,
            .available = showsColumns},
    Command{.id = ids::mnuHelpContents,
            .name = L"mnuHelpContents",
            .caption = L"Help Contents",
            .menu = Menu::help,
            .explanation = L"Opens the help.",
            .button = {L"Help", ids::buttonHelp, L"Help", L"TB_HELP", L"Obtain assistance"},
            .key = {{controls::keys::f1}, Reach::window},
            .handler = run<&frmQMK::mnuHelpContents_Click>},
    Command{.id = ids::mnuWeb,
            .name = L"mnuWeb",
            .caption = L"Web Based Support",
            .menu = Menu::help,
            .explanation = L"Opens the home page of the suite.",
            .handler = run<&frmQMK::mnuWeb_Click>},
    Command{.id = ids::mnuAbout,
            .name = L"mnuAbout",
            .caption = L"About",
            .menu = Menu::help,
            .explanation = L"Shows the version of the program, and facts about the system.",
            .handler = run<&frmQMK::mnuAbout_Click>},
    Command{.id = ids::mnuReload,
            .name = L"mnuReload",
            .caption = L"Reload",
            .key = {{controls::keys::f5}},
            .handler = run<&frmQMK::reload>},
    Command{.id = ids::mnuFind,
            .name = L"mnuFind",
            .caption = L"Find",
            .key = {{.key = 'F', .control = true}, Reach::window},
            .handler = run<&frmQMK::mnuFind_Click>},
    Command{.id = ids::mnuEditName,
            .name = L"mnuEditName",
            .caption = L"Edit Name",
            .key = {{controls::keys::f2}},
            .handler = run<&frmQMK::editName>,
            .onTab = {{allowed, allowed, {.enabled = false}, allowed}}},
};

constexpr int separator = 0;

constexpr std::array toolbar{ids::mnuDelete, ids::mnuRename,      ids::mnuCreate, separator,
                             ids::mnuIcon,   ids::mnuList,        separator,      ids::mnuExit,
                             separator,      ids::mnuHelpContents};

constexpr std::array onTools{ids::mnuCreate, ids::mnuRename,   ids::mnuDelete, separator,
                             ids::mnuCopy,   ids::mnuCopyPath, ids::mnuPaste,  ids::mnuOpenFolder};
constexpr std::array onOpen{ids::mnuCreate,     ids::mnuRename,       ids::mnuDelete,
                            separator,          ids::mnuCopy,         ids::mnuCopyPath,
                            ids::mnuPaste,      ids::mnuOpenFolder,   ids::mnuRemoveFromList,
                            separator,          ids::mnuAddFiles,     ids::mnuAddList,
                            ids::mnuSaveListAs, ids::mnuEarlierLists, ids::mnuFindMoved};
constexpr std::array onNew{ids::mnuCreate, ids::mnuRename, ids::mnuDelete};
constexpr std::array onWeb{ids::mnuCreate,  ids::mnuRename,     ids::mnuDelete,      separator,
                           ids::mnuCopy,    ids::mnuCopyPath,   ids::mnuPaste,       separator,
                           ids::mnuAddList, ids::mnuSaveListAs, ids::mnuEarlierLists};

constexpr CommandTable table{rows, toolbar, {onTools, onOpen, onNew, onWeb}};

}  // namespace

const CommandTable& commandTable() { return table; }

std::wstring keyName(const controls::KeyStroke& stroke) {
  namespace keys = controls::keys;
  std::wstring name = stroke.control ? L"Ctrl+" : L"";
  name += stroke.shift ? L"Shift+" : L"";
  name += stroke.alt ? L"Alt+" : L"";
  switch (stroke.key) {
    case 0:
      return {};
    case keys::insert:
      return name + L"Insert";
    case keys::remove:
      return name + L"Delete";
    case keys::plus:
      return name + L"Num +";
    default:
      break;
  }
  return stroke.key >= keys::f1 ? name + L"F" + std::to_wstring(stroke.key - keys::f1 + 1)
                                : name + static_cast<wchar_t>(stroke.key);
}

std::optional<int> tabOfKey(const controls::KeyStroke& stroke, int current, int count) {
  if (!stroke.control || stroke.alt || count <= 0) {
    return std::nullopt;
  }
  if (stroke.key == controls::keys::tab) {
    return (current + (stroke.shift ? count - 1 : 1)) % count;
  }
  const int number = stroke.key - '1';
  return number >= 0 && number < count && !stroke.shift ? std::optional(number) : std::nullopt;
}

}  // namespace mainwindow
