// The editor over a name in a list.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "platform/native_windows.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/handles.h"

namespace platform::win32 {

/// An edit box inside a native list. Enter confirms, and so does the focus when it goes to another
/// part of the same window; Esc restores the text first. When the window is left for another one,
/// the editor stays.
///
/// It is the program's own, because the native list takes its editor away whenever its items are
/// set anew. When it is done, it posts `own_message::nameDone` to the list, and `result` says what
/// the name is to be.
class NameEditor {
 public:
  /// Raises `error::outOfMemory`.
  NameEditor(HWND list, HFONT font, const std::wstring& text, std::size_t stem);
  NameEditor(const NameEditor&) = delete;
  NameEditor& operator=(const NameEditor&) = delete;
  ~NameEditor();

  /// Puts the editor over a label of the list, inside the visible part.
  void place(const RECT& label, int dpi, bool report);
  void show();
  /// The user is done: the list is told.
  void confirm();
  [[nodiscard]] std::wstring result() const;

 private:
  static std::intptr_t watch(native::WindowHandle window, unsigned message, std::uintptr_t first,
                             std::intptr_t second, std::uintptr_t self);
  /// True when the message is dealt with.
  bool handle(UINT message, WPARAM first);

  HWND list_;
  std::wstring text_;
  std::size_t stem_;
  NativeWindow edit_;
  AccessibleName name_;
  bool cancelled_ = false;
  bool done_ = false;
};

}  // namespace platform::win32
