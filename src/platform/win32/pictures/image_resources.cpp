#include "platform/win32/pictures/image_resources.h"

#include <utility>
#include <vector>

#include "platform/run_time_error.h"
#include "platform/win32/parameters.h"
#include "platform/win32/pictures/icon_pictures.h"

namespace platform::win32 {

namespace {

constexpr int growth = 16;  // pictures added to the capacity of a full native image list

HMODULE program() { return GetModuleHandleW(nullptr); }

[[noreturn]] void refused() { throw RunTimeError(error::outOfMemory); }

/// An icon as the system loads it: the image of this size, otherwise one that it stretches.
Icon systemIcon(const wchar_t* name, Size size) {
  return Icon(static_cast<HICON>(
      LoadImageW(program(), name, IMAGE_ICON, size.width, size.height, LR_DEFAULTCOLOR)));
}

/// The pixels of one entry of an image list at `size`; nothing when there is no such picture.
std::optional<Picture> pictureOf(const controls::ImageList::Image& image, Size size) {
  if (!image.resource.empty()) {
    auto stored = storedPicture(image.resource, size.width);
    return stored ? stored : pictureFromIcon(systemIcon(image.resource.c_str(), size).get());
  }
  if (image.picture.pixels.empty()) {
    return std::nullopt;
  }
  if (image.picture.size == size) {
    return image.picture;
  }
  const Icon original = iconFromPicture(image.picture);
  const Icon scaled(
      static_cast<HICON>(CopyImage(original.get(), IMAGE_ICON, size.width, size.height, 0)));
  return pictureFromIcon(scaled.get());
}

}  // namespace

Icon loadProgramIcon(Size size) { return loadIcon(L"AA_PROGRAM", size); }

Icon loadIcon(const std::wstring& name, Size size) {
  // For a size that is missing, the system may stretch a smaller picture although there is a larger
  // one.
  if (size.width == size.height && !storedAt(name, size.width)) {
    if (const auto stored = storedPicture(name, size.width)) {
      return iconFromPicture(*stored);
    }
  }
  return systemIcon(name.c_str(), size);
}

BitmapHandle loadDrawing(const std::wstring& name, Size size) {
  const auto picture = drawnPicture(name, size);
  return picture ? stripOf({*picture}).colours : BitmapHandle();
}

Icon loadDrawingWithHoles(const std::wstring& name, Size size) {
  const auto picture = drawnPicture(name, size);
  return picture ? iconFromPicture(*picture) : Icon();
}

void ImageCache::append(HIMAGELIST list, const controls::ImageList& source, std::size_t from) {
  const Size size{scaled(source.imageSize().width, dpi_), scaled(source.imageSize().height, dpi_)};
  std::vector<Picture> pictures;
  std::vector<const std::wstring*> keys;
  for (std::size_t i = from; i < source.images().size(); ++i) {
    const controls::ImageList::Image& image = source.images()[i];
    auto picture = pictureOf(image, size);
    // If a picture is missing, its items have none.
    if (picture && picture->size == size) {
      pictures.push_back(std::move(*picture));
      keys.push_back(&image.key);
    }
  }
  if (!pictures.empty()) {
    const Strip strip = stripOf(pictures);
    int place = ImageList_Add(list, strip.colours.get(), strip.mask.get());
    if (place < 0) {
      refused();
    }
    for (const std::wstring* const key : keys) {
      places_.insert_or_assign(*key, place++);
    }
  }
  count_ = source.images().size();
  revision_ = source.revision();
}

bool ImageCache::refresh(const controls::ImageList* source, int dpi,
                         const std::function<void(HIMAGELIST)>& give) {
  if (source == source_ && dpi == dpi_ && (source == nullptr || source->revision() == revision_)) {
    return false;
  }
  const std::size_t count = source == nullptr ? 0 : source->images().size();
  // Every added picture increases the revision by one, and so does every other change. If revision
  // and count grew equally, only pictures at the end are new.
  if (source != nullptr && source == source_ && dpi == dpi_ && count > count_ &&
      source->revision() - revision_ == count - count_) {
    append(list_.get(), *source, count_);
    return true;
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
  return true;
}

int ImageCache::indexOf(const std::wstring& key, int none) const {
  const auto found = places_.find(key);
  return found == places_.end() ? none : found->second;
}

}  // namespace platform::win32
