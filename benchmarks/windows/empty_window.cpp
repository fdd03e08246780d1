// The minimum of a program with a window: shows an empty one, paints it, and ends.
//
//   empty_window          ends as soon as it has painted
//   empty_window stay     stays until its window is closed
#include <windows.h>

#include <cstdlib>

namespace {

constexpr UINT paintedMessage = WM_APP;

bool stays = false;

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_PAINT: {
      PAINTSTRUCT paint{};
      BeginPaint(window, &paint);
      EndPaint(window, &paint);
      PostMessageW(window, paintedMessage, 0, 0);
      return 0;
    }
    case paintedMessage:
      if (!stays) {
        DestroyWindow(window);
      }
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, first, second);
  }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*commandLine*/,
                    int /*showCommand*/) {
  stays = __argc > 1;
  WNDCLASSW description{};
  description.lpfnWndProc = procedure;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  description.lpszClassName = L"EmptyWindow";
  RegisterClassW(&description);
  HWND const window = CreateWindowExW(0, description.lpszClassName, L"Empty", WS_OVERLAPPEDWINDOW,
                                      200, 200, 480, 300, nullptr, nullptr, instance, nullptr);
  ShowWindow(window, SW_SHOWNORMAL);
  UpdateWindow(window);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
