// The pictures among the program's resources, and image lists made of them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>

#include "platform/controls/image_list.h"
#include "platform/geometry.h"
#include "platform/pictures.h"
#include "platform/win32/handles.h"

namespace platform::win32 {

/// Loads the program's own icon, the resource number 1. Empty when there is none.
[[nodiscard]] Icon loadProgramIcon(Size size);

/// Loads an icon resource at exactly `size` pixels. Empty when there is no such resource.
[[nodiscard]] Icon loadIcon(const std::wstring& name, Size size);

/// Loads the picture resource `name`_100 ... `name`_200 that suits `dpi` and draws it into a
/// bitmap of exactly `size` pixels (pixel by pixel when it fits). Empty when there is none.
[[nodiscard]] BitmapHandle loadPicture(const std::wstring& name, int dpi, Size size);

/// The native copy of an image list at one density.
class ImageCache {
 public:
  /// Brings the copy up to date with `source` (nullptr for none) at `dpi`. When it was stale,
  /// `give` is called with the new native list, which the control has to take over before the
  /// former one is destroyed. Says whether there was anything new. Raises 7 when the system refuses
  /// an image list.
  bool refresh(const controls::ImageList* source, int dpi,
               const std::function<void(HIMAGELIST)>& give);
  /// Place of a key in the native list, `none` for an unknown one.
  [[nodiscard]] int indexOf(const std::wstring& key, int none) const;

 private:
  void append(HIMAGELIST list, const controls::ImageList& source, std::size_t from);

  NativeImageList list_;
  std::unordered_map<std::wstring, int> places_;
  const controls::ImageList* source_ = nullptr;
  unsigned revision_ = 0;
  std::size_t count_ = 0;  // pictures of the source that have been taken over
  int dpi_ = 0;
};

}  // namespace platform::win32
