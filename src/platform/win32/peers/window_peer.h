// The native side of a window.
#pragma once

#include <windows.h>
// The rest of the system's headers rely on the first.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/window.h"
#include "platform/win32/fonts.h"
#include "platform/win32/handles.h"
#include "platform/win32/peers/building.h"
#include "platform/win32/peers/focus_keeper.h"
#include "platform/win32/peers/menu_peer.h"
#include "platform/win32/peers/native_control.h"
#include "platform/win32/peers/timer_peer.h"
#include "platform/win32/peers/tool_tips.h"

namespace platform::win32 {

/// Native window of a `controls::Window` with the peers of all its controls.
///
/// It outlives the tie to its window object: after `detach` it is hidden and deaf, and is deleted
/// as soon as none of its messages is being handled.
class WindowPeer final : public controls::WindowPeer {
 public:
  /// Creates the hidden native window with all controls and attaches the peers. Raises
  /// `error::outOfMemory`; nothing is attached then.
  explicit WindowPeer(controls::Window& window);
  WindowPeer(const WindowPeer&) = delete;
  WindowPeer& operator=(const WindowPeer&) = delete;
  ~WindowPeer() override;

  void changed(controls::Change change) override;
  void show() override;
  void activate() override;
  [[nodiscard]] controls::Placement placement() const override;
  void place(const controls::Placement& placement) override;
  void popUp(const controls::MenuItem& menu, int x, int y) override;
  [[nodiscard]] void* handle() const override { return window(); }

  /// Cuts all ties to the window object and its controls, stops the timers and hides the window.
  void detach();
  /// Whether this is the peer of `window`.
  [[nodiscard]] bool belongsTo(const controls::Window& window) const { return window_ == &window; }
  /// Whether a message of this window is being handled further down the stack.
  [[nodiscard]] bool busy() const { return busy_ > 0; }
  /// Takes a message out of the pump's hands: dialog keys, or the frame's keys while the frame is
  /// active. True when the message is done with.
  bool preTranslate(MSG& message);

  /// Marks a stretch of code during which the peer must not be deleted.
  class Busy {
   public:
    explicit Busy(WindowPeer& peer) : peer_(peer) { ++peer_.busy_; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { --peer_.busy_; }

   private:
    WindowPeer& peer_;
  };

  // For the controls' peers.

  [[nodiscard]] HWND window() const { return handle_.get(); }
  [[nodiscard]] int dpi() const { return dpi_; }
  [[nodiscard]] FontCache& fonts() { return fonts_; }
  [[nodiscard]] bool isFrame() const { return kind_ == controls::WindowKind::frame; }
  /// Moves a control, together with the others while a layout is running; `redraw` has all of it
  /// painted anew.
  void place(HWND control, const Rect& bounds, bool redraw);
  /// Sets or, with "", removes a control's tool tip.
  void setToolTip(HWND control, const std::wstring& text) { toolTips_.set(control, text); }
  /// Who looks after the focus of the controls.
  [[nodiscard]] FocusKeeper& focus() { return focus_; }
  /// Lays the controls out again soon: a part has changed its size.
  void requestLayout();

 private:
  using Window = controls::Window;
  /// No timer of a window has this small a number.
  static constexpr UINT_PTR finishTimer = 1;
  /// Hook with which a window watches the dialogs it owns.
  static constexpr UINT_PTR dialogWatchId = 1;
  using WindowKind = controls::WindowKind;

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  static std::intptr_t watchDialog(native::WindowHandle window, unsigned message,
                                   std::uintptr_t first, std::intptr_t second, std::uintptr_t self);

  // window_creation.cpp
  WindowPeer(controls::Window& window, WindowKind kind);
  /// Does what a window can do without until it is shown.
  void finish();
  void createWindow(DWORD style);
  void createDialog();
  void createControls();
  /// The window in the middle of which this one is to appear; null for the middle of the screen.
  [[nodiscard]] HWND windowBefore() const;
  void placeAtStart();
  void moveTo(const Rect& normal) const;
  void applyExtendedStyle();
  void loadIcons();
  void loadBackground();
  [[nodiscard]] Size nativeSizeFor(Size client) const;

  // window_peer.cpp
  void layout();
  /// Before the splash goes: leaves the place in front of other programs to the frame.
  void keepForeground() const;
  void refreshFonts();

  // window_messages.cpp
  /// Handles a message; what is raised must not leave through the system that sent it, and is
  /// reported here.
  std::optional<LRESULT> handleSafely(UINT message, WPARAM first, LPARAM second);
  std::optional<LRESULT> handle(UINT message, WPARAM first, LPARAM second);
  std::optional<LRESULT> handleParts(UINT message, WPARAM first, LPARAM second);
  std::optional<LRESULT> handleBare(UINT message, WPARAM first);
  void forwardToControls(UINT message, WPARAM first, LPARAM second);
  void activated(bool active);
  void tick(UINT_PTR timer);
  std::optional<LRESULT> notify(NMHDR& header);
  void command(int id, WORD code, HWND source);
  void menuMarked(int id, UINT flags, LPARAM menu);
  /// The entry with a command id, of the menu bar or of the menu that was popped up last; nullptr
  /// when there is none.
  [[nodiscard]] controls::MenuItem* menuItem(int id) const;
  void answerDialogKey(int id);
  std::optional<LRESULT> colourText(HDC dc, HWND control) const;
  void close();
  void changeDpi(int dpi, const RECT& suggested);
  /// Has everything painted anew: what is drawn around the controls, as the ring of a flat field
  /// is, stays on the window when they move.
  void repaintAll();
  void limitSize(MINMAXINFO& limits) const;
  [[nodiscard]] NativeControl* find(HWND control) const;

  Window* window_;  // nullptr once detached
  WindowKind kind_;
  NativeWindow handle_;
  ToolTips toolTips_;  // goes before the window
  int dpi_ = designDpi;
  FontCache fonts_;
  Icon largeIcon_;
  Icon smallIcon_;
  BitmapHandle background_;
  BrushHandle backgroundBrush_;
  std::unique_ptr<MenuBar> menuBar_;
  const controls::MenuItem* poppedUp_ = nullptr;  // the last one, as its choice arrives later
  std::vector<std::unique_ptr<NativeControl>> controls_;
  std::vector<std::unique_ptr<TimerPeer>> timers_;
  FocusKeeper focus_{controls_};
  HDWP moving_ = nullptr;  // controls on their way to their places while a layout runs
  int busy_ = 0;
  Building building_;
  bool showMaximised_ = false;
  bool layoutRequested_ = false;
  bool closing_ = false;
  bool pressed_ = false;  // a mouse button went down on a bare window
};

}  // namespace platform::win32
