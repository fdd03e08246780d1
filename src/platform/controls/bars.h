// Toolbar, tab control and menus.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/image_list.h"

namespace controls {

class Toolbar : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::toolbar; }

  /// A button, or a separator when `key` is "".
  struct Button {
    std::wstring key;
    int command = 0;  ///< Native command id; 0 for a separator.
    std::wstring caption;
    std::wstring toolTip;
    std::wstring image;  ///< Key in the toolbar's image list.
    bool enabled = true;
    bool check = false;  ///< Stays pressed; buttons of one group release one another.
    int value = 0;       ///< 1 means pressed.
    [[nodiscard]] bool separator() const { return key.empty(); }
  };
  /// Adds a button at the end; adjoining `check` buttons form a group.
  void addButton(Button button);
  void addSeparator();
  [[nodiscard]] const std::vector<Button>& buttons() const { return buttons_; }
  /// The button of that key, compared exactly. Raises 35601 when there is none.
  [[nodiscard]] const Button& button(const std::wstring& key) const;
  void setButtonCaption(const std::wstring& key, std::wstring caption);
  void setButtonToolTip(const std::wstring& key, std::wstring toolTip);
  void setButtonImage(const std::wstring& key, std::wstring image);
  void setButtonEnabled(const std::wstring& key, bool enabled);
  /// Presses (1) or releases (0) a button; pressing one of a group releases the others.
  void setButtonValue(const std::wstring& key, int value);
  /// Pictures of the buttons, not owned; nullptr for none.
  void setImages(const ImageList* images);
  [[nodiscard]] const ImageList* images() const { return images_; }
  /// Redraws the toolbar.
  void refresh() { changed(Change::structure); }
  /// Height in pixels that the native toolbar needs; set by its peer, 0 without one.
  [[nodiscard]] int measuredHeight() const { return measuredHeight_; }
  void acceptMeasuredHeight(int height) { measuredHeight_ = height; }

  std::function<void(const std::wstring& key)> onButtonClick;
  void raiseButtonClick(const std::wstring& key);

 private:
  Button& find(const std::wstring& key);
  std::vector<Button> buttons_;
  const ImageList* images_ = nullptr;
  int measuredHeight_ = 0;
};

class TabControl : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::tab; }
  void addTab(std::wstring caption);
  [[nodiscard]] const std::vector<std::wstring>& captions() const { return captions_; }
  /// Caption of tab `index` (from 0). Raises 35600 when there is no such tab.
  [[nodiscard]] const std::wstring& tabCaption(int index) const;
  /// Index of the tab in front.
  [[nodiscard]] int current() const { return current_; }
  /// Brings a tab to the front; calls `onSwitch` when it is another one than before. Raises 35600
  /// when there is no such tab.
  void setCurrent(int index);
  /// The part of the control below its tabs, in client coordinates of the window, for a control
  /// placed at `bounds`; measured by the peer, estimated without one.
  [[nodiscard]] platform::Rect displayArea(const platform::Rect& bounds, int dpi) const;
  std::function<platform::Rect(const platform::Rect& bounds)> measureDisplayArea;

  /// The shown tab changed: old and new index.
  std::function<void(int oldIndex, int newIndex)> onSwitch;
  /// The user chose a tab.
  void raiseSwitch(int index);

 private:
  std::vector<std::wstring> captions_;
  int current_ = 0;
};

/// An entry of a menu: a command, a submenu or a separator.
class MenuItem : public Control {
 public:
  /// `caption` "-" makes a separator.
  MenuItem(std::wstring name, int id, std::wstring caption);
  [[nodiscard]] bool checked() const { return checked_; }
  void setChecked(bool checked) { assign(checked_, checked, Change::value); }
  MenuItem& add(MenuItem& child);
  [[nodiscard]] const std::vector<MenuItem*>& children() const { return children_; }
  std::function<void()> onClick;
  /// The user chose the entry; nothing happens while it is disabled.
  void raiseClick();

 private:
  bool checked_ = false;
  std::vector<MenuItem*> children_;
};

}  // namespace controls
