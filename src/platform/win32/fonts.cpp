#include "platform/win32/fonts.h"

#include <utility>

#include "platform/run_time_error.h"
#include "platform/win32/dpi.h"

namespace platform::win32 {

FontHandle makeFont(const windows::Font& font, int dpi) {
  const windows::Font ordinary;
  LOGFONTW description = nonClientMetrics(dpi).lfMessageFont;
  description.lfHeight = MulDiv(description.lfHeight, font.pointSize, ordinary.pointSize);
  description.lfWidth = 0;
  if (font.bold) {
    description.lfWeight = FW_BOLD;
  }
  FontHandle made(CreateFontIndirectW(&description));
  if (!made) {
    throw RunTimeError(error::outOfMemory);
  }
  return made;
}

HFONT FontCache::get(const windows::Font& font, int dpi) {
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].font == font && entries_[i].dpi == dpi) {
      return handles_[i].get();
    }
  }
  handles_.push_back(makeFont(font, dpi));
  entries_.push_back({font, dpi});
  return handles_.back().get();
}

std::vector<FontHandle> FontCache::renew() {
  entries_.clear();
  return std::exchange(handles_, {});
}

}  // namespace platform::win32
