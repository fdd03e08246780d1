#include "platform/windows.h"

#include <memory>

#include "platform/run_time_error.h"
#include "platform/win32/fonts.h"
#include "platform/win32/peers/window_peer.h"
#include "platform/win32/peers/window_table.h"

namespace platform::windows {

void create(controls::Window& window) { win32::adopt(std::make_unique<win32::WindowPeer>(window)); }

void destroy(controls::Window& window) { win32::retire(window); }

namespace {

/// The rectangle that a text needs in one of `width`, as the system draws it with `flags`.
RECT extentOf(const std::wstring& text, const Font& font, int width, int dpi, UINT flags) {
  const win32::FontHandle made = win32::makeFont(font, dpi);
  const win32::WindowDc screen(nullptr);
  if (!screen) {
    throw RunTimeError(error::outOfMemory);
  }
  const win32::Selection selected(screen.get(), made.get());
  RECT extent{0, 0, width, 0};
  DrawTextW(screen.get(), text.c_str(), static_cast<int>(text.size()), &extent,
            DT_CALCRECT | DT_NOPREFIX | flags);
  return extent;
}

}  // namespace

int textHeight(const std::wstring& text, const Font& font, int width, int dpi) {
  return extentOf(text, font, width, dpi, DT_WORDBREAK | DT_EXPANDTABS).bottom;
}

Size textSize(const std::wstring& text, const Font& font, int dpi) {
  const RECT extent = extentOf(text, font, 0, dpi, DT_SINGLELINE);
  return {extent.right - extent.left, extent.bottom - extent.top};
}

}  // namespace platform::windows
