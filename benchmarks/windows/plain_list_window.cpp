#include "windows/plain_list_window.h"

// Needs <windows.h> first.
#include <commctrl.h>

#include "harness/looks.h"
#include "harness/paths.h"
#include "harness/windows_of_process.h"
#include "windows/driven_gateway.h"
#include "windows/measure.h"
#include "windows/plain_list.h"

namespace bench {

PlainList::PlainList(const std::wstring& catalogue)
    : process_(executable(), harness::buildFolder(), job_, L"\"" + catalogue + L"\"") {
  waitClosely("the window of the plain list", [this] {
    window_ = harness::visibleWindow(process_.id(), plainListClass);
    return window_ != nullptr;
  });
}

std::wstring PlainList::executable() { return harness::buildFolder() + L"\\plain_list.exe"; }

HWND PlainList::box() const { return harness::child(window_, plainBox); }
HWND PlainList::rows() const { return harness::child(window_, plainRows); }

void PlainList::resemble(HWND otherWindow, HWND otherList) const {
  const RECT whole = harness::screenRect(otherWindow);
  const RECT list = harness::screenRect(otherList);
  constexpr int above = 30;
  const int width = static_cast<int>(list.right - list.left);
  const int height = static_cast<int>(list.bottom - list.top);
  RECT outer{0, 0, width, height + above};
  AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongW(window_, GWL_EXSTYLE)));
  SetWindowPos(otherWindow, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  SetWindowPos(window_, nullptr, 0, static_cast<int>(whole.bottom - whole.top),
               static_cast<int>(outer.right - outer.left),
               static_cast<int>(outer.bottom - outer.top), SWP_NOZORDER | SWP_NOACTIVATE);
  for (const int id : {plainRows, plainOther}) {
    SetWindowPos(harness::child(window_, id), nullptr, 0, above, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  constexpr WPARAM columns = 4;
  for (WPARAM column = 0; column < columns; ++column) {
    SendMessageW(rows(), LVM_SETCOLUMNWIDTH, column,
                 SendMessageW(otherList, LVM_GETCOLUMNWIDTH, column, 0));
  }
  harness::paint(otherWindow);
  harness::paint(window_);
}

double PlainList::reload() const {
  return timed([this] {
    SendMessageW(window_, plainReload, 0, 0);
    harness::paint(window_);
  });
}

}  // namespace bench
