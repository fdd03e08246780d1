#include "platform/win32/peers/text_box_peer.h"

#include "platform/geometry.h"
#include "platform/win32/keyboard.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

using controls::Change;

TextBoxPeer::TextBoxPeer(WindowPeer& host, controls::TextBox& box)
    : NativeControl(host, box), box_(box) {
  create(WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL | border() | (box_.locked() ? ES_READONLY : 0U),
         edge());
  // The longest text that an edit box can hold; the list files have no limit of their own.
  send(EM_SETLIMITTEXT, 0x7FFFFFFE);
  dress();
  if (box_.onKey) {
    watchMessages();
  }
  box_.attach(this);
}

void TextBoxPeer::dress() const {
  if (!box_.cue().empty()) {
    // Also while the box has the focus: until something is typed.
    send(EM_SETCUEBANNER, TRUE, parameterFrom(box_.cue().c_str()));
  }
  if (box_.endMargin() > 0) {
    send(EM_SETMARGINS, EC_RIGHTMARGIN, MAKELPARAM(0, scaled(box_.endMargin(), host().dpi())));
  }
}

void TextBoxPeer::refresh() {
  NativeControl::refresh();
  dress();
}

std::optional<LRESULT> TextBoxPeer::message(UINT message, WPARAM first, LPARAM /*second*/) {
  if (message == WM_KEYDOWN && box_.fireKey(strokeOf(first))) {
    return 0;
  }
  // What these keys would type is no text: the system's box would beep, or take a control
  // character.
  constexpr WPARAM controlBackspace = 0x7F;
  if (message == WM_CHAR &&
      (first == VK_RETURN || first == VK_ESCAPE || first == controlBackspace)) {
    return 0;
  }
  return std::nullopt;
}

DWORD TextBoxPeer::border() const {
  const bool line =
      box_.appearance() == controls::flat && box_.borderStyle() == controls::fixedSingle;
  return line ? WS_BORDER : 0U;
}

DWORD TextBoxPeer::edge() const {
  const bool raised =
      box_.appearance() == controls::threeD && box_.borderStyle() == controls::fixedSingle;
  return raised ? WS_EX_CLIENTEDGE : 0U;
}

void TextBoxPeer::changed(Change change) {
  switch (change) {
    case Change::value:
      showing_ = true;
      SetWindowTextW(window(), box_.text().c_str());
      showing_ = false;
      break;
    case Change::appearance:
      changeStyle(WS_BORDER, border());
      changeExtendedStyle(WS_EX_CLIENTEDGE, edge());
      send(EM_SETREADONLY, box_.locked() ? TRUE : FALSE);
      dress();
      break;
    case Change::selection:
      mirror(Change::focus);
      send(EM_SETSEL, 0, -1);
      break;
    case Change::caption:
      // An edit box shows its text and has no caption.
      break;
    default:
      mirror(change);
      break;
  }
}

void TextBoxPeer::command(int /*id*/, WORD code) {
  if (code == EN_CHANGE && !showing_ && !detached()) {
    box_.acceptTyped(windowText(window()));
  }
}

}  // namespace platform::win32
