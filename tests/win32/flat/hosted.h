// A window of the tests, and the controls on it.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <string>

#include "desktop_facts.h"
#include "flatlook/flat_control.h"
#include "platform/win32/handles.h"

namespace flat_tests {

/// Which of the three frames a control gets.
enum class Frame { outer, combo, button };

/// A kind of control: its name and what is needed to create it natively.
struct Kind {
  const char* name;
  const wchar_t* typeName;
  const wchar_t* windowClass;
  DWORD style;
  Frame frame;
  bool shrinks;
};

/// A plain window, hidden at first, because the program's windows also get the flat look before
/// they are shown.
class Host {
 public:
  /// With `clips`, drawing on the window does not touch its children, like in the program's
  /// windows.
  explicit Host(bool clips);
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  [[nodiscard]] HWND window() const { return window_.get(); }
  /// A button without the flat look, to take the focus away.
  [[nodiscard]] HWND elsewhere() const { return elsewhere_; }
  /// The control whose notifications are sent back to it, as the owner-drawn list needs.
  void reflectTo(HWND control) { reflected_ = control; }
  /// Shows the window, and waits until it is in front and the focus is not on the control.
  void show();
  /// Scales a length of the design to pixels of the window's screen.
  [[nodiscard]] int at(int length) const;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  platform::win32::NativeWindow window_;
  HWND elsewhere_ = nullptr;
  HWND reflected_ = nullptr;
  HWND lastFocus_ = nullptr;
};

/// A native control of a kind on a host. It is destroyed with its host or earlier.
class Hosted {
 public:
  Hosted(Host& host, const Kind& kind);
  Hosted(const Hosted&) = delete;
  Hosted& operator=(const Hosted&) = delete;
  ~Hosted();

  /// The control's window, and the window in it that is painted and has the timer.
  [[nodiscard]] HWND window() const { return window_; }
  [[nodiscard]] HWND painted() const { return painted_; }
  /// What `Attach` needs.
  [[nodiscard]] FlatTarget target() const;
  /// The window on which the frame is drawn: the host or the control.
  [[nodiscard]] HWND canvas() const;
  /// The control's place on the host.
  [[nodiscard]] Edges place() const;
  /// Number of WM_MOUSEMOVE messages that the control or its edit box has got.
  [[nodiscard]] int mouseMoves() const { return mouseMoves_; }
  [[nodiscard]] const Kind& kind() const { return kind_; }

 private:
  static LRESULT CALLBACK count(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR id,
                                DWORD_PTR self);
  Host& host_;
  const Kind& kind_;
  HWND window_ = nullptr;
  HWND painted_ = nullptr;
  int mouseMoves_ = 0;
};

/// How a control looks.
enum class Look { idle, hot, down };

/// The frame that a control must have now, in coordinates of its canvas. For a frame on the host,
/// `inside` says whether the rings on the control itself are visible.
[[nodiscard]] Pixels expectedFrame(const Hosted& control, Look look, bool inside);

}  // namespace flat_tests
