#include "platform/win32/peers/timer_peer.h"

#include "platform/run_time_error.h"

namespace platform::win32 {

TimerPeer::TimerPeer(HWND window, controls::Timer& timer)
    : window_(window), timer_(timer), id_(static_cast<UINT_PTR>(timer.id())) {
  restart();
  timer_.attach(this);
}

void TimerPeer::changed(controls::Change change) {
  if (change == controls::Change::timer || change == controls::Change::enabled) {
    restart();
  }
}

void TimerPeer::restart() {
  KillTimer(window_, id());
  if (timer_.enabled() && timer_.interval() > 0 &&
      SetTimer(window_, id(), static_cast<UINT>(timer_.interval()), nullptr) == 0) {
    throw RunTimeError(error::outOfMemory);
  }
}

void TimerPeer::detach() {
  KillTimer(window_, id());
  if (!orphaned_) {
    timer_.attach(nullptr);
  }
}

}  // namespace platform::win32
