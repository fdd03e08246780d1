// The icons of other programs as pixels.
#include <windows.h>
// The shell's header relies on the first.
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/pictures.h"
#include "platform/win32/handles.h"
#include "platform/win32/paths.h"

namespace platform::pictures {
namespace {

using win32::BitmapHandle;
using win32::Icon;

constexpr std::uint32_t alphaMask = 0xFF000000U;
constexpr std::uint32_t colourMask = 0x00FFFFFFU;

/// Number of pixels.
std::size_t area(Size size) {
  return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

using NativeIcons = std::array<Icon, 2>;

/// The first icon of a file, drawn for both sizes if the file offers that; empty when there is
/// none.
NativeIcons extractIcons(const std::wstring& file, const Sizes& sides) {
  const auto both =
      static_cast<int>(MAKELONG(static_cast<WORD>(sides.front()), static_cast<WORD>(sides.back())));
  std::array<HICON, 2> sharp{};
  std::array<UINT, 2> ids{};
  const UINT count = PrivateExtractIconsW(file.c_str(), 0, both, both, sharp.data(), ids.data(),
                                          static_cast<UINT>(sharp.size()), 0);
  NativeIcons icons{Icon(sharp.front()), Icon(sharp.back())};
  // The count is -1 when the file could not be read.
  if (count != 0 && count != static_cast<UINT>(-1) && icons.front() && icons.back()) return icons;

  for (Icon& icon : icons) {
    HICON plain = ExtractIconW(GetModuleHandleW(nullptr), file.c_str(), 0);
    // 1 stands for a file that is no program.
    const bool none = reinterpret_cast<ULONG_PTR>(plain) <= 1;
    icon = Icon(none ? nullptr : plain);
  }
  return icons;
}

/// A bitmap's pixels as they are stored, rows from top to bottom; empty when it cannot be read.
Picture storedPixels(HBITMAP bitmap) {
  BITMAP description{};
  if (bitmap == nullptr || GetObjectW(bitmap, sizeof description, &description) == 0) return {};
  Picture picture{.size = {description.bmWidth, description.bmHeight}, .pixels = {}};
  picture.pixels.resize(area(picture.size));
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = picture.size.width;
  format.bmiHeader.biHeight = -picture.size.height;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  const win32::WindowDc screen(nullptr);
  if (!screen || GetDIBits(screen.get(), bitmap, 0, static_cast<UINT>(picture.size.height),
                           picture.pixels.data(), &format, DIB_RGB_COLORS) == 0) {
    return {};
  }
  return picture;
}

/// Makes opaque what the mask keeps (its black part) and clear what it leaves out.
void applyMask(Picture& picture, const Picture& mask) {
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    const bool clear = i >= mask.pixels.size() || (mask.pixels[i] & colourMask) != 0;
    picture.pixels[i] = clear ? 0 : picture.pixels[i] | alphaMask;
  }
}

/// The pixels of an icon at its own size.
std::optional<Picture> pixelsOf(const Icon& icon) {
  ICONINFO parts{};
  if (GetIconInfo(icon.get(), &parts) == 0) return std::nullopt;
  const BitmapHandle colours(parts.hbmColor);
  const BitmapHandle maskBitmap(parts.hbmMask);
  Picture mask = storedPixels(maskBitmap.get());
  Picture picture;
  if (colours) {
    picture = storedPixels(colours.get());
  } else {
    // A black-and-white icon keeps its picture in the lower half of the mask.
    picture.size = {mask.size.width, mask.size.height / 2};
    const auto half = mask.pixels.begin() + static_cast<std::ptrdiff_t>(mask.pixels.size() / 2);
    picture.pixels.assign(half, mask.pixels.end());
    mask.pixels.erase(half, mask.pixels.end());
  }
  if (picture.pixels.empty()) return std::nullopt;
  const bool hasAlpha =
      colours && std::any_of(picture.pixels.begin(), picture.pixels.end(),
                             [](std::uint32_t pixel) { return (pixel & alphaMask) != 0; });
  if (!hasAlpha) applyMask(picture, mask);
  return picture;
}

/// The picture at another size, each pixel taken from the nearest one. Only an icon that the
/// system would not draw at the size we asked for comes here.
Picture resized(const Picture& picture, int side) {
  Picture result{.size = {side, side}, .pixels = {}};
  result.pixels.reserve(area(result.size));
  for (int y = 0; y < side; ++y) {
    const int row = y * picture.size.height / side;
    for (int x = 0; x < side; ++x) {
      const int column = x * picture.size.width / side;
      result.pixels.push_back(
          picture.pixels[area({picture.size.width, row}) + static_cast<std::size_t>(column)]);
    }
  }
  return result;
}

}  // namespace

Icons programIcons(const std::wstring& file, const Sizes& sides) {
  constexpr int largest = 0x7FFF;  // two sizes share one number on their way to the system
  const bool valid =
      std::all_of(sides.begin(), sides.end(), [](int side) { return side > 0 && side <= largest; });
  if (file.empty() || !valid || win32::hasEmbeddedNul(file)) return {};
  const NativeIcons icons = extractIcons(file, sides);
  Icons pictures;
  for (std::size_t i = 0; i < icons.size(); ++i) {
    if (!icons.at(i)) continue;
    pictures.at(i) = pixelsOf(icons.at(i));
    if (pictures.at(i) && pictures.at(i)->size != Size{sides.at(i), sides.at(i)}) {
      pictures.at(i) = resized(*pictures.at(i), sides.at(i));
    }
  }
  return pictures;
}

}  // namespace platform::pictures
