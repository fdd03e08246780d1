#include "platform/windows.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

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

int widestText(std::size_t count, const std::function<std::wstring_view(std::size_t)>& textAt,
               const Font& font, int dpi) {
  const win32::FontHandle made = win32::makeFont(font, dpi);
  const win32::WindowDc screen(nullptr);
  if (!screen) {
    throw RunTimeError(error::outOfMemory);
  }
  const win32::Selection selected(screen.get(), made.get());
  // The width of each character is asked for once, 256 neighbours at a time.
  constexpr std::size_t page = 256;
  std::vector<std::array<INT, page>> pages;
  std::array<std::size_t, page> pageOf{};  // 1 + place in `pages`
  const auto widthOf = [&](wchar_t unit) {
    const auto high = static_cast<std::size_t>(unit) / page;
    if (pageOf.at(high) == 0) {
      const auto first = static_cast<UINT>(high * page);
      auto& widths = pages.emplace_back();
      GetCharWidth32W(screen.get(), first, first + static_cast<UINT>(page) - 1, widths.data());
      pageOf.at(high) = pages.size();
    }
    return pages[pageOf.at(high) - 1].at(static_cast<std::size_t>(unit) % page);
  };
  std::wstring_view widest;
  int most = 0;
  for (std::size_t n = 0; n < count; ++n) {
    const std::wstring_view text = textAt(n);
    int width = 0;
    for (const wchar_t unit : text) {
      width += widthOf(unit);
    }
    if (width > most) {
      most = width;
      widest = text;
    }
  }
  SIZE exact{};
  GetTextExtentPoint32W(screen.get(), widest.data(), static_cast<int>(widest.size()), &exact);
  return std::max(most, static_cast<int>(exact.cx));
}

}  // namespace platform::windows
