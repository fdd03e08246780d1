// The base class of all native controls.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <optional>
#include <string>

#include "platform/controls/control.h"
#include "platform/native_windows.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/handles.h"

namespace platform::win32 {

class WindowPeer;

/// The native window of one control. Peers derive from it and from `controls::Peer`, attach
/// themselves to their control, and pass property changes to `mirror`.
class NativeControl {
 public:
  NativeControl(const NativeControl&) = delete;
  NativeControl& operator=(const NativeControl&) = delete;
  virtual ~NativeControl() = default;

  [[nodiscard]] HWND window() const { return window_.get(); }
  /// Detaches from the control, which may be destroyed from then on.
  virtual void detach();
  /// The control is being destroyed.
  void loseControl() { detached_ = true; }

  /// A WM_COMMAND of this control, with its command id and notification code.
  virtual void command(int /*id*/, WORD /*code*/) {}
  /// A WM_NOTIFY of this control or of a window that belongs to it. Returns nothing when it is not
  /// for this control.
  virtual std::optional<LRESULT> notification(NMHDR& /*header*/) { return std::nullopt; }
  /// Paints an owner-drawn control.
  virtual void draw(const DRAWITEMSTRUCT& /*request*/) {}
  /// Sets the colours of a text control; returns true when it has colours of its own.
  virtual bool colours(HDC /*dc*/) { return false; }
  /// Updates fonts, pictures and sizes after the dpi or the system's fonts changed.
  virtual void refresh();
  /// Whether the window is painted below its siblings although it was created before them.
  [[nodiscard]] virtual bool beneathOthers() const { return false; }
  /// Whether the window must be fully redrawn when it is moved, because what it shows depends on
  /// its size.
  [[nodiscard]] virtual bool redrawnWhenMoved() const { return false; }

 protected:
  NativeControl(WindowPeer& host, controls::Control& control);

  /// Creates the native window, hidden or shown like the control. Raises `error::outOfMemory`.
  void create(const wchar_t* windowClass, DWORD style, DWORD extendedStyle = 0);
  /// Makes `message` receive the native window's messages.
  void watchMessages();
  /// A message of a watched window. Returning nothing leaves it to the native control.
  virtual std::optional<LRESULT> message(UINT /*message*/, WPARAM /*first*/, LPARAM /*second*/) {
    return std::nullopt;
  }
  /// Shows a changed property that all controls have.
  void mirror(controls::Change change);
  /// Adds and removes style bits and makes the window redraw its frame.
  void changeStyle(DWORD clear, DWORD set) const;
  void changeExtendedStyle(DWORD clear, DWORD set) const;

  /// The text of the native window: the caption, or the name for screen readers.
  [[nodiscard]] virtual std::wstring nativeText() const;
  [[nodiscard]] virtual HFONT font() const;

  [[nodiscard]] WindowPeer& host() const { return host_; }
  [[nodiscard]] bool detached() const { return detached_; }
  LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(window(), message, first, second);
  }

 private:
  static std::intptr_t watch(native::WindowHandle window, unsigned message, std::uintptr_t first,
                             std::intptr_t second, std::uintptr_t self);
  WindowPeer& host_;
  controls::Control& control_;
  NativeWindow window_;
  AccessibleName accessibleName_;  // destroyed before the window
  bool detached_ = false;
};

/// Native window of a control; nullptr when it has none. Labels have none as far as the program is
/// concerned.
[[nodiscard]] HWND windowOf(const controls::Control& control);

}  // namespace platform::win32
