// The commands of the main window: one row for each says what it is, where it stands, which key
// runs it, and what each tab makes of it.
//
// To add a command: an id, a row, and a place in the lists below where it is to stand there.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>

#include "platform/controls/key_stroke.h"

class frmQMK;

namespace mainwindow {

/// The menus of the menu bar. A command in none of them can still be in a context menu, on the
/// toolbar, or have a key.
enum class Menu { file, edit, view, help, none };

/// Where the focus has to be for a key to count.
enum class Reach {
  list,    ///< On one of the lists.
  window,  ///< Anywhere in the window.
};

/// A key that runs a command.
struct Key {
  controls::KeyStroke stroke;
  Reach reach = Reach::list;
};

/// A button of the toolbar; its caption is its key.
struct Button {
  const wchar_t* key = nullptr;       ///< nullptr where the command has no button.
  int id = 0;                         ///< Native id.
  const wchar_t* image = nullptr;     ///< Key of its picture.
  const wchar_t* resource = nullptr;  ///< Name of the picture among the program's resources.
  const wchar_t* toolTip = nullptr;   ///< Before any tab was entered.
  bool check = false;                 ///< Stays pressed; adjoining ones release one another.
};

/// What entering a tab makes of a command. An empty cell keeps what was there.
struct OnTab {
  const wchar_t* caption = nullptr;  ///< Of the menu entry.
  const wchar_t* toolTip = nullptr;  ///< Of the button.
  std::optional<bool> enabled = {};  ///< Both.
};

struct Command {
  int id = 0;                            ///< Native id of the menu entry.
  const wchar_t* name = nullptr;         ///< Name of the menu entry.
  const wchar_t* caption = nullptr;      ///< Of the menu entry, before any tab was entered.
  Menu menu = Menu::none;                ///< The entries stand there in the order of the rows.
  bool separated = false;                ///< A separator stands before the menu entry.
  const wchar_t* explanation = nullptr;  ///< For the status line while the entry is marked.
  Button button = {};
  Key key = {};
  /// Runs the command for the list of a tab (from 0).
  void (*handler)(frmQMK& form, int list) = nullptr;
  /// What the menu entry says at the moment; nullptr: the caption of the tab.
  std::wstring (*captionNow)(const frmQMK& form) = nullptr;
  /// Whether it can be run at the moment, where the tab allows it; nullptr: always.
  bool (*available)(const frmQMK& form) = nullptr;
  /// Why it cannot be run at the moment, for the status line; nullptr where there is nothing to
  /// say.
  const wchar_t* (*refusal)(const frmQMK& form) = nullptr;
  std::array<OnTab, 4> onTab = {};  ///< Tools, Open, New, Web.
};

/// All commands, and the lists in which they stand by their ids; 0 is a separator.
struct CommandTable {
  std::span<const Command> rows;
  std::span<const int> toolbar;
  /// Of the list of each tab: Tools, Open, New, Web.
  std::array<std::span<const int>, 4> contextMenus;
};

/// The name of a key, as in "Ctrl+F"; "" for none.
[[nodiscard]] std::wstring keyName(const controls::KeyStroke& stroke);

/// The table of the main window.
[[nodiscard]] const CommandTable& commandTable();

/// The tab to which a key leads from tab `current` of `count` (from 0); nothing for other keys.
[[nodiscard]] std::optional<int> tabOfKey(const controls::KeyStroke& stroke, int current,
                                          int count);

}  // namespace mainwindow
