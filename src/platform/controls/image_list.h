// Pictures of one size, found by key.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/pictures.h"

namespace controls {

/// A list of pictures with keys. Its size is given at 96 dpi; the control that shows it scales it
/// to the dpi of its window.
class ImageList {
 public:
  /// One picture: either one of the program's resources, which is available at every size, or
  /// pixels.
  struct Image {
    std::wstring key;
    std::wstring resource;      ///< Resource name, "" when `picture` holds pixels.
    platform::Picture picture;  ///< Empty for a resource.
  };

  /// Side of the pictures in pixels at 96 dpi.
  [[nodiscard]] platform::Size imageSize() const { return imageSize_; }
  void setImageSize(platform::Size size);
  /// Removes all pictures.
  void clear();
  /// Adds a picture. Raises `error::keyNotUnique` when the key exists already (exact comparison).
  void add(std::wstring key, platform::Picture picture);
  /// Puts another picture in the place of the one with this key; without such a key nothing
  /// changes.
  void replace(const std::wstring& key, platform::Picture picture);
  void addResource(std::wstring key, std::wstring resource);
  /// Position of a key, nothing when it is unknown or "".
  [[nodiscard]] std::optional<std::size_t> indexOf(const std::wstring& key) const;
  [[nodiscard]] const std::vector<Image>& images() const { return images_; }
  /// Increases with every change, so that a peer knows whether its copy is outdated.
  [[nodiscard]] unsigned revision() const { return revision_; }

 private:
  void insert(Image image);
  platform::Size imageSize_{32, 32};
  std::vector<Image> images_;
  unsigned revision_ = 0;
};

/// A drawing surface that is never shown. Icons are drawn on it, and the result is read back.
class PictureBox {
 public:
  /// Sets the size of the surface and makes every pixel transparent.
  void loadEmptyPicture(platform::Size size);
  /// Draws `picture` with its top left pixel at (left, top); clips what lies outside.
  void draw(const platform::Picture& picture, int left, int top);
  /// The surface without `margin` pixels on every side.
  [[nodiscard]] platform::Picture image(int margin = 0) const;

 private:
  platform::Picture surface_;
};

}  // namespace controls
