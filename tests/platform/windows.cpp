#include "platform/windows.h"

#include <algorithm>
#include <optional>

#include "platform/desktop.h"
#include "platform/screens.h"
#include "platform/text.h"
#include "platform/unfailing.h"
#include "platform/window_record.h"

namespace memory {

using controls::Window;
using controls::WindowKind;

/// Sets an alarm of the clock while its timer is running; sets it again at every change.
class WindowRecord::TimerPeer : public controls::Peer {
 public:
  TimerPeer(Desktop& owner, controls::Timer& timer) : owner_(owner), timer_(&timer) {
    timer_->attach(this);
    set();
  }
  TimerPeer(const TimerPeer&) = delete;
  TimerPeer& operator=(const TimerPeer&) = delete;
  ~TimerPeer() override {
    owner_.clock().cancel(alarm_);
    if (timer_ != nullptr) {
      timer_->attach(nullptr);
    }
  }

  void changed(controls::Change change) override {
    if (change == controls::Change::timer || change == controls::Change::enabled) {
      owner_.clock().cancel(alarm_);
      set();
    }
  }
  void orphaned() override {
    owner_.clock().cancel(alarm_);
    timer_ = nullptr;
  }

 private:
  void set() {
    if (timer_->enabled() && timer_->interval() > 0) {
      // Nothing may come after the tick, because it may unload the window and this peer with it.
      alarm_ = owner_.clock().set(
          timer_->interval(),
          [&owner = owner_, timer = timer_] {
            owner.note(L"tick " + timer->name());
            timer->fireTimer();
          },
          true);
    }
  }

  Desktop& owner_;
  controls::Timer* timer_;
  VirtualClock::Alarm alarm_ = 0;
};

WindowRecord::WindowRecord(Desktop& owner, Window& window) : owner_(owner), window_(window) {
  window_.attach(this);
  placement_.dpi = owner_.dpi;
  for (controls::Timer* timer : window_.timers()) {
    timers_.push_back(std::make_unique<TimerPeer>(owner_, *timer));
  }
}

WindowRecord::~WindowRecord() { window_.attach(nullptr); }

void WindowRecord::show() {
  owner_.call(L"show " + window_.name());
  {
    const Unfailing own;
    ++owner_.shownCounts[window_.name()];
  }
  if (window_.kind() == WindowKind::hidden) {
    return;
  }
  if (!laidOut_) {
    laidOut_ = true;
    window_.fireLayout(window_.clientSize(owner_.dpi), owner_.dpi);
  }
  owner_.bringToFront(window_);
}

void WindowRecord::activate() {
  owner_.note(L"activate " + window_.name());
  {
    const Unfailing own;
    ++owner_.activatedCounts[window_.name()];
  }
  owner_.bringToFront(window_);
}

void WindowRecord::popUp(const controls::MenuItem& menu, int x, int y) {
  std::wstring entries;
  for (const controls::MenuItem* const entry : menu.children()) {
    entries += L' ' + (entry->caption() == L"-" ? L"-" : entry->name());
  }
  owner_.note(L"menu" + entries + L" at " + std::to_wstring(x) + L" " + std::to_wstring(y));
}

void Desktop::openWindow(Window& window) {
  windows_.push_back(std::make_unique<WindowRecord>(*this, window));
}

void Desktop::closeWindow(Window& window) {
  const auto found = std::find_if(windows_.begin(), windows_.end(), [&window](const auto& record) {
    return &record->window() == &window;
  });
  if (found == windows_.end()) {
    return;
  }
  windows_.erase(found);
  if (active_ != &window) {
    return;
  }
  // The system activates the next window behind the one that is destroyed.
  active_ = nullptr;
  const auto behind = std::find_if(windows_.rbegin(), windows_.rend(), [](const auto& record) {
    return record->window().visible() && record->window().kind() != WindowKind::hidden;
  });
  if (behind != windows_.rend()) {
    bringToFront((*behind)->window());
  }
}

void Desktop::bringToFront(Window& window) {
  if (active_ != &window) {
    active_ = &window;
    window.fireActivate();
  }
}

void Desktop::runUntilUnloaded(Window& window) {
  constexpr std::int64_t bound = 600'000;
  const std::int64_t end = clock_.elapsed() + bound;
  while (window.loaded()) {
    const auto wait = clock_.untilNext();
    if (!wait || clock_.elapsed() + *wait > end) {
      mistake("Nothing closes the window " + platform::text::toCodePage(window.name()));
      closeWindow(window);
      return;
    }
    clock_.advance(*wait);
  }
}

std::vector<Window*> Desktop::windows() const {
  std::vector<Window*> open;
  open.reserve(windows_.size());
  for (const auto& record : windows_) {
    open.push_back(&record->window());
  }
  return open;
}

Window* Desktop::window(const std::wstring& name) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(), [&name](const auto& record) {
    return record->window().name() == name;
  });
  return found == windows_.end() ? nullptr : &(*found)->window();
}

int Desktop::shown(const std::wstring& name) const {
  const auto found = shownCounts.find(name);
  return found == shownCounts.end() ? 0 : found->second;
}

int Desktop::activated(const std::wstring& name) const {
  const auto found = activatedCounts.find(name);
  return found == activatedCounts.end() ? 0 : found->second;
}

}  // namespace memory

namespace platform::windows {

void create(controls::Window& window) {
  memory::desktop().call(L"create " + window.name(),
                         [&window] { memory::desktop().openWindow(window); });
}

void destroy(controls::Window& window) {
  {
    // This function cannot fail.
    const memory::Unfailing own;
    memory::desktop().note(L"destroy " + window.name());
  }
  memory::desktop().closeWindow(window);
}

void runModal(controls::Window& window) {
  memory::desktop().note(L"modal " + window.name());
  memory::desktop().runUntilUnloaded(window);
}

void run(controls::Window& mainWindow) {
  memory::desktop().note(L"run " + mainWindow.name());
  memory::desktop().runUntilUnloaded(mainWindow);
}

void paintPending() {
  if (memory::desktop().onPaint) {
    memory::desktop().onPaint();
  }
}

Size textSize(const std::wstring& text, const Font& font, int dpi) {
  // All characters have the same width: at 9 points and 96 dpi, 7 pixels wide and 15 high.
  constexpr int basePoints = 9;
  const int width = static_cast<int>(text.size()) * 7 * font.pointSize / basePoints;
  const int height = 15 * font.pointSize / basePoints;
  return {scaled(width, dpi), scaled(height, dpi)};
}

int widestText(std::size_t count, const std::function<std::wstring_view(std::size_t)>& textAt,
               const Font& font, int dpi) {
  int most = 0;
  for (std::size_t n = 0; n < count; ++n) {
    most = std::max(most, textSize(std::wstring(textAt(n)), font, dpi).width);
  }
  return most;
}

int textHeight(const std::wstring& text, const Font& font, int width, int dpi) {
  const Size line = textSize(L"X", font, dpi);
  int lines = 0;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(L'\r', begin), text.size());
    const auto units = static_cast<int>(end - begin);
    lines += std::max(1, (units * line.width + width - 1) / width);
    begin = end + 1;
  }
  return lines * line.height;
}

}  // namespace platform::windows

namespace platform::screens {

std::vector<Screen> all() { return memory::desktop().screens; }

}  // namespace platform::screens
