// Making a window modal for the whole program.
#pragma once

#include <windows.h>

#include <vector>

namespace platform::win32 {

/// The window that owns a dialog opened now: the active one or, while another program is active,
/// this thread's foremost window that takes input. Null when there is none.
[[nodiscard]] HWND dialogOwner();

/// While it exists, all windows of this thread except one take no input, including the program's
/// own windows that are not shown yet. The exception is the modal window itself, or the owner of a
/// system dialog, which disables its owner itself. Otherwise the other windows would stay usable
/// behind the dialog and could start the same operation again.
class ModalScope {
 public:
  explicit ModalScope(HWND except);
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;
  ModalScope(ModalScope&& other) noexcept = default;
  ModalScope& operator=(ModalScope&&) = delete;
  ~ModalScope() { lift(); }
  /// Enables the windows again before the destructor does.
  void lift();

 private:
  std::vector<HWND> disabled_;
};

}  // namespace platform::win32
