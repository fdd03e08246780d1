#include "platform/controls/window.h"

#include <utility>

#include "platform/dispatcher.h"
#include "platform/windows.h"

namespace controls {

Window::Window(std::wstring name, WindowKind kind) : name_(std::move(name)), kind_(kind) {}

Window::~Window() { dropNative(); }

void Window::dropNative() {
  if (loaded_) {
    loaded_ = false;
    visible_ = false;
    laidOut_ = false;
    platform::windows::destroy(*this);
  }
}

void Window::setCaption(std::wstring caption) {
  // Set even when it is the same: a title that another program changed is put right by it.
  caption_ = std::move(caption);
  changed(Change::caption);
}

void Window::setOpacity(std::uint8_t level) {
  opacity_ = level;
  changed(Change::appearance);
}

void Window::setExtendedStyle(std::uint32_t style) {
  extendedStyle_ = style;
  changed(Change::appearance);
}

void Window::setDesignSize(platform::Size size, platform::Size minimum) {
  designSize_ = size;
  minimumSize_ = minimum;
}

void Window::add(Control& control) { controls_.push_back(&control); }

void Window::add(Timer& timer) { timers_.push_back(&timer); }

void Window::load() {
  if (loaded_) {
    return;
  }
  platform::windows::create(*this);
  loaded_ = true;
  try {
    Form_Load();
  } catch (...) {
    dropNative();
    throw;
  }
}

void Window::show() {
  load();
  if (!loaded_) {
    return;  // Form_Load unloaded it again
  }
  visible_ = true;
  if (peer_ == nullptr) {
    return;
  }
  try {
    peer_->show();
  } catch (...) {
    // Half a window would neither work nor go away.
    dropNative();
    throw;
  }
}

void Window::showModal() {
  show();
  platform::windows::runModal(*this);
}

void Window::activate() {
  if (peer_ != nullptr) {
    peer_->activate();
  }
}

bool Window::unload(UnloadMode mode) {
  if (!loaded_) {
    return true;
  }
  bool cancel = false;
  Form_QueryUnload(cancel, mode);
  if (!cancel && loaded_) {
    Form_Unload(cancel);
  }
  if (cancel) {
    return false;
  }
  dropNative();
  return true;
}

void Window::fireActivate() {
  platform::dispatch([this] { Form_Activate(); });
}

void Window::fireClick() {
  platform::dispatch([this] { Form_Click(); });
}

void Window::fireKeyPress(wchar_t character) {
  platform::dispatch([this, character] { Form_KeyPress(character); });
}

bool Window::fireKeyDown(const KeyStroke& stroke) {
  bool taken = false;
  const bool succeeded = platform::dispatch([&] { taken = Form_KeyDown(stroke); });
  return taken || !succeeded;
}

void Window::fireMenuOpening() {
  platform::dispatch([this] { Form_MenuOpening(); });
}

void Window::fireMenuMarked(const MenuItem* item) {
  platform::dispatch([this, item] { Form_MenuMarked(item); });
}

void Window::fireDrivesChanged() {
  platform::dispatch([this] { Form_DrivesChanged(); });
}

bool Window::fireClose(UnloadMode mode) {
  bool closed = false;
  platform::dispatch([&] {
    if (mode == UnloadMode::sessionEnd || mode == UnloadMode::forced) {
      bool cancel = false;
      Form_QueryUnload(cancel, mode);
      closed = !cancel;
    } else {
      closed = unload(mode);
    }
  });
  return closed;
}

void Window::fireSessionEnd() {
  platform::dispatch([this] { Form_SessionEnd(); });
}

void Window::fireLayout(platform::Size client, int dpi) {
  laidOut_ = true;
  platform::dispatch([this, client, dpi] { layout(client, dpi); });
}

void Window::changed(Change change) {
  if (peer_ != nullptr) {
    peer_->changed(change);
  }
}

}  // namespace controls
