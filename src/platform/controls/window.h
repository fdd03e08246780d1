// The base of the program's windows.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/bars.h"
#include "platform/controls/control.h"
#include "platform/controls/key_stroke.h"
#include "platform/controls/simple_controls.h"
#include "platform/geometry.h"

namespace controls {

/// Why a window is asked to close. `forced`: the session must end, or the system's restart manager
/// ends the program to replace its files; nobody can be asked.
enum class UnloadMode { user = 0, code = 1, sessionEnd = 2, forced = 3 };

/// What kind of native window a window object gets.
enum class WindowKind {
  frame,   ///< Main window: title bar, sizing border, minimise and maximise boxes, menu.
  dialog,  ///< Fixed size, title bar with a close box, Enter and Esc answered by its buttons.
  bare,    ///< Neither border nor title, in the middle of the screen, always in front of the frame.
  hidden,  ///< Never shown.
};

/// Where a window stands on the screens.
struct Placement {
  platform::Rect normal;  ///< Place while it is neither maximised nor minimised, in pixels of the
                          ///< virtual screen, frame included.
  int dpi = platform::designDpi;  ///< Dots per inch that the place was measured at.
  bool maximised = false;
  bool operator==(const Placement&) const = default;
};

/// Native side of a window.
class WindowPeer : public Peer {
 public:
  virtual void show() = 0;
  /// Brings the window to the front and gives it the focus.
  virtual void activate() = 0;
  /// Where the native window stands now, and the density of the screen that it is on.
  [[nodiscard]] virtual Placement placement() const = 0;
  /// Moves the native window; a maximised placement takes effect when the window is shown. The
  /// size is taken as it is, whatever `dpi` it was measured at.
  virtual void place(const Placement& placement) = 0;
  /// Shows the entries of `menu` as a menu at a point of the virtual screen. They need not be in
  /// the menu bar, but have to live as long as the window is loaded. The chosen entry's click is
  /// raised later, as from the menu bar.
  virtual void popUp(const MenuItem& menu, int x, int y) = 0;
  /// Native handle, for the calls of the platform that want an owner.
  [[nodiscard]] virtual void* handle() const = 0;
};

/// A window: its controls, its state, and its handlers, which derived classes override.
///
/// Life: constructed, loaded (native window created hidden, then `Form_Load`), shown, unloaded.
/// A window that is destroyed while it is loaded takes its native window along, without events.
class Window {
 public:
  Window(std::wstring name, WindowKind kind);
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window();

  [[nodiscard]] const std::wstring& name() const { return name_; }
  [[nodiscard]] WindowKind kind() const { return kind_; }
  /// All controls in collection order, which is also the tab order.
  [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
  [[nodiscard]] const std::vector<Timer*>& timers() const { return timers_; }
  /// Menus of the menu bar, none for a window without one.
  [[nodiscard]] const std::vector<MenuItem*>& menuBar() const { return menuBar_; }

  [[nodiscard]] const std::wstring& caption() const { return caption_; }
  void setCaption(std::wstring caption);
  /// Opacity of the whole window, 0 (clear) to 255; only a window with the layered style has one.
  [[nodiscard]] std::optional<std::uint8_t> opacity() const { return opacity_; }
  void setOpacity(std::uint8_t level);
  /// The exact extended style of the native window, nothing for the system's choice.
  [[nodiscard]] std::optional<std::uint32_t> extendedStyle() const { return extendedStyle_; }
  void setExtendedStyle(std::uint32_t style);
  /// Name of the drawing that fills the client area, "" for none.
  [[nodiscard]] const std::wstring& picture() const { return picture_; }
  /// Client size at 96 dpi with which the window is created, and the smallest one.
  [[nodiscard]] platform::Size designSize() const { return designSize_; }
  [[nodiscard]] platform::Size minimumSize() const { return minimumSize_; }
  /// Size of the client area with which the window is created at `dpi`, in pixels.
  [[nodiscard]] virtual platform::Size clientSize(int dpi) const {
    return {platform::scaled(designSize_.width, dpi), platform::scaled(designSize_.height, dpi)};
  }
  /// Whether a dialog belongs to the window that is active when it is loaded: it then stays in
  /// front of that window, and has neither an icon nor a place of its own on the task bar.
  [[nodiscard]] bool owned() const { return owned_; }

  [[nodiscard]] bool loaded() const { return loaded_; }
  [[nodiscard]] bool visible() const { return visible_; }
  /// Whether the loaded window has been laid out: before that its native window has neither a size
  /// nor a place that anybody has seen.
  [[nodiscard]] bool laidOut() const { return laidOut_; }
  [[nodiscard]] WindowPeer* peer() const { return peer_; }

  /// Loads the window hidden unless it is loaded already. An error in `Form_Load` is passed on;
  /// the window is then not loaded.
  void load();
  /// Loads and shows the window. An error of the native side is passed on; the window is then not
  /// loaded.
  void show();
  /// Loads and shows the window, and returns when it has been unloaded. Errors as with `show`.
  void showModal();
  /// Brings a shown window to the front.
  void activate();
  /// Asks the handlers and, if none refuses, destroys the native window. True when the window is
  /// unloaded now, or was not loaded.
  bool unload(UnloadMode mode = UnloadMode::code);

  // Called by the native side. Each runs its handler through the dispatcher.
  void attach(WindowPeer* peer) { peer_ = peer; }
  /// The native window cannot be completed: the window is not loaded any more. No handler is asked.
  void giveUp() { dropNative(); }
  void fireActivate();
  void fireClick();
  void fireKeyPress(wchar_t character);
  /// A key went down somewhere in the window, before the control with the focus sees it. True when
  /// the window has dealt with it, or failed to.
  bool fireKeyDown(const KeyStroke& stroke);
  /// A menu is about to be shown.
  void fireMenuOpening();
  /// An entry of a menu is marked while the menu is open; nullptr: none, or the menu is closed.
  void fireMenuMarked(const MenuItem* item);
  /// A drive has come or gone.
  void fireDrivesChanged();
  /// The user or the system wants to close the window; true when it may go. It is unloaded then,
  /// except at the end of a session: `fireSessionEnd` follows if all other programs agree, too.
  bool fireClose(UnloadMode mode);
  /// The session ends now; the program is not going to get another message.
  void fireSessionEnd();
  void fireLayout(platform::Size client, int dpi);

 protected:
  /// Registers a control; the order of the calls is the tab order.
  void add(Control& control);
  void add(Timer& timer);
  void addMenu(MenuItem& menu) { menuBar_.push_back(&menu); }
  void setPicture(std::wstring name) { picture_ = std::move(name); }
  void setDesignSize(platform::Size size, platform::Size minimum);
  void setOwned() { owned_ = true; }

  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Click() {}
  virtual void Form_KeyPress(wchar_t /*character*/) {}
  virtual bool Form_KeyDown(const KeyStroke& /*stroke*/) { return false; }
  virtual void Form_MenuOpening() {}
  virtual void Form_MenuMarked(const MenuItem* /*item*/) {}
  virtual void Form_DrivesChanged() {}
  virtual void Form_QueryUnload(bool& /*cancel*/, UnloadMode /*mode*/) {}
  virtual void Form_Unload(bool& /*cancel*/) {}
  virtual void Form_SessionEnd() {}
  /// Places the controls; `client` in pixels.
  virtual void layout(platform::Size /*client*/, int /*dpi*/) {}

 private:
  void changed(Change change);
  void dropNative();

  std::wstring name_;
  WindowKind kind_;
  std::vector<Control*> controls_;
  std::vector<Timer*> timers_;
  std::vector<MenuItem*> menuBar_;
  std::wstring caption_;
  std::optional<std::uint8_t> opacity_;
  std::optional<std::uint32_t> extendedStyle_;
  std::wstring picture_;
  platform::Size designSize_{640, 400};
  platform::Size minimumSize_;
  bool owned_ = false;
  bool loaded_ = false;
  bool visible_ = false;
  bool laidOut_ = false;
  WindowPeer* peer_ = nullptr;
};

}  // namespace controls
