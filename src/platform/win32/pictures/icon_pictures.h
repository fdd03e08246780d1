// Converts pictures to the system's bitmaps and icons, and back.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
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

/// An icon's image as the system unpacks it; `side` is its size in pixels. Nothing when the system
/// refuses.
[[nodiscard]] std::optional<Picture> unpacked(std::string_view image, int side);

/// Whether an icon of this program has an image of exactly `side` pixels.
[[nodiscard]] bool storedAt(const std::wstring& name, int side);

/// An icon of this program at exactly `side` pixels, made from the next larger picture when there
/// is none of that size. Nothing when all are smaller.
[[nodiscard]] std::optional<Picture> storedPicture(const std::wstring& name, int side);

/// A drawing of this program at `size` in pixels. Nothing when there is none of that name.
[[nodiscard]] std::optional<Picture> drawnPicture(const std::wstring& name, Size size);

}  // namespace platform::win32
