// The icons of other programs as pixels.
#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <utility>

#include "icons/icon_images.h"
#include "platform/pictures.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"
#include "platform/win32/pictures/icon_pictures.h"

namespace platform::pictures {
namespace {

using win32::Icon;

/// Number of pixels.
std::size_t area(Size size) {
  return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

using NativeIcons = std::array<Icon, 2>;

/// The first icon of a file, in both sizes if the file has them; empty when there is none.
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
    // 1 means that the file is no program.
    const bool none = reinterpret_cast<ULONG_PTR>(plain) <= 1;
    icon = Icon(none ? nullptr : plain);
  }
  return icons;
}

/// The icons as stored in the file, if none has to be stretched.
std::optional<std::array<Picture, 2>> storedIcons(const std::wstring& path, const Sizes& sides) {
  const win32::FileHandle file(CreateFileW(path.c_str(), GENERIC_READ,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                           nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) {
    return std::nullopt;
  }
  const auto readAt = [&file](std::uint64_t place, std::size_t size) {
    std::string bytes(size, '\0');
    LARGE_INTEGER where{};
    where.QuadPart = static_cast<LONGLONG>(place);
    DWORD got = 0;
    if (SetFilePointerEx(file.get(), where, nullptr, FILE_BEGIN) == 0 ||
        ReadFile(file.get(), bytes.data(), static_cast<DWORD>(size), &got, nullptr) == 0) {
      got = 0;
    }
    bytes.resize(got);
    return bytes;
  };
  return icons::storedIcons(readAt, sides, win32::unpacked);
}

/// The picture at another size, without smoothing. Used only for an icon that the system did not
/// draw at the requested size.
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
  constexpr int largest = 0x7FFF;  // two sizes are passed to the system in one number
  const bool valid =
      std::all_of(sides.begin(), sides.end(), [](int side) { return side > 0 && side <= largest; });
  if (file.empty() || !valid || win32::hasEmbeddedNul(file)) return {};
  if (auto stored = storedIcons(file, sides)) {
    return {std::move(stored->front()), std::move(stored->back())};
  }
  const NativeIcons icons = extractIcons(file, sides);
  Icons pictures;
  for (std::size_t i = 0; i < icons.size(); ++i) {
    if (!icons.at(i)) continue;
    pictures.at(i) = win32::pictureFromIcon(icons.at(i).get());
    if (pictures.at(i) && pictures.at(i)->size != Size{sides.at(i), sides.at(i)}) {
      pictures.at(i) = resized(*pictures.at(i), sides.at(i));
    }
  }
  return pictures;
}

}  // namespace platform::pictures
