#include "platform/controls/image_list.h"

#include <algorithm>
#include <utility>

#include "platform/run_time_error.h"

namespace controls {

using platform::Picture;
using platform::Size;

void ImageList::setImageSize(Size size) {
  if (imageSize_ != size) {
    imageSize_ = size;
    ++revision_;
  }
}

void ImageList::clear() {
  images_.clear();
  ++revision_;
}

void ImageList::add(std::wstring key, Picture picture) {
  insert({std::move(key), L"", std::move(picture)});
}

void ImageList::addResource(std::wstring key, std::wstring resource) {
  insert({std::move(key), std::move(resource), {}});
}

void ImageList::replace(const std::wstring& key, Picture picture) {
  if (const auto index = indexOf(key)) {
    images_[*index] = {key, L"", std::move(picture)};
    ++revision_;
  }
}

void ImageList::insert(Image image) {
  if (indexOf(image.key)) {
    throw platform::RunTimeError(platform::error::keyNotUnique);
  }
  images_.push_back(std::move(image));
  ++revision_;
}

std::optional<std::size_t> ImageList::indexOf(const std::wstring& key) const {
  const auto found = std::find_if(images_.begin(), images_.end(),
                                  [&key](const Image& image) { return image.key == key; });
  if (key.empty() || found == images_.end()) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(found - images_.begin());
}

void PictureBox::loadEmptyPicture(Size size) {
  surface_.size = size;
  surface_.pixels.assign(
      static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height), 0);
}

void PictureBox::draw(const Picture& picture, int left, int top) {
  for (int y = 0; y < picture.size.height; ++y) {
    for (int x = 0; x < picture.size.width; ++x) {
      const int toX = left + x;
      const int toY = top + y;
      if (toX < 0 || toY < 0 || toX >= surface_.size.width || toY >= surface_.size.height) {
        continue;
      }
      surface_.pixels[static_cast<std::size_t>(toY) * surface_.size.width + toX] =
          picture.pixels[static_cast<std::size_t>(y) * picture.size.width + x];
    }
  }
}

Picture PictureBox::image(int margin) const {
  Picture inner;
  inner.size = {std::max(0, surface_.size.width - 2 * margin),
                std::max(0, surface_.size.height - 2 * margin)};
  inner.pixels.reserve(static_cast<std::size_t>(inner.size.width) *
                       static_cast<std::size_t>(inner.size.height));
  for (int y = 0; y < inner.size.height; ++y) {
    const auto row =
        surface_.pixels.begin() + static_cast<std::ptrdiff_t>(y + margin) * surface_.size.width;
    inner.pixels.insert(inner.pixels.end(), row + margin, row + margin + inner.size.width);
  }
  return inner;
}

}  // namespace controls
