// The tool tips of a window's controls.
//
// The native window that shows them is created when the pointer is over a control with a tool tip
// for the first time. So start-up does not create it, which under Wine takes many round trips to
// the window server. Rows `start.splash` and `start.lists` of ./bench include it; no row measures
// it alone. On real Windows it may save little.
#pragma once

#include <windows.h>

#include <map>
#include <string>

#include "platform/win32/handles.h"

namespace platform::win32 {

/// Texts that appear when the pointer rests on a control.
class ToolTips {
 public:
  /// Sets or, with "", removes the text of a control.
  void set(HWND control, const std::wstring& text);
  /// Must be called with each message to a child window of `owner` before it is dispatched.
  void see(MSG& message, HWND owner);
  /// Call when the dpi or the system's fonts have changed.
  void renew() { native_.reset(); }

 private:
  void create(HWND owner);

  std::map<HWND, std::wstring> texts_;
  NativeWindow native_;
};

}  // namespace platform::win32
