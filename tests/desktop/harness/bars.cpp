#include "harness/bars.h"

#include <commctrl.h>

#include <bit>

#include "harness/remote_memory.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace harness {
namespace {

constexpr std::size_t longestText = 512;

RECT rectFrom(HWND window, const RemoteMemory& memory) {
  RECT rect = memory.get<RECT>();
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

}  // namespace

std::vector<std::wstring> TabReader::captions() const {
  RemoteMemory memory(tab_, sizeof(TCITEMW) + longestText * sizeof(wchar_t));
  std::vector<std::wstring> result;
  const auto count = static_cast<int>(send(tab_, TCM_GETITEMCOUNT));
  for (int index = 0; index < count; ++index) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = static_cast<wchar_t*>(memory.address(sizeof(TCITEMW)));
    item.cchTextMax = static_cast<int>(longestText);
    memory.put(item);
    send(tab_, TCM_GETITEMW, static_cast<WPARAM>(index), memory.parameter());
    result.push_back(memory.getText(longestText, sizeof(TCITEMW)));
  }
  return result;
}

int TabReader::current() const { return static_cast<int>(send(tab_, TCM_GETCURSEL)); }

RECT TabReader::tabOnScreen(int index) const {
  RemoteMemory memory(tab_, sizeof(RECT));
  send(tab_, TCM_GETITEMRECT, static_cast<WPARAM>(index), memory.parameter());
  return rectFrom(tab_, memory);
}

std::vector<ToolbarReader::Button> ToolbarReader::buttons() const {
  RemoteMemory memory(bar_, sizeof(TBBUTTON) + longestText * sizeof(wchar_t));
  std::vector<Button> result;
  const auto count = static_cast<int>(send(bar_, TB_BUTTONCOUNT));
  for (int index = 0; index < count; ++index) {
    send(bar_, TB_GETBUTTON, static_cast<WPARAM>(index), memory.parameter());
    const auto native = memory.get<TBBUTTON>();
    Button button;
    button.separator = (native.fsStyle & BTNS_SEP) != 0;
    if (!button.separator) {
      button.command = native.idCommand;
      button.image = native.iBitmap;
      button.enabled = (native.fsState & TBSTATE_ENABLED) != 0;
      button.pressed = (native.fsState & TBSTATE_CHECKED) != 0;
      memory.put(wchar_t{0}, sizeof(TBBUTTON));
      send(bar_, TB_GETBUTTONTEXTW, static_cast<WPARAM>(native.idCommand),
           reinterpret_cast<LPARAM>(memory.address(sizeof(TBBUTTON))));
      button.caption = memory.getText(longestText, sizeof(TBBUTTON));
    }
    result.push_back(button);
  }
  return result;
}

ToolbarReader::Button ToolbarReader::button(int command) const {
  for (const Button& button : buttons()) {
    if (button.command == command) {
      return button;
    }
  }
  throw Failure("the toolbar has no button " + std::to_string(command));
}

std::wstring ToolbarReader::toolTip(int command) const {
  auto* const tips = std::bit_cast<HWND>(send(bar_, TB_GETTOOLTIPS));
  if (tips == nullptr) {
    throw Failure("the toolbar has no tips");
  }
  RemoteMemory memory(bar_, sizeof(TTTOOLINFOW) + longestText * sizeof(wchar_t));
  TTTOOLINFOW info{};
  info.cbSize = sizeof(info);
  info.hwnd = bar_;
  info.uId = static_cast<UINT_PTR>(command);
  info.lpszText = static_cast<wchar_t*>(memory.address(sizeof(TTTOOLINFOW)));
  memory.put(info);
  send(tips, TTM_GETTEXTW, longestText, memory.parameter());
  return memory.getText(longestText, sizeof(TTTOOLINFOW));
}

RECT ToolbarReader::buttonOnScreen(int command) const {
  RemoteMemory memory(bar_, sizeof(RECT));
  send(bar_, TB_GETRECT, static_cast<WPARAM>(command), memory.parameter());
  return rectFrom(bar_, memory);
}

MenuEntry menuEntry(HWND window, int id) {
  for (const MenuEntry& entry : menuEntries(window)) {
    if (entry.id == id) {
      return entry;
    }
  }
  throw Failure("the menus have no entry " + std::to_string(id));
}

}  // namespace harness
