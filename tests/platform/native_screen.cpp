#include "platform/native_screen.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace memory {

NativeScreen& screen() {
  static NativeScreen instance = [] {
    NativeScreen made;
    made.reset();
    return made;
  }();
  return instance;
}

void NativeScreen::reset() {
  while (!windows_.empty()) {
    destroy(windows_.begin()->first);
  }
  focus = WindowHandle::none;
  cursor = {};
  thumbWidth = 17;
  systemColours = {{5, 0xFFFFFF}, {15, 0xF0F0F0}, {16, 0xA0A0A0}, {20, 0xFFFFFE}};
  windowsOf.clear();
  onLine = nullptr;
}

WindowHandle NativeScreen::add(const std::wstring& className, const Edges& rect,
                               WindowHandle parent, std::uint32_t style) {
  const WindowHandle window{++last_};
  NativeWindow made;
  made.className = className;
  made.parent = parent;
  made.style = style;
  made.rect = rect;
  windows_.emplace(window, std::move(made));
  return window;
}

void NativeScreen::destroy(WindowHandle window) {
  for (WindowHandle child = childOf(window, std::nullopt); child != WindowHandle::none;
       child = childOf(window, std::nullopt)) {
    destroy(child);
  }
  platform::subclass::windowIsGoing(window);
  if (focus == window) {
    focus = WindowHandle::none;
  }
  windows_.erase(window);
  platform::subclass::windowIsGone(window);
}

NativeWindow* NativeScreen::find(WindowHandle window) {
  const auto found = windows_.find(window);
  return found == windows_.end() ? nullptr : &found->second;
}

WindowHandle NativeScreen::childOf(WindowHandle window,
                                   const std::optional<std::wstring>& className) {
  const auto found = std::find_if(windows_.begin(), windows_.end(), [&](const auto& entry) {
    return entry.second.parent == window && (!className || entry.second.className == *className);
  });
  return found == windows_.end() ? WindowHandle::none : found->first;
}

std::intptr_t NativeScreen::send(WindowHandle window, unsigned message, std::uintptr_t first,
                                 std::intptr_t second) {
  const auto original = [&](unsigned code, std::uintptr_t low, std::intptr_t high) {
    NativeWindow* const target = find(window);
    return target == nullptr || !target->procedure ? std::intptr_t{0}
                                                   : target->procedure(code, low, high);
  };
  const NativeWindow* const target = find(window);
  if (target == nullptr || !target->watched) {
    return original(message, first, second);
  }
  return platform::subclass::deliver(window, message, first, second, original);
}

void NativeScreen::setFocus(WindowHandle window) {
  constexpr unsigned focusSet = 7;
  constexpr unsigned focusLost = 8;
  const WindowHandle former = std::exchange(focus, window);
  if (former != WindowHandle::none) {
    send(former, focusLost, static_cast<std::uintptr_t>(window));
  }
  if (window != WindowHandle::none) {
    send(window, focusSet, static_cast<std::uintptr_t>(former));
  }
}

std::size_t NativeScreen::timers() const {
  std::size_t count = 0;
  for (const auto& [handle, window] : windows_) {
    count += window.timers.size();
  }
  return count;
}

std::size_t NativeScreen::watched() const {
  return static_cast<std::size_t>(std::count_if(
      windows_.begin(), windows_.end(), [](const auto& entry) { return entry.second.watched; }));
}

}  // namespace memory

namespace platform::subclass {

bool watch(WindowHandle window) {
  auto* const target = memory::screen().find(window);
  if (target == nullptr) {
    return false;
  }
  target->watched = true;
  return true;
}

void unwatch(WindowHandle window) {
  if (auto* const target = memory::screen().find(window)) {
    target->watched = false;
  }
}

}  // namespace platform::subclass

namespace platform::native {

using memory::screen;

namespace {

WindowHandle known(const void* object) {
  const auto found = screen().windowsOf.find(object);
  return found == screen().windowsOf.end() ? WindowHandle::none : found->second;
}

/// Calls `look` with the window, or returns the result for a window that does not exist.
template <class Result, class Look>
Result ask(WindowHandle window, Result absent, Look look) {
  const auto* const target = screen().find(window);
  return target == nullptr ? absent : look(*target);
}

}  // namespace

WindowHandle windowOf(const controls::Control& control) { return known(&control); }
WindowHandle windowOf(const controls::Window& window) { return known(&window); }

std::uint32_t style(WindowHandle window) {
  return ask(window, 0U, [](const auto& it) { return it.style; });
}

WindowHandle parent(WindowHandle window) {
  return ask(window, WindowHandle::none, [](const auto& it) { return it.parent; });
}

WindowHandle firstChild(WindowHandle window) { return screen().childOf(window, std::nullopt); }

WindowHandle childOfClass(WindowHandle window, const std::wstring& className) {
  return screen().childOf(window, className);
}

Edges windowRect(WindowHandle window) {
  return ask(window, Edges{}, [](const auto& it) { return it.rect; });
}

Edges clientRect(WindowHandle window) {
  const Edges rect = windowRect(window);
  return {0, 0, rect.right - rect.left, rect.bottom - rect.top};
}

Point toClient(WindowHandle window, Point screen) {
  const Edges rect = windowRect(window);
  return {screen.x - rect.left, screen.y - rect.top};
}

bool hasFocus(WindowHandle window) {
  return window != WindowHandle::none && screen().focus == window;
}

bool enabled(WindowHandle window) {
  return ask(window, false, [](const auto& it) { return it.enabled; });
}

bool listDropped(WindowHandle comboBox) {
  return ask(comboBox, false, [](const auto& it) { return it.listDropped; });
}

int thumbWidth(WindowHandle /*window*/) { return screen().thumbWidth; }

Point cursor() { return screen().cursor; }

void setTimer(WindowHandle window, std::uintptr_t id, unsigned milliseconds) {
  if (auto* const target = screen().find(window)) {
    target->timers[id] = milliseconds;
  }
}

void killTimer(WindowHandle window, std::uintptr_t id) {
  if (auto* const target = screen().find(window)) {
    target->timers.erase(id);
  }
}

std::optional<std::uint32_t> translateColour(std::uint32_t oleColour) {
  constexpr std::uint32_t systemColour = 0x80000000;
  if ((oleColour & systemColour) == 0) {
    return oleColour;
  }
  const auto found = screen().systemColours.find(oleColour & ~systemColour);
  if (found == screen().systemColours.end()) {
    return std::nullopt;
  }
  return found->second;
}

struct LineCanvas::State {
  WindowHandle window = WindowHandle::none;
  Point position;
  std::optional<std::uint32_t> pen;
};

LineCanvas::LineCanvas(WindowHandle window) : state_(std::make_unique<State>()) {
  state_->window = window;
  ++screen().canvasesOpen;
}

LineCanvas::~LineCanvas() { --screen().canvasesOpen; }

void LineCanvas::takePen(std::uint32_t colour) {
  if (state_->pen) {
    throw std::logic_error("a pen is in use already");
  }
  state_->pen = colour;
  ++screen().pensOpen;
}

void LineCanvas::dropPen() {
  state_->pen.reset();
  --screen().pensOpen;
}

void LineCanvas::moveTo(Point place) { state_->position = place; }

void LineCanvas::lineTo(Point place) {
  const Point from = std::exchange(state_->position, place);
  auto* const target = screen().find(state_->window);
  if (target == nullptr) {
    return;
  }
  if (!state_->pen) {
    throw std::logic_error("a line without a pen");
  }
  if (from.x != place.x && from.y != place.y) {
    throw std::logic_error("frames have no slanting lines");
  }
  const auto step = [](int first, int last) { return (last > first) - (last < first); };
  for (Point at = from; !(at == place);
       at = {at.x + step(at.x, place.x), at.y + step(at.y, place.y)}) {
    target->pixels[{at.x, at.y}] = *state_->pen;
  }
  if (screen().onLine) {
    screen().onLine(state_->window);
  }
}

}  // namespace platform::native
