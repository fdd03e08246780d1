#include "platform/win32/peers/toolbar_peer.h"

#include <algorithm>
#include <bit>
#include <vector>

#include "platform/geometry.h"
#include "platform/win32/parameters.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

using controls::Change;

namespace {

// At 96 dpi: space above and below the buttons, and before the first one.
constexpr int verticalMargin = 2;
constexpr int indent = 8;
// Width of a button, at 96 dpi: that of the longest caption, within these limits. The system's own
// space beside a caption does not scale with the dpi.
constexpr int leastWidth = 50;
constexpr int greatestWidth = 160;

BYTE stateOf(const controls::Toolbar::Button& button) {
  return static_cast<BYTE>((button.enabled ? TBSTATE_ENABLED : 0) |
                           (button.value == 1 ? TBSTATE_CHECKED : 0));
}

}  // namespace

ToolbarPeer::ToolbarPeer(WindowPeer& host, controls::Toolbar& toolbar)
    : NativeControl(host, toolbar), toolbar_(toolbar) {
  create(TOOLBARCLASSNAMEW, WS_TABSTOP | TBSTYLE_TOOLTIPS | TBSTYLE_FLAT | CCS_NODIVIDER |
                                CCS_NOPARENTALIGN | CCS_NORESIZE);
  send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
  send(TB_SETMAXTEXTROWS, 1);
  takeImages();
  build();
  watchMessages();
  toolbar_.attach(this);
}

void ToolbarPeer::takeImages() {
  images_.refresh(toolbar_.images(), host().dpi(),
                  [this](HIMAGELIST list) { send(TB_SETIMAGELIST, 0, parameterFrom(list)); });
}

void ToolbarPeer::build() {
  send(WM_SETREDRAW, FALSE);
  while (send(TB_DELETEBUTTON, 0) != 0) {
  }
  std::vector<TBBUTTON> natives;
  for (const Button& button : toolbar_.buttons()) {
    TBBUTTON native{};
    if (button.separator()) {
      native.fsStyle = BTNS_SEP;
    } else {
      native.iBitmap = images_.indexOf(button.image, I_IMAGENONE);
      native.idCommand = button.command;
      native.fsState = stateOf(button);
      native.fsStyle = static_cast<BYTE>((button.check ? BTNS_CHECK : BTNS_BUTTON) | BTNS_NOPREFIX);
      native.iString = button.caption.empty() ? -1 : parameterFrom(button.caption.c_str());
    }
    natives.push_back(native);
  }
  send(TB_SETBUTTONWIDTH, 0,
       MAKELPARAM(scaled(leastWidth, host().dpi()), scaled(greatestWidth, host().dpi())));
  send(TB_SETINDENT, static_cast<WPARAM>(scaled(indent, host().dpi())));
  send(TB_ADDBUTTONSW, natives.size(), parameterFrom(natives.data()));
  send(WM_SETREDRAW, TRUE);
  InvalidateRect(window(), nullptr, TRUE);
  measure();
}

void ToolbarPeer::measure() {
  const LRESULT size = send(TB_GETBUTTONSIZE);
  const int height = HIWORD(size) + 2 * scaled(verticalMargin, host().dpi());
  if (height != toolbar_.measuredHeight()) {
    toolbar_.acceptMeasuredHeight(height);
    host().requestLayout();
  }
}

void ToolbarPeer::showStates() {
  for (const Button& button : toolbar_.buttons()) {
    if (!button.separator()) {
      send(TB_SETSTATE, static_cast<WPARAM>(button.command), stateOf(button));
    }
  }
}

void ToolbarPeer::changed(Change change) {
  switch (change) {
    case Change::images:
      takeImages();
      build();
      break;
    case Change::structure:
      build();
      break;
    case Change::value:
      showStates();
      break;
    case Change::toolTip:
      // The toolbar asks for the tool tips when they are shown.
      break;
    default:
      mirror(change);
      break;
  }
}

void ToolbarPeer::refresh() {
  NativeControl::refresh();
  takeImages();
  build();
}

const ToolbarPeer::Button* ToolbarPeer::find(int command) const {
  const auto& buttons = toolbar_.buttons();
  const auto found = std::find_if(buttons.begin(), buttons.end(), [command](const Button& button) {
    return !button.separator() && button.command == command;
  });
  return found == buttons.end() ? nullptr : &*found;
}

void ToolbarPeer::press(int command) {
  const Button* const button = find(command);
  if (button == nullptr || !button->enabled) {
    return;
  }
  toolbar_.fireButtonClick(button->key);
  if (!detached()) {
    // The native button changed its state itself. The state that the handler left is shown instead.
    showStates();
  }
}

void ToolbarPeer::command(int id, WORD /*code*/) { press(id); }

std::optional<LRESULT> ToolbarPeer::notification(NMHDR& header) {
  if (header.code == static_cast<UINT>(TTN_GETDISPINFOW) &&
      header.hwndFrom == std::bit_cast<HWND>(send(TB_GETTOOLTIPS))) {
    auto& request = reinterpret_cast<NMTTDISPINFOW&>(header);
    const Button* const button = find(static_cast<int>(header.idFrom));
    // The text belongs to the toolbar object, which lives longer than the tool tip.
    request.lpszText = button == nullptr ? nullptr : const_cast<wchar_t*>(button->toolTip.c_str());
    return 0;
  }
  return std::nullopt;
}

std::optional<LRESULT> ToolbarPeer::message(UINT message, WPARAM first, LPARAM /*second*/) {
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_SETFOCUS:
      if (const auto index = nextHot(-1, 1)) {
        send(TB_SETHOTITEM, *index);
      }
      return std::nullopt;
    case WM_KILLFOCUS:
      send(TB_SETHOTITEM, static_cast<WPARAM>(-1));
      return std::nullopt;
    case WM_KEYDOWN:
      return key(first) ? std::optional<LRESULT>(0) : std::nullopt;
    default:
      return std::nullopt;
  }
}

bool ToolbarPeer::key(WPARAM key) {
  const int hot = static_cast<int>(send(TB_GETHOTITEM));
  const int count = static_cast<int>(toolbar_.buttons().size());
  std::optional<std::size_t> target;
  switch (key) {
    case VK_LEFT:
    case VK_UP:
      target = nextHot(hot < 0 ? count : hot, -1);
      break;
    case VK_RIGHT:
    case VK_DOWN:
      target = nextHot(hot, 1);
      break;
    case VK_HOME:
      target = nextHot(-1, 1);
      break;
    case VK_END:
      target = nextHot(count, -1);
      break;
    case VK_RETURN:
    case VK_SPACE:
      if (hot >= 0 && hot < count) {
        press(toolbar_.buttons()[static_cast<std::size_t>(hot)].command);
      }
      return true;
    default:
      return false;
  }
  if (target) {
    send(TB_SETHOTITEM, *target);
  }
  return true;
}

std::optional<std::size_t> ToolbarPeer::nextHot(int from, int step) const {
  const auto& buttons = toolbar_.buttons();
  const int count = static_cast<int>(buttons.size());
  for (int index = from + step; index >= 0 && index < count; index += step) {
    const Button& button = buttons[static_cast<std::size_t>(index)];
    if (!button.separator() && button.enabled) {
      return static_cast<std::size_t>(index);
    }
  }
  return std::nullopt;
}

}  // namespace platform::win32
