// Names that assistive programs speak.
#pragma once

#include <windows.h>

#include <string>

namespace platform::win32 {

/// The name of one window to assistive programs. Controls that show no text of their own, or one
/// that is not their name, have no other that all of these programs find. On a system without the
/// service the text of the window remains.
class AccessibleName {
 public:
  AccessibleName() = default;
  AccessibleName(const AccessibleName&) = delete;
  AccessibleName& operator=(const AccessibleName&) = delete;
  /// Takes the name back; the window has to exist still.
  ~AccessibleName();

  /// Gives the window the name; does nothing when it has one already or the name is empty.
  void give(HWND window, const std::wstring& name);

 private:
  HWND window_ = nullptr;
};

}  // namespace platform::win32
