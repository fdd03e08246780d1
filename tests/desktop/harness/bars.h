// Tab control, toolbar and menu bar of the driven program.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace harness {

class TabReader {
 public:
  explicit TabReader(HWND tab) : tab_(tab) {}
  [[nodiscard]] HWND window() const { return tab_; }
  [[nodiscard]] std::vector<std::wstring> captions() const;
  [[nodiscard]] int current() const;
  /// Rectangle of a tab on the screen.
  [[nodiscard]] RECT tabOnScreen(int index) const;

 private:
  HWND tab_;
};

class ToolbarReader {
 public:
  explicit ToolbarReader(HWND bar) : bar_(bar) {}

  struct Button {
    int command = 0;  ///< 0 for a separator.
    bool separator = false;
    std::wstring caption;
    int image = -1;
    bool enabled = false;
    bool pressed = false;
  };
  [[nodiscard]] HWND window() const { return bar_; }
  [[nodiscard]] std::vector<Button> buttons() const;
  /// The button of a command; raises `Failure` when there is none.
  [[nodiscard]] Button button(int command) const;
  /// Tool tip of a button, read from the toolbar's own tool tip window.
  [[nodiscard]] std::wstring toolTip(int command) const;
  /// Rectangle of a button on the screen.
  [[nodiscard]] RECT buttonOnScreen(int command) const;

 private:
  HWND bar_;
};

/// An entry of the menu bar or of one of its menus.
struct MenuEntry {
  std::wstring caption;  ///< Without "&", the tab character and the key after it.
  int id = 0;            ///< 0 for a separator, -1 for a submenu.
  int depth = 0;         ///< 0 for an entry of the menu bar.
  bool separator = false;
  bool checked = false;
  bool enabled = false;
};

/// All entries of a window's menus; the entries of a submenu follow its own entry.
[[nodiscard]] std::vector<MenuEntry> menuEntries(HWND window);

/// Waits for an open menu and returns its entries.
[[nodiscard]] std::vector<MenuEntry> openMenuEntries();

/// The entry of a command; raises `Failure` when there is none.
[[nodiscard]] MenuEntry menuEntry(HWND window, int id);

/// Number of the system icon (IDI_...) that a static control shows, 0 for another one or none.
[[nodiscard]] int systemIconOf(HWND iconControl);

}  // namespace harness
