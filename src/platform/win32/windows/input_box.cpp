#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <new>

#include "platform/controls/input_box_ids.h"
#include "platform/dialogs.h"
#include "platform/geometry.h"
#include "platform/run_time_error.h"
#include "platform/win32/dpi.h"
#include "platform/win32/fonts.h"
#include "platform/win32/handles.h"
#include "platform/win32/modality.h"
#include "platform/win32/parameters.h"

namespace platform::dialogs {
namespace {

using win32::parameterFrom;

// Sizes at 96 dpi.
constexpr int clientWidth = 360;
constexpr int margin = 12;
constexpr int promptGap = 10;
constexpr int editHeight = 23;
constexpr int buttonWidth = 80;
constexpr int buttonHeight = 25;
constexpr int buttonGap = 8;

constexpr DWORD dialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
constexpr DWORD dialogExtendedStyle = WS_EX_DLGMODALFRAME;

/// Empty dialog: the controls are made, and everything is placed, once its density is known.
struct alignas(DWORD) EmptyDialog {
  DLGTEMPLATE header{};
  WORD menu = 0;
  WORD windowClass = 0;
  WORD title = 0;
};
static_assert(offsetof(EmptyDialog, menu) == sizeof(DLGTEMPLATE));

class InputBox {
 public:
  InputBox(const std::wstring& prompt, const std::wstring& title, const std::wstring& defaultAnswer)
      : prompt_(prompt), title_(title), defaultAnswer_(defaultAnswer) {}

  std::wstring ask() {
    EmptyDialog dialog;
    dialog.header.style = dialogStyle;
    dialog.header.dwExtendedStyle = dialogExtendedStyle;
    HWND owner = win32::dialogOwner();
    const win32::ModalScope modal(owner);
    const INT_PTR button = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &dialog.header, owner,
                                                   handle, parameterFrom(this));
    if (button == -1 || outOfMemory_) throw RunTimeError(error::outOfMemory);
    return button == IDOK ? answer_ : std::wstring();
  }

 private:
  static INT_PTR CALLBACK handle(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(dialog, DWLP_USER, second);
    auto* const box = win32::pointerFrom<InputBox>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (box == nullptr) return FALSE;
    try {
      return box->answer(dialog, message, first, second);
    } catch (const std::bad_alloc&) {
      // Nothing may be thrown through the system's own code; `ask` raises it again.
      box->giveUp(dialog);
    } catch (const RunTimeError&) {
      // No font: the one error that the calls below raise, and it means the same.
      box->giveUp(dialog);
    }
    return TRUE;
  }

  INT_PTR answer(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
      case WM_INITDIALOG:
        win32::leaveDialogScalingToProgram(dialog);
        create(dialog);
        return FALSE;  // The focus has been set.
      case WM_DPICHANGED: {
        const RECT* const place = win32::pointerFrom<const RECT>(second);
        arrange(dialog, LOWORD(first));
        SetWindowPos(dialog, nullptr, place->left, place->top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        return TRUE;
      }
      case WM_COMMAND:
        return command(dialog, LOWORD(first));
      default:
        return FALSE;
    }
  }

  INT_PTR command(HWND dialog, int id) {
    if (id == IDOK) {
      answer_ = win32::windowText(edit_);
    } else if (id != IDCANCEL) {
      return FALSE;
    }
    EndDialog(dialog, id);
    return TRUE;
  }

  void giveUp(HWND dialog) {
    outOfMemory_ = true;
    EndDialog(dialog, IDCANCEL);
  }

  void create(HWND dialog) {
    SetWindowTextW(dialog, title_.c_str());
    const auto child = [dialog](const wchar_t* windowClass, const std::wstring& text, DWORD style,
                                DWORD extendedStyle, int id) {
      return CreateWindowExW(extendedStyle, windowClass, text.c_str(),
                             WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, dialog,
                             win32::menuFromId(id), GetModuleHandleW(nullptr), nullptr);
    };
    // The prompt stands before the edit line, which makes it the line's name to screen readers.
    label_ = child(L"Static", prompt_, SS_LEFT | SS_NOPREFIX, 0, ids::inputPrompt);
    edit_ = child(L"Edit", defaultAnswer_, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE,
                  ids::inputEdit);
    ok_ = child(L"Button", L"OK", WS_TABSTOP | BS_DEFPUSHBUTTON, 0, IDOK);
    cancel_ = child(L"Button", L"Cancel", WS_TABSTOP | BS_PUSHBUTTON, 0, IDCANCEL);
    if (label_ == nullptr || edit_ == nullptr || ok_ == nullptr || cancel_ == nullptr) {
      throw RunTimeError(error::outOfMemory);
    }
    SendMessageW(edit_, EM_SETLIMITTEXT, 0, 0);  // 0: as much as the control can hold.
    arrange(dialog, win32::dpiOf(dialog));
    centre(dialog);
    SetFocus(edit_);
    SendMessageW(edit_, EM_SETSEL, 0, -1);
  }

  /// Sizes the dialog and places its controls for `dpi`.
  void arrange(HWND dialog, int dpi) {
    win32::FontHandle font = win32::makeFont({}, dpi);
    for (HWND control : {label_, edit_, ok_, cancel_}) {
      SendMessageW(control, WM_SETFONT, win32::firstParameterFrom(font.get()), TRUE);
    }
    font_ = std::move(font);

    const int edge = scaled(margin, dpi);
    const int width = scaled(clientWidth, dpi);
    const int inner = width - 2 * edge;
    int top = edge;
    const auto place = [](HWND control, int left, int y, int wide, int high) {
      SetWindowPos(control, nullptr, left, y, wide, high, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    const int promptHeight = promptHeightAt(inner);
    place(label_, edge, top, inner, promptHeight);
    top += promptHeight + scaled(promptGap, dpi);
    place(edit_, edge, top, inner, scaled(editHeight, dpi));
    top += scaled(editHeight, dpi) + edge;
    const int wide = scaled(buttonWidth, dpi);
    const int cancelLeft = width - edge - wide;
    place(ok_, cancelLeft - scaled(buttonGap, dpi) - wide, top, wide, scaled(buttonHeight, dpi));
    place(cancel_, cancelLeft, top, wide, scaled(buttonHeight, dpi));
    const int height = top + scaled(buttonHeight, dpi) + edge;

    const RECT whole =
        win32::windowAround({0, 0, width, height}, dialogStyle, dialogExtendedStyle, false, dpi);
    SetWindowPos(dialog, nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

  /// Height of the prompt when it is broken into lines of `width` pixels; at least one line.
  [[nodiscard]] int promptHeightAt(int width) const {
    const win32::WindowDc dc(label_);
    const win32::Selection selected(dc.get(), font_.get());
    RECT area{0, 0, width, 0};
    const std::wstring& text = prompt_.empty() ? L" " : prompt_;
    DrawTextW(dc.get(), text.c_str(), -1, &area,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
    return area.bottom;
  }

  /// Puts the dialog in the middle of its owner, or of the screen, but never off the screen.
  static void centre(HWND dialog) {
    HWND owner = GetWindow(dialog, GW_OWNER);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : dialog, MONITOR_DEFAULTTONEAREST),
                    &screen);
    RECT middle = screen.rcWork;
    if (owner != nullptr && IsIconic(owner) == 0) GetWindowRect(owner, &middle);
    RECT box{};
    GetWindowRect(dialog, &box);
    const LONG width = box.right - box.left;
    const LONG height = box.bottom - box.top;
    const auto within = [](LONG position, LONG least, LONG greatest) {
      return std::max(least, std::min(position, greatest));
    };
    SetWindowPos(dialog, nullptr,
                 within((middle.left + middle.right - width) / 2, screen.rcWork.left,
                        screen.rcWork.right - width),
                 within((middle.top + middle.bottom - height) / 2, screen.rcWork.top,
                        screen.rcWork.bottom - height),
                 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

  const std::wstring& prompt_;
  const std::wstring& title_;
  const std::wstring& defaultAnswer_;
  std::wstring answer_;
  bool outOfMemory_ = false;
  win32::FontHandle font_;
  HWND label_ = nullptr;
  HWND edit_ = nullptr;
  HWND ok_ = nullptr;
  HWND cancel_ = nullptr;
};

}  // namespace

std::wstring inputBox(const std::wstring& prompt, const std::wstring& title,
                      const std::wstring& defaultAnswer) {
  return InputBox(prompt, title, defaultAnswer).ask();
}

}  // namespace platform::dialogs
