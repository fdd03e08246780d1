#include "platform/win32/peers/timer_peer.h"

#include <utility>

#include "platform/run_time_error.h"
#include "platform/win32/object_counts.h"

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

void TimerPeer::stop() {
  if (std::exchange(running_, false)) {
    KillTimer(window_, id());
    countObject<TimerPeer>(-1);
  }
}

void TimerPeer::restart() {
  stop();
  if (!timer_.enabled() || timer_.interval() <= 0) {
    return;
  }
  if (SetTimer(window_, id(), static_cast<UINT>(timer_.interval()), nullptr) == 0) {
    throw RunTimeError(error::outOfMemory);
  }
  running_ = true;
  countObject<TimerPeer>(1);
}

void TimerPeer::detach() {
  stop();
  if (!orphaned_) {
    timer_.attach(nullptr);
  }
}

}  // namespace platform::win32
