#include "platform/win32/peers/tool_tips.h"

// Needs <windows.h> first.
#include <commctrl.h>

#include <bit>

#include "platform/win32/parameters.h"

namespace platform::win32 {

void ToolTips::set(HWND control, const std::wstring& text) {
  if (text.empty()) {
    texts_.erase(control);
  } else {
    texts_.insert_or_assign(control, text);
  }
  native_.reset();
}

void ToolTips::see(MSG& message, HWND owner) {
  if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST ||
      !texts_.contains(message.hwnd)) {
    return;
  }
  if (!native_) {
    create(owner);
  }
  SendMessageW(native_.get(), TTM_RELAYEVENT, 0, parameterFrom(&message));
}

void ToolTips::create(HWND owner) {
  native_.reset(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, owner, nullptr,
                                GetModuleHandleW(nullptr), nullptr));
  for (auto& [control, text] : texts_) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = owner;
    tool.uId = std::bit_cast<UINT_PTR>(control);
    tool.lpszText = text.data();
    SendMessageW(native_.get(), TTM_ADDTOOLW, 0, parameterFrom(&tool));
  }
}

}  // namespace platform::win32
