// Dropping things on a control, and dragging things out of it.
#pragma once

#include <windows.h>

#include <functional>

#include "platform/clipboard.h"
#include "platform/win32/handles.h"

struct IDropTarget;

namespace platform::win32 {

/// A window as a place where other programs can drop things. Only copies are taken: what is dropped
/// stays where it comes from.
class DropPlace {
 public:
  /// What the control says about it.
  struct Owner {
    std::function<bool(const clipboard::Content&)> takes;
    /// Called while the other program waits, so it must return soon.
    std::function<void(clipboard::Content)> dropped;
  };
  /// `window` becomes such a place; if the system refuses that, nothing can be dropped.
  DropPlace(HWND window, Owner owner);
  DropPlace(const DropPlace&) = delete;
  DropPlace& operator=(const DropPlace&) = delete;
  ~DropPlace();

 private:
  class Target;
  HWND window_;
  Target* target_ = nullptr;
};

/// Lets the user, who holds a mouse button down, drag a content to another program, as a copy.
/// Returns when it is dropped or the user has given up. Messages are processed meanwhile.
void dragOut(const clipboard::Content& content);

}  // namespace platform::win32
