// The pictures in the program's resources, and native image lists.
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

/// Loads the program's own icon. Empty when there is none.
[[nodiscard]] Icon loadProgramIcon(Size size);

/// Loads an icon resource at exactly `size` pixels; a smaller picture is stretched only when there
/// is no larger one. Empty when there is no such resource. Raises `error::outOfMemory` when the
/// system refuses to make an icon of the smaller picture.
[[nodiscard]] Icon loadIcon(const std::wstring& name, Size size);

/// Paints a drawing of the program into a bitmap of `size` pixels. Empty when there is none of that
/// name. Raises `error::outOfMemory` when the system refuses.
[[nodiscard]] BitmapHandle loadDrawing(const std::wstring& name, Size size);

/// The same as an icon, through which one sees where the drawing leaves pixels free.
[[nodiscard]] Icon loadDrawingWithHoles(const std::wstring& name, Size size);

/// The native copy of an image list at one dpi.
class ImageCache {
 public:
  /// Updates the copy from `source` (nullptr for none) at `dpi`. If it was outdated, calls `give`
  /// with the new native list; the control has to take it before the former one is destroyed.
  /// Returns whether anything was new. Raises `error::outOfMemory` when the system refuses an image
  /// list.
  bool refresh(const controls::ImageList* source, int dpi,
               const std::function<void(HIMAGELIST)>& give);
  /// Position of a key in the native list, `none` for an unknown one.
  [[nodiscard]] int indexOf(const std::wstring& key, int none) const;

 private:
  void append(HIMAGELIST list, const controls::ImageList& source, std::size_t from);

  NativeImageList list_;
  std::unordered_map<std::wstring, int> places_;
  const controls::ImageList* source_ = nullptr;
  unsigned revision_ = 0;
  std::size_t count_ = 0;  // number of pictures copied from the source
  int dpi_ = 0;
};

}  // namespace platform::win32
