// The fonts of the program's windows.
#pragma once

#include <vector>

#include "platform/win32/handles.h"
#include "platform/windows.h"

namespace platform::win32 {

/// Creates a font with the typeface that the user chose for messages. 9 points in the design become
/// the user's own text size; other sizes are scaled in proportion. Raises `error::outOfMemory` when
/// the system cannot create the font.
[[nodiscard]] FontHandle makeFont(const windows::Font& font, int dpi);

/// The fonts of one window, each created once.
class FontCache {
 public:
  /// The font at `dpi`, owned by the cache. Raises `error::outOfMemory`.
  [[nodiscard]] HFONT get(const windows::Font& font, int dpi);
  /// From now on, `get` creates all fonts anew. Returns the former fonts, which must live until no
  /// control uses them any more.
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
