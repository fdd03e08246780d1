// The flat look of one control.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "flatlook/frames.h"
#include "platform/native_windows.h"
#include "platform/subclass.h"

namespace controls {
class Control;
class Window;
}  // namespace controls

/// What `cFlatControl::Attach` needs to know about a control, whatever its type.
struct FlatTarget {
  /// Name of the control's type, such as "TextBox".
  std::wstring typeName;
  /// The control's window; nothing for a control that has none.
  std::optional<platform::native::WindowHandle> hWnd;
  /// The window that contains the control.
  platform::native::WindowHandle parentWindow = platform::native::WindowHandle::none;
  /// Makes the control smaller by one pixel on every side.
  std::function<void()> shrink;

  /// The control's window. Raises `noWindowError` when it has none; the error's source consists of
  /// the names of the executable and the class.
  [[nodiscard]] platform::native::WindowHandle requireWindow() const;
  /// Number of that error.
  static constexpr int noWindowError = -2147220455;
};

/// The target for a control of one of the program's windows.
[[nodiscard]] FlatTarget flatTargetOf(controls::Control& control, const controls::Window& form);

/// Gives one control a flat border of two pixels. The border looks raised while the pointer is over
/// the control, while it has the focus, and while its list is dropped down. The class watches the
/// control's messages and draws after the control has painted itself.
///
/// The control's window may be destroyed at any time. The object does nothing from then on.
class cFlatControl : public platform::subclass::ISubclass {
 public:
  using WindowHandle = platform::native::WindowHandle;

  cFlatControl() = default;
  ~cFlatControl() override;

  /// Detaches from the former control and attaches to another. With a control that has no window,
  /// the object does nothing.
  void Attach(const FlatTarget& control);
  /// Whether the list of an attached combo box is dropped down.
  [[nodiscard]] bool DroppedDown() const;

  [[nodiscard]] int MsgResponse() const override;
  /// Ignored: the response depends on the message alone.
  void setMsgResponse(int response) override;
  std::int32_t WindowProc(WindowHandle window, unsigned message, std::uintptr_t first,
                          std::intptr_t second) override;
  void windowGone(WindowHandle window) override;

 private:
  void classify(const FlatTarget& control, WindowHandle window);
  void AttachMessages();
  void DetachMessages();
  void DrawControl(flatlook::FrameStyle style, std::uint32_t colour1, std::uint32_t colour2) const;
  void Draw(bool hot, bool down) const;
  void OnTimer(bool checkMouse);
  [[nodiscard]] bool hasFocus() const;
  void mouseMoved();
  void notified(std::uintptr_t codeAndId, std::intptr_t source);
  void painted();

  WindowHandle hWndControl_ = WindowHandle::none;
  WindowHandle hWndEdit_ = WindowHandle::none;
  WindowHandle hWndNotify_ = WindowHandle::none;
  bool Subclassed_ = false;
  bool MouseOver_ = false;
  bool IsCombo_ = false;
  bool IsButton_ = false;
};
