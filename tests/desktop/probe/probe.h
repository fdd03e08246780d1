// Queries that the probe in the driven program answers. Handles of menus and icons are valid only
// in their own process, so the query must be made there.
#pragma once

#include <windows.h>

namespace probe {

/// Name of the registered message. wParam is a `Question`, lParam points to the answer in the
/// memory of the driven program.
inline constexpr const wchar_t* messageName = L"QuillmarkDesktopTestProbe";

/// Name of the exported hook procedure (WH_CALLWNDPROC).
inline constexpr const char* procedureName = "probeProcedure";

enum class Question : WPARAM {
  menu = 1,     ///< To a window with a menu bar; the answer is a `MenuAnswer`.
  icon = 2,     ///< To a static control with an icon; the answer is an `IconAnswer`.
  popup = 3,    ///< To the window of an open menu; the answer is a `MenuAnswer`.
  font = 4,     ///< To any control; the answer is a `FontAnswer`.
  images = 5,   ///< To a list or a toolbar; the answer is an `ImagesAnswer`.
  colours = 6,  ///< To any window; carries a `ColoursOrder` out.
};

struct MenuEntry {
  wchar_t caption[128];  // With its "&" and what follows a tab.
  int id;                // 0 for a separator, -1 for a submenu.
  int depth;             // 0 for an entry of the menu bar.
  int separator;
  int checked;
  int enabled;
};

struct MenuAnswer {
  int answered;
  int count;
  MenuEntry entries[64];
};

struct IconAnswer {
  int answered;
  int systemIcon;  // Number of the system's icon that looks the same (IDI_...), 0 for another one.
};

struct FontAnswer {
  int answered;
  int height;  // Of the characters, in pixels.
  int weight;
};

struct ImagesAnswer {
  UINT message;  // Asks the control for its image list ...
  WPARAM which;  // ... of this kind.
  int answered;
  int width;
  int height;
  int count;
};

struct ColoursOrder {
  int answered;
  int count;
  int indices[32];  // COLOR_...
  COLORREF colours[32];
};

}  // namespace probe
