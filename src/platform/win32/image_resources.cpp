#include "platform/win32/image_resources.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/win32/parameters.h"

namespace platform::win32 {

namespace {

constexpr int growth = 16;  // pictures by which a full native image list grows
constexpr std::array picturePercents{100, 125, 150, 175, 200};

HMODULE program() { return GetModuleHandleW(nullptr); }

int percentFor(int dpi) {
  const int wanted = dpi * 100 / designDpi;
  const auto* const found = std::find_if(picturePercents.begin(), picturePercents.end(),
                                         [wanted](int percent) { return percent >= wanted; });
  return found == picturePercents.end() ? picturePercents.back() : *found;
}

[[noreturn]] void refused() { throw RunTimeError(error::outOfMemory); }

/// One bit per pixel, set where the picture is clear; rows are filled up to 16 bits.
std::vector<std::uint8_t> maskOf(const Picture& picture) {
  const int stride = (picture.size.width + 15) / 16 * 2;
  std::vector<std::uint8_t> bits(static_cast<std::size_t>(stride) * picture.size.height, 0);
  std::size_t pixel = 0;
  for (int y = 0; y < picture.size.height; ++y) {
    for (int x = 0; x < picture.size.width; ++x, ++pixel) {
      if (picture.pixels[pixel] >> 24 == 0) {
        bits[static_cast<std::size_t>(y) * stride + x / 8] |=
            static_cast<std::uint8_t>(0x80 >> (x % 8));
      }
    }
  }
  return bits;
}

/// The icon of one entry of an image list at `size`.
Icon iconOf(const controls::ImageList::Image& image, Size size) {
  if (!image.resource.empty()) {
    return loadIcon(image.resource, size);
  }
  if (image.picture.pixels.empty()) {
    return {};
  }
  Icon icon = iconFromPicture(image.picture);
  if (image.picture.size != size) {
    icon.reset(static_cast<HICON>(CopyImage(icon.get(), IMAGE_ICON, size.width, size.height, 0)));
  }
  return icon;
}

}  // namespace

Icon loadProgramIcon(Size size) {
  constexpr WORD number = 1;
  return Icon(static_cast<HICON>(LoadImageW(program(), nameFromNumber(number), IMAGE_ICON,
                                            size.width, size.height, LR_DEFAULTCOLOR)));
}

Icon loadIcon(const std::wstring& name, Size size) {
  return Icon(static_cast<HICON>(
      LoadImageW(program(), name.c_str(), IMAGE_ICON, size.width, size.height, LR_DEFAULTCOLOR)));
}

BitmapHandle loadPicture(const std::wstring& name, int dpi, Size size) {
  const std::wstring resource = name + L"_" + std::to_wstring(percentFor(dpi));
  BitmapHandle loaded(
      static_cast<HBITMAP>(LoadImageW(program(), resource.c_str(), IMAGE_BITMAP, 0, 0, 0)));
  BITMAP facts{};
  if (!loaded || GetObjectW(loaded.get(), sizeof facts, &facts) == 0) {
    return {};
  }
  if (facts.bmWidth == size.width && facts.bmHeight == size.height) {
    return loaded;
  }
  const WindowDc screen(nullptr);
  const MemoryDc from(CreateCompatibleDC(screen.get()));
  const MemoryDc into(CreateCompatibleDC(screen.get()));
  BitmapHandle fitted(CreateCompatibleBitmap(screen.get(), size.width, size.height));
  if (!from || !into || !fitted) {
    refused();
  }
  const Selection source(from.get(), loaded.get());
  const Selection target(into.get(), fitted.get());
  SetStretchBltMode(into.get(), HALFTONE);
  SetBrushOrgEx(into.get(), 0, 0, nullptr);
  StretchBlt(into.get(), 0, 0, size.width, size.height, from.get(), 0, 0, facts.bmWidth,
             facts.bmHeight, SRCCOPY);
  return fitted;
}

Icon iconFromPicture(const Picture& picture) {
  BITMAPINFO description{};
  description.bmiHeader.biSize = sizeof description.bmiHeader;
  description.bmiHeader.biWidth = picture.size.width;
  description.bmiHeader.biHeight = -picture.size.height;  // rows from top to bottom
  description.bmiHeader.biPlanes = 1;
  description.bmiHeader.biBitCount = 32;
  description.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  const BitmapHandle colours(
      CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &bits, nullptr, 0));
  const BitmapHandle mask(
      CreateBitmap(picture.size.width, picture.size.height, 1, 1, maskOf(picture).data()));
  if (!colours || !mask || bits == nullptr) {
    refused();
  }
  std::copy(picture.pixels.begin(), picture.pixels.end(), static_cast<std::uint32_t*>(bits));
  ICONINFO parts{};
  parts.fIcon = TRUE;
  parts.hbmColor = colours.get();
  parts.hbmMask = mask.get();
  Icon icon(CreateIconIndirect(&parts));
  if (!icon) {
    refused();
  }
  return icon;
}

void ImageCache::append(HIMAGELIST list, const controls::ImageList& source, std::size_t from) {
  const Size size{scaled(source.imageSize().width, dpi_), scaled(source.imageSize().height, dpi_)};
  for (std::size_t i = from; i < source.images().size(); ++i) {
    const controls::ImageList::Image& image = source.images()[i];
    const Icon icon = iconOf(image, size);
    // A picture that is missing leaves the items that name it without one.
    const int place = icon ? ImageList_ReplaceIcon(list, -1, icon.get()) : -1;
    if (place >= 0) {
      places_.insert_or_assign(image.key, place);
    }
  }
  count_ = source.images().size();
  revision_ = source.revision();
}

void ImageCache::refresh(const controls::ImageList* source, int dpi,
                         const std::function<void(HIMAGELIST)>& give) {
  if (source == source_ && dpi == dpi_ && (source == nullptr || source->revision() == revision_)) {
    return;
  }
  const std::size_t count = source == nullptr ? 0 : source->images().size();
  // Every picture that is added is one revision, and so is every other change: as many of either
  // means that there is nothing new but pictures at the end.
  if (source != nullptr && source == source_ && dpi == dpi_ && count > count_ &&
      source->revision() - revision_ == count - count_) {
    append(list_.get(), *source, count_);
    return;
  }
  NativeImageList fresh;
  places_.clear();
  count_ = 0;
  dpi_ = dpi;
  if (source != nullptr) {
    fresh.reset(ImageList_Create(scaled(source->imageSize().width, dpi),
                                 scaled(source->imageSize().height, dpi), ILC_COLOR32 | ILC_MASK,
                                 static_cast<int>(count), growth));
    if (!fresh) {
      refused();
    }
    append(fresh.get(), *source, 0);
  }
  give(fresh.get());
  list_ = std::move(fresh);
  source_ = source;
}

int ImageCache::indexOf(const std::wstring& key, int none) const {
  const auto found = places_.find(key);
  return found == places_.end() ? none : found->second;
}

}  // namespace platform::win32
