// Where a window stands on the screens, and its menu as a menu of its own.
#include "platform/win32/monitors.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

controls::Placement WindowPeer::placement() const {
  WINDOWPLACEMENT native{};
  native.length = sizeof native;
  GetWindowPlacement(window(), &native);
  // The system counts the normal place from the corner of the work area, not of the screen.
  const MONITORINFO monitor =
      monitorFacts(MonitorFromRect(&native.rcNormalPosition, MONITOR_DEFAULTTONEAREST));
  controls::Placement placement;
  placement.normal = rectOf(native.rcNormalPosition);
  placement.normal.left += static_cast<int>(monitor.rcWork.left - monitor.rcMonitor.left);
  placement.normal.top += static_cast<int>(monitor.rcWork.top - monitor.rcMonitor.top);
  placement.dpi = dpi_;
  placement.maximised = IsZoomed(window()) != 0 ||
                        (IsIconic(window()) != 0 && (native.flags & WPF_RESTORETOMAXIMIZED) != 0);
  return placement;
}

void WindowPeer::place(const controls::Placement& placement) {
  showMaximised_ = placement.maximised;
  if (building_.started()) {
    moveTo(placement.normal);
  } else {
    building_.wish(placement.normal);
  }
}

void WindowPeer::moveTo(const Rect& normal) const {
  // On its screen first: should the density there be another one, the system's wish for another
  // size must not follow upon ours.
  SetWindowPos(window(), nullptr, normal.left, normal.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  SetWindowPos(window(), nullptr, normal.left, normal.top, normal.width, normal.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void WindowPeer::popUp(const controls::MenuItem& menu, int x, int y) {
  poppedUp_ = &menu;
  const Menu entries = nativeMenu(menu.children());
  TrackPopupMenuEx(entries.get(), TPM_RIGHTBUTTON, x, y, window(), nullptr);
}

}  // namespace platform::win32
