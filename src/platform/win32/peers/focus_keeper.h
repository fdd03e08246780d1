// The keyboard focus inside one window.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

namespace platform::win32 {

class NativeControl;

/// Remembers which control of a window had the focus, and finds another one for a control that goes
/// out of use.
class FocusKeeper {
 public:
  /// `controls` are those of the window in tab order.
  explicit FocusKeeper(const std::vector<std::unique_ptr<NativeControl>>& controls)
      : controls_(controls) {}
  FocusKeeper(const FocusKeeper&) = delete;
  FocusKeeper& operator=(const FocusKeeper&) = delete;
  /// The window is there now.
  void serve(HWND window) { window_ = window; }

  /// Gives a control the focus: at once in the active window, else when the window becomes active.
  void give(HWND control);
  /// The tab key: on to the next control, or back to the one before.
  void step(bool backwards) const;
  /// A control is about to be shown or hidden, enabled or disabled: one that goes out of use hands
  /// the focus on.
  void aboutToLose(HWND control, bool staysInUse);
  /// The window is about to become inactive.
  void remember();
  /// The window has got the focus itself: gives it to the control that had it last.
  void restore();
  /// The same in a dialog, in the dialog's own way.
  void restoreInDialog() const;
  /// Looks after the focus; the window's answer to `own_message::focus`.
  void check();

 private:
  void requestCheck();
  [[nodiscard]] bool usable(HWND control) const;
  [[nodiscard]] HWND next(HWND from, bool backwards) const;
  [[nodiscard]] HWND first() const;
  [[nodiscard]] HWND substitute() const;

  const std::vector<std::unique_ptr<NativeControl>>& controls_;
  HWND window_ = nullptr;
  HWND last_ = nullptr;
  bool checkRequested_ = false;
};

}  // namespace platform::win32
