// The fonts of the program's windows.
#pragma once

#include <vector>

#include "platform/win32/handles.h"
#include "platform/windows.h"

namespace platform::win32 {

/// Makes a font of the typeface that the user chose for messages. The design's 9 points stand for
/// the user's own text size; other sizes keep their proportion to it. Raises 7 when the system
/// makes no font.
[[nodiscard]] FontHandle makeFont(const windows::Font& font, int dpi);

/// The fonts of one window, each made once.
class FontCache {
 public:
  /// The font at `dpi`; it belongs to the cache. Raises 7.
  [[nodiscard]] HFONT get(const windows::Font& font, int dpi);
  /// Gives out all fonts anew from now on, and hands over the former ones, which have to live
  /// until no control uses them any more.
  [[nodiscard]] std::vector<FontHandle> renew();

 private:
  struct Entry {
    windows::Font font;
    int dpi;
  };
  std::vector<Entry> entries_;
  std::vector<FontHandle> handles_;  // parallel to entries_
};

}  // namespace platform::win32
