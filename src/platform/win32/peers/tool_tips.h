// The tool tips of a window's controls.
#pragma once

#include <windows.h>

#include <map>
#include <string>

#include "platform/win32/handles.h"

namespace platform::win32 {

/// Texts that come up when the pointer rests on a control. The native window that shows them is
/// made when the pointer is over such a control for the first time: no start waits for it.
class ToolTips {
 public:
  /// Sets or, with "", removes the text of a control.
  void set(HWND control, const std::wstring& text);
  /// To be called for each message to a window of `owner` before it is delivered.
  void see(MSG& message, HWND owner);
  /// The density or the system's fonts have changed.
  void renew() { native_.reset(); }

 private:
  void create(HWND owner);

  std::map<HWND, std::wstring> texts_;
  NativeWindow native_;
};

}  // namespace platform::win32
