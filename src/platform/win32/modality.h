// Making a dialog modal for the whole program.
#pragma once

#include <windows.h>

#include <vector>

namespace platform::win32 {

/// The window that a dialog opened now belongs to: the active one or, while another program is
/// in front, this thread's foremost window that takes input. Null when there is none.
[[nodiscard]] HWND dialogOwner();

/// Keeps all windows of this thread but `owner` from taking input while it lives. A dialog
/// disables its owner itself, but the program's other windows would stay usable behind it, and
/// could start what the dialog is in the middle of.
class ModalScope {
 public:
  explicit ModalScope(HWND owner);
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;
  ~ModalScope();

 private:
  std::vector<HWND> disabled_;
};

}  // namespace platform::win32
