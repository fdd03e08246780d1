// What all native controls have in common.
#pragma once

#include <windows.h>
// The rest of the system's headers rely on the first.
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
/// themselves to their control, and hand property changes to `mirror`.
class NativeControl {
 public:
  NativeControl(const NativeControl&) = delete;
  NativeControl& operator=(const NativeControl&) = delete;
  virtual ~NativeControl() = default;

  [[nodiscard]] HWND window() const { return window_.get(); }
  /// Cuts the tie to the control, which may be gone from then on.
  virtual void detach();
  /// The control is going away by itself.
  void loseControl() { detached_ = true; }

  /// A WM_COMMAND of this control with its command id and notification code.
  virtual void command(int /*id*/, WORD /*code*/) {}
  /// A WM_NOTIFY of this control or of a window that belongs to it; nothing when it is another's.
  virtual std::optional<LRESULT> notification(NMHDR& /*header*/) { return std::nullopt; }
  /// Paints an owner-drawn control.
  virtual void draw(const DRAWITEMSTRUCT& /*request*/) {}
  /// Sets the colours of a text control; true when it has some of its own.
  virtual bool colours(HDC /*dc*/) { return false; }
  /// Takes over fonts, pictures and sizes after the density or the system's fonts changed.
  virtual void refresh();
  /// Whether the window paints beneath its siblings although it comes before them.
  [[nodiscard]] virtual bool beneathOthers() const { return false; }
  /// Whether what the window shows depends on its size, so that nothing of it can be kept when it
  /// is moved.
  [[nodiscard]] virtual bool redrawnWhenMoved() const { return false; }

 protected:
  NativeControl(WindowPeer& host, controls::Control& control);

  /// Creates the native window, hidden or shown as the control says. Raises 7.
  void create(const wchar_t* windowClass, DWORD style, DWORD extendedStyle = 0);
  /// Lets `message` see the native window's messages.
  void watchMessages();
  /// A message of a watched window; nothing leaves it to the native control.
  virtual std::optional<LRESULT> message(UINT /*message*/, WPARAM /*first*/, LPARAM /*second*/) {
    return std::nullopt;
  }
  /// Shows a change of a property that all controls have.
  void mirror(controls::Change change);
  /// Adds and removes style bits and lets the window redraw its frame.
  void changeStyle(DWORD clear, DWORD set) const;
  void changeExtendedStyle(DWORD clear, DWORD set) const;

  /// What the native window has as its text: the caption, or the name for screen readers.
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
  AccessibleName accessibleName_;  // goes before the window
  bool detached_ = false;
};

/// Native window of a control; nullptr when it has none, as labels have none to the program.
[[nodiscard]] HWND windowOf(const controls::Control& control);

}  // namespace platform::win32
