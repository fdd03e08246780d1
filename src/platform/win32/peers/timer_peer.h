// Native timers.
#pragma once

#include <windows.h>

#include "platform/controls/simple_controls.h"

namespace platform::win32 {

/// Runs the native timer of a `controls::Timer` on a window.
class TimerPeer final : public controls::Peer {
 public:
  TimerPeer(HWND window, controls::Timer& timer);
  void changed(controls::Change change) override;
  void orphaned() override { orphaned_ = true; }
  /// Stops the native timer and detaches from the timer object.
  void detach();
  [[nodiscard]] UINT_PTR id() const { return id_; }
  void tick() { timer_.fireTimer(); }

 private:
  void stop();
  void restart();
  HWND window_;
  controls::Timer& timer_;
  UINT_PTR id_;
  bool running_ = false;
  bool orphaned_ = false;
};

}  // namespace platform::win32
