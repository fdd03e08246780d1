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

/// What `cFlatControl::Attach` needs to know of a control, of whatever kind it is.
struct FlatTarget {
  /// Name of the control's type, such as "TextBox".
  std::wstring typeName;
  /// The control's window; nothing for a control that has none.
  std::optional<platform::native::WindowHandle> hWnd;
  /// The window that the control lies on.
  platform::native::WindowHandle parentWindow = platform::native::WindowHandle::none;
  /// Makes the control smaller by one pixel on every side.
  std::function<void()> shrink;

  /// The control's window. Raises -2147220455 when it has none; the error's source is the
  /// executable's name and the class's.
  [[nodiscard]] platform::native::WindowHandle requireWindow() const;
  /// Number of that error.
  static constexpr int noWindowError = -2147220455;
};

/// The target that a control of one of the program's windows makes.
[[nodiscard]] FlatTarget flatTargetOf(controls::Control& control, const controls::Window& form);

/// Gives one control a flat border of two pixels that rises while the pointer is over the control,
/// while it has the focus, and while its list is dropped down. It watches the control's messages
/// and draws after the control has painted itself.
///
/// The control's window may go at any time; the object is inert from then on.
class cFlatControl : public platform::subclass::ISubclass {
 public:
  using WindowHandle = platform::native::WindowHandle;

  cFlatControl() = default;
  ~cFlatControl() override;

  /// Lets go of the former control and takes on another. A control without a window leaves the
  /// object inert.
  void Attach(const FlatTarget& control);
  /// Whether the list of an attached combo box is dropped down.
  [[nodiscard]] bool DroppedDown() const;

  [[nodiscard]] int MsgResponse() const override;
  /// Accepted and ignored: the message alone decides.
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
