// Names that assistive programs speak.
#pragma once

#include <windows.h>

#include <string>

namespace platform::win32 {

/// Sets the name of one window for assistive programs. For controls that show no text, or a text
/// that is not their name, all these programs find a name only in this way. On a system without the
/// service, the text of the window is all there is.
class AccessibleName {
 public:
  AccessibleName() = default;
  AccessibleName(const AccessibleName&) = delete;
  AccessibleName& operator=(const AccessibleName&) = delete;
  /// Removes the name. The window must still exist.
  ~AccessibleName();

  /// Sets the name of the window. Does nothing when one is set already or `name` is empty.
  void give(HWND window, const std::wstring& name);

 private:
  HWND window_ = nullptr;
};

}  // namespace platform::win32
