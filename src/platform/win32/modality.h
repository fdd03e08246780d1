// Making a window modal for the whole program.
#pragma once

#include <windows.h>

#include <vector>

namespace platform::win32 {

/// The window that a dialog opened now belongs to: the active one or, while another program is
/// in front, this thread's foremost window that takes input. Null when there is none.
[[nodiscard]] HWND dialogOwner();

/// Keeps the windows of this thread but one from taking input while it lives: those that are
/// visible, and the program's own that are not shown yet. The one is the modal window itself, or
/// the owner of a dialog of the system, which disables its owner on its own. The program's other
/// windows would stay usable behind it, and could start what the dialog is in the middle of.
class ModalScope {
 public:
  explicit ModalScope(HWND except);
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;
  ModalScope(ModalScope&& other) noexcept = default;
  ModalScope& operator=(ModalScope&&) = delete;
  ~ModalScope() { lift(); }
  /// Gives the input back before the end.
  void lift();

 private:
  std::vector<HWND> disabled_;
};

}  // namespace platform::win32
