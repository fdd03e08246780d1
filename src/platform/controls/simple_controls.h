// The small controls: timer, label, text box, buttons, image.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "platform/controls/control.h"
#include "platform/controls/key_stroke.h"
#include "platform/dispatcher.h"
#include "platform/windows.h"

namespace controls {

/// A timer of a window. It runs only while it is enabled, its interval is above 0 and its window is
/// loaded.
class Timer : public Control {
 public:
  Timer(std::wstring name, int id, int intervalMs, bool enabled) : Control(std::move(name), id) {
    interval_ = intervalMs;
    setEnabled(enabled);
  }
  /// Milliseconds between two ticks. Setting another interval restarts the timer.
  [[nodiscard]] int interval() const { return interval_; }
  void setInterval(int milliseconds) { assign(interval_, milliseconds, Change::timer); }
  std::function<void()> onTimer;
  /// One tick, from the native timer or from a test's clock. Calls the handler.
  void fireTimer() {
    if (enabled()) {
      platform::dispatch(onTimer);
    }
  }

 private:
  int interval_ = 0;
};

/// A text that the user cannot change. To the program it has no window handle.
class Label : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::label; }
  [[nodiscard]] const platform::windows::Font& font() const { return font_; }
  void setFont(platform::windows::Font font) { assign(font_, font, Change::font); }
  /// Text colour as 0xRRGGBB; negative means the system's own colour.
  [[nodiscard]] int textColour() const { return textColour_; }
  void setTextColour(int colour) { assign(textColour_, colour, Change::colours); }
  /// Whether a caption that is too long is shortened in its middle, like a path.
  [[nodiscard]] bool pathEllipsis() const { return pathEllipsis_; }
  void setPathEllipsis(bool shorten) { assign(pathEllipsis_, shorten, Change::appearance); }

 private:
  platform::windows::Font font_;
  int textColour_ = -1;
  bool pathEllipsis_ = false;
};

/// Values of `Appearance` and `BorderStyle`.
inline constexpr int flat = 0;
inline constexpr int threeD = 1;
inline constexpr int noBorder = 0;
inline constexpr int fixedSingle = 1;

/// A one-line edit box.
class TextBox : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::textBox; }
  [[nodiscard]] const std::wstring& text() const { return text_; }
  void setText(std::wstring text) { assign(text_, std::move(text), Change::value); }
  /// The user typed text. Does not notify the peer.
  void acceptTyped(std::wstring text) {
    text_ = std::move(text);
    platform::dispatch(onTyped);
  }
  std::function<void()> onTyped;
  /// A key goes down in the box; true when the handler has dealt with it.
  std::function<bool(const KeyStroke&)> onKey;
  bool fireKey(const KeyStroke& stroke) const {
    bool taken = false;
    const bool succeeded = platform::dispatch([&] { taken = onKey != nullptr && onKey(stroke); });
    return taken || !succeeded;
  }
  /// Gives the box the focus and selects its text.
  void selectAll() { changed(Change::selection); }
  /// What the empty box shows to say what it is for; "" for nothing.
  [[nodiscard]] const std::wstring& cue() const { return cue_; }
  void setCue(std::wstring cue) { assign(cue_, std::move(cue), Change::appearance); }
  /// Width at the end of the box, at 96 dpi, that its text leaves free.
  [[nodiscard]] int endMargin() const { return endMargin_; }
  void setEndMargin(int width) { assign(endMargin_, width, Change::appearance); }
  [[nodiscard]] int appearance() const { return appearance_; }
  void setAppearance(int appearance) { assign(appearance_, appearance, Change::appearance); }
  [[nodiscard]] int borderStyle() const { return borderStyle_; }
  void setBorderStyle(int style) { assign(borderStyle_, style, Change::appearance); }
  /// Whether the user may only read the text.
  [[nodiscard]] bool locked() const { return locked_; }
  void setLocked(bool locked) { assign(locked_, locked, Change::appearance); }

 private:
  std::wstring text_;
  int appearance_ = threeD;
  int borderStyle_ = fixedSingle;
  bool locked_ = false;
  std::wstring cue_;
  int endMargin_ = 0;
};

/// An edit box with a drop-down list.
class ComboBox : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::comboBox; }
  [[nodiscard]] int appearance() const { return appearance_; }
  void setAppearance(int appearance) { assign(appearance_, appearance, Change::appearance); }

 private:
  int appearance_ = threeD;
};

/// A push button. Enter clicks the `isDefault` button, Esc the `isCancel` button.
class CommandButton : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::commandButton; }
  bool isDefault = false;
  bool isCancel = false;
  bool tabStop = true;  ///< Whether the tab key stops at it. Taken when the button is created.
  std::function<void()> onClick;
  void fireClick() {
    if (enabled()) {
      platform::dispatch(onClick);
    }
  }
};

/// A button drawn from an image, with four colours of its own. It has events for the pointer
/// entering and leaving it.
class CoolButton : public CommandButton {
 public:
  using CommandButton::CommandButton;
  [[nodiscard]] Kind kind() const override { return Kind::imageButton; }
  /// Colours as COLORREF, low byte red.
  [[nodiscard]] std::uint32_t backColor() const { return backColor_; }
  void setBackColor(std::uint32_t c) { assign(backColor_, c, Change::colours); }
  [[nodiscard]] std::uint32_t colorDarkShadow() const { return colorDarkShadow_; }
  void setColorDarkShadow(std::uint32_t c) { assign(colorDarkShadow_, c, Change::colours); }
  [[nodiscard]] std::uint32_t colorHighlight() const { return colorHighlight_; }
  void setColorHighlight(std::uint32_t c) { assign(colorHighlight_, c, Change::colours); }
  [[nodiscard]] std::uint32_t colorLightShadow() const { return colorLightShadow_; }
  void setColorLightShadow(std::uint32_t c) { assign(colorLightShadow_, c, Change::colours); }
  /// Name of the picture resource that is drawn before the caption, "" for none.
  [[nodiscard]] const std::wstring& picture() const { return picture_; }
  void setPicture(std::wstring name) { assign(picture_, std::move(name), Change::images); }

  std::function<void()> onPointerEnter;
  std::function<void()> onPointerLeave;
  void firePointerEnter() const { platform::dispatch(onPointerEnter); }
  void firePointerLeave() const { platform::dispatch(onPointerLeave); }

 private:
  std::uint32_t backColor_ = 0xF0F0F0;
  std::uint32_t colorDarkShadow_ = 0x696969;
  std::uint32_t colorHighlight_ = 0xFFFFFF;
  std::uint32_t colorLightShadow_ = 0xE3E3E3;
  std::wstring picture_;
};

/// A drawing of the program, shown at the size of its bounds.
class Image : public Control {
 public:
  using Control::Control;
  [[nodiscard]] Kind kind() const override { return Kind::image; }
  [[nodiscard]] const std::wstring& picture() const { return picture_; }
  void setPicture(std::wstring name) { assign(picture_, std::move(name), Change::images); }

 private:
  std::wstring picture_;
};

}  // namespace controls
