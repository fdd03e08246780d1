#include "platform/win32/peers/name_editor.h"
#include "platform/win32/peers/own_messages.h"

// Needs <windows.h> first.
#include <commctrl.h>

#include <algorithm>
#include <bit>

#include "platform/geometry.h"
#include "platform/run_time_error.h"
#include "platform/subclass.h"
#include "platform/win32/native_handle.h"
#include "platform/win32/parameters.h"

namespace platform::win32 {

namespace {

constexpr UINT_PTR editorWatchId = 1;

}  // namespace

NameEditor::NameEditor(HWND list, HFONT font, const std::wstring& text, std::size_t stem)
    : list_(list), text_(text), stem_(stem) {
  edit_.reset(CreateWindowExW(0, WC_EDITW, text.c_str(),
                              WS_CHILD | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 0, 0, 0, 0, list,
                              nullptr, GetModuleHandleW(nullptr), nullptr));
  if (!edit_ || !subclass::addHook(handleFrom(edit_.get()), watch, editorWatchId,
                                   std::bit_cast<std::uintptr_t>(this))) {
    throw RunTimeError(error::outOfMemory);
  }
  SendMessageW(edit_.get(), WM_SETFONT, firstParameterFrom(font), FALSE);
}

NameEditor::~NameEditor() {
  done_ = true;
  subclass::removeHook(handleFrom(edit_.get()), watch, editorWatchId);
  if (GetFocus() == edit_.get()) {
    SetFocus(list_);
  }
}

void NameEditor::place(const RECT& label, int dpi, bool report) {
  RECT area{};
  GetClientRect(list_, &area);
  const WindowDc dc(edit_.get());
  SIZE extent{};
  if (dc) {
    const Selection selected(dc.get(),
                             std::bit_cast<HFONT>(SendMessageW(edit_.get(), WM_GETFONT, 0, 0)));
    GetTextExtentPoint32W(dc.get(), text_.c_str(), static_cast<int>(text_.size()), &extent);
  }
  // Room for the name and a few letters more.
  const LONG wanted = std::max<LONG>(extent.cx + scaled(48, dpi), scaled(112, dpi));
  const LONG width = std::min(wanted, area.right - area.left);
  const LONG height = extent.cy + scaled(report ? 2 : 6, dpi);
  const LONG middle = (label.left + label.right) / 2;
  const LONG left = std::clamp(report ? label.left : middle - width / 2, area.left,
                               std::max(area.left, area.right - width));
  const LONG top = report ? label.top + (label.bottom - label.top - height) / 2 : label.top;
  SetWindowPos(edit_.get(), HWND_TOP, left, top, width, height, SWP_NOACTIVATE);
}

void NameEditor::show() {
  ShowWindow(edit_.get(), SW_SHOW);
  SetFocus(edit_.get());
  SendMessageW(edit_.get(), EM_SETSEL, 0, static_cast<LPARAM>(stem_));
}

void NameEditor::confirm() {
  if (!std::exchange(done_, true)) {
    PostMessageW(list_, own_message::nameDone, 0, 0);
  }
}

std::wstring NameEditor::result() const { return cancelled_ ? text_ : windowText(edit_.get()); }

bool NameEditor::handle(UINT message, WPARAM first) {
  switch (message) {
    case WM_KEYDOWN:
      if (first == VK_ESCAPE) {
        cancelled_ = true;
      }
      if (first == VK_ESCAPE || first == VK_RETURN) {
        confirm();
        return true;
      }
      return false;
    case WM_CHAR:
      return first == VK_RETURN || first == VK_ESCAPE;
    case WM_KILLFOCUS: {
      HWND const next = std::bit_cast<HWND>(first);
      if (next != nullptr && GetAncestor(next, GA_ROOT) == GetAncestor(list_, GA_ROOT)) {
        confirm();
      }
      return false;
    }
    case WM_GETOBJECT:
      name_.give(edit_.get(), L"Name");
      return false;
    default:
      return false;
  }
}

std::intptr_t NameEditor::watch(native::WindowHandle window, unsigned message, std::uintptr_t first,
                                std::intptr_t second, std::uintptr_t self) {
  auto& editor = *std::bit_cast<NameEditor*>(self);
  if (message == WM_NCDESTROY) {
    subclass::removeHook(window, watch, editorWatchId);
  } else if (!editor.done_ && editor.handle(message, first)) {
    return 0;
  }
  return subclass::passOn(window, message, first, second);
}

}  // namespace platform::win32
