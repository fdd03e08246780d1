// The columns of the lists that the program is compared with.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

namespace bench {

/// Gives a report list so many columns of equal width.
inline void addColumns(HWND list, int count) {
  for (int index = 0; index < count; ++index) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.cx = 150;
    wchar_t text[] = L"Column";
    column.pszText = text;
    column.iSubItem = index;
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&column));
  }
}

}  // namespace bench
