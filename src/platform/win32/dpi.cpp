#include "platform/win32/dpi.h"

#include "platform/geometry.h"
#include "platform/win32/handles.h"
#include "platform/win32/system_library.h"

namespace platform::win32 {

namespace {

int systemDpi() {
  const WindowDc screen(nullptr);
  return screen ? GetDeviceCaps(screen.get(), LOGPIXELSY) : designDpi;
}

}  // namespace

int dpiOf(HWND window) {
  using Call = UINT WINAPI(HWND);
  static Call* const call = systemFunction<Call>(L"user32.dll", "GetDpiForWindow");
  if (call != nullptr) {
    if (const UINT dpi = call(window); dpi != 0) {
      return static_cast<int>(dpi);
    }
  }
  return systemDpi();
}

int dpiOfScreen(HMONITOR screen) {
  // A window that is not on the screen yet cannot tell: until it is moved it has the density of the
  // primary screen.
  using Call = HRESULT WINAPI(HMONITOR, int, UINT*, UINT*);
  static Call* const call = systemFunction<Call>(L"shcore.dll", "GetDpiForMonitor");
  constexpr int effective = 0;
  UINT across = 0;
  UINT down = 0;
  return call != nullptr && SUCCEEDED(call(screen, effective, &across, &down)) && down != 0
             ? static_cast<int>(down)
             : systemDpi();
}

NONCLIENTMETRICSW nonClientMetrics(int dpi) {
  using Call = BOOL WINAPI(UINT, UINT, void*, UINT, UINT);
  static Call* const call = systemFunction<Call>(L"user32.dll", "SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (call != nullptr &&
      call(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi)) != 0) {
    return metrics;
  }
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, systemDpi());
  return metrics;
}

int systemMetric(int index, int dpi) {
  using Call = int WINAPI(int, UINT);
  static Call* const call = systemFunction<Call>(L"user32.dll", "GetSystemMetricsForDpi");
  return call != nullptr ? call(index, static_cast<UINT>(dpi))
                         : MulDiv(GetSystemMetrics(index), dpi, systemDpi());
}

RECT windowAround(RECT client, DWORD style, DWORD extendedStyle, bool menu, int dpi) {
  using Call = BOOL WINAPI(RECT*, DWORD, BOOL, DWORD, UINT);
  static Call* const call = systemFunction<Call>(L"user32.dll", "AdjustWindowRectExForDpi");
  if (call == nullptr ||
      call(&client, style, menu ? TRUE : FALSE, extendedStyle, static_cast<UINT>(dpi)) == 0) {
    AdjustWindowRectEx(&client, style, menu ? TRUE : FALSE, extendedStyle);
  }
  return client;
}

void leaveDialogScalingToProgram(HWND dialog) {
  using Call = BOOL WINAPI(HWND, int, int);
  constexpr int disableAll = 1;
  static Call* const call = systemFunction<Call>(L"user32.dll", "SetDialogDpiChangeBehavior");
  if (call != nullptr) {
    call(dialog, disableAll, disableAll);
  }
}

}  // namespace platform::win32
