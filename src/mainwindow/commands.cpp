#include "mainwindow/commands.h"

#include <functional>
#include <type_traits>

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

constexpr std::array rows{
    Command{.id = ids::mnuExit,
            .name = L"mnuExit",
            .caption = L"Exit",
            .menu = Menu::file,
            .button = {L"Exit", ids::buttonExit, L"Exit", L"TB_EXIT", L"Exit Quillmark Suite"},
            .handler = run<&frmQMK::mnuExit_Click>},
    Command{.id = ids::mnuCreate,
            .name = L"mnuCreate",
            .caption = L"Create",
            .menu = Menu::edit,
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
            .button = {L"Rename", ids::buttonRename, L"Rename", L"TB_RENAME",
                       L"Rename file or shortcut"},
            .key = {{controls::keys::f2}},
            .handler = run<&frmQMK::mnuRename_Click>,
            .onTab = {{{L"Rename Shortcut", L"Rename shortcut", true},
                       {L"Rename File", L"Rename File", true},
                       {L"Rename", nullptr, false},
                       {L"Rename Web Shortcut", L"Rename web shortcut", true}}}},
    Command{.id = ids::mnuDelete,
            .name = L"mnuDelete",
            .caption = L"Delete File",
            .menu = Menu::edit,
            .button = {L"Delete", ids::buttonDelete, L"Delete", L"TB_DELETE",
                       L"Delete File or Shortcut"},
            .key = {{controls::keys::remove}},
            .handler = run<&frmQMK::mnuDelete_Click>,
            .onTab = {{{L"Delete Shortcut", L"Delete shortcut", true},
                       {L"Delete File", L"Delete File", true},
                       {L"Delete", nullptr, false},
                       {L"Delete Web Shortcut", L"Delete web shortcut", true}}}},
    Command{
        .id = ids::mnuList,
        .name = L"mnuList",
        .caption = L"List View",
        .menu = Menu::view,
        .button = {L"List", ids::buttonList, L"listview", L"TB_LISTVIEW", L"List view mode", true},
        .handler = run<&frmQMK::mnuList_Click>},
    Command{
        .id = ids::mnuIcon,
        .name = L"mnuIcon",
        .caption = L"Icon View",
        .menu = Menu::view,
        .button = {L"Icon", ids::buttonIcon, L"IconView", L"TB_ICONVIEW", L"Icon view mode", true},
        .handler = run<&frmQMK::mnuIcon_Click>,
        .onTab = {{allowed, allowed, allowed, allowed}}},
    Command{.id = ids::mnuHelpContents,
            .name = L"mnuHelpContents",
            .caption = L"Help Contents",
            .menu = Menu::help,
            .button = {L"Help", ids::buttonHelp, L"Help", L"TB_HELP", L"Obtain assistance"},
            .key = {{controls::keys::f1}, Reach::window},
            .handler = run<&frmQMK::mnuHelpContents_Click>},
    Command{.id = ids::mnuWeb,
            .name = L"mnuWeb",
            .caption = L"Web Based Support",
            .menu = Menu::help,
            .handler = run<&frmQMK::mnuWeb_Click>},
    Command{.id = ids::mnuAbout,
            .name = L"mnuAbout",
            .caption = L"About",
            .menu = Menu::help,
            .handler = run<&frmQMK::mnuAbout_Click>},
    Command{.id = ids::mnuReload,
            .name = L"mnuReload",
            .caption = L"Reload",
            .key = {{controls::keys::f5}},
            .handler = run<&frmQMK::reloadList>},
};

constexpr int separator = 0;

constexpr std::array toolbar{ids::mnuDelete, ids::mnuRename,      ids::mnuCreate, separator,
                             ids::mnuIcon,   ids::mnuList,        separator,      ids::mnuExit,
                             separator,      ids::mnuHelpContents};

constexpr std::array editCommands{ids::mnuCreate, ids::mnuRename, ids::mnuDelete};

constexpr CommandTable table{
    rows, toolbar, {editCommands, editCommands, editCommands, editCommands}};

}  // namespace

const CommandTable& commandTable() { return table; }

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
