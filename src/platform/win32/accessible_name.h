// Names that assistive programs speak.
#pragma once

#include <windows.h>

#include <map>
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

/// Descriptions of a window's parts, such as the rows of a list, for assistive programs. Nothing is
/// described before one of them has asked for the window.
class AccessibleDescriptions {
 public:
  AccessibleDescriptions() = default;
  AccessibleDescriptions(const AccessibleDescriptions&) = delete;
  AccessibleDescriptions& operator=(const AccessibleDescriptions&) = delete;
  /// Removes all descriptions. The window must still exist.
  ~AccessibleDescriptions() { set({}); }

  /// An assistive program asks for the window.
  void wanted(HWND window) { window_ = window; }
  [[nodiscard]] bool isWanted() const { return window_ != nullptr; }
  /// Sets the descriptions of the parts by their numbers, which count from 1; other parts have
  /// none from now on.
  void set(std::map<int, std::wstring> texts);

 private:
  HWND window_ = nullptr;
  std::map<int, std::wstring> texts_;
};

}  // namespace platform::win32
