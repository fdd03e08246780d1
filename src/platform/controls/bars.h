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
    bool check = false;  ///< Stays pressed; pressing one releases the others of its group.
    int value = 0;       ///< 1 means pressed.
    [[nodiscard]] bool separator() const { return key.empty(); }
  };
  /// Adds a button at the end. Adjacent `check` buttons form a group.
  void addButton(Button button);
  void addSeparator();
  [[nodiscard]] const std::vector<Button>& buttons() const { return buttons_; }
  /// The button with that key (exact comparison). Raises `error::elementNotFound` when there is
  /// none.
  [[nodiscard]] const Button& button(const std::wstring& key) const;
  void setButtonCaption(const std::wstring& key, std::wstring caption);
  void setButtonToolTip(const std::wstring& key, std::wstring toolTip);
  void setButtonImage(const std::wstring& key, std::wstring image);
  void setButtonEnabled(const std::wstring& key, bool enabled);
  /// Presses (1) or releases (0) a button. Pressing one of a group releases the others.
  void setButtonValue(const std::wstring& key, int value);
  /// Pictures of the buttons, not owned; nullptr for none.
  void setImages(const ImageList* images);
  [[nodiscard]] const ImageList* images() const { return images_; }
  /// Redraws the toolbar.
  void refresh() { changed(Change::structure); }
  /// Height in pixels that the native toolbar needs. Set by the peer; 0 without one.
  [[nodiscard]] int measuredHeight() const { return measuredHeight_; }
  void acceptMeasuredHeight(int height) { measuredHeight_ = height; }

  std::function<void(const std::wstring& key)> onButtonClick;
  void fireButtonClick(const std::wstring& key);

 private:
  Button& find(const std::wstring& key);
  std::vector<Button> buttons_;
  const ImageList* images_ = nullptr;
  int measuredHeight_ = 0;
};

/// The line at the bottom of a window.
class StatusBar : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::statusBar; }
  /// Two texts. The right one takes what the left one leaves, and is shortened in its middle when
  /// it does not fit.
  void setTexts(std::wstring left, std::wstring right);
  [[nodiscard]] const std::wstring& left() const { return left_; }
  [[nodiscard]] const std::wstring& right() const { return right_; }
  /// A text over the whole line instead of the two; "" shows the two again.
  void setNote(std::wstring note) { assign(note_, std::move(note), Change::value); }
  [[nodiscard]] const std::wstring& note() const { return note_; }
  /// A bar instead of the right text that shows how much of something is done, in thousandths;
  /// nothing ends it.
  void setProgress(std::optional<int> thousandths) {
    assign(progress_, thousandths, Change::value);
  }
  [[nodiscard]] std::optional<int> progress() const { return progress_; }

 private:
  std::wstring left_;
  std::wstring right_;
  std::wstring note_;
  std::optional<int> progress_;
};

/// `text` if it is at most `width` wide, as `widthOf` measures it. Otherwise its beginning, an
/// ellipsis and its end: from the last separator of its path or address on, if that fits.
[[nodiscard]] std::wstring shortenedInMiddle(
    const std::wstring& text, int width, const std::function<int(const std::wstring&)>& widthOf);

class TabControl : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::tab; }
  void addTab(std::wstring caption);
  [[nodiscard]] const std::vector<std::wstring>& captions() const { return captions_; }
  /// Caption of tab `index` (from 0). Raises `error::indexOutOfBounds` when there is no such tab.
  [[nodiscard]] const std::wstring& tabCaption(int index) const;
  /// Index of the current tab.
  [[nodiscard]] int current() const { return current_; }
  /// Makes a tab the current one. Calls `onSwitch` when it was not the current one before. Raises
  /// `error::indexOutOfBounds` when there is no such tab.
  void setCurrent(int index);
  /// The area of the control below its tabs, in client coordinates of the window, for a control
  /// with the given bounds. Measured by the peer; estimated without one.
  [[nodiscard]] platform::Rect displayArea(const platform::Rect& bounds, int dpi) const;
  std::function<platform::Rect(const platform::Rect& bounds)> measureDisplayArea;
  /// A part of the control's rectangle, in client coordinates of the window, that belongs to
  /// another control and to what is drawn around it.
  [[nodiscard]] const platform::Rect& hole() const { return hole_; }
  void setHole(platform::Rect hole) { assign(hole_, hole, Change::appearance); }

  /// Called with the old and the new index when the current tab has changed.
  std::function<void(int oldIndex, int newIndex)> onSwitch;
  /// Called by the peer when the user has chosen a tab.
  void fireSwitch(int index);

 private:
  std::vector<std::wstring> captions_;
  platform::Rect hole_;
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
  /// Called by the peer when the user has chosen the entry. Does nothing while it is disabled.
  void fireClick();

 private:
  bool checked_ = false;
  std::vector<MenuItem*> children_;
};

}  // namespace controls
