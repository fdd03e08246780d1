// The base class of all controls: state that a window's code reads and sets, and an optional peer
// that shows it.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/geometry.h"

namespace controls {

/// The kind of property change that a control notifies its peer of.
enum class Change {
  caption,
  enabled,
  visible,
  bounds,
  toolTip,
  font,
  focus,  ///< The control asks for the keyboard focus.
  value,  ///< Checked, pressed, current tab, text of an edit line.
  items,  ///< Number, order or content of list items.
  selection,
  view,
  columns,
  sorting,    ///< Sort key, order or switch (the header's arrow).
  images,     ///< Attached image list, or its pictures.
  structure,  ///< Buttons of a toolbar, captions of tabs, entries of a menu.
  timer,      ///< Interval or enabled state of a timer.
  colours,
  appearance,  ///< Flat or raised, with or without a border.
  remarks,     ///< Remarks on rows of a list, or what an empty list says.
  editor,      ///< The editor of a name is opened or closed.
};

/// The native side of one control. It is notified of a change and then reads the control's
/// properties.
class Peer {
 public:
  Peer() = default;
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  virtual ~Peer() = default;
  virtual void changed(Change change) = 0;
  /// The control is destroyed while the peer is still attached. The peer must not use the control
  /// any more.
  virtual void orphaned() {}
};

/// Kinds of controls that code which visits all controls of a window needs to distinguish.
enum class Kind {
  listView,
  tab,
  toolbar,
  textBox,
  comboBox,
  label,
  commandButton,
  optionButton,
  imageButton,
  image,
  statusBar,
  other,
};

/// A control of a window. It is owned by its window object and lives longer than its peer.
class Control {
 public:
  /// `name` is the control's name in the code, `id` its stable native id (control_ids.h).
  Control(std::wstring name, int id) : name_(std::move(name)), id_(id) {}
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() {
    if (peer_ != nullptr) {
      peer_->orphaned();
    }
  }

  [[nodiscard]] virtual Kind kind() const { return Kind::other; }
  [[nodiscard]] const std::wstring& name() const { return name_; }
  [[nodiscard]] int id() const { return id_; }

  [[nodiscard]] const std::wstring& caption() const { return caption_; }
  void setCaption(std::wstring caption) { assign(caption_, std::move(caption), Change::caption); }
  [[nodiscard]] bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { assign(enabled_, enabled, Change::enabled); }
  [[nodiscard]] bool visible() const { return visible_; }
  void setVisible(bool visible) { assign(visible_, visible, Change::visible); }
  [[nodiscard]] const std::wstring& toolTip() const { return toolTip_; }
  void setToolTip(std::wstring tip) { assign(toolTip_, std::move(tip), Change::toolTip); }
  /// Position and size in the window's client area, in pixels, without the margin.
  [[nodiscard]] const platform::Rect& bounds() const { return bounds_; }
  /// Gives the control its rectangle. The margin inside the rectangle stays free.
  void setBounds(platform::Rect place) {
    place_ = place;
    assign(bounds_, platform::inset(place_, margin_), Change::bounds);
  }
  /// Pixels on every side that the control leaves free for a frame around it, whatever its
  /// rectangle.
  [[nodiscard]] int margin() const { return margin_; }
  void setMargin(int pixels) {
    margin_ = pixels;
    setBounds(place_);
  }
  /// Text that the program stores with the control. The control itself does not use it.
  [[nodiscard]] const std::wstring& tag() const { return tag_; }
  void setTag(std::wstring tag) { tag_ = std::move(tag); }
  /// Name for screen readers; "" means that the caption is used.
  [[nodiscard]] const std::wstring& accessibleName() const { return accessibleName_; }
  void setAccessibleName(std::wstring name) { accessibleName_ = std::move(name); }
  /// Asks for the keyboard focus.
  void setFocus() { changed(Change::focus); }

  /// Attaches the native side, or detaches it with nullptr. The control does not own it.
  void attach(Peer* peer) { peer_ = peer; }
  [[nodiscard]] Peer* peer() const { return peer_; }

 protected:
  void changed(Change change) {
    if (peer_ != nullptr) {
      peer_->changed(change);
    }
  }
  /// Sets a property and notifies the peer, but only when the value changes.
  template <class T>
  void assign(T& property, T value, Change change) {
    if (property != value) {
      property = std::move(value);
      changed(change);
    }
  }

 private:
  std::wstring name_;
  int id_;
  std::wstring caption_;
  bool enabled_ = true;
  bool visible_ = true;
  std::wstring toolTip_;
  platform::Rect place_;
  platform::Rect bounds_;
  int margin_ = 0;
  std::wstring tag_;
  std::wstring accessibleName_;
  Peer* peer_ = nullptr;
};

}  // namespace controls
