#include "platform/win32/pictures/icon_pictures.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "icons/drawing.h"
#include "icons/icon_images.h"
#include "icons/scaling.h"
#include "platform/run_time_error.h"
#include "platform/win32/parameters.h"

namespace platform::win32 {

namespace {

constexpr std::uint32_t alphaMask = 0xFF000000U;
constexpr std::uint32_t colourMask = 0x00FFFFFFU;
constexpr DWORD iconVersion = 0x00030000;  // of the format, the only one that there is

/// Rows from top to bottom, 32 bits per pixel.
BITMAPINFO formatOf(int width, int height) {
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = width;
  format.bmiHeader.biHeight = -height;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  return format;
}

/// A bitmap's pixels as stored, rows from top to bottom; empty when it cannot be read.
Picture storedPixels(HBITMAP bitmap) {
  BITMAP description{};
  if (bitmap == nullptr || GetObjectW(bitmap, sizeof description, &description) == 0) {
    return {};
  }
  Picture picture{.size = {description.bmWidth, description.bmHeight}, .pixels = {}};
  picture.pixels.resize(static_cast<std::size_t>(picture.size.width) * picture.size.height);
  BITMAPINFO format = formatOf(picture.size.width, picture.size.height);
  const WindowDc screen(nullptr);
  if (!screen || GetDIBits(screen.get(), bitmap, 0, static_cast<UINT>(picture.size.height),
                           picture.pixels.data(), &format, DIB_RGB_COLORS) == 0) {
    return {};
  }
  return picture;
}

/// The bytes of a resource of this program, "" when there is none.
std::string_view resource(const wchar_t* name, const wchar_t* type) {
  const HMODULE program = GetModuleHandleW(nullptr);
  HRSRC place = FindResourceW(program, name, type);
  HGLOBAL loaded = place == nullptr ? nullptr : LoadResource(program, place);
  const auto* const bytes =
      static_cast<const char*>(loaded == nullptr ? nullptr : LockResource(loaded));
  return bytes == nullptr ? std::string_view()
                          : std::string_view(bytes, SizeofResource(program, place));
}

/// An icon of this program at `side` pixels, or at the next larger size that it is stored in.
/// Nothing when there is none.
std::optional<Picture> largerPicture(const std::wstring& name, int side) {
  const auto stored = icons::imageFor(resource(name.c_str(), RT_GROUP_ICON), side);
  if (!stored) {
    return std::nullopt;
  }
  const std::string_view image = resource(nameFromNumber(stored->number), RT_ICON);
  auto picture = icons::unpackedImage(image);
  return picture ? picture : unpacked(image, stored->side);
}

}  // namespace

Strip stripOf(const std::vector<Picture>& pictures) {
  const Size size = pictures.empty() ? Size{} : pictures.front().size;
  const int width = size.width * static_cast<int>(pictures.size());
  const BITMAPINFO format = formatOf(width, size.height);
  void* bits = nullptr;
  Strip strip;
  strip.colours.reset(CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
  // One bit per pixel, set where the picture is transparent; rows are padded to 16 bits.
  const int stride = (width + 15) / 16 * 2;
  std::vector<std::uint8_t> mask(static_cast<std::size_t>(stride) * size.height, 0);
  if (!strip.colours || bits == nullptr) {
    throw RunTimeError(error::outOfMemory);
  }
  auto* const pixels = static_cast<std::uint32_t*>(bits);
  int left = 0;
  for (const Picture& picture : pictures) {
    auto pixel = picture.pixels.begin();
    for (int y = 0; y < size.height; ++y) {
      for (int x = left; x < left + size.width; ++x, ++pixel) {
        pixels[static_cast<std::size_t>(y) * width + x] = *pixel;
        if ((*pixel & alphaMask) == 0) {
          mask[static_cast<std::size_t>(y) * stride + x / 8] |=
              static_cast<std::uint8_t>(0x80 >> (x % 8));
        }
      }
    }
    left += size.width;
  }
  strip.mask.reset(CreateBitmap(width, size.height, 1, 1, mask.data()));
  if (!strip.mask) {
    throw RunTimeError(error::outOfMemory);
  }
  return strip;
}

Icon iconFromPicture(const Picture& picture) {
  const Strip strip = stripOf({picture});
  ICONINFO parts{};
  parts.fIcon = TRUE;
  parts.hbmColor = strip.colours.get();
  parts.hbmMask = strip.mask.get();
  Icon icon(CreateIconIndirect(&parts));
  if (!icon) {
    throw RunTimeError(error::outOfMemory);
  }
  return icon;
}

std::optional<Picture> pictureFromIcon(HICON icon) {
  ICONINFO parts{};
  if (icon == nullptr || GetIconInfo(icon, &parts) == 0) {
    return std::nullopt;
  }
  const BitmapHandle colours(parts.hbmColor);
  const BitmapHandle maskBitmap(parts.hbmMask);
  Picture mask = storedPixels(maskBitmap.get());
  Picture picture;
  if (colours) {
    picture = storedPixels(colours.get());
  } else {
    // A black-and-white icon has its image in the lower half of the mask.
    picture.size = {mask.size.width, mask.size.height / 2};
    const auto half = mask.pixels.begin() + static_cast<std::ptrdiff_t>(mask.pixels.size() / 2);
    picture.pixels.assign(half, mask.pixels.end());
    mask.pixels.erase(half, mask.pixels.end());
  }
  if (picture.pixels.empty()) {
    return std::nullopt;
  }
  std::vector<bool> clear;
  clear.reserve(mask.pixels.size());
  for (const std::uint32_t pixel : mask.pixels) {
    clear.push_back((pixel & colourMask) != 0);
  }
  icons::completeTransparency(picture, clear);
  return picture;
}

std::optional<Picture> unpacked(std::string_view image, int side) {
  // The bytes come from a file or from the resources, and are not written to.
  auto* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(image.data()));
  const Icon icon(CreateIconFromResourceEx(bytes, static_cast<DWORD>(image.size()), TRUE,
                                           iconVersion, side, side, LR_DEFAULTCOLOR));
  return pictureFromIcon(icon.get());
}

bool storedAt(const std::wstring& name, int side) {
  const auto stored = icons::imageFor(resource(name.c_str(), RT_GROUP_ICON), side);
  return stored && stored->side == side;
}

std::optional<Picture> storedPicture(const std::wstring& name, int side) {
  const auto picture = largerPicture(name, side);
  return picture ? std::optional(icons::scaledDown(*picture, side)) : std::nullopt;
}

std::optional<Picture> drawnPicture(const std::wstring& name, Size size) {
  return icons::painted(resource(name.c_str(), RT_RCDATA), size);
}

}  // namespace platform::win32
