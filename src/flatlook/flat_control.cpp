// Attaching to a control, and reacting to its messages.
#include "flatlook/flat_control.h"

#include <array>

#include "flatlook/messages.h"
#include "platform/application.h"
#include "platform/run_time_error.h"

namespace native = platform::native;
namespace subclass = platform::subclass;
using flatlook::FrameStyle;
namespace messages = flatlook::messages;

namespace {

constexpr std::uintptr_t hotTimer = 1;
constexpr unsigned hotTimerMs = 10;

/// The style bit of combo boxes with a drop-down list.
constexpr std::uint32_t dropDownStyle = 2;

/// Notification of a combo box whose list has closed, in the high word of the command.
constexpr std::uintptr_t listClosed = 8;

constexpr std::array controlMessages{messages::paint,     messages::mouseActivate,
                                     messages::setFocus,  messages::killFocus,
                                     messages::mouseMove, messages::timer};
constexpr std::array editMessages{messages::mouseActivate, messages::setFocus, messages::killFocus,
                                  messages::mouseMove};

bool dropsDown(native::WindowHandle window) { return (native::style(window) & dropDownStyle) != 0; }

bool contains(const native::Edges& rect, native::Point place) {
  return place.x >= rect.left && place.x < rect.right && place.y >= rect.top &&
         place.y < rect.bottom;
}

}  // namespace

native::WindowHandle FlatTarget::requireWindow() const {
  if (!hWnd) {
    throw platform::RunTimeError(noWindowError,
                                 L"Incorrect control type passed to 'Attach' parameter - must be a "
                                 L"control with a hWnd property.",
                                 platform::application::executableName() + L".cFlatControl");
  }
  return *hWnd;
}

cFlatControl::~cFlatControl() { DetachMessages(); }

void cFlatControl::Attach(const FlatTarget& control) {
  DetachMessages();
  WindowHandle window = WindowHandle::none;
  try {
    window = control.requireWindow();
  } catch (const platform::RunTimeError&) {
    // Callers attach all controls of a window without checking which of them have windows.
    return;
  }
  classify(control, window);
  AttachMessages();
}

void cFlatControl::classify(const FlatTarget& control, WindowHandle window) {
  hWndControl_ = window;
  const std::wstring& type = control.typeName;
  if (type == L"ImageCombo") {
    // The actual combo box, which paints and has the focus, is inside the control's window.
    hWndNotify_ = window;
    hWndControl_ = native::childOfClass(window, L"ComboBox");
    IsCombo_ = true;
  } else if (type == L"ComboBox" || type == L"DataCombo") {
    hWndNotify_ = native::parent(window);
    IsCombo_ = true;
  } else if (type == L"OwnerDrawComboList") {
    hWndNotify_ = window;
    IsCombo_ = true;
  } else if (type == L"CommandButton") {
    IsButton_ = true;
  } else if (type == L"MaskEdBox" || type == L"TextBox" || type == L"OptionButton" ||
             !dropsDown(window)) {
    try {
      // The border is drawn on the parent, in the ring that this frees.
      control.shrink();
    } catch (const platform::RunTimeError&) {
      // A control that cannot be moved still gets its border.
    }
  } else {
    hWndNotify_ = control.parentWindow;
    IsCombo_ = true;
  }
}

bool cFlatControl::DroppedDown() const {
  return IsCombo_ && hWndControl_ != WindowHandle::none && native::listDropped(hWndControl_);
}

void cFlatControl::AttachMessages() {
  if (hWndControl_ == WindowHandle::none) {
    return;
  }
  if (dropsDown(hWndControl_)) {
    hWndEdit_ = native::firstChild(hWndControl_);
  }
  for (const unsigned message : controlMessages) {
    subclass::attachMessage(*this, hWndControl_, message);
  }
  if (hWndEdit_ != WindowHandle::none) {
    for (const unsigned message : editMessages) {
      subclass::attachMessage(*this, hWndEdit_, message);
    }
  }
  if (IsCombo_) {
    subclass::attachMessage(*this, hWndNotify_, messages::command);
  }
  Subclassed_ = true;
}

void cFlatControl::DetachMessages() {
  if (Subclassed_) {
    if (MouseOver_) {
      // Ends the highlighting now: after this no message would end it.
      OnTimer(false);
    }
    for (const unsigned message : controlMessages) {
      subclass::detachMessage(*this, hWndControl_, message);
    }
    for (const unsigned message : editMessages) {
      subclass::detachMessage(*this, hWndEdit_, message);
    }
    subclass::detachMessage(*this, hWndNotify_, messages::command);
    Subclassed_ = false;
  }
  hWndControl_ = WindowHandle::none;
  hWndEdit_ = WindowHandle::none;
  hWndNotify_ = WindowHandle::none;
  IsCombo_ = false;
  IsButton_ = false;
}

int cFlatControl::MsgResponse() const {
  // The frame must be drawn after the control has painted, because it lies on top.
  return subclass::currentMessage() == messages::paint ? subclass::response::after
                                                       : subclass::response::before;
}

void cFlatControl::setMsgResponse(int /*response*/) {}

std::int32_t cFlatControl::WindowProc(WindowHandle /*window*/, unsigned message,
                                      std::uintptr_t first, std::intptr_t second) {
  switch (message) {
    case messages::timer:
      OnTimer(true);
      if (!MouseOver_) {
        Draw(false, false);
      }
      break;
    case messages::mouseMove:
      mouseMoved();
      break;
    case messages::command:
      notified(first, second);
      break;
    case messages::setFocus:
      Draw(true, false);
      OnTimer(false);
      break;
    case messages::killFocus:
      Draw(false, false);
      break;
    case messages::paint:
      painted();
      break;
    default:
      break;
  }
  return 0;
}

void cFlatControl::windowGone(WindowHandle window) {
  if (window == hWndControl_) {
    // The timer is destroyed with the window.
    MouseOver_ = false;
    DetachMessages();
  } else if (window == hWndEdit_) {
    hWndEdit_ = WindowHandle::none;
  } else if (window == hWndNotify_) {
    hWndNotify_ = WindowHandle::none;
  }
}

void cFlatControl::mouseMoved() {
  if (!MouseOver_ && !hasFocus() && !DroppedDown()) {
    Draw(true, false);
    MouseOver_ = true;
    native::setTimer(hWndControl_, hotTimer, hotTimerMs);
  }
}

void cFlatControl::notified(std::uintptr_t codeAndId, std::intptr_t source) {
  if (static_cast<WindowHandle>(source) != hWndControl_) {
    return;
  }
  constexpr unsigned wordBits = 16;
  constexpr std::uintptr_t wordMask = 0xFFFF;
  if (((codeAndId >> wordBits) & wordMask) == listClosed) {
    Draw(hasFocus(), false);
  }
  OnTimer(false);
}

void cFlatControl::painted() {
  const bool down = DroppedDown();
  const bool hot = hasFocus() || down;
  Draw(hot, down);
  if (hot) {
    OnTimer(false);
  }
}

bool cFlatControl::hasFocus() const {
  return native::hasFocus(hWndEdit_) || native::hasFocus(hWndControl_);
}

void cFlatControl::OnTimer(bool checkMouse) {
  if (checkMouse && contains(native::windowRect(hWndControl_), native::cursor())) {
    return;
  }
  native::killTimer(hWndControl_, hotTimer);
  MouseOver_ = false;
}

void cFlatControl::Draw(bool hot, bool down) const {
  using flatlook::buttonFace;
  using flatlook::buttonShadow;
  using flatlook::highlight3D;
  if (down) {
    DrawControl(FrameStyle::down, buttonShadow, highlight3D);
  } else if (hot) {
    DrawControl(FrameStyle::hot, buttonShadow, highlight3D);
  } else {
    DrawControl(FrameStyle::idle, buttonFace, buttonFace);
  }
}

void cFlatControl::DrawControl(FrameStyle style, std::uint32_t colour1,
                               std::uint32_t colour2) const {
  if (hWndControl_ == WindowHandle::none) {
    return;
  }
  if (IsCombo_) {
    flatlook::DrawComboFrame(hWndControl_, style, colour1, colour2);
  } else if (IsButton_) {
    flatlook::DrawButtonFrame(hWndControl_, style, colour1, colour2);
  } else {
    flatlook::DrawOuterFrame(hWndControl_, style, colour1, colour2);
  }
}
