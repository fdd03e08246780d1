// In-memory native windows: the implementation of platform/native_windows.h and
// platform/subclass.h.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/native_windows.h"
#include "platform/subclass.h"

namespace memory {

using platform::native::Edges;
using platform::native::Point;
using platform::native::WindowHandle;

/// Pixels of a window by position, as 0x00BBGGRR; only those that were drawn.
using Pixels = std::map<std::pair<int, int>, std::uint32_t>;

/// A window and its state.
struct NativeWindow {
  std::wstring className;
  WindowHandle parent = WindowHandle::none;
  std::uint32_t style = 0;
  Edges rect;  ///< In screen coordinates; windows have no frames of their own.
  bool enabled = true;
  bool listDropped = false;
  bool watched = false;
  /// Timers by id, with their milliseconds.
  std::map<std::uintptr_t, unsigned> timers;
  Pixels pixels;
  /// The window's own handling of a message; without it the result is 0.
  std::function<std::intptr_t(unsigned message, std::uintptr_t first, std::intptr_t second)>
      procedure;
};

class NativeScreen {
 public:
  /// Restores: no windows, the pointer at (0, 0), the system's usual colours, nothing counted.
  void reset();

  /// Creates a window with the given screen coordinates.
  WindowHandle add(const std::wstring& className, const Edges& rect,
                   WindowHandle parent = WindowHandle::none, std::uint32_t style = 0);
  /// Destroys a window after its children, like the system.
  void destroy(WindowHandle window);
  [[nodiscard]] bool has(WindowHandle window) const { return windows_.contains(window); }
  /// A window that exists.
  [[nodiscard]] NativeWindow& at(WindowHandle window) { return windows_.at(window); }
  /// nullptr for a window that does not exist.
  [[nodiscard]] NativeWindow* find(WindowHandle window);
  [[nodiscard]] WindowHandle childOf(WindowHandle window,
                                     const std::optional<std::wstring>& className);

  /// Sends a message to a window; if the window is watched, through the attached objects.
  std::intptr_t send(WindowHandle window, unsigned message, std::uintptr_t first = 0,
                     std::intptr_t second = 0);
  /// Moves the focus, with its messages.
  void setFocus(WindowHandle window);

  /// Number of running timers of all windows.
  [[nodiscard]] std::size_t timers() const;
  /// Number of watched windows.
  [[nodiscard]] std::size_t watched() const;

  WindowHandle focus = WindowHandle::none;
  Point cursor;
  int thumbWidth = 17;
  /// System colours by number.
  std::map<std::uint32_t, std::uint32_t> systemColours;
  /// Windows of the program's controls and window objects, by their address.
  std::map<const void*, WindowHandle> windowsOf;
  /// Called for each line that is drawn.
  std::function<void(WindowHandle)> onLine;
  int pensOpen = 0;
  int canvasesOpen = 0;

 private:
  std::map<WindowHandle, NativeWindow> windows_;
  std::uintptr_t last_ = 0;
};

/// The screen of this process.
NativeScreen& screen();

}  // namespace memory
