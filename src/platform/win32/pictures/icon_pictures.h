// From pictures to the system's bitmaps and icons, and back.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/pictures.h"
#include "platform/win32/handles.h"

namespace platform::win32 {

/// Pictures of one size beside one another, with the mask of what is clear.
struct Strip {
  BitmapHandle colours;
  BitmapHandle mask;
};

/// Lays out pictures of one size as image lists take them. Raises 7 when the system refuses.
[[nodiscard]] Strip stripOf(const std::vector<Picture>& pictures);

/// Makes an icon of a picture. Raises 7 when the system refuses.
[[nodiscard]] Icon iconFromPicture(const Picture& picture);

/// The pixels of an icon at its own size; nothing when the system does not hand them out.
[[nodiscard]] std::optional<Picture> pictureFromIcon(HICON icon);

/// An icon of this program at exactly `side` pixels. Nothing when it was not stored pixel by pixel
/// at that size.
[[nodiscard]] std::optional<Picture> storedPicture(const std::wstring& name, int side);

}  // namespace platform::win32
