// The menus, entries and buttons that show the main window's commands.
#pragma once

#include <array>
#include <list>
#include <span>
#include <string>
#include <vector>

#include "mainwindow/commands.h"
#include "platform/controls/bars.h"
#include "platform/controls/image_list.h"

namespace mainwindow {

/// Makes the objects of a table of commands, and keeps them in step with the tab in front.
class CommandObjects {
 public:
  /// `table`, and what it points to, outlives the object; so do `form` and its `toolbar`, which are
  /// not touched yet.
  CommandObjects(frmQMK& form, controls::Toolbar& toolbar, const CommandTable& table);

  /// The menu entry of a command; one that no menu has is an entry all the same. Raises
  /// `error::elementNotFound` when there is no such command.
  [[nodiscard]] controls::MenuItem& item(int id);
  [[nodiscard]] controls::MenuItem& menu(Menu which);
  /// The context menu of the list of a tab (from 0).
  [[nodiscard]] const controls::MenuItem& contextMenu(int tab) const;

  /// Adds the pictures of all buttons to a list.
  void addPictures(controls::ImageList& images);
  /// Adds the buttons to the toolbar, bare.
  void addButtons();
  /// Gives the buttons their pictures, and then their captions.
  void dressButtons();

  /// Sets captions, tool tips and enabled states as the tab (from 0 to 3) wants them.
  void showTab(int tab);
  /// Takes over what has changed for the commands that can be run at times only. To be called
  /// before one of them is shown.
  void refresh();
  /// What an entry does, and its key in parentheses; "" for an entry that is no command.
  [[nodiscard]] std::wstring explanation(const controls::MenuItem& item) const;
  /// Whether a command can be run now. Raises `error::elementNotFound` when there is no such
  /// command.
  [[nodiscard]] bool enabled(int id);

  /// A button was clicked: runs its command. Another key does nothing.
  void click(const std::wstring& buttonKey);
  /// A key went down: runs its command for the list of a tab, if it is enabled. False when the key
  /// has none.
  bool press(const controls::KeyStroke& stroke, Reach reach, int list);

 private:
  /// A command with its menu entry.
  struct Object {
    explicit Object(const Command& row);
    const Command& command;
    controls::MenuItem item;
    bool allowed;  // by the tab in front
  };

  Object& find(int id);
  /// Why a command cannot be run now; nullptr when it can, or when there is nothing to say.
  [[nodiscard]] const wchar_t* whyNot(const Object& object) const;
  /// The commands of the toolbar in its order.
  [[nodiscard]] std::vector<const Object*> buttons();
  /// Whether a command can be run now.
  [[nodiscard]] bool isAvailable(const Object& object) const;
  void showEnabled(Object& object);

  frmQMK& form_;
  controls::Toolbar& toolbar_;
  const CommandTable& table_;
  std::list<Object> objects_;
  std::list<controls::MenuItem> separators_;
  std::array<controls::MenuItem, 4> menus_;
  std::array<controls::MenuItem, 4> contextMenus_;
};

}  // namespace mainwindow
