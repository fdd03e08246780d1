// The simple native side that the in-memory desktop gives to windows.
#pragma once

#include <memory>
#include <vector>

#include "platform/controls/window.h"
#include "platform/desktop.h"

namespace memory {

/// Represents the native window: counts what is done to it and runs its timers.
struct WindowRecord : controls::WindowPeer {
 public:
  WindowRecord(Desktop& owner, controls::Window& window);
  WindowRecord(const WindowRecord&) = delete;
  WindowRecord& operator=(const WindowRecord&) = delete;
  ~WindowRecord() override;

  void changed(controls::Change /*change*/) override {}
  void show() override;
  void activate() override;
  [[nodiscard]] controls::Placement placement() const override { return placement_; }
  void place(const controls::Placement& placement) override { placement_ = placement; }
  void popUp(const controls::MenuItem& menu, int x, int y) override;
  [[nodiscard]] void* handle() const override { return &window_; }
  [[nodiscard]] controls::Window& window() const { return window_; }

 private:
  class TimerPeer;
  Desktop& owner_;
  controls::Window& window_;
  bool laidOut_ = false;
  controls::Placement placement_{.normal = {100, 80, 800, 560}};
  std::vector<std::unique_ptr<TimerPeer>> timers_;
};

}  // namespace memory
