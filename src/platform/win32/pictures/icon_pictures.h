// Converts pictures to the system's bitmaps and icons, and back.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/pictures.h"
#include "platform/win32/handles.h"

namespace platform::win32 {

/// Pictures of one size side by side, with a mask of the transparent pixels.
struct Strip {
  BitmapHandle colours;
  BitmapHandle mask;
};

/// Puts pictures of one size into the form that image lists need. Raises `error::outOfMemory` when
/// the system refuses.
[[nodiscard]] Strip stripOf(const std::vector<Picture>& pictures);

/// Creates an icon from a picture. Raises `error::outOfMemory` when the system refuses.
[[nodiscard]] Icon iconFromPicture(const Picture& picture);

/// The pixels of an icon at its own size; nothing when the system does not return them.
[[nodiscard]] std::optional<Picture> pictureFromIcon(HICON icon);

/// An icon of this program at exactly `side` pixels. Nothing when it is not stored unpacked at that
/// size.
[[nodiscard]] std::optional<Picture> storedPicture(const std::wstring& name, int side);

}  // namespace platform::win32
