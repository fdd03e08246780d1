#include "platform/controls/bars.h"

#include <algorithm>
#include <utility>

#include "platform/dispatcher.h"
#include "platform/run_time_error.h"

namespace controls {

using platform::RunTimeError;

void Toolbar::addButton(Button button) {
  buttons_.push_back(std::move(button));
  changed(Change::structure);
}

void Toolbar::addSeparator() { addButton({}); }

Toolbar::Button& Toolbar::find(const std::wstring& key) {
  const auto found = std::find_if(
      buttons_.begin(), buttons_.end(),
      [&key](const Button& candidate) { return !candidate.separator() && candidate.key == key; });
  if (found == buttons_.end()) {
    throw RunTimeError(platform::error::elementNotFound);
  }
  return *found;
}

const Toolbar::Button& Toolbar::button(const std::wstring& key) const {
  return const_cast<Toolbar*>(this)->find(key);
}

void Toolbar::setButtonCaption(const std::wstring& key, std::wstring caption) {
  assign(find(key).caption, std::move(caption), Change::structure);
}

void Toolbar::setButtonToolTip(const std::wstring& key, std::wstring toolTip) {
  assign(find(key).toolTip, std::move(toolTip), Change::toolTip);
}

void Toolbar::setButtonImage(const std::wstring& key, std::wstring image) {
  assign(find(key).image, std::move(image), Change::structure);
}

void Toolbar::setButtonEnabled(const std::wstring& key, bool enabled) {
  assign(find(key).enabled, enabled, Change::value);
}

void Toolbar::setButtonValue(const std::wstring& key, int value) {
  Button& pressed = find(key);
  pressed.value = value;
  if (pressed.check && value == 1) {
    const auto position = std::find_if(buttons_.begin(), buttons_.end(),
                                       [&pressed](const Button& b) { return &b == &pressed; });
    const auto outside = [](const Button& b) { return !b.check; };
    const auto last = std::find_if(position, buttons_.end(), outside);
    const auto first = std::find_if(std::make_reverse_iterator(position), buttons_.rend(), outside);
    std::for_each(first.base(), last, [&pressed](Button& other) {
      if (&other != &pressed) {
        other.value = 0;
      }
    });
  }
  changed(Change::value);
}

void Toolbar::setImages(const ImageList* images) {
  images_ = images;
  changed(Change::images);
}

void Toolbar::fireButtonClick(const std::wstring& key) {
  platform::dispatch([this, &key] {
    // A copy, because the handler may destroy the button that owns the key.
    const std::wstring pressed = key;
    if (onButtonClick) {
      onButtonClick(pressed);
    }
  });
}

void TabControl::addTab(std::wstring caption) {
  captions_.push_back(std::move(caption));
  changed(Change::structure);
}

const std::wstring& TabControl::tabCaption(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= captions_.size()) {
    throw RunTimeError(platform::error::indexOutOfBounds);
  }
  return captions_[static_cast<std::size_t>(index)];
}

void TabControl::setCurrent(int index) {
  static_cast<void>(tabCaption(index));
  if (index == current_) {
    return;
  }
  const int old = std::exchange(current_, index);
  changed(Change::value);
  if (onSwitch) {
    onSwitch(old, index);
  }
}

platform::Rect TabControl::displayArea(const platform::Rect& bounds, int dpi) const {
  if (measureDisplayArea) {
    return measureDisplayArea(bounds);
  }
  const int frame = platform::scaled(4, dpi);
  const int tabs = platform::scaled(24, dpi);
  return {bounds.left + frame, bounds.top + tabs, std::max(0, bounds.width - 2 * frame),
          std::max(0, bounds.height - tabs - frame)};
}

void TabControl::fireSwitch(int index) {
  platform::dispatch([this, index] { setCurrent(index); });
}

MenuItem::MenuItem(std::wstring name, int id, std::wstring caption) : Control(std::move(name), id) {
  setCaption(std::move(caption));
}

MenuItem& MenuItem::add(MenuItem& child) {
  children_.push_back(&child);
  changed(Change::structure);
  return *this;
}

void MenuItem::fireClick() {
  if (enabled()) {
    platform::dispatch(onClick);
  }
}

void StatusBar::setTexts(std::wstring left, std::wstring right) {
  if (left != left_ || right != right_) {
    left_ = std::move(left);
    right_ = std::move(right);
    changed(Change::value);
  }
}

std::wstring shortenedInMiddle(const std::wstring& text, int width,
                               const std::function<int(const std::wstring&)>& widthOf) {
  if (widthOf(text) <= width) {
    return text;
  }
  const std::wstring ellipsis = L"\u2026";
  const std::size_t separator = text.find_last_of(L"\\/");
  std::size_t tail = separator == std::wstring::npos ? text.size() / 2 : separator;
  // The end alone may be too long.
  while (tail < text.size() && widthOf(ellipsis + text.substr(tail)) > width) {
    tail += (text.size() - tail + 1) / 2;
  }
  const std::wstring end = ellipsis + text.substr(tail);
  std::size_t fits = 0;
  std::size_t tooLong = tail;
  while (tooLong - fits > 1) {
    const std::size_t middle = fits + (tooLong - fits) / 2;
    (widthOf(text.substr(0, middle) + end) <= width ? fits : tooLong) = middle;
  }
  return text.substr(0, fits) + end;
}

}  // namespace controls
